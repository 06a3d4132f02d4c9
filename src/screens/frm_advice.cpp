// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_advice.h"

#include "review/twelve.h"
#include "widgets/phrases.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr int usual_width = 900;
constexpr int height_of_others = 30; ///< of the buttons beside those that choose the side

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QLabel* Sentence(const std::string& text, const char* look = nullptr) {
    auto* label = new QLabel(With_Whole_Numbers(Text(text)));
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (look != nullptr) {
        theme::Set_Look(label, look);
    }
    return label;
}

QWidget* Make_Section(const Advice_Section& section) {
    auto* box = new Section_Box(QString::fromUtf8(section.heading));
    box->body->setContentsMargins(12, 8, 12, 10);
    box->body->setSpacing(2);
    if (section.advice.empty()) {
        box->body->addWidget(Sentence(section.nothing));
    }
    for (const Advice& advice : section.advice) {
        if (&advice != &section.advice.front()) {
            box->body->addSpacing(6);
        }
        box->body->addWidget(Sentence(advice.text));
        QLabel* figure = Sentence(advice.figure, "muted");
        figure->setIndent(figure->fontMetrics().horizontalAdvance(u'①'));
        box->body->addWidget(figure);
    }
    return box;
}

QWidget* Make_Advice(const std::array<Advice_Section, 4>& sections) {
    auto* side = new QWidget;
    side->setObjectName(QStringLiteral("Advice"));
    auto* lines = new QVBoxLayout(side);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(theme::panel_gap);
    for (const Advice_Section& section : sections) {
        lines->addWidget(Make_Section(section));
    }
    lines->addStretch(1);
    return side;
}

} // namespace

Frm_Advice::Frm_Advice(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_Advice"), QStringLiteral("経営状況アドバイス")),
      sides(new QButtonGroup(this)) {
    const Y_Result y = Calc_Y(shell.session, Side_In_Hand(shell.session));
    Store_Twelve(shell.session);
    const Twelve_Values twelve = Read_Twelve(shell.session);
    Set_Sub_Title(QStringLiteral("第%1期　現状の数値による").arg(shell.session.Syori_Ki));
    Add_Help_Button();
    Add_Side("Cmd_Advice", "経営状況アドバイス", Make_Advice(Advice_Of(y, twelve)));
    Add_Side("Cmd_12com", "１２指標コメント", Make_Comments(twelve));
    sides->buttons().first()->setChecked(true);
    Make_Buttons();
    resize(usual_width, sizeHint().height());
}

void Frm_Advice::Add_Side(const char* name, const char* caption, QWidget* side) {
    QPushButton* button = Add_Button(QString::fromUtf8(name), QString::fromUtf8(caption), "chooser", true);
    button->setCheckable(true);
    button->setMinimumHeight(height_of_others);
    sides->addButton(button);
    body->addWidget(side, 1);
    side->setVisible(false);
    connect(button, &QPushButton::toggled, side, &QWidget::setVisible);
}

QWidget* Frm_Advice::Make_Comments(const Twelve_Values& twelve) {
    auto* side = new Section_Box(QStringLiteral("１２指標"));
    side->setObjectName(QStringLiteral("Com12"));
    side->body->setContentsMargins(12, 8, 12, 10);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(0, 1);
    const auto comments = Twelve_Comments(twelve);
    for (std::size_t i = 0; i < comments.size(); ++i) {
        Add_Comment(*grid, i, comments[i]);
    }
    side->body->addLayout(grid);
    side->body->addStretch(1);
    return side;
}

// A line for the figure, and the comment under it.
void Frm_Advice::Add_Comment(QGridLayout& grid, std::size_t place, const Twelve_Comment& comment) {
    const int row = 3 * static_cast<int>(place);
    const QString number = QStringLiteral("(%1)").arg(place + 1);
    const QFont bold = theme::Gothic(theme::body_points, true);
    auto* name = new QLabel(Text(comment.label));
    name->setFont(bold);
    auto* figure = new QLabel(Text(comment.figure));
    figure->setObjectName(QStringLiteral("Shihyo") + number);
    figure->setAccessibleName(name->text());
    figure->setFont(bold);
    figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QLabel* text = Sentence(comment.text);
    text->setObjectName(QStringLiteral("Com") + number);
    auto* check = new QPushButton(QStringLiteral("計算チェック"));
    check->setObjectName(QStringLiteral("Cmd_Com") + number);
    check->setAccessibleName(name->text() + QStringLiteral(" 計算チェック"));
    check->setAutoDefault(false);
    theme::Set_Look(check, "check_button");
    Wire(check, &QPushButton::clicked, [this, place] {
        checks.Open(Twelve_Request(place), Side_In_Hand(shell.session), [] { return true; });
    });
    grid.addWidget(name, row, 0);
    grid.addWidget(figure, row, 1);
    grid.addWidget(new QLabel(QString::fromUtf8(comment.unit)), row, 2);
    grid.addWidget(check, row, 3, 2, 1, Qt::AlignVCenter);
    grid.addWidget(text, row + 1, 0, 1, 3);
    grid.setRowMinimumHeight(row + 2, 6);
}

void Frm_Advice::Make_Buttons() {
    auto* print = Add_Button(QStringLiteral("Prt"), QStringLiteral("印刷"));
    auto* close = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    Wire(print, &QPushButton::clicked, [this] { shell.Open_Form(QStringLiteral("Rpt_Advice")); });
    connect(close, &QPushButton::clicked, this, &Frm_Advice::reject);
    close->setFocus();
    setFocusProxy(close);
}

} // namespace morvane
