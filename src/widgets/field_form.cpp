// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/field_form.h"

#include "widgets/theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

namespace morvane {

namespace {

constexpr int narrowest_text = 20; ///< of a long text, in half-width characters

} // namespace

Field_Form::Field_Form(std::span<const Field> fields, QWidget* parent)
    : QWidget(parent), grid(new QGridLayout(this)) {
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    for (const Field& field : fields) {
        Add_Field(field);
    }
    unedited = Texts();
}

void Field_Form::Begin_Line(const QString& caption) {
    auto* label = new QLabel(caption);
    label->setMinimumHeight(theme::cell_height);
    const int row = static_cast<int>(captions.size());
    grid->addWidget(label, row, 0);
    line = new QHBoxLayout;
    line->setSpacing(6);
    line->addStretch(1);
    grid->addLayout(line, row, 1);
    captions.push_back(label);
}

void Field_Form::Add_Field(const Field& field) {
    if (field.caption != nullptr || line == nullptr) {
        Begin_Line(QString::fromUtf8(field.caption == nullptr ? "" : field.caption));
    }
    const auto add = [this](QWidget* widget, int stretch = 0) {
        line->insertWidget(line->count() - 1, widget, stretch);
    };
    if (*field.before != '\0') {
        add(new QLabel(QString::fromUtf8(field.before)));
    }
    const QString name = QString::fromUtf8(field.name);
    auto* cell = new Entry_Cell(field.kind);
    cell->setObjectName(name);
    cell->setMaxLength(field.max_length);
    cell->Set_Choices(QString::fromUtf8(field.choices));
    cell->Set_Width(field.width);
    cell->setAccessibleName(*field.label != '\0' ? QString::fromUtf8(field.label) : captions.back()->text());
    if (field.password) {
        cell->setEchoMode(QLineEdit::Password);
    }
    if (field.width > narrowest_text) {
        // In a narrow window a long text shows less of itself.
        const int wide = cell->width();
        cell->Set_Width(narrowest_text);
        cell->setMaximumWidth(wide);
        add(cell, 1000);
    } else {
        add(cell);
    }
    captions.back()->setBuddy(captions.back()->buddy() == nullptr ? cell : captions.back()->buddy());
    if (*field.hint != '\0') {
        auto* hint = new QLabel(QString::fromUtf8(field.hint));
        theme::Set_Look(hint, "muted");
        add(hint);
    }
    by_name[field.name] = cell;
    connect(cell, &Entry_Cell::Next_Field, this, [this] { focusNextChild(); });
    connect(cell, &Entry_Cell::textEdited, this, [this, name] { Q_EMIT Edited(name); });
    connect(cell, &Entry_Cell::Entered, this, [this, name] { Q_EMIT Cell_Entered(name); });
    connect(cell, &Entry_Cell::Left, this, [this, name] { Q_EMIT Cell_Left(name); });
}

Entry_Cell& Field_Form::Cell(const std::string& name) const {
    return *by_name.at(name);
}

void Field_Form::Focus(const std::string& name) const {
    Cell(name).setFocus(Qt::OtherFocusReason);
    Cell(name).selectAll();
}

void Field_Form::Set_Text(const std::string& name, const std::string& text) const {
    Cell(name).Set_Value(text);
}

std::map<std::string, std::string> Field_Form::Texts() const {
    std::map<std::string, std::string> texts;
    for (const auto& [name, cell] : by_name) {
        texts[name] = cell->Bare_Text();
    }
    return texts;
}

void Field_Form::Set_Texts(const std::map<std::string, std::string>& texts) {
    for (const auto& [name, text] : texts) {
        if (Has(name)) {
            Set_Text(name, text);
        }
    }
    Set_Unedited();
}

void Field_Form::Add_Line(const QString& caption, QWidget* widget) {
    Begin_Line(caption);
    line->insertWidget(0, widget);
}

int Field_Form::Caption_Width() const {
    int width = 0;
    for (const QLabel* caption : captions) {
        width = std::max(width, caption->sizeHint().width());
    }
    return width;
}

void Field_Form::Set_Caption_Width(int pixels) {
    grid->setColumnMinimumWidth(0, pixels);
}

} // namespace morvane
