// hxctl page: pages in a scripted host, without a screen.
#pragma once

#include <functional>
#include <string>

#include "apps/hxctl/command.h"
#include "apps/hxctl/page/script_runner.h"

namespace hxctl {

struct PageRequest {
    std::string page;
    std::string script;  // "-" is standard input
    std::string locale = "en-US";
    bool bare = false;  // the script creates the page
};

// hxctl page PAGE --script FILE; answers are written as they come, with `json` as one array in the end.
Outcome RunPage(const PageRequest& request, bool json);

// Runs the script of a file, or of standard input, with a page called "main"; refused if it cannot be read,
// or if a line failed.
Outcome RunScriptFile(PageHost& host, const std::string& page, const std::string& file,
                      const std::function<void(const Json&)>& tell);

// Of an answer, whatever is in its texts.
std::string LineOf(const Json& answer);

}  // namespace hxctl
