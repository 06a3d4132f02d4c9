// SPDX-FileCopyrightText: The Morvane developers
#include "company/pending_work.h"

#include "company/company_identity.h"
#include "company/datacheck.h"
#include "data/json_text.h"
#include "data/store_file.h"
#include "law/checked.h"
#include "session/kidou_ini.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unistd.h>

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr const char* kind_names[] = {"登録", "変更", "削除"};

constexpr const char* further_rows = "同時に登録する事業所";

fs::path Intent_File(const Session& session) {
    return session.App_Path / "pending.json";
}

void Put_Row(Json& record, const Register_Row& row) {
    record["事業所CD"] = row.number;
    record["事業所名"] = row.name;
    record["事業所カナ名"] = row.kana;
}

Register_Row Row_Of(const Json& record) {
    return {Narrow_Double<std::int32_t>(record["事業所CD"].As_Double(), ""), record["事業所名"].As_Text(),
            record["事業所カナ名"].As_Text()};
}

std::string Intent_Text(const Work_Intent& intent) {
    Json record;
    record["処理"] = kind_names[static_cast<std::size_t>(intent.kind)];
    Put_Row(record, intent.row);
    record["変更前CD"] = intent.former;
    Json further = Json::Array();
    for (const Register_Row& row : intent.further) {
        Put_Row(further.Add(Json()), row);
    }
    record[further_rows] = std::move(further);
    // A name of a foreign register may be no valid text; it is then only not found again.
    return record.Text(true) + "\n";
}

std::optional<Work_Intent> Read_Intent(const fs::path& file) {
    const std::string text = Read_Text_File(file);
    try {
        const Json record = Json_Of(text);
        const auto name = record["処理"].As_Text();
        const auto* const kind = std::find(std::begin(kind_names), std::end(kind_names), name);
        if (kind == std::end(kind_names)) {
            return std::nullopt;
        }
        Work_Intent intent{.kind = static_cast<Work_Intent::Kind>(kind - std::begin(kind_names)),
                           .row = Row_Of(record),
                           .former = Narrow_Double<std::int32_t>(record["変更前CD"].As_Double(), "")};
        if (const Json* further = record.Find(further_rows)) { // older intents have none
            for (const Json& row : further->Array_Elements()) {
                intent.further.push_back(Row_Of(row));
            }
        }
        return intent;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

// Without a word where it cannot go: what it tells is done, and finishing that once more changes nothing.
void Remove_Intent(const Session& session) noexcept {
    static_cast<void>(::unlink(Intent_File(session).c_str()));
}

/// Whose a store is; nobody's where it cannot be read.
Store_Identity Told_By(const Session& session, const fs::path& store) {
    try {
        return Identity_Of(Connection(store, session.Db_Key, Connection::Mode::Read_Only));
    } catch (const Store_Error& error) {
        if (!Is_Unreadable(error)) {
            throw;
        }
        return {};
    }
}

bool Is_Store_Of(const Session& session, const fs::path& store, const Register_Row& row) {
    return Told_By(session, store).Is(row.number, row.name, row.kana);
}

// The data file stands whole or not at all, and only of a whole one the row is missing or is the former one.
void Finish_Registration(const Session& session, const Register_Row& row) {
    if (Is_Store_Of(session, Company_Store(session, row.number), row) &&
        Find_Register_Row(session, row.number) != row) {
        Put_Register_Row(session, row);
    }
}

// The working store decides: where it does not say the new number and names, nothing was changed.
void Finish_Change(const Session& session, const Work_Intent& intent) {
    if (!Is_Store_Of(session, session.Work_Store, intent.row)) {
        return;
    }
    const fs::path from = Company_Store(session, intent.former);
    const fs::path to = Company_Store(session, intent.row.number);
    if (from != to && Is_There(from) && !Is_There(to)) {
        Move_Company_Store(session, intent.former, intent.row.number);
    } else if (from != to && Told_By(session, from).number == intent.former &&
               Told_By(session, to).number == intent.row.number) {
        Remove_Store(from);
    }
    const bool former_stands =
        intent.former != intent.row.number && Find_Register_Row(session, intent.former).has_value();
    if (former_stands || Find_Register_Row(session, intent.row.number) != intent.row) {
        Put_Register_Row(session, intent.row, intent.former);
    }
    // A clean marker: the company was saved and released since.
    const Kidou_Marker marker = Read_Kidou_Ini(session.App_Path);
    if (!marker.Is_Clean() && (marker.number != intent.row.number || marker.name != intent.row.name)) {
        Write_Kidou_Ini(session.App_Path, {intent.row.number, intent.row.name});
    }
}

// The data file decides: where it stands, nothing was deleted, and that may have been said.
void Finish_Deletion(const Session& session, const Work_Intent& intent) {
    if (!Is_There(Company_Store(session, intent.row.number)) &&
        Find_Register_Row(session, intent.row.number)) {
        Remove_Register_Row(session, intent.row.number);
    }
}

bool Do_Files_Fit_Register(const Session& session) {
    const std::vector<Register_Row> rows = Read_Register(session);
    const bool files_stand = std::all_of(rows.begin(), rows.end(), [&](const Register_Row& row) {
        return Is_There(Company_Store(session, row.number));
    });
    std::error_code error;
    std::size_t files = 0;
    for (const auto& entry : fs::directory_iterator(session.App_Path / "data", error)) {
        files += entry.path().extension() == ".dat" || entry.path().extension() == ".DAT" ? 1U : 0U;
    }
    const Kidou_Marker marker = Read_Kidou_Ini(session.App_Path);
    return files_stand && files <= rows.size() &&
           (marker.Is_Clean() || Find_Register_Row(session, marker.number).has_value());
}

} // namespace

Pending_Work::Pending_Work(const Session& the_session, const Work_Intent& intent) : session(the_session) {
    Finish_Pending_Work(session);
    try {
        Write_Text_File(Intent_File(session), Intent_Text(intent));
    } catch (...) {
        Remove_Intent(session);
        throw;
    }
}

Pending_Work::~Pending_Work() {
    if (!left) {
        Remove_Intent(session);
    }
}

void Pending_Work::Do(const std::function<void()>& step, std::function<void()> back) {
    ways_back.push_back(std::move(back));
    try {
        step();
    } catch (const Store_Error&) {
        try {
            for (; !ways_back.empty(); ways_back.pop_back()) {
                ways_back.back()();
            }
        } catch (const Store_Error& error) {
            Leave();
            throw Unfinished_Work(error);
        }
        throw;
    }
}

void Put_Registered_Stores(const Session& session, std::span<Registered_Store> stores) {
    std::vector<Register_Row> rows;
    std::vector<std::int32_t> numbers;
    for (const Registered_Store& put : stores) {
        rows.push_back(put.row);
        numbers.push_back(put.row.number);
    }
    const std::vector<Register_Row> former = Standing_Rows(session, rows);
    Pending_Work pending(session, {.kind = Work_Intent::Kind::Registration,
                                   .row = rows.front(),
                                   .further = {rows.begin() + 1, rows.end()}});
    for (Registered_Store& put : stores) {
        pending.Do([&] { put.store.Commit(); }, [&] { put.store.Undo(); });
    }
    pending.Do([&] { former == rows ? void() : Change_Register(session, rows); },
               [&] {
                   if (Standing_Rows(session, rows) != former) {
                       Change_Register(session, former, numbers);
                   }
               });
}

void Move_Company_Store(const Session& session, std::int32_t former, std::int32_t number) {
    const fs::path from = Company_Store(session, former);
    const fs::path to = Company_Store(session, number);
    if (Is_There(to)) {
        throw Store_Error(to, Store_Error::Reason::Failed, "同じ名前のファイルが既にあります");
    }
    Open_Company_Store(session, from, former).Close();
    File_Replacement moved = File_Replacement::With_Draft(from, to, session.Db_Key);
    moved.Change(session.Db_Key, [number](const Connection& cn) {
        cn.Execute("UPDATE Jigyo_mas SET 管理No = ?", number);
        return true;
    });
    moved.Commit();
    Remove_Store(from);
}

void Finish_Pending_Work(const Session& session) {
    const fs::path file = Intent_File(session);
    if (!session.Is_Multi() || !Is_There(file)) {
        return;
    }
    const std::optional<Work_Intent> intent = Read_Intent(file);
    // The file is written whole or not at all: one that cannot be read was harmed from outside. Where
    // register and files fit together, whatever it told was done or not begun, and it is dropped; else a
    // person must look at it.
    if (!intent && !Do_Files_Fit_Register(session)) {
        throw Store_Error(file, Store_Error::Reason::Bad_Content,
                          "事業所一覧とデータファイルが一致していません");
    }
    if (intent && intent->kind == Work_Intent::Kind::Registration) {
        Finish_Registration(session, intent->row);
        for (const Register_Row& row : intent->further) {
            Finish_Registration(session, row);
        }
    } else if (intent && intent->kind == Work_Intent::Kind::Change) {
        Finish_Change(session, *intent);
    } else if (intent) {
        Finish_Deletion(session, *intent);
    }
    if (::unlink(file.c_str()) != 0) {
        Throw_Errno(file, "削除");
    }
}

bool Has_Pending_Work(const Session& session) {
    return session.Is_Multi() && Is_There(Intent_File(session));
}

} // namespace morvane
