// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/grid_view.h"
#include "widgets/theme.h"

#include <QPainter>
#include <algorithm>
#include <numeric>

namespace morvane {

namespace {

constexpr int padding = 4;

// A field of a heading or caption with the lines at its right and foot.
void Paint_Field(QPainter& painter, const QRect& rect, const QString& text, QRgb ground,
                 Qt::Alignment alignment) {
    painter.fillRect(rect, QColor(ground));
    painter.setPen(QColor(theme::line));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.setPen(QColor(theme::text));
    painter.drawText(rect.adjusted(padding, 1, -padding - 1, -1), static_cast<int>(alignment.toInt()), text);
}

QFont Bold(const QFont& font) {
    QFont bold = font;
    bold.setBold(true);
    return bold;
}

int Lines(const std::string& text) {
    return 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

Grid_Header::Grid_Header(const Grid_Data& the_data, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), grid_data(the_data) {
    setSectionResizeMode(Fixed);
    setFont(Bold(font()));
}

void Grid_Header::Set_Current(int column) {
    if (column != current) {
        current = column;
        viewport()->update();
    }
}

QSize Grid_Header::sizeHint() const {
    int lines = 1;
    bool grouped = false;
    for (int column = 0; column < grid_data.columnCount(); ++column) {
        lines = std::max(lines, Lines(grid_data.Column(column).heading));
        grouped = grouped || !grid_data.Column(column).group.empty();
    }
    const int line = QFontMetrics(Bold(font())).lineSpacing();
    return {QHeaderView::sizeHint().width(), lines * line + 8 + (grouped ? line + 6 : 0)};
}

bool Grid_Header::Is_Cut(int column, int room) const {
    const int left = sectionViewportPosition(column);
    return left > 0 && left + sectionSize(column) > room;
}

int Grid_Header::Column_Edge(int at, bool forward) const {
    int edge = 0;
    for (int column = 0; column < count() && edge < at; ++column) {
        if (forward || sectionPosition(column) <= at) {
            edge = sectionPosition(column);
        }
    }
    return edge;
}

// The room of the group over a column, all its columns wide as far as they are in view.
QRect Grid_Header::Group_Rect(int column) const {
    const std::string& group = grid_data.Column(column).group;
    int first = column;
    int last = column;
    while (first > 0 && grid_data.Column(first - 1).group == group) {
        --first;
    }
    while (last + 1 < count() && grid_data.Column(last + 1).group == group) {
        ++last;
    }
    const int left = sectionViewportPosition(first);
    const int right = sectionViewportPosition(last) + sectionSize(last);
    const QRect group_rect(left, 0, right - left, QFontMetrics(Bold(font())).lineSpacing() + 6);
    // Its text stands in the middle of what is to be seen of it.
    return group_rect.intersected(QRect(0, 0, viewport()->width(), height()));
}

void Grid_Header::paintSection(QPainter* painter, const QRect& rect, int column) const {
    const Grid_Column& shown = grid_data.Column(column);
    painter->save();
    painter->setFont(Bold(font()));
    QRect lower = rect;
    if (!shown.group.empty()) {
        const QRect group = Group_Rect(column);
        painter->setClipRect(rect);
        const QString text = painter->fontMetrics().elidedText(QString::fromStdString(shown.group),
                                                               Qt::ElideRight, group.width() - 2 * padding);
        Paint_Field(*painter, group, text, theme::accent_soft, Qt::AlignCenter);
        lower.setTop(group.bottom() + 1);
    }
    const bool cut = Is_Cut(column, viewport()->width());
    Paint_Field(*painter, lower, cut ? QString() : QString::fromStdString(shown.heading),
                column == current ? theme::heading_current : theme::accent_soft, Qt::AlignCenter);
    if (cut) {
        Paint_More(*painter, lower.intersected(viewport()->rect()));
    }
    painter->restore();
}

Grid_Captions::Grid_Captions(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
    setSectionResizeMode(Fixed);
    setDefaultSectionSize(theme::cell_height);
    setMinimumSectionSize(theme::cell_height);
}

void Grid_Captions::Set_Captions(const std::vector<Grid_Caption>& captions,
                                 std::vector<std::vector<QString>> row_texts) {
    columns = captions;
    texts = std::move(row_texts);
    widths.clear();
    ensurePolished();
    for (const Grid_Caption& caption : captions) {
        widths.push_back(fontMetrics().horizontalAdvance(QLatin1Char('0')) * caption.width + 2 * padding + 1);
    }
    setFixedWidth(Width());
    setHidden(captions.empty());
    viewport()->update();
}

int Grid_Captions::Width() const {
    return std::accumulate(widths.begin(), widths.end(), 0);
}

void Grid_Captions::Set_Current(int row) {
    if (row != current) {
        current = row;
        viewport()->update();
    }
}

void Grid_Captions::paintSection(QPainter* painter, const QRect& rect, int row) const {
    const auto at = static_cast<std::size_t>(row);
    painter->save();
    painter->setFont(row == current ? Bold(font()) : font());
    QRect field = rect;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        field.setWidth(widths[column]);
        const bool has_text = at < texts.size() && column < texts[at].size();
        const QFontMetrics metrics = painter->fontMetrics();
        Paint_Field(
            *painter, field,
            has_text ? metrics.elidedText(texts[at][column], Qt::ElideRight, field.width() - 2 * padding - 1)
                     : QString(),
            row == current ? theme::heading_current : theme::accent_soft,
            (columns[column].number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        field.moveLeft(field.right() + 1);
    }
    painter->restore();
}

} // namespace morvane
