// SQLite behind owners: a connection, its prepared statements, one run of a statement, a transaction.
// Whatever SQLite refuses is thrown as StoreError; want of memory as std::bad_alloc. Used by one thread at a
// time.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace hx {

// What SQLite tells its readers by, in memory that all processes share, that somebody has committed: the head
// of the index of the write-ahead log. A connection whose last transaction saw this very head goes on using
// the pages that it has read; so may whoever keeps what was read.
using SqliteLogHead = std::array<uint64_t, 6>;

class SqliteConnection {
public:
    enum class Mode {
        kNormal,  // for writing, where this user may, else for reading
        kFrozen,  // for reading a file that nobody changes; needs nothing but the file itself
    };

    // `file` is an absolute path and is never made.
    SqliteConnection(const std::string& file, Mode mode);

    bool IsReadOnly() const;
    // How long to wait for others; not at all before this is called.
    void SetPatience(std::chrono::milliseconds patience);
    // The two files that SQLite keeps beside the database are to stay when the last one closes it.
    void KeepFilesBeside();
    // What the log beside the file holds is not to be brought into the file when this is closed.
    void KeepLogAsIs();

    void Execute(const char* sql);
    // Looks for the log's head, when something was read before. There is none for who may only read and is
    // alone: SQLite cannot tell then whether what it finds is true. Once found it stays.
    void FindLogHead();
    bool HasLogHead() const { return m_log_head != nullptr; }
    // The head now; nothing if it was not found, or somebody is writing it at this moment.
    std::optional<SqliteLogHead> LogHead() const;

    // The first column of the first row of the answer.
    int64_t QueryInteger(const char* sql);
    std::string QueryText(const char* sql);

private:
    friend class SqliteStatement;
    friend class SqliteRun;
    friend class SqliteTransaction;

    struct Close {
        void operator()(sqlite3* database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
    // Stays where it is until the connection is closed.
    const volatile uint64_t* m_log_head = nullptr;
};

class SqliteStatement {
public:
    // `connection` must outlive this.
    SqliteStatement(SqliteConnection& connection, const char* sql);

private:
    friend class SqliteRun;

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

// One execution of a statement, with a value for each "?": a BLOB or an integer. The bytes given must outlive
// it.
class SqliteRun {
public:
    template <class... Values>
    explicit SqliteRun(SqliteStatement& statement, const Values&... values)
        : m_statement(statement.m_statement.get()) {
        [[maybe_unused]] int index = 0;
        (Bind(++index, values), ...);
    }
    SqliteRun(const SqliteRun&) = delete;
    SqliteRun& operator=(const SqliteRun&) = delete;
    ~SqliteRun();

    // Goes to the next row of the answer; false behind the last one, when everything is written.
    bool Step();
    // Steps to the end, and tells how many rows of a table that wrote or deleted.
    int64_t Finish();

    bool IsInteger(int column) const;
    int64_t Integer(int column) const;
    // Valid until the next step.
    std::string_view Bytes(int column) const;

private:
    void Bind(int index, std::string_view bytes);
    void Bind(int index, int64_t number);

    sqlite3_stmt* m_statement;
};

// Everything between its making and Commit happens, or nothing. One within another happens with that one.
class SqliteTransaction {
public:
    explicit SqliteTransaction(SqliteConnection& connection);
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;
    ~SqliteTransaction();

    void Commit();

private:
    SqliteConnection& m_connection;
    const bool m_is_inner;
    bool m_is_done = false;
};

}  // namespace hx
