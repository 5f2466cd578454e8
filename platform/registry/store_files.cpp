#include "platform/registry/store_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <thread>

#include "platform/registry/store_error.h"

namespace hx {
namespace {

// What SQLite keeps beside a file; with content, the file alone is not all.
constexpr const char* kLogs[] = {"-wal", "-journal"};
constexpr const char* kBeside[] = {"-wal", "-journal", "-shm"};

std::string FolderOf(const std::string& path) {
    const size_t separator = path.find_last_of('/');
    return separator == 0 ? "/" : path.substr(0, separator);
}

bool Exists(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

// With those above it, and exactly this mode, whatever the process usually takes away from it.
void MakeFolder(const std::string& folder, mode_t mode) {
    int result = mkdir(folder.c_str(), mode);
    if (result != 0 && errno == ENOENT && folder != "/") {
        MakeFolder(FolderOf(folder), mode);
        result = mkdir(folder.c_str(), mode);
    }
    if (result != 0 && errno == EEXIST) return;
    if (result == 0) result = chmod(folder.c_str(), mode);
    if (result != 0) ThrowSystemError(folder);
}

// "FILE.damaged-20260131T235959Z", in UTC; with a number behind it if there is one of that second already.
std::string AsideName(const std::string& file) {
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    char text[32] = "";
    std::strftime(text, sizeof text, ".damaged-%Y%m%dT%H%M%SZ", &utc);
    const std::string name = file + text;
    std::string free_name = name;
    for (int i = 2; Exists(free_name) || Exists(free_name + "-wal"); ++i) {
        free_name = name + '-' + std::to_string(i);
    }
    return free_name;
}

// Not for a file that SQLite has open in this process: closing it here would drop SQLite's locks on it.
bool Sync(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool is_done = fsync(descriptor) == 0;
    const int error = errno;
    close(descriptor);
    errno = error;
    return is_done;
}

bool RenameIfThere(const std::string& from, const std::string& to) {
    return rename(from.c_str(), to.c_str()) == 0 || errno == ENOENT;
}

}  // namespace

std::optional<FileState> StateOf(const std::string& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) == 0) {
        return FileState{{status.st_dev, status.st_ino},
                         S_ISREG(status.st_mode),
                         int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec};
    }
    if (errno == ENOENT) return std::nullopt;
    ThrowSystemError(file);
}

std::string Resolve(const std::string& path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    std::filesystem::path file = path;
    // The last name first: what a link leads to need not be there.
    for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(file, error); ++i) {
        const std::filesystem::path target = std::filesystem::read_symlink(file, error);
        if (error) return path;
        file = file.parent_path() / target;
    }
    const std::filesystem::path folder = std::filesystem::canonical(file.parent_path(), error);
    return error ? file.native() : (folder / file.filename()).native();
}

bool HasEmptyLog(const std::string& file) {
    return std::ranges::all_of(kLogs, [&](const char* log) {
        struct stat status {};
        return stat((file + log).c_str(), &status) == 0 ? status.st_size == 0 : errno == ENOENT;
    });
}

void MakeFoldersOf(const StorePlace& place) {
    MakeFolder(FolderOf(place.file), place.folder_mode);
}

void MakeEmptyFile(const std::string& file, mode_t mode) {
    RemoveFile(file);
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0) ThrowSystemError(file);
    const bool is_done = fchmod(descriptor, mode) == 0;
    const int error = errno;
    close(descriptor);
    errno = error;
    if (!is_done) ThrowSystemError(file);
}

void RemoveFile(const std::string& file) {
    for (const char* const suffix : kBeside) unlink((file + suffix).c_str());
    unlink(file.c_str());
}

void MoveIntoPlace(const std::string& file, const std::string& target) {
    if (!Sync(file) || rename(file.c_str(), target.c_str()) != 0) ThrowSystemError(target);
    // Whether a folder can be synchronised depends on the file system; the file is in place in any case.
    Sync(FolderOf(target));
}

std::optional<std::string> SetAside(const std::string& file) {
    const std::string aside = AsideName(file);
    // The file goes last: whatever would still lie beside a new one would be taken for its own.
    for (const char* const suffix : kBeside) {
        if (!RenameIfThere(file + suffix, aside + suffix)) return std::nullopt;
    }
    if (!RenameIfThere(file, aside)) return std::nullopt;
    return aside;
}

StoreLock::StoreLock(const std::string& file, std::chrono::milliseconds patience)
    : m_path(file + ".lock"),
      // For its owner alone, so that nobody else can hold everybody up.
      m_descriptor(open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)),
      m_error(errno) {
    if (!IsHeld()) return;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        m_error = errno;
        const bool is_taken = m_error == EWOULDBLOCK || m_error == EINTR;
        if (is_taken && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            continue;
        }
        close(m_descriptor);
        m_descriptor = -1;
        if (is_taken) throw StoreError(StoreFault::kBusy, m_path + ": held by others");
        return;
    }
}

StoreLock::~StoreLock() {
    if (IsHeld()) close(m_descriptor);
}

void StoreLock::MustBeHeld() const {
    if (IsHeld()) return;
    errno = m_error;
    ThrowSystemError(m_path);
}

}  // namespace hx
