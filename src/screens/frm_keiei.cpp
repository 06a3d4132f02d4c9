// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_keiei.h"

#include "screens/other_firm_entry.h"
#include "screens/rate_bar.h"
#include "session/kyotu_mod.h"
#include "widgets/entry_cell.h"
#include "widgets/note_button.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace morvane {

namespace {

constexpr int check_of_points = 8;
constexpr int check_of_score = 9;

// The columns of the indicators. Beside each other they have their bars between caption and value.
constexpr int group_column = 0;
constexpr int name_column = 1;
constexpr int bar_column = 2;
constexpr int value_column = 3;
constexpr int unit_column = 4;
constexpr int rate_column = 5;
constexpr int check_column = 6;
constexpr int rows_of_indicator = 6; // a line above, room, two or three lines, room

constexpr const char* cannot_compute = "計算できません";

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

QString Limit_Text(Tenths limit) {
    return Text(Fixed_Str(limit.Single(), 1));
}

QLabel* Muted(const QString& text) {
    auto* label = new QLabel(text);
    theme::Set_Look(label, "muted");
    return label;
}

QLabel* Figure_Label(const QString& name, double points) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setFont(theme::Gothic(points, true));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

void Set_Colour(QLabel& label, QRgb colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, QColor(colour));
    label.setPalette(palette);
}

QLabel* Group_Label(const QString& text) {
    auto* label = new QLabel(text);
    theme::Set_Look(label, "group");
    label->setAlignment(Qt::AlignCenter);
    return label;
}

/// "Ｘ１　純支払利息比率".
QString Caption_Of(std::size_t index) {
    return QStringLiteral("Ｘ%1　%2").arg(index + 1).arg(Text(y_indicators[index].name.name));
}

/// "改善後 純支払利息比率": a figure of one of two sides says of which.
QString Spoken(const Keiei_Column& column, const QString& what) {
    return (Text(column.side.caption) + QLatin1Char(' ') + what).trimmed();
}

/// A figure of the second column of elements, by that of the first.
std::string In_Column(const std::string& field, std::size_t column) {
    return column == 0 ? field : std::string("YosoGo") + field.substr(field.find('('));
}

QFrame* Line() {
    auto* line = new QFrame;
    line->setFixedHeight(1);
    line->setStyleSheet(QStringLiteral("background: %1;").arg(QColor(theme::grid_line).name()));
    return line;
}

} // namespace

Frm_Keiei::Frm_Keiei(Shell_Port& shell_port, const char* name)
    : Form(shell_port, Text(name), QStringLiteral("経営状況（Ｙ）")),
      screen(Keiei_Screen_Of(name, shell_port.menu.mode)), columns(Keiei_Columns(shell_port.session, screen)),
      shown(columns.size()) {
    Set_Sub_Title(Text(shell.menu.screen.title));
    auto* whole = new QWidget;
    halves = new QBoxLayout(QBoxLayout::LeftToRight, whole);
    halves->setContentsMargins(0, 0, 0, 0);
    halves->setSpacing(theme::panel_gap);
    left = new QVBoxLayout;
    left->setSpacing(theme::panel_gap);
    left->addWidget(Make_Elements(), 1);
    left->addWidget(Make_Score());
    halves->addLayout(left);
    halves->addWidget(indicators = Make_Indicators(), 1);
    for (std::size_t side = 0; side < columns.size(); ++side) {
        Show_Column(side);
    }
    Show_Gain();
    Add_Notices();
    body->addWidget(whole, 1);
    Make_Buttons();
}

// In a narrow window the indicators stand under the figures they come from. The score stands over them where
// it would have to be scrolled to.
void Frm_Keiei::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    constexpr QSize around(2 * 16 + 14, 130); // margins and scroll bar, with title and buttons
    constexpr int roomy = 900;
    const QSize elements = left->minimumSize() + around;
    const int room_of_both = elements.width() + halves->spacing() + indicators->minimumSizeHint().width();
    const bool beside = width() >= std::max(roomy, room_of_both);
    const bool in_view = beside && elements.height() <= height();
    halves->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    left->setDirection(in_view ? QBoxLayout::TopToBottom : QBoxLayout::BottomToTop);
}

// Over another screen there is no menu to hide.
void Frm_Keiei::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (menu_button != nullptr) {
        menu_button->setHidden(isModal());
    }
    if (isModal()) {
        setFocus(Qt::OtherFocusReason);
    }
}

// Why a side has no figures, or of what they are.
void Frm_Keiei::Add_Notices() {
    for (std::size_t side = 0; side < columns.size(); ++side) {
        const Keiei_Column& column = columns[side];
        if (Compares() && column.y && !column.y->has_figures && !screen.other_firm) {
            QLabel* notice = Muted(Text(column.side.caption) + QStringLiteral("：財務諸表が未入力です。"));
            notice->setObjectName(QStringLiteral("Lbl_Notice"));
            body->addWidget(notice);
        }
        if (!column.fault.empty()) {
            auto* fault = new QLabel(Text(column.side.caption) + QStringLiteral("：") + Text(column.fault));
            fault->setObjectName(QStringLiteral("Lbl_Fault(%1)").arg(side));
            fault->setWordWrap(true);
            theme::Set_Look(fault, "fault");
            body->addWidget(fault);
        }
    }
}

QWidget* Frm_Keiei::Make_Elements() {
    std::array<std::string, y_elements.size()> names;
    std::array<Total_Field, y_elements.size()> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        names[i] = std::string(columns[0].names.Yoso) + "(" + std::to_string(i) + ")";
        fields[i] = {names[i].c_str(), y_elements[i].name};
    }
    Total_Columns of_sides;
    if (Compares()) {
        of_sides.control = In_Column;
        for (const Keiei_Column& column : columns) {
            of_sides.headings.push_back(column.side.caption);
        }
    }
    auto* panel = new Total_Panel(QStringLiteral("８指標計算要素"), fields, Compares() ? 8 : 10, of_sides);
    for (std::size_t side = 0; side < columns.size(); ++side) {
        for (std::size_t i = 0; i < fields.size() && columns[side].y; ++i) {
            panel->Set_Value(names[i], Value(columns[side].y->elements[i].Count()), side);
        }
    }
    if (screen.other_firm) {
        const auto show = [this](const Y_Elements& elements) {
            columns.back() = Column_Of_Other_Firm(screen, elements);
            Show_Column(columns.size() - 1);
            Show_Gain();
        };
        other_firm = new Other_Firm_Entry(shell, *panel, columns[0].names, columns[1].names, show);
    }
    QLabel* unit = Muted(QStringLiteral("金額単位：千円"));
    unit->setContentsMargins(0, 0, 8, 0);
    panel->body->insertWidget(0, unit, 0, Qt::AlignRight);
    return panel;
}

QWidget* Frm_Keiei::Make_Indicators() {
    auto* panel = new Section_Box(QStringLiteral("経営状況分析　８指標"));
    panel->body->setContentsMargins(12, 6, 12, 6);
    if (Compares()) {
        panel->body->addWidget(Make_Legend());
    }
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(Compares() ? bar_column : name_column, 1);
    grid->addWidget(Muted(QStringLiteral("計算結果")), 0, value_column, 1, 2, Qt::AlignRight);
    grid->addWidget(Muted(QStringLiteral("達成率")), 0, rate_column, Qt::AlignRight);
    for (std::size_t i = 0; i < y_indicators.size(); ++i) {
        Add_Indicator(*grid, i);
    }
    panel->body->addLayout(grid, 1);
    return panel;
}

// What the bars are.
QWidget* Frm_Keiei::Make_Legend() {
    auto* legend = new QWidget;
    auto* line = new QHBoxLayout(legend);
    line->setContentsMargins(0, 0, 0, 2);
    line->setSpacing(2);
    const std::array<std::pair<const char*, const char*>, 2> places = {
        {{"Ex_Mes", "上段"}, {"GEx_Mes", "下段"}}};
    for (std::size_t side = 0; side < columns.size(); ++side) {
        const Keiei_Column& column = columns[side];
        const auto& [name, place] = places[side];
        auto* sample = new Rate_Bar;
        sample->Set_Hatched(side == 0);
        sample->Set_Rate(100.0);
        sample->setFixedWidth(40);
        auto* text = new QLabel(QStringLiteral("：%1(%2)").arg(Text(column.side.caption), Text(place)));
        text->setObjectName(Text(name));
        line->addWidget(sample);
        line->addWidget(text);
        line->addSpacing(16);
    }
    line->addStretch(1);
    return legend;
}

// Two indicators make a group.
void Frm_Keiei::Add_Indicator(QGridLayout& grid, std::size_t index) {
    const Y_Indicator& indicator = y_indicators[index];
    const int row = 1 + rows_of_indicator * static_cast<int>(index);
    grid.addWidget(Line(), row, indicator.group != nullptr ? group_column : name_column, 1, -1);
    grid.setRowStretch(row + 1, 1);
    grid.setRowStretch(row + rows_of_indicator - 1, 1);
    if (indicator.group != nullptr) {
        grid.addWidget(Group_Label(Text(indicator.group)), row + 1, group_column, 2 * rows_of_indicator - 1,
                       1);
    }
    Compares() ? Add_Compared(grid, row + 2, index) : Add_Single(grid, row + 2, index);
    grid.addWidget(Make_Check(static_cast<int>(index), Text(indicator.name.name)), row + 2, check_column, 3,
                   1, Qt::AlignVCenter);
}

// A line for the figures and one for the bar.
void Frm_Keiei::Add_Single(QGridLayout& grid, int row, std::size_t index) {
    const Y_Indicator& indicator = y_indicators[index];
    const auto& [value, bar, rate] = Make_Figures(0, index);
    bar->Set_Ends(Limit_Text(indicator.Worst()), Limit_Text(indicator.Best()));
    grid.addWidget(new QLabel(Caption_Of(index)), row, name_column, 1, 2);
    grid.addWidget(value, row, value_column);
    grid.addWidget(Muted(Text(indicator.unit.name)), row, unit_column);
    grid.addWidget(bar, row + 1, name_column, 1, unit_column - name_column + 1);
    grid.addWidget(rate, row, rate_column, 2, 1);
}

// A line for the caption and one for each side.
void Frm_Keiei::Add_Compared(QGridLayout& grid, int row, std::size_t index) {
    const Y_Indicator& indicator = y_indicators[index];
    QLabel* limits =
        Muted(Limit_Text(indicator.Worst()) + QStringLiteral(" ～ ") + Limit_Text(indicator.Best()));
    limits->setFont(theme::Gothic(9));
    grid.addWidget(new QLabel(Caption_Of(index)), row, name_column, 1, value_column - name_column + 1);
    grid.addWidget(limits, row, unit_column, 1, rate_column - unit_column + 1, Qt::AlignRight);
    for (std::size_t side = 0; side < columns.size(); ++side) {
        const auto& [value, bar, rate] = Make_Figures(side, index);
        bar->Set_Hatched(side == 0);
        ++row;
        grid.addWidget(Muted(Text(columns[side].side.caption)), row, name_column);
        grid.addWidget(bar, row, bar_column, Qt::AlignVCenter);
        grid.addWidget(value, row, value_column);
        grid.addWidget(Muted(Text(indicator.unit.name)), row, unit_column);
        grid.addWidget(rate, row, rate_column);
    }
}

const Frm_Keiei::Figures& Frm_Keiei::Make_Figures(std::size_t side, std::size_t index) {
    const Keiei_Column& column = columns[side];
    const QString number = QString::number(index + 1);
    const double size = Compares() ? theme::body_points : theme::heading_points;
    Figures& figures = shown[side].indicators[index];
    figures.value = Figure_Label(Text(column.names.kekka) + number, size);
    figures.rate = Figure_Label(Text(column.names.TRitu) + number, size);
    figures.rate->setMinimumWidth(figures.rate->fontMetrics().horizontalAdvance(QStringLiteral("100.0 %")));
    figures.bar = new Rate_Bar;
    figures.bar->setObjectName(Text(column.names.Bou) + number);
    for (QWidget* widget : std::initializer_list<QWidget*>{figures.value, figures.bar, figures.rate}) {
        widget->setAccessibleName(Spoken(column, Text(y_indicators[index].name.name)));
    }
    return figures;
}

QWidget* Frm_Keiei::Make_Score() {
    auto* panel = new QFrame;
    theme::Set_Look(panel, "section");
    auto* lines = new QVBoxLayout(panel);
    lines->setContentsMargins(12, 8, 12, 8);
    lines->setSpacing(4);

    auto* points = new QHBoxLayout;
    points->addWidget(new QLabel(QStringLiteral(" 経営状況点数")), 1);
    lines->addLayout(points);
    QBoxLayout& of_points = Compares() ? static_cast<QBoxLayout&>(*lines) : *points;
    points_gain = Add_Scores(of_points, &Shown::points, &Keiei_Names::YTen, theme::title_points);
    points->addWidget(Make_Check(check_of_points, QStringLiteral("経営状況点数")));
    lines->addWidget(Line());

    auto* caption = new QLabel(QStringLiteral(" 経営状況評点（Y）"));
    theme::Set_Look(caption, "heading");
    auto* score = new QHBoxLayout;
    score->addWidget(caption, 1);
    score->addWidget(Make_Check(check_of_score, caption->text().trimmed()));
    lines->addLayout(score);
    score_gain = Add_Scores(*lines, &Shown::score, &Keiei_Names::Y, Compares() ? 22 : 32);
    Add_Gauges(*lines);
    return panel;
}

// The score of each side and, of two, by how much the second one rises: what shows that is given back.
QLabel* Frm_Keiei::Add_Scores(QBoxLayout& lines, QLabel* Shown::*place, const char* Keiei_Names::*name,
                              double points) {
    const bool is_score = place == &Shown::score;
    auto* line = new QHBoxLayout;
    line->setSpacing(6);
    lines.addLayout(line);
    for (std::size_t side = 0; side < columns.size(); ++side) {
        const Keiei_Column& column = columns[side];
        QLabel* score =
            Figure_Label(Text(column.names.*name), column.fault.empty() ? points : theme::body_points);
        score->setAccessibleName(
            Spoken(column, is_score ? QStringLiteral("経営状況評点（Y）") : QStringLiteral("経営状況点数")));
        if (is_score && column.fault.empty()) {
            Set_Colour(*score, theme::accent);
        }
        if (Compares()) {
            line->addWidget(Muted(Text(column.side.caption)));
        } else if (is_score) {
            score->setAlignment(Qt::AlignCenter);
        }
        line->addWidget(score, Compares() || is_score ? 1 : 0);
        shown[side].*place = score;
    }
    if (!Compares()) {
        return nullptr;
    }
    QLabel* gain =
        Figure_Label(Text(columns.back().names.*name) + QStringLiteral("_Sa"), theme::heading_points);
    gain->setAccessibleName(QStringLiteral("差"));
    gain->setMinimumWidth(gain->fontMetrics().horizontalAdvance(QStringLiteral("↑ +0.00")));
    line->addWidget(gain);
    return gain;
}

void Frm_Keiei::Add_Gauges(QBoxLayout& lines) {
    for (Shown& side : shown) {
        const bool is_last = &side == &shown.back();
        side.gauge = new Rate_Bar;
        side.gauge->Set_Hatched(!is_last);
        if (is_last) {
            side.gauge->Set_Ends(QStringLiteral("0"), Text(Comma_Str(highest_y)));
        }
        lines.addWidget(side.gauge);
    }
}

void Frm_Keiei::Show_Column(std::size_t side) {
    const Keiei_Column& column = columns[side];
    const Keiei_Texts& texts = column.texts;
    for (std::size_t i = 0; i < y_indicators.size(); ++i) {
        const auto& [value, bar, rate] = shown[side].indicators[i];
        value->setText(Text(texts.kekka[i]));
        rate->setText(column.y ? Text(texts.TRitu[i]) + QStringLiteral(" %") : QString());
        bar->Set_Rate(column.y ? static_cast<double>(column.y->rates[i]) : 0.0);
        bar->setAccessibleDescription(QStringLiteral("達成率 ") + rate->text());
    }
    shown[side].points->setText(column.fault.empty() ? Text(texts.YTen) : Text(cannot_compute));
    shown[side].score->setText(column.fault.empty() ? Text(texts.Y) : Text(cannot_compute));
    shown[side].gauge->Set_Rate(column.y ? 100.0 * column.y->score.Count() / highest_y : 0.0);
}

void Frm_Keiei::Show_Gain() {
    const Keiei_Gain gain = Gain_Of(columns);
    for (const auto& [label, text] : {std::pair{points_gain, &gain.YTen}, {score_gain, &gain.Y}}) {
        if (label != nullptr) {
            label->setText(Text(*text));
            Set_Colour(*label, text->starts_with("↑")   ? theme::rise
                               : text->starts_with("↓") ? theme::fall
                                                        : theme::text);
        }
    }
}

QPushButton* Frm_Keiei::Make_Check(int index, const QString& of_what) {
    auto* button = new QPushButton(QStringLiteral("計算チェック"));
    button->setObjectName(QStringLiteral("Cmd_X(%1)").arg(index));
    button->setAccessibleName(of_what + QStringLiteral(" 計算チェック"));
    button->setAutoDefault(false);
    theme::Set_Look(button, "check_button");
    Wire(button, &QPushButton::clicked, [this, index] { Open_Check(index); });
    return button;
}

void Frm_Keiei::Make_Buttons() {
    Add_Help_Button();
    if (Compares()) {
        menu_button = Add_Menu_Button();
    }
    buttons->insertWidget(Compares() ? 2 : 1, new Note_Button(shell));
    if (Compares()) {
        auto* chart = Add_Button(QStringLiteral("Ychart_Dsp"), QStringLiteral("グラフ表示"));
        Wire(chart, &QPushButton::clicked, [this] { shell.Open_Form(QStringLiteral("Frm_Ychart")); });
    }
    auto* print = Add_Button(QStringLiteral("Prt"), QStringLiteral("計算結果印刷"));
    auto* close = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    Wire(print, &QPushButton::clicked, [this] { shell.Open_Form(Text(screen.report)); });
    connect(close, &QPushButton::clicked, this, &Frm_Keiei::reject);
    setFocusProxy(other_firm == nullptr ? static_cast<QWidget*>(close) : other_firm->First());
}

// Of two sides the second one is explained first: it is the one that a change brings. Of another firm nothing
// is known but the elements.
void Frm_Keiei::Open_Check(int index) {
    if (Compares() && !screen.other_firm) {
        checks.Open_Either(Y1_Request(index), {Checked(columns.front().side), Checked(columns.back().side)});
        return;
    }
    const Screen_Side& side = columns.front().side;
    checks.Open(
        Y1_Request(index), side.Of(shell.session), [] { return true; },
        Compares() ? side.caption + std::string("の数値による計算です。") : "");
}

Checked_Side Frm_Keiei::Checked(const Screen_Side& side) const {
    return {Text(side.caption),
            [&session = shell.session, &side] { return Load_Review(session, side.Of(session)); }};
}

} // namespace morvane
