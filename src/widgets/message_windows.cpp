// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/message_windows.h"

#include "widgets/theme.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <span>

namespace morvane {

namespace {

struct Button_Row {
    Answer answer;
    const char* name;
    const char* caption;
};

constexpr std::array<Button_Row, 7> button_rows = {{
    {Answer::Ok, "Ok", "OK"},
    {Answer::Yes, "Yes", "はい(&Y)"},
    {Answer::No, "No", "いいえ(&N)"},
    {Answer::Retry, "Retry", "再試行(&R)"},
    {Answer::Discard, "Discard", "破棄して閉じる(&D)"},
    {Answer::Back, "Back", "戻る(&B)"},
    {Answer::Cancel, "Cancel", "キャンセル"},
}};

/// The answers of a box; the last one is that of Esc and the close button, which never carries out anything.
std::span<const Answer> Answers_Of(Buttons buttons) {
    static constexpr std::array ok = {Answer::Ok};
    static constexpr std::array ok_cancel = {Answer::Ok, Answer::Cancel};
    static constexpr std::array yes_no = {Answer::Yes, Answer::No};
    static constexpr std::array retry_discard_back = {Answer::Retry, Answer::Discard, Answer::Back};
    static constexpr std::array retry_back = {Answer::Retry, Answer::Back};
    switch (buttons) {
    case Buttons::Ok:
        return ok;
    case Buttons::Ok_Cancel:
        return ok_cancel;
    case Buttons::Yes_No:
        return yes_no;
    case Buttons::Retry_Discard_Back:
        return retry_discard_back;
    case Buttons::Retry_Back:
        return retry_back;
    }
    return ok;
}

// A round sign for a notice, a triangle for a question or warning, in the program's colours.
QPixmap Sign(Icon icon) {
    constexpr int side = 44;
    const qreal scale = qApp->devicePixelRatio();
    QPixmap picture(QSize(side, side) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool notice = icon == Icon::Information;
    if (notice) {
        painter.setBrush(QColor(theme::accent));
        painter.drawEllipse(2, 2, side - 4, side - 4);
    } else {
        painter.setBrush(QColor(0xF2, 0xB1, 0x34));
        painter.setPen(QPen(QColor(0xF2, 0xB1, 0x34), 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolygon(QPolygon({QPoint(side / 2, 5), QPoint(side - 5, side - 6), QPoint(5, side - 6)}));
    }
    painter.setPen(notice ? QColor(Qt::white) : QColor(theme::text));
    painter.setFont(theme::Gothic(theme::title_points + 4, true));
    painter.drawText(QRect(0, notice ? 0 : 6, side, side - (notice ? 0 : 6)), Qt::AlignCenter,
                     notice ? QStringLiteral("i") : QStringLiteral("!"));
    return picture;
}

// Between two words and, where the text has none near the end of the line, anywhere.
int Break_Of(const QString& line, const QFont& font, int width) {
    QTextLayout layout(line, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine first = layout.createLine();
    first.setLineWidth(width);
    const int fits = first.textLength();
    layout.endLayout();
    static const QString ends = QStringLiteral("。、）」』　 ");
    for (int at = fits; at > fits * 2 / 3; --at) {
        if (ends.contains(line.at(at - 1))) {
            return at;
        }
    }
    return std::max(fits, 1);
}

/// One message on the screen.
class Message_Window : public QDialog {
  public:
    Message_Window(const Message_Box& box, QWidget* parent);

    [[nodiscard]] Answer Chosen() const { return chosen; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* Make_Text(const Message_Box& box);
    QLayout* Make_Buttons(const Message_Box& box);

    Answer chosen;
    QPushButton* default_button = nullptr;
};

Message_Window::Message_Window(const Message_Box& box, QWidget* parent)
    : QDialog(parent), chosen(Answers_Of(box.buttons).back()) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setObjectName(QStringLiteral("Message_Box"));
    setWindowTitle(box.title.empty() ? QStringLiteral("Morvane") : QString::fromStdString(box.title));
    setAccessibleName(windowTitle());
    setAccessibleDescription(QString::fromStdString(box.text));
    theme::Set_Look(this, "message");
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(16, 16, 16, 12);
    whole->setSpacing(16);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    auto* sign = new QLabel;
    sign->setPixmap(Sign(box.icon));
    row->addWidget(sign, 0, Qt::AlignTop);
    row->addWidget(Make_Text(box), 1);
    whole->addLayout(row, 1);
    whole->addLayout(Make_Buttons(box));
    // A button is taken for the default, and takes the focus, only where it stands in its window.
    if (default_button != nullptr) {
        default_button->setDefault(true);
        default_button->setFocus();
    }
    resize(sizeHint());
}

// The lines stand as they are given; a line that is wider than the display breaks, and a text that is higher
// scrolls.
QWidget* Message_Window::Make_Text(const Message_Box& box) {
    const QWidget* over = parentWidget();
    const QSize display = (over != nullptr ? over : this)->screen()->availableSize();
    const QSize most(display.width() - 160, display.height() - 160);
    auto* text = new QLabel(Fitted_Lines(QString::fromStdString(box.text), font(), most.width()));
    text->setObjectName(QStringLiteral("Message_Text"));
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    text->setMinimumWidth(std::max(text->sizeHint().width(), 240));
    if (text->sizeHint().height() <= most.height()) {
        return text;
    }
    auto* scroll = new QScrollArea;
    scroll->setWidget(text);
    text->setAutoFillBackground(false);
    scroll->viewport()->setAutoFillBackground(false);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setMinimumSize(text->sizeHint().width() + scroll->verticalScrollBar()->sizeHint().width(), 120);
    scroll->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    scroll->setMaximumHeight(most.height());
    return scroll;
}

QLayout* Message_Window::Make_Buttons(const Message_Box& box) {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch(1);
    for (const Answer answer : Answers_Of(box.buttons)) {
        const Button_Row& shown = *std::find_if(button_rows.begin(), button_rows.end(),
                                                [&](const Button_Row& of) { return of.answer == answer; });
        auto* button = new QPushButton(QString::fromUtf8(shown.caption));
        button->setObjectName(QString::fromLatin1(shown.name));
        button->setMinimumWidth(96);
        // Of several that would be one on their own the dialog takes the first for its default.
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, answer] {
            chosen = answer;
            accept();
        });
        row->addWidget(button);
        if (answer == box.default_answer) {
            default_button = button;
        }
    }
    return row;
}

// Enter presses the button that has the focus. A letter alone presses as it does with Alt.
void Message_Window::keyPressEvent(QKeyEvent* event) {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    if (focused != nullptr && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        focused->click();
        return;
    }
    const QString letter = event->text().toUpper();
    if (letter.size() == 1 && letter.at(0).isLetter()) {
        for (QPushButton* button : findChildren<QPushButton*>()) {
            if (button->text().contains(QLatin1Char('&') + letter)) {
                button->click();
                return;
            }
        }
    }
    QDialog::keyPressEvent(event);
}

} // namespace

QString Fitted_Lines(const QString& text, const QFont& font, int width) {
    const QFontMetrics metrics(font);
    QStringList fitted;
    for (QString line : text.split(QLatin1Char('\n'))) {
        while (metrics.horizontalAdvance(line) > width) {
            const int at = Break_Of(line, font, width);
            if (at >= line.size()) {
                break;
            }
            fitted += line.left(at);
            line = line.mid(at);
        }
        fitted += line;
    }
    return fitted.join(QLatin1Char('\n'));
}

Answer Message_Windows::Show(const Message_Box& box) {
    Message_Window window(box, QApplication::activeModalWidget() != nullptr
                                   ? QApplication::activeModalWidget()
                                   : QApplication::activeWindow());
    if (box.beep) {
        QApplication::beep();
    }
    window.exec();
    return window.Chosen();
}

} // namespace morvane
