// SPDX-FileCopyrightText: The Morvane developers
#include "statements/z_zzen_get.h"

#include "data/store_file.h"
#include "session/kyotu_mod.h"
#include "session/run_time_error.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace morvane {

namespace {

/// Where a prior figure stands in the statement of a data form: `code`, or `other_code` for the forms listed.
/// Code 0 stands for a figure of 0.
struct Source {
    int code;
    std::array<int, 4> forms{};
    int other_code = 0;

    [[nodiscard]] int Code_Of(int form) const {
        return std::find(forms.begin(), forms.end(), form) == forms.end() ? code : other_code;
    }
};

// The rows of the block in order; the first nine are also those of the second-prior period. The last branch
// of each rule also serves unknown forms. The advances on uncompleted work (未成工事受入金) have two rules.
constexpr std::array<Source, 19> sources = {{
    {101},                    // 売掛債権, 受取手形
    {103},                    // 売掛債権, 完成工事未収入金
    {106},                    // 棚卸資産, 未成工事支出金
    {107},                    // 棚卸資産, 材料貯蔵品
    {114, {2, 4}, 115},       // 貸倒引当金, 流動資産
    {177},                    // 貸倒引当金, 投資その他の資産
    {200},                    // 仕入債務, 支払手形
    {201},                    // 仕入債務, 工事未払金
    {208, {2, 3, 4, 5}, 209}, // 受入金; form 6 below
    {319, {51, 52}, 298},     // 自己資本
    {399, {51, 52}, 299},     // 総資本
    {436},                    // 減価償却費, 一般管理費
    {469},                    // 営業利益
    {489},                    // 経常利益
    {511},                    // 法人税等
    {536, {2, 4, 52}, 552},   // 減価償却費, 工事原価
    {724},                    // 減価償却費, 兼業１
    {729, {51, 52}, 0},       // 減価償却費, 兼業２
    {281},                    // 繰越利益剰余金
}};
constexpr std::size_t second_prior_rows = 9;
constexpr std::size_t advances_row = 8;

std::vector<double> Read_Block(const Connection& cn, bool hokkaido, int period, std::size_t count) {
    const int form = Get_Data_Ver(cn, hokkaido, period);
    Recordset rows =
        cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=" + std::to_string(period) + " ORDER BY 建設科目CD;");
    std::vector<double> amounts;
    if (rows.Eof()) {
        return amounts;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const int code = i == advances_row && form == 6 ? 210 : sources[i].Code_Of(form);
        amounts.push_back(code == 0 ? 0.0 : Kamoku_Get(code, rows));
    }
    return amounts;
}

void Write_Block(const Connection& cn, int period, int first_code, std::span<const double> amounts) {
    Recordset rows =
        cn.Open("SELECT * FROM Ks_Zaihyo WHERE 決算期=" + std::to_string(period) + " ORDER BY 建設科目CD;");
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        if (rows.Find("建設科目CD", first_code + static_cast<int>(i))) {
            rows.Set("金額", amounts[i]);
            rows.Set("改善後残高", amounts[i]);
            rows.Update();
        }
    }
}

/// A block of prior figures: of which period back, in which rows.
struct Block {
    int back;
    int first_code;
    std::size_t count;
};
constexpr Block prior = {1, 820, sources.size()};
constexpr Block second_prior = {2, 800, second_prior_rows};

std::vector<double> Read_Block(const Connection& cn, bool hokkaido, std::int16_t kikan, const Block& block) {
    if (kikan < std::numeric_limits<std::int16_t>::min() + block.back) {
        throw Run_Time_Error(Run_Time_Error::Kind::Overflow, "前期の決算期の計算で桁あふれが発生しました。");
    }
    return Read_Block(cn, hokkaido, kikan - block.back, block.count);
}

void Copy_Block(const Session& session, std::int16_t kikan, std::uint8_t dest, const Block& block) {
    const Connection cn = Cn_Open(session);
    const std::vector<double> amounts = Read_Block(cn, session.Is_Hokkaido(), kikan, block);
    if (amounts.empty()) {
        return;
    }
    const Connection target = dest == 1
                                  ? Connection(Find_File(session.App_Path, "morv_tmp.dat"), session.Db_Key)
                                  : Cn_Open(session);
    Transaction transaction(target);
    Write_Block(target, kikan, block.first_code, amounts);
    transaction.Commit();
}

} // namespace

void Zen_Get(const Session& session, std::int16_t kikan, std::uint8_t dest) {
    Copy_Block(session, kikan, dest, prior);
}

void ZZen_Get(const Session& session, std::int16_t kikan, std::uint8_t dest) {
    Copy_Block(session, kikan, dest, second_prior);
}

void Fill_Prior_Figures(const Connection& cn, bool hokkaido, std::int16_t kikan) {
    for (const Block& block : {prior, second_prior}) {
        Write_Block(cn, kikan, block.first_code, Read_Block(cn, hokkaido, kikan, block));
    }
}

} // namespace morvane
