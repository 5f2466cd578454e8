#include "platform/registry/store_file.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/system/utf8.h"

namespace hx {
namespace {

// Between two looks at a store that another process is about to put in order.
constexpr std::chrono::milliseconds kPause{10};

constexpr char kSettings[] =
    "PRAGMA synchronous=NORMAL;"  // no write is lost with the process, and none is half there without power
    "PRAGMA cell_size_check=ON;"
    "PRAGMA temp_store=MEMORY;"
    "PRAGMA journal_size_limit=4194304";

std::wstring WidePath(const std::string& path) {
    std::optional<std::wstring> text = FromUtf8(path);
    if (!text) text.emplace(path.begin(), path.end());
    return *text;
}

// SQLite needs the two files beside the database even for reading. Who cannot make them may still read a
// database that nobody has open, if everything is in it.
bool NeedsFilesBeside(StoreFault fault) {
    return fault == StoreFault::kNoAccess || fault == StoreFault::kDiskFull ||
           fault == StoreFault::kUnsettled;
}

bool MayWrite(SqliteConnection& connection) {
    if (connection.IsReadOnly()) return false;
    try {
        SqliteTransaction transaction(connection);
    } catch (const StoreError& error) {
        // Anything else is for the write itself to meet.
        return error.Fault() != StoreFault::kNoAccess && error.Fault() != StoreFault::kUnsettled;
    }
    return true;
}

}  // namespace

StoreFile::StoreFile(StorePlace place, std::vector<std::string> roots, std::chrono::milliseconds patience)
    : m_place(std::move(place)), m_roots(std::move(roots)), m_patience(patience) {}

StoreFile::~StoreFile() = default;

RegistryResult StoreFile::GetReady(StoreUse use) {
    const bool is_write = use != StoreUse::kRead;
    // Perhaps the reason for not writing has gone.
    if (m_tables && is_write && m_why_frozen) Close();
    if (!m_tables) {
        const std::optional<FileState> state = StateOf(m_place.file);
        if (!state && use != StoreUse::kMake) return RegistryResult::kNotFound;
        if (state && m_refused == state->identity) return RegistryResult::kDamaged;
        m_refused.reset();
        if (!state) MakeFoldersOf(m_place);
        m_file = Resolve(m_place.file);
        const StoreLock lock(m_file, m_patience);
        if (!StateOf(m_file)) Make(lock);
        Open();
    }
    if (!is_write || m_may_write) return RegistryResult::kDone;
    return m_why_frozen ? ResultOf(*m_why_frozen) : RegistryResult::kAccessDenied;
}

// Under another name first, so that whatever has the right name is whole.
void StoreFile::Make(const StoreLock& lock) {
    lock.MustBeHeld();
    const std::string fresh = m_file + ".new";
    MakeEmptyFile(fresh, m_place.file_mode);
    try {
        SqliteConnection connection(fresh, SqliteConnection::Mode::kNormal);
        // It reaches the disk when it is moved.
        connection.Execute("PRAGMA synchronous=OFF");
        connection.Execute("PRAGMA journal_mode=WAL");
        CreateTables(connection, m_roots);
    } catch (...) {
        RemoveFile(fresh);
        throw;
    }
    // The log of a store that somebody has taken away would be taken for the new one's.
    if (!HasEmptyLog(m_file) && !SetAside(m_file)) ThrowSystemError(m_file);
    MoveIntoPlace(fresh, m_file);
}

void StoreFile::Open() {
    m_state = StateOf(m_file);
    if (!m_state) throw StoreError(StoreFault::kMissing, "gone again");
    if (!m_state->is_regular) throw StoreError(StoreFault::kDamage, "is not a file");
    try {
        Connect(SqliteConnection::Mode::kNormal);
    } catch (const StoreError& error) {
        // Where the file itself is still there, one beside it is missing, and cannot be made.
        const bool lacks_one = error.Fault() == StoreFault::kMissing && StateOf(m_file);
        const StoreFault fault = lacks_one ? StoreFault::kNoAccess : error.Fault();
        if (lacks_one && !HasEmptyLog(m_file)) throw StoreError(fault, error.what());
        if (!NeedsFilesBeside(fault) || !HasEmptyLog(m_file)) throw;
        Connect(SqliteConnection::Mode::kFrozen);
        m_why_frozen = fault;
    }
}

void StoreFile::Connect(SqliteConnection::Mode mode) {
    m_tables.reset();
    m_connection.emplace(m_file, mode);
    m_connection->KeepFilesBeside();
    m_connection->SetPatience(m_patience);
    m_connection->Execute(kSettings);
    ExamineTables(*m_connection);
    m_tables.emplace(*m_connection);
    m_source = NewRegistrySource();
    m_connection->FindLogHead();
    m_connection->SetPatience(std::chrono::milliseconds(0));
    m_may_write = MayWrite(*m_connection);
    m_connection->SetPatience(m_patience);
}

void StoreFile::Close() {
    m_tables.reset();
    m_connection.reset();
    m_state.reset();
    m_why_frozen.reset();
}

std::optional<FileState> StoreFile::CurrentState() const {
    try {
        const std::optional<FileState> now = StateOf(m_place.file);
        if (!now || !m_state || now->identity != m_state->identity) return std::nullopt;
        const bool is_same = !m_why_frozen || (now->written_ns == m_state->written_ns && HasEmptyLog(m_file));
        return is_same ? now : std::nullopt;
    } catch (const StoreError&) {
        return std::nullopt;
    }
}

// Equal stamps are from one connection. It holds its file open, so no other file has got its identity; and
// each stamp was given while the path led there, as each operation ends. Every commit of any process changes
// the log's head before it is done, and SQLite itself would take its pages for current by an equal one. So
// between two equal stamps nobody has committed.
// Who may not write and is alone has no share in the head. To such a one, a commit is in the log until it is
// in the file and the file's time tells of it. Therefore the log is looked at first.
std::optional<RegistryStamp> StoreFile::Stamp() {
    const std::lock_guard guard(m_mutex);
    if (!m_tables) return std::nullopt;
    try {
        RegistryStamp stamp;
        stamp.source = m_source;
        const bool is_alone = !m_connection->HasLogHead() && HasEmptyLog(m_file);
        if (!is_alone) {
            // Somebody who writes has come meanwhile.
            if (!m_connection->HasLogHead() && !m_why_frozen) m_connection->FindLogHead();
            const std::optional<SqliteLogHead> head = m_connection->LogHead();
            if (!head) return std::nullopt;
            static_assert(std::tuple_size_v<SqliteLogHead> < std::tuple_size_v<decltype(stamp.state)>);
            std::ranges::copy(*head, stamp.state.begin());
        }
        const std::optional<FileState> now = CurrentState();
        if (!now) return std::nullopt;
        // Somebody who writes over the file, past SQLite, may have damaged it.
        stamp.state.back() = static_cast<uint64_t>(now->written_ns);
        return stamp;
    } catch (const StoreError&) {
        return std::nullopt;
    }
}

std::optional<RegistryResult> StoreFile::HandleError(const StoreError& error) {
    // What went wrong with a file that was replaced meanwhile says nothing about the other.
    if (m_state && !IsCurrent()) {
        Close();
        return std::nullopt;
    }
    switch (error.Fault()) {
        case StoreFault::kDamage:
        case StoreFault::kNewer:
            try {
                return Recover(error);
            } catch (const StoreError& obstacle) {
                Close();
                return ResultOf(obstacle.Fault());
            }
        case StoreFault::kUnsettled:
            Close();
            std::this_thread::sleep_for(kPause);
            return std::nullopt;
        default:
            if (!m_tables || error.Fault() == StoreFault::kIo) Close();
            return ResultOf(error.Fault());
    }
}

std::optional<RegistryResult> StoreFile::Recover(const StoreError& error) {
    const bool may_move =
        error.Fault() == StoreFault::kDamage && !(m_connection && m_connection->IsReadOnly());
    // The damaged file is kept as it was found. It is held open until it is known to be still the one that
    // another process would set aside: thus no other file can have its identity.
    if (m_connection) m_connection->KeepLogAsIs();
    const StoreLock lock(m_file, m_patience);
    if (!IsCurrent()) {
        Close();
        return std::nullopt;
    }
    const FileIdentity identity = m_state->identity;
    Close();
    if (error.Fault() == StoreFault::kDamage && TurnsOutSound()) return RegistryResult::kDamaged;
    std::optional<std::string> aside;
    if (may_move && lock.IsHeld()) aside = SetAside(m_file);
    Report(aside.value_or(""), error.what());
    if (!aside) {
        m_refused = identity;
        return RegistryResult::kDamaged;
    }
    Make(lock);
    return std::nullopt;
}

// Damage that a fresh look does not find was only seen, as when somebody copies another store over an open
// one.
bool StoreFile::TurnsOutSound() {
    try {
        Open();
        if (m_connection->QueryText("PRAGMA quick_check(1)") == "ok") return true;
    } catch (const StoreError& error) {
        if (error.Fault() != StoreFault::kDamage) throw;
    }
    if (m_connection) m_connection->KeepLogAsIs();
    Close();
    return false;
}

void StoreFile::Report(const std::string& set_aside, const std::string& reason) const {
    AddRegistryReport({WidePath(m_file), WidePath(set_aside), WidePath(reason)});
}

}  // namespace hx
