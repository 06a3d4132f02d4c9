// SPDX-FileCopyrightText: The Morvane developers
#include "statements/line_panels.h"

#include "widgets/theme.h"

#include <QBoxLayout>
#include <algorithm>
#include <array>

namespace morvane {

namespace {

struct Group {
    Panel_Group group;
    const char* heading;
    std::size_t stack;
};
constexpr std::array<Group, 4> groups = {{
    {Panel_Group::Assets, "資産", 0},
    {Panel_Group::Liabilities, "負債・純資産", 0},
    {Panel_Group::Profit, "損益", 1},
    {Panel_Group::Check, "チェック", 1},
}};

std::vector<Total_Field> Fields_Of(std::span<const Statement_Line> lines, Panel_Group group) {
    using Line = Total_Field::Line;
    std::vector<Total_Field> fields;
    for (const Statement_Line& line : lines) {
        if (line.group == group) {
            fields.push_back({line.control, line.caption, line.is_sum ? Line::Sum : Line::Figure});
        }
    }
    if (group == Panel_Group::Check) {
        fields.push_back({"Check", "", Line::Check});
    }
    return fields;
}

} // namespace

Line_Panels::Line_Panels(std::span<const Statement_Line> lines, int characters, const Total_Columns& columns)
    : column_count(std::max<std::size_t>(columns.headings.size(), 1)) {
    auto* both = new QBoxLayout(QBoxLayout::LeftToRight, this);
    both->setContentsMargins(0, 0, 0, 0);
    both->setSpacing(theme::panel_gap);
    std::array<QVBoxLayout*, 2> stacks{};
    for (QVBoxLayout*& stack : stacks) {
        stack = new QVBoxLayout;
        stack->setSpacing(theme::grid * 2);
        both->addLayout(stack);
    }
    for (const Group& group : groups) {
        auto* panel = new Total_Panel(QString::fromUtf8(group.heading), Fields_Of(lines, group.group),
                                      characters, columns);
        panels[group.group] = panel;
        stacks.at(group.stack)->addWidget(panel);
    }
    for (QVBoxLayout* stack : stacks) {
        stack->addStretch(1);
    }
}

void Line_Panels::Show_Line(const Statement_Line& line, const Amounts& amounts) {
    for (std::size_t column = 0; column < column_count; ++column) {
        panels.at(line.group)->Set_Value(line.control, amounts[column].Count(), column);
    }
}

void Line_Panels::Set_Check(bool holds, const char* text) {
    panels.at(Panel_Group::Check)->Set_Check("Check", holds, QString::fromUtf8(text));
}

void Line_Panels::Lay(int stacks, int width, std::size_t first_column) {
    static_cast<QBoxLayout*>(layout())->setDirection(stacks > 1 ? QBoxLayout::LeftToRight
                                                                : QBoxLayout::TopToBottom);
    for (const auto& [group, panel] : panels) {
        panel->Show_From(first_column);
        panel->setFixedWidth(width);
    }
}

} // namespace morvane
