#include "platform/com/class_files.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/system/case_fold.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

class ClassFiles final : public IClassLookup {
public:
    explicit ClassFiles(std::vector<ClassEntry> entries) : m_entries(std::move(entries)) {}

    std::optional<ClassEntry> ByClsid(const CLSID& clsid) const override {
        const ClassEntry* const entry = Find(clsid);
        return entry ? std::optional(*entry) : std::nullopt;
    }
    std::optional<std::wstring> LibraryOf(const CLSID& clsid) const override {
        const ClassEntry* const entry = Find(clsid);
        return entry ? std::optional(entry->library) : std::nullopt;
    }
    std::optional<CLSID> ByProgId(std::wstring_view prog_id) const override {
        if (prog_id.empty()) return std::nullopt;
        for (const ClassEntry& entry : m_entries) {
            if (EqualsWithoutCase(entry.prog_id, prog_id) ||
                EqualsWithoutCase(entry.version_independent_prog_id, prog_id)) {
                return entry.clsid;
            }
        }
        return std::nullopt;
    }
    std::vector<ClassEntry> All() const override { return m_entries; }

private:
    const ClassEntry* Find(const CLSID& clsid) const {
        const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                        [&](const ClassEntry& entry) { return entry.clsid == clsid; });
        return found != m_entries.end() ? &*found : nullptr;
    }

    std::vector<ClassEntry> m_entries;
};

std::optional<ClassEntry> ParseLine(std::string_view line, const std::filesystem::path& folder) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with('#') || line.find('\0') != std::string_view::npos) return std::nullopt;
    const std::optional<std::wstring> text = FromUtf8(line);
    if (!text) return std::nullopt;

    std::array<std::wstring, 5> fields;
    size_t start = 0;
    for (size_t i = 0; i < fields.size(); ++i) {
        const size_t tab = text->find(L'\t', start);
        // Exactly the last field has no tab behind it.
        if ((tab == std::wstring::npos) != (i + 1 == fields.size())) return std::nullopt;
        fields[i] = text->substr(start, tab - start);
        start = tab + 1;
    }
    auto& [clsid, prog_id, version_independent, threading_model, library] = fields;
    ClassEntry entry;
    if (!GuidFromText(clsid, entry.clsid) || prog_id.empty() || library.empty()) return std::nullopt;
    entry.prog_id = std::move(prog_id);
    entry.version_independent_prog_id = std::move(version_independent);
    entry.threading_model = std::move(threading_model);
    std::optional<std::wstring> path = FromUtf8((folder / ToUtf8(library)).lexically_normal().native());
    if (!path) return std::nullopt;
    entry.library = std::move(*path);
    return entry;
}

void ParseTable(std::string_view bytes, const std::filesystem::path& folder,
                std::vector<ClassEntry>& entries) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    while (!bytes.empty()) {
        const size_t end = std::min(bytes.find('\n'), bytes.size());
        std::optional<ClassEntry> entry = ParseLine(bytes.substr(0, end), folder);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (!entry) continue;
        const bool is_listed = std::any_of(entries.begin(), entries.end(), [&](const ClassEntry& other) {
            return other.clsid == entry->clsid;
        });
        if (!is_listed) entries.push_back(std::move(*entry));
    }
}

std::vector<std::filesystem::path> FindTables(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> tables;
    std::error_code error;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end;
         it.increment(error)) {
        if (it->path().extension() == ".classes") tables.push_back(it->path());
    }
    std::sort(tables.begin(), tables.end());
    return tables;
}

}  // namespace

std::shared_ptr<IClassLookup> ReadClassFiles(const std::filesystem::path& folder) {
    std::vector<ClassEntry> entries;
    std::string bytes;
    for (const std::filesystem::path& table : FindTables(folder)) {
        // An unreadable table is like one without lines.
        if (!ReadFile(table, bytes)) ParseTable(bytes, folder, entries);
    }
    return std::make_shared<ClassFiles>(std::move(entries));
}

}  // namespace hx
