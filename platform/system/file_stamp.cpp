#include "platform/system/file_stamp.h"

#include <sys/stat.h>

namespace hx {

FileStamp StampOf(const std::filesystem::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino, status.st_size,
            int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec};
}

}  // namespace hx
