#include "platform/system/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include "platform/system/descriptor.h"
#include "platform/system/sleep.h"

namespace hx {
namespace {

constexpr uint32_t kRetryMs = 2;
constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;

// Another user's file can be locked as well by those who may only read it.
int OpenLockFile(const std::filesystem::path& path) {
    const int file = Retry([&] { return open(path.c_str(), O_RDWR | O_CREAT | kFlags, 0666); });
    if (file >= 0 || (errno != EACCES && errno != EPERM)) return file;
    const int refusal = errno;
    const int readable = Retry([&] { return open(path.c_str(), O_RDONLY | kFlags); });
    if (readable < 0) errno = refusal;
    return readable;
}

// The lock belongs to what was opened, not to the process: other openings are shut out, wherever they are.
std::error_code LockWithin(int descriptor, std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (Retry([&] { return flock(descriptor, LOCK_EX | LOCK_NB); }) != 0) {
        if (errno != EWOULDBLOCK) return LastError();
        if (std::chrono::steady_clock::now() >= deadline) return std::make_error_code(std::errc::timed_out);
        SleepMilliseconds(kRetryMs);
    }
    return {};
}

}  // namespace

FileLock::FileLock(const std::filesystem::path& path, std::chrono::milliseconds patience)
    : m_descriptor(OpenLockFile(path)),
      m_error{m_descriptor >= 0 ? LockWithin(m_descriptor, patience) : LastError(), path} {}

FileLock::~FileLock() {
    if (m_descriptor >= 0) close(m_descriptor);
}

}  // namespace hx
