// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_form.h"

#include "statements/line_panels.h"
#include "widgets/entry_grid.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace morvane {

namespace {

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
    grid->Keep_Bar_Room();
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
        if (look.columns.signs && account.sign.empty()) {
            grid->Join_Next(row, kamk);
        }
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

QWidget* Statement_Form::Make_Panels() {
    Total_Columns columns;
    columns.headings.assign(look.headings.begin(), look.headings.end());
    columns.control = look.headings.empty() ? nullptr : Numbered;
    panels = new Line_Panels(section.Lines(), look.characters, columns);
    panel_scroll = new QScrollArea;
    panel_scroll->setWidget(panels);
    panel_scroll->setWidgetResizable(true);
    panel_scroll->setFocusPolicy(Qt::NoFocus);
    const auto narrowest =
        std::min_element(look.layouts.begin(), look.layouts.end(),
                         [](const Panel_Layout& a, const Panel_Layout& b) { return a.width < b.width; });
    panel_scroll->setMinimumWidth(narrowest->width);
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
    panels->setStyleSheet(QString::fromLatin1(at.sheet));
    panels->Lay(at.stacks, at.width, at.shown_of);
    for (std::size_t i = 0; i < Amount_Count(); ++i) {
        grid->Set_Width(First_Amount() + static_cast<int>(i), at.amount_width);
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
    for (const Statement_Line& line : section.Lines()) {
        panels->Show_Line(line, panel.Shown(line));
    }
    panels->Set_Check(panel.Check(), panel.Check_Text());
    Checked(panel.Check(), panel.Check_Text());
}

} // namespace morvane
