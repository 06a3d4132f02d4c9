// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_ychart.h"

#include "report/chart_view.h"
#include "report/y_chart.h"
#include "widgets/note_button.h"
#include "widgets/theme.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr int width_of_both = 860; ///< in a narrower window the panel is a line over the chart

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

Frm_Ychart::Frm_Ychart(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_Ychart"), QStringLiteral("経営状況（Ｙ）分析チャート")),
      screen(Keiei_Screen_Of("Frm_Ychart", shell_port.menu.mode)),
      columns(Keiei_Columns(shell_port.session, screen)) {
    Set_Sub_Title(Text(shell.menu.screen.title));
    halves = new QBoxLayout(QBoxLayout::LeftToRight);
    halves->setSpacing(theme::panel_gap);
    halves->addWidget(Make_Chart(), 1);
    if (screen.mode == Sim_Mode::Current) {
        halves->addWidget(Make_Consul_Mnu());
    }
    body->addLayout(halves, 1);
    Make_Buttons();
}

void Frm_Ychart::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    const bool narrow = width() < width_of_both;
    halves->setDirection(narrow ? QBoxLayout::BottomToTop : QBoxLayout::LeftToRight);
    if (consul != nullptr) {
        heading->setHidden(narrow);
        consul->setDirection(narrow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
        const int around = narrow ? 4 : 12;
        consul->setContentsMargins(12, around, 12, around);
    }
}

// Over another screen there is no menu to hide.
void Frm_Ychart::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    menu_button->setHidden(isModal());
}

QWidget* Frm_Ychart::Make_Chart() {
    auto* panel = new QFrame;
    theme::Set_Look(panel, "section");
    auto* lines = new QVBoxLayout(panel);
    lines->setContentsMargins(8, 8, 8, 8);
    std::vector<Y_Chart_Side> sides;
    for (const Keiei_Column& column : columns) {
        sides.push_back({column.side.caption, column.y ? &*column.y : nullptr});
        if (!column.fault.empty()) {
            auto* fault = new QLabel(QString::fromUtf8(column.side.caption) + QStringLiteral("：") +
                                     Text(column.fault));
            fault->setObjectName(QStringLiteral("Lbl_Fault"));
            fault->setWordWrap(true);
            theme::Set_Look(fault, "fault");
            lines->addWidget(fault);
        }
    }
    chart = new Chart_View(Y_Chart(sides));
    chart->setObjectName(QStringLiteral("Chart"));
    chart->setAccessibleName(windowTitle());
    lines->addWidget(chart, 1);
    return panel;
}

QWidget* Frm_Ychart::Make_Consul_Mnu() {
    auto* panel = new QFrame;
    panel->setObjectName(QStringLiteral("Consul_Mnu"));
    theme::Set_Look(panel, "section");
    heading = new QLabel(QStringLiteral("点数アップコンサル"));
    theme::Set_Look(heading, "band");
    auto* caption = new QLabel(QStringLiteral("経営状況評点（Y）"));
    theme::Set_Look(caption, "muted");
    auto* score = new QLabel(Text(columns[0].texts.Y));
    score->setObjectName(QStringLiteral("Y"));
    score->setAccessibleName(caption->text());
    score->setFont(theme::Gothic(22, true));
    auto* advice = new QPushButton(QStringLiteral("経営状況アドバイス"));
    advice->setObjectName(QStringLiteral("Cmd_Advice"));
    advice->setAccessibleName(advice->text());
    advice->setAutoDefault(false);
    Wire(advice, &QPushButton::clicked, [this] { shell.Open_Form(QStringLiteral("Frm_Advice")); });
    consul = new QBoxLayout(QBoxLayout::TopToBottom);
    consul->setSpacing(8);
    consul->addWidget(caption);
    consul->addWidget(score);
    consul->addWidget(advice);
    consul->addStretch(1);
    auto* whole = new QVBoxLayout(panel);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(heading);
    whole->addLayout(consul, 1);
    return panel;
}

void Frm_Ychart::Make_Buttons() {
    Add_Help_Button();
    menu_button = Add_Menu_Button();
    buttons->insertWidget(2, new Note_Button(shell));
    auto* print = Add_Button(QStringLiteral("Prt"), QStringLiteral("印刷"));
    auto* close = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    Wire(print, &QPushButton::clicked, [this] { shell.Open_Form(Text(screen.report)); });
    connect(close, &QPushButton::clicked, this, &Frm_Ychart::reject);
    close->setFocus();
    setFocusProxy(close);
}

} // namespace morvane
