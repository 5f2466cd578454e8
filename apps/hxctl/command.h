// What every command of hxctl is made of: it is given its arguments, and answers with an outcome that main
// prints.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/com/hresult.h"

namespace hxctl {

// Exit codes of the tool.
enum Exit : int { kDone = 0, kRefused = 1, kUsage = 2 };

struct Outcome {
    int exit = kDone;
    std::string output;  // to standard output, as it is
    std::string reason;  // to standard error; why the exit is not kDone
};

inline Outcome Refused(std::string reason, std::string output = {}) {
    return {kRefused, std::move(output), std::move(reason)};
}

// A text file as wide text. "-" is standard input. Without a value `reason` says why.
std::optional<std::wstring> ReadTextFile(const std::string& path, std::string& reason);

// "0x80004005".
std::string HexResult(HRESULT result);
// "E_FAIL (0x80004005)".
std::string NamedResult(HRESULT result);

// hxctl xml FILE [--tree]
Outcome RunXml(const std::string& file, bool tree, bool json);

// hxctl settings new|check|convert --type N [FILE]; without a file the text is a null string.
struct SettingsRequest {
    int type = 0;
    std::optional<std::string> file;
    bool read = false;   // check, convert
    bool write = false;  // new, convert
};
Outcome RunSettings(const SettingsRequest& request, bool json);

// hxctl exception FILE [--locale TAG] [--chain]
struct ExceptionRequest {
    std::string file;
    std::string locale;  // empty: the texts of the program itself
    bool chain = false;  // prints the document that would be sent on
};
Outcome RunException(const ExceptionRequest& request, bool json);

// hxctl inspect FILE [--record CLASS [--element NAME] [--rewrite] [--defaults FILE]]
struct InspectRequest {
    std::string file;
    std::string record;    // empty: an account of whatever the file holds
    std::string element;   // empty: the class's usual one, or the one that looks like such a record
    std::string defaults;  // empty: the record's own defaults
    bool rewrite = false;
};
Outcome RunInspect(const InspectRequest& request, bool json);

// hxctl format
Outcome RunFormat(bool json);

// hxctl keys list|get ID|set ID VALUE
Outcome RunKeysList(bool json);
Outcome RunKeysGet(uint32_t id, bool json);
Outcome RunKeysSet(uint32_t id, const std::string& value, bool json);
// hxctl log [--follow] [--module NAME]; following ends only with the output.
struct LogRequest {
    std::string module = "HXScannerCtrls";
    bool follow = false;
};
Outcome RunLog(const LogRequest& request, bool json);

// hxctl log --events FILE
Outcome RunLogEvents(const std::string& file, bool json);

}  // namespace hxctl
