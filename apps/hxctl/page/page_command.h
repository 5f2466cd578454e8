// hxctl page: pages in a scripted host, without a screen.
#pragma once

#include <filesystem>
#include <istream>
#include <memory>
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

// A script file, or with "-" standard input. Throws a FailedCall if it cannot be read.
std::shared_ptr<std::istream> OpenScript(const std::string& file);
// Where it is; empty for standard input.
std::filesystem::path FolderOf(const std::string& script);

// Of an answer, whatever is in its texts.
std::string LineOf(const Json& answer);

}  // namespace hxctl
