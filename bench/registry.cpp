// The registry store beside SQLite alone.
#include <sqlite3.h>

#include <filesystem>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/temporary_store.h"
#include "platform/registry/registry.h"

namespace hx::bench {
namespace {

constexpr int kRuns = 1000;
constexpr RegistryRoot kRoot = RegistryRoot::kLocalMachine;
constexpr wchar_t kKey[] = L"Software\\Orvel\\HXAPI4\\Configuration";

void Set(IRegistry& registry, const std::wstring& name, uint32_t value) {
    Expect(registry.SetValue(kRoot, kKey, name, value) == RegistryResult::kDone, "HX", "set");
}

void Query(IRegistry& registry) {
    RegistryValue value;
    Expect(registry.QueryValue(kRoot, kKey, L"Value77", value) == RegistryResult::kDone, "HX", "query");
}

// The same statements on the same file, prepared once.
class BareSqlite {
public:
    explicit BareSqlite(const std::filesystem::path& file) {
        Expect(sqlite3_open(file.c_str(), &m_database) == SQLITE_OK, "SQLite", "open");
        sqlite3_exec(m_database, "PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr);
        m_query = Prepare(R"(SELECT "data" FROM "values" WHERE "key" = ?1 AND "name" = ?2)");
        m_set = Prepare(R"(UPDATE "values" SET "data" = ?3 WHERE "key" = ?1 AND "name" = ?2)");
    }
    BareSqlite(const BareSqlite&) = delete;
    BareSqlite& operator=(const BareSqlite&) = delete;
    ~BareSqlite() {
        sqlite3_finalize(m_query);
        sqlite3_finalize(m_set);
        sqlite3_close(m_database);
    }

    void Query() {
        BindName(m_query);
        Expect(sqlite3_step(m_query) == SQLITE_ROW, "SQLite", "query");
        sqlite3_reset(m_query);
    }
    void Set(int value) {
        BindName(m_set);
        sqlite3_bind_int(m_set, 3, value);
        Expect(sqlite3_step(m_set) == SQLITE_DONE, "SQLite", "set");
        sqlite3_reset(m_set);
    }

private:
    sqlite3_stmt* Prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        Expect(sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr) == SQLITE_OK, "SQLite", sql);
        return statement;
    }
    static void BindName(sqlite3_stmt* statement) {
        constexpr std::string_view kPath = "HKLM\\software\\orvel\\hxapi4\\configuration\\";
        constexpr std::string_view kName = "value77";
        sqlite3_bind_blob(statement, 1, kPath.data(), static_cast<int>(kPath.size()), SQLITE_STATIC);
        sqlite3_bind_blob(statement, 2, kName.data(), static_cast<int>(kName.size()), SQLITE_STATIC);
    }

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_query = nullptr;
    sqlite3_stmt* m_set = nullptr;
};

template <class Body>
std::function<void()> Times(Body body) {
    return [body] {
        for (int i = 0; i < kRuns; ++i) body(i);
    };
}

void AddRow(Table& table, const char* operation, const std::vector<double>& medians) {
    table.Add({operation, FormatTime(medians[0] / kRuns), FormatTime(medians[1] / kRuns),
               FormatNumber(medians[0] / medians[1], 2)});
}

}  // namespace

void CompareRegistry(Benchmark& benchmark) {
    const TemporaryStore store;
    IRegistry& registry = *store.registry;
    Expect(registry.CreateKey(kRoot, kKey) == RegistryResult::kDone, "HX", "create");
    for (uint32_t i = 0; i < 200; ++i) Set(registry, L"Value" + std::to_wstring(i), i);
    BareSqlite bare(store.File());
    const auto nothing = [] {};
    Table table("Registry",
                "One operation on a value four keys deep, among 200, in the store on disk; beside it the "
                "same statement of SQLite, prepared, with all names ready and no look at whether the file "
                "is still the same.",
                {"Operation", "HX takes", "SQLite takes", "HX / SQLite"});
    AddRow(table, "query",
           Compete({{"HX", nothing, Times([&](int) { Query(registry); })},
                    {"SQLite", nothing, Times([&](int) { bare.Query(); })}},
                   benchmark.HowMuch()));
    AddRow(
        table, "set",
        Compete({{"HX", nothing, Times([&](int i) { Set(registry, L"Value77", static_cast<uint32_t>(i)); })},
                 {"SQLite", nothing, Times([&](int i) { bare.Set(i); })}},
                benchmark.HowMuch()));
    benchmark.report.Add(table.Markdown());
}

}  // namespace hx::bench
