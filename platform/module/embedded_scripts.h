// The resource scripts that the build puts into the module which this code is linked into, as UTF-8 text. For
// this_module.cpp; any thread.
#pragma once

#include <string_view>

namespace hx {

// resources/HXScannerCtrls.rc: everything that people read.
std::string_view EmbeddedScript();
// The version resource, which the build makes from the project's version.
std::string_view EmbeddedVersionScript();

}  // namespace hx
