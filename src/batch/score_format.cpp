// SPDX-FileCopyrightText: The Morvane developers
#include "batch/score_format.h"

#include "data/json_text.h"
#include "data/shown_text.h"
#include "data/work_columns.h"
#include "law/elements.h"
#include "session/kyotu_mod.h"

#include <array>
#include <charconv>
#include <span>

namespace morvane {

namespace {

/// The double whose shortest text is also the shortest text of the single.
double Short(float number) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), number).ptr;
    double value = 0.0;
    std::from_chars(text.begin(), end, value);
    return value;
}

std::string Short_Text(float number) {
    std::array<char, 32> text{};
    return {text.begin(), std::to_chars(text.begin(), text.end(), number).ptr};
}

std::string Score_Text(Points points) {
    return std::to_string(points.Count());
}

Json Floats(std::span<const float> numbers) {
    Json list = Json::Array();
    for (const float number : numbers) {
        list.Add(Short(number));
    }
    return list;
}

Json Or_Null(const Figure& figure) {
    return figure.up ? Json(figure.value) : Json(nullptr);
}

struct W_Row {
    const char* name;
    int element;
};
constexpr std::array<W_Row, 9> w_rows = {{{"W1", element::w1},
                                          {"W2", element::w2},
                                          {"W3", element::w3},
                                          {"W4", element::w4},
                                          {"W5", element::w5},
                                          {"W6", element::w6},
                                          {"W7", element::w7},
                                          {"W8", element::w8},
                                          {"W", element::w}}};

template <auto Member>
const Figure& Of(const Work_Line& line) {
    return line.*Member;
}

/// The columns of a line in every format.
struct Line_Column {
    const char* name;
    const char* heading; ///< of the table; null where the table leaves it out
    const Figure& (*figure)(const Work_Line&);
};
constexpr std::array<Line_Column, 7> line_columns = {
    {{work_column::average, "完成工事高", Of<&Work_Line::Nheikin>},
     {work_column::x1, "X1", Of<&Work_Line::X1>},
     {work_column::z1, "Z1", Of<&Work_Line::Zi>},
     {work_column::prime_average, "元請完工高", Of<&Work_Line::Mnheikin>},
     {work_column::z2, "Z2", Of<&Work_Line::Zro>},
     {work_column::z, "Z", Of<&Work_Line::Z>},
     {work_column::p, "P", Of<&Work_Line::P>}}};

// A figure left from another law year is none of this one.
std::int32_t W_Of(const Settled_Score& score, int element) {
    const bool has = Find_Element(element)->law.Has(Law_Of(score.figures.law_year));
    return has ? score.figures.Yoso(element) : 0;
}

/// P of a line under the four ways of averaging, and the letters of the best ones; null where it has no P.
Json Relief_Of(const Gekihen_Table& relief, std::size_t line, const Work_Line& work) {
    if (line >= relief.lines.size() || !work.P.up) {
        return nullptr;
    }
    Json entry;
    Json best = Json::Array();
    for (std::size_t column = 0; column < gekihen_columns.size(); ++column) {
        const std::string letter(1, static_cast<char>('a' + column));
        entry[letter] = relief[line].P[column].Count();
        if (relief[line].best[column]) {
            best.Add(letter);
        }
    }
    entry["best"] = std::move(best);
    return entry;
}

Json Elements_Of(const Twelve_Result& twelve) {
    Json entry;
    for (std::size_t i = 0; i < twelve.values.size(); ++i) {
        entry[std::to_string(first_twelve_element + static_cast<int>(i))] = twelve.values[i];
    }
    return entry;
}

std::string Json_Text(const Settled_Score& score, const Score_Extras& extras) {
    Json record;
    record["管理No"] = score.kanri_no;
    record["事業所名"] = score.jigyo_name;
    record["決算期"] = score.side.period;
    record["Simyu_Kubun"] = Law_Number(score.figures.law_year);
    record["scenario"] = Columns_Of(score.side.scenario).name;
    record["Y"] = Json::Object({{"X", Floats(score.y.indicators)},
                                {"ritu", Floats(score.y.rates)},
                                {"A", Short(score.y.points)},
                                {"Y", score.y.score.Count()}});
    record["X2"] = Json::Object({{"Jiko", score.x2.equity.amount.Count()},
                                 {"Jiko_Used", score.x2.equity.counted.Count()},
                                 {"Rieki", score.x2.profit.amount.Count()},
                                 {"Rieki_Used", score.x2.profit.counted.Count()},
                                 {"X2_1", score.x2.equity.scored.points.Count()},
                                 {"X2_2", score.x2.profit.scored.points.Count()},
                                 {"X2", score.x2.score.Count()}});
    Json w;
    for (const W_Row& row : w_rows) {
        w[row.name] = W_Of(score, row.element);
    }
    record["W"] = std::move(w);
    Json lines = Json::Array();
    for (std::size_t i = 0; i < work_line_count; ++i) {
        const Work_Line& line = score.figures.works[i];
        if (!line.row) {
            continue;
        }
        Json entry;
        entry["工種CD"] = i;
        entry["工種略"] = score.kosyu_ryaku[i];
        for (const Line_Column& column : line_columns) {
            entry[column.name] = Or_Null(column.figure(line));
        }
        if (extras.relief) {
            entry["relief"] = Relief_Of(*extras.relief, i, line);
        }
        lines.Add(std::move(entry));
    }
    record["Kandaka_Gj"] = std::move(lines);
    if (extras.twelve) {
        record["XW_Yoso"] = Elements_Of(*extras.twelve);
    }
    return record.Text();
}

std::string Csv_Quoted(const std::string& text) {
    if (text.find_first_of(",\"\n\r") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c;
        quoted += c == '"' ? "\"" : "";
    }
    return quoted + '"';
}

std::string Csv_Lines(const Settled_Score& score) {
    std::string text;
    const std::string firm = std::to_string(score.kanri_no) + "," + Csv_Quoted(score.jigyo_name) + "," +
                             std::to_string(score.side.period) + "," +
                             std::to_string(Law_Number(score.figures.law_year)) + "," +
                             std::string(Columns_Of(score.side.scenario).name) + ",";
    for (std::size_t i = 0; i < work_line_count; ++i) {
        const Work_Line& line = score.figures.works[i];
        if (!line.row) {
            continue;
        }
        text += firm + std::to_string(i) + "," + Csv_Quoted(score.kosyu_ryaku[i]);
        for (const Line_Column& column : line_columns) {
            const Figure& figure = column.figure(line);
            text += "," + (figure.up ? std::to_string(figure.value) : std::string());
        }
        text += "," + Score_Text(score.y.score) + "," + Score_Text(score.x2.score) + "," +
                std::to_string(W_Of(score, element::w)) + "\n";
    }
    return text;
}

/// Columns that a text takes on a terminal: two for a full-width character, one for the half-width forms.
std::size_t Width(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t bytes = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
        const bool half_width = bytes == 3 && lead == 0xef &&
                                static_cast<unsigned char>(text[i + 1]) >= 0xbd &&
                                static_cast<unsigned char>(text[i + 1]) <= 0xbe;
        width += bytes < 3 || half_width ? 1 : 2;
        i += bytes;
    }
    return width;
}

std::string Padded(const std::string& text, std::size_t width, bool right) {
    const std::size_t own = Width(text);
    const std::string space(width > own ? width - own : 0, ' ');
    return right ? space + text : text + space;
}

std::string Table_Text(const Settled_Score& score) {
    const Law_Year& law = Law_Of(score.figures.law_year);
    std::string text =
        "■ " + std::to_string(score.kanri_no) + "  " + Shown_Text(score.jigyo_name) + "  第" +
        std::to_string(score.side.period) + "期  " + law.name +
        (score.side.Is_Current() ? "" : "  [" + std::string(Columns_Of(score.side.scenario).name) + "]") +
        "\n";
    text += "  経営状況 Y " + Score_Text(score.y.score) + "（A " + Short_Text(score.y.points) + "）  X2 " +
            Score_Text(score.x2.score) + "（自己資本 " + Score_Text(score.x2.equity.scored.points) +
            "、利益 " + Score_Text(score.x2.profit.scored.points) + "）  W " +
            std::to_string(W_Of(score, element::w)) + "（";
    for (std::size_t i = 0; i + 1 < w_rows.size(); ++i) {
        text += (i == 0 ? "" : " ") + std::string(w_rows[i].name) + ":" +
                std::to_string(W_Of(score, w_rows[i].element));
    }
    text += "）\n";
    text += "  " + Padded("工種", 14, false);
    for (const Line_Column& column : line_columns) {
        text += Padded(column.heading, Width(column.heading) > 2 ? 14 : 7, true);
    }
    text += "\n";
    for (std::size_t i = 0; i < work_line_count; ++i) {
        const Work_Line& line = score.figures.works[i];
        if (!line.Nheikin.up && !line.Mnheikin.up) {
            continue;
        }
        text += "  " + Padded(Shown_Text(score.kosyu_ryaku[i]), 14, false);
        for (const Line_Column& column : line_columns) {
            const Figure& figure = column.figure(line);
            text +=
                Padded(figure.up ? Comma_Str(figure.value) : "-", Width(column.heading) > 2 ? 14 : 7, true);
        }
        text += "\n";
    }
    return text;
}

} // namespace

std::string Score_Head(Score_Format format) {
    switch (format) {
    case Score_Format::Json:
        return "{\"format\":\"morvane-score\",\"version\":1,\"companies\":[";
    case Score_Format::Csv: {
        std::string head = "管理No,事業所名,決算期,Simyu_Kubun,scenario,工種CD,工種略";
        for (const Line_Column& column : line_columns) {
            head += std::string(",") + column.name;
        }
        return head + ",Y,X2,W\n";
    }
    case Score_Format::Table:
        break;
    }
    return {};
}

std::string Score_Separator(Score_Format format) {
    return format == Score_Format::Json ? ",\n" : format == Score_Format::Table ? "\n" : "";
}

std::string Score_Text(Score_Format format, const Settled_Score& score, const Score_Extras& extras) {
    switch (format) {
    case Score_Format::Json:
        return Json_Text(score, extras);
    case Score_Format::Csv:
        return Csv_Lines(score);
    case Score_Format::Table:
        break;
    }
    return Table_Text(score);
}

std::string Score_Tail(Score_Format format, const std::vector<Score_Failure>& failures) {
    if (format != Score_Format::Json) {
        return {};
    }
    Json list = Json::Array();
    for (const Score_Failure& failure : failures) {
        list.Add(Json::Object({{"管理No", failure.number}, {"error", failure.reason}}));
    }
    return "],\n\"errors\":" + list.Text() + "}\n";
}

} // namespace morvane
