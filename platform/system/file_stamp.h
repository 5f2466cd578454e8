// By what a file that was read before is known to have changed, without reading it again. Any thread.
#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/api.h"

namespace hx {

// All 0 if there is no such file, or the system does not say.
struct FileStamp {
    uint64_t device = 0;
    uint64_t number = 0;  // of the file; one that was put in its place has another
    int64_t size = 0;
    int64_t written_ns = 0;  // since the beginning of 1970, as finely as the file system has it

    bool operator==(const FileStamp&) const = default;
};

// Taken before the file is read; what is written in between then shows the next time.
HX_PLATFORM_API FileStamp StampOf(const std::filesystem::path& path);

}  // namespace hx
