// Files that several processes add to at the same time, and the folders that hold them: logs. Any thread.
// Failures come back as values; only std::bad_alloc is thrown.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/system/files.h"

namespace hx {

// Adds `bytes` behind whatever the file holds by then, all in one piece: what others add at the same time
// comes before or behind it. A missing file is made, a missing folder is not. Never waits for a reader, as
// that of a pipe. If the disk has room for a part only, that part is ended with a line break, so that the
// next line of another process stands on its own, and the call fails.
HX_PLATFORM_API FileError AppendToFile(const std::filesystem::path& path, std::string_view bytes);

// Afterwards there is such a file: an empty one, or one with the content that it had.
HX_PLATFORM_API FileError MakeEmptyFile(const std::filesystem::path& path);
HX_PLATFORM_API FileError MakeFileIfMissing(const std::filesystem::path& path);

// The names of the ordinary files in the folder, in no order; empty on failure.
HX_PLATFORM_API FileError ListFiles(const std::filesystem::path& folder, std::vector<std::string>& names);

HX_PLATFORM_API FileError DeleteFileAt(const std::filesystem::path& path);

}  // namespace hx
