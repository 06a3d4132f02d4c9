// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_screen.h"

#include "screens/check_table_view.h"
#include "screens/kaisetu.h"
#include "session/boxes.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"
#include "widgets/window_placement.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShowEvent>
#include <QVBoxLayout>
#include <map>

namespace morvane {

namespace {

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QLabel* Plain(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// `base` with a number in full-width digits, as the element labels are named.
QString Numbered(const char* base, int number) {
    QString name = QString::fromUtf8(base);
    for (const QChar digit : QString::number(number)) {
        name += QChar(digit.unicode() - u'0' + u'０');
    }
    return name;
}

QLabel* Value_Label(const Named_Text& value) {
    QLabel* label = Plain(Text(value.text));
    label->setObjectName(Text(value.name));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

constexpr int line_width = 780;    // of a formula, before it is broken
constexpr int step_width = 600;    // of a step behind its name
constexpr int most_in_column = 12; // inputs under each other

void Break_Long_Line(QLabel& label, int width) {
    if (label.sizeHint().width() > width) {
        label.setWordWrap(true);
        label.setMinimumWidth(width);
        label.setMinimumHeight(label.heightForWidth(width));
    }
}

} // namespace

Check_Screen* Check_Screen::Show_Beside(Form& owner, Shell_Port& shell, const QString& form,
                                        Check_Sheet sheet, const Other_Side& other) {
    if (!sheet.notice.empty()) {
        Show_Message(shell.session, {.title = "", .text = sheet.notice});
    }
    auto* screen = new Check_Screen(shell, form, std::move(sheet));
    screen->setParent(&owner,
                      Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    connect(screen, &QDialog::finished, screen, &QObject::deleteLater);
    if (other.show) {
        screen->Add_Other_Side(other);
    }
    screen->show();
    return screen;
}

Check_Screen::Check_Screen(Shell_Port& shell_port, const QString& form, Check_Sheet the_sheet)
    : Form(shell_port, form, Text(the_sheet.title)), sheet(std::move(the_sheet)), scroll(new QScrollArea) {
    Set_Sub_Title(Text(sheet.sub_title));
    auto* whole = new QWidget;
    content = new QVBoxLayout(whole);
    content->setContentsMargins(0, 0, 0, 0);
    content->setSpacing(theme::panel_gap);
    Add_Figures();
    Add_Formula();
    Add_Steps();
    Add_Results();
    for (const std::string& closing : sheet.closing) {
        QLabel* label = Plain(Text(closing));
        theme::Set_Look(label, "muted");
        content->addWidget(label);
    }
    for (const Check_Table& shown : sheet.tables) {
        content->addWidget(new Check_Table_View(shown));
    }
    content->addStretch(1);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(whole);
    body->addWidget(scroll, 1);
    Add_Buttons();
}

// As large as its content where the display has the room; the sizes hold once the fonts are set.
void Check_Screen::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (!event->spontaneous()) {
        const QWidget* content_widget = scroll->widget();
        const QSize around =
            sizeHint() - scroll->sizeHint() + QSize(scroll->verticalScrollBar()->sizeHint().width(), 0);
        resize(content_widget->sizeHint().expandedTo(content_widget->minimumSizeHint()) + around);
        Bring_Into_View(*this);
    }
}

void Check_Screen::Add_Figures() {
    if (sheet.inputs.empty()) {
        return;
    }
    auto* box = new Section_Box(sheet.amounts ? QStringLiteral("計算要素　（金額単位：千円）")
                                              : QStringLiteral("計算要素"));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(4);
    const int count = static_cast<int>(sheet.inputs.size());
    const int blocks = count > most_in_column ? 2 : 1;
    const int in_block = (count + blocks - 1) / blocks;
    for (int i = 0; i < count; ++i) {
        const Check_Line& line = sheet.inputs[static_cast<std::size_t>(i)];
        QLabel* caption = Plain(Text(line.caption).trimmed());
        caption->setObjectName(Numbered("要素", i + 1));
        QLabel* value = Value_Label(line.value);
        if (line.value.name.empty()) {
            value->setObjectName(Numbered("要素値", i + 1));
        }
        value->setAccessibleName(caption->text());
        const int column = i / in_block * 3;
        grid->addWidget(caption, i % in_block, column);
        grid->addWidget(value, i % in_block, column + 1);
        grid->setColumnStretch(column, 1);
    }
    if (blocks > 1) {
        grid->setColumnMinimumWidth(2, 24);
    }
    box->body->addLayout(grid);
    content->addWidget(box);
}

void Check_Screen::Add_Formula() {
    if (sheet.formula.empty() && sheet.filled.empty()) {
        return;
    }
    auto* box = new Section_Box(QStringLiteral("計算式"));
    if (!sheet.formula.empty()) {
        QStringList lines;
        for (const std::string& line : sheet.formula) {
            lines += Text(line);
        }
        QLabel* lbl_San = Plain(lines.join(QLatin1Char('\n')));
        lbl_San->setObjectName(QStringLiteral("lbl_San"));
        Break_Long_Line(*lbl_San, line_width);
        box->body->addWidget(lbl_San);
    }
    for (const std::vector<Named_Text>& line : sheet.filled) {
        auto* row = new QHBoxLayout;
        row->setSpacing(0);
        for (const Named_Text& part : line) {
            QLabel* label = Plain(Text(part.text));
            label->setObjectName(Text(part.name));
            label->setFont(theme::Gothic(theme::body_points, !part.name.empty()));
            row->addWidget(label);
        }
        row->addStretch(1);
        box->body->addLayout(row);
    }
    content->addWidget(box);
}

// Each step in one line: what it forms, the figures.
void Check_Screen::Add_Steps() {
    if (sheet.steps.empty()) {
        return;
    }
    auto* box = new Section_Box(QStringLiteral("計算過程"));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const Check_Step& step : sheet.steps) {
        QLabel* name = Plain(Text(step.name));
        theme::Set_Look(name, "muted");
        QLabel* text = Plain(Text(step.text));
        text->setObjectName(Numbered("過程", row + 1));
        text->setAccessibleName(name->text());
        text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        Break_Long_Line(*text, step_width);
        grid->addWidget(name, row, 0, Qt::AlignTop);
        grid->addWidget(text, row, 1);
        ++row;
    }
    box->body->addLayout(grid);
    content->addWidget(box);
}

void Check_Screen::Add_Results() {
    if (sheet.results.empty()) {
        return;
    }
    auto* box = new Section_Box(QStringLiteral("計算結果"));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(0, 1);
    const int last = static_cast<int>(sheet.results.size()) - 1;
    for (int row = 0; row <= last; ++row) {
        const Check_Line& line = sheet.results[static_cast<std::size_t>(row)];
        QLabel* caption = Plain(Text(line.caption));
        QLabel* value = Value_Label(line.value);
        if (line.value.name.empty()) {
            value->setObjectName(row == last ? QStringLiteral("lbl_Kekka") : Numbered("途中値", row + 1));
        }
        value->setAccessibleName(caption->text());
        if (row == last) {
            caption->setFont(theme::Gothic(theme::heading_points, true));
            value->setFont(theme::Gothic(theme::title_points, true));
        }
        grid->addWidget(caption, row, 0);
        grid->addWidget(value, row, 1);
    }
    box->body->addLayout(grid);
    content->addWidget(box);
}

void Check_Screen::Add_Buttons() {
    if (!sheet.help_key.empty()) {
        Wire(Add_Button(QStringLiteral("Cmd_Kaisetu"), QStringLiteral("解説(&K)"), nullptr, true),
             &QPushButton::clicked, [this] { Explain(); });
    }
    if (!sheet.table_form.empty()) {
        QPushButton* show_table =
            Add_Button(QStringLiteral("Cmd_Tbl"), QStringLiteral("別表(&B)"), nullptr, true);
        Wire(show_table, &QPushButton::clicked, [this] { Open_Table(); });
    }
    auto* Tojiru = Add_Button(QStringLiteral("Tojiru"), QStringLiteral("閉じる"), "primary");
    connect(Tojiru, &QPushButton::clicked, this, &Check_Screen::reject);
    Tojiru->setFocus();
    for (int at = 0; at < buttons->count(); ++at) {
        if (QWidget* button = buttons->itemAt(at)->widget()) {
            button->installEventFilter(this); // its arrow keys would go to the next button
        }
    }
}

void Check_Screen::Add_Other_Side(const Other_Side& other) {
    QPushButton* button = Add_Button(QStringLiteral("Cmd_Other"), other.caption, nullptr, true);
    button->installEventFilter(this);
    Wire(button, &QPushButton::clicked, [show = other.show] { show(); });
}

bool Check_Screen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && Scroll_By_Key(static_cast<QKeyEvent*>(event)->key())) {
        return true;
    }
    return Form::eventFilter(watched, event);
}

void Check_Screen::keyPressEvent(QKeyEvent* event) {
    if (!Scroll_By_Key(event->key())) {
        Form::keyPressEvent(event);
    }
}

/// Moves through content that is taller than the window; false where all of it is in view.
bool Check_Screen::Scroll_By_Key(int key) {
    static const std::map<int, QAbstractSlider::SliderAction> moves = {
        {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
        {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
        {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
        {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
        {Qt::Key_Home, QAbstractSlider::SliderToMinimum},
        {Qt::Key_End, QAbstractSlider::SliderToMaximum},
    };
    QScrollBar* bar = scroll->verticalScrollBar();
    const auto move = moves.find(key);
    if (move == moves.end() || bar->maximum() == 0) {
        return false;
    }
    bar->triggerAction(move->second);
    return true;
}

void Check_Screen::Explain() {
    if (const std::optional<Kaisetu_Page> page = Ask_Kaisetu(shell.session, sheet.help_key)) {
        Run_Beside(
            {.title = QStringLiteral("解説ページ"),
             .message = QStringLiteral("接続を確認しています…"),
             .can_be_left = true},
            [page = *page](Progress& progress) { return Open_Kaisetu(page, progress); },
            [this](Kaisetu_Result result) { Tell_Kaisetu(shell.session, result); });
    }
}

void Check_Screen::Open_Table() {
    if (table != nullptr) {
        table->raise();
        table->activateWindow();
        return;
    }
    table = Show_Beside(*this, shell, Text(sheet.table_form), Make_Table_Sheet(sheet));
    connect(table, &QDialog::finished, this, [this] { table = nullptr; });
}

void Check_Screen::Unload_Beside(const Form& owner) {
    for (Check_Screen* screen : owner.findChildren<Check_Screen*>(QString(), Qt::FindDirectChildrenOnly)) {
        Unload_Beside(*screen);
        screen->Close_Form();
    }
}

bool Check_Screen::May_Close() {
    if (table == nullptr) {
        return true;
    }
    Tell(shell.session, "クローズエラー", "開いている別表の画面を閉じてから画面を閉じてください。");
    return false;
}

} // namespace morvane
