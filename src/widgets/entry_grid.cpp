// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/entry_grid.h"

#include "widgets/grid_cell.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

namespace morvane {

namespace {

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

Entry_Grid::Entry_Grid(std::vector<Grid_Column> columns, int rows, QWidget* parent)
    : QFrame(parent), data(new Grid_Data(std::move(columns), rows, this)), view(new Grid_View(*data, this)),
      editor(new Grid_Cell(*this, view->viewport())) {
    theme::Set_Look(this, "grid_frame");
    // A click goes to a cell, which takes the focus without the grid's help.
    setFocusPolicy(Qt::TabFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(view, 1);
    connect(view, &Grid_View::Pressed_At, this, [this](int row, int column, bool extend) {
        Pressed({row, column}, extend);
    });
    connect(view, &Grid_View::Dragged_To, this, [this](int row, int column) { Extend_To({row, column}); });
    connect(view, &Grid_View::Laid_Out, this, [this] { Put_Editor(); });
    connect(editor, &Entry_Cell::Left, this, [this] { Editor_Left(); });
    current = First_Cell();
}

Entry_Grid::~Entry_Grid() {
    // The view and the editor look at what goes with this object; they must not outlive it.
    delete foot_row;
    delete view;
}

void Entry_Grid::Set_Row_Count(int rows) {
    const bool in_entry = !editor->isHidden();
    data->Reset(rows);
    view->clearSpans();
    undo_stack.clear();
    view->Set_Block({});
    current = First_Cell();
    if (in_entry && current.row >= 0) {
        Place(current);
    } else {
        editor->hide();
        view->Set_Current({});
    }
    updateGeometry();
}

void Entry_Grid::Set_Captions(const std::vector<Grid_Caption>& captions,
                              const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::vector<QString>> texts;
    data->row_names.clear();
    for (const auto& row : rows) {
        auto& fields = texts.emplace_back();
        for (const std::string& field : row) {
            fields.push_back(Text(field));
        }
        data->row_names.push_back(QStringList(fields.begin(), fields.end()).join(u' '));
    }
    view->captions->Set_Captions(captions, std::move(texts));
    Set_Totals(std::vector<Grid_Total>(totals));
}

void Entry_Grid::Set_Heading(int column, const std::string& heading) {
    data->Set_Heading(column, heading);
    view->header->viewport()->update();
}

void Entry_Grid::Set_Width(int column, int characters) {
    view->Set_Width(column, characters);
    updateGeometry();
}

void Entry_Grid::Set_Locked(int row, int column, bool locked) {
    data->Set_Locked({row, column}, locked);
    if (Cell_At{row, column} == current) {
        editor->Set_Locked(locked || data->Column(column).use == Cell_Use::Button);
        editor->update();
    }
}

// A bar without a range is disabled, which shows no handle.
void Entry_Grid::Keep_Bar_Room() {
    QScrollBar* bar = view->verticalScrollBar();
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    connect(bar, &QScrollBar::rangeChanged, bar,
            [bar](int least, int most) { bar->setEnabled(least < most); });
    bar->setEnabled(bar->minimum() < bar->maximum());
}

bool Entry_Grid::Is_Edited() const {
    return !undo_stack.isClean() || Is_Typed();
}

void Entry_Grid::Set_Unedited() {
    undo_stack.setClean();
}

// Leaves the current cell as a whole: its entry, what the screen says to it, its place among the changes.
bool Entry_Grid::Leave() {
    if (leaving || current.row < 0) {
        return true;
    }
    const Cell_At at = current;
    const Value former = data->Value_At(at);
    const bool typed = Is_Typed();
    const Value later = typed ? editor->Entry() : former;
    const bool changed = typed && !(former == later);
    {
        const QScopedValueRollback guard(leaving, true);
        data->Set_Value(at, later);
        if (on_left && !on_left(at.row, at.column) && changed) {
            data->Set_Value(at, former);
            editor->Load(at);
            editor->selectAll();
            QApplication::beep();
            Q_EMIT Values_Restored();
            return false;
        }
    }
    if (changed) {
        last_applied = {at};
        Remember({{at, former, later}});
        Q_EMIT Values_Changed();
    }
    Q_EMIT Cell_Left(at.row, at.column);
    return true;
}

bool Entry_Grid::Finish_Entry() {
    // What the input method still composes becomes typed here.
    if (!editor->Finish_Entry()) {
        return false;
    }
    if (!Is_Typed()) {
        return true;
    }
    if (!Leave()) {
        return false;
    }
    editor->Load(current);
    return true;
}

bool Entry_Grid::Go_To(int row, int column) {
    const Cell_At at{row, column};
    if (!data->Has(at) || data->Column(column).use == Cell_Use::Shown) {
        return false;
    }
    if (!editor->isHidden() && (!editor->Finish_Entry() || !Leave())) {
        return false;
    }
    Place(at);
    return true;
}

bool Entry_Grid::Focus_Cell(int row, int column) {
    if (!Go_To(row, column)) {
        return false;
    }
    Show_Editor();
    return true;
}

bool Entry_Grid::Focus_Cell(std::string_view name) {
    const auto at = data->Find(name);
    return at && Focus_Cell(at->row, at->column);
}

void Entry_Grid::Place(Cell_At at) {
    view->Set_Block({});
    current = at;
    block_end = at;
    if (isVisible()) { // before, there is no room that could be scrolled in
        view->scrollTo(data->index(at.row, at.column));
    }
    Mark_Current();
    editor->Load(at);
    Name_Editor();
    Put_Editor();
    if (editor->hasFocus()) {
        editor->selectAll();
        Q_EMIT Cell_Entered(at.row, at.column);
    }
}

// A frame would say that keys go there.
void Entry_Grid::Mark_Current() {
    view->Set_Current(editor->isHidden() ? Cell_At{} : current);
}

void Entry_Grid::Put_Editor() {
    if (current.row >= 0) {
        editor->setGeometry(view->Cell_Rect(current));
    }
}

void Entry_Grid::Name_Editor() {
    const Grid_Column& column = data->Column(current.column);
    editor->setObjectName(QStringLiteral("%1(%2)").arg(Text(column.name)).arg(current.row));
    const QString row = data->headerData(current.row, Qt::Vertical, Qt::AccessibleTextRole).toString();
    const QString heading =
        data->headerData(current.column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
    editor->setAccessibleName(QString(row + u' ' + heading).simplified());
}

void Entry_Grid::Show_Editor() {
    if (current.row < 0) {
        return;
    }
    if (!editor->isVisible()) {
        Place(current);
        editor->show();
        Mark_Current();
    }
    if (!editor->hasFocus()) {
        editor->setFocus(Qt::OtherFocusReason);
        Q_EMIT Cell_Entered(current.row, current.column);
    }
}

// The focus has gone out of the grid and the entry holds.
void Entry_Grid::Editor_Left() {
    view->Set_Block({});
    editor->hide();
    if (current.row >= 0) { // the rows may just have gone
        editor->Load(current);
    }
    Mark_Current();
}

void Entry_Grid::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    Show_Editor();
}

// Only a grid without entry cells keeps the focus itself: its keys scroll.
void Entry_Grid::keyPressEvent(QKeyEvent* event) {
    const bool across = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (current.row < 0) {
        QScrollBar* bar = across ? view->horizontalScrollBar() : view->verticalScrollBar();
        QApplication::sendEvent(bar, event);
        return;
    }
    QFrame::keyPressEvent(event);
}

QSize Entry_Grid::sizeHint() const {
    const int bar = view->verticalScrollBar()->sizeHint().width();
    int width = view->captions->isHidden() ? 0 : view->captions->Width();
    width += view->header->length() + bar + 4;
    const int rows = data->rowCount() + static_cast<int>(totals.size());
    return {width, view->header->sizeHint().height() + rows * theme::cell_height + 4};
}

QSize Entry_Grid::minimumSizeHint() const {
    const int rows = std::min(data->rowCount(), 4) + static_cast<int>(totals.size());
    return {240, view->header->sizeHint().height() + rows * theme::cell_height + 4};
}

} // namespace morvane
