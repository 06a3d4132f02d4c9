// SPDX-FileCopyrightText: The Morvane developers
#include "batch/case_file.h"

#include "batch/case_format.h"
#include "batch/installation.h"
#include "company/company_identity.h"
#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/law_change.h"
#include "company/pending_work.h"
#include "company/register.h"
#include "data/shown_text.h"
#include "data/store_file.h"
#include "law/accounts.h"
#include "law/run_time_error.h"
#include "review/settle.h"
#include "statements/z_zzen_get.h"
#include "statements/zaimu_calc.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace morvane {

namespace fs = std::filesystem;

namespace {

/// The lines of tangible assets that show cost less accumulated depreciation: cost, depreciation and book
/// value follow each other. The statement screen forms them while it is keyed; a case brings the other two.
void Form_Book_Values(Recordset& rows) {
    for (const Book_Value_Lines& lines : book_value_lines) {
        const auto amount = [&](Account of) {
            return rows.Find("建設科目CD", Code(of)) ? rows["金額"] : Value();
        };
        const Value cost = amount(lines.cost);
        const Value depreciation = amount(lines.depreciation);
        if ((!cost.Is_Null() || !depreciation.Is_Null()) && rows.Find("建設科目CD", Code(lines.book_value))) {
            rows.Set("金額", cost.As_Double() - depreciation.As_Double());
        }
    }
}

/// Fills a copy of the empty company store with a case, within the transaction of the caller: the statements
/// are formed in memory and inserted with all that follows from them, the items are put into their rows, and
/// the scores are settled.
class Case_Builder {
  public:
    Case_Builder(const Connection& store, const Session& installation, const Case_Record& record)
        : cn(store), session(installation), source(record) {
        session.Hojin_Kojin = Firm_Type_Of(record.firm.at("法人個人識別").As_Integer());
    }

    void Build() {
        Form_Statements();
        Make_Periods();
        Put_Items();
        Put_Company();
        Settle_Scores();
    }

    /// Why scores could not be computed, one text for each period and scenario.
    std::vector<std::string> unsettled;

  private:
    void Form_Statements() {
        const Firm_Kind kind = session.Kind();
        const Recordset blank = Blank_Statement(Cn_Open_Org(session), kind, 0);
        Test_Template(blank.Count() > 0);
        for (const Case_Period& period : source.periods) {
            Recordset& rows = statements.emplace_back(blank);
            for (rows.Move_First(); !rows.Eof(); rows.Move_Next()) {
                rows.Set("決算期", static_cast<int>(period.number));
            }
            source.Put_Table(rows, period, Case_Table::Ks_Zaihyo);
            Form_Book_Values(rows);
            Zaimu_Shukei(rows, kind, Amount_Column::Current);
        }
        Fill_Prior_Figures(statements, Present_Form(kind.edition));
        for (std::size_t i = 0; i < statements.size(); ++i) {
            const Case_Period& period = source.periods[i];
            source.Put_Prior_Figures(statements[i], period);
            // As leaving the statement screens does; a balance that the case gives itself then stands.
            Zaimu_Shukei_KK(statements[i], kind);
            if (source.Gives_Amounts(period, Columns_Of(Scenario::Kaizen).zaihyo)) {
                source.Put_Balances(statements[i], period);
                Zaimu_Shukei(statements[i], kind, Amount_Column::Improved);
            }
            Form_Saved_Balances(statements[i], period);
        }
    }

    /// A saved journal leads to its balances where the case does not give these, too.
    void Form_Saved_Balances(Recordset& rows, const Case_Period& period) const {
        for (const Scenario slot : {Scenario::Slot_1, Scenario::Slot_2, Scenario::Slot_3}) {
            const Side_Columns& names = Columns_Of(slot);
            const auto gives = [&](std::string_view column) { return source.Gives_Amounts(period, column); };
            if ((gives(names.debit) || gives(names.credit)) && !gives(names.zaihyo)) {
                Zaimu_Shukei_KK(rows, session.Kind(), {names.debit, names.credit, names.zaihyo});
            }
        }
    }

    // All periods are made before any item stands in them, so that none takes one over: absent is Null.
    void Make_Periods() {
        session.Syori_Ki = source.periods.front().number;
        Test_Template(Fill_Blank_Company(cn, statements.front(), session.Syori_Ki));
        for (std::size_t i = 1; i < statements.size(); ++i) {
            Period_Copy(cn, statements[i], session, source.periods[i].number, session.Syori_Ki,
                        Copy_Mode::After);
        }
        for (const Case_Period& period : source.periods) {
            Set_Law_Year(cn, period.number, period.law_year);
        }
    }

    void Test_Template(bool fits) const {
        if (!fits) {
            Report_Bad_Template(session);
            throw Store_Error(session.App_Path / "morv_org.dat", Store_Error::Reason::Bad_Content,
                              "科目の数がひな形と合いません");
        }
    }

    void Put_Items() {
        for (const Case_Period& period : source.periods) {
            for (const Case_Table table : {Case_Table::Kandaka_Gj, Case_Table::W_Yoso, Case_Table::QandA}) {
                source.Put_Table(cn, period, table);
            }
        }
    }

    void Put_Company() {
        cn.Execute("DELETE FROM Jigyo_mas");
        Recordset firm = cn.Open("SELECT * FROM Jigyo_mas");
        firm.Add_New();
        for (const auto& [column, value] : source.firm) {
            firm.Set(column, value);
        }
        firm.Update();
    }

    // What cannot be computed is kept as it was given, to be mended on the screens. A scenario that the case
    // does not give is not filled.
    void Settle_Scores() {
        for (const Case_Period& period : source.periods) {
            for (const Scenario scenario : every_scenario) {
                if (scenario != Scenario::Genjo && !source.Gives_Figures(period, scenario)) {
                    continue;
                }
                try {
                    Transaction transaction(cn);
                    Settle_Filled(cn, {period.number, scenario}, session.Kind());
                    transaction.Commit();
                } catch (const Run_Time_Error& error) {
                    unsettled.push_back("第" + std::to_string(period.number) + "期（" +
                                        std::string(Columns_Of(scenario).name) + "）：" + error.what());
                }
            }
        }
    }

    const Connection& cn;
    Session session;
    const Case_Record& source;
    std::vector<Recordset> statements; ///< of the periods, in memory
};

std::string Text_Of(const Case_Record& record, const char* column) {
    const auto found = record.firm.find(column);
    return found == record.firm.end() ? std::string() : found->second.As_Text();
}

std::int32_t Number_Of_Case(const Case_Record& record) {
    return static_cast<std::int32_t>(record.firm.at("管理No").As_Integer());
}

/// Where the company of a case is put.
fs::path Target_Of(const Session& session, const Case_Record& record) {
    return session.Is_Multi() ? Company_Store(session, Number_Of_Case(record)) : session.Work_Store;
}

// A company must not take the place of another one, neither its number nor its file.
void Test_Number(const Session& session, const fs::path& file, std::int32_t number) {
    const auto refuse = [&file](const std::string& reason) {
        throw Case_Error(file, "Jigyo_mas.管理No", reason);
    };
    if (number == 0) {
        refuse("使用できない番号です。");
    }
    if (Company_Left_In_Hand(session) == number) {
        refuse("前回の異常終了で指定中の事業所です。「Morvane」を起動して保存してから実行してください。");
    }
    const fs::path target = Company_Store(session, number);
    if (!Is_There(target)) {
        return;
    }
    for (const Register_Row& row : Read_Register(session)) {
        if (row.number != number && Company_Store(session, row.number) == target) {
            refuse("下6桁が事業所「" + std::to_string(row.number) + "」と同じため、使用できない番号です。");
        }
    }
    const Store_Identity there = Identity_Of(Connection(target, session.Db_Key, Connection::Mode::Read_Only));
    if (const std::string fault = Identity_Fault(session, there, number); !fault.empty()) {
        refuse("置き換える先のファイル「" + target.string() + "」は、" + fault +
               "。置き換えませんでした。ファイルの名前を確かめてから実行してください。");
    }
}

/// A company of a case beside its place.
struct Built_Case {
    Imported imported;
    Registered_Store store;
};

Built_Case Build_Case(const Session& session, const Case_Record& record) {
    if (record.edition != session.Tiiki_CD) {
        throw Case_Error(record.file, "Tiiki_CD",
                         "地域CD「" + Code_Of(record.edition) + "」はこのデータフォルダの「" +
                             Code_Of(session.Tiiki_CD) + "」と違います。");
    }
    const std::int32_t number = Number_Of_Case(record);
    if (session.Is_Multi()) {
        Test_Number(session, record.file, number);
    }
    const fs::path target = Target_Of(session, record);
    Imported imported{number, Text_Of(record, "事業所名"), session.Is_Multi() && Is_There(target), {}};
    File_Replacement replacement =
        File_Replacement::With_Draft(Find_File(session.App_Path, "morv_set.dat"), target, session.Db_Key);
    replacement.Change(session.Db_Key, [&](const Connection& cn) {
        Case_Builder builder(cn, session, record);
        builder.Build();
        imported.unsettled = std::move(builder.unsettled);
        return true;
    });
    Keep_Backup(target, session.Db_Key);
    return {imported, {{number, imported.name, Text_Of(record, "事業所カナ名")}, std::move(replacement)}};
}

/// Cases whose companies are put in place together.
class Import_Block {
  public:
    Import_Block(const Session& of, const std::function<void(const Import_End&)>& to)
        : session(of), tell(to) {}

    void Take(const fs::path& file) {
        try {
            const Case_Record record = Read_Case(file);
            const fs::path target = Target_Of(session, record);
            // One for a company of this block finds that in its place.
            if (files.size() == most || std::find(targets.begin(), targets.end(), target) != targets.end()) {
                Put_In_Place();
            }
            Built_Case built = Build_Case(session, record);
            stores.push_back(std::move(built.store));
            targets.push_back(target);
            files.push_back(file);
            ends.push_back({std::move(built.imported), {}});
        } catch (const std::exception&) {
            Put_In_Place();
            tell({{}, std::current_exception()});
        }
        if (!session.Is_Multi()) {
            Put_In_Place();
        }
    }

    void Put_In_Place() {
        if (files.empty()) {
            return;
        }
        try {
            if (session.Is_Multi()) {
                Put_Registered_Stores(session, stores);
            } else {
                stores.front().store.Commit();
            }
        } catch (const std::exception&) {
            for (std::size_t i = 0; i < files.size(); ++i) {
                ends[i] = Import_Alone(files[i]);
            }
        }
        const std::vector<Import_End> told = std::exchange(ends, {});
        stores.clear();
        targets.clear();
        files.clear();
        std::for_each(told.begin(), told.end(), tell);
    }

  private:
    static constexpr std::size_t most = 16;

    [[nodiscard]] Import_End Import_Alone(const fs::path& file) const {
        try {
            return {Import_Case(session, file), {}};
        } catch (const std::exception&) {
            return {{}, std::current_exception()};
        }
    }

    const Session& session;
    const std::function<void(const Import_End&)>& tell;
    std::vector<fs::path> files;
    std::vector<fs::path> targets;
    std::vector<Registered_Store> stores;
    std::vector<Import_End> ends;
};

} // namespace

Case_Error::Case_Error(const fs::path& file, const std::string& path, const std::string& reason)
    : std::runtime_error("「" + Shown_Text(file.string(), most_path) + "」" +
                         (path.empty() ? "" : " " + Shown_Text(path)) + "：" + reason) {}

Edition Edition_Of_Case(const fs::path& file) {
    return Read_Case(file).edition;
}

Imported Import_Case(const Session& session, const fs::path& file) {
    Built_Case built = Build_Case(session, Read_Case(file));
    if (session.Is_Multi()) {
        Put_Registered_Stores(session, {&built.store, 1});
    } else {
        built.store.store.Commit();
    }
    return std::move(built.imported);
}

void Import_Cases(const Session& session, std::span<const fs::path> files,
                  const std::function<void(const Import_End&)>& tell) {
    Import_Block block(session, tell);
    for (const fs::path& file : files) {
        block.Take(file);
    }
    block.Put_In_Place();
}

} // namespace morvane
