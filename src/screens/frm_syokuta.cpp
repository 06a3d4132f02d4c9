// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_syokuta.h"

#include "screens/syokuta_edit.h"
#include "session/boxes.h"
#include "session/save_or_stay.h"
#include "widgets/figure_label.h"
#include "widgets/note_button.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace morvane {

namespace {

constexpr int beside_sheet = 12 + 14; // margins and scroll bar
constexpr int beside_figure = 18;     // of a shown figure, so that it is as wide as an entry
constexpr int longest_in_line = 21;   // characters of a caption
constexpr int row_height = 26;
constexpr int side = 10; // at the left and right inside a group

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

/// A caption that does not break inside a short end, such as 点数 behind its （Ｗ１）: kanji break anywhere.
QString Keep_End_Whole(QString caption) {
    constexpr int short_end = 8;
    constexpr QChar word_joiner(0x2060);
    const auto begin = std::max(caption.lastIndexOf(QChar(u'（')), qsizetype{0});
    if (caption.size() - begin <= short_end) {
        for (qsizetype at = caption.size() - 1; at > begin; --at) {
            if (!caption[at].isSpace() && !caption[at - 1].isSpace()) {
                caption.insert(at, word_joiner);
            }
        }
    }
    return caption;
}

/// A figure that is not keyed: right-aligned on the ground of shown cells.
QLabel* Shown_Figure(const Syokuta_Cell& cell, bool strong) {
    auto* label = new Figure_Label;
    label->setObjectName(Text(cell.name));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFont(theme::Gothic(theme::body_points, strong));
    label->setTextFormat(Qt::PlainText);
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(QLatin1Char('0')) * cell.digits +
                         (strong ? 10 : beside_figure));
    label->setFixedHeight(22);
    label->setContentsMargins(4, 0, 4, 0);
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, QColor(strong ? theme::surface : theme::shown));
    label->setPalette(palette);
    return label;
}

// The scores of the screen, which the sheet has too but may be scrolled, and the hint on the field in entry.
Result_Strip* Make_Strip() {
    const std::array<Result_Figure, 2> figures = {
        {{.name = "Strip_X2", .caption = "Ｘ２"}, {.name = "Strip_W", .caption = "Ｗ", .strong = true}}};
    return new Result_Strip(figures, Result_Strip::Subject::Hint);
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

} // namespace

Frm_Syokuta::Frm_Syokuta(Shell_Port& shell_port)
    : Form(shell_port, {}, QStringLiteral("自己資本額・利益額・従業職員数・その他（Ｘ２，Ｗ）")),
      entry(shell_port.session), checks(*this, shell_port), scroll(new QScrollArea), strip(Make_Strip()),
      sheet(new QWidget) {
    setObjectName(Text(entry.Law().entry_form));
    Set_Sub_Title(QString::fromStdString(shell.menu.screen.title));
    auto* row = new QHBoxLayout(sheet);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    for (QVBoxLayout*& column : columns) {
        column = new QVBoxLayout;
        column->setSpacing(6);
        row->addLayout(column);
    }
    for (const Syokuta_Group& group : Syokuta_Groups()) {
        if (group.law.Has(entry.Law())) {
            groups.push_back({&group, Make_Group(group)});
        }
    }
    body->setContentsMargins(6, 8, 6, 8);
    for (int count : {1, 2, 3}) {
        Arrange(count);
        room_for[static_cast<std::size_t>(count - 1)] = sheet->minimumSizeHint().width() + beside_sheet;
    }
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(sheet);
    body->addWidget(scroll, 1);
    body->addWidget(strip);

    Add_Help_Button();
    Add_Menu_Button();
    buttons->insertWidget(2, new Note_Button(shell));
    auto* Tojiru = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(Tojiru, &QPushButton::clicked, this, &Frm_Syokuta::reject);
    if (entry.Fault()) {
        Tell(shell.session, "実行時エラー",
             entry.Fault()->what() + std::string("\n保存されている数値を確認し、修正してください。"));
    }
    Show_W_2012();
    setFocusProxy(edits.front());
}

QWidget* Frm_Syokuta::Make_Group(const Syokuta_Group& group) {
    auto* box = new QFrame(sheet);
    theme::Set_Look(box, "section");
    box->setAccessibleName(Text(group.title));
    auto* whole = new QVBoxLayout(box);
    whole->setContentsMargins(1, 1, 1, 1);
    whole->setSpacing(0);
    whole->addWidget(Make_Band(group));
    auto* lines = new QVBoxLayout;
    lines->setContentsMargins(side, 3, side, 3);
    lines->setSpacing(1);
    for (const Syokuta_Row& row : group.rows) {
        if (row.law.Has(entry.Law())) {
            lines->addWidget(Make_Row(row));
        }
    }
    if (lines->count() > 0) {
        whole->addLayout(lines);
    } else {
        delete lines;
    }
    return box;
}

QWidget* Frm_Syokuta::Make_Band(const Syokuta_Group& group) {
    auto* band = new QFrame;
    band->setAutoFillBackground(true);
    QPalette palette = band->palette();
    palette.setColor(QPalette::Window, QColor(theme::accent_soft));
    band->setPalette(palette);
    auto* line = new QHBoxLayout(band);
    line->setContentsMargins(side, 2, side, 2);
    line->setSpacing(6);
    auto* title = new QLabel(Text(group.title));
    title->setFont(theme::Gothic(theme::body_points, true));
    palette.setColor(QPalette::WindowText, QColor(theme::accent));
    title->setPalette(palette);
    line->addWidget(title, 1);
    for (const Syokuta_Cell& cell : group.points) {
        QLabel* label = Shown_Figure(cell, true);
        label->setAccessibleName(title->text() + QStringLiteral(" 点数"));
        labels.push_back({&cell, label});
        line->addWidget(label);
    }
    if (group.check != nullptr) {
        Add_Check(*line, group.check);
    }
    return band;
}

QWidget* Frm_Syokuta::Make_Row(const Syokuta_Row& row) {
    auto* widget = new QWidget;
    auto* line = new QHBoxLayout(widget);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    if (row.look != Syokuta_Row::Look::Note) {
        widget->setMinimumHeight(row_height);
    }
    const QString text = Text(row.caption).trimmed();
    const bool wraps = text.size() > longest_in_line;
    auto* caption = new QLabel(wraps ? Keep_End_Whole(text) : text);
    caption->setTextFormat(Qt::PlainText);
    caption->setWordWrap(wraps);
    switch (row.look) {
    case Syokuta_Row::Look::Line:
        break;
    case Syokuta_Row::Look::Heading:
    case Syokuta_Row::Look::Total:
        caption->setFont(theme::Gothic(theme::body_points, true));
        break;
    case Syokuta_Row::Look::Note:
        theme::Set_Look(caption, "muted");
        caption->setFont(theme::Gothic(9));
        break;
    }
    line->addWidget(caption, 1);
    const bool score = row.look == Syokuta_Row::Look::Heading || row.look == Syokuta_Row::Look::Total;
    for (const Syokuta_Cell& cell : row.cells) {
        if (score) {
            QLabel* label = Shown_Figure(cell, true);
            label->setAccessibleName(text + QStringLiteral(" 点数"));
            labels.push_back({&cell, label});
            line->addWidget(label);
        } else {
            Add_Cell(*line, cell, row.caption);
        }
    }
    if (row.check != nullptr) {
        line->addSpacing(2);
        Add_Check(*line, row.check);
    }
    return widget;
}

void Frm_Syokuta::Add_Cell(QHBoxLayout& line, const Syokuta_Cell& cell, const char* caption) {
    if (*cell.before != '\0') {
        line.addWidget(new QLabel(Text(cell.before)));
    }
    if (cell.element == 0) {
        QLabel* label = Shown_Figure(cell, false);
        label->setAccessibleName(Text(caption).trimmed() + Text(cell.before));
        labels.push_back({&cell, label});
        line.addWidget(label);
    } else {
        auto* edit = new Syokuta_Edit(cell, entry.Law());
        edit->setAccessibleName((Text(caption) + QLatin1Char(' ') + Text(cell.before)).trimmed());
        edit->on_leave = [this, edit] { return Take_Entry(*edit); };
        edit->on_arrow = [this, edit](int direction) { Step_Down(*edit, direction); };
        edit->on_step = [this](bool back) { Step_Entry(back); };
        connect(edit, &Entry_Cell::Entered, this, [this, edit] {
            strip->Set_Subject(edit->hint);
            scroll->ensureWidgetVisible(edit, 0, row_height);
        });
        connect(edit, &Entry_Cell::Next_Field, this, [this, edit] { Step(*edit, 1); });
        edits.push_back(edit);
        line.addWidget(edit);
    }
    if (*cell.after != '\0') {
        line.addWidget(new QLabel(Text(cell.after)));
    }
}

void Frm_Syokuta::Add_Check(QHBoxLayout& line, const char* score) {
    const int index = Index_Of_Check(score);
    auto* button = new QPushButton(QStringLiteral("計算チェック"));
    button->setObjectName(QStringLiteral("Cmd_W2X(%1)").arg(index));
    button->setAccessibleName(Text(score) + QStringLiteral(" 計算チェック"));
    button->setAutoDefault(false);
    theme::Set_Look(button, "check_button");
    button->setFont(theme::Gothic(9));
    Wire(button, &QPushButton::clicked, [this, index] { Cmd_W2X(index); });
    line.addWidget(button);
}

// ---- layout

int Frm_Syokuta::Column_Of(const Syokuta_Group& group) const {
    return column_count == 1 ? 0 : column_count == 2 ? group.of_two : group.of_three;
}

void Frm_Syokuta::Arrange(int count) {
    column_count = count;
    for (QVBoxLayout* column : columns) {
        while (QLayoutItem* item = column->takeAt(0)) {
            delete item;
        }
    }
    for (const Placed_Group& placed : groups) {
        columns[static_cast<std::size_t>(Column_Of(*placed.group))]->addWidget(placed.box);
    }
    auto* row = static_cast<QHBoxLayout*>(sheet->layout());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const bool used = columns[i]->count() > 0;
        columns[i]->addStretch(1);
        row->setStretch(static_cast<int>(i), used ? 1 : 0);
    }
}

// As many columns as there is room for.
void Frm_Syokuta::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    int count = 3;
    while (count > 1 && event->size().width() < room_for[static_cast<std::size_t>(count - 1)]) {
        --count;
    }
    if (count != column_count) {
        Arrange(count);
    }
}

// ---- figures

void Frm_Syokuta::Show_W_2012() {
    const Syokuta& shown = entry.Shown();
    for (const Shown_Cell& shown_cell : labels) {
        shown_cell.label->setText(entry.Fault() ? QString()
                                                : QString::fromStdString(shown_cell.cell->shown(shown)));
    }
    for (const auto& [score, figure] : {std::pair{"X2", "Strip_X2"}, {"W", "Strip_W"}}) {
        if (const auto* label = sheet->findChild<QLabel*>(QString::fromLatin1(score))) {
            strip->Set_Text(figure, label->text());
        }
    }
    for (Syokuta_Edit* edit : edits) {
        const std::int32_t value = Item(*edit);
        if (edit->Entry().Is_Null() || edit->Number() != value) {
            edit->Set_Value(value);
        }
    }
}

std::int32_t Frm_Syokuta::Item(const Syokuta_Edit& edit) const {
    return entry.Shown().items.At(edit.cell.element);
}

// Calculates with a value; false where it cannot be stored or leads to figures out of their width.
bool Frm_Syokuta::Put(const Syokuta_Edit& edit, std::int32_t value) {
    bool taken = false;
    shell.Guard([&] {
        const std::string refusal = Syokuta_Entry::Refusal(edit.cell.element, value);
        if (refusal.empty()) {
            entry.Take(edit.cell.element, value);
            taken = true;
        } else {
            Tell(shell.session, "入力エラー", refusal);
        }
    });
    return taken;
}

// The former value comes back where the entry is refused.
bool Frm_Syokuta::Take_Entry(Syokuta_Edit& edit) {
    const std::int32_t former = Item(edit);
    if (!Put(edit, edit.Number())) {
        edit.Set_Value(former);
        edit.selectAll();
        return false;
    }
    if (Item(edit) != former) {
        done.push_back({&edit, former, Item(edit)});
        undone.clear();
    }
    Show_W_2012();
    return true;
}

// Takes the last entry back, or does the last one that was taken back again, and goes to its field.
void Frm_Syokuta::Step_Entry(bool back) {
    std::vector<Taken>& from = back ? done : undone;
    if (from.empty()) {
        QApplication::beep();
        return;
    }
    const Taken step = from.back();
    if (!Put(*step.edit, back ? step.former : step.later)) {
        return;
    }
    from.pop_back();
    (back ? undone : done).push_back(step);
    Show_W_2012();
    step.edit->setFocus(Qt::OtherFocusReason);
    step.edit->selectAll();
}

bool Frm_Syokuta::Take_Focused() {
    for (Syokuta_Edit* edit : edits) {
        if (edit->hasFocus() || focusWidget() == edit) {
            return edit->Finish_Entry() && Take_Entry(*edit);
        }
    }
    return true;
}

bool Frm_Syokuta::May_Close() {
    return checks.May_Close() && Take_Focused() &&
           Save_Or_Stay(shell.session, [this] { entry.Store(shell.session); }) != Save_End::Stay;
}

void Frm_Syokuta::Cmd_W2X(int index) {
    checks.Open(W2X_Request(entry.Law(), index), Side_In_Hand(shell.session),
                [this] { return Save_First(); });
}

// The check reads the store and explains settled scores; the screen beside it shows the same.
bool Frm_Syokuta::Save_First() {
    if (!Take_Focused() || !Save_Or_Back(shell.session, [this] { entry.Store(shell.session); })) {
        return false;
    }
    entry = Syokuta_Entry(shell.session);
    Show_W_2012();
    return true;
}

// ---- keys

void Frm_Syokuta::Step(const Syokuta_Edit& from, int by) {
    const auto place = std::find(edits.begin(), edits.end(), &from) - edits.begin();
    const auto count = static_cast<std::ptrdiff_t>(edits.size());
    edits[static_cast<std::size_t>((place + by + count) % count)]->setFocus(Qt::TabFocusReason);
}

// To the nearest field of the line above or below in the same column of the screen; the ends stop.
void Frm_Syokuta::Step_Down(const Syokuta_Edit& from, int direction) {
    const auto centre = [this](const QWidget& widget) { return widget.mapTo(sheet, widget.rect().center()); };
    const auto column = [this](const QWidget& widget) {
        for (const Placed_Group& placed : groups) {
            if (placed.box->isAncestorOf(&widget)) {
                return Column_Of(*placed.group);
            }
        }
        return -1;
    };
    const QPoint here = centre(from);
    Syokuta_Edit* nearest = nullptr;
    QPoint distance;
    for (Syokuta_Edit* edit : edits) {
        const QPoint to = centre(*edit) - here;
        const int down = to.y() * direction;
        if (down <= from.height() / 2 || column(*edit) != column(from)) {
            continue;
        }
        const bool same_line = nearest != nullptr && std::abs(down - distance.y()) <= from.height() / 2;
        if (nearest == nullptr || (same_line ? std::abs(to.x()) < distance.x() : down < distance.y())) {
            nearest = edit;
            distance = {std::abs(to.x()), down};
        }
    }
    if (nearest != nullptr) {
        nearest->setFocus(Qt::TabFocusReason);
    }
}

} // namespace morvane
