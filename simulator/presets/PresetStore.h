// The presets that a scanner API keeps on disk, a list for each owner: one file each (PresetFile.h says what
// is in it), replaced as a whole, so that whatever happens there is the old list or the new one. Former files
// lie in the folder "archive" beside them: at most as many per owner as the registry's
// DynamicSettingsMaxBackups says. Several processes and stores may share the folder: each replaces an owner's
// list in turn, and the last one to save wins. One thread at a time per store. Throws std::bad_alloc only.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/com/hresult.h"
#include "platform/system/file_stamp.h"
#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

struct StoredPreset {
    MLaserProfileSettings profile;  // with the name
    std::wstring display_name;
};

struct PresetList {
    std::vector<StoredPreset> presets;
    std::wstring selected;  // empty for none
};

// What had to be done to a list before it could be given.
enum class PresetsOutcome {
    kNone,
    // It had no predefined preset for this model: factory presets, and the user's own from the newest archive
    // that was there before and has any.
    kCustomRestored,
    // The same, and there was no such archive: factory presets, and a user's preset made from the default.
    kCustomGenerated,
    // A profile of an unknown version, or one that cannot be read whole, was left out, or a whole file of a
    // newer version was. The factory's come back; if no predefined preset was left, the user's own from the
    // newest archive that has any, too.
    kUnknownVersion,
};

class PresetStore {
public:
    // The folder is made when it is needed. The model outlives the store.
    PresetStore(std::filesystem::path folder, const ScannerModel& model);

    // The owner's list, and what had to be done, which is told once: it is done on disk first, and the next
    // Load says kNone. A file that says more than the list that comes of it is archived as it was. One that
    // is no document is set aside there for good; if there are to be no archives, the last ten others are set
    // aside, too. An owner that was never seen has the factory's presets and no outcome. On failure E_FAIL or
    // E_ACCESSDENIED, with `reason` for a person, and nothing is replaced; E_FAIL also if others keep
    // replacing the list for seconds.
    HRESULT Load(std::wstring_view owner, PresetList& list, PresetsOutcome& outcome, std::wstring& reason);

    // Of the owner's file: a list that was loaded after this stamp was taken holds for as long as it stays.
    FileStamp Stamp(std::wstring_view owner) const;

    // Replaces the list, but for presets whose name begins with "@": those stay in their places, and ones
    // that come along are ignored. If user's presets are gone from the list, the old one is archived before.
    // E_INVALIDARG for two presets of one name, an empty name, and what would not come back from a file as it
    // is: a name that is no text, a laser power beyond 0 to 100, a gain beyond 16 bits. Else fails as Load
    // does.
    HRESULT Save(std::wstring_view owner, const PresetList& list, std::wstring& reason);

    // Back to the factory's presets; the user's own are archived before. A file that cannot be read is set
    // aside as it is.
    HRESULT Reset(std::wstring_view owner, std::wstring& reason);

private:
    std::filesystem::path m_folder;
    const ScannerModel& m_model;
};

}  // namespace hx::simulator
