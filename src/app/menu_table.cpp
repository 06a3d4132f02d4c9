// SPDX-FileCopyrightText: The Morvane developers
#include "app/menu_table.h"

#include "law/law_year.h"
#include "statements/sections.h"

#include <stdexcept>

namespace morvane {

namespace {

using enum Menu_Action;

constexpr std::array<Menu_Entry, 4> statement_group = {{
    {.name = "Cmd_KsZ1", .caption = "貸借対照表", .action = Open_Panel, .target = "Mnu_KsZTais"},
    {.name = "Cmd_KsZ2", .caption = "損益計算書", .action = Open_Panel, .target = "Mnu_KsZSon"},
    {.name = "Cmd_KsZ3",
     .caption = "変動計算書",
     .target = "Frm_KsHendo",
     .screen_no = 58,
     .title = "変動計算書",
     .corporation_only = true},
    {.name = "Cmd_KsZ4",
     .caption = "　前期･前々期　データ",
     .target = "Frm_KsZenki",
     .role = Form_Role::Prior_Figures,
     .screen_no = 40,
     .title = "前期･前々期データ"},
}};

constexpr std::array<Menu_Entry, 4> simulation_group = {{
    {.name = "Cmd_Sim1", .caption = "現状分析", .action = Open_Panel, .target = "Mnu_GBun"},
    {.name = "Cmd_Sim2", .caption = "改善ｼﾐｭﾚｰｼｮﾝ", .action = Open_Panel, .target = "Mnu_UpSim"},
    {.name = "Cmd_Sim3",
     .caption = "前期比較",
     .action = Open_Panel,
     .target = "Mnu_Zenki",
     .gates = {Gate::Prior_Period}},
    {.name = "Cmd_Sim4", .caption = "格付ｼﾐｭﾚｰｼｮﾝ", .target = "Frm_Kakuduke"},
}};

constexpr std::array<Menu_Entry, 5> other_group = {{
    {.name = "Cmd_Hojyo1", .caption = "決算期処理", .target = "Frm_KsSitei"},
    {.name = "Cmd_Hojyo2", .caption = "データ送受信", .action = Open_Panel, .target = "Mnu_Sojyu"},
    {.name = "Cmd_Hojyo3", .caption = "データ保守", .target = "Frm_DtHosyu", .always = true},
    {.name = "Cmd_Hojyo4",
     .caption = "自社情報",
     .target = "Frm_Jgmas",
     .role = Form_Role::Own_Company,
     .multi_caption = "事業所情報"},
    {.name = "Cmd_End", .caption = "終了", .action = End, .always = true},
}};

constexpr std::array<Menu_Group, 3> groups = {{
    {"建設業財務諸表", statement_group},
    {"シミュレーション", simulation_group},
    {"補助処理", other_group},
}};

/// The entry of a section of the statements, which has its titles and accounts itself.
constexpr Menu_Entry Statement(const char* name, const char* caption, std::uint8_t screen_no,
                               const char* kojin_caption = nullptr) {
    return {.name = name,
            .caption = caption,
            .target = "Frm_KsZaihyo",
            .role = Form_Role::Statement,
            .screen_no = screen_no,
            .kojin_caption = kojin_caption};
}

constexpr Menu_Entry For_Corporation(Menu_Entry entry) {
    entry.corporation_only = true;
    return entry;
}

constexpr Menu_Entry Print_Statements(const char* name) {
    return {.name = name, .caption = "印刷", .target = "Frm_PrKSZaiSti"};
}

constexpr Menu_Entry Close(const char* name) {
    return {.name = name, .caption = "閉じる", .action = Close_Panel};
}

constexpr std::array<Menu_Entry, 7> balance_sheet = {{
    Statement("Cmd_KsT(0)", "流動資産", 41),
    Statement("Cmd_KsT(1)", "有形固定資産  減価償却", 42),
    Statement("Cmd_KsT(2)", "無形固定資産  ～繰延資産", 43, " 無形固定資産  投資等"),
    Statement("Cmd_KsT(3)", "流動・固定負債", 44),
    Statement("Cmd_KsT(4)", "資本金、剰余金", 45, "  期首資本金  事業主勘定"),
    Print_Statements("Cmd_KsT(5)"),
    Close("Cmd_KsT(6)"),
}};

constexpr std::array<Menu_Entry, 8> income_statement = {{
    Statement("Cmd_KsS(0)", "売上高", 46),
    Statement("Cmd_KsS(1)", "一般管理費", 47),
    Statement("Cmd_KsS(2)", "営業外損益", 48),
    For_Corporation(Statement("Cmd_KsS(3)", "特別損益  損益処理", 49)),
    Statement("Cmd_KsS(4)", "完成工事原価報告書", 50),
    Statement("Cmd_KsS(5)", " 兼業売上原価  報告書", 51),
    Print_Statements("Cmd_KsS(6)"),
    Close("Cmd_KsS(7)"),
}};

// Present data have no accounts for the appropriation of profit, and no button leads here.
constexpr std::array<Menu_Entry, 3> appropriation = {{
    {.name = "Cmd_KsRs(0)", .caption = "利益処分", .target = "Frm_KsZaihyo", .screen_no = 52},
    Print_Statements("Cmd_KsRs(1)"),
    Close("Cmd_KsRs(2)"),
}};

constexpr std::array<Menu_Entry, 6> current_state = {{
    {.name = "Cmd_GB(0)",
     .caption = "経営状況（Ｙ）",
     .target = "Frm_Keiei",
     .screen_no = 53,
     .title = "現状分析－経営状況（Ｙ）",
     .gates = {Gate::Statement}},
    {.name = "Cmd_GB(1)",
     .caption = "利益額・その他（Ｘ２、Ｗ）",
     .role = Form_Role::X2W_Entry,
     .screen_no = 54,
     .title = "現状分析－自己資本額・平均利益額・その他（Ｘ２、Ｗ）"},
    {.name = "Cmd_GB(2)",
     .caption = "完工高･技術者（Ｐ、Ｘ１、Ｚ）",
     .target = "Frm_Kanko",
     .screen_no = 55,
     .title = "現状分析－完工高・技術職員数（Ｐ，Ｘ１，Ｚ）"},
    {.name = "Cmd_GB(3)",
     .caption = "激変緩和比較",
     .target = "Frm_Gekihen",
     .screen_no = 56,
     .title = "現状分析－激変緩和措置比較",
     .gates = {Gate::Completed_Work, Gate::Y, Gate::X2W}},
    {.name = "Cmd_GB(4)",
     .caption = " 点数ｱｯﾌﾟ ｺﾝｻﾙﾃｰｼｮﾝ",
     .target = "Frm_Ychart",
     .screen_no = 57,
     .title = "現状分析－点数アップコンサル",
     .gates = {Gate::Y_Short}},
    Close("Cmd_GB(5)"),
}};

constexpr std::array<Menu_Entry, 6> improvement = {{
    {.name = "Cmd_UpS(0)", .caption = "財務改善", .target = "Frm_KsZaiUP", .role = Form_Role::Journal},
    {.name = "Cmd_UpS(1)",
     .caption = "経営状況（Ｙ）",
     .target = "Frm_KeieiKz",
     .screen_no = 72,
     .title = "改善シミュレーション－経営状況（Ｙ）",
     .gates = {Gate::Statement}},
    {.name = "Cmd_UpS(2)",
     .caption = "利益額・その他（Ｘ２、Ｗ）",
     .role = Form_Role::X2W_Improved,
     .screen_no = 73,
     .title = "改善シミュレーション－自己資本額・平均利益額・その他（Ｘ２、Ｗ）",
     .gates = {Gate::Current_X2W}},
    {.name = "Cmd_UpS(3)",
     .caption = "完工高･技術者（Ｐ、Ｘ１、Ｚ）",
     .target = "Frm_KankoKaiz",
     .screen_no = 74,
     .title = "改善シミュレーション－完工高・技術職員数（Ｐ，Ｘ１，Ｚ）",
     .gates = {Gate::Current_X2W, Gate::Improved_X2W}},
    {.name = "Cmd_UpS(4)", .caption = "  改善後複写 保存･呼出", .target = "Frm_KzCopy"},
    Close("Cmd_UpS(5)"),
}};

constexpr std::array<Menu_Entry, 4> prior_period = {{
    {.name = "Cmd_ZkH(0)",
     .caption = "経営状況（Ｙ）",
     .target = "Frm_KeieiKz",
     .screen_no = 75,
     .title = "前期比較－経営状況（Ｙ）"},
    {.name = "Cmd_ZkH(1)",
     .caption = "利益額・その他（Ｘ２、Ｗ）",
     .role = Form_Role::X2W_Comparison,
     .screen_no = 76,
     .title = "前期比較－従事職員数・その他（Ｘ２、Ｗ）"},
    {.name = "Cmd_ZkH(2)",
     .caption = "完工高･技術者（Ｐ、Ｘ１、Ｚ）",
     .target = "Frm_KankoKaizzen",
     .screen_no = 77,
     .title = "前期比較－完工高・技術職員数（Ｐ，Ｘ１，Ｚ）"},
    Close("Cmd_ZkH(3)"),
}};

constexpr std::array<Menu_Entry, 4> exchange = {{
    {.name = "Cmd_Sojyu(0)", .caption = "チェック依頼", .target = "Frm_MlSend"},
    {.name = "Cmd_Sojyu(1)", .caption = "データ送信", .target = "Frm_DtSend"},
    {.name = "Cmd_Sojyu(2)", .caption = "データ受信", .target = "Frm_DtRec"},
    Close("Cmd_Sojyu(3)"),
}};

constexpr std::array<Menu_Panel, 7> panels = {{
    {"Mnu_KsZTais", "貸借対照表", {}, "", balance_sheet, true},
    {"Mnu_KsZSon", "損益計算書", {}, "", income_statement, true},
    {"Mnu_KsZRis", "利益処分", {}, "", appropriation, true},
    {"Mnu_GBun", "現状分析", Sim_Mode::Current, "", current_state},
    {"Mnu_UpSim", "改善ｼﾐｭﾚｰｼｮﾝ", Sim_Mode::Improvement, "改善シミュレーション", improvement},
    {"Mnu_Zenki", "前期比較", Sim_Mode::Prior_Period, "前期比較", prior_period},
    {"Mnu_Sojyu", "データ送受信", {}, "", exchange},
}};

std::string Title_Of(const Menu_Entry& entry, const Session& session) {
    const Account_Section* section = Section_Of_Screen(entry.screen_no);
    return section == nullptr ? entry.title : section->Title(session.Kind().type, session.Data_Ver);
}

} // namespace

std::span<const Menu_Group> Menu_Groups() {
    return groups;
}

std::span<const Menu_Panel> Menu_Panels() {
    return panels;
}

const Menu_Panel& Panel_Of(std::string_view name) {
    for (const Menu_Panel& panel : panels) {
        if (name == panel.name) {
            return panel;
        }
    }
    throw std::out_of_range("no panel " + std::string(name));
}

std::string Caption_Of(const Menu_Entry& entry, const Session& session) {
    if (session.Is_Multi() && entry.multi_caption != nullptr) {
        return entry.multi_caption;
    }
    return session.Is_Individual() && entry.kojin_caption != nullptr ? entry.kojin_caption : entry.caption;
}

std::string Caption_After_Registration(const Session& session) {
    return Is_Before_2008(session.Data_Ver) ? "変動計算書" : "利益処分";
}

std::string Form_Of(const Menu_Entry& entry, const Session& session) {
    const bool corporation = session.Is_Corporation();
    const Law_Year& law = Law_Of(session.Simyu_Kubun);
    switch (entry.role) {
    case Form_Role::Fixed:
        return entry.target;
    case Form_Role::Statement:
        return corporation ? "Frm_KsZaihyo" : "Frm_KsZaihyoKJ";
    case Form_Role::Prior_Figures:
        return corporation ? "Frm_KsZenki" : "Frm_KsZenkiKJ";
    case Form_Role::Journal:
        return corporation ? "Frm_KsZaiUP" : "Frm_KsZaiUPKJ";
    case Form_Role::X2W_Entry:
        return law.entry_form;
    case Form_Role::X2W_Improved:
        return law.improved_form;
    case Form_Role::X2W_Comparison:
        return law.comparison_form;
    case Form_Role::Own_Company:
        return session.Is_Multi() ? "Frm_JgNew" : "Frm_Jgmas";
    }
    return entry.target;
}

bool Is_Enabled(const Menu_Entry& entry, const Session& session) {
    const bool has_company = !session.Is_Multi() || session.Kanri_No != 0;
    if (!has_company && !entry.always) {
        return false;
    }
    return !entry.corporation_only || !session.Is_Individual();
}

bool Enter_Panel(const Session& session, Menu_State& menu, const Menu_Entry& opener) {
    if (!Pass_Gates(session, opener.gates)) {
        return false;
    }
    const Menu_Panel& panel = Panel_Of(opener.target);
    menu.mode = panel.sim_mode.value_or(menu.mode);
    if (*panel.sim_title != 0) {
        menu.sim_title = panel.sim_title;
    }
    return true;
}

bool Enter_Screen(const Session& session, Menu_State& menu, const Menu_Entry& entry) {
    if (!Pass_Gates(session, entry.gates)) {
        return false;
    }
    if (entry.screen_no != 0) {
        menu.screen = {entry.screen_no, Title_Of(entry, session)};
    }
    return true;
}

bool Enter_Other_Firm(const Session& session, Menu_State& menu) {
    menu.mode = Sim_Mode::Other_Firm;
    menu.screen.title = "他社比較－経営状況（Ｙ）";
    return Pass_Gates(session, std::array{Gate::Statement_Other});
}

} // namespace morvane
