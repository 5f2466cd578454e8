// A copy of a shared library that does nothing when it is loaded and unloaded: its constructors and
// destructors of static objects are not called. What is left is the dynamic loader's work.
#pragma once

#include <filesystem>

namespace hx::bench {

// Throws std::runtime_error if `library` is none, or `copy` cannot be written.
void WriteLibraryWithoutStart(const std::filesystem::path& library, const std::filesystem::path& copy);

}  // namespace hx::bench
