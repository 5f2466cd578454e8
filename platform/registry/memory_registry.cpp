#include <map>
#include <mutex>

#include "platform/registry/registry.h"
#include "platform/registry/registry_path.h"
#include "platform/system/case_fold.h"

namespace hx {
namespace {

// Children and values by their names without case.
struct Key {
    std::wstring name;
    std::map<std::wstring, Key> keys;
    std::map<std::wstring, NamedRegistryValue> values;
};

class MemoryRegistry final : public IRegistry {
public:
    RegistryResult OpenKey(RegistryRoot root, std::wstring_view path, RegistryAccess) override {
        return WithKey(root, path, [](Key&) { return RegistryResult::kDone; });
    }

    RegistryResult CreateKey(RegistryRoot root, std::wstring_view path) override {
        const std::lock_guard guard(m_mutex);
        ++m_changes;
        const std::vector<std::wstring_view> names = SplitRegistryPath(path);
        if (!IsRoot(root) || names.size() > kMaxRegistryDepth) return RegistryResult::kInvalid;
        Key* key = &m_roots[static_cast<size_t>(root)];
        for (const std::wstring_view name : names) {
            Key& child = key->keys[FoldCase(name)];
            if (child.name.empty()) child.name = name;
            key = &child;
        }
        return RegistryResult::kDone;
    }

    RegistryResult DeleteKey(RegistryRoot root, std::wstring_view path) override {
        const std::vector<std::wstring_view> names = SplitRegistryPath(path);
        if (names.empty()) return RegistryResult::kInvalid;
        const auto parent = static_cast<size_t>(names.back().data() - path.data());
        return WithKey(root, path.substr(0, parent), [&](Key& key) {
            ++m_changes;
            return key.keys.erase(FoldCase(names.back())) != 0 ? RegistryResult::kDone
                                                               : RegistryResult::kNotFound;
        });
    }

    RegistryResult QueryValue(RegistryRoot root, std::wstring_view path, std::wstring_view name,
                              RegistryValue& value) override {
        return WithKey(root, path, [&](Key& key) {
            const auto found = key.values.find(FoldCase(name));
            if (found == key.values.end()) return RegistryResult::kNotFound;
            value = found->second.value;
            return RegistryResult::kDone;
        });
    }

    RegistryResult SetValue(RegistryRoot root, std::wstring_view path, std::wstring_view name,
                            const RegistryValue& value) override {
        return WithKey(root, path, [&](Key& key) {
            ++m_changes;
            const auto [place, is_new] = key.values.try_emplace(FoldCase(name));
            if (is_new) place->second.name = name;
            place->second.value = value;
            return RegistryResult::kDone;
        });
    }

    RegistryResult DeleteValue(RegistryRoot root, std::wstring_view path, std::wstring_view name) override {
        return WithKey(root, path, [&](Key& key) {
            ++m_changes;
            return key.values.erase(FoldCase(name)) != 0 ? RegistryResult::kDone : RegistryResult::kNotFound;
        });
    }

    RegistryResult ListKeys(RegistryRoot root, std::wstring_view path,
                            std::vector<std::wstring>& names) override {
        return WithKey(root, path, [&](Key& key) {
            names.clear();
            for (const auto& [folded, child] : key.keys) names.push_back(child.name);
            return RegistryResult::kDone;
        });
    }

    RegistryResult ListValues(RegistryRoot root, std::wstring_view path,
                              std::vector<NamedRegistryValue>& values) override {
        return WithKey(root, path, [&](Key& key) {
            values.clear();
            for (const auto& [folded, value] : key.values) values.push_back(value);
            return RegistryResult::kDone;
        });
    }

    RegistryResult Change(RegistryRoot, RegistryChange,
                          const std::function<void(IRegistry&)>& changes) override {
        const std::lock_guard guard(m_mutex);
        changes(*this);
        return RegistryResult::kDone;
    }

    std::optional<RegistryStamp> Stamp(RegistryRoot) override {
        const std::lock_guard guard(m_mutex);
        return RegistryStamp{m_source, {m_changes}};
    }

private:
    static constexpr size_t kRoots = 3;
    static bool IsRoot(RegistryRoot root) { return static_cast<size_t>(root) < kRoots; }

    template <class Action>
    RegistryResult WithKey(RegistryRoot root, std::wstring_view path, Action action) {
        const std::lock_guard guard(m_mutex);
        if (!IsRoot(root)) return RegistryResult::kInvalid;
        Key* key = &m_roots[static_cast<size_t>(root)];
        for (const std::wstring_view name : SplitRegistryPath(path)) {
            const auto found = key->keys.find(FoldCase(name));
            if (found == key->keys.end()) return RegistryResult::kNotFound;
            key = &found->second;
        }
        return action(*key);
    }

    const uint64_t m_source = NewRegistrySource();
    std::recursive_mutex m_mutex;
    uint64_t m_changes = 0;
    Key m_roots[kRoots];
};

}  // namespace

std::shared_ptr<IRegistry> MakeMemoryRegistry() {
    return std::make_shared<MemoryRegistry>();
}

}  // namespace hx
