// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_sheet.h"

#include "law/elements.h"
#include "review/social.h"
#include "screens/check_figures.h"

#include <stdexcept>

namespace morvane {

namespace {

const Sheet_Text* Find(const std::vector<Sheet_Text>& sheets, const std::string& mode, const Law_Year& law) {
    for (const Sheet_Text& sheet : sheets) {
        if (sheet.mode == mode && sheet.law.Has(law)) {
            return &sheet;
        }
    }
    return nullptr;
}

const Sheet_Text& Find(const std::string& mode, const Law_Year& law) {
    for (const auto* sheets : {&X2_Sheets(), &W_Sheets(), &XZP_Sheets(), &Y1_Sheets(), &Twelve_Sheets()}) {
        if (const Sheet_Text* sheet = Find(*sheets, mode, law)) {
            return *sheet;
        }
    }
    throw std::out_of_range("no check screen for " + mode);
}

Check_Request Request(const std::string& mode, const Law_Year& law, std::size_t Kosyu_Sel) {
    const Sheet_Text& sheet = Find(mode, law);
    return {sheet.form != nullptr ? sheet.form : law.welfare_check, mode, Kosyu_Sel};
}

Check_Figures Load(const Review_Figures& figures, const Check_Request& request) {
    Check_Figures f;
    f.figures = figures;
    f.Kosyu_Sel = request.Kosyu_Sel;
    const std::int32_t years = f.figures.Yoso(element::years_of_average);
    f.Kanko_Avg = years == 0 ? 2 : years;
    f.items.Load(f.figures);
    const Law_Year& law = f.Law();
    // A score is formed where it is shown: what is out of the range of one must not close the others.
    const bool with_p = request.mode == "P";
    if (Find(X2_Sheets(), request.mode, law) != nullptr || with_p) {
        f.x2 = Calc_X2(f.figures);
    }
    if (Find(W_Sheets(), request.mode, law) != nullptr) {
        f.w5 = W5_Of(f.items, Thousand_Yen(f.items.keiri_kandaka));
    }
    const bool of_twelve = Find(Twelve_Sheets(), request.mode, law) != nullptr;
    if (Find(Y1_Sheets(), request.mode, law) != nullptr || of_twelve || with_p) {
        f.y = Calc_Y(f.figures.statement, f.figures.firm);
    }
    if (of_twelve) {
        f.twelve = Calc_Twelve(f.figures.statement, f.figures.firm, f.y);
    }
    return f;
}

std::vector<Check_Line> Lines(const std::vector<Sheet_Line>& from, const Check_Figures& f) {
    std::vector<Check_Line> lines;
    for (const Sheet_Line& line : from) {
        lines.push_back({line.caption, {line.value(f), line.name}});
    }
    return lines;
}

// The steps, where there is a score; what the store holds of an earlier calculation is told as such.
void Add_Steps(const Sheet_Text& text, const Check_Figures& f, Check_Sheet& sheet) {
    const std::string& score = sheet.results.back().value.text;
    const bool of_works = Find(XZP_Sheets(), text.mode, f.Law()) != nullptr;
    if (of_works && score.empty()) {
        sheet.closing.emplace_back("この工種には入力がないため、評点はありません。");
        return;
    }
    Steps steps;
    text.steps(f, steps);
    sheet.steps = steps.Lines();
    sheet.closing.insert(sheet.closing.end(), steps.Remarks().begin(), steps.Remarks().end());
    if (!sheet.steps.empty() && steps.Result() != (score.empty() ? "0" : score)) {
        sheet.closing.emplace_back(
            "表示している点数は前に保存された値です。入力画面を開き直すと計算し直します。");
    }
}

} // namespace

std::string Least_Text(std::int32_t least) {
    return "小数点以下は切り捨て、" + Number(least) + "点に満たないときは" + Number(least) + "点となります。";
}

Check_Request W2X_Request(const Law_Year& law, int index) {
    if (index < 0 || index >= static_cast<int>(std::size(w2x_buttons))) {
        throw std::out_of_range("no button Cmd_W2X(" + std::to_string(index) + ")");
    }
    return Request(w2x_buttons[index], law, 0);
}

Check_Request XZP_Request(const std::string& mode, std::size_t Kosyu_Sel) {
    return Request(mode, Newest_Law_Year(), Kosyu_Sel);
}

Check_Request Y1_Request(int index) {
    if (index < 0 || index >= static_cast<int>(Y1_Sheets().size())) {
        throw std::out_of_range("no detail of Y for " + std::to_string(index));
    }
    return Request(Y1_Sheets()[static_cast<std::size_t>(index)].mode, Newest_Law_Year(), 0);
}

Check_Request Twelve_Request(std::size_t place) {
    return Request(Twelve_Sheets().at(place).mode, Newest_Law_Year(), 0);
}

Check_Sheet Make_Check_Sheet(const Session& session, Side side, const Check_Request& request) {
    return Make_Check_Sheet(Load_Review(session, side), request);
}

Check_Sheet Make_Check_Sheet(const Review_Figures& figures, const Check_Request& request) {
    const Check_Figures f = Load(figures, request);
    const Law_Year& law = f.Law();
    const Sheet_Text& text = Find(request.mode, law);
    Check_Sheet sheet;
    sheet.title = text.title;
    sheet.amounts = text.amounts;
    sheet.inputs = Lines(text.inputs, f);
    sheet.formula = text.formula;
    sheet.results = Lines(text.results, f);
    sheet.closing = text.closing;
    sheet.help_key = law.version_b && text.help_key_b != nullptr ? text.help_key_b : text.help_key;
    sheet.table_form = text.table_form;
    sheet.Tbl_Disp_No = text.Tbl_Disp_No;
    sheet.law_year = law.code;
    if (text.more) {
        text.more(f, sheet);
    }
    Add_Steps(text, f, sheet);
    return sheet;
}

} // namespace morvane
