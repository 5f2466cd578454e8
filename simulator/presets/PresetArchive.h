// Former files of one owner, kept in a folder: archives and lists that were set aside, of which the oldest go
// when there are too many, and damaged or unreadable files, which stay. Names are OWNER.TIME.NUMBER with
// .xml, .list.aside or .aside: the time, in UTC, is for people, the number tells which is newer, whatever the
// clock was set to. For the preset store; changed only by the one who has locked the owner's list.
#pragma once

#include <vector>

#include "platform/system/files.h"

namespace hx::simulator {

class PresetArchive {
public:
    enum class Kind { kArchive, kListAside, kDamaged };

    // `owner` is the name of the owner's files.
    PresetArchive(std::filesystem::path folder, std::string owner);

    // A new file with these bytes, unless the newest one holds the same.
    FileError Keep(std::string_view bytes, Kind kind) const;
    // Moves a file here that cannot be read, whatever it is, as a damaged one.
    FileError Take(const std::filesystem::path& file) const;
    // Newest first. Only files that were made here, by their names.
    FileError List(Kind kind, std::vector<std::filesystem::path>& files) const;
    // Deletes the oldest of that kind until so many are left, and names that were taken and never filled. One
    // that cannot be deleted is one too many, which harms nobody, and is tried again the next time.
    void Trim(Kind kind, size_t most) const;

private:
    struct Entry {
        uint64_t number;
        std::filesystem::path path;
    };
    FileError Entries(Kind kind, std::vector<Entry>& entries) const;
    // A file of now.
    std::filesystem::path NewPath(Kind kind, int64_t wall_us, uint64_t number) const;

    std::filesystem::path m_folder;
    std::string m_owner;
};

}  // namespace hx::simulator
