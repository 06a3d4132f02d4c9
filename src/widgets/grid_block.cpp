// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/grid_block.h"

namespace morvane {

namespace {

// Takes a quoted cell that begins at `at` and puts `at` behind it. A quote that is never closed is text.
QString Take_Quoted(const QString& text, qsizetype& at) {
    QString cell;
    for (qsizetype next = at + 1; next < text.size(); ++next) {
        if (text[next] != u'"') {
            cell += text[next];
        } else if (next + 1 < text.size() && text[next + 1] == u'"') {
            cell += text[next++];
        } else {
            at = next + 1;
            return cell;
        }
    }
    return text[at++];
}

} // namespace

Text_Block Read_Block(const QString& clipboard) {
    QString text = clipboard;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    if (text.endsWith(u'\n')) {
        text.chop(1);
    }
    Text_Block block(1, {QString()});
    for (qsizetype at = 0; at < text.size();) {
        QString& cell = block.back().back();
        if (text[at] == u'"' && cell.isEmpty()) {
            cell = Take_Quoted(text, at);
        } else if (text[at] == u'\t') {
            block.back().emplace_back();
            ++at;
        } else if (text[at] == u'\n') {
            block.push_back({QString()});
            ++at;
        } else {
            cell += text[at++];
        }
    }
    return block;
}

QString Write_Block(const Text_Block& block) {
    QString text;
    for (const auto& row : block) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            QString cell = row[column];
            if (cell.contains(u'\t') || cell.contains(u'\n') || cell.startsWith(u'"')) {
                cell.replace(u'"', QStringLiteral("\"\""));
                cell = u'"' + cell + u'"';
            }
            text += (column == 0 ? QString() : QStringLiteral("\t")) + cell;
        }
        text += u'\n';
    }
    return text;
}

} // namespace morvane
