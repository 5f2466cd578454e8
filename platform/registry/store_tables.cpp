#include "platform/registry/store_tables.h"

#include <optional>

#include "platform/registry/store_error.h"
#include "platform/registry/text_encoding.h"

namespace hx {
namespace {

// "HXRG", in the header of every store.
constexpr int64_t kApplicationId = 0x48585247;
// Counts up with every change of the tables.
constexpr int64_t kVersion = 1;

// A value is REG_DWORD if its data is an integer, REG_SZ if it is a BLOB.
constexpr char kTables[] = R"(
    CREATE TABLE "keys"(
        "above" BLOB NOT NULL, "name" BLOB NOT NULL, "shown" BLOB NOT NULL,
        PRIMARY KEY("above", "name")) WITHOUT ROWID;
    CREATE TABLE "values"(
        "key" BLOB NOT NULL, "name" BLOB NOT NULL, "shown" BLOB NOT NULL, "data" NOT NULL,
        PRIMARY KEY("key", "name")) WITHOUT ROWID;
)";

constexpr char kAddKey[] = R"(INSERT OR IGNORE INTO "keys" VALUES(?1, ?2, ?3))";

// The first path behind all that begin with `path`: the last byte of every path is "\".
std::string BehindPath(std::string path) {
    path.back() = '\\' + 1;
    return path;
}

std::optional<RegistryValue> ReadData(const SqliteRun& run, int column) {
    if (run.IsInteger(column)) {
        const int64_t number = run.Integer(column);
        if (number < 0 || number > UINT32_MAX) return std::nullopt;
        return static_cast<uint32_t>(number);
    }
    return DecodeText(run.Bytes(column));
}

}  // namespace

void ExamineTables(SqliteConnection& connection) {
    const bool is_ours = connection.QueryInteger("PRAGMA application_id") == kApplicationId;
    const int64_t version = is_ours ? connection.QueryInteger("PRAGMA user_version") : 0;
    if (version == kVersion) return;
    if (version < kVersion) throw StoreError(StoreFault::kDamage, "holds no registry");
    throw StoreError(StoreFault::kNewer, "made by a later version: " + std::to_string(version));
}

void CreateTables(SqliteConnection& connection, const std::vector<std::string>& roots) {
    SqliteTransaction transaction(connection);
    connection.Execute(("PRAGMA application_id=" + std::to_string(kApplicationId)).c_str());
    connection.Execute(("PRAGMA user_version=" + std::to_string(kVersion)).c_str());
    connection.Execute(kTables);
    SqliteStatement add_key(connection, kAddKey);
    for (const std::string& root : roots) SqliteRun(add_key, std::string_view(), root, root).Finish();
    transaction.Commit();
}

StoreTables::StoreTables(SqliteConnection& connection)
    : m_connection(connection),
      m_has_key(connection, R"(SELECT 1 FROM "keys" WHERE "above" = ?1 AND "name" = ?2)"),
      m_add_key(connection, kAddKey),
      m_delete_key(connection, R"(DELETE FROM "keys" WHERE "above" = ?1 AND "name" = ?2)"),
      m_delete_keys_below(connection, R"(DELETE FROM "keys" WHERE "above" >= ?1 AND "above" < ?2)"),
      m_delete_values_below(connection, R"(DELETE FROM "values" WHERE "key" >= ?1 AND "key" < ?2)"),
      m_list_keys(connection, R"(SELECT "shown" FROM "keys" WHERE "above" = ?1 ORDER BY "name")"),
      m_query_value(connection, R"(SELECT "data" FROM "values" WHERE "key" = ?1 AND "name" = ?2)"),
      // One statement, so that it needs no transaction around it.
      m_set_value(connection, R"(
          INSERT INTO "values" SELECT ?1, ?2, ?3, ?4
              WHERE EXISTS(SELECT 1 FROM "keys" WHERE "above" = ?5 AND "name" = ?6)
          ON CONFLICT DO UPDATE SET "data" = "excluded"."data")"),
      m_delete_value(connection, R"(DELETE FROM "values" WHERE "key" = ?1 AND "name" = ?2)"),
      m_list_values(connection, R"(SELECT "shown", "data" FROM "values" WHERE "key" = ?1 ORDER BY "name")") {}

bool StoreTables::HasKey(const StoredKey& key) {
    return SqliteRun(m_has_key, key.above, key.name).Step();
}

void StoreTables::AddKeys(const std::vector<StoredKey>& keys) {
    SqliteTransaction transaction(m_connection);
    for (const StoredKey& key : keys) SqliteRun(m_add_key, key.above, key.name, key.shown).Finish();
    transaction.Commit();
}

bool StoreTables::DeleteKey(const StoredKey& key) {
    const std::string path = key.Path();
    const std::string behind = BehindPath(path);
    SqliteTransaction transaction(m_connection);
    const bool was_there = SqliteRun(m_delete_key, key.above, key.name).Finish() != 0;
    if (!was_there) return false;
    SqliteRun(m_delete_keys_below, path, behind).Finish();
    SqliteRun(m_delete_values_below, path, behind).Finish();
    transaction.Commit();
    return true;
}

RegistryResult StoreTables::ListKeys(const StoredKey& key, std::vector<std::wstring>& names) {
    const std::string path = key.Path();
    std::vector<std::wstring> found;
    for (SqliteRun run(m_list_keys, path); run.Step();) {
        std::optional<std::wstring> name = DecodeText(run.Bytes(0));
        if (!name) return RegistryResult::kDamaged;
        found.push_back(std::move(*name));
    }
    if (found.empty() && !HasKey(key)) return RegistryResult::kNotFound;
    names = std::move(found);
    return RegistryResult::kDone;
}

RegistryResult StoreTables::QueryValue(std::string_view path, std::string_view name, RegistryValue& value) {
    SqliteRun run(m_query_value, path, name);
    if (!run.Step()) return RegistryResult::kNotFound;
    std::optional<RegistryValue> data = ReadData(run, 0);
    if (!data) return RegistryResult::kDamaged;
    value = std::move(*data);
    return RegistryResult::kDone;
}

bool StoreTables::SetValue(const StoredKey& key, std::string_view name, std::string_view shown,
                           const RegistryValue& value) {
    const std::string path = key.Path();
    if (const uint32_t* const number = std::get_if<uint32_t>(&value)) {
        return SqliteRun(m_set_value, path, name, shown, int64_t{*number}, key.above, key.name).Finish() != 0;
    }
    const std::string text = EncodeText(std::get<std::wstring>(value));
    return SqliteRun(m_set_value, path, name, shown, text, key.above, key.name).Finish() != 0;
}

bool StoreTables::DeleteValue(std::string_view path, std::string_view name) {
    return SqliteRun(m_delete_value, path, name).Finish() != 0;
}

RegistryResult StoreTables::ListValues(const StoredKey& key, std::vector<NamedRegistryValue>& values) {
    const std::string path = key.Path();
    std::vector<NamedRegistryValue> found;
    for (SqliteRun run(m_list_values, path); run.Step();) {
        std::optional<std::wstring> name = DecodeText(run.Bytes(0));
        std::optional<RegistryValue> data = ReadData(run, 1);
        if (!name || !data) return RegistryResult::kDamaged;
        found.push_back({std::move(*name), std::move(*data)});
    }
    if (found.empty() && !HasKey(key)) return RegistryResult::kNotFound;
    values = std::move(found);
    return RegistryResult::kDone;
}

}  // namespace hx
