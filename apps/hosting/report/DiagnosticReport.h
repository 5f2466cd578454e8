// What somebody who is to help needs to know: the values of the diagnostics page, the versions of what runs,
// the system, the last errors of the log. Made from what any host sees of a page: its dialog. Serial numbers
// are left out, wherever they stand, unless they are asked for. On the thread of the user interface.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ui/dialog.h"

namespace hosting {

// The report's own words. The page says the others.
enum class ReportWord {
    title,
    time,
    left_out,  // in the place of a serial number
    none,      // of errors
    software,
    platform,
    renderer,
    system,
    operating_system,
    architecture,
    processors,
    language,
    errors,
    errors_left_out,  // why, and how to get them
    count_            // how many there are
};
using ReportWords = std::function<std::wstring(ReportWord)>;

// Without any serial number to look for, the errors are told only to whoever wants those, too.
inline constexpr const char* kErrorsLeftOut = "leftOut";

struct ReportRow {
    // For programs, in every language the same: "report", "page", "software", "system" or "errors"; the
    // control's id, a word, or the time of an error; kErrorsLeftOut in the place of all errors.
    std::string section;
    std::string name;
    // For people; the heading is that of all rows that follow each other under it.
    std::wstring heading;
    std::wstring caption;
    std::wstring value;  // one line
};

struct ReportRequest {
    // The diagnostics page, created.
    const hx::ui::Dialog& page;
    // Its class, whose library's version and log are told.
    const wchar_t* prog_id;
    std::string locale;
    bool serial_numbers = false;  // as they are
    // Those that the page does not show, or not now.
    std::vector<std::wstring> known_serial_numbers = {};
};

struct DiagnosticReport {
    std::vector<ReportRow> rows;
    // A value a line, below the headings.
    std::wstring Text() const;
};

DiagnosticReport MakeReport(const ReportRequest& request, const ReportWords& words);

}  // namespace hosting
