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
                         QWidget* parent)
    : Section_Box(heading, parent), grid(new QGridLayout) {
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(0, 1);
    body->setContentsMargins(6, 4, 6, 8);
    body->addLayout(grid);
    body->addStretch(1);
    for (const Total_Field& field : fields) {
        Add_Line(field, characters);
    }
}

void Total_Panel::Add_Line(const Total_Field& field, int characters) {
    using Line = Total_Field::Line;
    const int row = grid->rowCount();
    const QString caption = QString::fromUtf8(field.caption);
    auto* figure = new Figure_Label;
    figure->setObjectName(QString::fromUtf8(field.name));
    figure->setAccessibleName(caption);
    figure->setMinimumHeight(22);
    // The style sheet gives the distances, also to those with a frame.
    figure->setIndent(0);
    Shown shown;
    shown.figure = figure;
    if (field.line == Line::Check || field.line == Line::Heading) {
        figure->setText(caption);
        theme::Set_Look(figure, field.line == Line::Check ? "check" : "panel_heading");
        figure->setAlignment((field.line == Line::Check ? Qt::AlignHCenter : Qt::AlignLeft) |
                             Qt::AlignVCenter);
        grid->addWidget(figure, row, 0, 1, 2);
    } else {
        auto* label = new QLabel(caption);
        label->setIndent(0);
        const char* look = field.line == Line::Sum ? "panel_sum" : "panel_figure";
        theme::Set_Look(label, look);
        theme::Set_Look(figure, look);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        figure->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters + 16);
        figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(label, row, 0);
        grid->addWidget(figure, row, 1);
    }
    if (field.line != Line::Heading) {
        lines[field.name] = shown;
    }
}

void Total_Panel::Set_Value(const std::string& name, const Value& value) {
    Shown& line = lines.at(name);
    if (line.value == value && !line.figure->text().isEmpty()) {
        return;
    }
    line.value = value;
    line.figure->setText(QString::fromStdString(Comma_Str(value)));
}

void Total_Panel::Set_Text(const std::string& name, const QString& text) {
    Shown& line = lines.at(name);
    line.value = text.toStdString();
    line.figure->setText(text);
}

QString Total_Panel::Text(const std::string& name) const {
    return lines.at(name).figure->text();
}

void Total_Panel::Set_Check(const std::string& name, bool holds, const QString& text) {
    Shown& line = lines.at(name);
    line.value = text.toStdString();
    line.figure->setText(text);
    if (line.holds == holds && !line.figure->styleSheet().isEmpty()) {
        return;
    }
    line.holds = holds;
    // A palette would not hold against the style sheet in a window that is not active.
    line.figure->setStyleSheet(QStringLiteral("background: %1; color: %2;")
                                   .arg(QColor(holds ? theme::check_yes : theme::check_no).name(),
                                        holds ? QColor(theme::text).name() : QStringLiteral("white")));
}

} // namespace morvane
