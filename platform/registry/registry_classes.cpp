#include "platform/registry/registry_classes.h"

#include <functional>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "platform/com/class_files.h"
#include "platform/com/usual_class_lookup.h"
#include "platform/registry/registry.h"
#include "platform/system/files.h"

namespace hx {
namespace {

constexpr wchar_t kServer[] = L"\\InprocServer32";

std::wstring KeyOf(const CLSID& clsid) {
    return L"CLSID\\" + GuidToText(clsid);
}

// Empty if there is no such text.
std::wstring TextAt(IRegistry& registry, std::wstring_view path, std::wstring_view name = L"",
                    RegistryResult* result = nullptr) {
    RegistryValue value;
    const RegistryResult query = registry.QueryValue(RegistryRoot::kClassesRoot, path, name, value);
    if (result) *result = query;
    if (query != RegistryResult::kDone) return L"";
    std::wstring* const text = std::get_if<std::wstring>(&value);
    return text ? std::move(*text) : L"";
}

// Where it begins must not depend on who asks, and what is behind a NUL would not be seen.
bool IsLibraryPath(std::wstring_view path) {
    return path.starts_with(L'/') && path.find(L'\0') == std::wstring_view::npos;
}

std::optional<CLSID> ClsidOf(IRegistry& registry, const std::wstring& prog_id) {
    CLSID clsid{};
    return GuidFromText(TextAt(registry, prog_id + L"\\CLSID"), clsid) ? std::optional(clsid) : std::nullopt;
}

// Libraries of classes as they were read while the registry had one stamp, and of classes without one. The
// loader asks for a few classes over and over again, and reading the store takes several times as long as its
// stamp.
//
// What is found here is what reading would give now. It was put here with a stamp taken before it was read,
// and the stamp taken before it is found is the same: so between the two nothing has changed, and the reading
// lies between them or, if it came later than the second stamp, is itself not older than the request.
class KnownLibraries {
public:
    using Library = std::optional<std::wstring>;

    // False if it is not known; else `library` is it, or that there is none.
    bool Find(const RegistryStamp& stamp, const CLSID& clsid, Library& library) {
        const std::lock_guard guard(m_mutex);
        if (stamp != m_stamp) return false;
        const auto found = m_libraries.find(clsid);
        if (found == m_libraries.end()) return false;
        library = found->second;
        return true;
    }

    void Keep(const RegistryStamp& stamp, const CLSID& clsid, const Library& library) {
        constexpr size_t kMost = 256;  // far more classes than a host uses
        const std::lock_guard guard(m_mutex);
        if (stamp != m_stamp || m_libraries.size() >= kMost) m_libraries.clear();
        m_stamp = stamp;
        m_libraries.insert_or_assign(clsid, library);
    }

private:
    struct Hash {
        size_t operator()(const CLSID& clsid) const {
            return std::hash<std::string_view>()({reinterpret_cast<const char*>(&clsid), sizeof clsid});
        }
    };

    std::mutex m_mutex;
    RegistryStamp m_stamp;
    std::unordered_map<CLSID, Library, Hash> m_libraries;
};

class RegistryClasses final : public IClassLookup {
public:
    std::optional<ClassEntry> ByClsid(const CLSID& clsid) const override {
        const std::shared_ptr<IRegistry> registry = Registry();
        const std::wstring key = KeyOf(clsid);
        ClassEntry entry;
        entry.clsid = clsid;
        entry.library = TextAt(*registry, key + kServer);
        if (!IsLibraryPath(entry.library)) return std::nullopt;
        entry.threading_model = TextAt(*registry, key + kServer, L"ThreadingModel");
        entry.prog_id = TextAt(*registry, key + L"\\ProgID");
        entry.version_independent_prog_id = TextAt(*registry, key + L"\\VersionIndependentProgID");
        entry.description = TextAt(*registry, key);
        entry.is_registered = true;
        return entry;
    }

    std::optional<std::wstring> LibraryOf(const CLSID& clsid) const override {
        const std::shared_ptr<IRegistry> registry = Registry();
        const std::optional<RegistryStamp> stamp = registry->Stamp(RegistryRoot::kClassesRoot);
        KnownLibraries::Library library;
        if (stamp && m_known.Find(*stamp, clsid, library)) return library;
        RegistryResult result{};
        std::wstring text = TextAt(*registry, KeyOf(clsid) + kServer, L"", &result);
        if (IsLibraryPath(text)) library = std::move(text);
        // Other failures say nothing about what is registered.
        if (stamp && (result == RegistryResult::kDone || result == RegistryResult::kNotFound))
            m_known.Keep(*stamp, clsid, library);
        return library;
    }

    std::optional<CLSID> ByProgId(std::wstring_view prog_id) const override {
        // The name of one key, not a way through several.
        if (prog_id.empty() || prog_id.find(L'\\') != std::wstring_view::npos) return std::nullopt;
        const std::shared_ptr<IRegistry> registry = Registry();
        const std::wstring name(prog_id);
        if (const std::optional<CLSID> clsid = ClsidOf(*registry, name)) return clsid;
        const std::wstring current = TextAt(*registry, name + L"\\CurVer");
        return current.empty() ? std::nullopt : ClsidOf(*registry, current);
    }

    std::vector<ClassEntry> All() const override {
        std::vector<std::wstring> names;
        Registry()->ListKeys(RegistryRoot::kClassesRoot, L"CLSID", names);
        std::vector<ClassEntry> entries;
        for (const std::wstring& name : names) {
            CLSID clsid{};
            if (!name.starts_with(L'{') || !GuidFromText(name, clsid)) continue;
            if (std::optional<ClassEntry> entry = ByClsid(clsid)) entries.push_back(std::move(*entry));
        }
        return entries;
    }

private:
    mutable KnownLibraries m_known;
};

// What is registered, and what is not but stands in the text tables: those of a build folder, say.
class UsualClasses final : public IClassLookup {
public:
    explicit UsualClasses(std::shared_ptr<IClassLookup> tables) : m_tables(std::move(tables)) {}

    std::optional<ClassEntry> ByClsid(const CLSID& clsid) const override {
        std::optional<ClassEntry> entry = m_registered.ByClsid(clsid);
        return entry ? entry : m_tables->ByClsid(clsid);
    }
    std::optional<std::wstring> LibraryOf(const CLSID& clsid) const override {
        std::optional<std::wstring> library = m_registered.LibraryOf(clsid);
        return library ? library : m_tables->LibraryOf(clsid);
    }
    std::optional<CLSID> ByProgId(std::wstring_view prog_id) const override {
        const std::optional<CLSID> clsid = m_registered.ByProgId(prog_id);
        return clsid ? clsid : m_tables->ByProgId(prog_id);
    }
    std::vector<ClassEntry> All() const override {
        std::vector<ClassEntry> entries = m_registered.All();
        for (ClassEntry& entry : m_tables->All()) {
            if (!m_registered.LibraryOf(entry.clsid)) entries.push_back(std::move(entry));
        }
        return entries;
    }

private:
    const RegistryClasses m_registered;
    const std::shared_ptr<IClassLookup> m_tables;
};

std::shared_ptr<IClassLookup> MakeUsualClasses() {
    return std::make_shared<UsualClasses>(ReadClassFiles(ThisLibraryFolder()));
}

// At program start, so that whoever loads this library creates components out of the registry.
[[maybe_unused]] const bool g_is_installed = (SetUsualClassLookup(&MakeUsualClasses), true);

}  // namespace

std::shared_ptr<IClassLookup> MakeRegistryClassLookup() {
    return std::make_shared<RegistryClasses>();
}

}  // namespace hx
