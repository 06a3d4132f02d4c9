// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/form.h"

#include "widgets/elided_label.h"
#include "widgets/theme.h"
#include "widgets/window_keys.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

namespace morvane {

namespace {

constexpr int button_width = 96;

} // namespace

/// What a form shows between its title and its buttons. It takes the room of its content where the display
/// has that, and scrolls where it has not; the cell that has the focus is in view.
class Body_Scroll : public QScrollArea {
  public:
    explicit Body_Scroll(QLayout* body) {
        setObjectName(QStringLiteral("Body_Scroll"));
        setWidgetResizable(true);
        setFrameShape(NoFrame);
        setFocusPolicy(Qt::NoFocus);
        auto* content = new QWidget;
        content->setLayout(body);
        setWidget(content);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Follow(now); });
    }

    // The content goes last, and with it the focus.
    ~Body_Scroll() override { disconnect(qApp, nullptr, this, nullptr); }

    [[nodiscard]] QSize sizeHint() const override {
        QSize size = widget()->sizeHint();
        if (widget()->layout()->hasHeightForWidth()) {
            size.setHeight(std::max(size.height(), widget()->layout()->totalHeightForWidth(size.width())));
        }
        return Within_Display(size);
    }

    // A window of its own keeps its content whole as long as the display holds it.
    [[nodiscard]] QSize minimumSizeHint() const override {
        constexpr QSize least(160, 80);
        return parentWidget()->isWindow() ? Within_Display(widget()->minimumSizeHint()).expandedTo(least)
                                          : least;
    }

    /// Scrolls by a key that nothing in here took; false for another key.
    bool Page(int key) {
        const std::pair<int, QAbstractSlider::SliderAction> actions[] = {
            {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
            {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
            {Qt::Key_End, QAbstractSlider::SliderToMaximum},
            {Qt::Key_Home, QAbstractSlider::SliderToMinimum}};
        for (const auto& [of, action] : actions) {
            if (key == of) {
                verticalScrollBar()->triggerAction(action);
                return true;
            }
        }
        return false;
    }

    /// What takes the keys in the place where the focus was last; null where it never was in here.
    [[nodiscard]] QWidget* Last_Field() const {
        for (QWidget* at = last; at != nullptr && at != widget(); at = at->parentWidget()) {
            // The editor of a grid goes and comes with the focus of the grid.
            if (at->isVisibleTo(widget()) && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) != 0) {
                return at;
            }
        }
        return nullptr;
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
        }
        return QScrollArea::eventFilter(watched, event);
    }

    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        Tighten();
    }

  private:
    /// Gives up the distances over and under a content that fits without them.
    void Tighten() {
        constexpr int least = 4;
        QLayout& content = *widget()->layout();
        const QMargins now = content.contentsMargins();
        wide = wide.value_or(now);
        const int given_up = wide->top() + wide->bottom() - 2 * least;
        const int lines = std::max(content.totalMinimumSize().height(),
                                   content.totalMinimumHeightForWidth(viewport()->width()));
        const int needed = lines - now.top() - now.bottom() + wide->top() + wide->bottom();
        QMargins margins = *wide;
        if (needed > height() && needed - given_up <= height()) {
            margins.setTop(least);
            margins.setBottom(least);
        }
        if (margins != now) {
            content.setContentsMargins(margins);
        }
    }

    /// The part of a content that the display has room for; a scroll bar beside it has its own.
    [[nodiscard]] QSize Within_Display(QSize content) const {
        constexpr QSize around(40, 160); // frame of the window, title and buttons of the form
        const QWidget* over = window()->parentWidget();
        const QSize room = (over != nullptr ? over : window())->screen()->availableSize() - around;
        if (parentWidget()->isWindow()) {
            content.rwidth() += verticalScrollBar()->sizeHint().width();
        }
        return content.boundedTo(room);
    }

    void Follow(QWidget* now) {
        if (now != nullptr && widget()->isAncestorOf(now)) {
            last = now;
            constexpr int around = theme::cell_height;
            ensureWidgetVisible(now, around, around);
        }
    }

    QPointer<QWidget> last;       ///< had the focus in here
    std::optional<QMargins> wide; ///< around the content where there is room
};

namespace {

/// The title of a form and, beside it, what it is of; where it is narrow they stand under each other.
class Header : public QFrame {
  public:
    Header(QLabel* the_title, QLabel* the_sub_title) : title(the_title), sub_title(the_sub_title) {
        theme::Set_Look(this, "header");
        title->setObjectName(QStringLiteral("Lbl_Title"));
        theme::Set_Look(title, "title");
        sub_title->setObjectName(QStringLiteral("Lbl_SubTitle"));
        theme::Set_Look(sub_title, "muted");
        row = new QBoxLayout(QBoxLayout::LeftToRight, this);
        row->addWidget(title);
        row->addStretch(1);
        row->addWidget(sub_title);
        Stand(QBoxLayout::LeftToRight);
    }

    /// After other texts, too.
    void Fit() {
        if (!isVisible()) {
            return; // it has no width yet
        }
        const int side_by_side =
            title->sizeHint().width() + sub_title->sizeHint().width() + between + 2 * side;
        const bool narrow = !sub_title->isHidden() && side_by_side > width();
        Stand(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QFrame::resizeEvent(event);
        Fit();
    }
    void showEvent(QShowEvent* event) override {
        QFrame::showEvent(event);
        Fit();
    }

  private:
    static constexpr int side = 16;
    static constexpr int between = 12;
    static constexpr int rule = 2; ///< at its foot

    void Stand(QBoxLayout::Direction direction) {
        const bool narrow = direction == QBoxLayout::TopToBottom;
        row->setDirection(direction);
        row->setSpacing(narrow ? 0 : between / 2); // the stretch has one at each side
        row->setContentsMargins(side, narrow ? 4 : 8, side, (narrow ? 4 : 8) + rule);
    }

    QLabel* title;
    QLabel* sub_title;
    QBoxLayout* row;
};

/// The row of buttons at the foot. Where it is narrow they move together, where it is still narrower they
/// give of the room around their captions; no caption is cut.
class Foot : public QWidget {
  public:
    explicit Foot(QHBoxLayout* buttons) : row(buttons) {
        setLayout(row);
        Spread(true);
    }

    [[nodiscard]] QSize minimumSizeHint() const override {
        return {160, QWidget::minimumSizeHint().height()};
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        Fit();
    }
    bool event(QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) {
            Fit(); // a caption has changed
        }
        return QWidget::event(event);
    }

  private:
    void Fit() {
        const bool wide = Needed(true) <= width();
        Set_Tight(!wide && Needed(false) > width());
        Spread(wide);
    }

    // Of what is shown, without a look of less room.
    [[nodiscard]] int Needed(bool wide) const {
        int needed = 2 * Margin(wide) - Spacing(wide);
        for (int i = 0; i < row->count(); ++i) {
            const QLayoutItem& item = *row->itemAt(i);
            if (item.isEmpty()) {
                continue;
            }
            const auto* button = qobject_cast<QPushButton*>(row->itemAt(i)->widget());
            needed += Spacing(wide) + (button == nullptr
                                           ? item.minimumSize().width()
                                           : Least_Width(*button, wide) + (tight ? theme::tight_gain : 0));
        }
        return needed;
    }

    // Nothing is told of what stays as it is: the layout would ask again.
    void Spread(bool wide) {
        row->setContentsMargins(Margin(wide), 0, Margin(wide), wide ? 12 : 8);
        if (row->spacing() != Spacing(wide)) {
            row->setSpacing(Spacing(wide));
        }
        for (QPushButton* button : Buttons()) {
            button->setMinimumWidth(Least_Width(*button, wide));
        }
    }

    static int Margin(bool wide) { return wide ? 16 : 8; }
    static int Spacing(bool wide) { return wide ? 8 : 4; }
    static int Least_Width(const QPushButton& button, bool wide) {
        const int hint = button.sizeHint().width();
        return wide && !button.text().isEmpty() ? std::max(button_width, hint) : hint;
    }

    void Set_Tight(bool set) {
        if (set == tight) {
            return;
        }
        tight = set;
        theme::Set_Look(this, tight ? "tight" : "");
        for (QPushButton* button : Buttons()) {
            button->style()->unpolish(button);
            button->style()->polish(button);
            button->updateGeometry();
        }
    }

    [[nodiscard]] QList<QPushButton*> Buttons() const { return findChildren<QPushButton*>(); }

    QHBoxLayout* row;
    bool tight = false;
};

} // namespace

Form::Form(Shell_Port& shell_port, const QString& name, const QString& title)
    : QDialog(nullptr), shell(shell_port), body(new QVBoxLayout), buttons(new QHBoxLayout),
      scroll(new Body_Scroll(body)), title_label(new Elided_Label), sub_title_label(new Elided_Label) {
    setObjectName(name);
    body->setContentsMargins(16, 12, 16, 12);
    body->setSpacing(theme::panel_gap);
    buttons->addStretch(1);

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(new Header(title_label, sub_title_label));
    whole->addWidget(scroll, 1);
    whole->addWidget(new Foot(buttons));
    Set_Title(title);
    Set_Sub_Title({});
    new Window_Keys(*this, *buttons);
}

void Form::Set_Title(const QString& title) {
    title_label->setText(title);
    static_cast<Header*>(title_label->parentWidget())->Fit();
    setWindowTitle(title);
    setAccessibleName(title);
}

void Form::Set_Sub_Title(const QString& text) {
    sub_title_label->setText(text);
    sub_title_label->setVisible(!text.isEmpty());
    static_cast<Header*>(sub_title_label->parentWidget())->Fit();
}

Form* Form::Of(QWidget* widget) {
    while (widget != nullptr) {
        if (auto* form = qobject_cast<Form*>(widget)) {
            return form;
        }
        widget = widget->parentWidget();
    }
    return nullptr;
}

void Form::reject() {
    bool may_close = false;
    shell.Guard([&] { may_close = May_Close(); });
    if (may_close) {
        QDialog::reject();
    }
}

void Form::keyPressEvent(QKeyEvent* event) {
    const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()); button != nullptr && is_enter) {
        button->click();
        return;
    }
    if (qobject_cast<QAbstractButton*>(focusWidget()) != nullptr && is_enter) {
        focusNextChild(); // an option is a field as any other
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        Cancel();
        return;
    }
    if (!scroll->Page(event->key())) {
        QDialog::keyPressEvent(event);
    }
}

void Form::Focus_Field() {
    if (QWidget* field = scroll->Last_Field()) {
        field->setFocus(Qt::OtherFocusReason);
    } else if (focusProxy() != nullptr) {
        setFocus(Qt::OtherFocusReason);
    }
}

QPushButton* Form::Add_Button(const QString& name, const QString& caption, const char* look, bool left) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    button->setMinimumWidth(button_width);
    if (look != nullptr) {
        theme::Set_Look(button, look);
    }
    if (left) {
        buttons->insertWidget(left_buttons++, button);
    } else {
        buttons->addWidget(button);
    }
    return button;
}

QPushButton* Form::Add_Help_Button() {
    QPushButton* button = Add_Button(QStringLiteral("Cmd_help"), QStringLiteral("ﾍﾙﾌﾟ"), nullptr, true);
    Wire(button, &QPushButton::clicked, [this] { shell.Show_Help(objectName()); });
    return button;
}

QPushButton* Form::Add_Menu_Button() {
    QPushButton* button = Add_Button(QStringLiteral("Cmd_Mnu"), {}, nullptr, true);
    button->setIconSize({20, 20});
    const auto say = [this, button] {
        const bool shown = shell.Is_Menu_Shown();
        button->setIcon(QIcon(shown ? QStringLiteral(":/menu-hide.svg") : QStringLiteral(":/menu-show.svg")));
        button->setAccessibleName(shown ? QStringLiteral("ﾒﾆｭｰを隠す") : QStringLiteral("ﾒﾆｭｰを表示"));
        button->setToolTip(button->accessibleName() + QStringLiteral("（Alt＋M）"));
    };
    say();
    Wire(button, &QPushButton::clicked, [this, say] {
        shell.Toggle_Menu();
        say();
        Focus_Field();
    });
    return button;
}

} // namespace morvane
