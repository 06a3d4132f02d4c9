// SPDX-FileCopyrightText: The Morvane developers
#include "screens/syokuta_sheet.h"

#include "law/elements.h"
#include "screens/check_sheet.h"
#include "session/kyotu_mod.h"
#include "widgets/figure_label.h"
#include "widgets/phrases.h"
#include "widgets/theme.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace morvane {

namespace {

constexpr int beside_sheet = 12 + 14; // margins and scroll bar
constexpr int beside_figure = 18;     // of a shown figure, so that it is as wide as an entry
constexpr int longest_in_line = 21;   // characters of a caption
constexpr int longest_beside = 13;    // of one with figures of two sides beside it
constexpr int row_height = 26;
constexpr int figure_height = 22;
constexpr int side = 10; // at the left and right inside a group

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

/// A caption that breaks between phrases alone, and not inside a short end such as 点数 behind its （Ｗ１）.
QString Breaking_By_Phrases(QString caption) {
    constexpr int short_end = 11;
    constexpr QChar unbroken(QChar::Nbsp);
    const auto begin =
        std::max({caption.lastIndexOf(QChar(u'（')), caption.lastIndexOf(QLatin1Char('(')), qsizetype{0}});
    if (caption.size() - begin <= short_end) {
        for (qsizetype at = begin; at < caption.size(); ++at) {
            if (caption[at].isSpace()) {
                caption[at] = unbroken;
            }
        }
    }
    return With_Whole_Phrases(caption);
}

/// A figure that is not keyed: right-aligned on a ground of its own.
QLabel* Make_Figure(const QString& name, QRgb ground, bool strong = false) {
    auto* label = new Figure_Label;
    label->setObjectName(name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFont(theme::Gothic(theme::body_points, strong));
    label->setTextFormat(Qt::PlainText);
    label->setFixedHeight(figure_height);
    label->setContentsMargins(4, 0, 4, 0);
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, QColor(ground));
    label->setPalette(palette);
    return label;
}

QLabel* Shown_Figure(const Syokuta_Cell& cell, bool strong) {
    QLabel* label = Make_Figure(Text(cell.name), strong ? theme::surface : theme::shown, strong);
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(QLatin1Char('0')) * cell.digits +
                         (strong ? 10 : beside_figure));
    return label;
}

int Index_Of_Check(std::string_view score) {
    int index = 0;
    for (const std::string_view button : w2x_buttons) {
        if (button == score) {
            return index;
        }
        ++index;
    }
    return -1;
}

/// The figure of a cell as text; that of an entry as its field shows it.
std::string Text_Of(const Syokuta_Cell& cell, const Syokuta& figures) {
    if (cell.element == 0) {
        return cell.shown(figures);
    }
    const std::int32_t value = figures.items.At(cell.element);
    return Find_Element(cell.element)->amount ? Comma_Str(value) : std::to_string(value);
}

} // namespace

Syokuta_Sheet::Syokuta_Sheet(const Law_Year& law_year, const Screen_Sides& screen_sides)
    : law(law_year), sides(screen_sides) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    for (QVBoxLayout*& column : columns) {
        column = new QVBoxLayout;
        column->setSpacing(6);
        row->addLayout(column);
    }
    for (const Syokuta_Group& group : Syokuta_Groups()) {
        if (group.law.Has(law)) {
            groups.push_back({&group, Make_Group(group)});
        }
    }
    for (int count : {1, 2, 3}) {
        Arrange(count);
        room_for[static_cast<std::size_t>(count - 1)] = minimumSizeHint().width() + beside_sheet;
    }
}

QWidget* Syokuta_Sheet::Make_Group(const Syokuta_Group& group) {
    auto* box = new QFrame(this);
    theme::Set_Look(box, "section");
    box->setAccessibleName(Text(group.title));
    auto* whole = new QVBoxLayout(box);
    whole->setContentsMargins(1, 1, 1, 1);
    whole->setSpacing(0);
    whole->addWidget(Make_Band(group));
    auto* lines = new QVBoxLayout;
    lines->setContentsMargins(side, 3, side, 3);
    lines->setSpacing(1);
    bool under_note = false;
    for (const Syokuta_Row& row : group.rows) {
        if (row.law.Has(law)) {
            const bool is_note = row.look == Syokuta_Row::Look::Note;
            lines->addSpacing(under_note && !is_note ? 6 : 0);
            lines->addWidget(Make_Row(row));
            under_note = is_note;
        }
    }
    if (lines->count() > 0) {
        whole->addLayout(lines);
    } else {
        delete lines;
    }
    return box;
}

QWidget* Syokuta_Sheet::Make_Band(const Syokuta_Group& group) {
    auto* band = new QFrame;
    band->setAutoFillBackground(true);
    QPalette palette = band->palette();
    palette.setColor(QPalette::Window, QColor(theme::accent_soft));
    band->setPalette(palette);
    auto* line = new QHBoxLayout(band);
    line->setContentsMargins(side, 2, side, 2);
    line->setSpacing(6);
    auto* title = new QLabel(sides.before ? Breaking_By_Phrases(Text(group.title)) : Text(group.title));
    title->setFont(theme::Gothic(theme::body_points, true));
    title->setWordWrap(sides.before.has_value());
    palette.setColor(QPalette::WindowText, QColor(theme::accent));
    title->setPalette(palette);
    line->addWidget(title, 1);
    for (const Syokuta_Cell& cell : group.points) {
        Add_Score(*line, cell, Text(group.title));
    }
    if (group.check != nullptr) {
        Add_Check(*line, group.check);
    }
    return band;
}

QWidget* Syokuta_Sheet::Make_Row(const Syokuta_Row& row) {
    auto* widget = new QWidget;
    auto* line = new QHBoxLayout(widget);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    if (row.look != Syokuta_Row::Look::Note) {
        widget->setMinimumHeight(row_height);
    }
    const QString text = Text(row.caption).trimmed();
    const bool wraps = text.size() > (sides.before ? longest_beside : longest_in_line);
    auto* caption = new QLabel(wraps ? Breaking_By_Phrases(text) : text);
    caption->setTextFormat(Qt::PlainText);
    caption->setWordWrap(wraps);
    const bool score = row.look == Syokuta_Row::Look::Heading || row.look == Syokuta_Row::Look::Total;
    if (score) {
        caption->setFont(theme::Gothic(theme::body_points, true));
    } else if (row.look == Syokuta_Row::Look::Note) {
        theme::Set_Look(caption, "muted");
        caption->setFont(theme::Gothic(9));
    }
    line->addWidget(caption, 1);
    for (const Syokuta_Cell& cell : row.cells) {
        score ? Add_Score(*line, cell, text) : Add_Cell(*line, cell, text, row.cells.size() > 1);
    }
    if (row.check != nullptr) {
        line->addSpacing(2);
        Add_Check(*line, row.check);
    }
    return widget;
}

void Syokuta_Sheet::Add_Score(QHBoxLayout& line, const Syokuta_Cell& cell, const QString& of_what) {
    QLabel* label = Shown_Figure(cell, true);
    label->setAccessibleName(of_what + QStringLiteral(" 点数"));
    labels.push_back({&cell, label});
    Add_Figure(line, cell, *label, false);
}

void Syokuta_Sheet::Add_Cell(QHBoxLayout& line, const Syokuta_Cell& cell, const QString& caption,
                             bool stacked) {
    if (*cell.before != '\0') {
        line.addWidget(new QLabel(Text(cell.before)));
    }
    const QString name = (caption + QLatin1Char(' ') + Text(cell.before)).trimmed();
    if (cell.element == 0) {
        QLabel* label = Shown_Figure(cell, false);
        label->setAccessibleName(name);
        labels.push_back({&cell, label});
        Add_Figure(line, cell, *label, stacked);
    } else {
        auto* edit = new Syokuta_Edit(cell, law);
        edit->setAccessibleName(name);
        if (sides.read_only) {
            edit->Set_Locked(true);
        }
        edits.push_back(edit);
        Add_Figure(line, cell, *edit, stacked);
    }
    if (*cell.after != '\0') {
        line.addWidget(new QLabel(Text(cell.after)));
    }
}

void Syokuta_Sheet::Add_Figure(QHBoxLayout& line, const Syokuta_Cell& cell, QWidget& figure, bool stacked) {
    if (!sides.before) {
        line.addWidget(&figure);
        return;
    }
    QLabel* before = Make_Before(cell, figure);
    labels_before.push_back({&cell, before});
    if (!stacked) {
        line.addWidget(before);
        line.addWidget(&figure);
        return;
    }
    auto* pair = new QVBoxLayout;
    pair->setSpacing(1);
    pair->addWidget(before);
    pair->addWidget(&figure);
    line.addLayout(pair);
}

QLabel* Syokuta_Sheet::Make_Before(const Syokuta_Cell& cell, const QWidget& beside) const {
    QLabel* label = Make_Figure(QString::fromStdString(Name_Before(cell.name)), theme::shown_zebra);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(theme::muted));
    label->setPalette(palette);
    label->setFixedWidth(beside.minimumWidth());
    label->setToolTip(Text(sides.before->name));
    label->setAccessibleName(beside.accessibleName() + QLatin1Char(' ') + label->toolTip());
    return label;
}

void Syokuta_Sheet::Add_Check(QHBoxLayout& line, const char* score) {
    const int index = Index_Of_Check(score);
    auto* button = new QPushButton(QStringLiteral("計算チェック"));
    button->setObjectName(QStringLiteral("Cmd_W2X(%1)").arg(index));
    button->setAccessibleName(Text(score) + QStringLiteral(" 計算チェック"));
    button->setAutoDefault(false);
    theme::Set_Look(button, "check_button");
    button->setFont(theme::Gothic(9));
    connect(button, &QPushButton::clicked, this, [this, index] { Q_EMIT Check_Pressed(index); });
    line.addWidget(button);
}

// ---- layout

int Syokuta_Sheet::Column_Of(const Syokuta_Group& group) const {
    return column_count == 1 ? 0 : column_count == 2 ? group.of_two : group.of_three;
}

int Syokuta_Sheet::Column_Of(const QWidget& field) const {
    for (const Placed_Group& placed : groups) {
        if (placed.box->isAncestorOf(&field)) {
            return Column_Of(*placed.group);
        }
    }
    return -1;
}

void Syokuta_Sheet::Arrange(int count) {
    column_count = count;
    for (QVBoxLayout* column : columns) {
        while (QLayoutItem* item = column->takeAt(0)) {
            delete item;
        }
    }
    for (const Placed_Group& placed : groups) {
        columns[static_cast<std::size_t>(Column_Of(*placed.group))]->addWidget(placed.box);
    }
    auto* row = static_cast<QHBoxLayout*>(layout());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const bool used = columns[i]->count() > 0;
        columns[i]->addStretch(1);
        row->setStretch(static_cast<int>(i), used ? 1 : 0);
    }
}

void Syokuta_Sheet::Fit(int screen_width) {
    int count = 3;
    while (count > 1 && screen_width < room_for[static_cast<std::size_t>(count - 1)]) {
        --count;
    }
    if (count != column_count) {
        Arrange(count);
    }
}

// ---- figures

void Syokuta_Sheet::Show_Figures(const Syokuta& figures, bool computed) {
    for (const auto& [cell, label] : labels) {
        label->setText(computed ? QString::fromStdString(cell->shown(figures)) : QString());
    }
    for (Syokuta_Edit* edit : edits) {
        const std::int32_t value = figures.items.At(edit->cell.element);
        if (edit->Entry().Is_Null() || edit->Number() != value) {
            edit->Set_Value(value);
        }
    }
}

void Syokuta_Sheet::Show_Before(const Syokuta* figures) {
    for (const auto& [cell, label] : labels_before) {
        label->setText(figures != nullptr ? QString::fromStdString(Text_Of(*cell, *figures)) : QString());
    }
}

// ---- ways between the fields

Syokuta_Edit& Syokuta_Sheet::Next_To(const Syokuta_Edit& from, int by) const {
    const auto place = std::find(edits.begin(), edits.end(), &from) - edits.begin();
    const auto count = static_cast<std::ptrdiff_t>(edits.size());
    return *edits[static_cast<std::size_t>((place + by + count) % count)];
}

Syokuta_Edit* Syokuta_Sheet::Beyond(const Syokuta_Edit& from, int direction) const {
    const auto centre = [this](const QWidget& widget) { return widget.mapTo(this, widget.rect().center()); };
    const QPoint here = centre(from);
    Syokuta_Edit* nearest = nullptr;
    QPoint distance;
    for (Syokuta_Edit* edit : edits) {
        const QPoint to = centre(*edit) - here;
        const int down = to.y() * direction;
        if (down <= from.height() / 2 || Column_Of(*edit) != Column_Of(from)) {
            continue;
        }
        const bool same_line = nearest != nullptr && std::abs(down - distance.y()) <= from.height() / 2;
        if (nearest == nullptr || (same_line ? std::abs(to.x()) < distance.x() : down < distance.y())) {
            nearest = edit;
            distance = {std::abs(to.x()), down};
        }
    }
    return nearest;
}

} // namespace morvane
