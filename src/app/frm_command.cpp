// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_command.h"

#include "app/form_table.h"
#include "review/settle.h"
#include "session/boxes.h"
#include "session/save_or_stay.h"
#include "statements/zaimu_calc.h"
#include "widgets/elided_label.h"
#include "widgets/theme.h"
#include "widgets/window_keys.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <memory>

namespace morvane {

namespace {

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

// Beside a column and a panel a screen has no room in a frame narrower than this.
constexpr int narrow_frame = 1180;

/// Buttons under each other, as high as they are; where the window is lower they scroll, and the one that has
/// the focus is in view.
class Button_Column : public QScrollArea {
  public:
    Button_Column() : column(new QVBoxLayout) {
        setObjectName(QStringLiteral("Button_Column"));
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        theme::Set_Look(this, "menu_column");
        auto* content = new QWidget;
        content->setLayout(column);
        column->setContentsMargins(0, 0, 0, 0);
        setWidget(content);
        content->setAutoFillBackground(false);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Follow(now); });
    }

    // The focus moves while children go, when this is no Button_Column any more.
    ~Button_Column() override { qApp->disconnect(this); }

    /// After the last button: what room is left is under them.
    void End() { column->addStretch(1); }

    /// Brings a button into view.
    void Follow(QWidget* button) {
        if (button != nullptr && widget()->isAncestorOf(button)) {
            ensureWidgetVisible(button, 0, column->spacing());
        }
    }

    [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {0, std::min(sizeHint().height(), Menu_Button::height_of_button)};
    }

    QVBoxLayout* column;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
            Follow_Focus();
        }
        return QScrollArea::eventFilter(watched, event);
    }
    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        Follow_Focus();
    }

  private:
    // Once the buttons stand where they now belong.
    void Follow_Focus() {
        QMetaObject::invokeMethod(
            this, [this] { Follow(window()->focusWidget()); }, Qt::QueuedConnection);
    }
};

} // namespace

// ---- Panel_Line

Panel_Line::Panel_Line() {
    setObjectName(QStringLiteral("Panel_Line"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedWidth(14);
}

void Panel_Line::Point_At(const QWidget* pressed) {
    button = pressed;
    update();
}

// The button may have been scrolled, or have moved with the window.
void Panel_Line::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(QPen(QColor(theme::accent), 3));
    if (button != nullptr && !button->visibleRegion().isEmpty()) {
        const int middle = mapFromGlobal(button->mapToGlobal(QPoint(0, button->height() / 2))).y();
        painter.drawLine(0, middle, width(), middle);
    }
    painter.drawLine(width() - 2, 0, width() - 2, height());
}

// ---- building

Frm_Command::Frm_Command(Shell_Port& shell_port, Work_Area& work_area, std::function<void()> end)
    : shell(shell_port), area(work_area), normal_end(std::move(end)), command(new QFrame),
      SyaMei(new Elided_Label(2)), KsKi_Dsp(new QLabel), JimusyoMei(new Elided_Label), TiikiMei(new QLabel),
      panel_line(new Panel_Line) {
    setObjectName(QStringLiteral("Frm_Command"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    Window_Keys::Set_Part(*this);
    shell.session.Edit_Flg = false;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    theme::Set_Look(command, "command");
    command->setFixedWidth(theme::command_width);
    auto* column = new QVBoxLayout(command);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(4);
    Add_Heading(*column);
    Add_Groups(*column);
    column->addStretch(1);
    column->addWidget(TiikiMei);
    row->addWidget(command);
    for (const Menu_Panel& panel : Menu_Panels()) {
        row->addWidget(panel_widgets[panel.name] = Make_Panel(panel));
    }
    panel_line->setParent(this); // over the edge of the column, from the button to the panel
    panel_line->hide();
    JimusyoMei->setVisible(shell.session.Is_Multi());
    JimusyoMei->setText(Text(shell.session.Office_Name));
    TiikiMei->setText(Text(shell.session.Todofuken_Mei + " 版"));
    connect(&area, &Work_Area::Opened, this, &Frm_Command::Fit_Column);
    connect(&area, &Work_Area::Resized, this, &Frm_Command::Fit_Column);
    connect(&area, &Work_Area::All_Closed, this, &Frm_Command::Screens_Closed);
    if (shell.session.Is_Multi()) {
        Show_No_Company();
    } else {
        Show_Company();
    }
}

void Frm_Command::Add_Heading(QVBoxLayout& column) {
    auto* company = new QFrame;
    theme::Set_Look(company, "company");
    auto* lines = new QVBoxLayout(company);
    lines->setContentsMargins(8, 6, 8, 6);
    lines->setSpacing(2);
    const std::array<std::pair<QLabel*, const char*>, 4> labels = {
        {{JimusyoMei, "JimusyoMei"}, {SyaMei, "SyaMei"}, {KsKi_Dsp, "KsKi_Dsp"}, {TiikiMei, "TiikiMei"}}};
    for (const auto& [label, name] : labels) {
        label->setObjectName(QString::fromLatin1(name));
        label->setTextFormat(Qt::PlainText);
    }
    SyaMei->setFont(theme::Gothic(theme::body_points, true));
    SyaMei->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    JimusyoMei->setFont(theme::Gothic(9));
    KsKi_Dsp->setFont(theme::Gothic(theme::heading_points, true));
    theme::Set_Look(TiikiMei, "muted");
    TiikiMei->setAlignment(Qt::AlignRight);
    lines->addWidget(JimusyoMei);
    lines->addWidget(SyaMei);
    lines->addWidget(KsKi_Dsp);
    column.addWidget(company);
}

void Frm_Command::Add_Groups(QVBoxLayout& column) {
    auto* groups = new Button_Column;
    groups->column->setSpacing(column.spacing());
    column.addWidget(groups);
    connect(groups->verticalScrollBar(), &QScrollBar::valueChanged, panel_line,
            [this] { panel_line->update(); });
    for (const Menu_Group& group : Menu_Groups()) {
        auto* heading = new QLabel(QString::fromUtf8(group.heading));
        theme::Set_Look(heading, "muted");
        heading->setFont(theme::Gothic(9.5, true));
        heading->setContentsMargins(0, 6, 0, 0);
        groups->column->addWidget(heading);
        for (const Menu_Entry& entry : group.entries) {
            // The way out is always in view.
            QVBoxLayout& place = entry.action == Menu_Action::End ? column : *groups->column;
            main_buttons.push_back(Add_Button(place, entry));
        }
    }
    groups->End();
}

QWidget* Frm_Command::Make_Panel(const Menu_Panel& panel) {
    auto* widget = new QFrame;
    widget->setObjectName(QString::fromUtf8(panel.name));
    theme::Set_Look(widget, "popout");
    widget->setFixedWidth(theme::command_width - 12);
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(8, 12, 8, 8);
    column->setSpacing(6);
    auto* company = new Elided_Label(2);
    company->setFont(theme::Gothic(9));
    company->hide();
    panel_companies.push_back(company);
    column->addWidget(company);
    auto* heading = new QLabel(QString::fromUtf8(panel.heading));
    theme::Set_Look(heading, "heading");
    column->addWidget(heading);
    auto* entries = new Button_Column;
    entries->column->setSpacing(column->spacing());
    column->addWidget(entries);
    for (const Menu_Entry& entry : panel.entries) {
        const bool closes = entry.action == Menu_Action::Close_Panel;
        if (closes) {
            column->addSpacing(8);
        }
        panel_buttons.push_back(Add_Button(closes ? *column : *entries->column, entry));
    }
    entries->End();
    column->addStretch(1);
    widget->hide();
    return widget;
}

Menu_Button* Frm_Command::Add_Button(QVBoxLayout& column, const Menu_Entry& entry) {
    auto* button = new Menu_Button(entry, Text(Caption_Of(entry, shell.session)));
    column.addWidget(button);
    connect(button, &QPushButton::clicked, this,
            [this, button] { shell.Guard([this, button] { Press(*button); }); });
    return button;
}

Menu_Button* Frm_Command::Button(const char* name) const {
    return findChild<Menu_Button*>(QString::fromUtf8(name));
}

// ---- what the menu shows

void Frm_Command::Show_Company() {
    const Session& session = shell.session;
    // A panel belongs to the company it was opened for.
    if (open_panel != nullptr && panel_company != session.Kanri_No) {
        Fold_Panel();
    }
    KsKi_Dsp->setText(session.Syori_Ki != 0 || session.Is_Multi()
                          ? Text("第" + std::to_string(session.Syori_Ki) + "期")
                          : QStringLiteral("第   期"));
    SyaMei->setText(Text(session.Jigyo_Name));
    area.Set_Hint({});
    Update_Captions();
    Update_Enabled();
}

void Frm_Command::Show_No_Company() {
    Fold_Panel();
    KsKi_Dsp->setText({});
    SyaMei->setText(QStringLiteral("事業所が指定されていません！"));
    area.Set_Hint(QStringLiteral("メニューバーの「事業所登録・指定」で、処理する事業所を指定してください。"));
    Update_Captions();
    Update_Enabled();
}

void Frm_Command::Show_Registered() {
    Show_Company();
    if (shell.session.Is_Corporation()) {
        Button("Cmd_KsZ3")->Set_Caption(Text(Caption_After_Registration(shell.session)));
    }
}

void Frm_Command::Update_Captions() {
    for (const auto* buttons : {&main_buttons, &panel_buttons}) {
        for (Menu_Button* button : *buttons) {
            // The caption of the statement of changes is set by a registration alone.
            if (button->entry.name != std::string_view("Cmd_KsZ3")) {
                button->Set_Caption(Text(Caption_Of(button->entry, shell.session)));
            }
        }
    }
}

void Frm_Command::Update_Enabled() {
    // While a panel or a screen is open, no other one can replace the data under it.
    const bool free = open_panel == nullptr && area.Forms().isEmpty();
    for (Menu_Button* button : main_buttons) {
        const bool is_end = button->entry.action == Menu_Action::End;
        button->setEnabled((free || (is_end && open_panel == nullptr)) &&
                           Is_Enabled(button->entry, shell.session));
    }
    for (Menu_Button* button : panel_buttons) {
        button->setEnabled(button->entry.action == Menu_Action::Close_Panel ||
                           Is_Enabled(button->entry, shell.session));
    }
}

// Beside a panel and its screen the column has nothing that can be pressed: in a narrow frame it makes room,
// and the panel says whose figures these are.
void Frm_Command::Fit_Column() {
    const bool gives_way =
        open_panel != nullptr && !area.Forms().isEmpty() && window()->width() < narrow_frame;
    command->setHidden(gives_way);
    panel_line->setHidden(gives_way || open_panel == nullptr);
    for (QLabel* company : panel_companies) {
        company->setText(SyaMei->text() + QStringLiteral("　") + KsKi_Dsp->text());
        company->setVisible(gives_way);
    }
}

// In a low window the buttons are lower, before they scroll.
void Frm_Command::Fit_Buttons() {
    constexpr int roomy = 760;
    constexpr int low = 620;
    const int lines = height() >= roomy ? 38 : height() >= low ? 32 : 28;
    for (const auto* buttons : {&main_buttons, &panel_buttons}) {
        for (Menu_Button* button : *buttons) {
            button->setFixedHeight(lines);
        }
    }
}

void Frm_Command::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit_Buttons();
    Fit_Column();
    panel_line->setGeometry(theme::command_width - panel_line->width(), 0, panel_line->width(), height());
}

void Frm_Command::Highlight(Menu_Button* button) {
    if (Last_Button != nullptr) {
        Last_Button->Set_Open(false);
    }
    Last_Button = button;
    if (button != nullptr) {
        button->Set_Open(true);
    }
}

void Frm_Command::Focus_First() {
    const auto& buttons = open_panel != nullptr ? panel_buttons : main_buttons;
    for (Menu_Button* button : buttons) {
        if (button->isVisibleTo(window()) && button->isEnabled()) {
            button->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

// ---- what a press does

void Frm_Command::Press(Menu_Button& button) {
    switch (button.entry.action) {
    case Menu_Action::Open_Panel:
        Open_Panel(button);
        break;
    case Menu_Action::Close_Panel:
        Close_Panel();
        break;
    case Menu_Action::End:
        normal_end();
        break;
    case Menu_Action::Open_Form:
        Open_Screen(button);
        break;
    }
}

void Frm_Command::Open_Panel(Menu_Button& button) {
    if (!Enter_Panel(shell.session, shell.menu, button.entry)) {
        return;
    }
    open_panel = &Panel_Of(button.entry.target);
    panel_owner = &button;
    panel_company = shell.session.Kanri_No;
    Update_Captions();
    Update_Enabled();
    panel_widgets[open_panel->name]->show();
    panel_line->show();
    panel_line->Point_At(&button);
    Focus_First();
}

bool Frm_Command::Close_Panel() {
    if (open_panel == nullptr) {
        return true;
    }
    if (!area.Close_All()) {
        return false;
    }
    if (open_panel->statements && !Store_Sums()) {
        return false;
    }
    Settle_Scores();
    Fold_Panel();
    Update_Captions();
    Update_Enabled();
    panel_owner->setFocus(Qt::TabFocusReason);
    return true;
}

bool Frm_Command::Store_Sums() {
    const auto save = [this] {
        const Connection cn = Cn_Open(shell.session);
        Transaction transaction(cn);
        Zaimu_Shukei(cn, shell.session, Amount_Column::Current);
        Zaimu_Shukei_KK(cn, shell.session);
        transaction.Commit();
    };
    const Save_Words words = {.what = "財務諸表の合計",
                              .discard = "合計を保存しないで閉じます。入力した金額は保存されています。\n"
                                         "　合計は、次にこの区分を閉じるときに保存されます。"};
    return Save_Or_Stay(shell.session, save, words) != Save_End::Stay;
}

void Frm_Command::Fold_Panel() {
    if (open_panel != nullptr) {
        panel_widgets[open_panel->name]->hide();
        open_panel = nullptr;
        Fit_Column();
    }
}

void Frm_Command::Open_Screen(Menu_Button& button) {
    // The screen of the family that is open saves and goes first, so that the gates see what it stored.
    if (!area.Close_All() || !Enter_Screen(shell.session, shell.menu, button.entry)) {
        return;
    }
    shell.session.Jg_New_Flg = false;
    Highlight(&button);
    Open_Form(Text(Form_Of(button.entry, shell.session)));
}

void Frm_Command::Open_Form(const QString& form) {
    const Form_Row* row = Find_Form(form.toStdString());
    if (row == nullptr || row->make == nullptr) {
        Show_Message(
            shell.session,
            {.title = "", .text = "この画面は準備中です。\n今後のバージョンで使えるようになります。"});
        Screens_Closed();
        return;
    }
    // What another screen opens stands over it.
    const bool modal = row->modal || !area.Forms().isEmpty();
    // A dialog needs no flag: nothing else can be reached under it. The settings ask it of themselves.
    shell.session.Edit_Flg = shell.session.Edit_Flg || !modal;
    std::unique_ptr<Form> screen;
    try {
        screen.reset(row->Make(shell));
    } catch (...) {
        Screens_Closed();
        throw;
    }
    if (!modal) {
        area.Open(screen.release());
        Update_Enabled();
        return;
    }
    screen->setParent(shell.Window(),
                      Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    shell.Place(screen.get());
    screen->exec();
    screen.reset();
    Screens_Closed();
}

void Frm_Command::Replace_Form(Form* screen, const QString& sister) {
    replacing = true;
    screen->reject();
    replacing = false;
    if (!area.Forms().contains(screen)) {
        Open_Form(sister);
    }
}

void Frm_Command::Screens_Closed() {
    if (replacing || !area.Forms().isEmpty()) {
        return;
    }
    show();
    Menu_Button* opener = Last_Button;
    Fit_Column();
    Highlight(nullptr);
    Settle_Scores();
    shell.session.Edit_Flg = false;
    Update_Enabled();
    // Whoever works through the menu goes on at the next button.
    if (opener != nullptr && opener->isVisible() && opener->isEnabled()) {
        opener->setFocus(Qt::TabFocusReason);
    } else if (QWidget* focus = window()->focusWidget(); focus == nullptr || !isAncestorOf(focus)) {
        Focus_First();
    }
}

// Statement, closing date, law year and firm type enter the scores; the screens that change them know nothing
// of the scores stored.
void Frm_Command::Settle_Scores() {
    if (!shell.session.Is_Multi() || shell.session.Kanri_No != 0) {
        shell.Guard([this] { Settle_Again(shell.session); });
    }
}

void Frm_Command::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && open_panel != nullptr) {
        shell.Guard([this] { Close_Panel(); });
        return;
    }
    const int step = Window_Keys::Step_Of(event->key(), event->modifiers());
    if (Form* screen = area.Top(); step != 0 && screen != nullptr) {
        Window_Keys::Come_In(*screen, step);
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace morvane
