// For code of this folder that loads a component library beside the loader: how it lets go of it.
#pragma once

#include <string>

namespace hx {

// Gives the handle of dlopen back if nothing of the library is in use, or if it cannot say so; else it passes
// to the loader, and CoFreeUnusedLibraries gives it back one day. `path`: absolute. Any thread, none of whose
// calls is in the library.
void UnloadWhenUnused(const std::string& path, void* handle) noexcept;

}  // namespace hx
