// SPDX-FileCopyrightText: The Morvane developers
#include "statements/z_zzen_get.h"

#include "data/store_file.h"
#include "law/accounts.h"
#include "law/run_time_error.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace morvane {

namespace {

using enum Account;

/// Where a prior figure stands in the statement of a data form: `account`, or `other` for the forms listed.
/// Without an account the figure is 0.
struct Source {
    std::optional<Account> account;
    std::array<int, 4> forms{};
    std::optional<Account> other{};

    [[nodiscard]] std::optional<Account> Of(int form) const {
        return std::find(forms.begin(), forms.end(), form) == forms.end() ? account : other;
    }
};

// The rows of the block in order; the first nine are also those of the second-prior period. The last branch
// of each rule also serves unknown forms. The advances received on uncompleted work have two rules.
constexpr std::array<Source, 19> sources = {{
    {Notes_Receivable},
    {Completed_Work_Receivables},
    {Uncompleted_Work},
    {Materials_In_Store},
    {Current_Allowance_National, {2, 4}, Current_Allowance_Hokkaido},
    {Investment_Allowance},
    {Notes_Payable},
    {Work_Payables},
    {Advances_Received_Oldest, {2, 3, 4, 5}, Advances_Received_National}, // form 6 below
    {Net_Assets, {51, 52}, Shareholders_Equity},
    {Liabilities_And_Net_Assets, {51, 52}, Total_Capital_Oldest},
    {Depreciation_In_Expenses},
    {Operating_Profit},
    {Ordinary_Profit},
    {Income_Taxes},
    {Depreciation_In_Cost_National, {2, 4, 52}, Depreciation_In_Cost_Hokkaido},
    {Depreciation_Of_Side_Business},
    {Other_Depreciation_Of_Side_Business, {51, 52}, std::nullopt},
    {Retained_Earnings_Carried},
}};
constexpr std::size_t second_prior_rows = 9;
constexpr std::size_t advances_row = 8;

/// A block of prior figures: of which period back, in which rows.
struct Block {
    int back;
    Account first;
    std::size_t count;
};
constexpr Block prior = {1, Prior_Notes_Receivable, sources.size()};
constexpr Block second_prior = {2, Second_Prior_Notes_Receivable, second_prior_rows};

Recordset Open_Amounts(const Connection& cn, int period) {
    return cn.Open("SELECT 建設科目CD, 金額, 改善後残高 FROM Ks_Zaihyo WHERE 決算期=?", period);
}

void Fill_Block(Recordset& rows, const Block& block, Recordset& from, Data_Form_No from_form) {
    const int form = Number_Of(from_form);
    for (std::size_t i = 0; i < block.count; ++i) {
        const auto account =
            i == advances_row && form == 6 ? Advances_Received_Hokkaido : sources[i].Of(form);
        const double amount = account ? Kamoku_Get(*account, from) : 0.0;
        if (rows.Find("建設科目CD", Code(block.first) + static_cast<int>(i))) {
            rows.Set("金額", amount);
            rows.Set("改善後残高", amount);
            rows.Update();
        }
    }
}

int Period_Of(const Block& block, std::int16_t kikan) {
    if (kikan < std::numeric_limits<std::int16_t>::min() + block.back) {
        throw Run_Time_Error(Run_Time_Error::Kind::Overflow, "前期の決算期の計算で桁あふれが発生しました。");
    }
    return kikan - block.back;
}

void Copy_Block(const Session& session, std::int16_t kikan, std::uint8_t dest, const Block& block) {
    const Connection cn = Cn_Open(session);
    const int period = Period_Of(block, kikan);
    Recordset from = Open_Amounts(cn, period);
    if (from.Eof()) {
        return;
    }
    const Connection target = dest == 1
                                  ? Connection(Find_File(session.App_Path, "morv_tmp.dat"), session.Db_Key)
                                  : Cn_Open(session);
    Transaction transaction(target);
    Recordset rows = Open_Amounts(target, kikan);
    Fill_Block(rows, block, from, Get_Data_Ver(cn, session.Kind().edition, period));
    transaction.Commit();
}

} // namespace

void Zen_Get(const Session& session, std::int16_t kikan, std::uint8_t dest) {
    Copy_Block(session, kikan, dest, prior);
}

void ZZen_Get(const Session& session, std::int16_t kikan, std::uint8_t dest) {
    Copy_Block(session, kikan, dest, second_prior);
}

void Fill_Prior_Figures(const Connection& cn, Edition edition, std::int16_t kikan) {
    for (const Block& block : {prior, second_prior}) {
        const int period = Period_Of(block, kikan);
        if (Recordset from = Open_Amounts(cn, period); !from.Eof()) {
            Recordset rows = Open_Amounts(cn, kikan);
            Fill_Block(rows, block, from, Get_Data_Ver(cn, edition, period));
        }
    }
}

void Fill_Prior_Figures(std::span<Recordset> periods, Data_Form_No form) {
    for (std::size_t i = 0; i < periods.size(); ++i) {
        for (const Block& block : {prior, second_prior}) {
            if (const auto back = static_cast<std::size_t>(block.back); i >= back) {
                Fill_Block(periods[i], block, periods[i - back], form);
            }
        }
    }
}

} // namespace morvane
