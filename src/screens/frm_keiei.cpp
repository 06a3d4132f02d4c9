// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_keiei.h"

#include "screens/rate_bar.h"
#include "session/kyotu_mod.h"
#include "widgets/note_button.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr int check_of_points = 8;
constexpr int check_of_score = 9;

// The columns of the indicators.
constexpr int group_column = 0;
constexpr int name_column = 1;
constexpr int value_column = 2;
constexpr int unit_column = 3;
constexpr int rate_column = 4;
constexpr int check_column = 5;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QString Limit_Text(Tenths limit) {
    return Text(Fixed_Str(limit.Single(), 1));
}

QLabel* Muted(const QString& text) {
    auto* label = new QLabel(text);
    theme::Set_Look(label, "muted");
    return label;
}

QLabel* Figure_Label(const QString& name, const std::string& text, double points) {
    auto* label = new QLabel(Text(text));
    label->setObjectName(name);
    label->setFont(theme::Gothic(points, true));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QLabel* Group_Label(const QString& text) {
    auto* label = new QLabel(text);
    theme::Set_Look(label, "group");
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QFrame* Line() {
    auto* line = new QFrame;
    line->setFixedHeight(1);
    line->setStyleSheet(QStringLiteral("background: %1;").arg(QColor(theme::grid_line).name()));
    return line;
}

} // namespace

Frm_Keiei::Frm_Keiei(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_Keiei"), QStringLiteral("経営状況（Ｙ）")),
      y(Calc_Y(shell.session, Side_In_Hand(shell.session))), texts(Show_Keiei(y)) {
    Set_Sub_Title(Text(shell.menu.screen.title));
    auto* whole = new QWidget;
    columns = new QBoxLayout(QBoxLayout::LeftToRight, whole);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(theme::panel_gap);
    auto* left = new QVBoxLayout;
    left->setSpacing(theme::panel_gap);
    left->addWidget(Make_Elements(), 1);
    left->addWidget(Make_Score());
    columns->addLayout(left);
    columns->addWidget(Make_Indicators(), 1);
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(whole);
    body->addWidget(area, 1);
    Make_Buttons();
}

// In a narrow window the indicators stand under the figures they come from.
void Frm_Keiei::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    constexpr int beside = 900;
    columns->setDirection(width() < beside ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

QWidget* Frm_Keiei::Make_Elements() {
    std::array<std::string, y_elements.size()> names;
    std::array<Total_Field, y_elements.size()> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        names[i] = "Yoso(" + std::to_string(i) + ")";
        fields[i] = {names[i].c_str(), y_elements[i].name};
    }
    auto* panel = new Total_Panel(QStringLiteral("８指標計算要素"), fields, 10);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        panel->Set_Text(names[i], Text(texts.Yoso[i]));
    }
    QLabel* unit = Muted(QStringLiteral("金額単位：千円"));
    unit->setContentsMargins(0, 0, 8, 0);
    panel->body->insertWidget(1, unit, 0, Qt::AlignRight);
    return panel;
}

QWidget* Frm_Keiei::Make_Indicators() {
    auto* panel = new Section_Box(QStringLiteral("経営状況分析　８指標"));
    panel->body->setContentsMargins(12, 6, 12, 6);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(name_column, 1);
    grid->addWidget(Muted(QStringLiteral("計算結果")), 0, value_column, 1, 2, Qt::AlignRight);
    grid->addWidget(Muted(QStringLiteral("達成率")), 0, rate_column, Qt::AlignRight);
    for (std::size_t i = 0; i < y_indicators.size(); ++i) {
        Add_Indicator(*grid, i);
    }
    panel->body->addLayout(grid, 1);
    return panel;
}

// An indicator takes a line for its figures and one for its bar; two of them make a group.
void Frm_Keiei::Add_Indicator(QGridLayout& grid, std::size_t index) {
    const Y_Indicator& indicator = y_indicators[index];
    const auto number = static_cast<int>(index) + 1;
    const int row = 1 + 5 * static_cast<int>(index); // a line above, room, figures, bar, room
    const QString caption = QString::fromUtf8(indicator.name.name);
    grid.addWidget(Line(), row, indicator.group != nullptr ? group_column : name_column, 1, -1);
    grid.setRowStretch(row + 1, 1);
    grid.setRowStretch(row + 4, 1);
    if (indicator.group != nullptr) {
        grid.addWidget(Group_Label(QString::fromUtf8(indicator.group)), row + 1, group_column, 9, 1);
    }

    auto* name = new QLabel(QStringLiteral("Ｘ%1　%2").arg(number).arg(caption));
    auto* value =
        Figure_Label(QStringLiteral("kekka%1").arg(number), texts.kekka[index], theme::heading_points);
    auto* bar = new Rate_Bar(Limit_Text(indicator.Worst()), Limit_Text(indicator.Best()));
    bar->setObjectName(QStringLiteral("Bou%1").arg(number));
    bar->Set_Rate(static_cast<double>(y.rates[index]));
    auto* rate =
        Figure_Label(QStringLiteral("TRitu%1").arg(number), texts.TRitu[index] + " %", theme::heading_points);
    rate->setMinimumWidth(rate->fontMetrics().horizontalAdvance(QStringLiteral("100.0 %")));
    for (QWidget* shown : std::initializer_list<QWidget*>{value, bar, rate}) {
        shown->setAccessibleName(caption);
    }
    bar->setAccessibleDescription(QStringLiteral("達成率 ") + rate->text());

    grid.addWidget(name, row + 2, name_column);
    grid.addWidget(value, row + 2, value_column);
    grid.addWidget(Muted(QString::fromUtf8(indicator.unit.name)), row + 2, unit_column);
    grid.addWidget(bar, row + 3, name_column, 1, unit_column - name_column + 1);
    grid.addWidget(rate, row + 2, rate_column, 2, 1);
    grid.addWidget(Make_Check(static_cast<int>(index), caption), row + 2, check_column, 2, 1,
                   Qt::AlignVCenter);
}

QWidget* Frm_Keiei::Make_Score() {
    auto* panel = new QFrame;
    theme::Set_Look(panel, "section");
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(12, 8, 12, 8);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(8);
    grid->setColumnStretch(0, 1);
    grid->addWidget(new QLabel(QStringLiteral(" 経営状況点数")), 0, 0);
    grid->addWidget(Figure_Label(QStringLiteral("YTen"), texts.YTen, theme::title_points), 0, 1);
    grid->addWidget(Make_Check(check_of_points, QStringLiteral("経営状況点数")), 0, 2);
    grid->addWidget(Line(), 1, 0, 1, 3);
    auto* caption = new QLabel(QStringLiteral(" 経営状況評点（Y）"));
    theme::Set_Look(caption, "heading");
    grid->addWidget(caption, 2, 0, 1, 2);
    grid->addWidget(Make_Check(check_of_score, QStringLiteral("経営状況評点（Y）")), 2, 2);
    auto* score = Figure_Label(QStringLiteral("Y"), texts.Y, 32);
    QPalette palette = score->palette();
    palette.setColor(QPalette::WindowText, QColor(theme::accent));
    score->setPalette(palette);
    score->setAlignment(Qt::AlignCenter);
    score->setAccessibleName(QStringLiteral("経営状況評点（Y）"));
    grid->addWidget(score, 3, 0, 1, 3);
    auto* gauge = new Rate_Bar(QStringLiteral("0"), Text(Comma_Str(highest_y)));
    gauge->Set_Rate(100.0 * y.score.Count() / highest_y);
    grid->addWidget(gauge, 4, 0, 1, 3);
    return panel;
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
    buttons->insertWidget(1, new Note_Button(shell));
    auto* print = Add_Button(QStringLiteral("Prt"), QStringLiteral("計算結果印刷"));
    auto* close = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    Wire(print, &QPushButton::clicked, [this] { shell.Open_Form(QStringLiteral("Rpt_Keiei")); });
    connect(close, &QPushButton::clicked, this, &Frm_Keiei::reject);
    setFocusProxy(close);
}

void Frm_Keiei::Open_Check(int index) {
    checks.Open(Y1_Request(index), Side_In_Hand(shell.session), [] { return true; });
}

} // namespace morvane
