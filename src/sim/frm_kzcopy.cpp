// SPDX-FileCopyrightText: The Morvane developers
#include "sim/frm_kzcopy.h"

#include "law/law_year.h"
#include "session/boxes.h"
#include "session/save_or_stay.h"
#include "sim/kz_copy.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <array>

namespace morvane {

/// The boxes before and after a copy.
struct Copy_Boxes {
    std::string title;
    std::string question;
    const char* done_title;
    const char* done;
};

namespace {

constexpr std::array saved_scenarios = {Scenario::Slot_1, Scenario::Slot_2, Scenario::Slot_3};

std::string Quoted(Scenario slot) {
    return "「保存値" + std::string(Columns_Of(slot).name) + "」";
}

Copy_Boxes Boxes_Of_Save(Scenario slot) {
    const std::string name = Quoted(slot);
    return {"改善後数値保存確認",
            "現在の「改善後」数値を" + name + "に保存します。\n既に" + name +
                "に保存データがある場合は上書きされます。\n\nよろしいですか？",
            "保存終了", "改善後数値の保存が終了しました。"};
}

Copy_Boxes Boxes_Of_Load(Scenario slot) {
    return {"改善後数値呼出確認",
            Quoted(slot) + "の「改善後」数値を現在の「改善後」呼び出します。\n"
                           "現在の改善後データは上書きされます。\n\nよろしいですか？",
            "呼出終了", "改善後数値の呼出が終了しました。"};
}

const Copy_Boxes before_to_after = {
    "改善後数値書き換え確認",
    "「改善前」の完工高、Ｘ２、Ｗ関連数値を、「改善後」数値にコピーします。\n"
    "（財務数値はコピーしません。必要な場合は財務改善の[貸方・借方ｸﾘｱ]を行ってください。）\n\n"
    "改善後の数値を変更した場合は、改善前数値に戻されます。\n\nよろしいですか？",
    "コピー終了", "改善前数値を改善後にコピーしました。"};

const Copy_Boxes after_to_before = {
    "改善前数値書き換え確認",
    "「改善後」の財務データ、完工高、Ｘ２，Ｗ関連数値を、「改善前」数値にコピーします。\n"
    "改善前の数値は改善後の数値に置き換わります。ご注意下さい。\n\nよろしいですか？",
    "コピー終了", "改善後数値を改善前にコピーしました。"};

QGridLayout* Add_Group(QLayout& place, const QString& heading) {
    auto* group = new Section_Box(heading);
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(theme::panel_gap);
    rows->setVerticalSpacing(theme::panel_gap);
    rows->setColumnStretch(1, 1);
    group->body->addLayout(rows);
    place.addWidget(group);
    return rows;
}

} // namespace

Frm_KzCopy::Frm_KzCopy(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_KzCopy"), QStringLiteral("改善後複写 保存･呼出")) {
    Set_Sub_Title(QStringLiteral("第%1期").arg(shell.session.Syori_Ki));
    body->setSpacing(theme::panel_gap);

    QGridLayout* copies = Add_Group(*body, QStringLiteral("データ複写"));
    Add_Action(*copies, QStringLiteral("Cmd_MaeGCopy"), QStringLiteral("改善前 ⇒ 改善後"), Scenario::Kaizen,
               QStringLiteral("改善後："),
               [this] { Ask_And_Copy(before_to_after, [this] { KzCopy_MaeToGo(shell.session); }); });
    Add_Action(*copies, QStringLiteral("Cmd_GoMCopy"), QStringLiteral("改善後 ⇒ 改善前"), Scenario::Genjo,
               QStringLiteral("改善前："),
               [this] { Ask_And_Copy(after_to_before, [this] { KzCopy_GoToMae(shell.session); }); });

    auto* side_by_side = new QHBoxLayout;
    side_by_side->setSpacing(theme::panel_gap);
    body->addLayout(side_by_side);
    QGridLayout* saves = Add_Group(*side_by_side, QStringLiteral("改善後データ保存"));
    QGridLayout* loads = Add_Group(*side_by_side, QStringLiteral("改善後データ呼出"));
    for (std::size_t i = 0; i < saved_scenarios.size(); ++i) {
        const Scenario slot = saved_scenarios.at(i);
        const QString index = QStringLiteral("(%1)").arg(i + 1);
        const QString place = QStringLiteral("（保存値%1）").arg(QChar(static_cast<char16_t>(u'１' + i)));
        Add_Action(*saves, QStringLiteral("Cmd_Save") + index, QStringLiteral("改善後データ保存") + place,
                   slot, {}, [this, slot] {
                       Ask_And_Copy(Boxes_Of_Save(slot),
                                    [this, slot] { KzCopy_SlotSave(shell.session, slot); });
                   });
        Add_Action(*loads, QStringLiteral("Cmd_Load") + index, QStringLiteral("改善後データ呼出") + place,
                   slot, {}, [this, slot] { Load(slot); });
    }

    if (Has_Sixth_Engineers(shell.session)) {
        auto* note =
            new QLabel(QStringLiteral("管理補佐（監理技術者補佐）の人数は、コピー・保存・呼出の対象に"
                                      "なりません。\n保存値の評点は、管理補佐を除いて計算されます。"));
        note->setObjectName(QStringLiteral("Lbl_Hosa"));
        theme::Set_Look(note, "muted");
        body->addWidget(note);
    }
    body->addStretch(1);

    Add_Help_Button();
    Wire(Add_Button(QStringLiteral("Cmd_Prt"), QStringLiteral("改善後一覧印刷")), &QPushButton::clicked,
         [this] { Print(); });
    QPushButton* close = Add_Button(QStringLiteral("Cmd_Close"), QStringLiteral("閉じる"));
    connect(close, &QPushButton::clicked, this, &Form::reject);
    Show_Results();
    findChild<QPushButton*>(QStringLiteral("Cmd_Save(1)"))->setFocus();
}

template <class Work>
void Frm_KzCopy::Add_Action(QGridLayout& place, const QString& name, const QString& caption, Scenario shown,
                            const QString& of, Work work) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    auto* result = new QLabel;
    result->setObjectName(QStringLiteral("Naiyo_") + name);
    theme::Set_Look(result, "muted");
    const int row = place.rowCount();
    if (of.isEmpty()) {
        // Two groups of long captions stand beside each other on narrow displays, too.
        auto* both = new QVBoxLayout;
        both->setSpacing(2);
        both->addWidget(button);
        both->addWidget(result);
        place.addLayout(both, row, 0);
    } else {
        place.addWidget(button, row, 0);
        place.addWidget(result, row, 1);
    }
    Wire(button, &QPushButton::clicked, work);
    actions.push_back({button, result, caption, of, shown});
}

void Frm_KzCopy::Show_Results() {
    for (const Action& action : actions) {
        const QString result =
            action.of + QString::fromStdString(Result_Of(shell.session, action.scenario).In_Words());
        action.result->setText(result);
        action.button->setAccessibleName(action.caption + QStringLiteral("、") + result);
    }
}

void Frm_KzCopy::Ask_And_Copy(const Copy_Boxes& boxes, const std::function<void()>& copy) {
    const Save_Words words = {.what = "コピーした数値",
                              .again = "もう一度コピーします。",
                              .back = "画面に戻ります。数値は元のまま変わっていません。"};
    if (Ask(shell.session, boxes.title, boxes.question) && Save_Or_Back(shell.session, copy, words)) {
        Show_Results();
        resize(size().expandedTo(sizeHint()).boundedTo(screen()->availableSize())); // for longer words
        Tell(shell.session, boxes.done_title, boxes.done);
    }
}

void Frm_KzCopy::Load(Scenario slot) {
    if (!KzCopy_SlotExists(shell.session, slot)) {
        Tell(shell.session, "保存データ無しエラー",
             Quoted(slot) + "に保存された改善後数値データはありません。");
        return;
    }
    Ask_And_Copy(Boxes_Of_Load(slot), [this, slot] { KzCopy_SlotLoad(shell.session, slot); });
}

void Frm_KzCopy::Print() {
    if (!Has_Improved_X2W(shell.session)) {
        Tell(shell.session, "改善未処理エラー",
             "改善後のＸ２、Ｗ、Ｘ１、Ｚの処理が行われていません。改善シミュレーションより行ってください。");
        return;
    }
    shell.Open_Form(QString::fromUtf8(Law_Of(shell.session.Simyu_Kubun).improvement_report));
}

} // namespace morvane
