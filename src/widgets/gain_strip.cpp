// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/gain_strip.h"

#include "session/kyotu_mod.h"
#include "widgets/theme.h"

#include <QLabel>
#include <array>

namespace morvane {

namespace {

constexpr const char* before_name = "Strip_Mae_P";
constexpr const char* after_name = "Strip_P";
constexpr const char* difference_name = "Strip_Sa";
constexpr const char* sum_name = "Strip_Sa_Kei";
constexpr const char* counts_name = "Strip_Kensu";

std::array<Result_Figure, 5> Figures(const std::string& before, const std::string& after) {
    return {{{.name = before_name, .caption = before},
             {.name = after_name, .caption = after, .strong = true, .joined = true},
             {.name = difference_name, .caption = "差", .joined = true, .widest = "↑ +000"},
             {.name = sum_name, .caption = "全工種の差", .widest = "↑ +0,000"},
             {.name = counts_name, .joined = true, .widest = "上昇 00　下降 00\n新規 00　なし 00"}}};
}

std::string Score_Text(std::optional<std::int32_t> score) {
    return score ? Comma_Str(std::int64_t{*score}) : "";
}

} // namespace

Gain_Strip::Gain_Strip(const std::string& before, const std::string& after)
    : Result_Strip(Figures(before, after)) {
    setObjectName(QStringLiteral("Gain_Strip"));
    const std::string after_spoken = "Ｐ　" + (after == no_name ? "変更後" : after);
    for (const auto& [name, spoken] : {std::pair{after_name, after_spoken},
                                       {counts_name, std::string("Ｐが上がる工種と下がる工種の数")}}) {
        findChild<QLabel*>(QString::fromUtf8(name))->setAccessibleName(QString::fromStdString(spoken));
    }
}

void Gain_Strip::Show_Score(const QString& subject, std::optional<std::int32_t> before,
                            std::optional<std::int32_t> after) {
    Set_Subject(subject);
    Set_Text(before_name, QString::fromStdString(Score_Text(before)));
    Set_Text(after_name, QString::fromStdString(Score_Text(after)));
    Show_Difference(difference_name, before && after ? std::optional(*after - *before) : std::nullopt);
}

void Gain_Strip::Show_Sum(std::int32_t sum, const QString& counts) {
    Show_Difference(sum_name, counts.isEmpty() ? std::nullopt : std::optional(sum));
    Set_Text(counts_name, counts);
}

void Gain_Strip::Show_Difference(const char* name, std::optional<std::int32_t> difference) {
    const std::int32_t by = difference.value_or(0);
    Set_Text(name, difference ? QString::fromStdString(Gain_Str(by)) : QString());
    Set_Colour(name, by > 0 ? theme::rise : by < 0 ? theme::fall : theme::text);
}

} // namespace morvane
