// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_text.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

// A full-width digit, minus or triangle (the accountants' minus) as its ASCII twin.
QChar Half_Width(QChar c) {
    const char16_t code = c.unicode();
    if (code >= u'０' && code <= u'９') {
        return QChar(static_cast<char16_t>(code - u'０' + u'0'));
    }
    // The two minus signs of the Japanese code pages, the mathematical one and the triangles.
    return QStringLiteral("－‐−△▲").contains(c) ? QLatin1Char('-') : c;
}

bool Is_Digit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

} // namespace

bool Is_Number(const QString& bare) {
    const QString digits = bare.startsWith(QLatin1Char('-')) ? bare.mid(1) : bare;
    return !digits.isEmpty() && std::all_of(digits.begin(), digits.end(), Is_Digit);
}

bool Is_Entry(Entry_Kind kind, const QString& choices, const QString& bare) {
    if (bare.isEmpty()) {
        return true;
    }
    switch (kind) {
    case Entry_Kind::Text:
        return true;
    case Entry_Kind::Amount:
        return Is_Number(bare);
    case Entry_Kind::Digits:
    case Entry_Kind::Figure:
        return Is_Number(bare) && Is_Digit(bare.front());
    case Entry_Kind::Decimal:
    case Entry_Kind::Rounded:
        return bare.count(QLatin1Char('.')) <= 1 && Is_Number(QString(bare).remove(QLatin1Char('.'))) &&
               (kind == Entry_Kind::Rounded || bare.front() != QLatin1Char('-'));
    case Entry_Kind::Choice:
        break;
    }
    return bare.size() == 1 && choices.contains(bare);
}

QString Bare_Figure(const QString& shown) {
    static const QString dropped = QStringLiteral(",，¥￥\\円");
    QString bare;
    for (const QChar original : shown) {
        const QChar c = Half_Width(original);
        if (c.isSpace() || dropped.contains(c)) {
            continue;
        }
        if (c == u'（' || c == u'）') {
            bare += c == u'（' ? QLatin1Char('(') : QLatin1Char(')');
        } else {
            bare += c == u'．' ? QLatin1Char('.') : c;
        }
    }
    if (bare.size() > 2 && bare.startsWith(QLatin1Char('(')) && bare.endsWith(QLatin1Char(')'))) {
        bare = QLatin1Char('-') + bare.mid(1, bare.size() - 2);
    }
    const qsizetype point = bare.indexOf(QLatin1Char('.'));
    if (point > 0 && bare.mid(point + 1).count(QLatin1Char('0')) == bare.size() - point - 1) {
        bare.truncate(point);
    }
    return bare;
}

QString Filtered_Text(Entry_Kind kind, const QString& choices, const QString& input, bool& refused) {
    refused = false;
    QString kept;
    for (const QChar original : input) {
        const QChar c = kind == Entry_Kind::Text ? original : Half_Width(original);
        const bool is_digit = Is_Digit(c);
        bool takes = false;
        switch (kind) {
        case Entry_Kind::Text:
            // Characters beyond the basic plane and those of the user's own (外字) are text as well.
            takes = c.category() != QChar::Other_Control && c != QChar::LineSeparator &&
                    c != QChar::ParagraphSeparator;
            break;
        case Entry_Kind::Digits:
        case Entry_Kind::Figure:
            takes = is_digit;
            break;
        case Entry_Kind::Decimal:
            takes = is_digit || c == QLatin1Char('.');
            break;
        case Entry_Kind::Amount:
            takes = is_digit || c == QLatin1Char('-');
            break;
        case Entry_Kind::Rounded:
            takes = is_digit || c == QLatin1Char('-') || c == QLatin1Char('.');
            break;
        case Entry_Kind::Choice:
            takes = choices.contains(c);
            break;
        }
        if (takes) {
            kept += c;
        } else {
            refused = true;
        }
    }
    return kept;
}

Value Entry_Value(Entry_Kind kind, const QString& bare) {
    if (bare.isEmpty()) {
        return {};
    }
    if (kind == Entry_Kind::Rounded && Is_Entry(kind, {}, bare)) {
        return Value(std::nearbyint(bare.toDouble()) + 0.0); // no zero has a sign
    }
    if (!Is_Whole(kind) || !Is_Number(bare)) {
        return bare.toStdString();
    }
    bool fits = false;
    const qlonglong number = bare.toLongLong(&fits);
    if (kind == Entry_Kind::Digits && fits) {
        return Value(static_cast<std::int64_t>(number));
    }
    // "-0" is zero, without a sign.
    return fits ? Value(static_cast<double>(number)) : Value(bare.toDouble());
}

} // namespace morvane
