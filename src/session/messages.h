// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <string>

namespace morvane {

enum class Icon { Information, Warning, Exclamation };
enum class Buttons {
    Ok,
    Ok_Cancel,
    Yes_No,
    Retry_Discard_Back, ///< 再試行, 破棄して閉じる, 戻る: a save that fails when a screen closes
    Retry_Back          ///< 再試行, 戻る: a save that fails in the middle of the work
};
enum class Answer { Ok, Cancel, Yes, No, Retry, Discard, Back };

/// A message box. Multi-line texts are joined by line feeds.
struct Message_Box {
    std::string title;
    std::string text;
    Icon icon = Icon::Information;
    Buttons buttons = Buttons::Ok;
    Answer default_answer = Answer::Ok;
    bool beep = false;
};

/// Where every notice and question goes: windows on the desktop, the error stream of the batch tool, a script
/// in tests.
class Messages {
  public:
    Messages() = default;
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    virtual ~Messages() = default;

    /// Shows the box and returns the answer.
    virtual Answer Show(const Message_Box& box) = 0;
};

} // namespace morvane
