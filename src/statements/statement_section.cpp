// SPDX-FileCopyrightText: The Morvane developers
#include "statements/statement_section.h"

#include "session/boxes.h"
#include "statements/zaimu_calc.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace {

using namespace statement_form;
using enum Panel_Field;

/// Rows (from 0) of a section that a subtotal adds. Rows of one field are added up.
struct Row_Range {
    std::int16_t section; ///< its first account
    unsigned when;
    std::size_t first;
    std::size_t last;
    Panel_Field field;
};

constexpr unsigned nat_lease = national | with_lease;
constexpr unsigned nat_plain = national | without_lease;
constexpr unsigned hok_lease = hokkaido | with_lease;
constexpr unsigned hok_plain = hokkaido | without_lease;

// What stands between the ranges are totals. An individual has no lines of leases and so the rows of the
// statements before 2010.
constexpr auto ranges = std::to_array<Row_Range>({
    {100, national, 0, 12, Rds},
    {100, hokkaido, 0, 14, Rds},
    {130, with_lease, 0, 16, Yks},
    {130, without_lease, 0, 13, Yks},
    {150, with_lease, 0, 4, Mks},
    {150, without_lease, 0, 3, Mks},
    {150, nat_lease, 6, 13, Tst},
    {150, nat_plain, 5, 13, Tst},
    {150, hok_lease, 6, 14, Tst},
    {150, hok_plain, 5, 14, Tst},
    {150, corporation | national, 16, 20, KnsKei},
    {150, corporation | hokkaido, 17, 21, KnsKei},
    {200, nat_lease, 0, 14, Rdf},
    {200, nat_plain, 0, 13, Rdf},
    {200, hok_lease, 0, 17, Rdf},
    {200, hok_plain, 0, 16, Rdf},
    {200, nat_lease, 16, 24, Ktf},
    {200, nat_plain, 15, 22, Ktf},
    {200, hok_lease, 19, 27, Ktf},
    {200, hok_plain, 18, 25, Ktf},
    {250, any, 0, 3, Shk},
    {250, corporation, 5, 7, Between},
    {250, corporation, 10, 10, Treasury},
    {250, corporation, 11, 11, Subscription},
    {250, corporation, 13, 15, Hyok},
    {250, corporation, 17, 17, Skb},
    {400, any, 0, 0, Sales},
    {400, national, 1, 1, Side_Sales},
    {400, hokkaido, 3, 3, Side_Sales},
    {420, national, 0, 22, Hkr},
    {420, hokkaido, 0, 24, Hkr},
    {470, any, 0, 2, Egs},
    {470, any, 4, 8, Egh},
    {490, corporation | national, 0, 2, TrKei},
    {490, corporation | national, 4, 6, TsKei},
    {490, corporation | national, 9, 9, Hjz},
    {490, corporation | national, 10, 10, Hjz_Deferred},
    {490, corporation | hokkaido, 0, 4, TrKei},
    {490, corporation | hokkaido, 6, 9, TsKei},
    {490, corporation | hokkaido, 12, 12, Hjz},
    {490, corporation | hokkaido, 13, 13, Hjz_Deferred},
    {530, national, 0, 6, Cost},
    // 534 shows the stored sum of its breakdown, which stands below and is added itself; so does 702.
    {530, hokkaido, 0, 3, Cost},
    {530, hokkaido, 7, 25, Cost},
    {700, any, 0, 1, Side_Cost},
    {700, any, 4, 4, Side_Cost},
    {700, any, 6, 11, Side_Cost},
    {700, any, 13, 13, Side_Cost},
});

/// First rows of the triples cost, accumulated depreciation, book value.
struct Triple {
    unsigned when;
    std::size_t first;
};
constexpr std::int16_t tangible_section = 130;
constexpr auto triples = std::to_array<Triple>({
    {any, 0},
    {any, 3},
    {any, 6},
    {without_lease, 11},
    {with_lease, 10},
    {with_lease, 14},
});

constexpr std::array lease_codes = {140, 153, 204, 232};

} // namespace

Statement_Section::Statement_Section(Session& the_session)
    : session(the_session), form(Statement_Form_Of(the_session)) {
    Zaimu_Shukei(session, 2);
    const Connection cn = Cn_Open(session);
    Recordset period = cn.Open(
        "SELECT * FROM " + session.Zaihyo_Table + " WHERE 決算期=? ORDER BY 建設科目CD", session.Syori_Ki);
    bool has_lease = false;
    for (; !period.Eof(); period.Move_Next()) {
        const auto code = static_cast<int>(period["建設科目CD"].As_Integer());
        if (code < session.Kamoku_From || code > session.Kamoku_To || period["非表示識別"].As_Boolean()) {
            continue;
        }
        rows.push_back({.code = code,
                        .name = period["建設科目名"],
                        .amount = period["金額"],
                        .sign = period["正負識別"].As_Text(),
                        .name_open = period["科目編集識別"].As_Boolean(),
                        .amount_open = period["金額編集識別"].As_Boolean(),
                        .adds = period["集計識別"].As_Boolean(),
                        .subtracts = period["内部処理正負"].As_Integer() == 1});
        has_lease = has_lease || std::find(lease_codes.begin(), lease_codes.end(), code) != lease_codes.end();
    }
    form |= has_lease ? with_lease : without_lease;
    lines = Statement_Lines(form);
    panel = Statement_Panel(form, period);
    Sec_Subtotals();
    for (const Triple& triple : triples) {
        if (session.Kamoku_From == tangible_section && Applies(triple.when, form) &&
            triple.first + 2 < rows.size()) {
            // The caption of a depreciation belongs to the line above it.
            rows[triple.first + 1].name_open = false;
            // Imported statements have no book values.
            if (rows[triple.first + 2].amount.Is_Null()) {
                Book_Value_Pair(triple.first);
            }
        }
    }
}

double Statement_Section::Sec_RangeSum(std::size_t from, std::size_t to) const {
    double sum = 0.0;
    for (std::size_t i = from; i <= to && i < rows.size(); ++i) {
        if (rows[i].adds) {
            const double amount = rows[i].amount.As_Double();
            sum += rows[i].subtracts ? -amount : amount;
        }
    }
    return sum;
}

void Statement_Section::Sec_Subtotals() {
    Panel_Field summed = None;
    for (const Row_Range& range : ranges) {
        // A field whose rows are not on the screen stays as it was loaded.
        if (range.section != session.Kamoku_From || !Applies(range.when, form) ||
            range.first >= rows.size()) {
            continue;
        }
        if (range.field != summed) {
            panel[range.field] = 0.0;
            summed = range.field;
        }
        panel[range.field] += Sec_RangeSum(range.first, range.last);
    }
    panel.Panel_Totals();
}

std::optional<std::size_t> Statement_Section::Set_Amount(std::size_t row, const Value& amount) {
    rows.at(row).amount = amount;
    return session.Kamoku_From == tangible_section ? Book_Value_Pair(row) : std::nullopt;
}

std::optional<std::size_t> Statement_Section::Book_Value_Pair(std::size_t row) {
    for (const Triple& triple : triples) {
        if (!Applies(triple.when, form) || row < triple.first || row > triple.first + 2 ||
            triple.first + 2 >= rows.size()) {
            continue;
        }
        const Value& cost = rows[triple.first].amount;
        const Value& depreciation = rows[triple.first + 1].amount;
        const bool blank = cost.Is_Null() && depreciation.Is_Null();
        rows[triple.first + 2].amount = blank ? Value() : Value(cost.As_Double() - depreciation.As_Double());
        return triple.first + 2;
    }
    return std::nullopt;
}

void Statement_Section::Store_Rows(const Connection& cn) const {
    Statement update = cn.Prepare("UPDATE " + session.Zaihyo_Table +
                                  " SET 建設科目名=?, 金額=? WHERE 決算期=? AND 建設科目CD=?");
    for (const Statement_Row& row : rows) {
        update.With(row.name, row.amount, session.Syori_Ki, row.code).Step();
        update.Reset();
    }
    Zaimu_Shukei(cn, session, 2);
}

void Statement_Section::Save_Rows() const {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Store_Rows(cn);
    transaction.Commit();
}

void Statement_Section::Close(bool save) const {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    if (save) {
        Store_Rows(cn);
    }
    Zaimu_Shukei_KK(cn, session);
    transaction.Commit();
}

bool Statement_Section::Y_Disp() const {
    if (!panel.Is_Complete()) {
        Tell(session, "財務データエラー",
             "建設財務データが不完全です。最低でも総資本、固定資産、売上高は必要です。");
        return false;
    }
    if (!Ask(session, "編集保存確認", "編集中の財務諸表を一旦保存します。\nよろしいですか？")) {
        return false;
    }
    Save_Rows();
    if (!panel.May_Compute_Y()) {
        Show_Message(session, {.title = "バランス不合エラー",
                               .text = "バランスが不合のため、計算できません。",
                               .icon = Icon::Exclamation,
                               .beep = true});
        return false;
    }
    session.Menu_Mode = 1;
    return true;
}

const char* Unit_Caption(const Session& session) {
    switch (session.Tani_Kbn) {
    case 1:
        return "単位：円";
    case 2:
        return "単位：千円";
    default:
        return "単位：百千円";
    }
}

} // namespace morvane
