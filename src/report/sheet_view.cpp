// SPDX-FileCopyrightText: The Morvane developers
#include "report/sheet_view.h"

#include "report/painter_target.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace morvane {

// ---- the sheet

Yousi::Yousi(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Yousi"));
    setAccessibleName(QStringLiteral("用紙"));
    setCursor(Qt::OpenHandCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

double Yousi::Dots_Per_Mm() const {
    return logicalDpiX() / Print_Target::mm_per_inch;
}

void Yousi::Show_Page(const Recorded_Sheet& sheet, std::size_t page, double width, double height) {
    shown = &sheet;
    shown_page = page;
    resize(qRound(width * Dots_Per_Mm()), qRound(height * Dots_Per_Mm()));
    update();
}

void Yousi::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (shown != nullptr) {
        Painter_Target target(painter, Dots_Per_Mm());
        shown->Play(shown_page, target);
    }
}

void Yousi::mousePressEvent(QMouseEvent* event) {
    if (!drag && event->button() == Qt::LeftButton) {
        drag = true;
        pressed = event->position().toPoint();
        setCursor(Qt::ClosedHandCursor);
    }
}

void Yousi::mouseMoveEvent(QMouseEvent* event) {
    if (drag) {
        Q_EMIT Dragged(event->position().toPoint() - pressed);
    }
}

void Yousi::mouseReleaseEvent(QMouseEvent* event) {
    if (drag && event->button() == Qt::LeftButton) {
        Q_EMIT Dragged(event->position().toPoint() - pressed);
        drag = false;
        setCursor(Qt::OpenHandCursor);
    }
}

// ---- the desk

Sheet_View::Sheet_View(QWidget* parent) : QAbstractScrollArea(parent), sheet(new Yousi(viewport())) {
    setObjectName(QStringLiteral("Sheet_View"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    connect(sheet, &Yousi::Dragged, this,
            [this](const QPoint& distance) { Move_To(sheet->pos() + distance); });
}

void Sheet_View::Show_Page(const Recorded_Sheet& record, std::size_t page, double width, double height) {
    const QSizeF before = sheet->size();
    const QPointF middle = QRectF(viewport()->rect()).center();
    const QPointF on_sheet = middle - QPointF(sheet->pos());
    sheet->Show_Page(record, page, width, height);
    if (before.isEmpty() || before == sheet->size()) {
        Move_To(Rest(sheet->pos()));
        return;
    }
    const QPointF there(on_sheet.x() * sheet->width() / before.width(),
                        on_sheet.y() * sheet->height() / before.height());
    Move_To(Rest((middle - there).toPoint()));
}

/// Where the sheet comes to rest: in the middle where it is smaller than the desk, else without a gap at an
/// edge.
QPoint Sheet_View::Rest(QPoint place) const {
    const auto along = [](int at, int desk, int size) {
        return size + 2 * margin <= desk ? (desk - size) / 2 : std::clamp(at, desk - size - margin, margin);
    };
    return {along(place.x(), viewport()->width(), sheet->width()),
            along(place.y(), viewport()->height(), sheet->height())};
}

// A drag may take the sheet further, as far as a strip of it can be seen.
void Sheet_View::Move_To(QPoint place) {
    constexpr int strip = 60;
    sheet->move(
        std::clamp(place.x(), std::min(0, strip - sheet->width()), std::max(0, viewport()->width() - strip)),
        std::clamp(place.y(), std::min(0, strip - sheet->height()),
                   std::max(0, viewport()->height() - strip)));
    viewport()->update();
    Set_Bars();
}

void Sheet_View::Set_Bars() {
    setting_bars = true;
    const auto set = [](QScrollBar* bar, int at, int desk, int size) {
        bar->setRange(0, std::max(0, size + 2 * margin - desk));
        bar->setPageStep(desk);
        bar->setSingleStep(desk / 12 + 1);
        bar->setValue(margin - at);
    };
    set(horizontalScrollBar(), sheet->x(), viewport()->width(), sheet->width());
    set(verticalScrollBar(), sheet->y(), viewport()->height(), sheet->height());
    setting_bars = false;
}

void Sheet_View::scrollContentsBy(int dx, int dy) {
    if (!setting_bars) {
        const QPoint place(dx != 0 ? margin - horizontalScrollBar()->value() : sheet->x(),
                           dy != 0 ? margin - verticalScrollBar()->value() : sheet->y());
        sheet->move(place);
        viewport()->update();
    }
}

bool Sheet_View::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Paint) {
        QPainter painter(viewport());
        painter.fillRect(viewport()->rect(), QColor(0xC3, 0xCA, 0xD3));
        painter.fillRect(sheet->geometry().translated(3, 3), QColor(0x8E, 0x98, 0xA4));
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void Sheet_View::resizeEvent(QResizeEvent* /*event*/) {
    Move_To(Rest(sheet->pos()));
}

void Sheet_View::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (event->angleDelta().y() != 0) {
            Q_EMIT Zoomed(event->angleDelta().y() > 0 ? 1 : -1);
        }
        event->accept();
        return;
    }
    QAbstractScrollArea::wheelEvent(event);
}

void Sheet_View::Page_Key(int direction) {
    QScrollBar* bar = verticalScrollBar();
    if (bar->value() == (direction > 0 ? bar->maximum() : bar->minimum())) {
        Q_EMIT Page_Turned(direction);
    } else {
        bar->setValue(bar->value() + direction * bar->pageStep() * 9 / 10);
    }
}

void Sheet_View::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_PageDown:
        Page_Key(1);
        break;
    case Qt::Key_PageUp:
        Page_Key(-1);
        break;
    case Qt::Key_Home:
        To_Top();
        break;
    case Qt::Key_End:
        To_Bottom();
        break;
    case Qt::Key_Plus:
    case Qt::Key_Semicolon: // the key of + without Shift on a Japanese keyboard
        Q_EMIT Zoomed(1);
        break;
    case Qt::Key_Minus:
        Q_EMIT Zoomed(-1);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

} // namespace morvane
