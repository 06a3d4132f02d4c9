// SPDX-FileCopyrightText: The Morvane developers
#include "statements/frm_kszaiup.h"

#include "session/boxes.h"
#include "session/save_or_stay.h"
#include "widgets/entry_grid.h"
#include "widgets/note_button.h"
#include "widgets/theme.h"
#include "widgets/total_panel.h"
#include "widgets/window_keys.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QVBoxLayout>
#include <optional>

namespace morvane {

namespace {

// In a narrower window the figures become smaller before the panel gives up columns: the captions of the
// accounts keep their room.
constexpr const char* compact =
    "QLabel { font-size: 9pt; }"
    "QLabel[look=\"panel_figure\"], QLabel[look=\"panel_sum\"] { padding: 0 4px; }"
    "QLabel[look=\"panel_heading\"] { padding: 0 4px; }";
constexpr auto layouts = std::to_array<Panel_Layout>({
    {2, 440, 600, "", 10},
    {2, 372, 640, compact, 11},
    {2, 372, 548, compact, 9},
    {1, 440, 640, "", 11},
    {1, 372, 560, compact, 10},
    {1, 372, 496, compact, 8},
    {1, 220, 360, compact, 8, 2},
});

constexpr std::array<const char*, 3> panel_headings = {"借方", "貸方", "改善後"};

constexpr Statement_Look journal_look = {
    .columns = {.name = "Kamk",
                .amounts = {{{"Gaku", "現状 残高", false},
                             {"Kari", "借方", true},
                             {"Kasi", "貸方", true},
                             {"Zan", "改善後 残高", false}}},
                .signs = true,
                .names_keyed = false},
    .amounts = {&Statement_Row::amount, &Statement_Row::debit, &Statement_Row::credit,
                &Statement_Row::balance},
    .layouts = layouts,
    .widest_grid = 860,
    .characters = 7,
    .headings = panel_headings,
};

constexpr int narrow_chooser = 1120; ///< all buttons in one row need this width

Statement_Section Journal_Section(Session& session, std::size_t place) {
    return {session, account_sections.at(place), Section_Use::Journal};
}

} // namespace

Frm_KsZaiUP::Frm_KsZaiUP(Shell_Port& shell_port)
    : Statement_Form(shell_port,
                     shell_port.session.Is_Corporation() ? QStringLiteral("Frm_KsZaiUP")
                                                         : QStringLiteral("Frm_KsZaiUPKJ"),
                     QStringLiteral("財務改善"), journal_look, Journal_Section(shell_port.session, 0),
                     On_Cancel::Store_All_The_Same),
      check(new QLabel) {
    body->addWidget(Make_Chooser());
    // The check stands deep in the panel, which scrolls.
    check->setObjectName(QStringLiteral("Check_Above"));
    theme::Set_Look(check, "check");
    Add_Unit_Line(QString::fromUtf8(Unit_Caption(shell.session)),
                  QStringLiteral("改善の仕訳を、借方と貸方に「円単位」で入力してください。"))
        ->addWidget(check);
    Add_Fields();
    Add_Buttons();
    Name_Section();
    for (const auto& [keys, step] : {std::pair{"Ctrl+PgDown", 1}, {"Ctrl+PgUp", -1}}) {
        auto* shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), this);
        Wire(shortcut, &QShortcut::activated, [this, by = step] { Step_Section(by); });
    }
}

// ---- the sections

QWidget* Frm_KsZaiUP::Make_Chooser() {
    auto* field = new QWidget;
    field->setObjectName(QStringLiteral("Mnu_UpZim"));
    field->setAccessibleName(QStringLiteral("区分"));
    Window_Keys::Set_Part(*field);
    chooser = new QGridLayout(field);
    chooser->setContentsMargins(0, 0, 0, 0);
    chooser->setSpacing(theme::grid);
    for (std::size_t place = 0; place < account_sections.size(); ++place) {
        Add_Choice(account_sections[place].Button(shell.session.Kind().type), [this, place] {
            Go_To_Section(place);
        })->setCheckable(true);
    }
    Add_Choice("印刷", [this] {
        if (grid->Finish_Entry() && Save()) {
            shell.Open_Form(QStringLiteral("Frm_PrKSZaiSti"));
        }
    });
    Add_Choice("閉じる", [this] { reject(); });
    return field;
}

QPushButton* Frm_KsZaiUP::Add_Choice(const char* caption, std::function<void()> chosen) {
    auto* button = new QPushButton(QString::fromUtf8(caption));
    button->setObjectName(QStringLiteral("Cmd_Upz(%1)").arg(Cmd_Upz.size()));
    button->setAccessibleName(button->text());
    button->setAutoDefault(false);
    theme::Set_Look(button, "chooser");
    Wire(button, &QPushButton::clicked, std::move(chosen));
    Cmd_Upz.push_back(button);
    return button;
}

void Frm_KsZaiUP::Lay_Chooser() {
    const int count = static_cast<int>(Cmd_Upz.size());
    const int in_a_row = width() >= narrow_chooser ? count : (count + 1) / 2;
    for (int i = 0; i < count; ++i) {
        chooser->addWidget(Cmd_Upz[static_cast<std::size_t>(i)], i / in_a_row, i % in_a_row);
    }
}

void Frm_KsZaiUP::resizeEvent(QResizeEvent* event) {
    Lay_Chooser();
    Statement_Form::resizeEvent(event);
}

void Frm_KsZaiUP::Checked(bool holds, const char* text) {
    Show_Check(*check, holds, QString::fromUtf8(text));
}

void Frm_KsZaiUP::Name_Section() {
    const Account_Section& named = account_sections.at(in_hand);
    const char* title = named.Title(shell.session.Kind().type, shell.session.Data_Ver, Section_Use::Journal);
    shell.menu.screen = {Journal_Screen_No(in_hand), title};
    Set_Sub_Title(QString::fromUtf8(title));
    for (std::size_t place = 0; place < account_sections.size(); ++place) {
        Cmd_Upz[place]->setChecked(place == in_hand);
    }
    note->Refresh();
}

bool Frm_KsZaiUP::Open_After(const std::function<void()>& store, std::size_t place) {
    std::optional<Statement_Section> opened;
    const bool done = Save_Or_Back(shell.session, [&] {
        store();
        opened.emplace(Journal_Section(shell.session, place));
    });
    if (done) {
        in_hand = place;
        Show_Section(std::move(*opened));
    }
    Name_Section();
    QWidget* keyed = section.Rows().empty() ? static_cast<QWidget*>(Cmd_Upz[in_hand]) : grid;
    keyed->setFocus(Qt::OtherFocusReason);
    return done;
}

void Frm_KsZaiUP::Go_To_Section(std::size_t place) {
    if (grid->Finish_Entry()) {
        Open_After([this] { section.Save_Rows(); }, place);
    } else {
        Name_Section(); // the press has marked the button
    }
}

void Frm_KsZaiUP::Step_Section(int step) {
    const std::size_t count = account_sections.size();
    Go_To_Section((in_hand + count + static_cast<std::size_t>(step)) % count);
}

// ---- the buttons at the foot

void Frm_KsZaiUP::Add_Buttons() {
    Add_Help_Button();
    Add_Menu_Button();
    note = new Note_Button(shell);
    buttons->insertWidget(2, note);
    const auto add = [this](const char* name, const char* caption, void (Frm_KsZaiUP::*work)()) {
        QPushButton* button = Add_Button(QString::fromLatin1(name), QString::fromUtf8(caption));
        Wire(button, &QPushButton::clicked, [this, work] {
            if (grid->Finish_Entry()) {
                (this->*work)();
            }
            grid->setFocus(Qt::OtherFocusReason); // the keying goes on where it was
        });
    };
    add("BLCheck", "ﾊﾞﾗﾝｽﾁｪｯｸ", &Frm_KsZaiUP::BLCheck);
    add("DtClear", "貸方・借方ｸﾘｱ", &Frm_KsZaiUP::DtClear);
    add("Y_Disp", "Ｙ点確認", &Frm_KsZaiUP::Y_Disp);
    Add_Closing_Buttons();
}

bool Frm_KsZaiUP::Save() {
    return Save_Or_Back(shell.session, [this] { section.Save_Rows(); });
}

bool Frm_KsZaiUP::Save_Asked(const char* question) {
    return Ask(shell.session, "編集保存確認", std::string(question) + "\nよろしいですか？") && Save();
}

void Frm_KsZaiUP::BLCheck() {
    if (Save_Asked("編集中の改善財務諸表を一旦保存します。")) {
        shell.Open_Form(shell.session.Is_Corporation() ? QStringLiteral("Frm_UPCheck")
                                                       : QStringLiteral("Frm_UPCheckKJ"));
    }
}

void Frm_KsZaiUP::DtClear() {
    if (Ask(shell.session, "全改善データ消去確認",
            "全改善データ（貸方・借方）を消去します。\nよろしいですか？")) {
        Open_After([this] { Clear_Journal(shell.session); }, 0);
    }
}

void Frm_KsZaiUP::Y_Disp() {
    if (!Save_Asked("編集中の財務諸表を一旦保存します。")) {
        return;
    }
    const QScopedValueRollback title(shell.menu.screen.title, std::string("改善シミュレーション－Ｙ点試算"));
    shell.menu.mode = Sim_Mode::Improvement;
    shell.Open_Form(QStringLiteral("Frm_KeieiKz"));
}

} // namespace morvane
