// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/result_strip.h"

#include "widgets/elided_label.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QLabel>

namespace morvane {

namespace {

constexpr int widest_figure = 6; // half-width characters

} // namespace

Result_Strip::Result_Strip(std::span<const Result_Figure> figures, Subject subject)
    : subject_label(new Elided_Label(subject == Subject::Hint ? 2 : 1)) {
    theme::Set_Look(this, "strip");
    setObjectName(QStringLiteral("Result_Strip"));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(12, 2, 12, 2);
    line->setSpacing(6);
    subject_label->setObjectName(QStringLiteral("Strip_Subject"));
    if (subject == Subject::Hint) {
        theme::Set_Look(subject_label, "muted");
        subject_label->setFont(theme::Gothic(9));
    }
    subject_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    line->addWidget(subject_label, 1);
    for (const Result_Figure& figure : figures) {
        auto* caption = new QLabel(QString::fromStdString(figure.caption));
        auto* shown = new QLabel;
        shown->setObjectName(QString::fromStdString(figure.name));
        shown->setAccessibleName(caption->text());
        shown->setFont(theme::Gothic(figure.strong ? theme::title_points : theme::body_points, true));
        shown->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        shown->setMinimumWidth(shown->fontMetrics().horizontalAdvance(QLatin1Char('0')) * widest_figure);
        line->addSpacing(10);
        line->addWidget(caption);
        line->addWidget(shown);
        by_name[figure.name] = shown;
    }
}

void Result_Strip::Set_Subject(const QString& subject) {
    subject_label->setText(subject);
}

void Result_Strip::Set_Text(const std::string& name, const QString& text) {
    by_name.at(name)->setText(text);
}

void Result_Strip::Set_Colour(const std::string& name, QRgb colour) {
    QLabel* shown = by_name.at(name);
    QPalette palette = shown->palette();
    palette.setColor(QPalette::WindowText, QColor(colour));
    shown->setPalette(palette);
}

} // namespace morvane
