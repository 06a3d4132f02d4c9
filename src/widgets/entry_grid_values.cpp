// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_grid.h"
#include "widgets/grid_cell.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <stdexcept>

namespace morvane {

void Entry_Grid::Set_Value(int row, int column, const Value& value) {
    const Cell_At at{row, column};
    data->Set_Value(at, value);
    if (at == current) {
        editor->Load(at);
        if (editor->hasFocus()) {
            editor->selectAll();
        }
    }
}

void Entry_Grid::Set_Total(int total, int column, const Value& value) {
    total_data->Set_Value({total, column}, value);
}

bool Entry_Grid::Is_Typed() const {
    return editor->Is_Typed() && !leaving;
}

Value Entry_Grid::Get_Value(int row, int column) const {
    return Cell_At{row, column} == current && Is_Typed() ? editor->Entry() : data->Value_At({row, column});
}

// The total of a control name, its row and column.
std::optional<Cell_At> Entry_Grid::Find_Total(std::string_view name) const {
    for (std::size_t total = 0; total < totals.size(); ++total) {
        for (int column = 0; column < data->columnCount(); ++column) {
            if (data->Column(column).name + totals[total].suffix == name) {
                return Cell_At{static_cast<int>(total), column};
            }
        }
    }
    return std::nullopt;
}

void Entry_Grid::Set_Value(std::string_view name, const Value& value) {
    if (const auto at = data->Find(name)) {
        Set_Value(at->row, at->column, value);
    } else if (const auto total = Find_Total(name)) {
        Set_Total(total->row, total->column, value);
    } else {
        throw std::out_of_range("no cell " + std::string(name));
    }
}

Value Entry_Grid::Get_Value(std::string_view name) const {
    if (const auto at = data->Find(name)) {
        return Get_Value(at->row, at->column);
    }
    throw std::out_of_range("no cell " + std::string(name));
}

QString Entry_Grid::Cell_Text(std::string_view name) const {
    if (const auto at = data->Find(name)) {
        return *at == current && !editor->isHidden() ? editor->text() : data->Text_At(*at);
    }
    if (const auto total = Find_Total(name)) {
        return total_data->Text_At(*total);
    }
    throw std::out_of_range("no cell " + std::string(name));
}

void Entry_Grid::Set_Totals(const std::vector<Grid_Total>& total_rows) {
    delete foot_row;
    foot_row = nullptr;
    foot = nullptr;
    totals = total_rows;
    view->setHorizontalScrollBarPolicy(totals.empty() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    if (totals.empty()) {
        return;
    }
    std::vector<Grid_Column> columns;
    for (int column = 0; column < data->columnCount(); ++column) {
        Grid_Column& shown = columns.emplace_back(data->Column(column));
        shown.use = Cell_Use::Shown;
        shown.locked = nullptr;
    }
    total_data = std::make_unique<Grid_Data>(std::move(columns), static_cast<int>(totals.size()), nullptr);
    foot_row = new QFrame(this);
    theme::Set_Look(foot_row, "grid_foot");
    foot = new Grid_View(*total_data, foot_row);
    foot->is_totals = true;
    foot->header->hide();
    foot->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    std::vector<std::vector<QString>> captions;
    for (const Grid_Total& total : totals) {
        captions.push_back({QString::fromStdString(total.caption)});
        total_data->row_names.push_back(QString::fromStdString(total.caption));
    }
    foot->captions->Set_Captions({{.heading = {}, .width = 1}}, std::move(captions));
    foot->captions->widths = {view->captions->Width()};
    foot->captions->setFixedWidth(view->captions->Width());
    foot->captions->setHidden(view->captions->isHidden());
    foot_gap = new QWidget;
    auto* row = new QHBoxLayout(foot_row);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(foot, 1);
    row->addWidget(foot_gap);
    layout()->addWidget(foot_row);
    connect(view->header, &QHeaderView::sectionResized, foot,
            [this](int column, int, int width) { foot->setColumnWidth(column, width); });
    for (int column = 0; column < data->columnCount(); ++column) {
        foot->header->setSectionResizeMode(column, QHeaderView::Fixed);
        foot->setColumnWidth(column, view->columnWidth(column));
    }
    connect(foot->horizontalScrollBar(), &QScrollBar::valueChanged, foot, [this](int value) {
        if (!foot->Is_Laying_Out()) {
            view->horizontalScrollBar()->setValue(value);
        }
    });
    // Which columns are whole is the view's to say.
    connect(view, &Grid_View::Laid_Out, foot,
            [this] { foot->horizontalScrollBar()->setValue(view->horizontalScrollBar()->value()); });
    connect(foot->horizontalScrollBar(), &QScrollBar::rangeChanged, foot, [this] { Fit_Foot(); });
    connect(view->verticalScrollBar(), &QScrollBar::rangeChanged, foot, [this] { Fit_Foot(); });
    Fit_Foot();
}

// The totals stand under the columns above them whether or not scroll bars are there.
void Entry_Grid::Fit_Foot() {
    const int bar = view->verticalScrollBar()->sizeHint().width();
    const bool scrolls_down = view->verticalScrollBar()->minimum() < view->verticalScrollBar()->maximum();
    const bool scrolls_across =
        foot->horizontalScrollBar()->minimum() < foot->horizontalScrollBar()->maximum();
    foot_gap->setFixedWidth(scrolls_down ? bar : 0);
    foot->setFixedHeight(total_data->rowCount() * theme::cell_height + (scrolls_across ? bar : 0));
}

} // namespace morvane
