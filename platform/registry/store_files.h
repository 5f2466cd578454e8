// The files of a registry store: the database, and beside it those that SQLite and this folder keep ("-wal",
// "-shm", "-journal", ".lock"). Who may see them, which one it is, and how a damaged one gets out of the way.
// Any thread; throws std::bad_alloc only, unless something else is said.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace hx {

// Where a store lies and who may read it; what is made for it gets exactly these permissions.
struct StorePlace {
    std::string file;  // absolute path
    mode_t file_mode = 0600;
    mode_t folder_mode = 0700;
};

// Tells one file from another that has its name later.
struct FileIdentity {
    uint64_t device = 0;
    uint64_t number = 0;

    bool operator==(const FileIdentity&) const = default;
};
struct FileState {
    FileIdentity identity;
    bool is_regular = false;
    int64_t written_ns = 0;  // when it was written to last
};
// Nothing if there is no such file. Throws StoreError if the system does not say.
std::optional<FileState> StateOf(const std::string& file);

// The file that a path leads to through symbolic links; it need not be there yet.
std::string Resolve(const std::string& path);

// True unless what SQLite keeps beside the file holds something that the file may lack.
bool HasEmptyLog(const std::string& file);

// Makes the missing ones of the folders that the file lies in. Throws StoreError.
void MakeFoldersOf(const StorePlace& place);

// Makes an empty file, for SQLite to fill; one that a dead process left behind goes first. Throws StoreError.
void MakeEmptyFile(const std::string& file, mode_t mode);
// With what SQLite keeps beside it.
void RemoveFile(const std::string& file);

// The file goes to disk and takes the place of `target`, which is not there. Throws StoreError.
void MoveIntoPlace(const std::string& file, const std::string& target);

// Renames the file and what SQLite keeps beside it to a name that tells the time; the file may also be
// missing. The new name of the file, or nothing if it could not be renamed.
std::optional<std::string> SetAside(const std::string& file);

// Excludes other processes, and other stores of this one, from opening, making and setting aside the same
// store: they would take the files of the one for those of the other.
class StoreLock {
public:
    // Waits for others; throws StoreError if that takes longer than `patience`.
    StoreLock(const std::string& file, std::chrono::milliseconds patience);
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;
    ~StoreLock();

    // Not for a user who may not write beside the store. Such a one can neither make nor move it.
    bool IsHeld() const { return m_descriptor >= 0; }
    // Throws StoreError, with the reason, unless it is held.
    void MustBeHeld() const;

private:
    std::string m_path;
    int m_descriptor = -1;
    int m_error = 0;  // why it is not held
};

}  // namespace hx
