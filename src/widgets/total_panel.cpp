// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/total_panel.h"

#include "session/kyotu_mod.h"
#include "widgets/figure_label.h"
#include "widgets/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace morvane {

Total_Panel::Total_Panel(const QString& heading, std::span<const Total_Field> fields, int characters,
                         const Total_Columns& columns, QWidget* parent)
    : Section_Box(heading, parent), grid(new QGridLayout),
      headings(columns.headings.empty() ? std::vector{""} : columns.headings), control(columns.control) {
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(0, 1);
    body->setContentsMargins(6, 4, 6, 8);
    body->addLayout(grid);
    body->addStretch(1);
    if (headings.size() > 1) {
        Add_Headings();
    }
    for (const Total_Field& field : fields) {
        Add_Line(field, characters);
    }
}

void Total_Panel::Add_Headings() {
    for (int column = 0; column < Column_Count(); ++column) {
        auto* label = new QLabel(QString::fromUtf8(headings[static_cast<std::size_t>(column)]));
        theme::Set_Look(label, "panel_heading");
        label->setAlignment(Qt::AlignRight | Qt::AlignBottom);
        grid->addWidget(label, 0, column + 1);
        lines[""].push_back({label, {}});
    }
}

QLabel* Total_Panel::Make_Figure(const Total_Field& field, std::size_t column) const {
    auto* figure = new Figure_Label;
    figure->setObjectName(
        QString::fromStdString(control == nullptr ? field.name : control(field.name, column)));
    figure->setAccessibleName(
        (QString::fromUtf8(field.caption) + u' ' + QString::fromUtf8(headings[column])).trimmed());
    figure->setMinimumHeight(22);
    // The style sheet gives the distances, also to those with a frame.
    figure->setIndent(0);
    return figure;
}

// A mark or a heading, over the whole width.
void Total_Panel::Add_Mark(const Total_Field& field, int row) {
    const bool is_check = field.line == Total_Field::Line::Check;
    auto* mark = new Figure_Label;
    mark->setObjectName(QString::fromUtf8(field.name));
    mark->setAccessibleName(QString::fromUtf8(field.caption));
    mark->setMinimumHeight(22);
    mark->setIndent(0);
    mark->setText(QString::fromUtf8(field.caption));
    theme::Set_Look(mark, is_check ? "check" : "panel_heading");
    mark->setAlignment((is_check ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
    grid->addWidget(mark, row, 0, 1, Column_Count() + 1);
    if (is_check) {
        lines[field.name].push_back({mark, {}});
    }
}

void Total_Panel::Add_Line(const Total_Field& field, int characters) {
    using Line = Total_Field::Line;
    const int row = grid->rowCount();
    if (field.line == Line::Check || field.line == Line::Heading) {
        Add_Mark(field, row);
        return;
    }
    const char* look = field.line == Line::Sum ? "panel_sum" : "panel_figure";
    auto* label = new QLabel(QString::fromUtf8(field.caption));
    label->setIndent(0);
    theme::Set_Look(label, look);
    grid->addWidget(label, row, 0);
    for (std::size_t column = 0; column < headings.size(); ++column) {
        QLabel* figure = Make_Figure(field, column);
        theme::Set_Look(figure, look);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        figure->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters + 16);
        figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(figure, row, static_cast<int>(column) + 1);
        lines[field.name].push_back({figure, {}});
    }
}

void Total_Panel::Set_Value(const std::string& name, const Value& value, std::size_t column) {
    Figure& figure = lines.at(name).at(column);
    if (figure.value == value && !figure.label->text().isEmpty()) {
        return;
    }
    figure.value = value;
    figure.label->setText(QString::fromStdString(Comma_Str(value)));
}

void Total_Panel::Show_From(std::size_t column) {
    for (const auto& [name, line] : lines) {
        for (std::size_t i = 0; i + 1 < line.size(); ++i) {
            line[i].label->setHidden(i < column);
        }
    }
}

void Total_Panel::Put_Entry(const std::string& name, std::size_t column, QWidget* entry) {
    QLabel* figure = lines.at(name).at(column).label;
    figure->setObjectName({});
    figure->setVisible(false);
    entry->setMinimumWidth(figure->minimumWidth());
    entry->setAccessibleName(figure->accessibleName());
    delete grid->replaceWidget(figure, entry);
}

void Total_Panel::Set_Text(const std::string& name, const QString& text) {
    Figure& figure = lines.at(name).front();
    figure.value = text.toStdString();
    figure.label->setText(text);
}

QString Total_Panel::Text(const std::string& name) const {
    return lines.at(name).front().label->text();
}

void Total_Panel::Set_Check(const std::string& name, bool holds, const QString& text) {
    Figure& mark = lines.at(name).front();
    mark.value = text.toStdString();
    Show_Check(*mark.label, holds, text);
}

void Show_Check(QLabel& mark, bool holds, const QString& text) {
    mark.setText(text);
    // A palette would not hold against the style sheet in a window that is not active.
    const QString sheet = QStringLiteral("background: %1; color: %2;")
                              .arg(QColor(holds ? theme::check_yes : theme::check_no).name(),
                                   holds ? QColor(theme::text).name() : QStringLiteral("white"));
    if (mark.styleSheet() != sheet) {
        mark.setStyleSheet(sheet);
    }
}

} // namespace morvane
