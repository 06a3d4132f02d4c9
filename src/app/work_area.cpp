// SPDX-FileCopyrightText: The Morvane developers
#include "app/work_area.h"

#include "screens/check_screen.h"
#include "widgets/theme.h"

#include <QMdiSubWindow>
#include <QPainter>
#include <QResizeEvent>

namespace morvane {

Work_Area::Work_Area() {
    setObjectName(QStringLiteral("Work_Area"));
    setBackground(QColor(theme::window));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
}

void Work_Area::Open(Form* form) {
    QMdiSubWindow* window = addSubWindow(form, Qt::SubWindow | Qt::FramelessWindowHint);
    window->setContentsMargins(0, 0, 0, 0);
    connect(form, &QDialog::finished, this, [this, window] {
        removeSubWindow(window);
        window->deleteLater();
        if (Forms().isEmpty()) {
            Q_EMIT All_Closed();
        }
    });
    Q_EMIT Opened();
    window->setGeometry(viewport()->rect());
    window->show();
    form->show();
    form->setFocus();
    setActiveSubWindow(window);
}

QList<Form*> Work_Area::Forms() const {
    QList<Form*> forms;
    for (QMdiSubWindow* window : subWindowList(StackingOrder)) {
        if (auto* form = qobject_cast<Form*>(window->widget())) {
            forms.push_back(form);
        }
    }
    return forms;
}

Form* Work_Area::Top() const {
    const QList<Form*> forms = Forms();
    return forms.isEmpty() ? nullptr : forms.back();
}

bool Work_Area::Close_All() {
    while (Form* form = Top()) {
        Check_Screen::Unload_Beside(*form);
        form->reject();
        if (Top() == form) {
            return false;
        }
    }
    return true;
}

void Work_Area::Set_Hint(const QString& text) {
    hint = text;
    viewport()->update();
}

void Work_Area::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    for (QMdiSubWindow* window : subWindowList()) {
        window->setGeometry(viewport()->rect());
    }
    Q_EMIT Resized();
}

void Work_Area::paintEvent(QPaintEvent* event) {
    QMdiArea::paintEvent(event);
    if (!hint.isEmpty() && subWindowList().isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(QColor(theme::muted));
        painter.setFont(theme::Gothic(theme::heading_points));
        painter.drawText(viewport()->rect().adjusted(40, 0, -40, 0), Qt::AlignCenter | Qt::TextWordWrap,
                         hint);
    }
}

} // namespace morvane
