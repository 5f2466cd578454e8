// The presets of the owners as the simulated scanner API gives them out: each owner's list is read once and
// kept until something changes it, another process included. Any thread.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "simulator/presets/PresetStore.h"

namespace hx::simulator {

// A list, never changed, with its names.
class PresetsByName {
public:
    explicit PresetsByName(PresetList list);

    const PresetList& List() const { return m_list; }
    // Null if there is none.
    const StoredPreset* Find(std::wstring_view name) const;

private:
    const PresetList m_list;
    std::unordered_map<std::wstring_view, const StoredPreset*> m_by_name;
};

// Failures of the store are thrown as a Refusal.
class OwnerPresets {
public:
    using Presets = std::shared_ptr<const PresetsByName>;

    explicit OwnerPresets(const ScannerModel& model) : m_model(&model) {}

    void SetModel(const ScannerModel& model);
    // Empty for the usual one.
    void SetFolder(std::wstring folder);

    // Looks at the file, but reads it only if it has changed.
    Presets Of(const std::wstring& owner);
    // Read anew, with what had to be done to them and was not told yet, whichever model it was done for.
    std::pair<Presets, PresetsOutcome> Enumerate(const std::wstring& owner);
    void Save(const std::wstring& owner, const PresetList& list);
    void Reset(const std::wstring& owner);

private:
    struct Known {
        Presets presets;
        FileStamp stamp;  // of the file that they were read from
    };

    // Of an owner's presets: the folder and the owner.
    using Place = std::pair<std::wstring, std::wstring>;

    // All with the lock held.
    std::wstring Folder() const;
    PresetStore& Store();
    void Forget();
    Presets Load(const std::wstring& owner);

    std::mutex m_mutex;  // guards what follows
    const ScannerModel* m_model;
    std::wstring m_folder;  // empty for the usual one
    std::unique_ptr<PresetStore> m_store;
    std::map<std::wstring, Known> m_known;
    // Done on disk already; thus it stays until it is told, whatever is set meanwhile.
    std::map<Place, PresetsOutcome> m_untold;
};

}  // namespace hx::simulator
