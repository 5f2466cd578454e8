// hxctl classes --tree: a key belongs to this installation if it leads to one of its libraries: a class or a
// type library by a value that is the library's path, a ProgID by the class that it names.
#include <algorithm>
#include <filesystem>
#include <set>

#include "apps/hxctl/classes/classes_command.h"
#include "apps/hxctl/classes/key_tree.h"
#include "platform/com/guid.h"
#include "platform/system/case_fold.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

constexpr wchar_t kClasses[] = L"CLSID";
constexpr wchar_t kTypeLibraries[] = L"TypeLib";
// Kept for good, and so told of, too.
constexpr const wchar_t* kComponents[] = {L"Software", L"Orvel", L"HXAPI4", L"Components"};

class ClassRoot {
public:
    ClassRoot() {
        for (const std::wstring& library : hosting::ComponentLibraries())
            m_libraries.insert(RealPath(library));
    }

    Key ReadAll() { return m_reader.Read(L"", L"HKEY_CLASSES_ROOT"); }

    Key ReadOwn() {
        Key root{L"HKEY_CLASSES_ROOT", {}, {}};
        Key classes = ReadThoseThatLeadHere(kClasses, {});
        std::set<std::wstring> ids;
        std::set<std::wstring> type_libraries;
        for (const Key& each : classes.keys) {
            ids.insert(hx::FoldCase(each.name));
            const std::wstring path = PathBelow(PathBelow(kClasses, each.name), kTypeLibraries);
            type_libraries.insert(hx::FoldCase(m_reader.TextOf(path)));
        }
        Key libraries = ReadThoseThatLeadHere(kTypeLibraries, type_libraries);
        for (std::wstring& name : m_reader.NamesBelow(L"")) {
            Key* const group = hx::EqualsWithoutCase(name, kClasses)         ? &classes
                               : hx::EqualsWithoutCase(name, kTypeLibraries) ? &libraries
                                                                             : nullptr;
            if (group) {
                group->name = std::move(name);
                if (!group->keys.empty()) root.keys.push_back(std::move(*group));
            } else if (ids.contains(hx::FoldCase(ClassOf(name)))) {
                const std::wstring path = name;
                root.keys.push_back(m_reader.Read(path, std::move(name)));
            }
        }
        return root;
    }

    hx::RegistryResult Result() const { return m_reader.Result(); }

private:
    // Libraries may be registered by one of several names, as by a link.
    static std::wstring RealPath(const std::wstring& path) {
        std::error_code error;
        const std::filesystem::path real = std::filesystem::weakly_canonical(hx::ToUtf8(path), error);
        return error ? path : hx::FromDamagedUtf8(real.native());
    }

    bool LeadsHere(const Key& key) const {
        const auto is_library = [this](const hx::NamedRegistryValue& value) {
            const auto* const text = std::get_if<std::wstring>(&value.value);
            return text && text->starts_with(L'/') && m_libraries.contains(RealPath(*text));
        };
        return std::ranges::any_of(key.values, is_library) ||
               std::ranges::any_of(key.keys, [this](const Key& below) { return LeadsHere(below); });
    }

    // The keys below `path` that lead to a library, or are among the names, which are folded.
    Key ReadThoseThatLeadHere(const wchar_t* path, const std::set<std::wstring>& names) {
        Key group{path, {}, {}};
        for (std::wstring& name : m_reader.NamesBelow(path)) {
            const bool is_named = names.contains(hx::FoldCase(name));
            const std::wstring path_below = PathBelow(path, name);
            Key key = m_reader.Read(path_below, std::move(name));
            if (is_named || LeadsHere(key)) group.keys.push_back(std::move(key));
        }
        return group;
    }

    // What the ProgID, with a version or without, stands for.
    std::wstring ClassOf(const std::wstring& prog_id) {
        std::wstring id = m_reader.TextOf(PathBelow(prog_id, kClasses));
        if (!id.empty()) return id;
        const std::wstring current = m_reader.TextOf(PathBelow(prog_id, L"CurVer"));
        return current.empty() ? current : m_reader.TextOf(PathBelow(current, kClasses));
    }

    KeyReader m_reader{hx::RegistryRoot::kClassesRoot};
    std::set<std::wstring> m_libraries;
};

// The way to the components' key, each key with the next one only, and that one whole.
void ReadComponents(KeyReader& reader, Key& root) {
    Key* parent = &root;
    std::wstring path;
    for (const wchar_t* const step : kComponents) {
        const std::vector<std::wstring> names = reader.NamesBelow(path);
        const auto name = std::ranges::find_if(
            names, [&](const std::wstring& each) { return hx::EqualsWithoutCase(each, step); });
        if (name == names.end()) return;
        path = PathBelow(path, *name);
        const bool is_last = step == *std::rbegin(kComponents);
        parent->keys.push_back(is_last ? reader.Read(path, *name) : Key{*name, {}, {}});
        parent = &parent->keys.back();
    }
}

}  // namespace

Outcome RunClassTree(bool all, bool json) {
    ClassRoot classes;
    KeyReader machine(hx::RegistryRoot::kLocalMachine);
    std::vector<Key> roots;
    roots.push_back(all ? classes.ReadAll() : classes.ReadOwn());
    ReadComponents(machine, roots.emplace_back(Key{L"HKEY_LOCAL_MACHINE", {}, {}}));
    std::erase_if(roots, [](const Key& root) { return root.keys.empty() && root.values.empty(); });

    Outcome outcome;
    Json list = Json::array();
    for (const Key& root : roots) {
        if (json) list.push_back(KeyJson(root));
        if (!json) outcome.output += KeyText(root);
    }
    if (json) outcome.output = list.dump(2) + "\n";
    const hx::RegistryResult result =
        classes.Result() != hx::RegistryResult::kDone ? classes.Result() : machine.Result();
    if (result == hx::RegistryResult::kDone) return outcome;
    return Refused("not all could be read: " + hx::ToUtf8(hosting::StoreFaultText(result)),
                   std::move(outcome.output));
}

}  // namespace hxctl
