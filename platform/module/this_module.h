// The module that this code is linked into: its file, its version, its own resources. Linked into every
// component library and program that has resources (target hxthismodule), never shared. Any thread.
#pragma once

#include <string>

#include "platform/module/module.h"

namespace hx {

// What the module's version resource says of it. Throws std::bad_alloc.
ModuleVersion ThisModuleVersion();

// The module with its embedded resources, made and entered under its file name at the first call, and kept
// until the program ends or the library is unloaded. Its file name is absolute, that of a library with
// its links unresolved; empty if it is no UTF-8. Throws std::bad_alloc.
ModuleHandle ThisModule();

// Another file name for this module, of the library whose code the program shares: that is where satellites
// are looked for. To be called before the first call of ThisModule, which a later one does not change.
void SetThisModuleFileName(std::wstring file_name);

}  // namespace hx
