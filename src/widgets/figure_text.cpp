// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/figure_text.h"

namespace morvane {

QChar Half_Width(QChar c) {
    const char16_t code = c.unicode();
    if (code >= u'０' && code <= u'９') {
        return QChar(static_cast<char16_t>(code - u'０' + u'0'));
    }
    // The two minus signs of the Japanese code pages, the mathematical one and the triangles.
    return QStringLiteral("－‐−△▲").contains(c) ? QLatin1Char('-') : c;
}

bool Is_Number(const QString& bare) {
    bool is_number = false;
    static_cast<void>(bare.toDouble(&is_number));
    return is_number;
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

} // namespace morvane
