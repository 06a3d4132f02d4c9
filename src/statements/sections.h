// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "law/accounts.h"
#include "law/data_form.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace morvane {

/// What a screen over a section of the statements keys.
enum class Section_Use : std::uint8_t {
    Entry,  ///< captions and amounts of the statements
    Journal ///< debits and credits of the improvement
};

/// A section of the statements: a range of accounts. Statement entry has a screen of its own for each, the
/// journal of the improvement one with a button for each.
struct Account_Section {
    std::uint8_t screen_no; ///< of statement entry, also that of its note
    Account first;
    Account last;
    const char* title;
    const char* button;                      ///< of the journal
    const char* individual_title = nullptr;  ///< where it differs
    const char* individual_button = nullptr; ///< where it differs
    const char* old_form_title = nullptr;    ///< of a corporation's data of the forms 1 and 2
    const char* journal_title = nullptr;     ///< where it differs and an individual has none of its own
    Account journal_last{};                  ///< where it differs

    [[nodiscard]] constexpr const char* Title(Firm_Type type, Data_Form_No form,
                                              Section_Use use = Section_Use::Entry) const {
        if (type == Firm_Type::Individual && individual_title != nullptr) {
            return individual_title;
        }
        if (use == Section_Use::Journal) {
            return journal_title == nullptr ? title : journal_title;
        }
        const bool old_form = type == Firm_Type::Corporation && Is_Before_2008(form);
        return old_form && old_form_title != nullptr ? old_form_title : title;
    }

    [[nodiscard]] constexpr const char* Button(Firm_Type type) const {
        return type == Firm_Type::Individual && individual_button != nullptr ? individual_button : button;
    }

    [[nodiscard]] constexpr Account Last(Section_Use use) const {
        return use == Section_Use::Journal && Code(journal_last) != 0 ? journal_last : last;
    }
};

inline constexpr std::array<Account_Section, 12> account_sections = {{
    {.screen_no = 41,
     .first = Account::Cash_And_Deposits,
     .last = Account::Current_Assets,
     .title = "貸借対照表－流動資産",
     .button = "流動資産"},
    {.screen_no = 42,
     .first = Account::Buildings,
     .last = Account::Tangible_Assets,
     .title = "貸借対照表－有形固定資産、減価償却累計額",
     .button = "有形固定資産"},
    {.screen_no = 43,
     .first = Account::Patents,
     .last = Account::Total_Assets,
     .title = "貸借対照表－無形固定資産、投資等、繰延資産",
     .button = "無形・投資等",
     .individual_title = "貸借対照表－無形固定資産、投資等"},
    {.screen_no = 44,
     .first = Account::Notes_Payable,
     .last = Account::Liabilities,
     .title = "貸借対照表－流動負債、固定負債",
     .button = "負債",
     .journal_title = "貸借対照表－流動負債、固定資産"},
    {.screen_no = 45,
     .first = Account::Capital,
     .last = Account::Liabilities_And_Net_Assets,
     .title = "貸借対照表－資本金、法定準備金、剰余金",
     .button = "資本・剰余金",
     .individual_title = "貸借対照表－期首資本金、事業主勘定",
     .individual_button = "資本・事業主",
     .old_form_title = "貸借対照表－資本金、利益剰余金、評価・換算差額等",
     .journal_title = "貸借対照表－資本金、剰余金",
     .journal_last = Account::Total_Capital_Oldest},
    {.screen_no = 46,
     .first = Account::Completed_Work_Sales,
     .last = Account::Gross_Profit,
     .title = "損益計算書－売上高",
     .button = "売上高"},
    {.screen_no = 47,
     .first = Account::Directors_Remuneration,
     .last = Account::Operating_Profit,
     .title = "損益計算書－販売費・一般管理費",
     .button = "一般管理費"},
    {.screen_no = 48,
     .first = Account::Interest_And_Dividends,
     .last = Account::Ordinary_Profit,
     .title = "損益計算書－営業外損益",
     .button = "営業外損益"},
    {.screen_no = 49,
     .first = Account::Prior_Year_Gains,
     .last = Account::Profit_Of_Individual,
     .title = "損益計算書－特別損益、損益処分",
     .button = "特別損益"},
    {.screen_no = 50,
     .first = Account::Material_Cost,
     .last = Account::Work_Expenses_Breakdown,
     .title = "損益計算書－完成工事原価報告書",
     .button = "工事原価"},
    {.screen_no = 51,
     .first = Account::Goods_At_Start,
     .last = Account::Other_Depreciation_Of_Side_Business,
     .title = "損益計算書－兼業事業売上原価報告書",
     .button = "兼業原価"},
    {.screen_no = 52,
     .first = Account::Appropriation_First,
     .last = Account::Appropriation_Last,
     .title = "利益処分",
     .button = "利益処分"},
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

/// The number of the journal's screen while it shows a section, by its place; also that of its note.
constexpr std::uint8_t Journal_Screen_No(std::size_t place) {
    return static_cast<std::uint8_t>(60 + place);
}

} // namespace morvane
