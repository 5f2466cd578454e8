// The tables of a registry store and what is done with them: one row per key, one per value, found by the
// whole path at once. Paths and names are given as they lie there (text_encoding.h): a path is the folded
// names from the root on, each followed by "\". Throws StoreError and std::bad_alloc. Used by one thread at a
// time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry/registry.h"
#include "platform/registry/sqlite.h"

namespace hx {

// A key: the path of the one above it, its folded name, its name as shown. A root has an empty path above it.
struct StoredKey {
    std::string above;
    std::string name;
    std::string shown;

    std::string Path() const { return above + name + '\\'; }
};

// Throws StoreError unless the tables are those that this version makes.
void ExamineTables(SqliteConnection& connection);

// Makes the tables in an empty database, with the root keys of those names.
void CreateTables(SqliteConnection& connection, const std::vector<std::string>& roots);

class StoreTables {
public:
    // Prepares all statements. `connection` must outlive this.
    explicit StoreTables(SqliteConnection& connection);

    // What `changes` does with these tables happens all at once, or not at all if it throws.
    template <class Changes>
    void AtOnce(Changes changes) {
        SqliteTransaction transaction(m_connection);
        changes();
        transaction.Commit();
    }

    bool HasKey(const StoredKey& key);
    // Adds those of the keys that are missing, all or none.
    void AddKeys(const std::vector<StoredKey>& keys);
    // With all below it; false if it is not there.
    bool DeleteKey(const StoredKey& key);
    // The names as shown, in the order of the folded ones.
    RegistryResult ListKeys(const StoredKey& key, std::vector<std::wstring>& names);

    // kDamaged for bytes that no value gives. `value` is unchanged unless this is kDone.
    RegistryResult QueryValue(std::string_view path, std::string_view name, RegistryValue& value);
    // False if the key is not there.
    bool SetValue(const StoredKey& key, std::string_view name, std::string_view shown,
                  const RegistryValue& value);
    bool DeleteValue(std::string_view path, std::string_view name);
    RegistryResult ListValues(const StoredKey& key, std::vector<NamedRegistryValue>& values);

private:
    SqliteConnection& m_connection;
    SqliteStatement m_has_key;
    SqliteStatement m_add_key;
    SqliteStatement m_delete_key;
    SqliteStatement m_delete_keys_below;
    SqliteStatement m_delete_values_below;
    SqliteStatement m_list_keys;
    SqliteStatement m_query_value;
    SqliteStatement m_set_value;
    SqliteStatement m_delete_value;
    SqliteStatement m_list_values;
};

}  // namespace hx
