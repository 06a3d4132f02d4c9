// SPDX-FileCopyrightText: The Morvane developers
#include "statements/zaimu_calc.h"

#include <array>
#include <string>

namespace morvane {

namespace {

/// Amounts of N columns that are summed side by side.
template <std::size_t N>
struct Amounts {
    std::array<double, N> of{};

    friend Amounts operator+(Amounts a, const Amounts& b) {
        for (std::size_t i = 0; i < N; ++i) {
            a.of[i] += b.of[i];
        }
        return a;
    }
    friend Amounts operator-(Amounts a, const Amounts& b) {
        for (std::size_t i = 0; i < N; ++i) {
            a.of[i] -= b.of[i];
        }
        return a;
    }
};

/// Stores amounts of the current row where they differ: a statement that adds up is not written again.
template <std::size_t N>
void Store_Changed(Recordset& row, const std::array<std::string, N>& columns,
                   const std::array<double, N>& amounts) {
    bool changed = false;
    for (std::size_t i = 0; i < N; ++i) {
        const Value& held = row[columns[i]];
        if (held.Is_Null() || held.Is_Text() || held.As_Double() != amounts[i]) {
            row.Set(columns[i], amounts[i]);
            changed = true;
        }
    }
    if (changed) {
        row.Update();
    }
}

/// The rows of a period and their class sums, for N columns.
template <std::size_t N>
class Book {
  public:
    using Sum = Amounts<N>;

    Book(const Connection& store, int period, std::array<std::string, N> columns, bool visible_only)
        : cn(store), names(std::move(columns)),
          rows(cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=?", period)),
          classes(Open_Classes(period, visible_only)), of_period(period), only_visible(visible_only) {}

    /// Reads the class sums anew, with what has been written meanwhile; false where no row enters a sum.
    bool Reopen_Classes() {
        classes = Open_Classes(of_period, only_visible);
        return !classes.Eof();
    }
    [[nodiscard]] bool Is_Empty() const { return classes.Count() == 0; }

    Sum Get_Class_Sum(const std::string& id) {
        Sum sum;
        if (classes.Find("科目分類識別", id)) {
            for (std::size_t i = 0; i < N; ++i) {
                sum.of[i] = classes.At(static_cast<int>(i) + 1).As_Double();
            }
        }
        return sum;
    }

    Sum Get_Row_Amount(int code) {
        Sum sum;
        if (rows.Find("建設科目CD", code)) {
            for (std::size_t i = 0; i < N; ++i) {
                sum.of[i] = rows[names[i]].As_Double();
            }
        }
        return sum;
    }

    void Put_Row_Amount(int code, const Sum& value) {
        if (rows.Find("建設科目CD", code)) {
            Store_Changed(rows, names, value.of);
        }
    }

    Recordset& Rows() { return rows; }

  private:
    Recordset Open_Classes(int period, bool visible_only) const {
        std::string sums;
        for (std::size_t i = 0; i < N; ++i) {
            sums += ", Sum(CASE WHEN 内部処理正負=1 THEN -" + names[i] + " ELSE " + names[i] + " END)";
        }
        return cn.Open("SELECT 科目分類識別" + sums + " FROM Ks_Zaihyo WHERE 決算期=? And 集計識別<>0" +
                           (visible_only ? " And 非表示識別=0" : "") + " GROUP BY 科目分類識別",
                       period);
    }

    const Connection& cn;
    std::array<std::string, N> names;
    Recordset rows;
    Recordset classes;
    int of_period;
    bool only_visible;
};

/// Which of the two routines runs the cascade: they differ in one row of the Hokkaido income statement.
enum class Routine { Shukei, Shukei_KK };

/// The cascade from class sums to totals. W(code, v) writes a row, C(class) is a class sum.
template <std::size_t N>
class Cascade {
  public:
    using Sum = Amounts<N>;

    Cascade(Book<N>& period, const Session& state, Routine which)
        : book(period), session(state), routine(which) {}

    void Run() {
        if (!book.Is_Empty()) {
            Cost_Reports();
        }
        // The totals written so far belong to classes themselves (702, and 534 of the Hokkaido form).
        if (!book.Reopen_Classes()) {
            return;
        }
        Assets();
        Liabilities();
        Net_Assets();
        Gross_Profit();
        Profits();
        Side_Business();
    }

  private:
    Sum C(const char* id) { return book.Get_Class_Sum(id); }
    void W(int code, const Sum& value) { book.Put_Row_Amount(code, value); }

    void Cost_Reports() {
        if (session.Is_Hokkaido()) {
            W(534, C("Kgu"));
            W(579, C("Kgu"));
        }
        const Sum input = C("SguH");
        W(726, input);
        const Sum total = input + C("SguT");
        W(702, total);
        W(728, total);
    }

    void Assets() {
        const Sum current = C("Rds");
        W(129, current);
        const Sum tangible = C("Yks");
        W(149, tangible);
        const Sum intangible = C("Mks");
        W(159, intangible);
        const Sum investments = C("Tst");
        W(178, investments);
        const Sum fixed = tangible + intangible + investments;
        W(179, fixed);
        assets = current + fixed;
        if (session.Is_Corporation()) {
            const Sum deferred = C("Kns");
            assets = assets + deferred;
            W(189, deferred);
        }
        W(199, assets);
    }

    void Liabilities() {
        const Sum current = C("Rdf");
        W(229, current);
        const Sum fixed = C("Ktf");
        W(248, fixed);
        liabilities = current + fixed;
        W(249, liabilities);
    }

    void Net_Assets() {
        if (!session.Is_Corporation()) {
            const Sum capital =
                book.Get_Row_Amount(250) + book.Get_Row_Amount(251) - book.Get_Row_Amount(273);
            const Sum remainder = assets - liabilities - capital;
            W(281, remainder);
            W(319, remainder + capital);
            W(399, liabilities + capital + remainder);
            return;
        }
        const Sum capital = C("Hjk");
        const Sum earned = C("Rjk");
        const Sum treasury = C("Jsg");
        const Sum valuation = C("Hks");
        const Sum rights = C("Skabu");
        const Sum remainder = assets - liabilities - capital - earned - treasury - valuation - rights;
        W(281, remainder);
        W(269, book.Get_Row_Amount(260) + book.Get_Row_Amount(268));
        const Sum retained = earned + remainder;
        W(289, retained);
        const Sum equity = retained + capital + treasury;
        W(298, equity);
        W(303, valuation);
        const Sum net = equity + valuation + rights;
        W(319, net);
        W(399, net + liabilities);
    }

    void Gross_Profit() {
        const bool hokkaido = session.Is_Hokkaido();
        const Sum cost = C("Kkg");
        W(539, cost);
        W(hokkaido ? 401 : 403, cost);
        const Sum completed = C(hokkaido ? "Kku" : "Kku_u") - cost;
        // The three-column routine writes the Hokkaido form's 409 to 419, where the end of this step follows.
        W(hokkaido ? (routine == Routine::Shukei ? 409 : 419) : 417, completed);
        const Sum side_cost = C("KugG") + C("KugT");
        W(hokkaido ? 411 : 413, side_cost);
        const Sum side = C(hokkaido ? "Knu" : "Knu_u") - side_cost;
        W(418, side);
        profit = completed + side;
        W(419, profit);
        if (!hokkaido) {
            W(402, book.Get_Row_Amount(400) + book.Get_Row_Amount(401));
            W(414, book.Get_Row_Amount(403) + book.Get_Row_Amount(413));
        }
    }

    void Profits() {
        const Sum expenses = C("Ipk");
        profit = profit - expenses;
        W(468, expenses);
        W(469, profit);
        const Sum income = C("Egs");
        W(479, income);
        const Sum costs = C("Egh");
        W(488, costs);
        profit = profit + (income - costs);
        W(489, profit);
        if (!session.Is_Corporation()) {
            W(529, profit);
            return;
        }
        const Sum gains = C("Tbr");
        W(499, gains);
        const Sum losses = C("Tbs");
        W(509, losses);
        profit = profit + (gains - losses);
        W(510, profit);
        profit = profit - C("SesT");
        W(519, profit);
    }

    void Side_Business() {
        const Sum goods = C("KugG");
        W(703, goods);
        W(705, goods + C("KugT"));
        const Sum input = C("SguH");
        W(726, input);
        W(728, input + C("SguT"));
    }

    Book<N>& book;
    const Session& session;
    Routine routine;
    Sum assets;
    Sum liabilities;
    Sum profit;
};

} // namespace

double Improved_Balance(const Recordset& row) {
    const double amount = row["金額"].As_Double();
    const double debit = row["借方"].As_Double();
    const double credit = row["貸方"].As_Double();
    if (row["建設科目CD"].As_Integer() == 273) {
        return -amount + debit - credit;
    }
    return row["貸借正負"].As_Integer() == 1 ? amount + debit - credit : amount - debit + credit;
}

void Zaimu_Shukei(const Connection& cn, const Session& session, std::uint8_t kbn) {
    static constexpr std::array<const char*, 3> columns = {"仮金額", "金額", "改善後残高"};
    Book<1> book(cn, session.Syori_Ki, {columns.at(kbn - 1U)}, true);
    Cascade<1>(book, session, Routine::Shukei).Run();
}

void Zaimu_Shukei(const Session& session, std::uint8_t kbn) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Zaimu_Shukei(cn, session, kbn);
    transaction.Commit();
}

void Zaimu_Shukei_KK(const Connection& cn, const Session& session) {
    Recordset rows = cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=? ORDER BY 建設科目CD", session.Syori_Ki);
    for (; !rows.Eof(); rows.Move_Next()) {
        Store_Changed<1>(rows, {"改善後残高"}, {Improved_Balance(rows)});
    }
    Book<3> book(cn, session.Syori_Ki, {"借方", "貸方", "改善後残高"}, false);
    Cascade<3>(book, session, Routine::Shukei_KK).Run();
}

void Zaimu_Shukei_KK(const Session& session) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Zaimu_Shukei_KK(cn, session);
    transaction.Commit();
}

} // namespace morvane
