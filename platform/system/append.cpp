#include "platform/system/append.h"

#include <fcntl.h>
#include <sys/types.h>

#include "platform/system/descriptor.h"

namespace hx {
namespace {

int OpenToWrite(const std::filesystem::path& path, int how) {
    // The system would take the name for shorter than it is.
    if (path.native().find('\0') != std::string::npos) {
        errno = EINVAL;
        return -1;
    }
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | how;
    return Retry([&] { return open(path.c_str(), flags, 0666); });
}

// Puts a line break over the end of the bytes that were written last. They are this process's own, wherever
// the file ends by now; a character is replaced as a whole.
void EndCutLine(int descriptor, std::string_view written) {
    const off_t end = lseek(descriptor, 0, SEEK_CUR);
    size_t start = written.size() - 1;
    while (start > 0 && (written[start] & 0xC0) == 0x80) --start;
    std::string tail(written.size() - start, ' ');
    tail.back() = '\n';
    const auto length = static_cast<off_t>(tail.size());
    // As long as it appends, the system takes no offset.
    if (end < length || fcntl(descriptor, F_SETFL, O_NONBLOCK) != 0) return;
    // If this fails, too, there is nothing left to be done.
    [[maybe_unused]] const ssize_t ended = pwrite(descriptor, tail.data(), tail.size(), end - length);
}

FileError Make(const std::filesystem::path& path, int how) {
    const Descriptor file(OpenToWrite(path, how));
    if (!file.is_open()) return {LastError(), path};
    return {};
}

}  // namespace

FileError AppendToFile(const std::filesystem::path& path, std::string_view bytes) {
    const Descriptor file(OpenToWrite(path, O_APPEND));
    if (!file.is_open()) return {LastError(), path};
    const ssize_t written = Retry([&] { return write(file.get(), bytes.data(), bytes.size()); });
    if (written < 0) return {LastError(), path};
    const auto count = static_cast<size_t>(written);
    if (count == bytes.size()) return {};
    if (count != 0) EndCutLine(file.get(), bytes.substr(0, count));
    return {std::make_error_code(std::errc::no_space_on_device), path};
}

FileError MakeEmptyFile(const std::filesystem::path& path) {
    return Make(path, O_TRUNC);
}

FileError MakeFileIfMissing(const std::filesystem::path& path) {
    return Make(path, 0);
}

FileError ListFiles(const std::filesystem::path& folder, std::vector<std::string>& names) {
    names.clear();
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown_kind;  // of a file that is gone already
        if (entry->is_regular_file(unknown_kind)) names.push_back(entry->path().filename());
    }
    if (!error) return {};
    names.clear();
    return {error, folder};
}

FileError DeleteFileAt(const std::filesystem::path& path) {
    if (unlink(path.c_str()) == 0) return {};
    return {LastError(), path};
}

}  // namespace hx
