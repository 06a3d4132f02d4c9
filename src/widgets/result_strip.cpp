// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/result_strip.h"

#include "widgets/elided_label.h"
#include "widgets/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

namespace morvane {

namespace {

constexpr int in_group = 8;
constexpr int beside_hairline = 12;

QFrame* Hairline() {
    auto* line = new QFrame;
    line->setFixedSize(1, theme::cell_height - 4);
    line->setStyleSheet(QStringLiteral("background: %1; border: 0;").arg(QColor(theme::line).name()));
    return line;
}

int Width_Of(const QLabel& label, const QString& text) {
    int width = 0;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        width = std::max(width, label.fontMetrics().horizontalAdvance(line));
    }
    return width;
}

} // namespace

Result_Strip::Result_Strip(std::span<const Result_Figure> figures, Subject subject)
    : subject_label(new Elided_Label(subject == Subject::Hint ? 2 : 1)) {
    theme::Set_Look(this, "strip");
    setObjectName(QStringLiteral("Result_Strip"));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(12, 2, 12, 2);
    line->setSpacing(beside_hairline);
    subject_label->setObjectName(QStringLiteral("Strip_Subject"));
    if (subject == Subject::Hint) {
        theme::Set_Look(subject_label, "muted");
        subject_label->setFont(theme::Gothic(9));
    } else {
        subject_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter); // a name stands at its figures
    }
    subject_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    line->addWidget(subject_label, 1);
    for (const Result_Figure& figure : figures) {
        if (!figure.joined || groups.empty()) {
            Open_Group(*line);
        }
        Add_Figure(figure);
    }
}

void Result_Strip::Open_Group(QHBoxLayout& line) {
    if (!groups.empty()) {
        line.addWidget(Hairline());
    }
    auto* frame = new QWidget;
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(in_group);
    row->addStretch(1);
    line.addWidget(frame);
    groups.push_back({frame, row, {}});
}

void Result_Strip::Add_Figure(const Result_Figure& figure) {
    const QString widest = QString::fromUtf8(figure.widest);
    const bool small = widest.contains(QLatin1Char('\n'));
    auto* caption = new QLabel(QString::fromStdString(figure.caption));
    caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* shown = new QLabel;
    shown->setObjectName(QString::fromStdString(figure.name));
    shown->setAccessibleName(caption->text());
    shown->setFont(small ? theme::Gothic(9)
                         : theme::Gothic(figure.strong ? theme::title_points : theme::body_points, true));
    shown->setAlignment((small ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    shown->setMinimumWidth(Width_Of(*shown, widest));
    if (small) {
        shown->setMinimumHeight(2 * shown->fontMetrics().lineSpacing());
    }
    auto& [frame, row, placed] = groups.back();
    row->insertWidget(row->count() - 1, caption);
    row->insertWidget(row->count() - 1, shown);
    caption->setHidden(figure.caption.empty());
    placed.push_back({caption, shown, shown->minimumWidth()});
    by_name[figure.name] = shown;
}

void Result_Strip::Align(Result_Strip& one, Result_Strip& other, bool aligned) {
    const auto join = [aligned](QWidget& a, QWidget& b, int least_of_a, int least_of_b) {
        const int width = std::max(least_of_a, least_of_b);
        a.setMinimumWidth(aligned ? width : least_of_a);
        b.setMinimumWidth(aligned ? width : least_of_b);
    };
    for (std::size_t g = 0; g < std::min(one.groups.size(), other.groups.size()); ++g) {
        auto& a = one.groups[g];
        auto& b = other.groups[g];
        for (std::size_t i = 0; i < std::min(a.figures.size(), b.figures.size()); ++i) {
            const Placed& in_a = a.figures[i];
            const Placed& in_b = b.figures[i];
            if (!in_a.caption->text().isEmpty() && !in_b.caption->text().isEmpty()) {
                join(*in_a.caption, *in_b.caption, Width_Of(*in_a.caption, in_a.caption->text()),
                     Width_Of(*in_b.caption, in_b.caption->text()));
                join(*in_a.figure, *in_b.figure, in_a.least, in_b.least);
            }
        }
        join(*a.frame, *b.frame, aligned ? a.row->minimumSize().width() : 0,
             aligned ? b.row->minimumSize().width() : 0);
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
