// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/register.h"
#include "data/store_file.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace morvane {

/// What an operation over several files is about to do.
struct Work_Intent {
    enum class Kind : std::uint8_t {
        Registration, ///< a new or imported company: data file, row, working store
        Change,       ///< number or names of the company in hand: working store, data file, row, marker
        Deletion      ///< data file, row
    };
    Kind kind = Kind::Registration;
    Register_Row row{};                  ///< the company as it is to be; in a deletion the one that goes
    std::int32_t former = 0;             ///< its number before a change
    std::vector<Register_Row> further{}; ///< companies registered together with it

    friend bool operator==(const Work_Intent&, const Work_Intent&) = default;
};

/// A failed step whose way back failed too. What was begun is finished or dropped by the next start.
class Unfinished_Work : public Store_Error {
  public:
    explicit Unfinished_Work(const Store_Error& error) : Store_Error(error) {}
};

/// An operation over several files. Its intent is written to pending.json before the first step and removed
/// with the object, so that a process that is killed in between leaves something to finish or to drop.
class Pending_Work {
  public:
    /// Finishes what an earlier operation may have left, then writes the intent. Raises Store_Error.
    Pending_Work(const Session& the_session, const Work_Intent& intent);
    Pending_Work(const Pending_Work&) = delete;
    Pending_Work& operator=(const Pending_Work&) = delete;
    ~Pending_Work();

    /// Does a step. Where it fails, the ways back of this and all earlier steps are gone, last first, and the
    /// failure is raised again; where one of these fails too, Unfinished_Work. A way back must do no harm
    /// where its step did nothing.
    void Do(const std::function<void()>& step, std::function<void()> back);

    /// Leaves the intent to the next start.
    void Leave() { left = true; }

  private:
    const Session& session;
    std::vector<std::function<void()>> ways_back;
    bool left = false;
};

/// A new content of the data file of a registered or new company, with its row.
struct Registered_Store {
    Register_Row row;
    File_Replacement store;
};

/// Puts data files of different companies in place, and their rows in one step, all or none: what a killed
/// process leaves between them is finished by the next start. Raises Store_Error.
void Put_Registered_Stores(const Session& session, std::span<Registered_Store> stores);

/// Moves the data file of company `former` to the place of its new number, which the file then bears. Raises
/// Store_Error, also where a file stands there already or the file is another company's.
void Move_Company_Store(const Session& session, std::int32_t former, std::int32_t number);

/// Finishes or drops the operation that a killed process left (see Pending_Work). To be called at start, with
/// the instance lock held, behind Sweep_Drafts and before Mend_Working_Store. Every step can be repeated.
/// Nothing in single-company mode. Raises Store_Error, also for a pending.json that cannot be read while
/// register and data files disagree.
void Finish_Pending_Work(const Session& session);

/// Whether a killed process left an operation that Finish_Pending_Work has not seen yet.
bool Has_Pending_Work(const Session& session);

} // namespace morvane
