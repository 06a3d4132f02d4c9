// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_target.h"
#include "session/session.h"

#include <span>
#include <string>

namespace morvane {

/// What stands at the head of every report page, and names its file and its document.
struct Report_Heading {
    std::string Jigyo_Name;
    int Syori_Ki = 0;
    std::string word;        ///< of the scenario, 改善前 or 改善後
    std::string print_date;  ///< year/month/day
    std::string office_name; ///< the adviser's, empty for a firm of its own
};

/// The heading of a firm's report of today; the session tells the office.
Report_Heading Heading_Of(const Session& session, std::string jigyo_name, int period, std::string word);

/// "結果通知書 青葉建設 第35期 改善前": the title of a report's document.
std::string Document_Title(const std::string& report_title, const Report_Heading& heading);

/// The same as the name of a PDF file that every file system takes: characters that some refuse become "_",
/// the firm's name is cut where the whole would be longer than 255 bytes.
std::string Pdf_File_Name(const std::string& report_title, const Report_Heading& heading);

/// What to say of letters that no font of this machine has; empty where there are none.
std::string Missing_Notice(std::span<const Letter> missing);

} // namespace morvane
