// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "session/session.h"

#include <array>
#include <cstdint>
#include <vector>

namespace morvane {

/// What decides which accounts, captions and rows a firm's statements have. A table's row applies where the
/// firm has all bits of the row.
namespace statement_form {
inline constexpr unsigned any = 0;
inline constexpr unsigned corporation = 1; ///< 様式第15号, 第16号
inline constexpr unsigned individual = 2;  ///< 様式第18号, 第19号
inline constexpr unsigned national = 4;    ///< national edition of the chart
inline constexpr unsigned hokkaido = 8;    ///< Hokkaido edition
inline constexpr unsigned with_lease = 16; ///< the lines of leases (from 2010 on) are shown
inline constexpr unsigned without_lease = 32;
} // namespace statement_form

/// The bits of the firm in hand, but for the leases.
unsigned Statement_Form_Of(const Session& session);

/// Whether a table's row applies to a firm.
constexpr bool Applies(unsigned row, unsigned form) {
    return (row & form) == row;
}

/// The figures that stand behind the panel beside a statement screen, in yen. Most are named by the control
/// that shows them.
enum class Panel_Field : std::uint8_t {
    None,
    Rds,     ///< current assets
    Yks,     ///< tangible fixed assets
    Mks,     ///< intangible fixed assets
    Tst,     ///< investments and other assets
    KtsKei,  ///< fixed assets
    KnsKei,  ///< deferred assets, of a corporation
    SSKei,   ///< all assets
    Rdf,     ///< current liabilities
    Ktf,     ///< fixed liabilities
    FSiKei,  ///< all liabilities
    Shk,     ///< capital and capital surplus; of an individual the capital at the beginning, with drawings
    Between, ///< retained earnings without the remainder
    Krj,   ///< the remainder that balances the sheet: 繰越利益剰余金, of an individual 事業主利益
    Rjkei, ///< retained earnings
    Treasury,     ///< treasury shares, negative
    Subscription, ///< subscription money for treasury shares
    KKbkei,       ///< shareholders' equity
    Hyok,         ///< valuation differences
    Skb,          ///< share subscription rights
    SHKei,        ///< net assets
    FSSKei,       ///< liabilities and net assets
    Sales,        ///< completed work
    Cost,         ///< its cost
    Side_Sales,   ///< side business
    Side_Cost,    ///< its cost
    Ksr,          ///< gross profit of completed work
    Kjr,          ///< gross profit of the side business
    Usr,          ///< gross profit
    Hkr,          ///< general and administrative expenses
    EgrKei,       ///< operating profit
    Egs,          ///< non-operating income
    Egh,          ///< non-operating expenses
    KjrKei,       ///< ordinary profit, of an individual 事業主利益
    TrKei,        ///< extraordinary income
    TsKei,        ///< extraordinary losses
    ZtrKei,       ///< profit before taxes
    Hjz,          ///< taxes on income
    Hjz_Deferred, ///< adjustment of taxes on income
    TkrKei,       ///< profit of the period
    ZRki,         ///< retained earnings carried from the period before
    THen,         ///< change of equity over the period
    Count
};

enum class Panel_Group : std::uint8_t { Assets, Liabilities, Profit, Check };

/// A line of the panel: fields added and fields subtracted, under the name of its control.
struct Statement_Line {
    const char* control;
    const char* caption;
    Panel_Group group;
    unsigned when;
    std::array<Panel_Field, 2> plus;
    std::array<Panel_Field, 2> minus{};
    bool is_sum = false; ///< closes the lines above it
};

/// The lines that a firm of that form sees, in order.
std::vector<Statement_Line> Statement_Lines(unsigned form);

/// The totals of a whole period beside the section that is keyed.
class Statement_Panel {
  public:
    Statement_Panel() = default;

    /// Loads the fields from 金額 of a period's rows; a missing row or a Null is 0.
    Statement_Panel(unsigned firm_form, Recordset& period_rows);

    [[nodiscard]] double operator[](Panel_Field field) const { return of[static_cast<std::size_t>(field)]; }
    double& operator[](Panel_Field field) { return of[static_cast<std::size_t>(field)]; }

    /// Forms all totals anew from the subtotals, with the remainder that makes the balance sheet balance.
    void Panel_Totals();

    [[nodiscard]] double Shown(const Statement_Line& line) const;

    /// Whether the balance sheet and the income statement agree, to the yen. Of a corporation: retained
    /// earnings carried forward and profit come to the retained earnings and the change of equity.
    [[nodiscard]] bool Check() const;

    /// What the check label says.
    [[nodiscard]] const char* Check_Text() const;

    /// Whether there are a total capital, fixed assets and a gross profit (of an individual: completed work),
    /// without which Y has no figures.
    [[nodiscard]] bool Is_Complete() const;

    /// Whether Y may be computed: only a corporation's statements must balance.
    [[nodiscard]] bool May_Compute_Y() const;

  private:
    [[nodiscard]] bool Is_Corporation() const { return (form & statement_form::corporation) != 0; }

    unsigned form = statement_form::any;
    std::array<double, static_cast<std::size_t>(Panel_Field::Count)> of{};
};

} // namespace morvane
