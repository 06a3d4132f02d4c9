// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/section_box.h"

#include "widgets/theme.h"

#include <QLabel>
#include <QVBoxLayout>

namespace morvane {

Section_Box::Section_Box(const QString& heading, QWidget* parent) : QFrame(parent), body(new QVBoxLayout) {
    theme::Set_Look(this, "section");
    setAccessibleName(heading);
    auto* band = new QLabel(heading);
    theme::Set_Look(band, "band");
    body->setContentsMargins(12, 10, 12, 12);
    body->setSpacing(8);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(1, 1, 1, 1);
    whole->setSpacing(0);
    whole->addWidget(band);
    whole->addLayout(body, 1);
}

} // namespace morvane
