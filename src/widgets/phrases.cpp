// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/phrases.h"

#include <algorithm>

namespace morvane {

namespace {

bool Is_Hiragana(QChar c) {
    return c >= QChar(0x3041) && c <= QChar(0x309F);
}

/// Whether a phrase ends before the character at a place.
bool Phrase_Ends_Before(const QString& text, qsizetype at) {
    static const QString closing = QStringLiteral("、。，．！？）」』】・ー…：,.!?):");
    static const QString ending = QStringLiteral("、。，．！？）」』】・…　 ,!?)");
    static const QString opening = QStringLiteral("（「『【(");
    const QChar before = text[at - 1];
    const QChar after = text[at];
    const bool in_number = after.isDigit() && QStringLiteral("．，.,").contains(before);
    if (closing.contains(after) || after.isSpace() || opening.contains(before) || in_number) {
        return false;
    }
    return ending.contains(before) || opening.contains(after) || (Is_Hiragana(before) && !Is_Hiragana(after));
}

/// How many characters from a place fit a line; at least one.
qsizetype Fitting(const QString& text, qsizetype begin, const QFontMetrics& metrics, int width) {
    qsizetype count = text.size() - begin;
    while (count > 1 && metrics.horizontalAdvance(text.mid(begin, count).trimmed()) > width) {
        --count;
    }
    return count;
}

QStringList Lines(const QString& text, const QFontMetrics& metrics, int width, bool by_phrases) {
    QStringList lines;
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype count = Fitting(text, begin, metrics, width);
        qsizetype end = begin + count;
        if (by_phrases) {
            while (end > begin && end < text.size() && !Phrase_Ends_Before(text, end)) {
                --end;
            }
        }
        end = end == begin ? begin + count : end;
        lines += text.mid(begin, end - begin);
        begin = end;
    }
    return lines;
}

} // namespace

QStringList Lines_By_Phrases(const QString& text, const QFontMetrics& metrics, int width, int most_lines) {
    QStringList lines = Lines(text, metrics, width, true);
    if (lines.size() > most_lines) {
        lines = Lines(text, metrics, width, false);
    }
    while (lines.size() > std::max(most_lines, 1)) {
        const QString last = lines.takeLast();
        lines.last() += last;
    }
    return lines;
}

namespace {

template <class Joins>
QString Joined(const QString& text, Joins joins) {
    constexpr QChar word_joiner(0x2060);
    QString whole = text.left(1);
    for (qsizetype at = 1; at < text.size(); ++at) {
        if (joins(at)) {
            whole += word_joiner;
        }
        whole += text[at];
    }
    return whole;
}

} // namespace

QString With_Whole_Phrases(const QString& text) {
    return Joined(text,
                  [&text](qsizetype at) { return !text[at].isSpace() && !Phrase_Ends_Before(text, at); });
}

QString With_Whole_Numbers(const QString& text) {
    static const QString digits = QStringLiteral("０１２３４５６７８９．，");
    static const QString units = QStringLiteral("％ヶ");
    return Joined(text, [&text](qsizetype at) {
        return digits.contains(text[at - 1]) && (digits.contains(text[at]) || units.contains(text[at]));
    });
}

} // namespace morvane
