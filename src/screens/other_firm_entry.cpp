// SPDX-FileCopyrightText: The Morvane developers
#include "screens/other_firm_entry.h"

#include "law/checked.h"
#include "widgets/entry_cell.h"
#include "widgets/total_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr int longest_name = 40;
constexpr int longest_amount = 15;

QString Numbered(const char* name, std::size_t number) {
    return QStringLiteral("%1(%2)").arg(QString::fromUtf8(name)).arg(number);
}

/// Enter goes on to the next cell.
void Lead_On(Entry_Cell& from, Entry_Cell& to) {
    QObject::connect(&from, &Entry_Cell::Next_Field, &to, [&to] { to.setFocus(Qt::TabFocusReason); });
}

} // namespace

Other_Firm_Entry::Other_Firm_Entry(Shell_Port& shell, Total_Panel& panel, const Keiei_Names& own,
                                   const Keiei_Names& other, std::function<void(const Y_Elements&)> show_firm)
    : QObject(&panel), show(std::move(show_firm)) {
    auto* caption = new QLabel(QStringLiteral("比較会社名"));
    caption->setObjectName(QStringLiteral("Syamei_Lbl"));
    auto* name = new Entry_Cell(Entry_Kind::Text);
    name->setObjectName(QStringLiteral("Syamei"));
    name->setAccessibleName(caption->text());
    name->setMaxLength(longest_name);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(8, 4, 8, 0);
    line->addWidget(caption);
    line->addWidget(name, 1);
    panel.body->insertLayout(0, line);
    for (std::size_t element = 0; element < y_elements.size(); ++element) {
        auto* cell = new Entry_Cell(Entry_Kind::Rounded);
        cell->setObjectName(Numbered(other.Yoso, element));
        cell->setMaxLength(longest_amount);
        panel.Put_Entry(Numbered(own.Yoso, element).toStdString(), 1, cell);
        connect(cell, &QLineEdit::textEdited, this, [this, element] { Try(element); });
        connect(cell, &Entry_Cell::Left, this,
                [this, element, &shell] { shell.Guard([this, element] { Take(element); }); });
        cells.push_back(cell);
    }
    Lead_On(*name, *cells.front());
    for (std::size_t element = 0; element < cells.size(); ++element) {
        Lead_On(*cells[element], *cells[(element + 1) % cells.size()]);
    }
}

/// The firm with what stands in a cell; blank is 0. Raises Run_Time_Error beyond 32 bits.
Y_Elements Other_Firm_Entry::With_Entry(std::size_t element) const {
    Y_Elements elements = taken;
    elements[element] = Thousand_Yen(
        Round_Half_Even<std::int32_t>(cells[element]->Entry().As_Double(), y_elements[element].name));
    return elements;
}

void Other_Firm_Entry::Try(std::size_t element) {
    try {
        show(With_Entry(element));
    } catch (const Run_Time_Error&) {
        // It is told when the cell is left.
    }
}

void Other_Firm_Entry::Take(std::size_t element) {
    try {
        const Y_Elements elements = With_Entry(element);
        show(elements);
        taken = elements;
    } catch (const Run_Time_Error&) {
        cells[element]->Set_Value(Value(taken[element].Count()));
        show(taken);
        throw;
    }
}

} // namespace morvane
