// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <vector>

class QBoxLayout;
class QPushButton;
class QWidget;

namespace morvane {

/// The keyboard's roads through a form. Every push button gets a letter of its own with Alt, shown behind its
/// caption as in 「閉じる(C)」 while the row of buttons has the room; the letter works all the same where it
/// has not. F6 and Ctrl+Tab go from one part of the form to the next: a grid, a list, the other fields, the
/// buttons at the foot, the menu beside the form. A form whose fields take no focus opens on the button that
/// carries it out.
class Window_Keys : public QObject {
    Q_OBJECT

  public:
    /// `foot` is the row of buttons at the foot of the form.
    Window_Keys(QWidget& the_form, QBoxLayout& the_foot);

    /// Goes to the first part of a form (step 1) or to its last (-1), from outside. Nothing where the form
    /// has none.
    static void Come_In(QWidget& form, int step);

    /// Names a widget beside the forms as a part of its own.
    static void Set_Part(QWidget& widget);

    /// The step that a key makes from part to part; 0 for other keys.
    static int Step_Of(int key, Qt::KeyboardModifiers modifiers);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Lettered {
        QPointer<QPushButton> button;
        char letter = 0;
        QString caption; ///< without the letter
    };
    struct Part {
        const QObject* of;
        QWidget* first;
    };

    void Give_Letters();
    [[nodiscard]] char Free_Letter(const QPushButton& button) const;
    [[nodiscard]] bool Is_Used(char letter) const;
    void Fit_Captions();
    void Show_Caption(Lettered& lettered, bool with_letter) const;
    [[nodiscard]] bool Has_Room() const;
    void Press(QPushButton& button) const;
    void Open_On_Action();

    [[nodiscard]] const QObject* Part_Of(QWidget* widget) const;
    [[nodiscard]] std::vector<Part> Parts() const;
    void Go(int step);

    QWidget& form;
    QBoxLayout& foot;
    std::vector<Lettered> letters;
    QHash<const QObject*, QPointer<QWidget>> last_focus; ///< where a part was left
};

/// Lets a button's own letter press it at once. The toolkit shows it pressed for a tenth of a second first,
/// and whatever else is pressed in that time would still be carried out under the question that it opens.
void Press_Buttons_At_Once(QObject& application);

} // namespace morvane
