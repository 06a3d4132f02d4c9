// SPDX-FileCopyrightText: The Morvane developers
#include "company/frm_kssitei.h"

#include "law/law_year.h"
#include "session/kyotu_mod.h"
#include "session/save_or_stay.h"
#include "widgets/entry_cell.h"
#include "widgets/record_list.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace morvane {

namespace {

struct Option {
    const char* name;
    const char* caption;
    const char* what; ///< what it does, under the caption
};

constexpr std::array<Option, 3> mode_options = {{
    {"Opt(0)", "既存の決算期を指定(&1)", "一覧から選んだ決算期を処理中にします。"},
    {"Opt(1)", "新規決算期（後）(&2)", "最新の決算期の次の期を作成します。"},
    {"Opt(2)", "新規決算期（前）(&3)", "最古の決算期の前の期を作成します。"},
}};

constexpr int choices_width = 284;

constexpr std::array<List_Column, 3> list_columns = {{{"決算期", 8}, {"経審計算年"}, {"状態", 7}}};

QLabel* Muted(const QString& text) {
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    theme::Set_Look(label, "muted");
    return label;
}

QRadioButton* Named_Option(const char* name, const QString& caption) {
    auto* option = new QRadioButton(caption);
    option->setObjectName(QString::fromLatin1(name));
    return option;
}

} // namespace

Frm_KsSitei::Frm_KsSitei(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_KsSitei"), QStringLiteral("決算期処理")),
      list(new Record_List(list_columns)), Lbl_Kizon(Muted({})), Ks_ki(new Entry_Cell(Entry_Kind::Digits)),
      fault(new QLabel), what_is_carried(Muted({})), pages(new QStackedWidget),
      law_options(new QButtonGroup(this)) {
    auto* choices = new QVBoxLayout;
    choices->setSpacing(theme::panel_gap);
    choices->addWidget(Make_Mode_Panel());
    choices->addWidget(Make_Law_Panel());
    choices->addStretch(1);
    pages->addWidget(Make_List_Panel());
    pages->addWidget(Make_New_Panel());
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    row->addLayout(choices);
    row->addWidget(pages, 1);
    body->addLayout(row, 1);

    Add_Help_Button();
    Cmd_Del = Add_Button(QStringLiteral("Cmd_Del"), QStringLiteral("決算期削除(&D)"), nullptr, true);
    Cmd_Excute = Add_Button(QStringLiteral("Cmd_Excute"), {}, "primary");
    Cmd_Excute->setMinimumWidth(120);
    auto* cancel = Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("キャンセル"));

    Wire(Cmd_Excute, &QPushButton::clicked, [this] { Excute(); });
    Wire(Cmd_Del, &QPushButton::clicked, [this] {
        if (Delete_Period(shell.session, Chosen())) {
            Show_Periods();
        }
    });
    connect(cancel, &QPushButton::clicked, this, &Frm_KsSitei::reject);
    Wire(list, &Record_List::Row_Selected, [this] { Show_Law_Of_Chosen(); });
    Wire(list, &Record_List::Row_Opened, [this] { Excute(); });
    connect(Ks_ki, &QLineEdit::textChanged, this, [this] { Show_Fault({}); });
    connect(Ks_ki, &Entry_Cell::Refused, this,
            [this] { fault->setText(QStringLiteral("決算期の番号は、数字だけで入力してください。")); });
    connect(Ks_ki, &Entry_Cell::Next_Field, Cmd_Excute, [this] { Cmd_Excute->setFocus(Qt::TabFocusReason); });

    Show_Periods();
    Show_Mode(Mode::Existing);
}

QWidget* Frm_KsSitei::Make_Mode_Panel() {
    auto* panel = new Section_Box(QStringLiteral("処理"));
    panel->setFixedWidth(choices_width);
    auto* group = new QButtonGroup(this);
    for (std::size_t i = 0; i < mode_options.size(); ++i) {
        const Option& row = mode_options[i];
        QRadioButton* option = Named_Option(row.name, QString::fromUtf8(row.caption));
        group->addButton(option, static_cast<int>(i));
        QLabel* what = Muted(QString::fromUtf8(row.what));
        what->setFont(theme::Gothic(9));
        what->setWordWrap(false);
        what->setContentsMargins(22, 0, 0, 4);
        panel->body->addWidget(option, 0, Qt::AlignLeft);
        panel->body->addWidget(what);
    }
    group->button(0)->setChecked(true);
    Wire(group, &QButtonGroup::idClicked, [this](int id) { Show_Mode(static_cast<Mode>(id)); });
    return panel;
}

QWidget* Frm_KsSitei::Make_Law_Panel() {
    auto* panel = new Section_Box(QStringLiteral("経審計算年"));
    panel->setFixedWidth(choices_width);
    for (const Law_Year& law : Law_Years()) {
        QRadioButton* option = Named_Option(law.option, QString::fromUtf8(law.name));
        law_options->addButton(option, Law_Number(law.code));
        panel->body->addWidget(option, 0, Qt::AlignLeft);
    }
    // Lines of a fixed width: a wrapping label would not tell its height to the layout.
    QLabel* conversion = Muted(QStringLiteral("登録済みの決算期を2015年改正以降に\n"
                                              "するには、メニューの「データ変換\n"
                                              "（2012→2015）」を実行します。"));
    conversion->setWordWrap(false);
    conversion->setFont(theme::Gothic(9));
    panel->body->addWidget(conversion);
    Wire(law_options, &QButtonGroup::idClicked, [this](int id) { Law_Clicked(Law_Of(id).code); });
    return panel;
}

QWidget* Frm_KsSitei::Make_List_Panel() {
    auto* panel = new Section_Box(QStringLiteral("登録済みの決算期"));
    list->setObjectName(QStringLiteral("Lst_Box"));
    list->setAccessibleName(QStringLiteral("登録済みの決算期"));
    list->setMinimumWidth(300);
    list->Set_Empty_Text(QStringLiteral("登録されている決算期がありません。"));
    Lbl_Kizon->setObjectName(QStringLiteral("Lbl_Kizon"));
    panel->body->addWidget(Lbl_Kizon);
    panel->body->addWidget(list, 1);
    panel->body->addWidget(
        Muted(shell.session.Is_Multi()
                  ? QStringLiteral("既存の決算期を変更する場合は、［事業所情報］で変更してください。")
                  : QStringLiteral("既存の決算期を変更する場合は、［自社情報］で変更してください。")));
    return panel;
}

QWidget* Frm_KsSitei::Make_New_Panel() {
    auto* panel = new Section_Box(QStringLiteral("新規決算期"));
    Ks_ki->setObjectName(QStringLiteral("Ks_ki"));
    Ks_ki->setAccessibleName(QStringLiteral("新規決算期"));
    Ks_ki->setMaxLength(6);
    Ks_ki->setFixedWidth(72);
    Ks_ki->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* unit = new QLabel(QStringLiteral("期"));
    unit->setObjectName(QStringLiteral("Lbl_Ki"));
    auto* line = new QHBoxLayout;
    line->setSpacing(6);
    line->addWidget(new QLabel(QStringLiteral("作成する決算期　第")));
    line->addWidget(Ks_ki);
    line->addWidget(unit);
    line->addStretch(1);
    fault->setObjectName(QStringLiteral("Lbl_Fault"));
    fault->setWordWrap(true);
    theme::Set_Look(fault, "fault");
    panel->body->addLayout(line);
    panel->body->addWidget(fault);
    panel->body->addWidget(what_is_carried);
    panel->body->addStretch(1);
    return panel;
}

void Frm_KsSitei::Show_Periods() {
    periods = Read_Periods(shell.session);
    int in_hand = -1;
    std::vector<std::vector<std::string>> lines;
    for (const Period_Entry& period : periods) {
        const bool is_in_hand = period.number == shell.session.Syori_Ki;
        if (is_in_hand) {
            in_hand = static_cast<int>(lines.size());
        }
        lines.push_back({Period_Line(period.number), Law_Text(period), is_in_hand ? "処理中" : ""});
    }
    list->Set_Rows(std::move(lines));
    list->Select_Row(in_hand);
    Lbl_Kizon->setText(QStringLiteral("処理中の決算期：第%1期　　登録数：%2期")
                           .arg(shell.session.Syori_Ki)
                           .arg(periods.size()));
}

void Frm_KsSitei::Show_Mode(Mode to) {
    mode = to;
    const bool existing = mode == Mode::Existing;
    pages->setCurrentIndex(existing ? 0 : 1);
    Cmd_Excute->setText(existing ? QStringLiteral("決算期指定") : QStringLiteral("新規登録"));
    Cmd_Excute->setAccessibleName(Cmd_Excute->text());
    // What would be deleted must be in view.
    Cmd_Del->setEnabled(existing);
    if (existing) {
        Show_Law_Of_Chosen();
        list->setFocus();
        return;
    }
    const std::optional<int> number = Proposed_Period(periods, New_Mode());
    Ks_ki->Set_Value(number ? Value(*number) : Value());
    fault->setText(mode == Mode::Before ? QString::fromStdString(No_Period_Before(periods)) : QString());
    Mark_Law(Proposed_Law_Year(periods, New_Mode()), true);
    what_is_carried->setText(
        mode == Mode::After
            ? QStringLiteral(
                  "前の期から、完成工事高（前期・前々期へ繰り越し）、技術職員数、社会性等の継続項目を"
                  "引き継ぎます。財務諸表の金額は空欄で作成します。")
            : QStringLiteral("次の期から、社会性等の継続項目を引き継ぎます。財務諸表の金額、完成工事高、"
                             "技術職員数は空欄で作成します。"));
    Ks_ki->setFocus(Qt::TabFocusReason);
}

void Frm_KsSitei::Show_Law_Of_Chosen() {
    const int row = list->Selected_Row();
    if (row < 0) {
        Mark_Law(std::nullopt, false);
        return;
    }
    const Period_Entry& period = periods[static_cast<std::size_t>(row)];
    if (period.Has_Law_Options()) {
        Mark_Law(period.law_year, true);
    } else {
        Mark_Law(std::nullopt, false);
    }
}

void Frm_KsSitei::Mark_Law(std::optional<Law_Year_No> law_year, bool enabled) {
    marked_law = law_year.value_or(Law_Year_No{});
    law_options->setExclusive(false);
    for (QAbstractButton* option : law_options->buttons()) {
        option->setChecked(law_options->id(option) == Law_Number(marked_law));
        option->setEnabled(enabled);
    }
    law_options->setExclusive(true);
}

void Frm_KsSitei::Law_Clicked(Law_Year_No law_year) {
    if (mode == Mode::Existing) {
        const int row = list->Selected_Row();
        const std::int16_t period = *Chosen();
        const Law_Year_No mark = Change_Law_Year(shell.session, period, law_year, marked_law);
        Show_Periods();
        list->Select_Row(row);
        Mark_Law(mark, true);
        return;
    }
    // A period that is still to be made has nothing to be changed.
    if (Law_Of(law_year).closed && marked_law != law_year) {
        Refuse_Law_2008(shell.session);
    } else {
        marked_law = law_year;
    }
    Mark_Law(marked_law, true);
}

void Frm_KsSitei::Excute() {
    if (mode == Mode::Existing) {
        if (!Choose_Period(shell.session, Chosen())) {
            return;
        }
    } else {
        const Value number = Ks_ki->Entry();
        const Creation creation = Create_Period(shell.session, number, New_Mode(), marked_law);
        if (creation == Creation::Bad_Number) {
            Show_Fault(QString::fromStdString(New_Period_Fault(periods, number, New_Mode())));
        }
        if (creation != Creation::Made) {
            return;
        }
    }
    shell.Show_Company();
    Close_Form();
}

void Frm_KsSitei::Show_Fault(const QString& text) {
    fault->setText(text);
    if (!text.isEmpty()) {
        QApplication::beep();
        Ks_ki->setFocus(Qt::TabFocusReason);
        Ks_ki->selectAll();
    }
}

std::optional<std::int16_t> Frm_KsSitei::Chosen() const {
    const int row = list->Selected_Row();
    return row < 0 ? std::nullopt : std::optional(periods[static_cast<std::size_t>(row)].number);
}

// The law year of the period in hand may have been changed here. Where it cannot be read the window is left
// all the same, with the one that is known.
bool Frm_KsSitei::May_Close() {
    const auto read = [this] {
        shell.session.Simyu_Kubun = Get_Simyu_Kubun(shell.session, shell.session.Syori_Ki);
    };
    return Save_Or_Stay(shell.session, read,
                        {.what = "処理中の決算期の経審計算年",
                         .discard = "経審計算年を読み込まないで閉じます。",
                         .title = "読み込みエラー",
                         .failed = "を読み込めませんでした。",
                         .again = "もう一度読み込みます。"}) != Save_End::Stay;
}

} // namespace morvane
