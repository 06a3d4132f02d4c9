// SPDX-FileCopyrightText: The Morvane developers
#include "support/generated_firm.h"

#include "law/elements.h"
#include "review/settle.h"
#include "review/work_columns.h"

namespace morvane::tests {

namespace {

std::int32_t Most_Of(const Element_Info& item) {
    return item.code == element::cpd_units        ? 300
           : item.code == element::cpd_engineers  ? 12
           : item.code == element::skill_left_out ? 6
           : item.amount                          ? 300'000
                                                  : 40;
}

} // namespace

Review_Figures Generated_Firm(const Law_Year& law, std::mt19937& random) {
    const auto up_to = [&random](std::int32_t most) {
        return static_cast<std::int32_t>(random() % static_cast<unsigned>(most + 1));
    };
    Review_Figures figures;
    figures.law_year = law.code;
    for (Element& element : figures.elements) {
        element.row = true;
    }
    for (const Element_Info& item : Element_Infos()) {
        if (const Choice* choice = Choice_Of(item, law)) {
            figures.Put_Yoso(item.code, choice->keys[random() % choice->keys.size()] - '0');
        } else if (item.most > 0) {
            figures.Put_Yoso(item.code, up_to(Most_Of(item)));
        }
    }
    // Without engineers the scores of the young ones stay as they are stored.
    figures.Put_Yoso(element::engineers, 100);
    for (const int code : {319, 829, 469, 832, 436, 489, 402, 419, 399, 830, 179, 289}) {
        figures.statement.amount[static_cast<std::size_t>(code)] = Yen(up_to(900'000) * 1000.0);
    }
    figures.statement.has_rows = true;
    figures.review_date = Review_Date{2023, 8, 13 + up_to(1)};
    for (std::size_t i = 0; i < work_line_count; ++i) {
        Work_Line& line = figures.works[i];
        line.row = true;
        const bool has = i != combined_line && random() % 3 != 0;
        for (Figure* figure : {&line.Zzki, &line.Zki, &line.Kijun, &line.Mzzki, &line.Mzki, &line.Mkijun}) {
            if (has && random() % 4 != 0) {
                *figure = {up_to(90'000), true, false};
            }
        }
        for (Figure& count : line.gijutusya) {
            if (has && i < scored_lines && random() % 2 == 0) {
                count = {up_to(5), true, false};
            }
        }
    }
    return figures;
}

void Store_Firm(const Session& session, Side side, Review_Figures figures) {
    for (Work_Line& line : figures.works) {
        for (const Work_Column& column : Work_Columns()) {
            column.place(line).dirty = true;
        }
    }
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Write_Elements(cn, side, figures);
    Write_Works(cn, side, figures);
    Settle_Filled(cn, side, session.Kind());
    transaction.Commit();
}

} // namespace morvane::tests
