// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "support/keyboard.h"
#include "widgets/entry_grid.h"
#include "widgets/form.h"

#include <QClipboard>

namespace morvane::tests {

/// A screen around a grid of accounts, with its keyboard.
class Account_Screen : public Ui_Installation {
  protected:
    using Ui_Installation::Ui_Installation;

    template <class Screen>
    void Open_Screen() {
        form = std::make_unique<Screen>(shell);
        form->resize(1004, 700);
        Show(*form);
        form->setFocus();
        grid = form->template findChild<Entry_Grid*>();
    }

    static void Paste(const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        Key(Qt::Key_V, Qt::ControlModifier);
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
        Qt::KeyboardModifier modifier;
        const char* to;
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
