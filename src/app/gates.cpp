// SPDX-FileCopyrightText: The Morvane developers
#include "app/gates.h"

#include "law/accounts.h"
#include "law/elements.h"
#include "review/y_calc.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"

#include <string>

namespace morvane {

namespace {

struct Gate_Row {
    Gate gate;
    const char* title;
    const char* text;
};

constexpr std::array<Gate_Row, 9> gate_rows = {{
    {Gate::Statement, "財務データエラー",
     "建設財務データが不完全です。最低でも総資本、固定資産、売上高は必要です。"},
    {Gate::Statement_Other, "財務データエラー",
     "当社の建設財務データが不完全です。最低でも総資本、固定資産、売上高は必要です。"},
    {Gate::Completed_Work, "入力データ不完全エラー", "完成工事高が未入力です。"},
    {Gate::Y, "データ処理不完全エラー", "Ｙ点の計算が未処理です。\n［経営状況(Y)］を先に開いてください。"},
    {Gate::Y_Short, "データ処理不完全エラー", "Ｙ点の計算が未処理です。"},
    {Gate::X2W, "データ処理不完全エラー", "Ｘ２，Ｗ点の計算が未処理です。"},
    {Gate::Current_X2W, "データ処理不完全エラー", "現状（改善前）のＸ２，Ｗ点の計算が未処理です。"},
    {Gate::Improved_X2W, "データ処理不完全エラー", "改善後のＸ２，Ｗ点の計算が未処理です。"},
    {Gate::Prior_Period, "前期データ無しエラー", "前期のデータがありません。"},
}};

bool Has_Completed_Work(const Session& session) {
    const Connection cn = Cn_Open(session);
    Recordset elements = cn.Open("SELECT * FROM W_Yoso WHERE 決算期=?", session.Syori_Ki);
    if (elements.Eof()) {
        return true;
    }
    return Yoso_Get(element::total_of_two, elements) != 0 && Yoso_Get(element::total_of_three, elements) != 0;
}

bool Has_Y(const Session& session) {
    return Calc_Y(session, Side_In_Hand(session)).has_figures;
}

bool Has_W(const Session& session, const char* column) {
    const Connection cn = Cn_Open(session);
    const Recordset element =
        cn.Open("SELECT * FROM W_Yoso WHERE 決算期=? And 要素CD=?", session.Syori_Ki, element::w);
    return !element.Eof() && !element[column].Is_Null();
}

bool Has_Row(const Session& session, const char* of_period, int period) {
    return !Cn_Open(session).Open(of_period, period).Eof();
}

} // namespace

bool Gate_Is_Open(const Session& session, Gate gate) {
    switch (gate) {
    case Gate::None:
        return true;
    case Gate::Statement:
    case Gate::Statement_Other:
        return Has_Row(session, "SELECT 建設科目CD FROM Ks_Zaihyo WHERE 決算期=? LIMIT 1", session.Syori_Ki);
    case Gate::Completed_Work:
        return Has_Completed_Work(session);
    case Gate::Y:
    case Gate::Y_Short:
        return Has_Y(session);
    case Gate::X2W:
    case Gate::Current_X2W:
        return Has_W(session, "現状");
    case Gate::Improved_X2W:
        return Has_W(session, "改善後0");
    case Gate::Prior_Period:
        return Has_Row(session, "SELECT * FROM Ks_ki WHERE 決算期=?", session.Syori_Ki - 1);
    }
    return true;
}

bool Pass_Gates(const Session& session, std::span<const Gate> gates) {
    for (const Gate gate : gates) {
        if (Gate_Is_Open(session, gate)) {
            continue;
        }
        for (const Gate_Row& row : gate_rows) {
            if (row.gate == gate) {
                Tell(session, row.title, row.text);
            }
        }
        return false;
    }
    return true;
}

} // namespace morvane
