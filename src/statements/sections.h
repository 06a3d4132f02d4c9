// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/accounts.h"
#include "law/data_form.h"

#include <array>
#include <cstdint>

namespace morvane {

/// A section of the statements that a screen of its own edits: a range of accounts.
struct Account_Section {
    std::uint8_t screen_no; ///< also that of its note
    Account first;
    Account last;
    const char* title;
    const char* individual_title = nullptr; ///< where it differs
    const char* old_form_title = nullptr;   ///< of a corporation's data of the forms 1 and 2

    [[nodiscard]] constexpr const char* Title(Firm_Type type, Data_Form_No form) const {
        if (type == Firm_Type::Individual) {
            return individual_title == nullptr ? title : individual_title;
        }
        return Is_Before_2008(form) && old_form_title != nullptr ? old_form_title : title;
    }
};

inline constexpr std::array<Account_Section, 12> account_sections = {{
    {41, Account::Cash_And_Deposits, Account::Current_Assets, "貸借対照表－流動資産"},
    {42, Account::Buildings, Account::Tangible_Assets, "貸借対照表－有形固定資産、減価償却累計額"},
    {43, Account::Patents, Account::Total_Assets, "貸借対照表－無形固定資産、投資等、繰延資産",
     "貸借対照表－無形固定資産、投資等"},
    {44, Account::Notes_Payable, Account::Liabilities, "貸借対照表－流動負債、固定負債"},
    {45, Account::Capital, Account::Liabilities_And_Net_Assets, "貸借対照表－資本金、法定準備金、剰余金",
     "貸借対照表－期首資本金、事業主勘定", "貸借対照表－資本金、利益剰余金、評価・換算差額等"},
    {46, Account::Completed_Work_Sales, Account::Gross_Profit, "損益計算書－売上高"},
    {47, Account::Directors_Remuneration, Account::Operating_Profit, "損益計算書－販売費・一般管理費"},
    {48, Account::Interest_And_Dividends, Account::Ordinary_Profit, "損益計算書－営業外損益"},
    {49, Account::Prior_Year_Gains, Account::Profit_Of_Individual, "損益計算書－特別損益、損益処分"},
    {50, Account::Material_Cost, Account::Work_Expenses_Breakdown, "損益計算書－完成工事原価報告書"},
    {51, Account::Goods_At_Start, Account::Other_Depreciation_Of_Side_Business,
     "損益計算書－兼業事業売上原価報告書"},
    {52, Account::Appropriation_First, Account::Appropriation_Last, "利益処分"},
}};

/// The section of a screen; null where the screen is none of the statements.
constexpr const Account_Section* Section_Of_Screen(std::uint8_t screen_no) {
    for (const Account_Section& section : account_sections) {
        if (section.screen_no == screen_no) {
            return &section;
        }
    }
    return nullptr;
}

} // namespace morvane
