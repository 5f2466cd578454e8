// What a page script can say: a table of commands for each family of them. A command takes the words behind
// its own, does what they say to the host, and adds to its answer. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "apps/hxctl/page/script_line.h"
#include "apps/hxctl/record_json.h"
#include "apps/hxctl/scanner/failed_call.h"

namespace hxctl {

class PageHost;

// What was refused, or could not have been done by a person.
struct Impossible : FailedCall {
    using FailedCall::FailedCall;
};

using Words = std::vector<Word>;

struct ScriptCommand {
    const char* word;
    const char* usage;  // of what stands behind the word
    size_t least;       // of words behind it
    size_t most;
    void (*run)(PageHost& host, Words& words, Json& answer);
};

std::span<const ScriptCommand> HostCommands();    // what the host does with its pages
std::span<const ScriptCommand> ApiCommands();     // the scanner API and its connection
std::span<const ScriptCommand> PersonCommands();  // a person at the controls
std::span<const ScriptCommand> ListCommands();    // a person at the list of profiles, and in dialogs
std::span<const ScriptCommand> FaultCommands();   // failures on demand
std::span<const ScriptCommand> ReportCommands();  // what is to be seen, stored and was called

// As they are needed by several. All throw a WrongLine.
int32_t NumberOf(const Word& word, const char* what);
std::wstring WideOf(const Word& word);
// The word behind the option, both of which are taken out; nothing if it is not there.
std::optional<Word> TakeOption(Words& words, const char* option);
// What TakeOption has left are no options.
void CheckNoOptions(const Words& words);

}  // namespace hxctl
