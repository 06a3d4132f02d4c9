// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/store_error.h"
#include "data/store_key.h"
#include "data/value.h"

#include <array>
#include <concepts>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace morvane {

class Connection;

/// A prepared statement read forward only: the quick way through many rows. Columns count from 0.
class Statement {
  public:
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&&) = delete;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement();

    /// Binds parameter `index` (from 1).
    void Bind(int index, const Value& value) const;

    /// Makes the statement ready to run (again) with `values` for its ?s, in order; there must be as many.
    void Bind_All(std::span<const Value> values) const;
    template <std::convertible_to<Value>... Values>
    Statement& With(const Values&... values) {
        Bind_All(std::array<Value, sizeof...(Values)>{values...});
        return *this;
    }

    /// Moves to the next row; false at the end. Raises Store_Error.
    bool Step();

    /// Makes the statement ready to run again with other parameters.
    void Reset() const;

    [[nodiscard]] bool Is_Null(int column) const;
    [[nodiscard]] double Double_At(int column) const;
    [[nodiscard]] std::int64_t Integer_At(int column) const;
    [[nodiscard]] std::string_view Text_At(int column) const;
    [[nodiscard]] Value Value_At(int column) const;
    [[nodiscard]] int Column_Count() const;
    [[nodiscard]] std::string Column_Name(int column) const;

  private:
    friend class Connection;
    Statement(const Connection& owner, std::string_view sql);

    const Connection* connection;
    sqlite3_stmt* handle = nullptr;
};

/// The rows of a query with a cursor: end test, fields by name (ASCII letters without regard to case),
/// assignment, new rows, search. Changes of a row reach the store with Update, one row at a time. The rows
/// are those at opening; a connection must outlive its recordsets.
class Recordset {
  public:
    [[nodiscard]] bool Eof() const { return position >= rows.size(); }
    void Move_First();
    void Move_Next();

    /// Moves to the first row from the top whose field equals the number or the text; else to the end. A
    /// Null equals nothing.
    bool Find(std::string_view column, std::int64_t number);
    bool Find(std::string_view column, std::string_view text);

    /// The field of the current row. Raises Store_Error (missing column) for an unknown name.
    [[nodiscard]] const Value& operator[](std::string_view column) const;
    [[nodiscard]] const Value& At(int column) const { return Row()[static_cast<std::size_t>(column)]; }

    /// Assigns a field of the current (or the added) row; Update stores it.
    void Set(std::string_view column, Value value);

    /// Starts a new row with all fields Null.
    void Add_New();

    /// Stores the assigned fields of the current or the added row.
    void Update();

    /// Parts the rows from their store: Update keeps changes in memory alone.
    void Part();

    /// Inserts all rows into a table. Columns that are Null throughout are left out. Raises Store_Error.
    void Insert_Into(const Connection& target, std::string_view into) const;

    /// Gives the rows back; the recordset is at its end afterwards.
    void Close();

    [[nodiscard]] std::size_t Count() const { return rows.size(); }
    [[nodiscard]] const std::vector<std::string>& Columns() const { return columns; }

    /// The place of a column. Raises Store_Error (missing column).
    [[nodiscard]] int Column(std::string_view name) const;

  private:
    friend class Connection;
    Recordset(const Connection& owner, std::string_view sql, std::span<const Value> values);

    void Move_To(std::size_t place);
    template <class Equals>
    bool Find_Row(std::string_view column, Equals equals);
    [[nodiscard]] const std::vector<Value>& Row() const;
    [[nodiscard]] std::filesystem::path File() const;

    const Connection* connection; ///< none behind Part
    std::string table;
    std::vector<std::string> columns;
    std::vector<std::int64_t> row_ids;
    std::vector<std::vector<Value>> rows;
    std::vector<int> changed;
    std::size_t position = 0;
    bool adding = false;
};

/// One open store. Texts of SQL are the engine's; figures and texts of the user reach them as values only.
/// In columns of the type Boolean true is -1.
class Connection {
  public:
    /// Scratch is for a draft that is thrown away when its maker fails: no flushes, no journal file.
    enum class Mode { Read_Only, Read_Write, Scratch };

    /// Opens an existing store and verifies the key. Raises Store_Error; a missing file is not created.
    Connection(const std::filesystem::path& file, const Store_Key& key, Mode mode = Mode::Read_Write);

    /// Makes a new, empty store. Raises Store_Error where the file exists.
    static Connection Create(const std::filesystem::path& file, const Store_Key& key);

    /// What was prepared is not taken along.
    Connection(Connection&& other) noexcept;
    Connection& operator=(Connection&&) = delete;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() = default;

    /// Runs a statement without a result; `values` are bound to its ?s in order. Here and in Open a text that
    /// comes again is not prepared again.
    void Execute(std::string_view sql, std::span<const Value> values) const;
    template <std::convertible_to<Value>... Values>
    void Execute(std::string_view sql, const Values&... values) const {
        Execute(sql, std::array<Value, sizeof...(Values)>{values...});
    }

    /// Opens a result with a cursor; `values` are bound to the ?s in order. The rows of a plain
    /// `SELECT a, b FROM T` with or without WHERE and ORDER BY can be changed.
    [[nodiscard]] Recordset Open(std::string_view sql, std::span<const Value> values) const;
    template <std::convertible_to<Value>... Values>
    [[nodiscard]] Recordset Open(std::string_view sql, const Values&... values) const {
        return Open(sql, std::array<Value, sizeof...(Values)>{values...});
    }

    /// Prepares a statement to be read forward or run many times.
    [[nodiscard]] Statement Prepare(std::string_view sql) const;
    template <std::convertible_to<Value>... Values>
    [[nodiscard]] Statement Prepare(std::string_view sql, const Values&... values) const {
        Statement statement = Prepare(sql);
        statement.With(values...);
        return statement;
    }

    /// Closes the store; the object must not be used afterwards.
    void Close();

    [[nodiscard]] const std::filesystem::path& File() const { return file; }

    /// Raises the Store_Error of an engine result code for this store.
    [[noreturn]] void Throw(int code, const std::string& doing) const;

  private:
    struct Closer {
        void operator()(sqlite3* store) const;
    };
    Connection(std::filesystem::path path, const Store_Key& key, Mode mode, int engine_flags);
    void Set_Up(const Store_Key& key, Mode mode) const;

    /// The statement of a text with its values, prepared when it came first.
    [[nodiscard]] Statement& Prepared(std::string_view sql, std::span<const Value> values) const;

    friend class Statement;
    friend class Recordset;
    friend class Transaction;
    std::filesystem::path file;
    std::unique_ptr<sqlite3, Closer> handle;
    mutable std::map<std::string, Statement, std::less<>> prepared;
};

/// Statements that belong together: all of them are kept by Commit, none when the object goes without it. One
/// for reading sees the store at one moment and takes its lock once. One within another is a part of it that
/// can fail alone.
class Transaction {
  public:
    enum class Purpose { Write, Read };

    explicit Transaction(const Connection& owner, Purpose purpose = Purpose::Write);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    void Commit();

  private:
    const Connection* connection;
    bool part; ///< of the transaction of a caller
    bool open = true;
};

} // namespace morvane
