// SPDX-FileCopyrightText: The Morvane developers
#include "app/help_window.h"

#include "app/help_browser.h"
#include "session/kyotu_mod.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace morvane {

Help_Window::Help_Window(const std::filesystem::path& manual)
    : browser(new Help_Browser), folder(QString::fromStdString(manual.string())), search(new QLineEdit) {
    setObjectName(QStringLiteral("Help_Window"));
    setWindowTitle(QStringLiteral("Morvane ヘルプ"));
    resize(860, 680);
    auto* bar = new QHBoxLayout;
    const auto add = [&](const char* caption, auto work) {
        auto* button = new QPushButton(QString::fromUtf8(caption));
        connect(button, &QPushButton::clicked, browser, work);
        bar->addWidget(button);
        return button;
    };
    add("目次", [this] { browser->setSource(QUrl::fromLocalFile(folder + QStringLiteral("/index.html"))); });
    QPushButton* back = add("戻る", [this] { browser->backward(); });
    QPushButton* forward = add("進む", [this] { browser->forward(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(browser, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
    bar->addStretch(1);
    search->setPlaceholderText(QStringLiteral("このページを検索"));
    search->setMaximumWidth(240);
    search->setClearButtonEnabled(true);
    connect(search, &QLineEdit::returnPressed, this, &Help_Window::Find_Next);
    bar->addWidget(search);

    browser->setObjectName(QStringLiteral("Help_Browser"));
    browser->setOpenLinks(true);
    browser->setOpenExternalLinks(false);
    browser->document()->setDocumentMargin(20);
    connect(browser, &QTextBrowser::anchorClicked, this, [](const QUrl& link) {
        if (!link.isLocalFile() && !link.isRelative()) {
            Url_Open(link.toString().toStdString());
        }
    });
    connect(browser, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = browser->documentTitle();
        setWindowTitle(title.isEmpty() ? QStringLiteral("Morvane ヘルプ")
                                       : title + QStringLiteral(" - Morvane ヘルプ"));
    });
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(8, 8, 8, 8);
    whole->addLayout(bar);
    whole->addWidget(browser, 1);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search,
            [this] { search->setFocus(); });
}

void Help_Window::Show_Page(const QString& page, QWidget* owner) {
    QString file = folder + QLatin1Char('/') + page + QStringLiteral(".html");
    if (!QFileInfo::exists(file)) {
        file = folder + QStringLiteral("/index.html");
    }
    if (QFileInfo::exists(file)) {
        browser->setSource(QUrl::fromLocalFile(file));
    } else {
        browser->setHtml(QStringLiteral("<h1>ヘルプ</h1><p>ヘルプのファイルが見つかりません。</p><p>%1</p>")
                             .arg(folder.toHtmlEscaped()));
    }
    if (owner != parentWidget()) {
        setParent(owner, Qt::Window);
    }
    show();
    raise();
    activateWindow();
}

void Help_Window::Find_Next() {
    if (search->text().isEmpty()) {
        return;
    }
    if (!browser->find(search->text())) {
        browser->moveCursor(QTextCursor::Start);
        if (!browser->find(search->text())) {
            QApplication::beep();
        }
    }
}

} // namespace morvane
