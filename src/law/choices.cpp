// SPDX-FileCopyrightText: The Morvane developers
#include "law/choices.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr std::string_view any_digit = "0123456789"; // what is no answer gives no points

constexpr Answer_Word equity_bases[] = {{1, "基準決算の自己資本額"}, {2, "前期と当期の２年平均"}};
constexpr Answer_Word averages[] = {{2, "2年平均"}, {3, "3年平均"}};
constexpr Answer_Word exempt_too[] = {{0, "無"}, {1, "有"}, {2, "適用外"}};
constexpr Answer_Word compliances[] = {
    {0, "無"}, {1, "指示を受けた", "指示"}, {2, "営業の停止を命ぜられた", "営業停止"}};
constexpr Answer_Word audits[] = {{0, "無"},
                                  {1, "経理処理の適正を確認した旨の書類の提出", "確認書類の提出", "書類提出"},
                                  {2, "会計参与の設置", nullptr, "会計参与"},
                                  {3, "会計監査人の設置", nullptr, "監査人"}};
constexpr Answer_Word for_women[] = {{1, "ﾌﾟﾗﾁﾅえるぼし", nullptr, "プラチナえるぼし"},
                                     {2, "えるぼし第3段階", nullptr, "えるぼし第3段目"},
                                     {3, "第2段階", nullptr, "えるぼし第2段目"},
                                     {4, "第1段階", nullptr, "えるぼし第1段目"},
                                     {0, "無", nullptr, "非該当"}};
constexpr Answer_Word for_next_generation[] = {{1, "ﾌﾟﾗﾁﾅくるみん", nullptr, "プラチナくるみん"},
                                               {2, "くるみん"},
                                               {3, "トライくるみん"},
                                               {0, "無", nullptr, "非該当"}};
constexpr Answer_Word for_youth[] = {{1, "ユースエール"}, {0, "無", nullptr, "非該当"}};
constexpr Answer_Word work_histories[] = {{1, "全工事で実施", nullptr, "全ての工事"},
                                          {2, "全公共工事", nullptr, "全ての公共工事"},
                                          {3, "自主宣言有", nullptr, "自主宣言"},
                                          {4, "全工事＋自主宣言"},
                                          {5, "公共工事＋自主宣言"},
                                          {0, "無", nullptr, "非該当"}};

} // namespace

namespace choice {

const Choice equity_basis = {"12", equity_bases};
const Choice yes_no = {"01", std::span(exempt_too).first(2)};
const Choice yes_no_exempt = {"012", exempt_too};
const Choice compliance = {"012", compliances};
const Choice years_of_average = {"23", averages};
const Choice audit = {"0123", audits};
const Choice women = {any_digit, for_women};
const Choice next_generation = {any_digit, for_next_generation};
const Choice youth = {any_digit, for_youth};
const Choice work_history = {any_digit, work_histories,
                             "1：全工事で実施　2：全公共工事　3：自主宣言有　4・5：注を参照　0：無"};

} // namespace choice

std::string Choice::Hint() const {
    std::string hint = told != nullptr ? told : "";
    for (const Answer_Word& answer : told != nullptr ? std::span<const Answer_Word>() : answers) {
        hint += (hint.empty() ? "" : "　") + std::to_string(answer.number) + "：" + answer.entry;
    }
    return hint + (keys.size() > answers.size() ? "　ほかの数字：0点" : "");
}

const Answer_Word* Choice::Find(std::int32_t number) const {
    const auto found = std::find_if(answers.begin(), answers.end(),
                                    [number](const Answer_Word& answer) { return answer.number == number; });
    return found == answers.end() ? nullptr : &*found;
}

} // namespace morvane
