// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace morvane {

/// The printing system or a queue of it does not take a report, or did not print it; `what` tells in Japanese
/// why.
class Print_Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A document handed to a queue.
struct Print_Job {
    std::string queue;
    int id = 0;
};

/// How far a document has come.
enum class Job_Progress {
    Waiting,    ///< in the queue
    Connecting, ///< the printer has not answered yet
    Printing,
    Held_Up, ///< not printed until somebody sees to the printer
    Done,
    Failed ///< given up or cancelled
};

struct Job_State {
    Job_Progress progress = Job_Progress::Waiting;
    std::string reason; ///< Japanese, where it is held up or has failed
};

/// Names and values as the printing system calls them.
using Print_Options = std::vector<std::pair<std::string, std::string>>;

/// Hands a PDF document to a queue ("name" or "name/instance"), after asking whether that takes documents and
/// prints them. Raises Print_Failure.
Print_Job Send_To_Queue(const std::string& queue, const std::string& title, std::string_view pdf,
                        const Print_Options& options);

/// Asks the printing system how far a document has come. A document that it knows no more has been printed.
/// Raises Print_Failure where it does not answer.
Job_State State_Of(const Print_Job& job);

} // namespace morvane
