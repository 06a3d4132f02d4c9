// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/result_strip.h"

#include <cstdint>
#include <optional>

namespace morvane {

/// What a change brings, in one line beside what scrolls: a score before and after with its difference, and
/// the sum of the differences of all. Differences are told by an arrow and a sign, and in colour besides.
class Gain_Strip : public Result_Strip {
    Q_OBJECT

  public:
    static constexpr const char* no_name = "→"; ///< before what a change makes of the score

    /// With captions of the score before and after.
    explicit Gain_Strip(const std::string& before = "Ｐ", const std::string& after = no_name);

    /// The score in hand: whose it is ("土木一式"), its value on both sides, empty where it has none.
    void Show_Score(const QString& subject, std::optional<std::int32_t> before,
                    std::optional<std::int32_t> after);

    /// The sum of all differences, and how many rise and fall in two lines of words; empty words where
    /// nothing can be told, which hides the sum too.
    void Show_Sum(std::int32_t sum, const QString& counts);

  private:
    void Show_Difference(const char* name, std::optional<std::int32_t> difference);
};

} // namespace morvane
