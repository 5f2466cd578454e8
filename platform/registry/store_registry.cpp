// The registry on disk: paths and names as the tables want them, and the store that each root lies in.
#include <functional>
#include <optional>
#include <utility>

#include "platform/registry/registry.h"
#include "platform/registry/registry_path.h"
#include "platform/registry/store_file.h"
#include "platform/registry/text_encoding.h"

namespace hx {
namespace {

// In the order of RegistryRoot.
constexpr const char* kRootNames[] = {"HKCU", "HKLM", "HKCR"};

bool IsRoot(RegistryRoot root) {
    return static_cast<size_t>(root) < std::size(kRootNames);
}

// The keys of a path, the root's first.
std::vector<StoredKey> KeysOf(RegistryRoot root, const std::vector<std::wstring_view>& names) {
    const std::string root_name = kRootNames[static_cast<size_t>(root)];
    std::vector<StoredKey> keys = {{"", root_name, root_name}};
    keys.reserve(names.size() + 1);
    for (const std::wstring_view name : names) {
        keys.push_back({keys.back().Path(), EncodeFolded(name), EncodeText(name)});
    }
    return keys;
}

// The key alone, with its folded name only.
StoredKey KeyOf(RegistryRoot root, const std::vector<std::wstring_view>& names) {
    StoredKey key;
    key.name = kRootNames[static_cast<size_t>(root)];
    for (const std::wstring_view name : names) {
        key.above += key.name;
        key.above += '\\';
        key.name = EncodeFolded(name);
    }
    return key;
}

RegistryResult DoneIf(bool done) {
    return done ? RegistryResult::kDone : RegistryResult::kNotFound;
}

using TablesAction = std::function<RegistryResult(StoreTables&)>;

// The operations by whatever tables a root has.
class TablesRegistry : public IRegistry {
public:
    RegistryResult OpenKey(RegistryRoot root, std::wstring_view path, RegistryAccess access) override {
        const StoreUse use = access == RegistryAccess::kRead ? StoreUse::kRead : StoreUse::kChange;
        return OnExistingKey(root, path, use, [](StoreTables& tables, const StoredKey& key) {
            return DoneIf(tables.HasKey(key));
        });
    }

    RegistryResult CreateKey(RegistryRoot root, std::wstring_view path) override {
        const std::vector<std::wstring_view> names = SplitRegistryPath(path);
        if (!IsRoot(root) || names.size() > kMaxRegistryDepth) return RegistryResult::kInvalid;
        return Use(root, StoreUse::kMake, [&](StoreTables& tables) {
            // Mostly it is there, which needs no writing.
            if (!tables.HasKey(KeyOf(root, names))) tables.AddKeys(KeysOf(root, names));
            return RegistryResult::kDone;
        });
    }

    RegistryResult DeleteKey(RegistryRoot root, std::wstring_view path) override {
        if (SplitRegistryPath(path).empty()) return RegistryResult::kInvalid;
        return OnKey(root, path, StoreUse::kChange,
                     [](StoreTables& tables, const StoredKey& key) { return DoneIf(tables.DeleteKey(key)); });
    }

    RegistryResult QueryValue(RegistryRoot root, std::wstring_view path, std::wstring_view name,
                              RegistryValue& value) override {
        const std::string folded = EncodeFolded(name);
        return OnKey(root, path, StoreUse::kRead, [&](StoreTables& tables, const StoredKey& key) {
            return tables.QueryValue(key.Path(), folded, value);
        });
    }

    RegistryResult SetValue(RegistryRoot root, std::wstring_view path, std::wstring_view name,
                            const RegistryValue& value) override {
        const std::string folded = EncodeFolded(name);
        const std::string shown = EncodeText(name);
        return OnKey(root, path, StoreUse::kChange, [&](StoreTables& tables, const StoredKey& key) {
            return DoneIf(tables.SetValue(key, folded, shown, value));
        });
    }

    RegistryResult DeleteValue(RegistryRoot root, std::wstring_view path, std::wstring_view name) override {
        const std::string folded = EncodeFolded(name);
        return OnKey(root, path, StoreUse::kChange, [&](StoreTables& tables, const StoredKey& key) {
            return DoneIf(tables.DeleteValue(key.Path(), folded));
        });
    }

    RegistryResult ListKeys(RegistryRoot root, std::wstring_view path,
                            std::vector<std::wstring>& names) override {
        return List(root, path, names, &StoreTables::ListKeys);
    }

    RegistryResult ListValues(RegistryRoot root, std::wstring_view path,
                              std::vector<NamedRegistryValue>& values) override {
        return List(root, path, values, &StoreTables::ListValues);
    }

private:
    // See StoreFile::Use.
    virtual RegistryResult Use(RegistryRoot root, StoreUse use, const TablesAction& action) = 0;

    template <class Action>
    RegistryResult OnKey(RegistryRoot root, std::wstring_view path, StoreUse use, Action action) {
        if (!IsRoot(root)) return RegistryResult::kInvalid;
        const std::vector<std::wstring_view> names = SplitRegistryPath(path);
        const StoredKey key = KeyOf(root, names);
        // A root is always there, so it can be written to before anything else is.
        if (use == StoreUse::kChange && names.empty()) use = StoreUse::kMake;
        return Use(root, use, [&](StoreTables& tables) { return action(tables, key); });
    }

    // While there is no store there is no key, except for the roots.
    template <class Action>
    RegistryResult OnExistingKey(RegistryRoot root, std::wstring_view path, StoreUse use, Action action) {
        const RegistryResult result = OnKey(root, path, use, action);
        const bool is_root = result == RegistryResult::kNotFound && SplitRegistryPath(path).empty();
        return is_root ? RegistryResult::kDone : result;
    }

    template <class T>
    RegistryResult List(RegistryRoot root, std::wstring_view path, std::vector<T>& list,
                        RegistryResult (StoreTables::*read)(const StoredKey&, std::vector<T>&)) {
        std::vector<T> found;
        const RegistryResult result = OnExistingKey(
            root, path, StoreUse::kRead,
            [&](StoreTables& tables, const StoredKey& key) { return (tables.*read)(key, found); });
        if (result == RegistryResult::kDone) list = std::move(found);
        return result;
    }
};

// What a change is given: one store with a transaction begun. It has no stamp, since the state within is
// nobody else's yet.
class ChangingRegistry final : public TablesRegistry {
public:
    ChangingRegistry(RegistryRoot root, StoreTables& tables) : m_root(root), m_tables(tables) {}

    // Throws what the store failed with, if it did: then the change is lost.
    void CheckStore() const {
        if (m_failure) throw StoreError(*m_failure);
    }

private:
    RegistryResult Use(RegistryRoot root, StoreUse, const TablesAction& action) override {
        if (!LieTogether(root, m_root)) return RegistryResult::kInvalid;
        if (m_failure) return ResultOf(m_failure->Fault());
        try {
            return action(m_tables);
        } catch (const StoreError& error) {
            // Too long a text says nothing about the store.
            if (error.Fault() != StoreFault::kTooBig) m_failure = error;
            return ResultOf(error.Fault());
        }
    }

    const RegistryRoot m_root;
    StoreTables& m_tables;
    std::optional<StoreError> m_failure;
};

class StoreRegistry final : public TablesRegistry {
public:
    StoreRegistry(StorePlace machine, StorePlace user, std::chrono::milliseconds patience)
        : m_machine(std::move(machine), {kRootNames[1], kRootNames[2]}, patience),
          m_user(std::move(user), {kRootNames[0]}, patience) {}

    RegistryResult Change(RegistryRoot root, RegistryChange change,
                          const std::function<void(IRegistry&)>& changes) override {
        if (!IsRoot(root)) return RegistryResult::kInvalid;
        const StoreUse use = change == RegistryChange::kMake ? StoreUse::kMake : StoreUse::kChange;
        const RegistryResult result = StoreOf(root).Use(use, [&](StoreTables& tables) {
            tables.AtOnce([&] {
                ChangingRegistry registry(root, tables);
                changes(registry);
                registry.CheckStore();
            });
            return RegistryResult::kDone;
        });
        // Without a store, or the right to write, nothing can be changed; each operation says so itself.
        if (result != RegistryResult::kNotFound && result != RegistryResult::kAccessDenied) return result;
        changes(*this);
        return RegistryResult::kDone;
    }

    std::optional<RegistryStamp> Stamp(RegistryRoot root) override {
        return IsRoot(root) ? StoreOf(root).Stamp() : std::nullopt;
    }

private:
    StoreFile& StoreOf(RegistryRoot root) { return root == RegistryRoot::kCurrentUser ? m_user : m_machine; }

    RegistryResult Use(RegistryRoot root, StoreUse use, const TablesAction& action) override {
        return StoreOf(root).Use(use, std::ref(action));
    }

    StoreFile m_machine;
    StoreFile m_user;
};

}  // namespace

std::shared_ptr<IRegistry> OpenRegistryStore(const std::filesystem::path& machine_file,
                                             const std::filesystem::path& user_file,
                                             std::chrono::milliseconds patience) {
    constexpr mode_t kReadByAll = 0644, kEnteredByAll = 0755, kWrittenByOwner = 0600, kEnteredByOwner = 0700;
    std::error_code error;
    const std::filesystem::path machine = std::filesystem::absolute(machine_file, error);
    const std::filesystem::path user = std::filesystem::absolute(user_file, error);
    const bool share_folder = machine.parent_path() == user.parent_path();
    return std::make_shared<StoreRegistry>(
        StorePlace{machine.native(), kReadByAll, kEnteredByAll},
        StorePlace{user.native(), kWrittenByOwner, share_folder ? kEnteredByAll : kEnteredByOwner}, patience);
}

}  // namespace hx
