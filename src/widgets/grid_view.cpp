// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/grid_view.h"

#include "widgets/figure_label.h"
#include "widgets/theme.h"

#include <QAbstractItemDelegate>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace morvane {

namespace {

// A name is squeezed as far as it still reads well, then in smaller letters; a still longer one keeps its
// beginning.
void Paint_Name(QPainter& painter, const QRect& room, const QString& text, Qt::Alignment alignment) {
    constexpr double narrowest = 0.75;
    constexpr double small_points = 9;
    const int most = static_cast<int>(room.width() / narrowest);
    if (painter.fontMetrics().horizontalAdvance(text) > most) {
        painter.setFont(theme::Gothic(small_points, painter.font().bold()));
    }
    Paint_Figure(painter, room, painter.fontMetrics().elidedText(text, Qt::ElideRight, most), alignment);
}

} // namespace

/// Paints cells: grounds by what the cell is for, the marked block, the frame of the current cell.
class Grid_View::Painter : public QAbstractItemDelegate {
  public:
    Painter(const Grid_View& the_view, const Grid_Data& the_data, QObject* parent)
        : QAbstractItemDelegate(parent), view(the_view), data(the_data) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Cell_At at{index.row(), index.column()};
        const Grid_Column& column = data.Column(at.column);
        painter->fillRect(option.rect, QColor(Ground(at)));
        if (view.header->Is_Cut(at.column, view.viewport()->width())) {
            if (column.use == Cell_Use::Button || !data.Text_At(at).isEmpty()) {
                Paint_More(*painter, option.rect.intersected(view.viewport()->rect()));
            }
        } else if (column.use == Cell_Use::Button) {
            Paint_Grid_Button(*painter, option.rect, QString::fromStdString(column.button),
                              !data.Is_Locked(at), false);
        } else if (!data.Text_At(at).isEmpty()) {
            painter->setPen(QColor(theme::text));
            QFont font = view.font();
            font.setBold(view.is_totals || data.Is_Strong(at));
            painter->setFont(font);
            const QRect room = option.rect.adjusted(grid_padding, 0, -grid_padding, 0);
            if (column.kind == Entry_Kind::Text) {
                Paint_Name(*painter, room, data.Text_At(at), Alignment_Of(column));
            } else {
                Paint_Figure(*painter, room, data.Text_At(at), Alignment_Of(column));
            }
            if (data.Is_Best(at)) { // the tint alone is not seen by everyone
                painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("◎"));
            }
        }
        if (view.block.contains(at.column, at.row)) {
            QColor veil(theme::accent);
            veil.setAlphaF(0.18F);
            painter->fillRect(option.rect, veil);
        }
        if (at == view.current) {
            painter->setPen(QColor(theme::accent));
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
    }

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {0, theme::cell_height};
    }

  private:
    [[nodiscard]] QRgb Ground(Cell_At at) const {
        if (view.is_totals) {
            return theme::accent_soft;
        }
        if (data.Is_Best(at)) {
            return theme::best;
        }
        const bool odd = at.row % 2 == 1;
        if (data.Column(at.column).use != Cell_Use::Entry) {
            return odd ? theme::shown_zebra : theme::shown;
        }
        if (data.Is_Locked(at)) {
            return theme::locked;
        }
        return odd ? theme::zebra : theme::surface;
    }

    const Grid_View& view;
    const Grid_Data& data;
};

/// The field over the captions, with their headings.
class Grid_View::Corner : public QWidget {
  public:
    explicit Corner(Grid_View* the_view) : QWidget(the_view), view(*the_view) {}

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(theme::accent_soft));
        QFont bold = view.font();
        bold.setBold(true);
        painter.setFont(bold);
        QRect field = rect();
        for (std::size_t at = 0; at < view.captions->widths.size(); ++at) {
            field.setWidth(view.captions->widths[at]);
            painter.setPen(QColor(theme::text));
            painter.drawText(field, Qt::AlignCenter,
                             QString::fromStdString(view.captions->columns[at].heading));
            painter.setPen(QColor(theme::line));
            painter.drawLine(field.topRight(), field.bottomRight());
            field.moveLeft(field.right() + 1);
        }
        painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    }

  private:
    const Grid_View& view;
};

Grid_View::Grid_View(Grid_Data& grid_data, QWidget* parent)
    : QTableView(parent), header(new Grid_Header(grid_data, this)), captions(new Grid_Captions(this)),
      corner(new Corner(this)) {
    theme::Set_Look(this, "grid");
    setModel(&grid_data);
    setItemDelegate(new Painter(*this, grid_data, this));
    setHorizontalHeader(header);
    setVerticalHeader(captions);
    captions->Set_Captions({}, {});
    setCornerButtonEnabled(false);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    ensurePolished();
    for (int column = 0; column < grid_data.columnCount(); ++column) {
        Set_Width(column, grid_data.Column(column).width);
    }
}

void Grid_View::Set_Width(int column, int characters) {
    if (characters == 0) {
        header->setSectionResizeMode(column, QHeaderView::Stretch);
    } else {
        const int character = fontMetrics().horizontalAdvance(QLatin1Char('0'));
        setColumnWidth(column, character * characters + 2 * grid_padding + 3);
    }
}

void Grid_View::Set_Current(Cell_At at) {
    const Cell_At former = current;
    current = at;
    viewport()->update(Cell_Rect(former));
    viewport()->update(Cell_Rect(at));
    header->Set_Current(at.column);
    captions->Set_Current(at.row);
}

void Grid_View::Set_Block(const QRect& cells) {
    if (cells != block) {
        block = cells;
        viewport()->update();
    }
}

Cell_At Grid_View::Cell_Under(const QPoint& position) const {
    return {rowAt(position.y()), columnAt(position.x())};
}

void Grid_View::mousePressEvent(QMouseEvent* event) {
    const Cell_At at = Cell_Under(event->position().toPoint());
    event->accept();
    if (at.row < 0 || at.column < 0 || event->button() == Qt::MiddleButton) {
        return;
    }
    pressed = event->button() == Qt::LeftButton;
    Q_EMIT Pressed_At(at.row, at.column, (event->modifiers() & Qt::ShiftModifier) != 0);
}

void Grid_View::mouseMoveEvent(QMouseEvent* event) {
    const Cell_At at = Cell_Under(event->position().toPoint());
    event->accept();
    if (pressed && at.row >= 0 && at.column >= 0) {
        Q_EMIT Dragged_To(at.row, at.column);
    }
}

void Grid_View::mouseReleaseEvent(QMouseEvent* event) {
    pressed = false;
    event->accept();
}

void Grid_View::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

// However it was moved, it comes to stand at the next column on that way. Totals go where the cells go.
void Grid_View::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dx != 0 && !laying_out && !is_totals) {
        viewport()->update(); // other columns are cut now
        horizontalScrollBar()->setValue(header->Column_Edge(horizontalScrollBar()->value(), dx < 0));
    }
    Q_EMIT Laid_Out();
}

// At its end the last columns are whole, too; there is some room behind them.
void Grid_View::updateGeometries() {
    QScrollBar& bar = *horizontalScrollBar();
    const int stood_at = bar.value();
    {
        const QScopedValueRollback guard(laying_out, true);
        QTableView::updateGeometries();
        bar.setMaximum(header->Column_Edge(bar.maximum(), true));
        bar.setValue(header->Column_Edge(stood_at, false));
    }
    corner->setGeometry(frameWidth(), frameWidth(), captions->isHidden() ? 0 : captions->width(),
                        header->isHidden() ? 0 : header->height());
    corner->raise();
    Q_EMIT Laid_Out();
}

void Paint_More(QPainter& painter, const QRect& seen) {
    const QString more = QStringLiteral("…");
    if (painter.fontMetrics().horizontalAdvance(more) < seen.width()) {
        painter.setPen(QColor(theme::muted));
        painter.drawText(seen, Qt::AlignCenter, more);
    }
}

void Paint_Grid_Button(QPainter& painter, const QRect& rect, const QString& caption, bool enabled,
                       bool focused) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(focused ? theme::accent : theme::line), focused ? 2 : 1));
    painter.setBrush(QColor(focused ? theme::accent_soft : enabled ? theme::surface : theme::window));
    painter.drawRoundedRect(QRectF(rect).adjusted(2.5, 2.5, -2.5, -2.5), 3, 3);
    painter.setPen(QColor(enabled ? theme::text : theme::disabled));
    painter.drawText(rect, Qt::AlignCenter, caption);
    painter.restore();
}

} // namespace morvane
