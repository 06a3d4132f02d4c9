// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "batch/installation.h"
#include "data/connection.h"
#include "review/review_figures.h"
#include "session/session.h"
#include "support/failing_writes.h"
#include "support/paths.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace morvane::tests {

/// Answers message boxes and keeps what was shown. Without a scripted answer the box's default is taken.
class Scripted_Messages : public Messages {
  public:
    Answer Show(const Message_Box& box) override;

    std::vector<Message_Box> shown;
    std::vector<Answer> answers; ///< taken from the front
};

/// A folder under the system's temporary folder that goes with the object.
class Temporary_Folder {
  public:
    Temporary_Folder();
    Temporary_Folder(const Temporary_Folder&) = delete;
    Temporary_Folder& operator=(const Temporary_Folder&) = delete;
    ~Temporary_Folder();

    std::filesystem::path path;
};

/// The key of the delivered stores, derived once in a test process.
const Store_Key& Delivered_Key();

/// Whether a text has a part; for EXPECT_PRED2, which prints both.
bool Has(const std::string& text, const std::string& part);

/// What the error says that `act` raises; empty where it raises none.
template <class Error = Store_Error>
std::string Refusal_Of(const std::function<void()>& act) {
    try {
        act();
        return "";
    } catch (const Error& error) {
        return error.what();
    }
}

/// A fresh installation in a temporary folder, multi-company and national unless told otherwise.
class Installation : public ::testing::Test {
  protected:
    explicit Installation(const std::string& edition = "13", bool multi = true);

    /// Puts another one, of that edition, into the place of the fresh installation.
    void Install(const std::string& edition, bool multi = true);

    /// Puts a blank company with one period into the working store and takes it in hand in the session (no
    /// file in data, no marker). Jigyo_mas gets number, name, type, period and an end date of 31 March of
    /// Reiwa 7.
    void Make_Company(std::int32_t number, std::int16_t hojin_kojin, std::int16_t period);

    /// Registers such a company with a resting store of its own; none is in hand then. The reading is ｱ.
    void Register_Company(std::int32_t number, const std::string& name, std::int16_t hojin_kojin = 1,
                          std::int16_t period = 5);

    /// Takes a sample firm in hand, a corporation with the periods 34 and 35, of the newest law year.
    void Take_Aoba();

    /// Runs statements on the working store; a text may hold several, parted by semicolons.
    void Run(std::initializer_list<std::string> statements) const;

    /// What the session has in hand: number, name, period, firm type, data form, law year.
    [[nodiscard]] std::string In_Hand() const;

    /// The titles of the boxes that were shown, joined by blanks.
    [[nodiscard]] std::string Titles() const;

    /// The same; the boxes are forgotten.
    std::string Told();

    /// Title and text of the last box.
    [[nodiscard]] std::string Last_Box() const;

    /// Turns the fresh statement of the period in hand into one of the form of 2008: no lease accounts, the
    /// codes behind them lower.
    void Make_Form_2008();

    /// Puts amounts (yen) into a column of the period in hand.
    void Put_Amounts(const std::map<int, double>& amounts, const std::string& column = "金額") const;

    /// Puts what a statement has into a column.
    void Put_Statement(const Statement_Figures& statement, const std::string& column = "金額") const;

    /// Puts elements into a column of W_Yoso of the period in hand.
    void Put_Elements(const std::map<int, double>& values, const std::string& column = "現状") const;

    /// Puts figures of a work type of the period in hand.
    void Put_Work(int code, const std::map<std::string, double>& values) const;

    /// One field of the working store; `where` follows "WHERE ".
    [[nodiscard]] Value Field(const std::string& table, const std::string& column,
                              const std::string& where) const;
    [[nodiscard]] double Amount(int code, const std::string& column = "金額") const;

    /// All rows of all tables of a store as text, for comparing states.
    [[nodiscard]] static std::string Dump(const std::filesystem::path& store);

    /// The rows of a query, joined by blanks, their fields by =; a Null is -.
    [[nodiscard]] static std::string Rows_Of(const Connection& cn, const std::string& query);

    /// Those of a query on the working store.
    [[nodiscard]] std::string List(const std::string& query) const;

    /// What is behind SELECT, and the rows that it must give.
    void Expect_Rows(std::initializer_list<std::pair<std::string, std::string>> queries) const;

    /// What the installation folder holds, by file: the rows of each store, which must verify, and the
    /// content of any other file.
    [[nodiscard]] std::map<std::string, std::string> State() const;

    Temporary_Folder folder;
    Scripted_Messages messages;
    Session session;

  private:
    void Put(const std::string& table, const std::string& column, const std::string& key,
             const std::map<int, double>& values) const;
};

/// An installation that is put back between attempts.
class Kept_Installation : public Installation {
  protected:
    using Installation::Installation;

    /// Takes the present files and session as those that Restore brings back, and their state as `before`.
    void Keep();
    void Restore();

    File_Contents files;
    Session start;
    std::map<std::string, std::string> before;
};

} // namespace morvane::tests
