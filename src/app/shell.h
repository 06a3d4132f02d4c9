// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "app/frm_main.h"
#include "app/help_window.h"
#include "session/instance_lock.h"
#include "widgets/shell_port.h"
#include "widgets/window_placement.h"

#include <QObject>
#include <QPointer>
#include <filesystem>
#include <memory>
#include <optional>

namespace morvane {

/// The program behind its windows: the session, the instance lock, the frame, help, and the one place where
/// failures end.
class Shell : public QObject, public Shell_Port {
    Q_OBJECT

  public:
    /// The installation is that of `app_path`, messages go to `message_port`.
    Shell(std::filesystem::path folder, Messages& message_port);
    ~Shell() override;

    /// What the start came to: the frame stands, or the program ends with a status.
    struct Start {
        bool running = false;
        int status = 0;
    };

    /// The entry point: password, single instance, edition choice where none was made, the frame and its
    /// load.
    Start Sub_Main();

    void Show_Company() override;
    void Show_No_Company() override;
    void Show_Registered() override;
    void Open_Form(const QString& form) override;
    void Replace_Form(Form* screen, const QString& sister) override;
    void Toggle_Menu() override;
    [[nodiscard]] bool Is_Menu_Shown() const override;
    void Show_Help(const QString& form) override;
    void Place(QWidget* window) override;
    bool Guard(const std::function<void()>& work) override;
    QWidget* Window() override;

    [[nodiscard]] Frm_Main* Frame() const { return frame.get(); }

    /// Ends the process after a failure; tests put their own here.
    std::function<void(int)> end_process;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Make_Installation();
    bool Choose_An_Edition();
    Start Load_Frame();
    void Normal_End_By_Button();
    bool May_Close();
    void Help_For(QWidget* widget);
    void Fail(const std::string& title, const std::string& text);

    Session own_session;
    Messages& messages;
    std::optional<Instance_Lock> lock;
    std::unique_ptr<Window_Placement> placement;
    std::unique_ptr<Frm_Main> frame;
    QPointer<Help_Window> help;
};

} // namespace morvane
