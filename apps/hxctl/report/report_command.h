// hxctl report: what the diagnostics page shows and its host knows, as a text to send to somebody.
#pragma once

#include <string>

#include "apps/hxctl/scanner/scanner_command.h"

namespace hxctl {

struct ReportOptions {
    ScannerRequest scanner;
    int state = 1;  // of the connection
    bool disconnected = false;
    std::string locale = "en-US";
    bool serial_numbers = false;
};

// hxctl report [--serials]
Outcome RunReport(const ReportOptions& options, bool json);

}  // namespace hxctl
