// The files of one owner: the list in force and the former ones. For the preset store, on its thread.
#pragma once

#include "platform/system/file_lock.h"
#include "simulator/presets/PresetArchive.h"
#include "simulator/presets/PresetStore.h"

namespace hx::simulator {

// What an owner has on disk.
struct StoredList {
    enum Condition {
        kAbsent,
        kWhole,
        kPartly,   // some presets were left out
        kForeign,  // for another model
        kNewer,    // of a version that is not known
        kDamaged,  // no such document
    };

    Condition condition = kAbsent;
    std::string bytes;  // of the file
    PresetList list;    // what of it holds for this model

    // False if the file says more than the list.
    bool IsToldByList() const { return condition == kAbsent || condition == kWhole; }
};

// Failures as the store gives them. Whoever replaces anything holds the lock from before reading it on: else
// what another process saved in between would be gone without an archive.
class OwnerFiles {
public:
    OwnerFiles(const std::filesystem::path& folder, std::wstring_view owner, const ScannerModel& model);

    // The list in force.
    static std::filesystem::path ListFile(const std::filesystem::path& folder, std::wstring_view owner);

    const ScannerModel& Model() const { return m_model; }

    // Makes the folder if it is missing. Others are waited for, for some seconds. Reading needs no lock.
    HRESULT Lock(std::optional<FileLock>& lock, std::wstring& reason) const;
    HRESULT Read(StoredList& stored, std::wstring& reason) const;
    // The user's presets of the newest archive that has any and can be read.
    HRESULT ReadArchived(std::vector<StoredPreset>& presets, std::wstring& reason) const;
    // Moves the file out of the way, which need not be readable.
    HRESULT SetAside(std::wstring& reason) const;
    // The list instead of what was stored, which is kept before if `keep` says so.
    HRESULT Replace(const StoredList& stored, bool keep, PresetList list, std::wstring& reason) const;

private:
    // The file as it is: as an archive; set aside, where it stays for good, if it is damaged. If there are to
    // be no archives, a file that its list tells wholly is not kept, and any other is set aside, too, where a
    // few of them stay.
    HRESULT Keep(const StoredList& stored, std::wstring& reason) const;
    HRESULT Write(PresetList list, std::wstring& reason) const;

    std::wstring m_owner;
    const ScannerModel& m_model;
    std::filesystem::path m_file;
    std::filesystem::path m_lock_file;
    PresetArchive m_archive;
};

}  // namespace hx::simulator
