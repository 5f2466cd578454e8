// Keeps what several processes do with one file in turn: whoever does it holds the lock of an agreed file
// meanwhile, which is made for that, stays empty and stays there. Usable on any thread; two locks of one
// process exclude each other, too. Failures come back as values; only std::bad_alloc is thrown.
#pragma once

#include <chrono>
#include <filesystem>

#include "platform/system/files.h"

namespace hx {

// Held until it is destroyed, or the process ends, however it ends.
class HX_PLATFORM_API FileLock {
public:
    // Waits for others, but no longer than `patience`. The folder must exist. Not while this thread holds the
    // same lock already: it would wait for itself.
    FileLock(const std::filesystem::path& path, std::chrono::milliseconds patience);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    bool IsHeld() const { return !m_error; }
    // Why it is not held; std::errc::timed_out if others held it all the time.
    const FileError& Error() const { return m_error; }

private:
    int m_descriptor;
    FileError m_error;
};

}  // namespace hx
