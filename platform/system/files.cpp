#include "platform/system/files.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <cstdint>
#include <utility>

#include "platform/system/descriptor.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

std::error_code ReadAll(int descriptor, std::string& bytes) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return LastError();
    // One byte more than expected, so that the end shows without growing. Some files give more than their
    // size.
    bytes.resize(static_cast<size_t>(status.st_size) + 1);
    size_t filled = 0;
    while (true) {
        if (filled == bytes.size()) bytes.resize(bytes.size() * 2);
        const ssize_t got =
            Retry([&] { return read(descriptor, bytes.data() + filled, bytes.size() - filled); });
        if (got < 0) return LastError();
        if (got == 0) break;
        filled += static_cast<size_t>(got);
    }
    bytes.resize(filled);
    return {};
}

std::error_code WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = Retry([&] { return write(descriptor, bytes.data(), bytes.size()); });
        if (written < 0) return LastError();
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return Retry([&] { return fsync(descriptor); }) == 0 ? std::error_code() : LastError();
}

// A new file in the folder; also where another process left one of the same name behind when it died.
int CreateTemporary(const std::filesystem::path& folder, mode_t permissions, std::filesystem::path& path) {
    static std::atomic<uint32_t> next{0};
    int descriptor = -1;
    do {
        path = folder / (".hx-" + std::to_string(getpid()) + "-" + std::to_string(next++) + ".tmp");
        descriptor =
            Retry([&] { return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions); });
    } while (descriptor < 0 && errno == EEXIST);
    return descriptor;
}

// The content, with the permissions that the file at `target` has.
std::error_code Fill(const Descriptor& temporary, const std::filesystem::path& target,
                     std::string_view bytes) {
    if (!temporary.is_open()) return LastError();
    struct stat status {};
    if (stat(target.c_str(), &status) == 0 && fchmod(temporary.get(), status.st_mode & 07777) != 0) {
        return LastError();
    }
    return WriteAll(temporary.get(), bytes);
}

// A renamed file survives a power failure only if its folder reached the disk too.
std::error_code SyncFolder(const std::filesystem::path& folder) {
    const Descriptor descriptor(
        Retry([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!descriptor.is_open()) return LastError();
    // Some file systems have nothing to write for a folder and say so with EINVAL.
    if (Retry([&] { return fsync(descriptor.get()); }) == 0 || errno == EINVAL) return {};
    return LastError();
}

// Puts a file that `fill` has written in the place of `target`, itself no link.
template <class FillFile>
std::error_code Replace(const std::filesystem::path& target, mode_t permissions, FillFile fill) {
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    std::filesystem::path temporary;
    std::error_code error;
    {
        const Descriptor file(CreateTemporary(folder, permissions, temporary));
        error = fill(file);
    }
    if (!error && rename(temporary.c_str(), target.c_str()) != 0) error = LastError();
    if (!error) return SyncFolder(folder);
    unlink(temporary.c_str());
    return error;
}

std::optional<std::wstring> DecodeUtf16(std::string_view bytes, bool big_endian, size_t& bad_offset) {
    const auto unit_at = [&](size_t i) {
        const auto first = static_cast<uint8_t>(bytes[i]);
        const auto second = static_cast<uint8_t>(bytes[i + 1]);
        return static_cast<uint32_t>(big_endian ? first << 8 | second : second << 8 | first);
    };
    std::wstring text;
    text.reserve(bytes.size() / 2);
    for (size_t i = 0; i < bytes.size(); i += 2) {
        bad_offset = i;
        if (i + 1 == bytes.size()) return std::nullopt;
        uint32_t code = unit_at(i);
        if (code >= 0xD800 && code <= 0xDFFF) {
            const bool has_pair = code <= 0xDBFF && i + 3 < bytes.size();
            const uint32_t low = has_pair ? unit_at(i + 2) : 0;
            if (low < 0xDC00 || low > 0xDFFF) return std::nullopt;
            code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
            i += 2;
        }
        text += static_cast<wchar_t>(code);
    }
    return text;
}

}  // namespace

FileError ReadFile(const std::filesystem::path& path, std::string& bytes) {
    bytes.clear();
    const Descriptor file(Retry([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
    FileError error{file.is_open() ? ReadAll(file.get(), bytes) : LastError(), path};
    if (error) bytes.clear();
    return error;
}

FileError WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes) {
    std::error_code error;
    std::filesystem::path target = path;
    if (std::filesystem::is_symlink(path, error)) target = std::filesystem::canonical(path, error);
    if (target.empty()) return {error, path};
    error = Replace(target, 0666, [&](const Descriptor& file) { return Fill(file, target, bytes); });
    return {error, path};
}

FileError PublishFile(const std::filesystem::path& written, const std::filesystem::path& path) {
    {
        const Descriptor file(Retry([&] { return open(written.c_str(), O_RDONLY | O_CLOEXEC); }));
        if (!file.is_open() || Retry([&] { return fsync(file.get()); }) != 0) return {LastError(), written};
    }
    if (rename(written.c_str(), path.c_str()) != 0) return {LastError(), path};
    return {SyncFolder(path.has_parent_path() ? path.parent_path() : "."), path};
}

FileError WritePrivateFile(const std::filesystem::path& path, std::string_view bytes) {
    struct stat status {};
    const bool is_there = lstat(path.c_str(), &status) == 0;
    if (is_there && !S_ISREG(status.st_mode)) return {std::make_error_code(std::errc::file_exists), path};
    const std::error_code error = Replace(path, 0600, [&](const Descriptor& file) {
        return file.is_open() ? WriteAll(file.get(), bytes) : LastError();
    });
    return {error, path};
}

std::optional<std::wstring> DecodeTextFile(std::string_view bytes, size_t* bad_offset) {
    size_t mark = 0;
    size_t bad = 0;
    std::optional<std::wstring> text;
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        mark = 2;
        text = DecodeUtf16(bytes.substr(mark), bytes[0] == '\xFE', bad);
    } else {
        mark = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
        text = FromUtf8(bytes.substr(mark), &bad);
    }
    if (!text && bad_offset) *bad_offset = mark + bad;
    return text;
}

std::filesystem::path ThisLibraryFolder() {
    static const char anchor = 0;
    Dl_info info{};
    if (dladdr(&anchor, &info) == 0 || !info.dli_fname) return {};
    std::error_code error;
    return std::filesystem::canonical(info.dli_fname, error).parent_path();
}

std::filesystem::path ComponentFolder() {
    const std::filesystem::path folder = ThisLibraryFolder();
    std::error_code error;
    const std::filesystem::path installed = folder / "hxscannerctrls";
    return std::filesystem::is_directory(installed, error) ? installed : folder;
}

}  // namespace hx
