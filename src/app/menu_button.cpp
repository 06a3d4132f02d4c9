// SPDX-FileCopyrightText: The Morvane developers
#include "app/menu_button.h"

#include "widgets/theme.h"

#include <QKeyEvent>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace morvane {

Menu_Button::Menu_Button(const Menu_Entry& menu_entry, const QString& caption) : entry(menu_entry) {
    setObjectName(QString::fromUtf8(entry.name));
    theme::Set_Look(this, "menu");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(height_of_button);
    setMinimumWidth(80); // a narrower caption becomes smaller
    setAutoDefault(false);
    Set_Caption(caption);
}

void Menu_Button::Set_Caption(const QString& caption) {
    setText(caption);
    setAccessibleName(caption.simplified());
}

void Menu_Button::Set_Open(bool open) {
    setProperty("open", open);
    style()->unpolish(this);
    style()->polish(this);
}

void Menu_Button::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = option.text.trimmed();
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    const QRect room = rect().adjusted(6, 1, -6, -1);
    QString lines = caption;
    QFont own = font();
    if (QFontMetrics(own).horizontalAdvance(caption.simplified()) > room.width()) {
        static const QRegularExpression blanks(QStringLiteral("[ \u3000]+"));
        lines.replace(blanks, QStringLiteral("\n"));
        if (!lines.contains(QLatin1Char('\n'))) {
            lines.replace(QStringLiteral("（"), QStringLiteral("\n（"));
        }
    } else {
        lines = caption.simplified();
    }
    // Two lines, and captions without a blank, get the size at which they fit.
    qreal points = own.pointSizeF();
    if (lines.contains(QLatin1Char('\n'))) {
        points -= 1.0;
    }
    for (own.setPointSizeF(points); points > 7.0; own.setPointSizeF(points -= 0.5)) {
        const QSize needed = QFontMetrics(own).boundingRect(room, Qt::AlignCenter, lines).size();
        if (needed.width() <= room.width() && needed.height() <= room.height()) {
            break;
        }
    }
    painter.setFont(own);
    painter.setPen(
        option.palette.color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter.drawText(room, Qt::AlignCenter, lines);
}

void Menu_Button::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Down:
        focusNextChild();
        break;
    case Qt::Key_Up:
        focusPreviousChild();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    default:
        QPushButton::keyPressEvent(event);
    }
}

} // namespace morvane
