// The presets that a scanner API keeps on disk, a list for each owner: one file each, replaced as a whole, so
// that whatever happens there is the old list or the new one. Several processes may share the folder; the
// last one to save wins. One thread at a time per store.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/com/hresult.h"
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
    kCustomRestored,   // it had nothing for this model: factory presets, and the user's own from the newest
                       // archive
    kCustomGenerated,  // the same, and there was no archive: factory presets, and a user's preset made from
                       // the default
    kUnknownVersion,   // a profile of an unknown version was left out; the file is archived as it was
};

class PresetStore {
public:
    // The folder is made when it is needed. The model outlives the store.
    PresetStore(std::filesystem::path folder, const ScannerModel& model);

    // The owner's list, and what had to be done, which is told once: the next Load says kNone. An owner that
    // was never seen has the factory's presets and no outcome. On failure E_FAIL or E_ACCESSDENIED, with
    // `reason` for a person.
    HRESULT Load(std::wstring_view owner, PresetList& list, PresetsOutcome& outcome, std::wstring& reason);

    // Replaces the list, but for presets whose name begins with "@": those stay, and ones that come along are
    // ignored. User's presets that are gone from the list are archived before.
    HRESULT Save(std::wstring_view owner, const PresetList& list, std::wstring& reason);

    // Back to the factory's presets; the user's own are archived before.
    HRESULT Reset(std::wstring_view owner, std::wstring& reason);

private:
    std::filesystem::path m_folder;
    const ScannerModel& m_model;
};

}  // namespace hx::simulator
