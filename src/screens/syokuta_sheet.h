// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/syokuta_edit.h"
#include "screens/syokuta_table.h"

#include <QWidget>
#include <array>
#include <vector>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace morvane {

/// The fields of X2 and W in the groups of a law year, in as many columns as there is room for. Where a
/// screen compares, each figure has that of the side before at its left or, where a line has several, over
/// it.
class Syokuta_Sheet : public QWidget {
    Q_OBJECT

  public:
    Syokuta_Sheet(const Law_Year& law_year, const Screen_Sides& screen_sides);

    /// The fields that take entries, in their order.
    [[nodiscard]] const std::vector<Syokuta_Edit*>& Edits() const { return edits; }

    /// Shows what the screen is for; without its figures only the items are held.
    void Show_Figures(const Syokuta& figures, bool computed);

    /// Shows the side before; null leaves its places empty.
    void Show_Before(const Syokuta* figures);

    /// Takes as many columns as a screen of that width has room for.
    void Fit(int screen_width);

    /// The next field in the order of entry, at the end the first one; `by` -1 the one before.
    [[nodiscard]] Syokuta_Edit& Next_To(const Syokuta_Edit& from, int by) const;

    /// The nearest field of the line above (-1) or below (1) in the same column; null at the ends.
    [[nodiscard]] Syokuta_Edit* Beyond(const Syokuta_Edit& from, int direction) const;

  Q_SIGNALS:
    void Check_Pressed(int index); ///< of w2x_buttons

  private:
    struct Shown_Cell {
        const Syokuta_Cell* cell;
        QLabel* label;
    };
    struct Placed_Group {
        const Syokuta_Group* group;
        QWidget* box;
    };

    QWidget* Make_Group(const Syokuta_Group& group);
    QWidget* Make_Band(const Syokuta_Group& group);
    QWidget* Make_Row(const Syokuta_Row& row);
    void Add_Score(QHBoxLayout& line, const Syokuta_Cell& cell, const QString& of_what);
    void Add_Cell(QHBoxLayout& line, const Syokuta_Cell& cell, const QString& caption, bool stacked);
    void Add_Figure(QHBoxLayout& line, const Syokuta_Cell& cell, QWidget& figure, bool stacked);
    void Add_Check(QHBoxLayout& line, const char* score);
    QLabel* Make_Before(const Syokuta_Cell& cell, const QWidget& beside) const;
    [[nodiscard]] int Column_Of(const Syokuta_Group& group) const;
    [[nodiscard]] int Column_Of(const QWidget& field) const;
    void Arrange(int count);

    const Law_Year& law;
    const Screen_Sides& sides;
    std::vector<Syokuta_Edit*> edits;
    std::vector<Shown_Cell> labels;
    std::vector<Shown_Cell> labels_before;
    std::vector<Placed_Group> groups;
    std::array<QVBoxLayout*, 3> columns{};
    std::array<int, 3> room_for{}; ///< width of the screen that one, two, three columns need, pixels
    int column_count = 0;
};

} // namespace morvane
