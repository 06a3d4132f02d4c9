// SPDX-FileCopyrightText: The Morvane developers
#include "app/help_window.h"

#include "app/help_browser.h"
#include "session/kyotu_mod.h"
#include "widgets/theme.h"
#include "widgets/window_placement.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>

namespace morvane {

namespace {

constexpr QSize whole_size(860, 680);

bool Scrolls(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool Is_Typed(const QKeyEvent& event) {
    const bool plain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
    // The blank turns the page.
    return plain && !event.text().isEmpty() && event.text().front().isPrint() && event.text() != u" ";
}

} // namespace

Help_Window::Help_Window(const std::filesystem::path& manual)
    : browser(new Help_Browser), folder(QString::fromStdString(manual.string())), search(new QLineEdit),
      count(new QLabel) {
    setObjectName(QStringLiteral("Help_Window"));
    setWindowTitle(QStringLiteral("Morvane ヘルプ"));
    resize(whole_size);
    browser->setObjectName(QStringLiteral("Help_Browser"));
    browser->setOpenLinks(true);
    browser->setOpenExternalLinks(false);
    browser->document()->setDocumentMargin(20);
    browser->installEventFilter(this);
    connect(browser, &QTextBrowser::anchorClicked, this, [](const QUrl& link) {
        if (!link.isLocalFile() && !link.isRelative()) {
            Url_Open(link.toString().toStdString());
        }
    });
    connect(browser, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = browser->documentTitle();
        setWindowTitle(title.isEmpty() ? QStringLiteral("Morvane ヘルプ")
                                       : title + QStringLiteral(" - Morvane ヘルプ"));
        search->clear();
    });
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(8, 8, 8, 8);
    whole->addWidget(Make_Bar());
    whole->addWidget(browser, 1);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &Help_Window::Leave);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search, [this] {
        search->setFocus();
        search->selectAll();
    });
}

QWidget* Help_Window::Make_Bar() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* caption, auto work) {
        auto* button = new QPushButton(QString::fromUtf8(caption));
        connect(button, &QPushButton::clicked, browser, work);
        row->addWidget(button);
        return button;
    };
    add("目次", [this] { browser->setSource(QUrl::fromLocalFile(folder + QStringLiteral("/index.html"))); });
    QPushButton* back = add("戻る", [this] { browser->backward(); });
    QPushButton* forward = add("進む", [this] { browser->forward(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(browser, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
    row->addStretch(1);
    count->setObjectName(QStringLiteral("Lbl_Hits"));
    theme::Set_Look(count, "muted");
    row->addWidget(count);
    search->setObjectName(QStringLiteral("Help_Search"));
    search->setPlaceholderText(QStringLiteral("このページを検索"));
    search->setAccessibleName(search->placeholderText());
    search->setMaximumWidth(240);
    search->setClearButtonEnabled(true);
    search->installEventFilter(this);
    connect(search, &QLineEdit::textChanged, this,
            [this] { Find_From(hits.isEmpty() ? 0 : hits[in_hand].selectionStart()); });
    row->addWidget(search);
    return bar;
}

// ---- pages

void Help_Window::Show_Page(const QString& page, QWidget* owner) {
    const QWidget* used = QApplication::activeWindow();
    if (used == nullptr || (used == this && owner != nullptr)) {
        used = owner;
    }
    if (owner != parentWidget()) {
        setParent(owner, Qt::Window);
    }
    // Where it is open it stands as the user has put it.
    if (!isVisible() && used != nullptr && used != this) {
        Place_Beside(*used);
    }
    show();
    Load(page);
    raise();
    activateWindow();
    search->setFocus(Qt::OtherFocusReason);
}

void Help_Window::Place_Beside(const QWidget& used) {
    QRect focus;
    if (const QWidget* field = QApplication::focusWidget()) {
        focus = QRect(field->mapToGlobal(QPoint(0, 0)), field->size());
    }
    const auto place = Beside(used.frameGeometry(), focus, whole_size, Free_Area_Of(used));
    if (place) {
        setGeometry(*place);
    }
}

void Help_Window::Load(const QString& page) {
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
}

// ---- search

void Help_Window::Find_From(int from) {
    hits.clear();
    in_hand = 0;
    if (!search->text().isEmpty()) {
        for (QTextCursor hit(browser->document());
             !(hit = browser->document()->find(search->text(), hit)).isNull();) {
            if (hit.selectionStart() < from) {
                ++in_hand;
            }
            hits.append(hit);
        }
    }
    in_hand = in_hand < hits.size() ? in_hand : 0;
    Show_Hits();
}

void Help_Window::Step(int by) {
    if (hits.isEmpty()) {
        QApplication::beep();
        return;
    }
    in_hand = (in_hand + by + hits.size()) % hits.size();
    Show_Hits();
}

void Help_Window::Show_Hits() {
    QList<QTextEdit::ExtraSelection> marks;
    for (const QTextCursor& hit : hits) {
        QTextEdit::ExtraSelection& mark = marks.emplace_back();
        mark.cursor = hit;
        mark.format.setBackground(QColor(theme::found));
        mark.format.setForeground(QColor(theme::text));
    }
    browser->setExtraSelections(marks);
    QTextCursor at = browser->textCursor();
    at.clearSelection();
    browser->setTextCursor(hits.isEmpty() ? at : hits[in_hand]);
    count->setText(search->text().isEmpty() ? QString()
                   : hits.isEmpty()         ? QStringLiteral("見つかりません")
                                            : QStringLiteral("%1／%2件").arg(in_hand + 1).arg(hits.size()));
}

bool Help_Window::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (watched == search && Scrolls(key->key())) {
            QApplication::sendEvent(browser, event);
            return true;
        }
        if (watched == search && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
            Step((key->modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
            return true;
        }
        if (watched == browser && Is_Typed(*key)) {
            search->setFocus(Qt::OtherFocusReason);
            search->clear();
            QApplication::sendEvent(search, event);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

/// Ends the search, or the window where there is none.
void Help_Window::Leave() {
    if (search->text().isEmpty()) {
        close();
    } else {
        search->clear();
    }
}

} // namespace morvane
