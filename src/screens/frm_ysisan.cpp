// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_ysisan.h"

#include "screens/y_texts.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr int panel_width = 320;

/// A panel of numbered controls ("Yoso(3)", "kekka3").
struct Numbered {
    std::vector<std::string> names;
    std::vector<Total_Field> fields;
};

template <std::size_t N>
Numbered Number(const std::array<const char*, N>& captions, const std::string& before,
                const std::string& after, std::size_t first) {
    Numbered numbered;
    for (std::size_t i = 0; i < N; ++i) {
        numbered.names.push_back(before + std::to_string(i + first) + after);
    }
    for (std::size_t i = 0; i < N; ++i) {
        numbered.fields.push_back({numbered.names[i].c_str(), captions[i]});
    }
    return numbered;
}

} // namespace

Frm_YSisan::Frm_YSisan(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_YSisan"), QStringLiteral("建設財務諸表入力時 Ｙ点試算")) {
    Y_Calc y;
    y.Calc_Y(shell.session, 1);

    const Numbered elements = Number(y_element_captions, "Yoso(", ")", 0);
    auto* Yoso = new Total_Panel(QStringLiteral("８指標計算要素"), elements.fields);
    for (std::size_t i = 0; i < y.Y_Yoso.size(); ++i) {
        Yoso->Set_Value(elements.names[i], y.Y_Yoso[i]);
    }
    auto* unit = new QLabel(QStringLiteral("金額単位：千円"));
    theme::Set_Look(unit, "muted");
    Yoso->body->insertWidget(0, unit, 0, Qt::AlignRight);

    const Numbered indicators = Number(y_indicator_captions, "kekka", "", 1);
    auto* kekka = new Total_Panel(QStringLiteral("８指標"), indicators.fields, 12);
    for (std::size_t i = 0; i < y.Y_Kekka.size(); ++i) {
        kekka->Set_Text(indicators.names[i], QString::fromStdString(Indicator_Text(y.Y_Kekka[i])));
    }
    constexpr auto sum = Total_Field::Line::Sum;
    constexpr std::array<Total_Field, 2> score_fields = {
        {{"YTen", "経営状況点数", sum}, {"Y", "経営状況評点（Y）", sum}}};
    auto* score = new Total_Panel(QStringLiteral("評点"), score_fields, 12);
    score->Set_Text("YTen", QString::fromStdString(Points_Text(y.Y_A_Ten)));
    score->Set_Value("Y", static_cast<int>(y.Y_Ten));

    auto* right = new QVBoxLayout;
    right->setSpacing(theme::panel_gap);
    right->addWidget(kekka);
    right->addWidget(score);
    right->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    row->addWidget(Yoso);
    row->addLayout(right);
    for (Total_Panel* panel : {Yoso, kekka, score}) {
        panel->setMinimumWidth(panel_width);
    }
    body->addLayout(row);

    QPushButton* Tojiru = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(Tojiru, &QPushButton::clicked, this, &Frm_YSisan::reject);
    Tojiru->setFocus();
}

} // namespace morvane
