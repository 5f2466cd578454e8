// The resource scripts, with the files that they name, that the build puts into the module which this code is
// linked into. For this_module.cpp; any thread.
#pragma once

#include <optional>
#include <string_view>

namespace hx {

// UTF-8 text, as resources/HXScannerCtrls.rc: everything that people read.
std::string_view EmbeddedScript();
// The version resource, which the build makes from the project's version.
std::string_view EmbeddedVersionScript();
// The file *.rgs or *.bmp of that name which lies beside the module's script; nothing if there is none.
std::optional<std::string_view> EmbeddedFile(std::string_view file_name);

}  // namespace hx
