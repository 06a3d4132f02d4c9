// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_ysisan.h"

#include "screens/keiei.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <deque>

namespace morvane {

namespace {

constexpr int panel_width = 320;

/// The lines of a panel of numbered controls ("Yoso(3)", "kekka4").
struct Numbered {
    std::deque<std::string> names;
    std::deque<std::string> captions;

    void Add(std::string name, std::string caption) {
        names.push_back(std::move(name));
        captions.push_back(std::move(caption));
    }
};

template <std::size_t N>
Total_Panel* Make_Panel(const QString& heading, const Numbered& lines,
                        const std::array<std::string, N>& texts) {
    std::vector<Total_Field> fields;
    for (std::size_t i = 0; i < N; ++i) {
        fields.push_back({lines.names[i].c_str(), lines.captions[i].c_str()});
    }
    auto* panel = new Total_Panel(heading, fields, 12);
    panel->setMinimumWidth(panel_width);
    for (std::size_t i = 0; i < N; ++i) {
        panel->Set_Text(lines.names[i], QString::fromStdString(texts[i]));
    }
    return panel;
}

} // namespace

Frm_YSisan::Frm_YSisan(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_YSisan"), QStringLiteral("建設財務諸表入力時 Ｙ点試算")) {
    const Keiei_Texts texts = Show_Keiei(Calc_Y(shell.session, Side_In_Hand(shell.session)));

    Numbered elements;
    for (const Y_Name& element : y_elements) {
        elements.Add("Yoso(" + std::to_string(elements.names.size()) + ")", element.name);
    }
    Total_Panel* Yoso = Make_Panel(QStringLiteral("８指標計算要素"), elements, texts.Yoso);
    auto* unit = new QLabel(QStringLiteral("金額単位：千円"));
    theme::Set_Look(unit, "muted");
    Yoso->body->insertWidget(0, unit, 0, Qt::AlignRight);

    Numbered indicators;
    for (const Y_Indicator& indicator : y_indicators) {
        indicators.Add("kekka" + std::to_string(indicators.names.size() + 1),
                       indicator.name.name + ("（" + std::string(indicator.sign) + "）"));
    }
    Total_Panel* kekka = Make_Panel(QStringLiteral("８指標"), indicators, texts.kekka);

    constexpr auto sum = Total_Field::Line::Sum;
    constexpr std::array<Total_Field, 2> score_fields = {
        {{"YTen", "経営状況点数", sum}, {"Y", "経営状況評点（Y）", sum}}};
    auto* score = new Total_Panel(QStringLiteral("評点"), score_fields, 12);
    score->Set_Text("YTen", QString::fromStdString(texts.YTen));
    score->Set_Text("Y", QString::fromStdString(texts.Y));
    score->setMinimumWidth(panel_width);

    auto* right = new QVBoxLayout;
    right->setSpacing(theme::panel_gap);
    right->addWidget(kekka);
    right->addWidget(score);
    right->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    row->addWidget(Yoso);
    row->addLayout(right);
    body->addLayout(row);

    QPushButton* Tojiru = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(Tojiru, &QPushButton::clicked, this, &Frm_YSisan::reject);
    Tojiru->setFocus();
}

} // namespace morvane
