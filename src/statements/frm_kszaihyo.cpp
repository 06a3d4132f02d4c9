// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszaihyo.h"

#include "session/save_or_stay.h"
#include "statements/account_grid.h"
#include "widgets/entry_grid.h"
#include "widgets/note_button.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <array>

namespace morvane {

namespace {

constexpr Account_Columns columns = {"Kamk", "Gaku", "金額", true};

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

// Beside the panel the captions need room to be read; in a narrow window the panel gives way a little, in a
// very narrow one its two columns stand under each other.
constexpr int narrowest_grid = 332;
constexpr int widest_grid = 620;
struct Panel_Size {
    int column_width;
    const char* sheet;
};
constexpr Panel_Size wide_panel = {286, ""};
constexpr Panel_Size compact_panel = {262, "QLabel { font-size: 9.5pt; }"};
constexpr int beside_columns = 2 * 16 + 2 * theme::panel_gap; ///< margins of the form and gaps

constexpr int Width_Of(const Panel_Size& size) {
    return 2 * size.column_width + theme::panel_gap;
}

/// The section that the menu has chosen.
const Account_Section& Section_Of(const Open_Screen& screen) {
    const Account_Section* section = Section_Of_Screen(screen.number);
    return section == nullptr ? account_sections.front() : *section;
}

} // namespace

Frm_KsZaihyo::Frm_KsZaihyo(Shell_Port& shell_port)
    : Saving_Form(shell_port,
                  shell_port.session.Is_Corporation() ? QStringLiteral("Frm_KsZaihyo")
                                                      : QStringLiteral("Frm_KsZaihyoKJ"),
                  QStringLiteral("建設財務諸表"), "建設財務諸表"),
      section(shell_port.session, Section_Of(shell_port.menu.screen)) {
    Set_Sub_Title(QString::fromStdString(shell.menu.screen.title));
    body->setSpacing(theme::grid * 2);
    Add_Unit_Line(QString::fromUtf8(Unit_Caption(shell.session)),
                  QStringLiteral("金額は、「円単位」で入力してください。"
                                 "全ての財務データより計算するために必要です。"));
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    // The panel takes its width first, the grid what is left of its own.
    row->addWidget(Make_Grid(), 1);
    row->addWidget(Make_Panels(), 1000);
    row->addStretch(0);
    body->addLayout(row, 1);
    Add_Buttons();
    Panel_Show();
}

QWidget* Frm_KsZaihyo::Make_Grid() {
    auto* field = new QWidget;
    field->setMinimumWidth(narrowest_grid);
    field->setMaximumWidth(widest_grid);
    auto* column = new QVBoxLayout(field);
    column->setContentsMargins(0, 0, 0, 0);
    grid = Make_Account_Grid(shell, columns, static_cast<int>(section.Rows().size()));
    column->addWidget(grid, 1);
    if (section.Rows().empty()) {
        grid->hide();
        column->addWidget(new QLabel(QStringLiteral("この区分には、入力する勘定科目がありません。")));
        column->addStretch(1);
        return field;
    }
    grid->setMaximumHeight(grid->sizeHint().height());
    column->addStretch(0);
    Fill_Grid();
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

void Frm_KsZaihyo::Fill_Grid() {
    int first_open = -1;
    for (int row = 0; row < grid->Row_Count(); ++row) {
        const Statement_Row& account = section.Rows()[static_cast<std::size_t>(row)];
        grid->Set_Value(row, kamk, account.name);
        grid->Set_Value(row, kamk + 1, account.sign);
        grid->Set_Value(row, gaku_behind_sign, account.amount);
        grid->Set_Locked(row, kamk, !account.name_open);
        grid->Set_Locked(row, gaku_behind_sign, !account.amount_open);
        grid->Set_Strong(row, !account.amount_open);
        if (first_open < 0 && account.amount_open) {
            first_open = row;
        }
    }
    Name_Rows();
    grid->Go_To(std::max(first_open, 0), gaku_behind_sign);
}

void Frm_KsZaihyo::Name_Rows() {
    std::vector<std::vector<std::string>> names;
    for (const Statement_Row& account : section.Rows()) {
        names.push_back({account.name.As_Text()});
    }
    grid->Set_Captions({}, names);
}

QWidget* Frm_KsZaihyo::Make_Panels() {
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
        std::vector<Total_Field> fields;
        for (const Statement_Line& line : section.Lines()) {
            if (line.group == group.group) {
                fields.push_back({line.control, line.caption,
                                  line.is_sum ? Total_Field::Line::Sum : Total_Field::Line::Figure});
            }
        }
        if (group.group == Panel_Group::Check) {
            fields.push_back({"Check", "", Total_Field::Line::Check});
        }
        auto* panel = new Total_Panel(QString::fromUtf8(group.heading), fields, 10);
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
    panel_scroll->setMinimumWidth(compact_panel.column_width);
    connect(panel_scroll->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { Fit_Panels(); });
    return panel_scroll;
}

void Frm_KsZaihyo::resizeEvent(QResizeEvent* event) {
    Saving_Form::resizeEvent(event);
    Fit_Panels();
}

void Frm_KsZaihyo::Fit_Panels() {
    const int room = width() - narrowest_grid - beside_columns;
    const bool beside = room >= Width_Of(compact_panel);
    const Panel_Size& size = beside && room < Width_Of(wide_panel) ? compact_panel : wide_panel;
    const QScrollBar* bar = panel_scroll->verticalScrollBar();
    static_cast<QBoxLayout*>(panel_scroll->widget()->layout())
        ->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    panel_scroll->setMaximumWidth((beside ? Width_Of(size) : size.column_width) +
                                  (bar->maximum() > 0 ? bar->sizeHint().width() : 0));
    if (column_width == size.column_width) {
        return;
    }
    column_width = size.column_width;
    panel_scroll->widget()->setStyleSheet(QString::fromLatin1(size.sheet));
    for (const auto& [group, panel] : panels) {
        panel->setFixedWidth(column_width);
    }
}

void Frm_KsZaihyo::Add_Buttons() {
    Add_Help_Button();
    Add_Menu_Button();
    buttons->insertWidget(2, new Note_Button(shell));
    QPushButton* Y_Disp = Add_Button(QStringLiteral("Y_Disp"), QStringLiteral("Ｙ点試算"));
    Add_Closing_Buttons();
    Wire(Y_Disp, &QPushButton::clicked, [this] {
        bool opens = false;
        if (grid->Finish_Entry() &&
            Save_Or_Back(shell.session, [this, &opens] { opens = section.Y_Disp(); }) && opens) {
            shell.Open_Form(QStringLiteral("Frm_YSisan"));
        }
        grid->setFocus(Qt::OtherFocusReason); // the keying goes on where it was
    });
}

void Frm_KsZaihyo::Take_Cells(const std::vector<Cell_At>& cells) {
    bool names = false;
    for (const Cell_At at : cells) {
        const auto row = static_cast<std::size_t>(at.row);
        const Value value = grid->Get_Value(at.row, at.column);
        if (at.column == kamk) {
            names = names || !(section.Rows()[row].name == value);
            section.Set_Name(row, value);
        } else if (section.Rows()[row].amount_open) {
            if (const auto book = section.Set_Amount(row, value)) {
                grid->Set_Value(static_cast<int>(*book), gaku_behind_sign, section.Rows()[*book].amount);
            }
        }
    }
    if (names) {
        Name_Rows();
    }
    section.Sec_Subtotals();
    Panel_Show();
}

void Frm_KsZaihyo::Panel_Show() {
    for (const Statement_Line& line : section.Lines()) {
        panels.at(line.group)->Set_Value(line.control, section.Panel().Shown(line)[0].Count());
    }
    panels.at(Panel_Group::Check)
        ->Set_Check("Check", section.Panel().Check(), QString::fromUtf8(section.Panel().Check_Text()));
}

} // namespace morvane
