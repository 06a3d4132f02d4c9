// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_gekihen.h"

#include "law/law_year.h"
#include "session/kyotu_mod.h"
#include "widgets/entry_grid.h"
#include "widgets/note_button.h"
#include "widgets/result_strip.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr std::array<const char*, gekihen_columns.size()> column_names = {"a", "b", "c", "d"};
constexpr std::array<const char*, gekihen_columns.size()> column_signs = {"ａ", "ｂ", "ｃ", "ｄ"};
constexpr std::array<const char*, 2> years_captions = {gekihen_columns[0].kanko, gekihen_columns[2].kanko};
constexpr std::array<const char*, 2> basis_captions = {gekihen_columns[0].jiko, gekihen_columns[1].jiko};

/// A score by the years of the average, beside the columns of P.
struct Years_Score {
    const char* name;
    const char* group;
    std::array<Points, 2> Gekihen_Line::*scores;
};
constexpr std::array<Years_Score, 2> years_scores = {
    {{"X1", "Ｘ１", &Gekihen_Line::X1}, {"Z", "Ｚ", &Gekihen_Line::Z}}};

constexpr int total_of_p = 0;
constexpr int total_of_best = 1;

std::vector<Grid_Column> Columns(std::size_t chosen) {
    std::vector<Grid_Column> columns;
    for (std::size_t i = 0; i < gekihen_columns.size(); ++i) {
        const Gekihen_Column& of = gekihen_columns[i];
        columns.push_back({.name = column_names[i],
                           .heading = std::string("完成工事高\n") + of.kanko + "\n自己資本額\n" + of.jiko,
                           .group = std::string(column_signs[i]) + (i == chosen ? "　現在の選択" : ""),
                           .use = Cell_Use::Shown,
                           .width = 12});
    }
    for (const Years_Score& score : years_scores) {
        for (std::size_t years = 0; years < years_captions.size(); ++years) {
            columns.push_back({.name = std::string(score.name) + std::to_string(years + 2),
                               .heading = years_captions[years],
                               .group = score.group,
                               .use = Cell_Use::Shown,
                               .width = 5});
        }
    }
    return columns;
}

std::vector<std::vector<std::string>> Captions() {
    std::vector<std::vector<std::string>> rows;
    for (std::size_t i = 0; i < scored_lines; ++i) {
        const std::string indent = Is_Sub_Line(i) ? "　" : ""; // a part of another one
        rows.push_back({std::string(work_types[i].label), indent + std::string(work_types[i].name)});
    }
    return rows;
}

} // namespace

Frm_Gekihen::Frm_Gekihen(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_Gekihen"), QStringLiteral("激変緩和措置比較")),
      table(Calc_Gekihen(shell_port.session)),
      grid(new Entry_Grid(Columns(table.chosen), static_cast<int>(scored_lines))) {
    Set_Sub_Title(QString::fromStdString(shell.menu.screen.title));
    grid->setObjectName(QStringLiteral("grid"));
    grid->Set_Captions({{"工種", 4}, {"工種名", 16}}, Captions());
    grid->Set_Totals({{"太字の工種のＰの合計", "_Kei"}, {"太字の工種で最良の数", "_Su"}});
    Show_Lines();
    grid->setMaximumWidth(grid->sizeHint().width());
    body->addWidget(Make_Scores());
    body->addWidget(grid, 1);
    body->addWidget(Make_Legend());
    Make_Buttons();
}

QWidget* Frm_Gekihen::Make_Scores() const {
    std::vector<Result_Figure> figures = {{.name = "Y", .caption = "Ｙ"}};
    for (const bool other : {false, true}) {
        figures.push_back({.name = "X2_" + std::to_string(1 + other),
                           .caption = std::string(other ? "" : "Ｘ２　") + basis_captions[other],
                           .joined = other});
    }
    for (const bool other : {false, true}) {
        figures.push_back({.name = "W_" + std::to_string(2 + other),
                           .caption = std::string(other ? "" : "Ｗ　") + years_captions[other],
                           .joined = other});
    }
    auto* strip = new Result_Strip(figures);
    const auto show = [strip](const std::string& name, const std::string& spoken, Points points) {
        strip->Set_Text(name, QString::fromStdString(Comma_Str(points)));
        strip->findChild<QLabel*>(QString::fromStdString(name))
            ->setAccessibleName(QString::fromStdString(spoken));
    };
    show("Y", "Ｙ", table.Y);
    for (std::size_t i = 0; i < 2; ++i) {
        show("X2_" + std::to_string(i + 1), std::string("Ｘ２　") + basis_captions[i], table.X2[i]);
        show("W_" + std::to_string(i + 2), std::string("Ｗ　") + years_captions[i], table.W[i]);
    }
    return strip;
}

QWidget* Frm_Gekihen::Make_Legend() const {
    auto* legend = new QWidget;
    auto* line = new QHBoxLayout(legend);
    line->setContentsMargins(0, 0, 0, 0);
    auto* sample = new QLabel(QStringLiteral("◎"));
    sample->setAlignment(Qt::AlignCenter);
    sample->setFixedSize(40, theme::cell_height);
    sample->setStyleSheet(QStringLiteral("background: %1;").arg(QColor(theme::best).name()));
    line->addWidget(sample);
    line->addWidget(new QLabel(QStringLiteral("：最良の組み合わせを表します。")));
    line->addSpacing(theme::panel_gap);
    auto* rest = new QLabel(QStringLiteral("太字は評点のある工種です。"));
    theme::Set_Look(rest, "muted");
    line->addWidget(rest);
    if (!Law_Of(shell.session.Simyu_Kubun).has_w7_w8) {
        auto* of_six =
            new QLabel(QStringLiteral("Ｗは６項目で計算するため、完工高の画面のＰとは異なります。"));
        of_six->setObjectName(QStringLiteral("Lbl_W"));
        theme::Set_Look(of_six, "muted");
        line->addWidget(of_six);
    }
    line->addStretch(1);
    return legend;
}

void Frm_Gekihen::Show_Lines() {
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        Show_Line(static_cast<int>(i), table.lines[i]);
    }
    for (std::size_t column = 0; column < gekihen_columns.size(); ++column) {
        const Gekihen_Table::Sum sum = table.Of_All(column);
        grid->Set_Total(total_of_p, static_cast<int>(column), Value(sum.P));
        grid->Set_Total(total_of_best, static_cast<int>(column), Value(sum.best));
    }
}

void Frm_Gekihen::Show_Line(int row, const Gekihen_Line& line) {
    for (std::size_t i = 0; i < line.P.size(); ++i) {
        const int column = static_cast<int>(i);
        grid->Set_Value(row, column, Value(line.P[i].Count()));
        grid->Set_Best(row, column, line.best[i]);
    }
    int column = static_cast<int>(line.P.size());
    for (const Years_Score& score : years_scores) {
        for (const Points points : line.*score.scores) {
            grid->Set_Value(row, column, Value(points.Count()));
            ++column;
        }
    }
    grid->Set_Strong(row, line.entered);
}

void Frm_Gekihen::Make_Buttons() {
    Add_Help_Button();
    Add_Menu_Button();
    buttons->insertWidget(2, new Note_Button(shell));
    auto* print = Add_Button(QStringLiteral("Prt"), QStringLiteral("印刷"));
    auto* close = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    Wire(print, &QPushButton::clicked, [this] { shell.Open_Form(QStringLiteral("Rpt_Gekihen")); });
    connect(close, &QPushButton::clicked, this, &Frm_Gekihen::reject);
}

} // namespace morvane
