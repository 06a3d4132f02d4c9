// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_form.h"

#include "widgets/entry_grid.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace morvane {

namespace {

/// The groups of the panel, in two columns.
struct Group {
    Panel_Group group;
    const char* heading;
    int column;
};
constexpr std::array<Group, 4> groups = {{
    {Panel_Group::Assets, "資産", 0},
    {Panel_Group::Liabilities, "負債・純資産", 0},
    {Panel_Group::Profit, "損益", 1},
    {Panel_Group::Check, "チェック", 1},
}};

constexpr int margins = 2 * 16; ///< of the form

std::string Numbered(const std::string& field, std::size_t column) {
    return field + "(" + std::to_string(column) + ")";
}

} // namespace

Statement_Form::Statement_Form(Shell_Port& shell_port, const QString& name, const QString& title,
                               const Statement_Look& the_look, Statement_Section first_section,
                               On_Cancel what_canseru_does)
    : Saving_Form(shell_port, name, title, "建設財務諸表", what_canseru_does),
      section(std::move(first_section)), look(the_look) {
    body->setSpacing(theme::grid * 2);
}

void Statement_Form::Add_Fields() {
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    // The panel takes its width first, the grid what is left of its own.
    row->addWidget(Make_Grid(), 1);
    row->addWidget(Make_Panels(), 1000);
    row->addStretch(0);
    body->addLayout(row, 1);
    Fill_Grid();
    Panel_Show();
}

void Statement_Form::Show_Section(Statement_Section another) {
    section = std::move(another);
    grid->Set_Row_Count(static_cast<int>(section.Rows().size()));
    Fill_Grid();
    Panel_Show();
}

QWidget* Statement_Form::Make_Grid() {
    auto* field = new QWidget;
    field->setMinimumWidth(std::min(look.layouts.back().least_grid, look.layouts.front().least_grid));
    field->setMaximumWidth(look.widest_grid);
    auto* column = new QVBoxLayout(field);
    column->setContentsMargins(0, 0, 0, 0);
    grid = Make_Account_Grid(shell, look.columns, static_cast<int>(section.Rows().size()));
    empty = new QLabel(QStringLiteral("この区分には、入力する勘定科目がありません。"));
    column->addWidget(grid, 1);
    column->addWidget(empty);
    column->addStretch(0);
    Follow(grid);
    setFocusProxy(grid);
    grid->on_left = [this](int row, int left_column) {
        Take_Cells({{row, left_column}});
        return true;
    };
    grid->on_block = [this](const std::vector<Cell_At>& cells) {
        Take_Cells(cells);
        return true;
    };
    return field;
}

std::size_t Statement_Form::Amount_Count() const {
    const auto& amounts = look.columns.amounts;
    const auto* end = std::find_if(amounts.begin(), amounts.end(),
                                   [](const Account_Amount& amount) { return amount.name == nullptr; });
    return static_cast<std::size_t>(end - amounts.begin());
}

bool Statement_Form::Is_Computed(std::size_t row, std::size_t amount) const {
    return !look.columns.amounts.at(amount).keyed || !section.Rows()[row].amount_open;
}

void Statement_Form::Fill_Grid() {
    const bool has_rows = !section.Rows().empty();
    grid->setVisible(has_rows);
    empty->setHidden(has_rows);
    grid->setMaximumHeight(grid->sizeHint().height());
    int first_open = -1;
    for (int row = 0; row < grid->Row_Count(); ++row) {
        const Statement_Row& account = section.Rows()[static_cast<std::size_t>(row)];
        grid->Set_Value(row, kamk, account.name);
        grid->Set_Value(row, kamk + 1, account.sign);
        grid->Set_Locked(row, kamk, !account.name_open);
        for (std::size_t i = 0; i < Amount_Count(); ++i) {
            const int column = First_Amount() + static_cast<int>(i);
            grid->Set_Value(row, column, account.*look.amounts.at(i));
            grid->Set_Locked(row, column, !account.amount_open);
        }
        grid->Set_Strong(row, !account.amount_open);
        if (first_open < 0 && account.amount_open) {
            first_open = row;
        }
    }
    Name_Rows();
    const auto keyed = std::find_if(look.columns.amounts.begin(), look.columns.amounts.end(),
                                    [](const Account_Amount& amount) { return amount.keyed; });
    grid->Go_To(std::max(first_open, 0),
                First_Amount() + static_cast<int>(keyed - look.columns.amounts.begin()));
}

void Statement_Form::Name_Rows() {
    std::vector<std::vector<std::string>> names;
    for (const Statement_Row& account : section.Rows()) {
        names.push_back({account.name.As_Text()});
    }
    grid->Set_Captions({}, names);
}

Total_Panel* Statement_Form::Make_Panel(Panel_Group group, const char* heading) const {
    std::vector<Total_Field> fields;
    for (const Statement_Line& line : section.Lines()) {
        if (line.group == group) {
            fields.push_back({line.control, line.caption,
                              line.is_sum ? Total_Field::Line::Sum : Total_Field::Line::Figure});
        }
    }
    if (group == Panel_Group::Check) {
        fields.push_back({"Check", "", Total_Field::Line::Check});
    }
    Total_Columns columns;
    columns.headings.assign(look.headings.begin(), look.headings.end());
    columns.control = look.headings.empty() ? nullptr : Numbered;
    return new Total_Panel(QString::fromUtf8(heading), fields, look.characters, columns);
}

QWidget* Statement_Form::Make_Panels() {
    auto* field = new QWidget;
    auto* both = new QBoxLayout(QBoxLayout::LeftToRight, field);
    both->setContentsMargins(0, 0, 0, 0);
    both->setSpacing(theme::panel_gap);
    std::array<QVBoxLayout*, 2> stacks{};
    for (QVBoxLayout*& stack : stacks) {
        stack = new QVBoxLayout;
        stack->setSpacing(theme::grid * 2);
        both->addLayout(stack);
    }
    for (const Group& group : groups) {
        Total_Panel* panel = Make_Panel(group.group, group.heading);
        panels[group.group] = panel;
        stacks[static_cast<std::size_t>(group.column)]->addWidget(panel);
    }
    for (QVBoxLayout* stack : stacks) {
        stack->addStretch(1);
    }
    panel_scroll = new QScrollArea;
    panel_scroll->setWidget(field);
    panel_scroll->setWidgetResizable(true);
    panel_scroll->setFocusPolicy(Qt::NoFocus);
    panel_scroll->setMinimumWidth(
        std::min_element(look.layouts.begin(), look.layouts.end(),
                         [](const Panel_Layout& a, const Panel_Layout& b) { return a.width < b.width; })
            ->width);
    connect(panel_scroll->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { Fit_Panels(); });
    return panel_scroll;
}

void Statement_Form::resizeEvent(QResizeEvent* event) {
    Saving_Form::resizeEvent(event);
    Fit_Panels();
}

// In a narrow window the panel gives way a little, in a very narrow one its two stacks stand under each
// other.
const Panel_Layout& Statement_Form::Fitting_Layout() const {
    for (const Panel_Layout& at : look.layouts) {
        const int needed =
            margins + at.least_grid + theme::panel_gap + at.stacks * (at.width + theme::panel_gap);
        if (needed <= width()) {
            return at;
        }
    }
    return look.layouts.back();
}

void Statement_Form::Fit_Panels() {
    const Panel_Layout& at = Fitting_Layout();
    const QScrollBar* bar = panel_scroll->verticalScrollBar();
    panel_scroll->setMaximumWidth(at.stacks * at.width + (at.stacks - 1) * theme::panel_gap +
                                  (bar->maximum() > 0 ? bar->sizeHint().width() : 0));
    if (layout_in_hand == &at) {
        return;
    }
    layout_in_hand = &at;
    static_cast<QBoxLayout*>(panel_scroll->widget()->layout())
        ->setDirection(at.stacks > 1 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    panel_scroll->widget()->setStyleSheet(QString::fromLatin1(at.sheet));
    for (std::size_t i = 0; i < Amount_Count(); ++i) {
        grid->Set_Width(First_Amount() + static_cast<int>(i), at.amount_width);
    }
    for (const auto& [group, panel] : panels) {
        panel->Show_From(at.shown_of);
        panel->setFixedWidth(at.width);
    }
}

void Statement_Form::Take_Cells(const std::vector<Cell_At>& cells) {
    bool names = false;
    for (const Cell_At at : cells) {
        const auto row = static_cast<std::size_t>(at.row);
        const Value value = grid->Get_Value(at.row, at.column);
        if (at.column == kamk) {
            names = names || !(section.Rows()[row].name == value);
            section.Set_Name(row, value);
        } else if (section.Rows()[row].amount_open) {
            section.Set_Amount(row, value,
                               look.amounts.at(static_cast<std::size_t>(at.column - First_Amount())));
        }
    }
    if (names) {
        Name_Rows();
    }
    section.Sec_Subtotals();
    Show_Computed();
    Panel_Show();
}

void Statement_Form::Show_Computed() {
    for (std::size_t row = 0; row < section.Rows().size(); ++row) {
        for (std::size_t i = 0; i < Amount_Count(); ++i) {
            const int column = First_Amount() + static_cast<int>(i);
            const Value& value = section.Rows()[row].*look.amounts.at(i);
            if (Is_Computed(row, i) && !(grid->Get_Value(static_cast<int>(row), column) == value)) {
                grid->Set_Value(static_cast<int>(row), column, value);
            }
        }
    }
}

void Statement_Form::Panel_Show() {
    const Statement_Panel panel = section.Panel();
    const std::size_t columns = std::max<std::size_t>(look.headings.size(), 1);
    for (const Statement_Line& line : section.Lines()) {
        const Amounts amounts = panel.Shown(line);
        for (std::size_t column = 0; column < columns; ++column) {
            panels.at(line.group)->Set_Value(line.control, amounts[column].Count(), column);
        }
    }
    const QString text = QString::fromUtf8(panel.Check_Text());
    panels.at(Panel_Group::Check)->Set_Check("Check", panel.Check(), text);
    Checked(panel.Check(), text);
}

} // namespace morvane
