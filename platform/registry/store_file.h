// One registry store on disk, for all threads of this process and beside other processes: opened at the first
// use, opened anew when it was replaced, made when something is to be written and there is none, set aside
// when it is damaged. A store that cannot be used for another reason is left alone, and asked again at the
// next use.
#pragma once

#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/registry/registry.h"
#include "platform/registry/registry_report.h"
#include "platform/registry/sqlite.h"
#include "platform/registry/store_error.h"
#include "platform/registry/store_files.h"
#include "platform/registry/store_tables.h"

namespace hx {

// What is going to be done with a store, and so what is required of it. Without a store the first two end
// with kNotFound; without the right to write the last two end with kAccessDenied.
enum class StoreUse {
    kRead,
    kChange,
    kMake,  // change it, or make it if there is none
};

class StoreFile {
public:
    // `roots`: the names of the root keys of a new store.
    StoreFile(StorePlace place, std::vector<std::string> roots, std::chrono::milliseconds patience);
    StoreFile(const StoreFile&) = delete;
    StoreFile& operator=(const StoreFile&) = delete;
    ~StoreFile();

    // The result of action(StoreTables&), or why the tables are not to be had. The action may run several
    // times, each time on another file: so it must leave everything else alone until it succeeds. Throws
    // std::bad_alloc.
    template <class Action>
    RegistryResult Use(StoreUse use, Action action) {
        const RegistryResult result = UseLocked(use, action);
        DeliverRegistryReports();
        return result;
    }

    // Equal as long as the store is open, is the one that the path leads to, and nobody has changed it. See
    // IRegistry::Stamp.
    std::optional<RegistryStamp> Stamp();

private:
    // More than any sequence of replaced stores; with the pauses between them some seconds.
    static constexpr int kMostAttempts = 200;

    template <class Action>
    RegistryResult UseLocked(StoreUse use, Action& action) {
        const std::lock_guard guard(m_mutex);
        for (int i = 0; i < kMostAttempts; ++i) {
            try {
                if (const RegistryResult refusal = GetReady(use); refusal != RegistryResult::kDone)
                    return refusal;
                const RegistryResult result = action(*m_tables);
                // What was done to a file that has lost its name meanwhile was done to none.
                if (IsCurrent()) return result;
                Close();
            } catch (const StoreError& error) {
                const std::optional<RegistryResult> result = HandleError(error);
                // What is to be made cannot be missing, but the place for it can.
                if (use == StoreUse::kMake && result == RegistryResult::kNotFound)
                    return RegistryResult::kIoFailed;
                if (result) return *result;
            }
        }
        return RegistryResult::kBusy;
    }

    // kDone with m_tables set, or why there are none for such a use.
    RegistryResult GetReady(StoreUse use);
    void Make(const StoreLock& lock);
    void Open();
    void Connect(SqliteConnection::Mode mode);
    void Close();
    // The state of the file that was opened, while it is the one that the path leads to and, if it is read
    // frozen, nobody has changed it.
    std::optional<FileState> CurrentState() const;
    bool IsCurrent() const { return CurrentState().has_value(); }

    // What the caller is told, or nothing if it is to be tried again.
    std::optional<RegistryResult> HandleError(const StoreError& error);
    std::optional<RegistryResult> Recover(const StoreError& error);
    bool TurnsOutSound();
    void Report(const std::string& set_aside, const std::string& reason) const;

    const StorePlace m_place;
    const std::vector<std::string> m_roots;
    const std::chrono::milliseconds m_patience;

    std::mutex m_mutex;                // of everything below
    std::string m_file;                // where the place really is
    std::optional<FileState> m_state;  // of the file when it was opened
    uint64_t m_source = 0;             // the same for one connection
    std::optional<SqliteConnection> m_connection;
    std::optional<StoreTables> m_tables;
    bool m_may_write = false;
    std::optional<StoreFault> m_why_frozen;  // why the file is read without anything beside it
    std::optional<FileIdentity> m_refused;   // a file that can be neither used nor set aside
};

}  // namespace hx
