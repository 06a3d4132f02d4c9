// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/window_keys.h"

#include "widgets/entry_cell.h"
#include "widgets/entry_grid.h"
#include "widgets/record_list.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QShortcutEvent>
#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace morvane {

namespace {

constexpr const char* part_property = "part";

/// The letters of the buttons that many forms have: the same everywhere.
struct Known_Letter {
    std::string_view button;
    char letter;
};
constexpr auto known_letters = std::to_array<Known_Letter>({
    {"Tojiru", 'C'},     {"Cmd_Cancel", 'C'}, {"Canseru", 'N'},    {"Cmd_help", 'H'}, {"Cmd_Mnu", 'M'},
    {"Cmd_QandA", 'O'},  {"Prt", 'P'},        {"Prt_Exe", 'P'},    {"Pdf_Save", 'F'}, {"Pg_Set", 'G'},
    {"Cmd_Excute", 'S'}, {"Cmd_Sitei", 'S'},  {"Cmd_Sousin", 'S'}, {"Cmd_New", 'W'},  {"Cmd_Del", 'D'},
    {"Y_Disp", 'Y'},     {"edit_z", 'Z'},     {"edit_z1", 'Z'},    {"edit_z2", 'R'},  {"edit_x1", 'X'},
});

std::string Name_Of(const QObject& object) {
    return object.objectName().toStdString();
}

// Many small buttons of one kind are reached by Tab and the arrow keys.
bool Gets_Letter(const QPushButton& button) {
    const QString look = button.property("look").toString();
    return look != QLatin1String("check_button") && look != QLatin1String("kana") &&
           look != QLatin1String("menu") && look != QLatin1String("chooser") &&
           !button.text().contains(QLatin1Char('&'));
}

QString Mark(char letter) {
    return QStringLiteral("(&%1)").arg(QLatin1Char(letter));
}

bool Takes_Focus(const QWidget& widget, const QWidget& root) {
    return widget.isEnabled() && widget.isVisibleTo(&root) && (widget.focusPolicy() & Qt::TabFocus) != 0;
}

/// What takes the focus in a widget, in the order of Tab.
std::vector<QWidget*> Stops_In(QWidget& root) {
    std::vector<QWidget*> stops;
    for (QWidget* at = root.nextInFocusChain(); at != nullptr && at != &root; at = at->nextInFocusChain()) {
        if (root.isAncestorOf(at) && Takes_Focus(*at, root)) {
            stops.push_back(at);
        }
    }
    return stops;
}

bool Is_Primary(const QWidget& widget) {
    return widget.property("look").toString() == QLatin1String("primary");
}

class Button_Letters : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* button = event->type() == QEvent::Shortcut ? qobject_cast<QAbstractButton*>(watched) : nullptr;
        if (button == nullptr || static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
            return QObject::eventFilter(watched, event);
        }
        button->click();
        return true;
    }
};

} // namespace

void Press_Buttons_At_Once(QObject& application) {
    application.installEventFilter(new Button_Letters(&application));
}

Window_Keys::Window_Keys(QWidget& the_form, QBoxLayout& the_foot)
    : QObject(&the_form), form(the_form), foot(the_foot) {
    form.installEventFilter(this);
    for (const auto& [keys, step] :
         {std::pair{"F6", 1}, {"Ctrl+Tab", 1}, {"Shift+F6", -1}, {"Ctrl+Shift+Tab", -1}}) {
        auto* shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), &form);
        connect(shortcut, &QShortcut::activated, this, [this, by = step] { Go(by); });
    }
}

bool Window_Keys::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Polish:
        Give_Letters();
        break;
    case QEvent::Show:
        Give_Letters();
        Open_On_Action();
        break;
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        Fit_Captions();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

// ---- letters

// By a letter of this object or one that stands in a caption of the form's own.
bool Window_Keys::Is_Used(char letter) const {
    const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(letter));
    const QList<QPushButton*> buttons = form.findChildren<QPushButton*>();
    return std::any_of(letters.begin(), letters.end(),
                       [letter](const Lettered& used) { return used.button && used.letter == letter; }) ||
           std::any_of(buttons.begin(), buttons.end(),
                       [&key](const QPushButton* button) { return button->shortcut() == key; });
}

// The letter that everybody knows, else one out of the button's name, else any.
char Window_Keys::Free_Letter(const QPushButton& button) const {
    std::string wishes = Name_Of(button);
    if (wishes.starts_with("Cmd_")) {
        wishes.erase(0, 4);
    }
    wishes += "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890";
    for (const char wish : wishes) {
        const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(wish)));
        const bool is_key = (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
        if (is_key && !Is_Used(letter)) {
            return letter;
        }
    }
    return 0;
}

void Window_Keys::Give_Letters() {
    std::vector<QPushButton*> open;
    for (auto* button : form.findChildren<QPushButton*>()) {
        const bool has_one = std::any_of(letters.begin(), letters.end(), [button](const Lettered& lettered) {
            return lettered.button == button;
        });
        if (!has_one && button->window() == form.window() && Gets_Letter(*button)) {
            open.push_back(button);
        }
    }
    const auto give = [this](QPushButton* button, char letter) {
        if (letter == 0) {
            return;
        }
        letters.push_back({button, letter, button->text()});
        if (button->accessibleName().isEmpty()) {
            button->setAccessibleName(button->text());
        }
        auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(letter)), &form);
        connect(shortcut, &QShortcut::activated, button, [this, button] { Press(*button); });
    };
    std::erase_if(open, [&](QPushButton* button) {
        const auto* known =
            std::find_if(known_letters.begin(), known_letters.end(),
                         [button](const Known_Letter& row) { return row.button == Name_Of(*button); });
        const bool is_free = known != known_letters.end() && !Is_Used(known->letter);
        if (is_free) {
            give(button, known->letter);
        }
        return is_free;
    });
    for (QPushButton* button : open) {
        give(button, Free_Letter(*button));
    }
    Fit_Captions();
}

void Window_Keys::Show_Caption(Lettered& lettered, bool with_letter) const {
    const QString mark = Mark(lettered.letter);
    QString text = lettered.button->text();
    if (text.endsWith(mark)) {
        text.chop(mark.size());
    }
    lettered.caption = text; // the form may have given it another one
    if (with_letter && !text.isEmpty()) {
        text += mark;
    }
    if (text != lettered.button->text()) {
        lettered.button->setText(text);
        // The letter is pressed by this object, which leaves the field in hand first.
        lettered.button->setShortcut({});
    }
}

// Whether the row at the foot is not wider than the form with all letters in it.
bool Window_Keys::Has_Room() const {
    int width = foot.minimumSize().width();
    for (const Lettered& lettered : letters) {
        if (!lettered.button || foot.indexOf(lettered.button) < 0 ||
            lettered.button->text().endsWith(Mark(lettered.letter))) {
            continue;
        }
        const int hint = lettered.button->minimumSizeHint().width();
        const QString shown = QStringLiteral("(%1)").arg(QLatin1Char(lettered.letter));
        const int marked = hint + lettered.button->fontMetrics().horizontalAdvance(shown);
        const int least = lettered.button->minimumWidth();
        width += std::max(marked, least) - std::max(hint, least);
    }
    const bool is_placed = form.testAttribute(Qt::WA_Resized) || form.isVisible() || !form.isWindow();
    const int display = form.screen()->availableSize().width();
    return width <= (is_placed ? std::min(form.width(), display) : display);
}

void Window_Keys::Fit_Captions() {
    if (letters.empty()) {
        return;
    }
    const bool room = Has_Room();
    for (Lettered& lettered : letters) {
        if (lettered.button) {
            Show_Caption(lettered, room || foot.indexOf(lettered.button) < 0);
        }
    }
}

// As a click does: the field in hand is left first, and where its entry is refused nothing is pressed.
void Window_Keys::Press(QPushButton& button) const {
    if (!button.isEnabled() || !button.isVisible()) {
        QApplication::beep();
        return;
    }
    const QPointer<QPushButton> pressed = &button;
    const QPointer<Entry_Cell> cell = qobject_cast<Entry_Cell*>(QApplication::focusWidget());
    button.setFocus(Qt::ShortcutFocusReason);
    if (pressed && !(cell && cell->Is_Called_Back())) {
        pressed->click();
    }
}

// ---- parts

int Window_Keys::Step_Of(int key, Qt::KeyboardModifiers modifiers) {
    const bool control = (modifiers & Qt::ControlModifier) != 0;
    const bool back = (modifiers & Qt::ShiftModifier) != 0 || key == Qt::Key_Backtab;
    const bool moves = key == Qt::Key_F6 || (control && (key == Qt::Key_Tab || key == Qt::Key_Backtab));
    return !moves ? 0 : back ? -1 : 1;
}

void Window_Keys::Set_Part(QWidget& widget) {
    widget.setProperty(part_property, true);
}

void Window_Keys::Come_In(QWidget& form, int step) {
    if (auto* keys = form.findChild<Window_Keys*>(QString(), Qt::FindDirectChildrenOnly)) {
        keys->Go(step);
    }
}

// The grid, the list or the named widget around it, the row at the foot, or the form itself.
const QObject* Window_Keys::Part_Of(QWidget* widget) const {
    if (widget == nullptr) {
        return nullptr;
    }
    if (foot.indexOf(widget) >= 0) {
        return &foot;
    }
    for (QWidget* at = widget; at != nullptr; at = at->parentWidget()) {
        if (at == &form || qobject_cast<Entry_Grid*>(at) != nullptr ||
            qobject_cast<Record_List*>(at) != nullptr || at->property(part_property).toBool()) {
            return at;
        }
    }
    return nullptr;
}

std::vector<Window_Keys::Part> Window_Keys::Parts() const {
    std::vector<QWidget*> stops = Stops_In(form);
    if (!form.isWindow()) {
        for (auto* beside : form.window()->findChildren<QWidget*>()) {
            if (beside->property(part_property).toBool() && beside->isVisible() &&
                !form.isAncestorOf(beside)) {
                const std::vector<QWidget*> others = Stops_In(*beside);
                stops.insert(stops.end(), others.begin(), others.end());
            }
        }
    }
    std::vector<Part> parts;
    for (QWidget* stop : stops) {
        const QObject* of = Part_Of(stop);
        const auto known =
            std::find_if(parts.begin(), parts.end(), [of](const Part& part) { return part.of == of; });
        if (known == parts.end()) {
            parts.push_back({of, stop});
        } else if (of == &foot && Is_Primary(*stop)) {
            known->first = stop;
        }
    }
    return parts;
}

void Window_Keys::Go(int step) {
    const std::vector<Part> parts = Parts();
    if (parts.empty()) {
        return;
    }
    QWidget* focus = QApplication::focusWidget();
    const QObject* here = Part_Of(focus);
    const auto current =
        std::find_if(parts.begin(), parts.end(), [here](const Part& part) { return part.of == here; });
    const auto count = static_cast<std::ptrdiff_t>(parts.size());
    std::ptrdiff_t next = step > 0 ? 0 : count - 1;
    if (current != parts.end()) {
        last_focus[here] = focus;
        next = (current - parts.begin() + step + count) % count;
    }
    const Part& part = parts[static_cast<std::size_t>(next)];
    QWidget* former = part.of == &foot ? nullptr : last_focus.value(part.of).data();
    const bool returns = former != nullptr && former->isVisible() && former->isEnabled() &&
                         qobject_cast<const Entry_Grid*>(part.of) == nullptr;
    (returns ? former : part.first)->setFocus(Qt::TabFocusReason);
}

// Where nothing else takes the focus, the help button at the left would have it.
void Window_Keys::Open_On_Action() {
    if (form.focusWidget() != nullptr || form.focusProxy() != nullptr) {
        return;
    }
    const std::vector<QWidget*> stops = Stops_In(form);
    const bool only_buttons = std::all_of(stops.begin(), stops.end(),
                                          [this](const QWidget* stop) { return foot.indexOf(stop) >= 0; });
    if (stops.empty() || !only_buttons) {
        return;
    }
    const auto action =
        std::find_if(stops.begin(), stops.end(), [](const QWidget* stop) { return Is_Primary(*stop); });
    // The buttons that every form has stand at the left, its own ones behind them.
    (action != stops.end() ? *action : stops.back())->setFocus(Qt::OtherFocusReason);
}

} // namespace morvane
