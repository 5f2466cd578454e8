#include "platform/registry/sqlite.h"

#include <sqlite3.h>

#include <cerrno>
#include <new>

#include "platform/registry/store_error.h"

namespace hx {
namespace {

StoreFault FaultOf(int code, int system_error) {
    switch (code) {
        case SQLITE_READONLY_RECOVERY:
        case SQLITE_READONLY_CANTLOCK:
        case SQLITE_READONLY_CANTINIT:
            return StoreFault::kUnsettled;
        default:
            break;
    }
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL:
            return StoreFault::kBusy;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return StoreFault::kNoAccess;
        case SQLITE_FULL:
            return StoreFault::kDiskFull;
        case SQLITE_TOOBIG:
            return StoreFault::kTooBig;
        case SQLITE_CANTOPEN:
            return FaultOfSystem(system_error);
        case SQLITE_IOERR:
            return FaultOfSystem(system_error) == StoreFault::kDiskFull ? StoreFault::kDiskFull
                                                                        : StoreFault::kIo;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_FORMAT:
        // Our statements fit our tables, so the tables are not ours.
        case SQLITE_ERROR:
        case SQLITE_SCHEMA:
        case SQLITE_CONSTRAINT:
        case SQLITE_MISMATCH:
            return StoreFault::kDamage;
        default:
            return StoreFault::kIo;
    }
}

// Throws unless what `call` gives is a success, and gives it.
template <class Call>
int Checked(sqlite3* const& database, Call call) {
    // SQLite keeps the system's reason only for some failures, but does nothing that hides it here.
    errno = 0;
    const int code = call();
    const int system_error = errno;
    if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return code;
    // Without a connection there was no memory for one.
    if (code == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM || !database) throw std::bad_alloc();
    throw StoreError(FaultOf(code, system_error), sqlite3_errmsg(database));
}

// A path as part of a URI.
std::string FrozenUri(const std::string& file) {
    std::string uri = "file:";
    for (const char c : file) {
        if (c == '%') {
            uri += "%25";
        } else if (c == '?') {
            uri += "%3f";
        } else if (c == '#') {
            uri += "%23";
        } else {
            uri += c;
        }
    }
    return uri + "?immutable=1";
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& file, Mode mode) {
    const bool is_frozen = mode == Mode::kFrozen;
    const int flags = is_frozen ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE;
    const std::string name = is_frozen ? FrozenUri(file) : file;
    sqlite3* database = nullptr;
    Checked(database, [&] {
        const int code = sqlite3_open_v2(name.c_str(), &database,
                                         flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
        m_database.reset(database);
        return code;
    });
    // What a file from elsewhere brings along is not executed.
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
}

void SqliteConnection::Close::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

bool SqliteConnection::IsReadOnly() const {
    return sqlite3_db_readonly(m_database.get(), "main") != 0;
}

void SqliteConnection::SetPatience(std::chrono::milliseconds patience) {
    sqlite3_busy_timeout(m_database.get(), static_cast<int>(patience.count()));
}

void SqliteConnection::KeepFilesBeside() {
    int keep = 1;
    sqlite3_file_control(m_database.get(), "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
}

void SqliteConnection::KeepLogAsIs() {
    sqlite3_db_config(m_database.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void SqliteConnection::Execute(const char* sql) {
    sqlite3* const database = m_database.get();
    Checked(database, [&] { return sqlite3_exec(database, sql, nullptr, nullptr, nullptr); });
}

void SqliteConnection::FindLogHead() {
    // The part of the index that its file format calls the first block.
    constexpr int kFirstBlock = 0, kBlockSize = 32768;
    // In another mode, asking for the index would make one.
    if (QueryText("PRAGMA journal_mode") != "wal") return;
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_database.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods || file->pMethods->iVersion < 2) return;
    volatile void* block = nullptr;
    const int code = file->pMethods->xShmMap(file, kFirstBlock, kBlockSize, 0, &block);
    // Who may only read the index shares it nevertheless. By other codes SQLite says that it keeps one of its
    // own, which it makes anew for each transaction.
    if (code == SQLITE_OK || code == SQLITE_READONLY) m_log_head = static_cast<volatile uint64_t*>(block);
}

std::optional<SqliteLogHead> SqliteConnection::LogHead() const {
    if (!m_log_head) return std::nullopt;
    // It lies there twice. A writer fills the second place, then the first; readers go the other way.
    const auto read = [](const volatile uint64_t* from) {
        SqliteLogHead head;
        for (uint64_t& word : head) word = __atomic_load_n(from++, __ATOMIC_ACQUIRE);
        return head;
    };
    const SqliteLogHead head = read(m_log_head);
    if (read(m_log_head + head.size()) != head) return std::nullopt;
    return head;
}

int64_t SqliteConnection::QueryInteger(const char* sql) {
    SqliteStatement statement(*this, sql);
    SqliteRun run(statement);
    return run.Step() ? run.Integer(0) : 0;
}

std::string SqliteConnection::QueryText(const char* sql) {
    SqliteStatement statement(*this, sql);
    SqliteRun run(statement);
    return run.Step() ? std::string(run.Bytes(0)) : std::string();
}

SqliteStatement::SqliteStatement(SqliteConnection& connection, const char* sql) {
    sqlite3* const database = connection.m_database.get();
    Checked(database, [&] {
        sqlite3_stmt* statement = nullptr;
        const int code =
            sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
        m_statement.reset(statement);
        return code;
    });
}

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteRun::~SqliteRun() {
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

bool SqliteRun::Step() {
    return Checked(sqlite3_db_handle(m_statement), [&] { return sqlite3_step(m_statement); }) == SQLITE_ROW;
}

int64_t SqliteRun::Finish() {
    while (Step()) continue;
    return sqlite3_changes64(sqlite3_db_handle(m_statement));
}

bool SqliteRun::IsInteger(int column) const {
    return sqlite3_column_type(m_statement, column) == SQLITE_INTEGER;
}

int64_t SqliteRun::Integer(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

std::string_view SqliteRun::Bytes(int column) const {
    const void* const bytes = sqlite3_column_blob(m_statement, column);
    const int size = sqlite3_column_bytes(m_statement, column);
    if (bytes) return {static_cast<const char*>(bytes), static_cast<size_t>(size)};
    // Null stands for no bytes, and for no memory to read them into.
    sqlite3* const database = sqlite3_db_handle(m_statement);
    if (sqlite3_errcode(database) == SQLITE_NOMEM) throw std::bad_alloc();
    return {};
}

void SqliteRun::Bind(int index, std::string_view bytes) {
    // A null pointer would bind NULL.
    const char* const start = bytes.data() ? bytes.data() : "";
    Checked(sqlite3_db_handle(m_statement),
            [&] { return sqlite3_bind_blob64(m_statement, index, start, bytes.size(), SQLITE_STATIC); });
}

void SqliteRun::Bind(int index, int64_t number) {
    Checked(sqlite3_db_handle(m_statement), [&] { return sqlite3_bind_int64(m_statement, index, number); });
}

SqliteTransaction::SqliteTransaction(SqliteConnection& connection)
    : m_connection(connection), m_is_inner(sqlite3_get_autocommit(connection.m_database.get()) == 0) {
    // Asks for the right to write at once: later, another one's write would make it impossible.
    m_connection.Execute(m_is_inner ? "SAVEPOINT inner" : "BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
    // Some failures have ended it already, and the outer one with it.
    sqlite3* const database = m_connection.m_database.get();
    if (m_is_done || sqlite3_get_autocommit(database)) return;
    sqlite3_exec(database, m_is_inner ? "ROLLBACK TO inner; RELEASE inner" : "ROLLBACK", nullptr, nullptr,
                 nullptr);
}

void SqliteTransaction::Commit() {
    m_connection.Execute(m_is_inner ? "RELEASE inner" : "COMMIT");
    m_is_done = true;
}

}  // namespace hx
