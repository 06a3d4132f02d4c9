// SPDX-FileCopyrightText: The Morvane developers
#include "report/frm_prtset.h"

#include "data/value.h"
#include "law/run_time_error.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"
#include "widgets/section_box.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace morvane {

namespace {

constexpr int most_copies = 255;

constexpr Field entries[] = {
    {.name = "Ue_Mrg",
     .caption = "上余白",
     .kind = Entry_Kind::Decimal,
     .max_length = 6,
     .width = 7,
     .hint = "mm"},
    {.name = "Hida_Mrg",
     .caption = "左余白",
     .kind = Entry_Kind::Decimal,
     .max_length = 6,
     .width = 7,
     .hint = "mm"},
    {.name = "Busu",
     .caption = "印刷部数",
     .kind = Entry_Kind::Digits,
     .max_length = 3,
     .width = 7,
     .hint = "部"},
    {.name = "St_Page",
     .caption = "印刷ページ",
     .kind = Entry_Kind::Digits,
     .max_length = 3,
     .width = 7,
     .label = "最初のページ"},
    {.name = "Ed_Page",
     .kind = Entry_Kind::Digits,
     .max_length = 3,
     .width = 7,
     .before = "～",
     .label = "最後のページ"},
};
constexpr std::size_t entries_without_pages = 3;

} // namespace

Frm_PrtSET::Frm_PrtSET(Shell_Port& shell_port, Print_State& print_state,
                       std::function<int(int)> printer_dialog, const Margin_Room& margin_room)
    : Form(shell_port, QStringLiteral("Frm_PrtSET"), QStringLiteral("ページ設定")), prt(print_state),
      choose_printer(std::move(printer_dialog)), room(margin_room),
      fields(new Field_Form(
          std::span(entries).first(prt.Prt_Page_Flg ? std::size(entries) : entries_without_pages))) {
    auto* section = new Section_Box(QStringLiteral("余白と部数"));
    section->body->addWidget(fields);
    body->addWidget(section);
    body->addStretch(1);
    Wire(Add_Button(QStringLiteral("Cmd_PrtSet"), QStringLiteral("ﾌﾟﾘﾝﾀ設定"), nullptr, true),
         &QPushButton::clicked, [this] { Cmd_PrtSet(); });
    Wire(Add_Button(QStringLiteral("Cmd_OK"), QStringLiteral("OK"), "primary"), &QPushButton::clicked,
         [this] { Take(); });
    Wire(Add_Button(QStringLiteral("Cmd_Can"), QStringLiteral("キャンセル")), &QPushButton::clicked,
         [this] { reject(); });
    Load();
    fields->Focus("Ue_Mrg");
}

void Frm_PrtSET::Load() {
    const auto text = [](auto number) { return Number_Text(static_cast<double>(number)); };
    fields->Set_Texts({{"Ue_Mrg", text(prt.Ue_Mrg_Val)},
                       {"Hida_Mrg", text(prt.Hida_Mrg_Val)},
                       {"Busu", text(prt.Prt_Busu)},
                       {"St_Page", text(prt.Prt_St_Page)},
                       {"Ed_Page", text(prt.Prt_Ed_Page)}});
}

// An entry that is none goes back to the former value.
void Frm_PrtSET::Refuse(const char* name, const std::string& former, const std::string& reason) {
    fields->Set_Text(name, former);
    fields->Focus(name);
    throw Run_Time_Error(Run_Time_Error::Kind::Type_Mismatch, reason);
}

float Frm_PrtSET::Margin(const char* name, const char* caption, float former) {
    bool is_number = false;
    const std::string text = fields->Text(name);
    const float margin = QString::fromStdString(text).toFloat(&is_number);
    if (!is_number) {
        Refuse(name, Number_Text(static_cast<double>(former)),
               std::string(caption) + "「" + text +
                   "」は数値ではありません。\n数字と小数点で入力してください。");
    }
    return margin;
}

std::uint8_t Frm_PrtSET::Whole(const char* name, const char* caption, std::uint8_t former) {
    bool is_number = false;
    const int number = QString::fromStdString(fields->Text(name)).toInt(&is_number);
    if (!is_number || number < 1 || number > most_copies) {
        Refuse(name, std::to_string(former),
               std::string(caption) + "は1～" + std::to_string(most_copies) + "で入力してください。");
    }
    return static_cast<std::uint8_t>(number);
}

/// Whether the whole report stays on the sheet, or the user takes what is cut.
bool Frm_PrtSET::May_Cut(const Print_State& next) const {
    std::string cut;
    if (next.Ue_Mrg_Val > room.top) {
        cut += "\n上余白は " + Fixed_Str(room.top, 1) + "mm まで";
    }
    if (next.Hida_Mrg_Val > room.left) {
        cut += "\n左余白は " + Fixed_Str(room.left, 1) + "mm まで";
    }
    return cut.empty() || Ask(shell.session, "ページ設定",
                              "この余白では、用紙からはみ出す部分が印刷されません。" + cut +
                                  "\nこのまま設定してもよろしいですか？");
}

void Frm_PrtSET::Take() {
    Print_State next = prt;
    next.Ue_Mrg_Val = Margin("Ue_Mrg", "上余白", next.Ue_Mrg_Val);
    next.Hida_Mrg_Val = Margin("Hida_Mrg", "左余白", next.Hida_Mrg_Val);
    next.Prt_Busu = Whole("Busu", "印刷部数", next.Prt_Busu);
    if (next.Prt_Page_Flg) {
        next.Prt_St_Page = Whole("St_Page", "最初のページ", next.Prt_St_Page);
        next.Prt_Ed_Page = Whole("Ed_Page", "最後のページ", next.Prt_Ed_Page);
    }
    if (!May_Cut(next)) {
        fields->Focus(next.Ue_Mrg_Val > room.top ? "Ue_Mrg" : "Hida_Mrg");
        return;
    }
    prt = next;
    Close_Form();
}

void Frm_PrtSET::Cmd_PrtSet() {
    const int copies = choose_printer(Whole("Busu", "印刷部数", prt.Prt_Busu));
    fields->Set_Text("Busu", std::to_string(copies));
}

} // namespace morvane
