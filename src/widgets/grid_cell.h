// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/entry_cell.h"

namespace morvane {

class Entry_Grid;
struct Cell_At;

/// The editor that stands over the current cell of a grid. Over a button it is that button.
class Grid_Cell : public Entry_Cell {
  public:
    Grid_Cell(Entry_Grid& entry_grid, QWidget* parent);

    /// Takes the kind and the value of a cell of the grid.
    void Load(Cell_At at);

    /// Whether the text differs from what was loaded.
    [[nodiscard]] bool Is_Typed() const { return Bare() != loaded; }

    using Entry_Cell::Note_Click;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void Take_Pasted(const QString& pasted) override;
    void Undo_Last() override;
    void Redo_Last() override;
    bool May_Leave() override;

  private:
    void Fit_Figure();
    bool Moves(const QKeyEvent& event);
    bool Changes(const QKeyEvent& event);

    Entry_Grid& grid;
    QString loaded;
    QString button; ///< caption where it stands over a button
    bool is_button = false;
};

} // namespace morvane
