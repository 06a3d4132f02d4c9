// SPDX-FileCopyrightText: The Morvane developers
// Takes the pictures of the manual: the program itself, its real windows on the display, pressed as a user
// would.
//
// usage: manual_pictures OFFICE OWN NEW OUT
// OFFICE is an installation of an office, OWN one of a single firm, both with samples; NEW is an empty
// folder; the pictures go to OUT.
#include "app/shell.h"
#include "widgets/message_windows.h"
#include "widgets/record_list.h"
#include "widgets/theme.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

namespace morvane {

namespace {

constexpr int settle_ms = 400;
constexpr int patience_ms = 20000;
constexpr const char* firm = "青葉見本建設株式会社";

QDir out;

[[noreturn]] void Give_Up(const QString& what) {
    std::fprintf(stderr, "manual_pictures: %s\n", what.toUtf8().constData());
    std::_Exit(1);
}

template <class Object>
Object* Child(QObject& parent, const char* name) {
    auto* child = parent.findChild<Object*>(QString::fromUtf8(name));
    if (child == nullptr) {
        Give_Up(QStringLiteral("%1 has no %2").arg(parent.objectName(), QString::fromUtf8(name)));
    }
    return child;
}

void Click(QWidget& parent, const char* name) {
    auto* button = Child<QAbstractButton>(parent, name);
    if (!button->isVisible() || !button->isEnabled()) {
        Give_Up(QStringLiteral("%1 cannot be pressed").arg(QString::fromUtf8(name)));
    }
    button->click();
}

// Keeps a part of the display as it is seen, in full colour.
void Take(const char* name, const QRect& part) {
    QTest::qWait(settle_ms);
    const QPixmap seen =
        QGuiApplication::primaryScreen()->grabWindow(0, part.x(), part.y(), part.width(), part.height());
    const QString file = out.filePath(QString::fromUtf8(name) + QStringLiteral(".png"));
    if (!seen.toImage().convertToFormat(QImage::Format_RGB888).save(file, "PNG", 0)) {
        Give_Up(QStringLiteral("%1 cannot be written").arg(file));
    }
}

void To_Front(QWidget& window) {
    window.raise();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window, patience_ms)) {
        Give_Up(QStringLiteral("%1 does not come to the front").arg(window.windowTitle()));
    }
}

// A window with its title bar.
void Take_Window(const char* name, QWidget& window) {
    To_Front(window);
    QTest::qWait(settle_ms);
    Take(name, window.frameGeometry());
}

// A part of a window.
void Take_Part(const char* name, const QWidget& part) {
    QTest::qWait(settle_ms);
    Take(name, QRect(part.mapToGlobal(QPoint(0, 0)), part.size()));
}

using Dialog_Work = std::function<void(QDialog&)>;

// Does `act`, which opens dialogs one after the other, and `during` while each of them is open.
void While_Open(const std::function<void()>& act, const std::vector<Dialog_Work>& during) {
    // One that is called while another waits has the windows for itself.
    static int depth = 0;
    const int own_depth = ++depth;
    std::size_t opened = 0;
    QPointer<QWidget> last = QApplication::activeModalWidget();
    QObject watch;
    // Armed anew each time, so that it looks on while what it called waits in a dialog of its own.
    const std::function<void()> look = [&] {
        QTimer::singleShot(50, &watch, look);
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == last || own_depth != depth) {
            return;
        }
        last = dialog;
        To_Front(*dialog);
        if (opened == during.size()) {
            Give_Up(QStringLiteral("a window nobody waits for: ") + dialog->windowTitle());
        }
        during[opened++](*dialog);
    };
    look();
    act();
    --depth;
    if (opened != during.size()) {
        Give_Up(QStringLiteral("a window did not open"));
    }
}

// Answers a message box by its default meaning: OK or はい.
void Say_Yes(QDialog& box) {
    for (QAbstractButton* button : box.findChildren<QAbstractButton*>()) {
        if (button->text().startsWith(QStringLiteral("OK")) ||
            button->text().startsWith(QStringLiteral("はい"))) {
            button->click();
            return;
        }
    }
    Give_Up(QStringLiteral("no yes in: ") + box.windowTitle());
}

Dialog_Work Take_And_Press(const char* picture, const char* button) {
    return [picture, button](QDialog& dialog) {
        Take_Window(picture, dialog);
        Click(dialog, button);
    };
}

class Tour {
  public:
    explicit Tour(Shell& the_shell) : frame(*the_shell.Frame()) {
        frame.showMaximized();
        To_Front(frame);
    }

    void Whole() {
        Companies();
        Statements();
        Review();
        Prior_Period();
        Others();
        Improved();
    }

  private:
    void Press(const char* button) {
        Click(*frame.command, button);
        QTest::qWait(settle_ms);
    }

    void Choose(const char* action) { Child<QAction>(frame, action)->trigger(); }

    Form& Screen(const char* name) {
        QTest::qWait(settle_ms);
        Form* form = frame.area->Top();
        if (form == nullptr || form->objectName() != QString::fromUtf8(name)) {
            Give_Up(QStringLiteral("%1 is not open").arg(QString::fromUtf8(name)));
        }
        return *form;
    }

    void Take_Screen(const char* picture, const char* form) { Take_Part(picture, Screen(form)); }

    // Takes a company in hand, and a picture of the register where one is asked for.
    void Take_In_Hand(const char* company, const char* picture = nullptr) {
        While_Open([this] { Choose("Mnu_JgSitei"); }, {[company, picture](QDialog& dialog) {
                       auto* list = Child<Record_List>(dialog, "ListView");
                       for (int row = 0; row < list->Row_Count(); ++row) {
                           if (list->Text_At(row, 1) == QString::fromUtf8(company)) {
                               list->Select_Row(row);
                           }
                       }
                       if (picture != nullptr) {
                           Take_Window(picture, dialog);
                       }
                       Click(dialog, "Cmd_Sitei");
                   }});
    }

    // A firm with an improvement in work.
    void Improved() {
        Take_In_Hand("さくら見本設備株式会社");
        Press("Cmd_Sim2");
        Press("Cmd_UpS(1)");
        Take_Screen("keieikz", "Frm_KeieiKz");
        While_Open([this] { Click(Screen("Frm_KeieiKz"), "Ychart_Dsp"); },
                   {Take_And_Press("ychart_two", "Tojiru")});
        Press("Cmd_UpS(2)");
        Take_Screen("syokutakaiz", "Frm_Syokutakaiz_2012");
        Press("Cmd_UpS(3)");
        Take_Screen("kankokaiz", "Frm_KankoKaiz");
        Click(Screen("Frm_KankoKaiz"), "edit_z1");
        Take_Screen("kankokaiz2", "Frm_KankoKaiz2");
        Press("Cmd_UpS(5)");
        Saved_Scenarios();
        Take_In_Hand(firm);
    }

    // A firm with both periods.
    void Prior_Period() {
        Press("Cmd_Sim3");
        Press("Cmd_ZkH(1)");
        Take_Screen("syokutahkzen", "Frm_SyokutaHKzen_2012");
        Press("Cmd_ZkH(2)");
        Take_Screen("kankokaizzen", "Frm_KankoKaizzen");
        Press("Cmd_ZkH(3)");
    }

    // Of the company that has saved scenarios.
    void Saved_Scenarios() {
        Press("Cmd_Sim2");
        While_Open([this] { Press("Cmd_UpS(4)"); }, {[](QDialog& copies) {
                       Take_Window("kzcopy", copies);
                       While_Open([&copies] { Click(copies, "Cmd_Load(1)"); }, {Say_Yes, Say_Yes});
                       Click(copies, "Cmd_Close");
                   }});
        Press("Cmd_UpS(0)");
        Take_Screen("journal", "Frm_KsZaiUP");
        While_Open([this] { Click(Screen("Frm_KsZaiUP"), "BLCheck"); },
                   {Say_Yes, Take_And_Press("upcheck", "Tojiru")});
        Press("Cmd_UpS(3)");
        To_Front(frame);
        Child<QWidget>(Screen("Frm_KankoKaiz"), "grid")->setFocus(Qt::OtherFocusReason);
        Take_Screen("improvement_p", "Frm_KankoKaiz");
        Press("Cmd_UpS(5)");
    }

    void Companies() {
        Take_In_Hand(firm, "register");
        Press("Cmd_Sim1");
        Take_Window("frame", frame);
        QWidget& menu = *frame.command;
        Take_Part("menu", menu);
        Press("Cmd_GB(5)");
    }

    void Statements() {
        Press("Cmd_KsZ1");
        Press("Cmd_KsT(1)");
        Take_Screen("statement", "Frm_KsZaihyo");
        While_Open([this] { Click(Screen("Frm_KsZaihyo"), "Y_Disp"); },
                   {Say_Yes, Take_And_Press("ysisan", "Tojiru")});
        Press("Cmd_KsT(6)");
        Press("Cmd_KsZ3");
        // One line of entry: the empty room below it tells nothing.
        const QWidget& changes = Screen("Frm_KsHendo");
        Take("hendo", QRect(changes.mapToGlobal(QPoint(0, 0)), QSize(changes.width(), 190)));
        Click(Screen("Frm_KsHendo"), "Tojiru");
        Press("Cmd_KsZ4");
        Take_Screen("prior", "Frm_KsZenki");
        Click(Screen("Frm_KsZenki"), "Tojiru");
    }

    void Take_Check(const char* picture, Form& screen, const char* score) {
        for (QAbstractButton* button : screen.findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == QString::fromUtf8(score)) {
                button->click();
                QTest::qWait(settle_ms);
                QWidget* check = QApplication::activeWindow();
                Take_Window(picture, *check);
                Click(*check, "Tojiru");
                return;
            }
        }
        Give_Up(QStringLiteral("no check of ") + QString::fromUtf8(score));
    }

    void Review() {
        Press("Cmd_Sim1");
        Press("Cmd_GB(0)");
        Take_Screen("keiei", "Frm_Keiei");
        While_Open([this] { Click(Screen("Frm_Keiei"), "Cmd_QandA"); },
                   {Take_And_Press("qanda", "Cmd_Cancel")});
        Press("Cmd_GB(1)");
        Take_Screen("syokuta", "Frm_Syokuta_2012");
        Take_Check("calc_check", Screen("Frm_Syokuta_2012"), "X2-1 計算チェック");
        Take_Check("calc_check_table", Screen("Frm_Syokuta_2012"), "W2 計算チェック");
        Press("Cmd_GB(2)");
        Take_Screen("kanko", "Frm_Kanko");
        Click(Screen("Frm_Kanko"), "edit_z");
        Take_Screen("kanko2", "Frm_Kanko2");
        While_Open([this] { Click(Screen("Frm_Kanko2"), "Prt"); }, {[](QDialog& preview) {
                       Take_Window("preview", preview);
                       While_Open([&preview] { Click(preview, "Pg_Set"); },
                                  {Take_And_Press("prtset", "Cmd_Can")});
                       Click(preview, "Tojiru");
                   }});
        Press("Cmd_GB(3)");
        Take_Screen("gekihen", "Frm_Gekihen");
        Consultation();
        Press("Cmd_GB(5)");
    }

    void Consultation() {
        Press("Cmd_GB(4)");
        Take_Screen("ychart", "Frm_Ychart");
        While_Open([this] { Click(Screen("Frm_Ychart"), "Cmd_Advice"); }, {[](QDialog& advice) {
                       Take_Window("advice", advice);
                       Click(advice, "Cmd_12com");
                       Take_Window("advice_12com", advice);
                       Click(advice, "Tojiru");
                   }});
    }

    void Others() {
        Press("Cmd_Hojyo1");
        Take_Screen("kssitei", "Frm_KsSitei");
        Click(Screen("Frm_KsSitei"), "Cmd_Cancel");
        While_Open([this] { Press("Cmd_Hojyo4"); }, {Take_And_Press("company", "Cmd_Cancel")});
        While_Open([this] { Choose("Mnu_HPAccess"); }, {Take_And_Press("hpopen", "Cmd_Cancel")});
        While_Open([this] { Choose("Disp_Version"); }, {[](QDialog& version) {
                       Take_Window("ver", version);
                       While_Open([&version] { Click(version, "Cmd_Settei"); },
                                  {Take_And_Press("settei", "Cmd_Cancel")});
                       Click(version, "Cmd_Cancel");
                   }});
    }

    Frm_Main& frame;
};

std::filesystem::path Folder(const char* name) {
    return std::filesystem::absolute(name);
}

// The first start asks for the edition.
void Take_First_Start(const char* folder, Messages& messages) {
    Shell shell(Folder(folder), messages);
    While_Open([&shell] { shell.Sub_Main(); }, {Take_And_Press("dtselect", "Cmd_Cancel"), Say_Yes});
}

// The firm's own data, in a program for a single firm.
void Take_Own_Firm(const char* folder, Messages& messages) {
    Shell shell(Folder(folder), messages);
    shell.Sub_Main();
    While_Open([&shell] { Click(*shell.Frame()->command, "Cmd_Hojyo4"); },
               {Take_And_Press("jgmas", "Cmd_Cancel")});
}

// A session that ends as in a power failure, and the start after it.
void Take_Office(const char* folder, Messages& messages) {
    {
        Shell shell(Folder(folder), messages);
        // The first start greets.
        While_Open([&shell] { shell.Sub_Main(); }, {Say_Yes});
        Tour(shell).Whole();
    }
    Shell shell(Folder(folder), messages);
    While_Open([&shell] { shell.Sub_Main(); }, {[](QDialog& box) {
                   Take_Window("abnormal", box);
                   Say_Yes(box);
               }});
}

} // namespace

} // namespace morvane

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 5) {
        std::fputs("usage: manual_pictures OFFICE OWN NEW OUT\n", stderr);
        return 2;
    }
    QApplication::setApplicationName(QStringLiteral("Morvane"));
    QApplication::setApplicationVersion(QStringLiteral(MORVANE_VERSION));
    QApplication::setCursorFlashTime(0);
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight()); // over nothing
    morvane::theme::Apply(application);
    morvane::out = QDir(QString::fromLocal8Bit(argv[4]));
    morvane::Message_Windows messages;
    morvane::Take_First_Start(argv[3], messages);
    morvane::Take_Own_Firm(argv[2], messages);
    morvane::Take_Office(argv[1], messages);
    return 0;
}
