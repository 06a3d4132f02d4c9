// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/grid_data.h"

#include <QHeaderView>
#include <QTableView>

namespace morvane {

/// From the edge of a cell to its text.
inline constexpr int grid_padding = 6;

/// A column that tells the rows of a grid apart: it stays at the left while the grid scrolls.
struct Grid_Caption {
    std::string heading = {};
    int width = 10; ///< in half-width characters
    bool number = false;
};

/// The headings of the columns: several lines, and groups over consecutive columns.
class Grid_Header : public QHeaderView {
  public:
    Grid_Header(const Grid_Data& grid_data, QWidget* parent);

    void Set_Current(int column);
    QSize sizeHint() const override;

    /// Whether the right edge of a view as wide as `room` cuts a column; the first one in view never counts.
    [[nodiscard]] bool Is_Cut(int column, int room) const;

    /// Where a column begins that stands at an offset or, if none does, the next one in a direction.
    [[nodiscard]] int Column_Edge(int at, bool forward) const;

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;

  private:
    [[nodiscard]] QRect Group_Rect(int column) const;

    const Grid_Data& grid_data;
    int current = -1;
};

/// The captions of the rows.
class Grid_Captions : public QHeaderView {
  public:
    explicit Grid_Captions(QWidget* parent);

    void Set_Captions(const std::vector<Grid_Caption>& captions, std::vector<std::vector<QString>> row_texts);
    void Set_Current(int row);

    /// The width of all captions, and of each from the left.
    [[nodiscard]] int Width() const;
    std::vector<Grid_Caption> columns;
    std::vector<int> widths;

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int row) const override;

  private:
    std::vector<std::vector<QString>> texts;
    int current = -1;
};

/// The cells of a grid, painted in one go. It has no selection and takes no focus of its own: where the mouse
/// goes is told to the grid around it. Sideways it scrolls by whole columns, and a column that the right edge
/// cuts shows no figures: a part of a figure reads as another one.
class Grid_View : public QTableView {
    Q_OBJECT

  public:
    Grid_View(Grid_Data& grid_data, QWidget* parent);

    /// The cell that is framed, with `block` around it where one is marked.
    void Set_Current(Cell_At at);
    void Set_Block(const QRect& cells);
    [[nodiscard]] const QRect& Block() const { return block; }
    [[nodiscard]] QRect Cell_Rect(Cell_At at) const { return visualRect(model()->index(at.row, at.column)); }
    [[nodiscard]] bool Is_Laying_Out() const { return laying_out; }
    [[nodiscard]] Cell_At Cell_Under(const QPoint& position) const;

    /// The width of a column in half-width characters; 0 takes the room that is left.
    void Set_Width(int column, int characters);

    bool is_totals = false; ///< bold on a soft ground
    Grid_Header* header;
    Grid_Captions* captions;

  Q_SIGNALS:
    void Pressed_At(int row, int column, bool extend);
    void Dragged_To(int row, int column);
    void Laid_Out(); ///< cells have moved on the screen

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

  private:
    class Painter;
    class Corner;

    Cell_At current;
    QRect block; ///< x and width are columns, y and height rows
    bool pressed = false;
    bool laying_out = false;
    Corner* corner;
};

/// Paints in what is seen of a cut cell that there is more.
void Paint_More(QPainter& painter, const QRect& seen);

/// Paints a button of a grid; the editor over it paints the same with `focused`.
void Paint_Grid_Button(QPainter& painter, const QRect& rect, const QString& caption, bool enabled,
                       bool focused);

} // namespace morvane
