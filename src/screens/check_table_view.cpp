// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_table_view.h"

#include "widgets/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace morvane {

namespace {

QLabel* Cell(const QString& text, QRgb ground) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(8, 2, 8, 2);
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, QColor(ground));
    label->setPalette(palette);
    return label;
}

// Words and formulas stand at the left, figures and limits at the right.
Qt::Alignment Alignment(const Check_Table& table, int column) {
    const bool left = table.words.contains(column);
    return (left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}

} // namespace

Check_Table_View::Check_Table_View(const Check_Table& table, QWidget* parent) : QWidget(parent) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(4);
    if (!table.heading.empty()) {
        auto* heading = new QLabel(QString::fromStdString(table.heading));
        heading->setObjectName(QStringLiteral("lbl_Midasi"));
        heading->setFont(theme::Gothic(theme::body_points, true));
        whole->addWidget(heading);
    }
    auto* frame = new QFrame;
    theme::Set_Look(frame, "grid_frame");
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(1, 1, 1, 1);
    grid->setSpacing(0);
    const std::size_t blocks = static_cast<std::size_t>(table.blocks);
    const std::size_t in_block = (table.rows.size() + blocks - 1) / blocks;
    const int columns = static_cast<int>(table.columns.size());
    for (int block = 0; block < table.blocks; ++block) {
        const int first = block * (columns + 1);
        if (block > 0) {
            grid->setColumnMinimumWidth(first - 1, 12);
        }
        for (int c = 0; c < columns; ++c) {
            QLabel* heading =
                Cell(QString::fromStdString(table.columns[static_cast<std::size_t>(c)]), theme::accent_soft);
            heading->setFont(theme::Gothic(theme::body_points, true));
            heading->setAlignment(Alignment(table, c));
            grid->addWidget(heading, 0, first + c);
        }
        for (std::size_t i = 0; i < in_block; ++i) {
            const std::size_t row = static_cast<std::size_t>(block) * in_block + i;
            if (row < table.rows.size()) {
                Add_Row(*grid, table, row, static_cast<int>(i) + 1, first);
            }
        }
        grid->setColumnStretch(first, 1);
    }
    whole->addWidget(frame);
}

void Check_Table_View::Add_Row(QGridLayout& grid, const Check_Table& table, std::size_t row, int at,
                               int column) {
    const bool in_force = static_cast<int>(row) == table.mark;
    const QRgb ground = in_force ? theme::best : at % 2 == 0 ? theme::zebra : theme::surface;
    int index = 0;
    for (const Named_Text& text : table.rows[row]) {
        QLabel* cell = Cell(QString::fromStdString(text.text), ground);
        cell->setObjectName(QString::fromStdString(text.name));
        cell->setAlignment(Alignment(table, index));
        grid.addWidget(cell, at, column + index);
        ++index;
    }
}

} // namespace morvane
