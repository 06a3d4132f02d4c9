// SPDX-FileCopyrightText: The Morvane developers
#include "company/periods.h"

#include "company/datacheck.h"
#include "company/law_change.h"
#include "law/law_year.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"

#include <algorithm>
#include <limits>

namespace morvane {

namespace {

constexpr int lowest_number = 1;
constexpr int highest_number = std::numeric_limits<std::int16_t>::max();

bool Is_Registered(const std::vector<Period_Entry>& periods, std::int64_t number) {
    return std::any_of(periods.begin(), periods.end(),
                       [&](const Period_Entry& period) { return period.number == number; });
}

std::string Ordinal(std::int64_t number) {
    return "第" + std::to_string(number) + "期";
}

bool Agreed_To_Create(const Session& session, const std::vector<Period_Entry>& periods, Copy_Mode mode) {
    if (mode == Copy_Mode::After) {
        return Ask(session, "新規決算期処理確認",
                   std::string("新規決算期（後）のデータを作成します。作成されるデータは、") +
                       Newest_Law_Year().name + "のデータです。\nよろしいですか？");
    }
    const char* title = "新決算期指定エラー";
    if (periods.front().data_ver < Data_Form_No::National_2008) {
        Tell(session, title,
             "最古のデータが2008年改正以外は、新規情報を登録できません。\n"
             "（リース資産関連の科目が、2010年以降追加になっています。）");
        return false;
    }
    return Ask(session, title,
               "新規決算期（前）のデータを作成します。作成されるデータは、2010年改正財務の\n"
               "データですが、2008年改正以降は、2010年改正データで計算可能です。\n"
               "よろしいですか？");
}

} // namespace

std::vector<Period_Entry> Read_Periods(const Session& session) {
    const Connection cn = Cn_Open(session);
    const Transaction one_moment(cn, Transaction::Purpose::Read);
    std::vector<Period_Entry> periods;
    for (Recordset rows = cn.Open("SELECT * FROM Ks_Ki ORDER BY 決算期"); !rows.Eof(); rows.Move_Next()) {
        const auto number = static_cast<std::int16_t>(rows["決算期"].As_Integer());
        periods.push_back(
            {number, Get_Data_Ver(cn, session.Kind().edition, number), Get_Simyu_Kubun(cn, number)});
    }
    return periods;
}

std::string Period_Line(int number) {
    const std::string digits = std::to_string(number);
    return std::string(digits.size() < 4 ? 4 - digits.size() : 0, ' ') + digits + "期";
}

std::string Law_Text(const Period_Entry& period) {
    return period.data_ver < Data_Form_No::National_2008 ? "2008年改正より前（指定不可）"
                                                         : Law_Of(period.law_year).name;
}

std::optional<int> Proposed_Period(const std::vector<Period_Entry>& periods, Copy_Mode mode) {
    if (periods.empty()) {
        return std::nullopt;
    }
    const int number = mode == Copy_Mode::After ? periods.back().number + 1 : periods.front().number - 1;
    return number < lowest_number || number > highest_number ? std::nullopt : std::optional(number);
}

Law_Year_No Proposed_Law_Year(const std::vector<Period_Entry>& periods, Copy_Mode mode) {
    return mode == Copy_Mode::After || periods.empty() ? Newest_Law_Year().code : periods.front().law_year;
}

std::string No_Period_Before(const std::vector<Period_Entry>& periods) {
    return periods.empty() || Proposed_Period(periods, Copy_Mode::Before)
               ? ""
               : "これより前の決算期は作成できません。決算期の番号は 1 からです。";
}

std::string New_Period_Fault(const std::vector<Period_Entry>& periods, const Value& number, Copy_Mode mode) {
    if (const std::string none = No_Period_Before(periods); mode == Copy_Mode::Before && !none.empty()) {
        return none;
    }
    if (number.Is_Null()) {
        return "新しい決算期の番号を入力してください。";
    }
    if (number.Is_Text() || number.As_Double() < lowest_number || number.As_Double() > highest_number) {
        return "決算期の番号は、" + std::to_string(lowest_number) + " から " +
               std::to_string(highest_number) + " までの数字です。";
    }
    const std::int64_t wanted = number.As_Integer();
    if (Is_Registered(periods, wanted)) {
        return Ordinal(wanted) + "は既に登録されています。";
    }
    const std::int64_t neighbour = mode == Copy_Mode::After ? wanted - 1 : wanted + 1;
    if (!Is_Registered(periods, neighbour)) {
        return std::string("作成のもとになる") + (mode == Copy_Mode::After ? "前の期（" : "次の期（") +
               Ordinal(neighbour) + "）が登録されていません。";
    }
    return {};
}

Creation Create_Period(Session& session, const Value& number, Copy_Mode mode, Law_Year_No law_year) {
    const std::vector<Period_Entry> periods = Read_Periods(session);
    if (!New_Period_Fault(periods, number, mode).empty()) {
        return Creation::Bad_Number;
    }
    if (!Agreed_To_Create(session, periods, mode) ||
        !Period_Copy(session, static_cast<std::int16_t>(number.As_Integer()), session.Syori_Ki, mode,
                     law_year)) {
        return Creation::Declined;
    }
    Tell(session, "新決算期処理終了", "新規決算期処理が終了しました。");
    return Creation::Made;
}

bool Choose_Period(Session& session, std::optional<std::int16_t> chosen) {
    if (!chosen) {
        Tell(session, "既存指定", "既存の決算期が指定されていません。");
        return false;
    }
    // A form without a marker row (51 to 53) may be started with, but not be turned to.
    if (const Data_Form_No form = Get_Data_Ver(session, *chosen);
        form < Data_Form_No::National_2008 || form > Data_Form_No::Hokkaido) {
        Tell(session, "決算期指定エラー",
             "指定の決算期は、2008年改正以後の経審のデータではありません。決算変更はできません。");
        return false;
    }
    {
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        Take_Period(cn, *chosen, session.Syori_Ki);
        transaction.Commit();
    }
    Session next = session;
    next.Syori_Ki = *chosen;
    Company_Reload(next);
    session = next;
    return true;
}

bool Delete_Period(const Session& session, std::optional<std::int16_t> chosen) {
    if (!chosen) {
        Tell(session, "削除決算期指定", "削除する決算期が指定されていません。");
        return false;
    }
    const char* refusal = "決算期削除不可エラー";
    if (*chosen == session.Syori_Ki) {
        Tell(session, refusal, "現在処理中の決算期は削除できません。");
        return false;
    }
    const std::vector<Period_Entry> periods = Read_Periods(session);
    if (periods.size() == 1) {
        Tell(session, refusal,
             "登録決算期が１期のみの場合は削除できません。\n"
             "変更が必要な場合は、[自社情報]の決算期を変更してください。");
        return false;
    }
    if (periods.empty() || (*chosen != periods.front().number && *chosen != periods.back().number)) {
        Tell(session, refusal,
             "削除できる決算期は、最古または最新決算期のみです。中間の決算期は削除できません。");
        return false;
    }
    if (!Ask(session, "指定決算期データ削除確認",
             "指定された決算期の全データを削除します。削除したデータは復活できません！\nよろしいですか？")) {
        return false;
    }
    {
        const Connection cn = Cn_Open(session);
        Transaction transaction(cn);
        for (const char* table : {"Ks_Zaihyo", "Kandaka_Gj", "W_Yoso", "Ks_ki", "QandA"}) {
            cn.Execute(std::string("DELETE FROM ") + table + " WHERE 決算期=?", *chosen);
        }
        transaction.Commit();
    }
    Tell(session, "決算期削除処理終了", "指定された決算期データの削除が終了しました。");
    return true;
}

Law_Year_No Change_Law_Year(Session& session, std::int16_t period, Law_Year_No wanted, Law_Year_No marked) {
    const Law_Year& present = Law_Of(Get_Simyu_Kubun(session, period));
    const Law_Year& law = Law_Of(wanted);
    if (wanted == present.code || (law.has_additions && !present.has_additions)) {
        return wanted;
    }
    if (law.closed) {
        Refuse_Law_2008(session);
        return marked;
    }
    if (!Ask(session, "経審計算年の変更確認",
             std::string(law.name) + "のデータに変更します。\nよろしいですか？")) {
        return law.option_if_declined == Law_Year_No{} ? present.code : law.option_if_declined;
    }
    Set_Law_Year(session, period, wanted);
    // The menu opens forms by the session's law year, which is that of the period in hand.
    if (period == session.Syori_Ki) {
        session.Simyu_Kubun = wanted;
    }
    return wanted;
}

void Refuse_Law_2008(const Session& session) {
    Tell(session, "経審年指定エラー", "2008年のシミュレーションはできません。");
}

} // namespace morvane
