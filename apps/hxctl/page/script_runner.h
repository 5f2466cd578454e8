// Runs a page script: line by line, each with an answer. On the thread of the user interface.
#pragma once

#include <functional>
#include <istream>

#include "apps/hxctl/page/page_host.h"

namespace hxctl {

// What one line answers; nothing for one that says nothing. It does not throw: what is wrong is in the
// answer.
std::optional<Json> RunLine(PageHost& host, const std::string& line, size_t number);

struct ScriptTally {
    size_t lines = 0;  // that have an answer
    size_t failed = 0;

    // "2 of 14 lines of the script failed"
    std::string Text() const;
};
// The whole script, told as it comes.
ScriptTally RunScript(PageHost& host, std::istream& script, const std::function<void(const Json&)>& tell);

}  // namespace hxctl
