// SPDX-FileCopyrightText: The Morvane developers
#include "company/data_set.h"

#include "company/law_change.h"
#include "company/table_edit.h"
#include "data/store_file.h"
#include "data/table_catalogue.h"
#include "data/work_columns.h"
#include "law/accounts.h"
#include "law/elements.h"
#include "law/era_date.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"
#include "statements/z_zzen_get.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <vector>

namespace morvane {

namespace {

// The items that stand from year to year: insurances and schemes, years in business, agreements, accounting
// staff, research cost.
constexpr std::array standing_elements = {
    element::welfare,     element::welfare + 1,       element::welfare + 2,        element::welfare + 3,
    element::welfare + 4, element::years_in_business, element::disaster_agreement, element::compliance,
    element::audit,       element::accountants_1,     element::accountants_2,      element::research_before,
    element::research};

/// What a column of the statement takes from the chart of a firm type ("法人", "個人").
std::string Source_In_Chart(const Table_Info& chart, const std::string& type, const std::string& column) {
    if (column == "決算期") {
        return "?";
    }
    if (column == "建設科目名") {
        return type + "科目名";
    }
    if (column == "非表示識別" || column == "非印刷識別") {
        return type + column;
    }
    const bool has = std::any_of(chart.columns.begin(), chart.columns.end(),
                                 [&](const Column_Info& info) { return info.name == column; });
    return has ? column : "Null";
}

// ---- the parts of Period_Copy

struct Copy_Job {
    const Connection& cn;
    const Session& session;
    int new_period;
    int source;
    bool after;
};

void Copy_Works(const Copy_Job& job) {
    // New column, source column of the neighbour.
    static constexpr std::array<std::pair<const char*, const char*>, 9> rolled = {{
        {work_column::before_last, work_column::last},
        {work_column::last, work_column::base},
        {work_column::prime_before_last, work_column::prime_last},
        {work_column::prime_last, work_column::prime_base},
        {work_column::engineers_1, work_column::engineers_1},
        {work_column::engineers_2, work_column::engineers_2},
        {work_column::engineers_3, work_column::engineers_3},
        {work_column::engineers_4, work_column::engineers_4},
        {work_column::engineers_5, work_column::engineers_5},
    }};
    std::string columns;
    std::string sources;
    if (job.after) {
        for (const auto& [column, from] : rolled) {
            columns += std::string(", ") + column;
            sources += std::string(", ") + from;
        }
    }
    job.cn.Execute("INSERT INTO Kandaka_Gj (決算期, 工種CD, 工種略" + columns + ") SELECT ?, 工種CD, 工種略" +
                       sources + " FROM Kandaka_Gj WHERE 決算期=?",
                   job.new_period, job.source);
}

void Copy_Elements(const Copy_Job& job) {
    const auto has = [&job](int code) { return Has_Element(job.cn, job.source, code); };
    const auto copy_figure = [&job](int code) {
        job.cn.Execute("UPDATE W_Yoso SET 現状 = (SELECT 現状 FROM W_Yoso WHERE 決算期=? And 要素CD=?) "
                       "WHERE 決算期=? And 要素CD=?",
                       job.source, code, job.new_period, code);
    };
    job.cn.Execute("INSERT INTO W_Yoso (決算期, 要素CD, 要素名) SELECT ?, 要素CD, 要素名 FROM W_Yoso "
                   "WHERE 決算期=?",
                   job.new_period, job.source);
    std::for_each(standing_elements.begin(), standing_elements.end(), copy_figure);
    if (!has(element::law_year)) {
        Add_Law_Rows(job.cn, job.new_period);
    }
    if (!has(element::welfare_last)) {
        copy_figure(element::waiting_pension);
        Make_Room_For_Pension(job.cn, job.new_period);
    }
    if (!has(element::engineers)) {
        Add_Young_Engineer_Rows(job.cn, job.new_period);
        Put_Law_Year(job.cn, job.new_period, Newest_Law_Year().code);
    }
}

void Copy_Notes(const Copy_Job& job) {
    if (job.cn.Open("SELECT QNo FROM QandA WHERE 決算期=? LIMIT 1", job.source).Eof()) {
        job.cn.Execute("UPDATE QandA SET 決算期 = ? WHERE 決算期=1", job.new_period);
        return;
    }
    job.cn.Execute(
        "INSERT INTO QandA (決算期, QNo, タイトル) SELECT ?, QNo, タイトル FROM QandA WHERE 決算期=?",
        job.new_period, job.source);
}

void Test_Periods(const Connection& cn, int new_period, int source) {
    const auto registered = [&](int period) {
        return !cn.Open("SELECT * FROM Ks_ki WHERE 決算期=?", period).Eof();
    };
    if (registered(new_period)) {
        throw Store_Error(cn.File(), Store_Error::Reason::Bad_Content,
                          "第" + std::to_string(new_period) + "期は既に登録されています");
    }
    if (!registered(source)) {
        throw Store_Error(cn.File(), Store_Error::Reason::Bad_Content,
                          "第" + std::to_string(source) + "期が登録されていません");
    }
}

} // namespace

void Report_Bad_Template(const Session& session) {
    Show_Message(session, {.title = "データ異常",
                           .text = "データファイルが異常です。\n\nユーザーサポートまでご連絡下さい。",
                           .beep = true});
}

Recordset Blank_Statement(const Connection& master, Firm_Kind kind, std::int16_t period) {
    const Table_Info& chart =
        Table_Of(Store_Kind::Master, kind.Is_Hokkaido() ? "Ks_Zaihyo_Hk_new" : "Ks_Zaihyo_Zk_new");
    std::string columns;
    for (const Column_Info& column : Table_Of(Store_Kind::Company, "Ks_Zaihyo").columns) {
        columns += (columns.empty() ? "" : ", ") +
                   Source_In_Chart(chart, kind.Is_Corporation() ? "法人" : "個人", column.name) + " AS " +
                   column.name;
    }
    Recordset rows =
        master.Open("SELECT " + columns + " FROM " + chart.name + " ORDER BY 建設科目CD", period);
    rows.Part();
    const auto put = [&rows](Account account, const char* column, int value) {
        if (rows.Find("建設科目CD", Code(account))) {
            rows.Set(column, value);
        }
    };
    put(Account::Data_Form, "並び順", Number_Of(Present_Form(kind.edition)));
    // The line of the retirement allowance is free for an individual's own provision.
    if (!kind.Is_Corporation()) {
        put(Account::Retirement_Allowance, "科目編集識別", -1);
    }
    return rows;
}

bool Fill_Blank_Company(const Connection& cn, const Recordset& statement, std::int16_t period) {
    // A template of another edition or of another time is none.
    const std::size_t accounts = cn.Open("SELECT 建設科目CD FROM Ks_Zaihyo").Count();
    cn.Execute("DELETE FROM Ks_Zaihyo");
    if (accounts == 0 || statement.Count() != accounts) {
        return false;
    }
    statement.Insert_Into(cn, "Ks_Zaihyo");
    for (const char* table : {"Kandaka_Gj", "W_Yoso", "QandA"}) {
        cn.Execute(std::string("UPDATE ") + table + " SET 決算期 = ?", period);
    }
    Put_Law_Year(cn, period, Newest_Law_Year().code);
    cn.Execute("INSERT INTO Ks_ki (決算期) VALUES (?)", period);
    return true;
}

bool New_Data_Set(Session& session, Firm_Type type, std::int16_t period) {
    // All of it happens on a draft beside the working store, which takes its place whole.
    File_Replacement replacement = File_Replacement::With_Draft(Find_File(session.App_Path, "morv_set.dat"),
                                                                session.Work_Store, session.Db_Key);
    const bool filled = replacement.Change(session.Db_Key, [&](const Connection& cn) {
        const Firm_Kind kind = {session.Kind().edition, type};
        return Fill_Blank_Company(cn, Blank_Statement(Cn_Open_Org(session), kind, period), period);
    });
    if (!filled) {
        Report_Bad_Template(session);
        return false;
    }
    replacement.Commit();
    session.Data_Ver = Present_Form(session.Kind().edition);
    return true;
}

void Take_Period(const Connection& cn, int period, int former) {
    Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
    if (firm.Eof()) {
        return;
    }
    firm.Set("処理決算期", period);
    for (const std::string end : {"開始", "終了"}) {
        const std::string column = "決算期" + end;
        if (firm[column + "年"].Is_Null()) {
            continue;
        }
        // A fiscal period is one year.
        const Era_Date moved =
            Shift_Years({firm[column + "年"].As_Integer(), firm[column + "月"].As_Integer(),
                         firm[column + "日"].As_Integer()},
                        period - former);
        firm.Set(column + "年", moved.year);
        if (!firm[column + "日"].Is_Null()) {
            firm.Set(column + "日", moved.day);
        }
    }
    firm.Update();
}

bool Period_Copy(Session& session, std::int16_t new_period, std::int16_t base_period, Copy_Mode mode,
                 std::optional<Law_Year_No> law_year) {
    Session next = session;
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    const Recordset statement = Blank_Statement(Cn_Open_Org(session), session.Kind(), new_period);
    if (statement.Count() == 0) {
        Report_Bad_Template(session);
        return false;
    }
    Period_Copy(cn, statement, next, new_period, base_period, mode, law_year);
    transaction.Commit();
    session = next;
    return true;
}

void Period_Copy(const Connection& cn, const Recordset& statement, Session& session, std::int16_t new_period,
                 std::int16_t base_period, Copy_Mode mode, std::optional<Law_Year_No> law_year) {
    Session next = session;
    next.Data_Ver = Present_Form(session.Kind().edition);
    next.Syori_Ki = new_period;
    const bool after = mode == Copy_Mode::After;
    const Copy_Job job{cn, next, new_period, new_period - (after ? 1 : -1), after};
    Test_Periods(cn, new_period, job.source);
    // Rows of a period that is registered no more (a change of firm type leaves elements) stand in the way.
    for (const char* table : {"Ks_Zaihyo", "Kandaka_Gj", "W_Yoso"}) {
        cn.Execute(std::string("DELETE FROM ") + table + " WHERE 決算期=?", new_period);
    }
    cn.Execute("INSERT INTO Ks_Ki (決算期) VALUES (?)", new_period);
    Take_Period(cn, new_period, base_period);
    statement.Insert_Into(cn, "Ks_Zaihyo");
    if (!after) {
        Fill_Prior_Figures(cn, session.Kind().edition, new_period);
    }
    Copy_Works(job);
    Copy_Elements(job);
    Copy_Notes(job);
    if (law_year) {
        Set_Law_Year(cn, new_period, *law_year);
    }
    // A source that was never in hand under the present tables lacks rows, and with the first period of the
    // present form the store may lack columns.
    Table_Edit(cn, next);
    next.Simyu_Kubun = Get_Simyu_Kubun(cn, new_period);
    session = next;
}

} // namespace morvane
