// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <array>
#include <cstddef>

namespace morvane {

// The twelve indicators by which an adviser comments on a firm besides the eight of the analysis. They are
// business practice, not law: each is compared with a standard value of the trade.

/// What the indicators are formed of, thousand yen.
namespace twelve_term {
enum Place : std::size_t {
    completed_work,
    sales,
    operating_profit,
    ordinary_profit,
    net_profit,
    depreciation,
    prior_allowance,
    allowance,
    interest_received,
    interest_paid,
    notes_receivable,
    work_receivables,
    uncompleted_work,
    notes_payable,
    work_payables,
    advances_received,
    equity,
    total_capital,
    mean_capital,
    short_loans,
    bonds,
    long_loans,
    fixed_assets,
    fixed_liabilities,
    material,
    labour_subcontracts,
    subcontracts,
    side_business_cost,
    count
};
} // namespace twelve_term

inline constexpr std::array<const char*, twelve_term::count> twelve_terms = {"完成工事高",
                                                                             "売上高",
                                                                             "営業利益",
                                                                             "経常（事業主）利益",
                                                                             "当期純利益",
                                                                             "減価償却実施額",
                                                                             "貸倒引当金（前期）",
                                                                             "貸倒引当金（当期）",
                                                                             "受取利息配当金",
                                                                             "支払利息",
                                                                             "受取手形",
                                                                             "完成工事未収入金",
                                                                             "未成工事支出金",
                                                                             "支払手形",
                                                                             "工事未払金",
                                                                             "未成工事受入金",
                                                                             "自己資本",
                                                                             "総資本（当期）",
                                                                             "総資本（二期平均）",
                                                                             "短期借入金",
                                                                             "社債",
                                                                             "長期借入金",
                                                                             "固定資産",
                                                                             "固定負債",
                                                                             "材料費",
                                                                             "労務外注費",
                                                                             "外注費",
                                                                             "兼業事業売上原価"};

/// A sum of terms: the first `added` of them count, the others go off it.
struct Twelve_Sum {
    static constexpr std::size_t most = 6;

    std::size_t added = 0;
    std::size_t size = 0;
    std::array<twelve_term::Place, most> terms{};
};

template <class... Places>
constexpr Twelve_Sum Sum_Of(Places... terms) {
    return {sizeof...(terms), sizeof...(terms), {terms...}};
}

/// The sum less further terms.
template <class... Places>
constexpr Twelve_Sum Less(Twelve_Sum sum, Places... terms) {
    ((sum.terms[sum.size++] = terms), ...);
    return sum;
}

/// An indicator: one sum in percent of another, or in months of what the other is for a year.
struct Twelve_Indicator {
    enum class Unit { Percent, Months };

    const char* name;
    Unit unit;
    int standard;             ///< of the trade, in thousandths
    bool upper_from_standard; ///< 上位 from the standard on; else up to it
    Twelve_Sum above, below;

    /// What the share of one sum in the other is multiplied by.
    [[nodiscard]] constexpr int Factor() const { return unit == Unit::Percent ? 100 : 12; }

    [[nodiscard]] constexpr float Standard() const {
        return static_cast<float>(static_cast<double>(standard) / 1000.0);
    }
};

namespace twelve_detail {
using namespace twelve_term;
inline constexpr auto percent = Twelve_Indicator::Unit::Percent;
inline constexpr auto months = Twelve_Indicator::Unit::Months;
inline constexpr Twelve_Sum all_sales = Sum_Of(sales);
inline constexpr Twelve_Sum advanced = Sum_Of(notes_receivable, work_receivables, uncompleted_work);

inline constexpr std::array<Twelve_Indicator, 12> indicators = {{
    {"売上高営業利益率", percent, 1'870, true, Sum_Of(operating_profit), all_sales},
    {"総資本経常利益率", percent, 3'076, true, Sum_Of(ordinary_profit), Sum_Of(mean_capital)},
    {"キャッシュフロー対売上高比率", percent, 1'259, true,
     Less(Sum_Of(net_profit, depreciation, allowance), prior_allowance), all_sales},
    {"必要運転資金月商倍率", months, 412, false,
     Less(advanced, notes_payable, work_payables, advances_received), all_sales},
    {"立替工事高比率", percent, 15'177, false, Less(advanced, advances_received),
     Sum_Of(completed_work, uncompleted_work)},
    {"受取勘定月商倍率", months, 1'805, false, Sum_Of(notes_receivable, work_receivables),
     Sum_Of(completed_work)},
    {"自己資本比率", percent, 21'445, true, Sum_Of(equity), Sum_Of(total_capital)},
    // More debt counts as better here, and more capital tied up below: the comments have always compared so.
    {"有利子負債月商倍率", months, 2'798, true, Sum_Of(short_loans, bonds, long_loans), all_sales},
    {"純支払利息比率", percent, 474, false, Less(Sum_Of(interest_paid), interest_received), all_sales},
    {"自己資本対固定資産比率", percent, 67'160, true, Sum_Of(equity), Sum_Of(fixed_assets)},
    {"長期固定適合比率", percent, 144'391, true, Sum_Of(equity, fixed_liabilities), Sum_Of(fixed_assets)},
    {"付加価値対固定資産比率", percent, 173'904, true,
     Less(all_sales, material, labour_subcontracts, subcontracts, side_business_cost), Sum_Of(fixed_assets)},
}};
} // namespace twelve_detail

inline constexpr const auto& twelve_indicators = twelve_detail::indicators;

/// 要素CD of the first of them in XW_Yoso; the others follow.
inline constexpr int first_twelve_element = 21;

} // namespace morvane
