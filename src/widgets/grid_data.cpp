// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/grid_data.h"

#include "session/kyotu_mod.h"

#include <charconv>

namespace morvane {

Grid_Data::Grid_Data(std::vector<Grid_Column> grid_columns, int rows, QObject* parent)
    : QAbstractTableModel(parent), columns(std::move(grid_columns)) {
    Reset(rows);
}

void Grid_Data::Reset(int rows) {
    beginResetModel();
    row_count = rows;
    cells.assign(static_cast<std::size_t>(rows) * columns.size(), {});
    for (int column = 0; column < columnCount(); ++column) {
        const auto& is_locked = Column(column).locked;
        for (int row = 0; is_locked && row < rows; ++row) {
            cells[Index({row, column})].locked = is_locked(row);
        }
    }
    endResetModel();
}

bool Grid_Data::Has(Cell_At at) const {
    return at.row >= 0 && at.row < row_count && at.column >= 0 && at.column < columnCount();
}

void Grid_Data::Tell(Cell_At at) {
    const QModelIndex changed = index(at.row, at.column);
    Q_EMIT dataChanged(changed, changed);
}

void Grid_Data::Set_Value(Cell_At at, const Value& value) {
    Cell& cell = cells[Index(at)];
    if (cell.value == value) {
        return;
    }
    cell.value = value;
    cell.text = Shown_Text(Column(at.column), value);
    Tell(at);
}

void Grid_Data::Set_Locked(Cell_At at, bool locked) {
    Cell& cell = cells[Index(at)];
    if (cell.locked != locked) {
        cell.locked = locked;
        Tell(at);
    }
}

void Grid_Data::Set_Strong(int row, bool strong) {
    for (int column = 0; column < columnCount(); ++column) {
        cells[Index({row, column})].strong = strong;
        Tell({row, column});
    }
}

void Grid_Data::Set_Best(Cell_At at, bool best) {
    cells[Index(at)].best = best;
    Tell(at);
}

void Grid_Data::Set_Heading(int column, const std::string& heading) {
    columns[static_cast<std::size_t>(column)].heading = heading;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

std::optional<Cell_At> Grid_Data::Find(std::string_view name) const {
    const auto open = name.find('(');
    if (open == std::string_view::npos || name.back() != ')') {
        return std::nullopt;
    }
    Cell_At at;
    const char* end = name.data() + name.size() - 1;
    if (std::from_chars(name.data() + open + 1, end, at.row).ptr != end) {
        return std::nullopt;
    }
    for (at.column = 0; at.column < columnCount(); ++at.column) {
        if (Column(at.column).name == name.substr(0, open)) {
            return Has(at) ? std::optional(at) : std::nullopt;
        }
    }
    return std::nullopt;
}

QVariant Grid_Data::data(const QModelIndex& index, int role) const {
    const Cell_At at{index.row(), index.column()};
    switch (role) {
    case Qt::ToolTipRole:
        // A name may be longer than its column.
        return Column(at.column).kind == Entry_Kind::Text ? Text_At(at) : QVariant();
    case Qt::DisplayRole:
        return Column(at.column).use == Cell_Use::Button ? QString::fromStdString(Column(at.column).button)
                                                         : Text_At(at);
    case Qt::AccessibleDescriptionRole:
        return Is_Best(at) ? QStringLiteral("最良") : QString();
    case Qt::TextAlignmentRole:
        return static_cast<int>(Alignment_Of(Column(at.column)));
    default:
        return {};
    }
}

QVariant Grid_Data::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) {
        return {};
    }
    const auto at = static_cast<std::size_t>(section);
    if (orientation == Qt::Vertical) {
        return at < row_names.size() ? row_names[at] : QString();
    }
    const Grid_Column& column = columns[at];
    const QString heading = QString::fromStdString(column.heading);
    if (role == Qt::DisplayRole || column.group.empty()) {
        return heading;
    }
    return QString(QString::fromStdString(column.group) + QLatin1Char(' ') + heading);
}

QString Shown_Text(const Grid_Column& column, const Value& value) {
    if (value.Is_Null()) {
        return {};
    }
    if (column.format) {
        return column.format(value);
    }
    if (column.decimals >= 0 && !value.Is_Text()) {
        const QString fixed = QString::number(value.As_Double(), 'f', column.decimals);
        const qsizetype whole = column.decimals == 0 ? fixed.size() : fixed.indexOf(QLatin1Char('.'));
        return QString::fromStdString(Comma_Str(Value(fixed.left(whole).toStdString()))) + fixed.mid(whole);
    }
    if (Has_Commas(column.kind)) {
        return QString::fromStdString(Comma_Str(value));
    }
    return QString::fromStdString(value.As_Text());
}

Qt::Alignment Alignment_Of(const Grid_Column& column) {
    if (column.align != Qt::Alignment()) {
        return column.align | Qt::AlignVCenter;
    }
    return (Has_Commas(column.kind) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace morvane
