// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_kanko.h"

#include "law/law_year.h"
#include "law/work_types.h"
#include "screens/two_sides.h"
#include "session/boxes.h"
#include "session/kyotu_mod.h"
#include "session/save_or_stay.h"
#include "widgets/elided_label.h"
#include "widgets/entry_cell.h"
#include "widgets/gain_strip.h"
#include "widgets/note_button.h"
#include "widgets/result_strip.h"
#include "widgets/theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <array>

namespace morvane {

namespace {

const char* Group_Of(const Kanko_Column& column, const Screen_Sides& sides) {
    const Screen_Side& side = column.before && sides.before ? *sides.before : sides.after;
    return column.group != nullptr ? column.group : side.caption;
}

// A figure is whole and not negative.
void Make_Entry(Grid_Column& shown, Kanko_Use use, bool read_only) {
    shown.use = Cell_Use::Entry;
    shown.kind = read_only ? Entry_Kind::Figure : Entry_Kind::Digits;
    shown.max_length = use == Kanko_Use::Amount ? 10 : 5;
    shown.align = Qt::AlignRight;
    shown.format = [](const Value& value) { return QString::fromStdString(Comma_Str(value)); };
    // Engineers belong to work types; the line of other works has none.
    shown.locked = [use, read_only](int row) {
        return read_only || (use == Kanko_Use::Count && Line_Of_Row(row) >= scored_lines);
    };
}

Grid_Column Column_Of(const Kanko_Column& column, const Screen_Sides& sides) {
    Grid_Column shown{.name = column.name,
                      .heading = column.heading,
                      .group = Group_Of(column, sides),
                      .use = Cell_Use::Shown,
                      .width = column.width};
    switch (column.use) {
    case Kanko_Use::Amount:
    case Kanko_Use::Count:
        Make_Entry(shown, column.use, sides.read_only);
        break;
    case Kanko_Use::Gain:
        shown.format = [](const Value& value) {
            return QString::fromStdString(Gain_Str(static_cast<std::int32_t>(value.As_Integer())));
        };
        break;
    case Kanko_Use::Check:
        shown.button = "計算";
        shown.use = Cell_Use::Button;
        break;
    case Kanko_Use::Kept:
    case Kanko_Use::Result:
    case Kanko_Use::Score:
        break;
    }
    return shown;
}

std::vector<Grid_Column> Columns_Of(const Kanko_Screen& screen) {
    std::vector<Grid_Column> columns;
    for (const Kanko_Column& column : screen.columns) {
        columns.push_back(Column_Of(column, screen.sides));
    }
    return columns;
}

// What an entry may change; the side before stays as it was.
bool Is_Calculated(const Kanko_Column& column) {
    return !column.before && (column.use == Kanko_Use::Result || column.use == Kanko_Use::Score ||
                              column.use == Kanko_Use::Gain);
}

// A line that is part of the one above it stands in from it.
std::vector<std::vector<std::string>> Captions_Of_Rows() {
    std::vector<std::vector<std::string>> rows;
    for (int row = 0; row < kanko_rows; ++row) {
        const std::size_t line = Line_Of_Row(row);
        const Work_Type& type = work_types[line];
        rows.push_back({std::string(type.label), (Is_Sub_Line(line) ? "　" : "") + std::string(type.name)});
    }
    return rows;
}

// The column in which the keying begins.
int First_Keyed(const Kanko_Screen& screen) {
    const auto first = std::find_if(screen.columns.begin(), screen.columns.end(),
                                    [](const Kanko_Column& column) { return Is_Keyed(column.use); });
    return static_cast<int>(first - screen.columns.begin());
}

constexpr const char* basis_tip = "総合評点（Ｐ）の計算に使う、ほかの画面の評点です。";

QString Score_Text(std::int32_t score) {
    return QString::fromStdString(Comma_Str(std::int64_t{score}));
}

// The scores that P takes from other screens, with those of the side before where it is given.
QString Basis_Text(const Works::Scores& scores, const Works::Scores* before = nullptr) {
    QStringList texts;
    for (const auto& [name, score] :
         {std::pair{"Ｙ", &Works::Scores::Y}, {"Ｘ２", &Works::Scores::X2}, {"Ｗ", &Works::Scores::W}}) {
        const QString former =
            before != nullptr ? Score_Text((before->*score).Count()) + QStringLiteral(" → ") : QString();
        texts << QString::fromUtf8(name) + u' ' + former + Score_Text((scores.*score).Count());
    }
    return texts.join(QStringLiteral("　"));
}

std::string Fault_Text(const Kanko_Entry& entry) {
    const Screen_Sides& sides = entry.screen.sides;
    const std::string of_before = entry.Fault_Before()
                                      ? (sides.read_only ? sides.before->name : "比較する数値") +
                                            std::string("：") + entry.Fault_Before()->what()
                                      : "";
    if (!entry.Fault()) {
        return of_before;
    }
    return sides.read_only ? sides.after.name + std::string("：") + entry.Fault()->what() + of_before
                           : entry.Fault()->what();
}

Kanko_Entered Entered(int row, int column, const Value& value) {
    return {row, column, value.Is_Null() ? std::nullopt : std::optional(value.As_Integer())};
}

Value Shown_Value(std::optional<std::int32_t> number) {
    return number ? Value(std::int64_t{*number}) : Value();
}

} // namespace

Frm_Kanko::Frm_Kanko(Shell_Port& shell_port, const char* form)
    : Form(shell_port, QString::fromUtf8(form), QString::fromUtf8(Kanko_Screen_Of(form).title)),
      entry(shell.session, Kanko_Screen_Of(form)), grid(new Entry_Grid(Columns_Of(entry.screen), kanko_rows)),
      basis(new QLabel), fault(new Elided_Label(2)) {
    Set_Sub_Title(QString::fromStdString(shell.menu.screen.title));
    Make_Grid();
    body->addWidget(fault);
    if (!entry.Notice().empty()) {
        body->addWidget(Make_Notice(entry.Notice()));
    }
    body->insertWidget(0, Make_Head());
    body->addWidget(grid, 1);
    body->addWidget(Make_Strip());
    Make_Buttons();
    setFocusProxy(grid);
    if (Kanko_Avg != nullptr) {
        setTabOrder(Kanko_Avg, grid);
    }
    if (entry.Fault() && !entry.screen.sides.read_only) {
        Tell(shell.session, "実行時エラー", Fault_Of_Side(entry.screen.sides, *entry.Fault()));
    }
}

QWidget* Frm_Kanko::Make_Head() {
    auto* line = new QWidget;
    line->setMaximumWidth(grid->maximumWidth());
    line->installEventFilter(this);
    auto* head = new QHBoxLayout(line);
    head->setContentsMargins(0, 0, 0, 0);
    head->setSpacing(8);
    if (*entry.screen.subject != 0) {
        auto* subject = new QLabel(QString::fromUtf8(entry.screen.subject));
        subject->setObjectName(QStringLiteral("Lbl_Subject"));
        head->addWidget(subject);
    }
    if (entry.screen.Has_Years()) {
        Kanko_Avg = new Entry_Cell(Entry_Kind::Choice);
        Kanko_Avg->setObjectName(QStringLiteral("Kanko_Avg"));
        Kanko_Avg->setAccessibleName(QStringLiteral("完成工事高の平均年数"));
        Kanko_Avg->Set_Choices(QStringLiteral("23"));
        Kanko_Avg->setMaxLength(1);
        Kanko_Avg->Set_Width(2);
        Wire(Kanko_Avg, &Entry_Cell::Left, [this] { Take_Avg(); });
        connect(Kanko_Avg, &Entry_Cell::Next_Field, grid,
                [this] { grid->Focus_Cell(First_Row(), First_Keyed(entry.screen)); });
        auto* hint = new Elided_Label;
        hint->setText(QStringLiteral("年平均（２年平均：2　３年平均：3）"));
        theme::Set_Look(hint, "muted");
        hint->setFont(theme::Gothic(9));
        Kanko_Avg->Set_Locked(entry.screen.sides.read_only);
        head->addWidget(Kanko_Avg);
        head->addWidget(hint);
    }
    head->addStretch(1);
    basis->setObjectName(QStringLiteral("Lbl_Basis"));
    basis->setToolTip(QString::fromUtf8(basis_tip));
    head->addWidget(basis);
    fault->setObjectName(QStringLiteral("Lbl_Fault"));
    theme::Set_Look(fault, "fault");
    const bool has_amounts =
        std::any_of(entry.screen.columns.begin(), entry.screen.columns.end(),
                    [](const Kanko_Column& column) { return column.use == Kanko_Use::Amount; });
    auto* unit = new QLabel(has_amounts ? QStringLiteral("金額単位：千円") : QStringLiteral("単位：人"));
    theme::Set_Look(unit, "muted");
    unit->setFont(theme::Gothic(9));
    head->addSpacing(8);
    head->addWidget(unit);
    Show_Years();
    Show_Kanko();
    Set_Cmd_Enable();
    return line;
}

// The columns of the scores may be scrolled out of view while figures are keyed at the left.
QWidget* Frm_Kanko::Make_Strip() {
    connect(grid, &Entry_Grid::Cell_Entered, this, [this] { Show_Row_In_Hand(); });
    QWidget* line =
        entry.screen.sides.before ? gain_strip = Make_Gain_Strip(entry.screen.sides) : Make_Result_Strip();
    if (gain_strip != nullptr && !entry.screen.sides.read_only) {
        connect(grid, &Entry_Grid::Entry_Typed, this, &Frm_Kanko::Try_Entry);
        if (Kanko_Avg != nullptr) {
            connect(Kanko_Avg, &QLineEdit::textEdited, this,
                    [this] { Try([this](Kanko_Entry& trial) { trial.Take_Kanko_Avg(Keyed_Avg()); }); });
        }
    }
    line->setMaximumWidth(grid->maximumWidth());
    Show_Row_In_Hand();
    return line;
}

QWidget* Frm_Kanko::Make_Result_Strip() {
    std::vector<Result_Figure> figures;
    for (const Kanko_Column& column : entry.screen.columns) {
        if (column.use == Kanko_Use::Score) {
            const bool is_p = column.name == std::string_view("P");
            figures.push_back({.name = std::string("Strip_") + column.name,
                               .caption = is_p ? "Ｐ" : column.heading,
                               .strong = is_p});
        }
    }
    return strip = new Result_Strip(figures);
}

// Where sides are compared, the first one with something to compare.
int Frm_Kanko::First_Row() const {
    const P_Gain gain = entry.Gain();
    for (int row = 0; row < kanko_rows; ++row) {
        const std::size_t line = Line_Of_Row(row);
        if (line < scored_lines && (gain.lines[line].before || gain.lines[line].after)) {
            return row;
        }
    }
    return 0;
}

void Frm_Kanko::Show_Row_In_Hand() {
    const int row = grid->Current().row;
    if (gain_strip != nullptr && row >= 0) {
        Show_Gain(*gain_strip, entry.Gain(), Line_Of_Row(row));
    }
    if (strip == nullptr || row < 0) {
        return;
    }
    strip->Set_Subject(QString::fromUtf8(work_types[Line_Of_Row(row)].name));
    for (int column = 0; column < grid->Column_Count(); ++column) {
        const Kanko_Column& shown = entry.screen.columns[static_cast<std::size_t>(column)];
        if (shown.use == Kanko_Use::Score) {
            const std::string text = Comma_Str(Shown_Value(entry.Shown(row, column)));
            strip->Set_Text(std::string("Strip_") + shown.name, QString::fromStdString(text));
        }
    }
}

void Frm_Kanko::Make_Grid() {
    grid->setObjectName(QStringLiteral("grid"));
    grid->Set_Captions({{"工種", 4}, {"工種名", 13}}, Captions_Of_Rows());
    if (entry.screen.total_caption != nullptr) {
        grid->Set_Totals({{entry.screen.total_caption, "_Kei"}});
    }
    grid->Set_Keys({.wrap = Grid_Wrap::Stop, .enter_along_row = true, .arrows_leave = true});
    grid->on_left = [this](int row, int column) { return Take({{row, column}}); };
    grid->on_block = [this](const std::vector<Cell_At>& cells) { return Take(cells); };
    grid->on_refused = [this](const std::vector<Paste_Refused>& refused) {
        shell.Guard([&] { Tell(shell.session, "貼り付けエラー", grid->Refusal_Text(refused)); });
    };
    Wire(grid, &Entry_Grid::Button_Pressed, [this](int row, int column) { Open_Check(row, column); });
    grid->setMaximumWidth(grid->sizeHint().width());
    Show_Entries();
    grid->Go_To(First_Row(), First_Keyed(entry.screen));
}

void Frm_Kanko::Make_Buttons() {
    Add_Help_Button();
    Add_Menu_Button();
    buttons->insertWidget(2, new Note_Button(shell));
    for (const Kanko_Button& sister : entry.screen.sisters) {
        auto* button = Add_Button(QString::fromUtf8(sister.name), QString::fromUtf8(sister.caption));
        Wire(button, &QPushButton::clicked,
             [this, &sister] { shell.Replace_Form(this, QString::fromUtf8(sister.form)); });
    }
    for (const Kanko_Button& report : entry.screen.reports) {
        auto* button = Add_Button(QString::fromUtf8(report.name), QString::fromUtf8(report.caption));
        Wire(button, &QPushButton::clicked, [this, &report] { Print(report); });
    }
    auto* close = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(close, &QPushButton::clicked, this, &Frm_Kanko::reject);
}

void Frm_Kanko::Print(const Kanko_Button& report) {
    if (Finish_Entry() && Save_First()) {
        Focus_Field(); // where the keying goes on after the report
        shell.Open_Form(QString::fromUtf8(
            report.form != nullptr ? report.form : Law_Of(shell.session.Simyu_Kubun).result_report));
    }
}

// ---- entries and results

// The gain follows the keys: what the entry in hand would bring. One that cannot be taken is told of when it
// is left.
void Frm_Kanko::Try(const std::function<void(Kanko_Entry&)>& change) {
    Kanko_Entry trial = entry;
    try {
        change(trial);
        Show_Gain(*gain_strip, trial.Gain(), Line_Of_Row(grid->Current().row));
    } catch (const Run_Time_Error&) {
        Show_Row_In_Hand();
    }
}

void Frm_Kanko::Try_Entry(int row, int column, const Value& value) {
    if (Is_Keyed(entry.screen.columns[static_cast<std::size_t>(column)].use)) {
        Try([&](Kanko_Entry& trial) { trial.Take(std::array{Entered(row, column, value)}); });
    }
}

bool Frm_Kanko::Take(const std::vector<Cell_At>& cells) {
    if (entry.screen.sides.read_only) {
        return true; // a locked cell was left
    }
    const bool is_taken = shell.Guard([&] {
        std::vector<Kanko_Entered> entered;
        for (const Cell_At at : cells) {
            if (Is_Keyed(entry.screen.columns[static_cast<std::size_t>(at.column)].use)) {
                entered.push_back(Entered(at.row, at.column, grid->Get_Value(at.row, at.column)));
            }
        }
        entry.Take(entered);
        Show_Kanko();
        Set_Cmd_Enable();
    });
    if (!is_taken) {
        Show_Row_In_Hand();
    }
    return is_taken;
}

std::int32_t Frm_Kanko::Keyed_Avg() const {
    const Value years = Kanko_Avg->Entry();
    return years.Is_Null() ? 2 : static_cast<std::int32_t>(years.As_Integer());
}

void Frm_Kanko::Take_Avg() {
    if (entry.screen.sides.read_only) {
        return;
    }
    try {
        entry.Take_Kanko_Avg(Keyed_Avg());
    } catch (...) {
        Show_Years();
        throw;
    }
    Show_Years();
    Show_Kanko();
    Set_Cmd_Enable();
}

// What no calculation changes: what is keyed, and the side before.
void Frm_Kanko::Show_Entries() {
    for (int column = 0; column < grid->Column_Count(); ++column) {
        const Kanko_Column& shown = entry.screen.columns[static_cast<std::size_t>(column)];
        if (Is_Keyed(shown.use) || shown.before) {
            Show_Column(column);
        }
        if (shown.before) {
            Show_Total(column);
        }
    }
}

void Frm_Kanko::Show_Column(int column) {
    for (int row = 0; row < kanko_rows; ++row) {
        grid->Set_Value(row, column, Shown_Value(entry.Shown(row, column)));
    }
}

void Frm_Kanko::Show_Total(int column) {
    if (entry.screen.total_caption != nullptr) {
        grid->Set_Total(0, column, Shown_Value(entry.Shown_Total(column)));
    }
}

void Frm_Kanko::Show_Years() {
    for (int column = 0; column < grid->Column_Count(); ++column) {
        const Kanko_Column& shown = entry.screen.columns[static_cast<std::size_t>(column)];
        if (std::string_view(shown.name).ends_with("Nheikin")) {
            grid->Set_Heading(column, std::to_string(entry.Kanko_Avg(shown)) + shown.heading);
        }
    }
    if (Kanko_Avg != nullptr) {
        Kanko_Avg->Set_Value(std::to_string(entry.Kanko_Avg()));
    }
}

void Frm_Kanko::Show_Kanko() {
    for (int column = 0; column < grid->Column_Count(); ++column) {
        const Kanko_Column& shown = entry.screen.columns[static_cast<std::size_t>(column)];
        if (Is_Calculated(shown)) {
            Show_Column(column);
        }
        if (!shown.before) {
            Show_Total(column);
        }
    }
    Show_Row_In_Hand();
    Show_Basis();
    fault->setText(QString::fromStdString(Fault_Text(entry)));
    fault->setHidden(fault->text().isEmpty());
}

// Both sides where the line has the room, else the side before in the tip.
void Frm_Kanko::Show_Basis() {
    const Works::Scores* before = entry.Scores_Before();
    basis->setText(entry.Fault() ? QString() : Basis_Text(entry.Scores(), before));
    if (before == nullptr || entry.Fault()) {
        return;
    }
    basis->setToolTip(QString::fromUtf8(basis_tip) + QStringLiteral("\n比較する数値：") +
                      Basis_Text(*before));
    const QWidget* line = basis->parentWidget();
    if (line->layout()->sizeHint().width() > line->width()) {
        basis->setText(Basis_Text(entry.Scores()));
    }
}

bool Frm_Kanko::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == basis->parentWidget()) {
        Show_Basis();
    }
    return Form::eventFilter(watched, event);
}

void Frm_Kanko::Set_Cmd_Enable() {
    for (int column = 0; column < grid->Column_Count(); ++column) {
        if (entry.screen.columns[static_cast<std::size_t>(column)].use != Kanko_Use::Check) {
            continue;
        }
        for (int row = 0; row < kanko_rows; ++row) {
            grid->Set_Locked(row, column, !entry.Can_Check(row));
        }
    }
}

// ---- leaving

void Frm_Kanko::Open_Check(int row, int column) {
    const char* mode = entry.screen.columns[static_cast<std::size_t>(column)].mode;
    if (entry.screen.sides.read_only) {
        checks.Open_Either(XZP_Request(mode, Line_Of_Row(row)),
                           Sides_To_Check(entry.screen.sides, [this](bool of_before) {
                               return entry.Checked_Figures(of_before);
                           }));
        return;
    }
    checks.Open(
        XZP_Request(mode, Line_Of_Row(row)), entry.screen.sides.after.Of(shell.session),
        [this] { return Save_First(); }, Whose_Figures(entry.screen.sides));
}

bool Frm_Kanko::Finish_Entry() {
    if (!grid->Finish_Entry()) {
        return false;
    }
    if (Kanko_Avg != nullptr && Kanko_Avg->hasFocus()) {
        Take_Avg();
    }
    return true;
}

// What is opened from here reads the store and computes from settled scores; the screen behind it shows the
// same.
bool Frm_Kanko::Save_First() {
    if (!Save_Or_Back(shell.session, [this] { entry.Save(shell.session); })) {
        return false;
    }
    entry.Reload(shell.session);
    Show_Kanko();
    Set_Cmd_Enable();
    return true;
}

bool Frm_Kanko::May_Close() {
    return checks.May_Close() && Finish_Entry() &&
           Save_Or_Stay(shell.session, [this] { entry.Save(shell.session); }) != Save_End::Stay;
}

} // namespace morvane
