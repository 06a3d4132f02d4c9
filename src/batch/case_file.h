// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/json_text.h"
#include "session/session.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace morvane {

/// A case file that cannot be taken: the text names the file, the path inside it and the reason. Nothing of
/// its company has been written.
class Case_Error : public std::runtime_error {
  public:
    Case_Error(const std::filesystem::path& file, const std::string& path, const std::string& reason);
};

/// What an import reports of a company.
struct Imported {
    std::int32_t number = 0;
    std::string name;
    bool replaced = false;              ///< the company was there before
    std::vector<std::string> unsettled; ///< why scores could not be computed: the figures stand without them
};

/// The edition (地域CD) that a case file names. Raises Case_Error, Store_Error.
Edition Edition_Of_Case(const std::filesystem::path& file);

/// Brings the company of a case file into the installation, new or in the place of the one with its number:
/// blank company, periods, law years, figures, class totals, prior-period figures, and the scores of every
/// scenario that the case fills. A store that is replaced is kept beside it with the ending .bak (a second
/// time on one day .bak2). Raises Case_Error, Store_Error.
Imported Import_Case(const Session& session, const std::filesystem::path& file);

/// The end of one import of many: what it reports, or why it failed.
struct Import_End {
    std::optional<Imported> imported;
    std::exception_ptr failure;
};

/// Imports files one after the other as Import_Case does and tells the end of each in their order. The
/// companies of some files are put in place together, with one change of the register; where that fails each
/// of them is imported alone, so that the failure is told of the file that it belongs to.
void Import_Cases(const Session& session, std::span<const std::filesystem::path> files,
                  const std::function<void(const Import_End&)>& tell);

/// A company as a case file; importing it gives the same company. Raises Store_Error.
Json Export_Case(const Session& session, const std::filesystem::path& store);

/// The text of a case: one line per account group, work type and element.
std::string Case_Text(const Json& record);

} // namespace morvane
