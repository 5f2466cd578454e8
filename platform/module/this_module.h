// The module that this code is linked into: its file, its version, its own resources. Linked into every
// component library and program that has resources (target hxthismodule), never shared. Any thread.
#pragma once

#include <string>

#include "platform/module/module.h"

namespace hx {

// What the module's version resource says of it.
struct ModuleVersion {
    std::wstring file_description;  // "HXScannerCtrls"
    std::wstring product_version;   // "4.0.0"
};
ModuleVersion ThisModuleVersion();

// The module with its embedded resources, made at the first call and kept until the program ends.
ModuleHandle ThisModule();

// Another file name for this module, of the library whose code the program shares: that is where satellites
// are looked for. Before the first call of ThisModule.
void SetThisModuleFileName(std::wstring file_name);

}  // namespace hx
