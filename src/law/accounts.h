// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/data_form.h"
#include "law/firm_kind.h"

#include <array>
#include <span>

namespace morvane {

/// The accounts of a construction firm's statements (建設業法施行規則 様式第15号 to 第19号) that the program
/// knows by themselves, by 建設科目CD. All other accounts of the delivered charts are summed by their class
/// alone. Where the editions of the chart differ, an account stands once for each.
enum class Account : int {
    Capital_And_Surplus = 0, ///< 資本金・資本剰余金, of an individual 期首資本金・事業主借・事業主貸: a sum
                             ///< without a line of its own
    Data_Form = 99, ///< データ形式: no account, its 並び順 tells the form of the period's data

    // ---- balance sheet: current assets
    Cash_And_Deposits = 100,          ///< 現金預金
    Notes_Receivable = 101,           ///< 受取手形
    Completed_Work_Receivables = 103, ///< 完成工事未収入金
    Uncompleted_Work = 106,           ///< 未成工事支出金
    Materials_In_Store = 107,         ///< 材料貯蔵品
    Current_Allowance_National = 114, ///< 貸倒引当金（流動資産）
    Current_Allowance_Hokkaido = 115, ///< 貸倒引当金（流動資産）
    Current_Assets = 129,             ///< 流動資産合計

    // ---- tangible fixed assets: cost, accumulated depreciation (減価償却累計額), book value (帳簿価額)
    Buildings = 130, ///< 建物・構築物
    Buildings_Depreciation = 131,
    Buildings_Book_Value = 132,
    Machines = 133, ///< 機械・運搬具
    Machines_Depreciation = 134,
    Machines_Book_Value = 135,
    Tools = 136, ///< 工具器具・備品
    Tools_Depreciation = 137,
    Tools_Book_Value = 138,
    Leased_Assets = 140, ///< リース資産, with the two lines behind it from 2010 on, of a corporation
    Leased_Assets_Depreciation = 141,
    Leased_Assets_Book_Value = 142,
    Other_Tangibles_2008 = 141, ///< その他 in data before 2010, which have no leases
    Other_Tangibles_2008_Depreciation = 142,
    Other_Tangibles_2008_Book_Value = 143,
    Other_Tangibles = 144, ///< その他
    Other_Tangibles_Depreciation = 145,
    Other_Tangibles_Book_Value = 146,
    Last_Tangible_2008 = 145, ///< the last line before the total in data before 2010
    Tangible_Assets = 149,    ///< 有形固定資産合計

    // ---- intangible fixed assets, investments, deferred assets
    Patents = 150,              ///< 特許権
    Leased_Intangibles = 153,   ///< リース資産（無形固定資産）, from 2010 on, of a corporation
    Last_Intangible_2008 = 155, ///< the last line before the total in data before 2010
    Intangible_Assets = 159,    ///< 無形固定資産合計
    Closed_Investments = 161,   ///< without a caption, neither shown nor summed from 2010 on
    Doubtful_Claims = 163,      ///< 破産更生債権等
    Investment_Allowance = 177, ///< 貸倒引当金（投資その他の資産）
    Investments = 178,          ///< 投資その他の資産合計
    Fixed_Assets = 179,         ///< 固定資産合計
    Development_Cost = 185,     ///< 開発費
    Deferred_Assets = 189,      ///< 繰延資産合計, of a corporation
    Total_Assets = 199,         ///< 資産合計

    // ---- liabilities
    Notes_Payable = 200,      ///< 支払手形
    Work_Payables = 201,      ///< 工事未払金
    Short_Term_Loans = 203,   ///< 短期借入金; 買掛金 in data before 2010
    Current_Lease_Debt = 204, ///< リース債務（流動負債）, from 2010 on, of a corporation
    Accounts_Payable = 205,   ///< 未払金, of a corporation
    Accrued_Expenses = 206,   ///< 未払費用; of an individual 未払金
    Last_Current_Liability_2008_National = 207, ///< the last line that the lease debt moves
    Loans_2008 = 208, ///< 短期借入金 of an individual before 2010, as the lease debt has moved it
    Advances_Received_Oldest = 208, ///< 未成工事受入金, in data without a form; later 繰延税金負債
    Advances_Received_National = 209,           ///< 未成工事受入金; also of Hokkaido data before 2010
    Advances_Received_Hokkaido = 210,           ///< 未成工事受入金, from 2010 on
    Last_Current_Liability_2008_Hokkaido = 216, ///< the last line that the lease debt moves
    Current_Liabilities = 229,                  ///< 流動負債計
    Bonds = 230,                                ///< 社債
    Long_Term_Loans = 231,                      ///< 長期借入金
    Fixed_Lease_Debt = 232,          ///< リース債務（固定負債）, from 2010 on, of a corporation
    Last_Fixed_Liability_2008 = 237, ///< the last line before the total in data before 2010
    Retirement_Allowance = 234,      ///< 退職給付引当金; of an individual ○○引当金
    Fixed_Liabilities = 248,         ///< 固定負債計
    Liabilities = 249,               ///< 負債合計

    // ---- net assets; of an individual 純資産 is the owner's capital
    Capital = 250,               ///< 資本金; of an individual 期首資本金
    Capital_Deposits = 251,      ///< 新株式申込証拠金; of an individual 事業主借勘定
    Capital_Reserve = 260,       ///< 資本準備金
    Other_Capital_Surplus = 268, ///< その他資本剰余金
    Capital_Surplus = 269,       ///< 資本剰余金合計
    Drawings = 273,              ///< 事業主貸勘定, of an individual
    Retained_Earnings_Carried = 281, ///< 繰越利益剰余金, of an individual 事業主利益: the remainder that
                                     ///< balances the sheet
    Retained_Earnings = 289,          ///< 利益剰余金合計
    Treasury_Shares = 290,            ///< 自己株式
    Treasury_Share_Deposits = 291,    ///< 自己株式申込証拠金
    Shareholders_Equity = 298,        ///< 株主資本合計; 自己資本 in data without a form
    Total_Capital_Oldest = 299,       ///< 総資本, in data without a form
    Valuation_Differences = 303,      ///< 評価・換算差額等合計
    Share_Subscription_Rights = 310,  ///< 新株予約権
    Net_Assets = 319,                 ///< 純資産合計
    Liabilities_And_Net_Assets = 399, ///< 負債純資産合計

    // ---- income statement
    Completed_Work_Sales = 400,           ///< 完成工事高
    Side_Business_Sales_National = 401,   ///< 兼業事業売上高
    Completed_Work_Cost_Hokkaido = 401,   ///< 完成工事原価
    Sales_National = 402,                 ///< 売上高
    Completed_Work_Cost_National = 403,   ///< 完成工事原価
    Completed_Work_Profit_Hokkaido = 409, ///< 完成工事総利益
    Side_Business_Sales_Hokkaido = 410,   ///< 兼業事業売上高
    Side_Business_Cost_Hokkaido = 411,    ///< 兼業事業売上原価
    Side_Business_Cost_National = 413,    ///< 兼業事業売上原価
    Cost_Of_Sales_National = 414,         ///< 売上原価
    Completed_Work_Profit_National = 417, ///< 完成工事総利益
    Side_Business_Profit = 418,           ///< 兼業事業総利益
    Gross_Profit = 419,                   ///< 売上総利益
    Directors_Remuneration = 420,         ///< 役員報酬
    Depreciation_In_Expenses = 436,       ///< 減価償却費（販売費及び一般管理費）
    General_Expenses = 468,               ///< 販売費及び一般管理費計
    Operating_Profit = 469,               ///< 営業利益
    Interest_And_Dividends = 470,         ///< 受取利息及び配当金
    Non_Operating_Income = 479,           ///< 営業外収益計
    Interest_Paid = 480,                  ///< 支払利息
    Non_Operating_Expenses = 488,         ///< 営業外費用計
    Ordinary_Profit = 489,                ///< 経常利益; of an individual 事業主利益
    Prior_Year_Gains = 490,               ///< 前期損益修正益
    Extraordinary_Gains = 499,            ///< 特別利益計
    Extraordinary_Losses = 509,           ///< 特別損失計
    Profit_Before_Taxes = 510,            ///< 税引前当期純利益
    Income_Taxes = 511,                   ///< 法人税、住民税及び事業税
    Income_Taxes_Deferred = 512,          ///< 法人税等調整額
    Profit_Of_Corporation = 519,          ///< 当期純利益
    Profit_Of_Individual = 529,           ///< 当期純利益（事業主利益）

    // ---- cost of completed work (完成工事原価報告書)
    Material_Cost = 530,                 ///< 材料費
    Labour_Subcontracts = 532,           ///< （うち労務外注費）, within the wages
    Subcontracts = 533,                  ///< 外注費
    Work_Expenses = 534,                 ///< 経費; in the Hokkaido chart the sum of its breakdown
    Depreciation_In_Cost_National = 536, ///< 経費のうち減価償却費
    Completed_Work_Cost = 539,           ///< 完成工事原価
    Depreciation_In_Cost_Hokkaido = 552, ///< 減価償却費
    Work_Expenses_Breakdown = 579,       ///< 経費計, of the Hokkaido chart

    // ---- appropriation of profit (利益処分): present charts have no accounts here
    Appropriation_First = 600,
    Appropriation_Last = 639,

    // ---- cost of the side business (兼業事業売上原価報告書)
    Goods_At_Start = 700,                      ///< 期首商品（製品）たな卸高
    Products_Made = 702,                       ///< 当期製品製造原価, within the goods
    Goods_Available = 703,                     ///< 合計
    Side_Business_Cost = 705,                  ///< 兼業事業売上原価
    Depreciation_Of_Side_Business = 724,       ///< （うち減価償却費）
    Production_Input = 726,                    ///< 計
    Production_Cost = 728,                     ///< 当期製品製造原価
    Other_Depreciation_Of_Side_Business = 729, ///< （その他の減価償却費）

    // ---- figures of the period before the one before, which two-period averages need
    Second_Prior_Notes_Receivable = 800,           ///< 受取手形（前々期）
    Second_Prior_Completed_Work_Receivables = 801, ///< 完成工事未収入金（前々期）
    Second_Prior_Uncompleted_Work = 802,           ///< 未成工事支出金（前々期）
    Second_Prior_Materials_In_Store = 803,         ///< 材料貯蔵品（前々期）
    Second_Prior_Current_Allowance = 804,          ///< 貸倒引当金（流動資産）（前々期）
    Second_Prior_Investment_Allowance = 805, ///< 貸倒引当金（投資その他の資産）（前々期）
    Second_Prior_Notes_Payable = 806,        ///< 支払手形（前々期）
    Second_Prior_Work_Payables = 807,        ///< 工事未払金（前々期）
    Second_Prior_Advances_Received = 808,    ///< 未成工事受入金（前々期）

    // ---- figures of the period before
    Prior_Notes_Receivable = 820,              ///< 受取手形（前期）
    Prior_Completed_Work_Receivables = 821,    ///< 完成工事未収入金（前期）
    Prior_Uncompleted_Work = 822,              ///< 未成工事支出金（前期）
    Prior_Materials_In_Store = 823,            ///< 材料貯蔵品（前期）
    Prior_Current_Allowance = 824,             ///< 貸倒引当金（流動資産）（前期）
    Prior_Investment_Allowance = 825,          ///< 貸倒引当金（投資その他の資産）（前期）
    Prior_Notes_Payable = 826,                 ///< 支払手形（前期）
    Prior_Work_Payables = 827,                 ///< 工事未払金（前期）
    Prior_Advances_Received = 828,             ///< 未成工事受入金（前期）
    Prior_Equity = 829,                        ///< 自己資本（前期）
    Prior_Total_Capital = 830,                 ///< 総資本（前期）
    Prior_Depreciation_In_Expenses = 831,      ///< 減価償却費（一般管理費）（前期）
    Prior_Operating_Profit = 832,              ///< 営業利益（前期）
    Prior_Ordinary_Profit = 833,               ///< 経常利益（前期）
    Prior_Income_Taxes = 834,                  ///< 法人税等（前期）
    Prior_Depreciation_In_Cost = 835,          ///< 減価償却費（工事原価）（前期）
    Prior_Depreciation_Of_Side_Business = 836, ///< 減価償却費（兼業１）（前期）
    Prior_Other_Depreciation_Of_Side_Business = 837, ///< 減価償却費（兼業２）（前期）
    Prior_Retained_Earnings = 838,                   ///< 繰越利益剰余金（前期）, of a corporation
    Prior_Figures_End = 839, ///< last code of these lines; charts have no account there

    Equity_Change = 901, ///< 株主資本等変動計算書の当期変動額合計, of a corporation
};

/// 建設科目CD of an account.
constexpr int Code(Account account) {
    return static_cast<int>(account);
}

/// Whether a line holds a figure of an earlier period.
constexpr bool Is_Prior_Figure(int code) {
    return code >= Code(Account::Second_Prior_Notes_Receivable) &&
           code <= Code(Account::Prior_Retained_Earnings);
}

/// The accounts that stand at different places of the two charts.
struct Edition_Accounts {
    Account current_allowance;
    Account completed_work_cost; ///< in the income statement
    Account completed_work_profit;
    Account side_business_sales;
    Account side_business_cost; ///< in the income statement
    Account depreciation_in_cost;
};

constexpr Edition_Accounts Accounts_Of_Edition(Edition edition) {
    using enum Account;
    return edition == Edition::Hokkaido
               ? Edition_Accounts{Current_Allowance_Hokkaido,     Completed_Work_Cost_Hokkaido,
                                  Completed_Work_Profit_Hokkaido, Side_Business_Sales_Hokkaido,
                                  Side_Business_Cost_Hokkaido,    Depreciation_In_Cost_Hokkaido}
               : Edition_Accounts{Current_Allowance_National,     Completed_Work_Cost_National,
                                  Completed_Work_Profit_National, Side_Business_Sales_National,
                                  Side_Business_Cost_National,    Depreciation_In_Cost_National};
}

/// 未成工事受入金: in the chart of Hokkaido the lines of leases have moved it.
constexpr Account Advances_Received(Data_Form_No form) {
    return form == Data_Form_No::Hokkaido ? Account::Advances_Received_Hokkaido
                                          : Account::Advances_Received_National;
}

/// 減価償却実施額: what is written off of assets in a period, wherever it is entered.
constexpr std::array<Account, 4> Depreciation_Accounts(Edition edition) {
    return {Account::Depreciation_In_Expenses, Accounts_Of_Edition(edition).depreciation_in_cost,
            Account::Depreciation_Of_Side_Business, Account::Other_Depreciation_Of_Side_Business};
}

/// The same of the period before.
inline constexpr std::array<Account, 4> prior_depreciation_accounts = {
    Account::Prior_Depreciation_In_Expenses, Account::Prior_Depreciation_In_Cost,
    Account::Prior_Depreciation_Of_Side_Business, Account::Prior_Other_Depreciation_Of_Side_Business};

/// A tangible asset of three lines: what it cost, what is written off of it, and the difference.
struct Book_Value_Lines {
    Account cost;
    Account depreciation;
    Account book_value;
};

inline constexpr std::array<Book_Value_Lines, 5> book_value_lines = {{
    {Account::Buildings, Account::Buildings_Depreciation, Account::Buildings_Book_Value},
    {Account::Machines, Account::Machines_Depreciation, Account::Machines_Book_Value},
    {Account::Tools, Account::Tools_Depreciation, Account::Tools_Book_Value},
    {Account::Leased_Assets, Account::Leased_Assets_Depreciation, Account::Leased_Assets_Book_Value},
    {Account::Other_Tangibles, Account::Other_Tangibles_Depreciation, Account::Other_Tangibles_Book_Value},
}};

/// The same before 2010, without leases.
inline constexpr std::array<Book_Value_Lines, 4> book_value_lines_2008 = {{
    book_value_lines[0],
    book_value_lines[1],
    book_value_lines[2],
    {Account::Other_Tangibles_2008, Account::Other_Tangibles_2008_Depreciation,
     Account::Other_Tangibles_2008_Book_Value},
}};

/// Those of a data form: the forms 5 and 6 are those from 2010 on.
constexpr std::span<const Book_Value_Lines> Book_Values_Of(int data_form) {
    return data_form == 5 || data_form == 6 ? std::span<const Book_Value_Lines>(book_value_lines)
                                            : book_value_lines_2008;
}

} // namespace morvane
