// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QString>
#include <functional>

namespace morvane {

class Form;
class Progress;
class Shell_Port;

/// How work beside the windows shows itself, and whether it can be left to itself.
struct Work_Notice {
    QString title;
    QString message;          ///< until the work says something
    bool can_be_left = false; ///< cancelling does not wait for its end: it changes nothing but what it gives
};

/// Runs `job` on a thread of its own. Its form takes no input meanwhile; after half a second a window tells
/// how far the work is and offers to cancel it. When the job has ended, `deliver` runs on the thread of the
/// windows inside the shell's guard, where an exception of the job comes out too. Nothing is delivered of
/// work that was cancelled, nor where its form is there no more. Nothing happens where the form still waits
/// for other work. The job must own what it uses: it can outlive the form.
void Run_In_Background(Form& owner, Shell_Port& shell, const Work_Notice& notice,
                       std::function<void(Progress&)> job, std::function<void()> deliver);

} // namespace morvane
