// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_syokuta.h"

#include "screens/syokuta_sheet.h"
#include "screens/two_sides.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"
#include "session/save_or_stay.h"
#include "widgets/elided_label.h"
#include "widgets/gain_strip.h"
#include "widgets/note_button.h"
#include "widgets/result_strip.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QScrollArea>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr const char* of_current = "改善前（現状）の数値による計算です。";

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

QString Score_Text(std::int32_t score) {
    return QString::fromStdString(Comma_Str(std::int64_t{score}));
}

/// A ground as the fields of a side have it, and what the side is called.
void Add_To_Legend(QHBoxLayout& line, const char* name, const char* caption, QRgb ground) {
    auto* swatch = new QFrame;
    swatch->setFixedSize(26, 14);
    swatch->setStyleSheet(QStringLiteral("background: %1; border: 1px solid %2;")
                              .arg(QColor(ground).name(), QColor(theme::line).name()));
    auto* label = new QLabel(Text(caption));
    label->setObjectName(QString::fromLatin1(name));
    line.addWidget(swatch);
    line.addWidget(label);
    line.addSpacing(12);
}

} // namespace

Frm_Syokuta::Frm_Syokuta(Shell_Port& shell_port, const char* name)
    : Form(shell_port, {}, QStringLiteral("自己資本額・利益額・従業職員数・その他（Ｘ２，Ｗ）")),
      screen(Syokuta_Screen_Of(name)), entry(Open_Syokuta(shell_port.session, screen)),
      checks(*this, shell_port), sheet(new Syokuta_Sheet(entry.Law(), screen.sides)),
      scroll(new QScrollArea) {
    setObjectName(Text(entry.Law().*screen.form));
    Set_Sub_Title(QString::fromStdString(shell.menu.screen.title));
    body->setContentsMargins(6, 8, 6, 8);
    if (screen.sides.before) {
        body->setSpacing(6);
        body->addWidget(Make_Legend());
        if (!entry.Notice().empty()) {
            body->addWidget(Make_Notice(entry.Notice()));
        }
        fault_before = new Elided_Label(2);
        fault_before->setObjectName(QStringLiteral("Lbl_Fault"));
        theme::Set_Look(fault_before, "fault");
        body->addWidget(fault_before);
    }
    Make_Sheet();
    Make_Strips();
    Make_Buttons();
    if (entry.Fault() && !screen.sides.read_only) {
        Tell(shell.session, "実行時エラー", Fault_Of_Side(screen.sides, *entry.Fault()));
    }
    Show_Before();
    Show_W_2012();
    setFocusProxy(sheet->Edits().front());
}

void Frm_Syokuta::Make_Sheet() {
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(sheet);
    body->addWidget(scroll, 1);
    Wire(sheet, &Syokuta_Sheet::Check_Pressed, [this](int index) { Cmd_W2X(index); });
    for (Syokuta_Edit* edit : sheet->Edits()) {
        edit->on_leave = [this, edit] { return Take_Entry(*edit); };
        edit->on_arrow = [this, edit](int direction) {
            if (Syokuta_Edit* to = sheet->Beyond(*edit, direction)) {
                to->setFocus(Qt::TabFocusReason);
            }
        };
        edit->on_step = [this](bool back) { Step_Entry(back); };
        if (screen.sides.before && !screen.sides.read_only) {
            connect(edit, &QLineEdit::textEdited, this, [this, edit] { Try(*edit); });
        }
        connect(edit, &Entry_Cell::Entered, this, [this, edit] {
            strip->Set_Subject(edit->hint);
            scroll->ensureWidgetVisible(edit, 0, edit->height());
        });
        connect(edit, &Entry_Cell::Next_Field, this,
                [this, edit] { sheet->Next_To(*edit, 1).setFocus(Qt::TabFocusReason); });
    }
}

QWidget* Frm_Syokuta::Make_Legend() {
    auto* legend = new QWidget;
    auto* line = new QHBoxLayout(legend);
    line->setContentsMargins(4, 0, 4, 0);
    line->setSpacing(6);
    Add_To_Legend(*line, "Lbl_Mae", screen.sides.before->caption, theme::shown_zebra);
    Add_To_Legend(*line, "Lbl_Go", screen.sides.after.caption,
                  screen.sides.read_only ? theme::locked : theme::surface);
    line->addStretch(1);
    return legend;
}

// The scores of the screen, which the sheet has too but may be scrolled, and the hint on the field in entry.
void Frm_Syokuta::Make_Strips() {
    const std::vector<Result_Figure> alone = {{.name = "Strip_X2", .caption = "Ｘ２"},
                                              {.name = "Strip_W", .caption = "Ｗ", .strong = true}};
    const std::vector<Result_Figure> beside = {
        {.name = "Strip_Mae_X2", .caption = "Ｘ２"},
        {.name = "Strip_X2", .caption = "→", .strong = true, .joined = true},
        {.name = "Strip_Mae_W", .caption = "Ｗ"},
        {.name = "Strip_W", .caption = "→", .strong = true, .joined = true}};
    strip = new Result_Strip(screen.sides.before ? beside : alone, Result_Strip::Subject::Hint);
    body->addWidget(strip);
    if (screen.sides.before) {
        body->addWidget(gain_strip = Make_Gain_Strip(screen.sides));
    }
}

void Frm_Syokuta::Make_Buttons() {
    Add_Help_Button();
    Add_Menu_Button();
    buttons->insertWidget(2, new Note_Button(shell));
    if (screen.report != nullptr) {
        auto* print = Add_Button(QStringLiteral("Prt"), Text(screen.print_caption));
        Wire(print, &QPushButton::clicked, [this] { Prt(); });
    }
    auto* Tojiru = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(Tojiru, &QPushButton::clicked, this, &Frm_Syokuta::reject);
}

void Frm_Syokuta::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    sheet->Fit(event->size().width());
    if (gain_strip != nullptr) {
        constexpr int roomy = 960; // in a narrow window the hint needs what the figures can spare
        Result_Strip::Align(*strip, *gain_strip, event->size().width() >= roomy);
    }
}

// ---- figures

void Frm_Syokuta::Show_W_2012() {
    const Syokuta& shown = entry.Shown();
    const bool computed = !entry.Fault();
    sheet->Show_Figures(shown, computed);
    strip->Set_Text("Strip_X2", computed ? Score_Text(shown.x2.score.Count()) : QString());
    strip->Set_Text("Strip_W", computed ? Score_Text(shown.items.W) : QString());
    Show_Gain_Of(entry);
}

void Frm_Syokuta::Show_Gain_Of(const Syokuta_Entry& shown) {
    if (gain_strip != nullptr) {
        const P_Gain gain = shown.Gain().value_or(P_Gain{});
        Show_Gain(*gain_strip, gain, Telling_Line(gain));
    }
}

// The gain follows the keys: what the entry in hand would bring. One that cannot be taken is told of when it
// is left.
void Frm_Syokuta::Try(const Syokuta_Edit& edit) {
    Syokuta_Entry trial = entry;
    try {
        if (Syokuta_Entry::Refusal(edit.cell.element, edit.Number()).empty()) {
            trial.Take(edit.cell.element, edit.Number());
        }
    } catch (const Run_Time_Error&) {
        trial = entry;
    }
    Show_Gain_Of(trial);
}

// What no entry changes.
void Frm_Syokuta::Show_Before() {
    if (!screen.sides.before) {
        return;
    }
    const Syokuta* before = entry.Shown_Before();
    sheet->Show_Before(before);
    strip->Set_Text("Strip_Mae_X2", before != nullptr ? Score_Text(before->x2.score.Count()) : QString());
    strip->Set_Text("Strip_Mae_W", before != nullptr ? Score_Text(before->items.W) : QString());
    QStringList faults;
    if (const std::optional<Run_Time_Error> fault = entry.Fault_Before()) {
        faults << Text(screen.sides.read_only ? screen.sides.before->name : "比較する数値") + u'：' +
                      Text(fault->what());
    }
    if (screen.sides.read_only && entry.Fault()) {
        faults << Text(screen.sides.after.name) + u'：' + Text(entry.Fault()->what());
    }
    fault_before->setText(faults.join(u'　'));
    fault_before->setHidden(faults.isEmpty());
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
    if (screen.sides.read_only) {
        return true;
    }
    const std::int32_t former = Item(edit);
    if (!Put(edit, edit.Number())) {
        edit.Set_Value(former);
        edit.selectAll();
        Show_Gain_Of(entry);
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
    for (Syokuta_Edit* edit : sheet->Edits()) {
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

// The checks explain the current figures, beside whichever screen they are opened.
void Frm_Syokuta::Cmd_W2X(int index) {
    if (screen.sides.read_only) {
        checks.Open_Either(W2X_Request(entry.Law(), index),
                           Sides_To_Check(screen.sides, [this](bool of_before) {
                               return entry.Checked_Figures(of_before);
                           }));
        return;
    }
    checks.Open(
        W2X_Request(entry.Law(), index), Side_In_Hand(shell.session), [this] { return Save_First(); },
        screen.Checks_Others() ? of_current : "");
}

void Frm_Syokuta::Prt() {
    if (Save_First()) {
        Focus_Field(); // where the keying goes on after the report
        shell.Open_Form(Text(entry.Law().*screen.report));
    }
}

// Check and report read the store and explain settled scores; the screen beside them shows the same.
bool Frm_Syokuta::Save_First() {
    if (!Take_Focused() || !Save_Or_Back(shell.session, [this] { entry.Store(shell.session); })) {
        return false;
    }
    entry = Syokuta_Entry(shell.session, screen.sides);
    Show_W_2012();
    return true;
}

} // namespace morvane
