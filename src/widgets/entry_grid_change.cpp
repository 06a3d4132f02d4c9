// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_grid.h"
#include "widgets/entry_text.h"
#include "widgets/grid_block.h"
#include "widgets/grid_cell.h"

#include <QApplication>
#include <QUndoCommand>
#include <algorithm>

namespace morvane {

/// A change that can be undone. It is in place when it is pushed.
class Entry_Grid::Command : public QUndoCommand {
  public:
    Command(Entry_Grid& the_grid, std::vector<Change> the_changes)
        : grid(the_grid), changes(std::move(the_changes)) {}

    void undo() override { grid.Apply(changes, false); }
    void redo() override {
        if (pushed) {
            grid.Apply(changes, true);
        }
        pushed = true;
    }

  private:
    Entry_Grid& grid;
    std::vector<Change> changes;
    bool pushed = false;
};

void Entry_Grid::Remember(std::vector<Change> changes) {
    undo_stack.push(new Command(*this, std::move(changes)));
}

void Entry_Grid::Apply(const std::vector<Change>& changes, bool later) {
    last_applied.clear();
    for (const Change& change : changes) {
        Set_Value(change.at.row, change.at.column, later ? change.later : change.former);
        last_applied.push_back(change.at);
    }
}

bool Entry_Grid::Ask(const std::vector<Cell_At>& cells) const {
    if (on_block) {
        return on_block(cells);
    }
    return !on_left ||
           std::all_of(cells.begin(), cells.end(), [this](Cell_At at) { return on_left(at.row, at.column); });
}

// Puts changes into place together, or none of them where the screen says no.
bool Entry_Grid::Carry_Out(std::vector<Change> changes) {
    if (changes.empty()) {
        return true;
    }
    Apply(changes, true);
    if (!Ask(last_applied)) {
        Apply(changes, false);
        QApplication::beep();
        Q_EMIT Values_Restored();
        return false;
    }
    Remember(std::move(changes));
    Q_EMIT Values_Changed();
    return true;
}

void Entry_Grid::Step(bool back) {
    if (back ? !undo_stack.canUndo() : !undo_stack.canRedo()) {
        QApplication::beep();
        return;
    }
    back ? undo_stack.undo() : undo_stack.redo();
    if (!Ask(last_applied)) {
        back ? undo_stack.redo() : undo_stack.undo();
        QApplication::beep();
        Q_EMIT Values_Restored();
        return;
    }
    Place(last_applied.front());
    Q_EMIT Values_Changed();
}

// The marked cells, or the current one.
QRect Entry_Grid::Marked() const {
    return Has_Block() ? view->Block() : QRect(current.column, current.row, 1, 1);
}

void Entry_Grid::Clear_Block() {
    std::vector<Change> changes;
    const QRect marked = Marked();
    for (int row = marked.top(); row <= marked.bottom(); ++row) {
        for (int column = marked.left(); column <= marked.right(); ++column) {
            const Cell_At at{row, column};
            const bool open = data->Column(column).use == Cell_Use::Entry && !data->Is_Locked(at);
            if (open && !data->Value_At(at).Is_Null()) {
                changes.push_back({at, data->Value_At(at), {}});
            }
        }
    }
    Carry_Out(std::move(changes));
}

// A pasted text as an entry of a column; false where its key filter or length would not take it whole.
bool Entry_Grid::Read_Cell(int column, const QString& text, Value& value) const {
    const Grid_Column& kind = data->Column(column);
    const QString choices = QString::fromStdString(kind.choices);
    const QString bare = Is_Whole(kind.kind)             ? Bare_Figure(text)
                         : kind.kind == Entry_Kind::Text ? text.simplified()
                                                         : text.trimmed();
    bool refused = false;
    const QString kept = Filtered_Text(kind.kind, choices, bare, refused);
    if (refused || kept.size() > kind.max_length || !Is_Entry(kind.kind, choices, kept)) {
        return false;
    }
    value = Entry_Value(kind.kind, kept);
    return true;
}

// The column of the grid that takes the column `offset` of a block whose first one is `first`.
int Entry_Grid::Block_Column(int first, int offset) const {
    int column = first;
    for (; column < data->columnCount(); ++column) {
        if (data->Column(column).in_blocks && offset-- == 0) {
            return column;
        }
    }
    return column + offset;
}

void Entry_Grid::Paste_Block(const QString& text) {
    if (current.row < 0) {
        return;
    }
    const Text_Block block = Read_Block(text);
    const QRect marked = Marked();
    // One value goes into every marked cell.
    const bool one = block.size() == 1 && block.front().size() == 1;
    const int rows = one ? marked.height() : static_cast<int>(block.size());
    std::vector<Change> changes;
    std::vector<Paste_Refused> refused;
    for (int r = 0; r < rows; ++r) {
        const auto& line = block[one ? 0 : static_cast<std::size_t>(r)];
        const int columns = one ? marked.width() : static_cast<int>(line.size());
        for (int c = 0; c < columns; ++c) {
            const QString& cell = line[one ? 0 : static_cast<std::size_t>(c)];
            const Cell_At at{marked.top() + r, Block_Column(marked.left(), c)};
            Value value;
            if (!data->Has(at)) {
                if (!cell.trimmed().isEmpty()) {
                    refused.push_back({at.row, at.column, cell});
                }
            } else if (data->Column(at.column).use != Cell_Use::Entry || data->Is_Locked(at)) {
                continue;
            } else if (!Read_Cell(at.column, cell, value)) {
                refused.push_back({at.row, at.column, cell});
            } else if (!(value == data->Value_At(at)) || at == current) {
                changes.push_back({at, data->Value_At(at), value});
            }
        }
    }
    const bool holds = Carry_Out(std::move(changes));
    if (holds && !refused.empty()) {
        QApplication::beep();
        if (on_refused) {
            on_refused(refused);
        }
    }
}

QString Entry_Grid::Copied_Text() const {
    Text_Block block;
    const QRect marked = Marked();
    for (int row = marked.top(); row <= marked.bottom(); ++row) {
        auto& line = block.emplace_back();
        for (int column = marked.left(); column <= marked.right(); ++column) {
            if (data->Column(column).in_blocks) {
                line.push_back(QString::fromStdString(Get_Value(row, column).As_Text()));
            }
        }
    }
    return Write_Block(block);
}

std::string Entry_Grid::Refusal_Text(const std::vector<Paste_Refused>& refused) const {
    constexpr std::size_t named = 8;
    std::string text = "貼り付けできない値がありました。元の値のままです。";
    for (std::size_t at = 0; at < std::min(refused.size(), named); ++at) {
        const Paste_Refused& cell = refused[at];
        const bool inside = data->Has({cell.row, cell.column});
        const QString name =
            inside ? data->headerData(cell.row, Qt::Vertical, Qt::AccessibleTextRole).toString().simplified()
                   : QString();
        std::string place =
            name.isEmpty() ? std::to_string(cell.row + 1) + "行目" : "「" + name.toStdString() + "」の";
        if (inside) {
            const auto heading = data->headerData(cell.column, Qt::Horizontal, Qt::AccessibleTextRole);
            place += "「" + heading.toString().simplified().toStdString() + "」";
        } else {
            place += std::to_string(cell.column + 1) + "列目（表の外）";
        }
        QString value = cell.text.simplified();
        if (value.size() > 20) {
            value = value.left(20) + u'…';
        }
        text += "\n" + place + "：" + value.toStdString();
    }
    if (refused.size() > named) {
        text += "\nほか" + std::to_string(refused.size() - named) + "件";
    }
    return text;
}

} // namespace morvane
