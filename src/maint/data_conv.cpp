// SPDX-FileCopyrightText: The Morvane developers
#include "maint/data_conv.h"

#include "company/law_change.h"
#include "data/same_name.h"
#include "data/store_file.h"
#include "law/accounts.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace morvane {

namespace {

using enum Account;

bool Refuse(const Session& session, const std::string& text) {
    Tell(session, "データ変換メッセージ", text);
    return false;
}

/// Changes one account of the period in hand.
void Set_Account(const Connection& cn, const Session& session, int code, const char* column,
                 const Value& value) {
    cn.Execute(std::string("UPDATE Ks_Zaihyo SET ") + column + " = ? WHERE 決算期=? And 建設科目CD=?", value,
               session.Syori_Ki, code);
}

void Set_Account(const Connection& cn, const Session& session, Account account, const char* column,
                 const Value& value) {
    Set_Account(cn, session, Code(account), column, value);
}

Recordset Open_Account(const Connection& cn, const Session& session, Account account) {
    return cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=? And 建設科目CD=?", session.Syori_Ki,
                   Code(account));
}

// ---- from the statement form of 2008 to that of 2010

/// Lines that make room for a new account: those from its place on, up to the last one before a total.
struct Code_Shift {
    Account from, to;
    int by;
};

std::vector<Code_Shift> Shifts(bool hokkaido) {
    return {{Leased_Assets, Last_Tangible_2008, 3},
            {Leased_Intangibles, Last_Intangible_2008, 1},
            {Current_Lease_Debt,
             hokkaido ? Last_Current_Liability_2008_Hokkaido : Last_Current_Liability_2008_National, 1},
            {Fixed_Lease_Debt, Last_Fixed_Liability_2008, 1}};
}

struct New_Name {
    Account account;
    const char* name;
};
constexpr std::array<New_Name, 6> new_names = {{{Tangible_Assets, "有形固定資産合計"},
                                                {Intangible_Assets, "無形固定資産合計"},
                                                {Doubtful_Claims, "破産更生債権等"},
                                                {Investments, "投資その他の資産合計"},
                                                {Fixed_Assets, "固定資産合計"},
                                                {Interest_And_Dividends, "受取利息及び配当金"}}};

/// The lease accounts of the form of 2010. The fixed lease debt stays outside the class of the fixed
/// liabilities in converted data.
struct New_Account {
    Account account;
    const char* name;
    int class_no;
    const char* class_id;
    const char* mark;  ///< 正負識別
    bool deducted;     ///< 内部処理正負
    bool debit_normal; ///< 貸借正負
    bool summed;       ///< 集計識別
    bool entered;      ///< 金額編集識別
};
constexpr std::array<New_Account, 6> new_accounts = {{
    {Leased_Assets, "リース資産", 2, "Yks", nullptr, false, true, true, true},
    {Leased_Assets_Depreciation, "リース資産減価償却累計額", 2, "Yks", "△", true, false, true, true},
    {Leased_Assets_Book_Value, "リース資産　帳簿価格", 2, "Yks", nullptr, false, true, false, false},
    {Leased_Intangibles, "リース資産", 3, "Mks", nullptr, false, true, true, true},
    {Current_Lease_Debt, "リース債務", 6, "Rdf", nullptr, false, false, true, true},
    {Fixed_Lease_Debt, "リース債務", 7, "Kdf", nullptr, false, false, true, true},
}};

constexpr std::array<const char*, 5> amounts = {"金額", "借方", "貸方", "改善後残高", "仮金額"};

// From the highest code down, so that no row meets one that has not moved yet.
void Shift_Codes(const Connection& cn, const Session& session) {
    for (const Code_Shift& shift : Shifts(session.Is_Hokkaido())) {
        for (int code = Code(shift.to); code >= Code(shift.from); --code) {
            Set_Account(cn, session, code, "建設科目CD", code + shift.by);
        }
    }
}

void Rename(const Connection& cn, const Session& session, Account account, const std::string& name,
            bool corporation_too) {
    for (const char* column : {"建設科目名", "個人科目名"}) {
        Set_Account(cn, session, account, column, name);
    }
    if (corporation_too) {
        Set_Account(cn, session, account, "法人科目名", name);
    }
}

// The national form of an individual has no 買掛金: its line takes the short-term loans.
void Merge_Loans(const Connection& cn, const Session& session) {
    const Recordset payables = Open_Account(cn, session, Short_Term_Loans);
    if (!payables.Eof() && payables["金額"].As_Double() != 0.0) {
        Tell(session, "データ変換メッセージ",
             "「流動負債」の「買掛金」に金額があります。このデータは、個人科目には無いため削除されます。\n"
             "変換終了後、確認・調整をお願いします。");
    }
    Recordset loans = Open_Account(cn, session, Loans_2008);
    if (!loans.Eof()) {
        for (const char* amount : amounts) {
            Set_Account(cn, session, Short_Term_Loans, amount, loans[amount]);
            loans.Set(amount, {});
        }
        loans.Update();
    }
    Rename(cn, session, Short_Term_Loans, "短期借入金", true);
    Rename(cn, session, Accrued_Expenses, "未払金", false);
    Rename(cn, session, Accounts_Payable, "繰延資産合計", false);
}

void Add_Account(const Connection& cn, const Session& session, const New_Account& account) {
    Recordset rows = Open_Account(cn, session, account.account);
    if (!rows.Eof()) {
        return;
    }
    const auto flag = [](bool value) { return value ? -1 : 0; };
    rows.Add_New();
    rows.Set("決算期", session.Syori_Ki);
    rows.Set("建設科目CD", Code(account.account));
    rows.Set("並び順", Code(account.account));
    rows.Set("科目分類No", account.class_no);
    rows.Set("科目分類識別", account.class_id);
    for (const char* column : {"建設科目名", "法人科目名", "個人科目名"}) {
        rows.Set(column, account.name);
    }
    rows.Set("正負識別", account.mark == nullptr ? Value() : Value(account.mark));
    rows.Set("内部処理正負", account.deducted ? Value(1) : Value());
    rows.Set("貸借正負", account.debit_normal ? 1 : 0);
    rows.Set("集計識別", flag(account.summed));
    rows.Set("科目編集識別", 0);
    rows.Set("金額編集識別", flag(account.entered));
    // An individual's statement has no lease accounts.
    for (const char* column : {"個人非表示識別", "個人非印刷識別"}) {
        rows.Set(column, -1);
    }
    for (const char* column : {"法人非表示識別", "法人非印刷識別"}) {
        rows.Set(column, 0);
    }
    for (const char* column : {"非表示識別", "非印刷識別"}) {
        rows.Set(column, flag(!session.Is_Corporation()));
    }
    rows.Update();
}

void Convert_Statement(const Session& session, Data_Form_No form) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Shift_Codes(cn, session);
    for (const New_Name& entry : new_names) {
        Rename(cn, session, entry.account, entry.name, true);
    }
    for (const char* column : {"非表示識別", "非印刷識別"}) {
        Set_Account(cn, session, Closed_Investments, column, -1);
    }
    for (const Account account : {Development_Cost, Capital_Deposits, Shareholders_Equity}) {
        Set_Account(cn, session, account, "科目編集識別", 0);
    }
    if (!session.Is_Hokkaido() && session.Is_Individual()) {
        Merge_Loans(cn, session);
    }
    for (const New_Account& account : new_accounts) {
        Add_Account(cn, session, account);
    }
    Set_Account(cn, session, Account::Data_Form, "並び順", Number_Of(form));
    transaction.Commit();
}

// ---- the import of a whole store

void Copy_Table(const Connection& from, const Connection& to, const char* table) {
    to.Execute(std::string("DELETE FROM ") + table);
    Recordset source = from.Open(std::string("SELECT * FROM ") + table);
    Recordset target = to.Open(std::string("SELECT * FROM ") + table);
    std::vector<std::string> common;
    for (const std::string& column : source.Columns()) {
        if (std::any_of(target.Columns().begin(), target.Columns().end(),
                        [&](const std::string& own) { return Same_Name(own, column); })) {
            common.push_back(column);
        }
    }
    for (; !source.Eof(); source.Move_Next()) {
        target.Add_New();
        for (const std::string& column : common) {
            target.Set(column, source[column]);
        }
        target.Update();
    }
}

} // namespace

bool Mnu_Dt2015(Session& session) {
    if (session.Data_Ver < Data_Form_No::National) {
        return Refuse(session, "現在のデータは、2008年改正以前のデータです。変換はできません。\n"
                               "このメニューで変換できるデータは、2012年のデータのみです。");
    }
    if (Law_Of(Get_Simyu_Kubun(session, session.Syori_Ki)).has_additions) {
        return Refuse(session, "現在のデータは既に、2015年改正後データです。\n変換の必要はありません。");
    }
    if (!Ask(session, "2015年版へのデータ変換確認",
             "2012年のデータを、2015年改正対応のデータに変換します。\n"
             "一旦変換すると元に戻せません。よろしいですか？")) {
        return false;
    }
    const Law_Year_No converted = First_Law_Year(&Law_Year::has_additions).code;
    Set_Law_Year(session, session.Syori_Ki, converted);
    session.Simyu_Kubun = converted;
    return true;
}

bool Conv_2008_To_2010(Session& session) {
    if (session.Data_Ver < Data_Form_No::National_2008) {
        return Refuse(session, "現在のデータは、2008年改正時点より前のデータです。変換はできません。\n"
                               "このメニューで変換できるデータは、2008年のデータのみです。");
    }
    if (Is_Present(session.Data_Ver)) {
        return Refuse(session, "現在のデータは既に、2010年以降の財務データです。\n変換の必要はありません。");
    }
    if (!Ask(session, "2010年版へのデータ変換確認",
             "2008年改正時点のデータを、2010年以降の財務データに変換します。\n"
             "一旦変換すると元に戻せません。よろしいですか？")) {
        return false;
    }
    const Data_Form_No form =
        session.Data_Ver == Data_Form_No::National_2008 ? Data_Form_No::National : Data_Form_No::Hokkaido;
    Convert_Statement(session, form);
    session.Data_Ver = form;
    Tell(session, "財務データ変換終了", "データ変換が終了しました。");
    return true;
}

bool Dt_Conv(Session& session, const std::filesystem::path& folder) {
    if (folder.empty()) {
        Tell(session, "フォルダ未指定エラー", "バックアップファイルのフォルダが指定されていません。");
        return false;
    }
    {
        const Connection from(Find_File(folder, "morvane.dat"), session.Db_Key, Connection::Mode::Read_Only);
        const Connection to = Cn_Open(session);
        Transaction transaction(to);
        for (const char* table :
             {"Jigyo_mas", "Hatu_dt", "Kandaka_Gj", "Kandaka_Kz", "Ks_Ki", "Ks_Zaihyo", "QandA", "XW_Yoso"}) {
            Copy_Table(from, to, table);
        }
        transaction.Commit();
    }
    Tell(session, "データ変換完了", "データの変換が終了しました。");
    return true;
}

bool Dt_Conv_Cancelled(const Session& session) {
    return Ask(session, "起動中止確認", "データ変換を行わず終了します。よろしいですか？");
}

} // namespace morvane
