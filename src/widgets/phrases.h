// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QFontMetrics>
#include <QStringList>

namespace morvane {

/// Breaks a Japanese text into lines of at most `width` pixels, at the ends of phrases: after punctuation and
/// blanks, before an opening bracket, and after the kana that end a phrase. A phrase that is wider than a
/// line breaks anywhere, as does the whole text where it would need more than `most_lines` otherwise. What is
/// left after `most_lines` stands in the last line, however long. The lines joined are the text.
QStringList Lines_By_Phrases(const QString& text, const QFontMetrics& metrics, int width, int most_lines);

/// The text with its phrases made unbreakable, for a label that breaks lines by itself.
QString With_Whole_Phrases(const QString& text);

/// The text with its full-width numbers and their units made unbreakable.
QString With_Whole_Numbers(const QString& text);

} // namespace morvane
