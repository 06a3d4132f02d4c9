// SPDX-FileCopyrightText: The Morvane developers
#include "data/connection.h"

#include "data/same_name.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <sqlcipher/sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace morvane {

namespace {

// Every cipher parameter is written out, so that an engine with other defaults opens the same file. The last
// two are unknown to older engines, which ignore them.
constexpr const char* cipher_parameters = "PRAGMA cipher = 'aes-256-cbc';"
                                          "PRAGMA cipher_page_size = 4096;"
                                          "PRAGMA kdf_iter = 64000;"
                                          "PRAGMA cipher_use_hmac = ON;"
                                          "PRAGMA cipher_hmac_algorithm = HMAC_SHA1;"
                                          "PRAGMA cipher_kdf_algorithm = PBKDF2_HMAC_SHA1;";
constexpr off_t page_size = 4096;
constexpr int busy_wait_ms = 2000;

void Start_Engine() {
    static std::once_flag once;
    std::call_once(once, [] {
        // Each connection is used by one thread only; memory statistics would be one lock for all threads.
        sqlite3_config(SQLITE_CONFIG_MULTITHREAD);
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        sqlite3_initialize();
    });
}

std::filesystem::path Folder_Of(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

bool Has_Journal(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::exists(file.string() + "-journal", error);
}

// No company comes near that: what is longer is no store.
constexpr off_t most_bytes = off_t{1} << 30;

// What can be said of a file before a key is tried: the engine would take an empty file for a new store, and
// wait for ever at a pipe.
void Look_At_File(const std::filesystem::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        Throw_Errno(file, "開く処理");
    }
    const auto refuse = [&file](const char* why) {
        throw Store_Error(file, Store_Error::Reason::Not_A_Store, why);
    };
    if (!S_ISREG(status.st_mode)) {
        refuse("フォルダや装置など、通常のファイルではありません");
    }
    if (status.st_size == 0) {
        refuse("空のファイルです");
    }
    if (status.st_size > most_bytes) {
        refuse("大きすぎます");
    }
    // A writer that was killed may leave a torn page, which its journal heals.
    if (status.st_size % page_size != 0 && !Has_Journal(file)) {
        refuse("別のプログラムのファイルか、途中で切れています");
    }
    if (::access(file.c_str(), R_OK) != 0) {
        Throw_Errno(file, "読み込み");
    }
}

// A reader cannot roll back what a killed writer left.
void Heal_For_Reader(const std::filesystem::path& file, const Store_Key& key, Connection::Mode mode) {
    if (mode == Connection::Mode::Read_Only && Has_Journal(file) && ::access(file.c_str(), W_OK) == 0) {
        Connection(file, key).Close();
    }
}

Store_Error::Reason Reason_Of(int code, std::string_view message) {
    switch (code & 0xff) {
    case SQLITE_NOTADB:
        return Store_Error::Reason::Not_A_Store;
    case SQLITE_CORRUPT:
    case SQLITE_NOMEM: // the engine's answer to a page whose authentication fails
        return Store_Error::Reason::Damaged;
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return Store_Error::Reason::Read_Only;
    case SQLITE_FULL:
        return Store_Error::Reason::Disk_Full;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Store_Error::Reason::Busy;
    case SQLITE_ERROR:
        if (message.starts_with("no such table")) {
            return Store_Error::Reason::Missing_Table;
        }
        if (message.starts_with("no such column") || message.find("has no column named") != message.npos) {
            return Store_Error::Reason::Missing_Column;
        }
        return Store_Error::Reason::Failed;
    default:
        return Store_Error::Reason::Failed;
    }
}

/// What the engine's English message names: the table or column behind "no such table: ", "no such column: "
/// and "table T has no column named ".
std::string Named_In(std::string_view message) {
    const auto mark = message.find_last_of(": ");
    return mark == message.npos ? std::string() : std::string(message.substr(mark + 1));
}

/// The detail of a failure in the user's language; texts of the engine and of SQL stay out of it.
std::string Detail_Of(Store_Error::Reason reason, int code, std::string_view message,
                      const std::string& doing) {
    switch (reason) {
    case Store_Error::Reason::Missing_Table:
        return "表 " + Named_In(message);
    case Store_Error::Reason::Missing_Column:
        return "項目 " + Named_In(message);
    case Store_Error::Reason::Not_A_Store:
        return "パスワードが違うか、別のプログラムのファイルです";
    case Store_Error::Reason::Failed:
        return doing + "、原因の番号 " + std::to_string(code);
    default:
        return doing;
    }
}

/// A statement that is kept holds no lock between its uses.
class Use {
  public:
    explicit Use(Statement& used) : statement(used) {}
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use() { statement.Reset(); }

  private:
    Statement& statement;
};

/// The table of a plain `SELECT a, b FROM T` with or without WHERE and ORDER BY, whose rows are those of the
/// table; empty for anything else.
std::string_view Table_Of_Select(std::string_view sql) {
    constexpr std::string_view select = "SELECT ";
    constexpr std::string_view from = " FROM ";
    const auto list_end = sql.find(from);
    if (!sql.starts_with(select) || sql.starts_with("SELECT DISTINCT ") || list_end == sql.npos ||
        sql.substr(0, list_end).find('(') != sql.npos) {
        return {};
    }
    const std::string_view rest = sql.substr(list_end + from.size());
    const std::string_view name = rest.substr(0, rest.find(' '));
    const std::string_view behind = rest.substr(name.size());
    const bool is_plain = behind.empty() || behind.starts_with(" WHERE ") || behind.starts_with(" ORDER BY ");
    const bool has_one = name.find_first_of(",;") == name.npos && behind.find(" GROUP BY ") == behind.npos;
    return is_plain && has_one ? name : std::string_view();
}

} // namespace

// ---- Connection

void Connection::Closer::operator()(sqlite3* store) const {
    sqlite3_close_v2(store);
}

Connection::Connection(const std::filesystem::path& path, const Store_Key& key, Mode mode)
    : Connection((Look_At_File(path), Heal_For_Reader(path, key, mode), path), key, mode,
                 mode == Mode::Read_Only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) {}

Connection::Connection(std::filesystem::path path, const Store_Key& key, Mode mode, int engine_flags)
    : file(std::move(path)) {
    Start_Engine();
    // A file without write permission would be opened for reading only without a word.
    if ((engine_flags & SQLITE_OPEN_READWRITE) != 0 && (engine_flags & SQLITE_OPEN_CREATE) == 0 &&
        ::access(file.c_str(), W_OK) != 0) {
        throw Store_Error(file, Store_Error::Reason::Read_Only, "書き込み");
    }
    sqlite3* store = nullptr;
    const int code = sqlite3_open_v2(file.c_str(), &store, engine_flags | SQLITE_OPEN_NOMUTEX, nullptr);
    handle.reset(store);
    if (code != SQLITE_OK) {
        Throw(code, "開く処理");
    }
    Set_Up(key, mode);
}

Connection::Connection(Connection&& other) noexcept : file(std::move(other.file)) {
    other.prepared.clear();
    handle = std::move(other.handle);
}

Connection Connection::Create(const std::filesystem::path& file, const Store_Key& key) {
    // Made here and not by the engine: nobody but the owner reads a store, and no link is followed.
    const int made = ::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (made < 0) {
        if (errno == ENOENT) {
            throw Store_Error(Folder_Of(file), Store_Error::Reason::Missing, "フォルダ");
        }
        Throw_Errno(file, "書き込み");
    }
    ::close(made);
    return {file, key, Mode::Read_Write, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
}

void Connection::Set_Up(const Store_Key& key, Mode mode) const {
    sqlite3_busy_timeout(handle.get(), busy_wait_ms);
    sqlite3_extended_result_codes(handle.get(), 1);
    // Read-only connections write no journal. The last statement reads the first page and so tests the key.
    const char* writing = mode == Mode::Read_Only ? ""
                          : mode == Mode::Read_Write
                              ? "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL;"
                              : "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF;";
    const std::string pragmas = "PRAGMA key = \"" + key.Literal() + "\";" + cipher_parameters + writing +
                                "SELECT 1 FROM sqlite_master LIMIT 1;";
    const int code = sqlite3_exec(handle.get(), pragmas.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        Throw(code, "開く処理");
    }
}

void Connection::Throw(int code, const std::string& doing) const {
    const std::string message = handle ? sqlite3_errmsg(handle.get()) : sqlite3_errstr(code);
    const int error_number = handle ? sqlite3_system_errno(handle.get()) : 0;
    if (((code & 0xff) == SQLITE_IOERR || (code & 0xff) == SQLITE_CANTOPEN) && error_number != 0) {
        if (error_number == ENOENT && std::filesystem::exists(file)) {
            // It is the journal that could not be made beside the store.
            const bool may_write = ::access(Folder_Of(file).c_str(), W_OK) == 0;
            throw Store_Error(file, may_write ? Store_Error::Reason::Failed : Store_Error::Reason::Read_Only,
                              doing);
        }
        errno = error_number;
        Throw_Errno(file, doing);
    }
    const Store_Error::Reason reason = Reason_Of(code, message);
    throw Store_Error(file, reason, Detail_Of(reason, code, message, doing));
}

void Connection::Execute(std::string_view sql, std::span<const Value> values) const {
    Statement& statement = Prepared(sql, values);
    const Use use(statement);
    while (statement.Step()) {
    }
}

Recordset Connection::Open(std::string_view sql, std::span<const Value> values) const {
    return {*this, sql, values};
}

Statement Connection::Prepare(std::string_view sql) const {
    return {*this, sql};
}

Statement& Connection::Prepared(std::string_view sql, std::span<const Value> values) const {
    auto found = prepared.find(sql);
    if (found == prepared.end()) {
        found = prepared.emplace(sql, Prepare(sql)).first;
    }
    found->second.Bind_All(values);
    return found->second;
}

void Connection::Close() {
    prepared.clear();
    handle.reset();
}

// ---- Statement

Statement::Statement(const Connection& owner, std::string_view sql) : connection(&owner) {
    const int code =
        sqlite3_prepare_v2(owner.handle.get(), sql.data(), static_cast<int>(sql.size()), &handle, nullptr);
    if (code != SQLITE_OK) {
        owner.Throw(code, "データの読み書き");
    }
}

Statement::Statement(Statement&& other) noexcept
    : connection(other.connection), handle(std::exchange(other.handle, nullptr)) {}

Statement::~Statement() {
    sqlite3_finalize(handle);
}

void Statement::Bind(int index, const Value& value) const {
    int code = SQLITE_OK;
    if (const auto* whole = std::get_if<std::int64_t>(&value.held)) {
        code = sqlite3_bind_int64(handle, index, *whole);
    } else if (const auto* real = std::get_if<double>(&value.held)) {
        code = sqlite3_bind_double(handle, index, *real);
    } else if (const auto* text = std::get_if<std::string>(&value.held)) {
        code =
            sqlite3_bind_text(handle, index, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    } else {
        code = sqlite3_bind_null(handle, index);
    }
    if (code != SQLITE_OK) {
        connection->Throw(code, "値の受け渡し");
    }
}

void Statement::Bind_All(std::span<const Value> values) const {
    Reset();
    if (static_cast<int>(values.size()) != sqlite3_bind_parameter_count(handle)) {
        connection->Throw(SQLITE_RANGE, "値の受け渡し");
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        Bind(static_cast<int>(i) + 1, values[i]);
    }
}

bool Statement::Step() {
    const int code = sqlite3_step(handle);
    if (code == SQLITE_ROW) {
        return true;
    }
    if (code != SQLITE_DONE) {
        connection->Throw(code, "データの読み書き");
    }
    return false;
}

void Statement::Reset() const {
    sqlite3_reset(handle);
}

bool Statement::Is_Null(int column) const {
    return sqlite3_column_type(handle, column) == SQLITE_NULL;
}
double Statement::Double_At(int column) const {
    return sqlite3_column_double(handle, column);
}
std::int64_t Statement::Integer_At(int column) const {
    return sqlite3_column_int64(handle, column);
}

std::string_view Statement::Text_At(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
    return text == nullptr
               ? std::string_view()
               : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(handle, column)));
}

Value Statement::Value_At(int column) const {
    switch (sqlite3_column_type(handle, column)) {
    case SQLITE_INTEGER:
        return Integer_At(column);
    case SQLITE_FLOAT:
        return sqlite3_column_double(handle, column);
    case SQLITE_TEXT:
    case SQLITE_BLOB:
        return Text_At(column);
    default:
        return {};
    }
}

int Statement::Column_Count() const {
    return sqlite3_column_count(handle);
}
std::string Statement::Column_Name(int column) const {
    return sqlite3_column_name(handle, column);
}

// ---- Recordset

Recordset::Recordset(const Connection& owner, std::string_view sql, std::span<const Value> values)
    : connection(&owner) {
    // The identity of the rows goes in front, for changes.
    std::string text(sql);
    table = Table_Of_Select(sql);
    if (!table.empty()) {
        text.insert(text.find(' '), " rowid AS _row_,");
    }
    Statement& statement = owner.Prepared(text, values);
    const Use use(statement);
    bool has_row = statement.Step();
    // A kept statement knows a column that was added since from the first step on.
    const int first = table.empty() ? 0 : 1;
    const int count = statement.Column_Count();
    for (int i = first; i < count; ++i) {
        columns.push_back(statement.Column_Name(i));
    }
    for (; has_row; has_row = statement.Step()) {
        if (first == 1) {
            row_ids.push_back(statement.Integer_At(0));
        }
        std::vector<Value>& row = rows.emplace_back();
        row.reserve(columns.size());
        for (int i = first; i < count; ++i) {
            row.push_back(statement.Value_At(i));
        }
    }
}

void Recordset::Move_First() {
    Move_To(0);
}

void Recordset::Move_Next() {
    Move_To(position + 1);
}

void Recordset::Move_To(std::size_t place) {
    changed.clear();
    adding = false;
    position = place;
}

template <class Equals>
bool Recordset::Find_Row(std::string_view column, Equals equals) {
    const auto place = static_cast<std::size_t>(Column(column));
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const std::vector<Value>& row) { return equals(row[place]); });
    Move_To(static_cast<std::size_t>(found - rows.begin()));
    return found != rows.end();
}

bool Recordset::Find(std::string_view column, std::int64_t number) {
    return Find_Row(
        column, [number](const Value& value) { return !value.Is_Null() && value.As_Integer() == number; });
}

bool Recordset::Find(std::string_view column, std::string_view text) {
    return Find_Row(column, [text](const Value& value) {
        return value.Is_Text() && std::get<std::string>(value.held) == text;
    });
}

std::filesystem::path Recordset::File() const {
    return connection == nullptr ? std::filesystem::path() : connection->File();
}

int Recordset::Column(std::string_view name) const {
    // Most names are spelled as the store has them.
    auto found = std::find(columns.begin(), columns.end(), name);
    if (found != columns.end()) {
        return static_cast<int>(found - columns.begin());
    }
    found = std::find_if(columns.begin(), columns.end(),
                         [&](const std::string& own) { return Same_Name(own, name); });
    if (found == columns.end()) {
        throw Store_Error(File(), Store_Error::Reason::Missing_Column,
                          table.empty() ? std::string(name) : table + "." + std::string(name));
    }
    return static_cast<int>(found - columns.begin());
}

const std::vector<Value>& Recordset::Row() const {
    if (Eof()) {
        throw Store_Error(File(), Store_Error::Reason::Failed, "現在行がありません " + table);
    }
    return rows[position];
}

const Value& Recordset::operator[](std::string_view column) const {
    return Row()[static_cast<std::size_t>(Column(column))];
}

void Recordset::Set(std::string_view column, Value value) {
    const int place = Column(column);
    static_cast<void>(Row());
    rows[position][static_cast<std::size_t>(place)] = std::move(value);
    changed.push_back(place);
}

void Recordset::Add_New() {
    rows.emplace_back(columns.size());
    row_ids.push_back(0);
    position = rows.size() - 1;
    changed.clear();
    adding = true;
}

void Recordset::Part() {
    connection = nullptr;
}

void Recordset::Insert_Into(const Connection& target, std::string_view into) const {
    std::string names;
    std::string marks;
    std::vector<std::size_t> filled;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (std::any_of(rows.begin(), rows.end(), [i](const auto& row) { return !row[i].Is_Null(); })) {
            const char* comma = filled.empty() ? "" : ", ";
            names += comma + columns[i];
            marks += std::string(comma) + "?";
            filled.push_back(i);
        }
    }
    if (filled.empty()) {
        return;
    }
    Statement insert =
        target.Prepare("INSERT INTO " + std::string(into) + " (" + names + ") VALUES (" + marks + ")");
    for (const std::vector<Value>& row : rows) {
        for (std::size_t i = 0; i < filled.size(); ++i) {
            insert.Bind(static_cast<int>(i) + 1, row[filled[i]]);
        }
        insert.Step();
        insert.Reset();
    }
}

void Recordset::Update() {
    if (connection == nullptr) {
        changed.clear();
        return;
    }
    if (table.empty()) {
        throw Store_Error(connection->File(), Store_Error::Reason::Failed, "書き込めない結果です");
    }
    if (changed.empty() && !adding) {
        return;
    }
    std::sort(changed.begin(), changed.end());
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
    std::string names;
    std::string marks;
    std::vector<Value> values;
    for (const int place : changed) {
        const std::string name = "[" + columns[static_cast<std::size_t>(place)] + "]";
        const char* comma = values.empty() ? "" : ", ";
        names += comma + name + (adding ? "" : " = ?");
        marks += std::string(comma) + "?";
        values.push_back(rows[position][static_cast<std::size_t>(place)]);
    }
    if (adding) {
        connection->Execute(
            "INSERT INTO " + table +
                (values.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + marks + ")"),
            values);
        row_ids[position] = sqlite3_last_insert_rowid(connection->handle.get());
    } else {
        values.emplace_back(row_ids[position]);
        connection->Execute("UPDATE " + table + " SET " + names + " WHERE rowid = ?", values);
    }
    adding = false;
    changed.clear();
}

void Recordset::Close() {
    rows.clear();
    row_ids.clear();
    changed.clear();
    position = 0;
    adding = false;
}

// ---- Transaction

Transaction::Transaction(const Connection& owner, Purpose purpose)
    : connection(&owner), part(sqlite3_get_autocommit(owner.handle.get()) == 0) {
    owner.Execute(part ? "SAVEPOINT part" : purpose == Purpose::Read ? "BEGIN" : "BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!open) {
        return;
    }
    try {
        connection->Execute(part ? "ROLLBACK TO part" : "ROLLBACK");
        if (part) {
            connection->Execute("RELEASE part");
        }
    } catch (const Store_Error&) {
        // The engine has rolled back by itself, or does so when the store is opened next.
    }
}

void Transaction::Commit() {
    connection->Execute(part ? "RELEASE part" : "COMMIT");
    open = false;
}

} // namespace morvane
