#include "simulator/presets/PresetArchive.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <optional>

#include "platform/system/clock.h"
#include "platform/system/folders.h"

namespace hx::simulator {
namespace {

namespace fs = std::filesystem;

// "0" stands for a digit.
constexpr std::string_view kStampForm = "00000000T000000Z";

std::string Stamp(int64_t wall_us) {
    using namespace std::chrono;
    const sys_time<microseconds> now{microseconds(wall_us)};
    const auto day = floor<days>(now);
    const year_month_day date(day);
    const hh_mm_ss time(floor<seconds>(now - day));
    char text[64];
    std::snprintf(text, sizeof text, "%04d%02u%02uT%02d%02d%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text;
}

bool IsStamp(std::string_view text) {
    return std::ranges::equal(text, kStampForm, [](char given, char form) {
        return form == '0' ? given >= '0' && given <= '9' : given == form;
    });
}

std::string_view ExtensionOf(PresetArchive::Kind kind) {
    static constexpr std::string_view kExtensions[] = {".xml", ".list.aside", ".aside"};
    return kExtensions[static_cast<size_t>(kind)];
}

// The number in a name of ours.
std::optional<uint64_t> NumberIn(std::string_view name, std::string_view owner, std::string_view extension) {
    const size_t in_front = owner.size() + kStampForm.size() + 2;
    if (name.size() <= in_front + extension.size()) return {};
    if (!name.starts_with(owner) || !name.ends_with(extension)) return {};
    if (name[owner.size()] != '.' || name[in_front - 1] != '.') return {};
    if (!IsStamp(name.substr(owner.size() + 1, kStampForm.size()))) return {};
    name.remove_suffix(extension.size());
    name.remove_prefix(in_front);
    uint64_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    if (error != std::errc() || end != name.data() + name.size()) return {};
    return number;
}

// A file of another size may be too large to be read.
bool Holds(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    std::string found;
    return fs::file_size(path, error) == bytes.size() && !ReadFile(path, found) && found == bytes;
}

// False, without an error, if there is such a file already.
bool Reserve(const fs::path& path, FileError& error) {
    std::FILE* const file = std::fopen(path.string().c_str(), "wbx");
    if (file != nullptr) {
        std::fclose(file);
        return true;
    }
    if (errno != EEXIST) error = {{errno, std::generic_category()}, path};
    return false;
}

}  // namespace

PresetArchive::PresetArchive(fs::path folder, std::string owner)
    : m_folder(std::move(folder)), m_owner(std::move(owner)) {}

FileError PresetArchive::Entries(Kind kind, std::vector<Entry>& entries) const {
    entries.clear();
    std::error_code error;
    fs::directory_iterator entry(m_folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::optional<uint64_t> number =
            NumberIn(entry->path().filename().string(), m_owner, ExtensionOf(kind));
        std::error_code gone;
        if (number && fs::is_regular_file(entry->symlink_status(gone))) {
            entries.push_back({*number, entry->path()});
        }
    }
    if (error && error != std::errc::no_such_file_or_directory) return {error, m_folder};
    std::ranges::sort(entries, std::ranges::greater(), &Entry::number);
    return {};
}

fs::path PresetArchive::NewPath(Kind kind, int64_t wall_us, uint64_t number) const {
    std::string name = m_owner + '.' + Stamp(wall_us) + '.' + std::to_string(number);
    return m_folder / name.append(ExtensionOf(kind));
}

FileError PresetArchive::List(Kind kind, std::vector<fs::path>& files) const {
    std::vector<Entry> entries;
    FileError error = Entries(kind, entries);
    files.clear();
    for (Entry& entry : entries) files.push_back(std::move(entry.path));
    return error;
}

FileError PresetArchive::Keep(std::string_view bytes, Kind kind) const {
    if (FileError error = MakeFolder(m_folder)) return error;
    std::vector<Entry> entries;
    if (FileError error = Entries(kind, entries)) return error;
    if (!entries.empty() && Holds(entries.front().path, bytes)) return {};
    // The name is taken by an empty file first: what somebody else put there is never replaced.
    const int64_t now = SystemClock().WallMicroseconds();
    FileError error;
    for (uint64_t number = entries.empty() ? 1 : entries.front().number + 1; !error; ++number) {
        const fs::path path = NewPath(kind, now, number);
        if (!Reserve(path, error)) continue;
        error = WriteFileAtomically(path, bytes);
        if (!error) return {};
        std::error_code ignored;  // the failure that is told came before
        fs::remove(path, ignored);
    }
    return error;
}

FileError PresetArchive::Take(const fs::path& file) const {
    if (FileError error = MakeFolder(m_folder)) return error;
    std::vector<Entry> entries;
    if (FileError error = Entries(Kind::kDamaged, entries)) return error;
    const int64_t now = SystemClock().WallMicroseconds();
    uint64_t number = entries.empty() ? 1 : entries.front().number + 1;
    std::error_code error;
    // What was moved here before may be no file, and is then not among the entries.
    while (fs::exists(fs::symlink_status(NewPath(Kind::kDamaged, now, number), error))) ++number;
    fs::rename(file, NewPath(Kind::kDamaged, now, number), error);
    return {error, file};
}

void PresetArchive::Trim(Kind kind, size_t most) const {
    std::vector<Entry> entries;
    if (Entries(kind, entries)) return;
    size_t kept = 0;
    for (const Entry& entry : entries) {
        std::error_code one_too_many;
        // By somebody who died. An empty file may well have been set aside.
        const bool never_filled = kind == Kind::kArchive && fs::file_size(entry.path, one_too_many) == 0;
        if (never_filled || kept == most) {
            fs::remove(entry.path, one_too_many);
        } else {
            ++kept;
        }
    }
}

}  // namespace hx::simulator
