// SPDX-FileCopyrightText: The Morvane developers
#include "screens/two_sides.h"

#include "widgets/elided_label.h"
#include "widgets/gain_strip.h"
#include "widgets/theme.h"

#include <algorithm>

namespace morvane {

namespace {

// A work type with P on one side alone has no difference and is told besides. The words stay, so that no
// figure moves.
QString Counts_Of(const P_Gain& gain) {
    const bool has_p = std::any_of(gain.lines.begin(), gain.lines.end(),
                                   [](const P_Change& line) { return line.before || line.after; });
    if (!has_p) {
        return {};
    }
    return QStringLiteral("上昇 %1　下降 %2\n新規 %3　なし %4")
        .arg(gain.risen)
        .arg(gain.fallen)
        .arg(gain.added)
        .arg(gain.dropped);
}

} // namespace

Gain_Strip* Make_Gain_Strip(const Screen_Sides& sides) {
    return sides.read_only ? new Gain_Strip(std::string("Ｐ") + sides.before->name, sides.after.name)
                           : new Gain_Strip;
}

std::optional<std::size_t> Telling_Line(const P_Gain& gain) {
    if (gain.most_changed) {
        return gain.most_changed;
    }
    const auto p_of = [](const P_Change& line) { return line.after ? line.after : line.before; };
    const auto highest =
        std::max_element(gain.lines.begin(), gain.lines.end(),
                         [&](const P_Change& a, const P_Change& b) { return p_of(a) < p_of(b); });
    return p_of(*highest) ? std::optional(static_cast<std::size_t>(highest - gain.lines.begin()))
                          : std::nullopt;
}

void Show_Gain(Gain_Strip& strip, const P_Gain& gain, std::optional<std::size_t> line) {
    const std::string_view subject = line ? work_types[*line].name : std::string_view();
    const P_Change change = line && *line < gain.lines.size() ? gain.lines[*line] : P_Change{};
    strip.Show_Score(QString::fromUtf8(subject.data(), static_cast<qsizetype>(subject.size())), change.before,
                     change.after);
    strip.Show_Sum(gain.sum, Counts_Of(gain));
}

QWidget* Make_Notice(const std::string& notice) {
    auto* label = new Elided_Label(2);
    label->setObjectName(QStringLiteral("Lbl_Notice"));
    label->setText(QString::fromStdString(notice));
    theme::Set_Look(label, "muted");
    return label;
}

Checked_Sides Sides_To_Check(const Screen_Sides& sides,
                             const std::function<Review_Figures(bool of_before)>& figures) {
    return {{{QString::fromUtf8(sides.before->name), [figures] { return figures(true); }},
             {QString::fromUtf8(sides.after.name), [figures] { return figures(false); }}}};
}

} // namespace morvane
