// SPDX-FileCopyrightText: The Morvane developers
#include "app/shell.h"

#include "app/form_table.h"
#include "app/frm_dtselect.h"
#include "app/start_up.h"
#include "company/new_installation.h"
#include "data/store_file.h"
#include "law/run_time_error.h"
#include "session/boxes.h"
#include "session/install_info.h"
#include "session/program_folder.h"
#include "session/save_or_stay.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <cstdlib>

namespace morvane {

Shell::Shell(std::filesystem::path folder, Messages& message_port)
    : Shell_Port(own_session), end_process([](int status) { std::_Exit(status); }), messages(message_port) {
    own_session.Db_Pass = Session::default_password;
    own_session.App_Path = std::move(folder);
    own_session.messages = &messages;
}

Shell::~Shell() = default;

Shell::Start Shell::Sub_Main() {
    Start start;
    Guard([this, &start] {
        // The lock first: a second start must not fill a folder that the first one is filling.
        Make_Installation_Folder(own_session.App_Path);
        Test_Writable(own_session.App_Path);
        if (auto taken = Instance_Lock::Take(own_session.App_Path)) {
            lock.emplace(std::move(*taken));
        } else {
            Tell(own_session, "複数起動エラー",
                 "すでに「Morvane」が起動されています。複数起動することはできません。");
            start.status = 1;
            return;
        }
        Make_Installation();
        own_session = Make_Session(own_session.App_Path, messages);
        qApp->installEventFilter(this);
        if (!Has_Edition(Read_Install_Info(own_session.App_Path)) && !Choose_An_Edition()) {
            return;
        }
        start = Load_Frame();
    });
    return start;
}

void Shell::Make_Installation() {
    if (Is_There(Find_File(own_session.App_Path, install_info_file))) {
        return;
    }
    const auto templates = Delivered_Folder("templates");
    if (!templates) {
        throw Store_Error(own_session.App_Path / install_info_file, Store_Error::Reason::Missing,
                          "データファイルのひな形が見つかりません");
    }
    New_Installation(*templates, own_session.App_Path, {.edition = {}, .multi = false});
}

bool Shell::Choose_An_Edition() {
    Frm_DtSelect choice(*this);
    if (choice.exec() != QDialog::Accepted) {
        return false;
    }
    own_session = Make_Session(own_session.App_Path, messages);
    return true;
}

Shell::Start Shell::Load_Frame() {
    Take_Install_Info(own_session, Read_Install_Info(own_session.App_Path));
    frame = std::make_unique<Frm_Main>(*this, Frm_Main::Hooks{[this] { Normal_End_By_Button(); },
                                                              [this] { return May_Close(); },
                                                              [this](QWidget* widget) { Help_For(widget); }});
    placement = std::make_unique<Window_Placement>(own_session.App_Path);
    placement->Follow(frame.get(), First_Size(frame->screen()->availableSize()));
    frame->show();
    const Start_Result result =
        Load_Session(own_session, *lock, [this] { Open_Form(QStringLiteral("Frm_Jgmas")); });
    if (result == Start_Result::Ended) {
        frame.reset();
        return {false, 1};
    }
    if (own_session.Is_Multi() && own_session.Kanri_No == 0) {
        Show_No_Company();
    } else {
        Show_Company();
    }
    frame->command->Focus_First();
    return {true, 0};
}

void Shell::Show_Company() {
    lock->Record(own_session.Is_Multi() ? own_session.Kanri_No : 0);
    frame->command->Show_Company();
}

void Shell::Show_No_Company() {
    lock->Record(0);
    frame->command->Show_No_Company();
}

void Shell::Show_Registered() {
    Show_Company();
    frame->command->Show_Registered();
}

void Shell::Open_Form(const QString& form) {
    frame->command->Open_Form(form);
}

void Shell::Replace_Form(Form* screen, const QString& sister) {
    frame->command->Replace_Form(screen, sister);
}

void Shell::Toggle_Menu() {
    frame->command->setHidden(Is_Menu_Shown());
}

bool Shell::Is_Menu_Shown() const {
    return !frame->command->isHidden();
}

void Shell::Place(QWidget* window) {
    window->ensurePolished(); // with fonts and captions as they will be shown
    placement->Follow(window, window->testAttribute(Qt::WA_Resized) ? window->size() : window->sizeHint());
}

QWidget* Shell::Window() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : frame.get();
}

// ---- the end

void Shell::Normal_End_By_Button() {
    if (!Query_Unload(own_session)) {
        return;
    }
    // What could not be put back stays in the working store, and the marker tells the next start of it.
    const Save_Words words = {.what = "指定中の事業所のデータ",
                              .discard = "書き戻さずに終了します。入力したデータは作業用のファイルに残り、\n"
                                         "　次回の起動時に、この事業所から続けられます。"};
    const Save_End end = Save_Or_Stay(
        own_session, [this] { Normal_End(own_session, *lock); }, words);
    if (end == Save_End::Stay) {
        return;
    }
    frame->Close_For_Good();
    if (end == Save_End::Discard) {
        end_process(1);
    }
}

bool Shell::May_Close() {
    bool may = false;
    Guard([this, &may] {
        if (!Query_Unload(own_session) || !frame->command->Close_Panel()) {
            return;
        }
        may = May_Unload(own_session);
        if (may) {
            const Save_Words words = {.what = "終了の記録", .discard = "記録しないで終了します。"};
            may = Save_Or_Stay(
                      own_session, [this] { lock->Record(0); }, words) != Save_End::Stay;
        } else {
            Show_Company();
        }
    });
    return may;
}

bool Shell::Guard(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const Run_Time_Error& error) {
        Tell(own_session, "実行時エラー", error.what());
    } catch (const Store_Error& error) {
        Fail("データファイルエラー", error.what());
    } catch (const std::filesystem::filesystem_error& error) {
        Fail("データファイルエラー",
             Store_Error(error.path1(), Reason_Of_Errno(error.code().value()), "").what());
    } catch (const std::exception& error) {
        Fail("実行時エラー", std::string("予期しない障害が起きました。\n") + error.what());
    }
    return false;
}

void Shell::Fail(const std::string& title, const std::string& text) {
    // Every store is closed by now: nothing is open outside of a routine, and its transaction went back.
    Show_Message(own_session, {.title = title,
                               .text = text + "\n\nプログラムを終了します。保存済みのデータは失われません。\n"
                                              "原因を取り除いてから、もう一度起動してください。",
                               .icon = Icon::Warning,
                               .beep = true});
    end_process(1);
}

// ---- help

void Shell::Show_Help(const QString& form) {
    const Form_Row* row = Find_Form(form.toStdString());
    const QString page = row != nullptr && row->page != nullptr ? QString::fromUtf8(row->page) : form;
    if (help == nullptr) {
        help = new Help_Window(Delivered_Folder("manual").value_or(own_session.App_Path / "manual"));
    }
    // A modal dialog would block the window unless it stands under it.
    help->Show_Page(page, Window());
}

void Shell::Help_For(QWidget* widget) {
    const Form* form = Form::Of(widget);
    if (form == nullptr && frame != nullptr) {
        form = frame->area->Top();
    }
    Show_Help(form != nullptr ? form->objectName() : QStringLiteral("Frm_Command"));
}

bool Shell::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1) {
        Guard([this, watched] { Help_For(static_cast<QWidget*>(watched)); });
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace morvane
