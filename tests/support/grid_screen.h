// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "support/keyboard.h"
#include "widgets/entry_grid.h"
#include "widgets/form.h"

#include <initializer_list>
#include <memory>

namespace morvane::tests {

/// A screen around a grid, with its keyboard.
class Grid_Screen : public Ui_Installation {
  protected:
    using Ui_Installation::Ui_Installation;

    void Open_Screen(std::unique_ptr<Form> screen) {
        form = std::move(screen);
        form->resize(1180, 700);
        Show(*form);
        form->setFocus();
        grid = form->findChild<Entry_Grid*>();
    }

    /// Clicks a button that closes the screen.
    void Press(const char* button) {
        Click(*form, button);
        EXPECT_FALSE(form->isVisible());
    }

    /// Types into a cell, or empties it, and goes on downwards.
    void Enter(const std::string& cell, const std::string& keys) const {
        ASSERT_TRUE(grid->Focus_Cell(cell)) << cell;
        keys.empty() ? Key(Qt::Key_Delete) : Type(keys);
        Key(Qt::Key_Down);
    }

    [[nodiscard]] std::string Cell(const std::string& name) const {
        return grid->Cell_Text(name).toStdString();
    }
    /// Rows of a column joined by |.
    [[nodiscard]] std::string Cells(const std::string& column, int first, int last) const {
        std::string texts;
        for (int row = first; row <= last; ++row) {
            texts += Cell(column + "(" + std::to_string(row) + ")") + "|";
        }
        return texts;
    }

    /// A key of a table and where it leads from a cell.
    struct Move {
        const char* from;
        Qt::Key key;
        const char* to;
        Qt::KeyboardModifier modifier = Qt::NoModifier;
    };
    void Expect_Moves(std::initializer_list<Move> moves) const {
        for (const Move& move : moves) {
            ASSERT_TRUE(grid->Focus_Cell(move.from));
            Key(move.key, move.modifier);
            EXPECT_EQ(Place(), move.to) << move.from;
        }
    }

    std::unique_ptr<Form> form;
    Entry_Grid* grid = nullptr;
};

} // namespace morvane::tests
