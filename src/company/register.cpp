// SPDX-FileCopyrightText: The Morvane developers
#include "company/register.h"

#include "company/company_identity.h"
#include "company/datacheck.h"
#include "company/pending_work.h"
#include "data/store_file.h"
#include "session/boxes.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr std::array<Kana_Filter, 44> kana_filters = {{
    {"FgA", "ア", "ｱ", 0, 0},  {"FgI", "イ", "ｲ", 0, 1},  {"FgU", "ウ", "ｳ", 0, 2},
    {"FgE", "エ", "ｴ", 0, 3},  {"FgO", "オ", "ｵ", 0, 4},  {"FgKa", "カ", "ｶ", 1, 0},
    {"FgKi", "キ", "ｷ", 1, 1}, {"FgKu", "ク", "ｸ", 1, 2}, {"FgKe", "ケ", "ｹ", 1, 3},
    {"FgKo", "コ", "ｺ", 1, 4}, {"FgSa", "サ", "ｻ", 2, 0}, {"FgSi", "シ", "ｼ", 2, 1},
    {"FgSu", "ス", "ｽ", 2, 2}, {"FgSe", "セ", "ｾ", 2, 3}, {"FgSo", "ソ", "ｿ", 2, 4},
    {"FgTa", "タ", "ﾀ", 3, 0}, {"FgTi", "チ", "ﾁ", 3, 1}, {"FgTu", "ツ", "ﾂ", 3, 2},
    {"FgTe", "テ", "ﾃ", 3, 3}, {"FgTo", "ト", "ﾄ", 3, 4}, {"FgNa", "ナ", "ﾅ", 4, 0},
    {"FgNi", "ニ", "ﾆ", 4, 1}, {"FgNu", "ヌ", "ﾇ", 4, 2}, {"FgNe", "ネ", "ﾈ", 4, 3},
    {"FgNo", "ノ", "ﾉ", 4, 4}, {"FgHa", "ハ", "ﾊ", 5, 0}, {"FgHi", "ヒ", "ﾋ", 5, 1},
    {"FgHu", "フ", "ﾌ", 5, 2}, {"FgHe", "ヘ", "ﾍ", 5, 3}, {"FgHo", "ホ", "ﾎ", 5, 4},
    {"FgMa", "マ", "ﾏ", 6, 0}, {"FgMi", "ミ", "ﾐ", 6, 1}, {"FgMu", "ム", "ﾑ", 6, 2},
    {"FgMe", "メ", "ﾒ", 6, 3}, {"FgMo", "モ", "ﾓ", 6, 4}, {"FgYa", "ヤ", "ﾔ", 7, 0},
    {"FgYu", "ユ", "ﾕ", 7, 2}, {"FgYo", "ヨ", "ﾖ", 7, 4}, {"FgRa", "ラ", "ﾗ", 8, 0},
    {"FgRi", "リ", "ﾘ", 8, 1}, {"FgRu", "ル", "ﾙ", 8, 2}, {"FgRe", "レ", "ﾚ", 8, 3},
    {"FgRo", "ロ", "ﾛ", 8, 4}, {"FgWa", "ワ", "ﾜ", 9, 0},
}};

Connection Open_Register(const Session& session) {
    return {Find_File(session.App_Path, "Jgmas.dat"), session.Db_Key, Connection::Mode::Read_Only};
}

constexpr const char* select_rows = "SELECT 事業所CD, 事業所名, 事業所カナ名 FROM jgmas ";

std::vector<Register_Row> Rows_Of(Statement list) {
    std::vector<Register_Row> rows;
    while (list.Step()) {
        rows.push_back({static_cast<std::int32_t>(list.Integer_At(0)), std::string(list.Text_At(1)),
                        std::string(list.Text_At(2))});
    }
    return rows;
}

void Delete_Row(const Connection& cn, std::int32_t number) {
    cn.Execute("DELETE FROM jgmas WHERE 事業所CD=?", number);
}

bool Report_Not_Deleted(const Session& session, const Store_Error& error) {
    Tell(session, "事業所削除エラー", std::string(error.what()) + "\n事業所は削除されていません。");
    return false;
}

bool Confirm_Deletion(const Session& session, const std::optional<Register_Row>& chosen) {
    if (!chosen) {
        Tell(session, "事業所未指定エラー", "処理する事業所を指定してください。");
        return false;
    }
    if (chosen->number == session.Kanri_No && chosen->number != 0) {
        Tell(session, "事業所削除エラー", "指定中の事業所は削除できません。");
        return false;
    }
    return Ask(session, "事業所データ削除確認",
               "「" + chosen->name +
                   "」の\n全データを削除します。一旦削除すると元には戻せません。\nよろしいですか？");
}

/// The data of another company of the register, whose file bears the wrong name, are not deleted with this
/// one. What cannot be read is nobody's.
void Test_Not_Anothers(const Session& session, const fs::path& store, std::int32_t number) {
    try {
        Open_Company_Store(session, store, number).Close();
    } catch (const Store_Error& error) {
        if (error.reason != Store_Error::Reason::Bad_Content) {
            return;
        }
        const auto own = Identity_Of(Connection(store, session.Db_Key, Connection::Mode::Read_Only)).number;
        if (own && *own != number && Find_Register_Row(session, *own)) {
            throw;
        }
    }
}

/// The data file goes while the register holds the deletion of the row ready. False where it cannot go.
bool Delete_File_And_Row(const Session& session, std::int32_t number) {
    const fs::path store = Company_Store(session, number);
    const bool file_goes = Is_There(store) && !Is_Store_Shared(session, number);
    if (file_goes) {
        Test_Not_Anothers(session, store, number);
    }
    const Connection cn = Cn_Open_Jgmas(session);
    Transaction transaction(cn);
    Delete_Row(cn, number);
    if (file_goes) {
        try {
            Remove_Store(store);
        } catch (const Store_Error& error) {
            if (Is_There(store)) {
                return Report_Not_Deleted(session, error);
            }
        }
    }
    try {
        transaction.Commit();
    } catch (const Store_Error& error) {
        throw Unfinished_Work(error);
    }
    return true;
}

} // namespace

std::span<const Kana_Filter> Kana_Filters() {
    return kana_filters;
}

std::vector<Register_Row> Read_Register(const Session& session, std::string_view initial) {
    const Connection cn = Open_Register(session);
    return Rows_Of(initial.empty()
                       ? cn.Prepare(select_rows + std::string("ORDER BY 事業所CD"))
                       : cn.Prepare(select_rows + std::string("WHERE 事業所カナ名 like ? ORDER BY 事業所CD"),
                                    std::string(initial) + "%"));
}

std::optional<Register_Row> Find_Register_Row(const Session& session, std::int32_t number) {
    const Connection cn = Open_Register(session);
    auto rows = Rows_Of(cn.Prepare(select_rows + std::string("WHERE 事業所CD=?"), number));
    return rows.empty() ? std::nullopt : std::optional(std::move(rows.front()));
}

bool Is_Store_Shared(const Session& session, std::int32_t number) {
    std::string digits = "000000" + std::to_string(number);
    digits.erase(0, digits.size() - 6);
    const Connection cn = Open_Register(session);
    return !cn.Open("SELECT 事業所CD FROM jgmas WHERE 事業所CD<>? And (事業所CD=? Or 事業所CD like ?)",
                    number, digits, "%" + digits)
                .Eof();
}

void Put_Register_Row(const Session& session, const Register_Row& row) {
    Put_Register_Row(session, row, row.number);
}

void Put_Register_Row(const Session& session, const Register_Row& row, std::int32_t former) {
    Change_Register(session, {&row, 1}, {&former, former == row.number ? 0U : 1U});
}

void Remove_Register_Row(const Session& session, std::int32_t number) {
    Change_Register(session, {}, {&number, 1});
}

std::vector<Register_Row> Standing_Rows(const Session& session, std::span<const Register_Row> rows) {
    const Connection cn = Open_Register(session);
    std::vector<Register_Row> standing;
    for (const Register_Row& row : rows) {
        for (Register_Row& found :
             Rows_Of(cn.Prepare(select_rows + std::string("WHERE 事業所CD=?"), row.number))) {
            standing.push_back(std::move(found));
        }
    }
    return standing;
}

void Change_Register(const Session& session, std::span<const Register_Row> rows,
                     std::span<const std::int32_t> gone) {
    const Connection cn = Cn_Open_Jgmas(session);
    Transaction transaction(cn);
    for (const std::int32_t number : gone) {
        Delete_Row(cn, number);
    }
    for (const Register_Row& row : rows) {
        Recordset stored = cn.Open("SELECT * FROM jgmas WHERE 事業所CD=?", row.number);
        if (stored.Eof()) {
            stored.Add_New();
            stored.Set("事業所CD", row.number);
        }
        stored.Set("事業所名", row.name);
        stored.Set("事業所カナ名", row.kana);
        stored.Update();
    }
    transaction.Commit();
}

bool Is_Number_Taken(const Session& session, std::int32_t number, std::int32_t own) {
    if (Find_Register_Row(session, number)) {
        return true;
    }
    const fs::path store = Company_Store(session, number);
    const bool own_file = own != 0 && store == Company_Store(session, own);
    return own_file ? Is_Store_Shared(session, own) : Is_There(store) || Is_Store_Shared(session, number);
}

Taken Take_Company(Session& session, const std::optional<Register_Row>& chosen) {
    if (!chosen) {
        Tell(session, "事業所未指定エラー", "処理する事業所を指定してください。");
        return Taken::Refused;
    }
    // Number 0 is "no company in hand": what is keyed into such a company would never be saved.
    if (chosen->number == 0) {
        Tell(session, "事業所番号エラー", "事業所番号が 0 の事業所は指定できません。");
        return Taken::Refused;
    }
    Check_Out(session, chosen->number, chosen->name);
    if (session.Data_Ver < Data_Form_No::National_2008) {
        Tell(session, "データ異常エラー", "データが2008年より古いため、事業所指定できません。");
        return Taken::Too_Old;
    }
    return Taken::In_Hand;
}

void Start_New_Company(Session& session) {
    if (session.Kanri_No == 0) {
        return;
    }
    Show_Message(session, {.title = "処理中の事業所保存", .text = "処理中の事業所データを一旦保存します。"});
    Check_In_And_Release(session);
}

bool Delete_Company(const Session& session, const std::optional<Register_Row>& chosen,
                    const std::function<void()>& on_deleted) {
    if (!Confirm_Deletion(session, chosen)) {
        return false;
    }
    try {
        Pending_Work pending(session, {.kind = Work_Intent::Kind::Deletion, .row = *chosen});
        try {
            if (!Delete_File_And_Row(session, chosen->number)) {
                return false;
            }
        } catch (const Unfinished_Work&) {
            pending.Leave();
            throw;
        }
    } catch (const Unfinished_Work&) {
        throw;
    } catch (const Store_Error& error) {
        return Report_Not_Deleted(session, error);
    }
    if (on_deleted) {
        on_deleted();
    }
    Show_Message(session, {.title = "事業所削除完了", .text = "指定の事業所データを削除しました。"});
    return true;
}

} // namespace morvane
