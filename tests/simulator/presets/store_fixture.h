// A store in a folder of the test's own, and a look at what it leaves there.
#pragma once

#include <fstream>
#include <iterator>
#include <set>
#include <vector>

#include "core/keys/MRegistryKeyLib.h"
#include "core/records/RecordFields.h"
#include "tests/memory_registry.h"
#include "tests/platform/temporary_folder.h"
#include "tests/simulator/presets/preset_lists.h"

namespace hx::simulator {

// As values, field by field.
inline bool Same(StoredPreset a, StoredPreset b) {
    if (a.display_name != b.display_name) return false;
    for (const Field& field : MLaserProfileSettings::kType.fields) {
        if (!SameValue(field.ops->at(&a.profile), field.ops->at(&b.profile))) return false;
    }
    return true;
}
inline bool Same(const PresetList& a, const PresetList& b) {
    return a.selected == b.selected &&
           std::equal(a.presets.begin(), a.presets.end(), b.presets.begin(), b.presets.end(),
                      [](const StoredPreset& one, const StoredPreset& other) { return Same(one, other); });
}

inline std::wstring NamesOf(const PresetList& list) {
    std::wstring names;
    for (const StoredPreset& preset : list.presets) names += preset.profile.ProfileName + L" ";
    return names;
}

inline std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class PresetStoreTest : public WithMemoryRegistry {
protected:
    static constexpr wchar_t kOwner[] = L"Arm";

    struct Loaded {
        HRESULT result;
        PresetList list;
        PresetsOutcome outcome;
    };
    Loaded Load(const ScannerModel& model = kModel, std::wstring_view owner = kOwner) {
        Loaded loaded{};
        loaded.result = PresetStore(Folder(), model).Load(owner, loaded.list, loaded.outcome, m_reason);
        EXPECT_EQ(FAILED(loaded.result), !m_reason.empty());
        return loaded;
    }
    HRESULT Save(const PresetList& list, const ScannerModel& model = kModel,
                 std::wstring_view owner = kOwner) {
        return PresetStore(Folder(), model).Save(owner, list, m_reason);
    }
    std::filesystem::path Folder() const { return m_folder.path() / "presets"; }
    // That of kOwner.
    std::filesystem::path File() const { return Folder() / "presets-+arm.xml"; }
    void WriteFile(std::string_view bytes) const {
        std::filesystem::create_directories(Folder());
        std::ofstream(File(), std::ios::binary) << bytes;
    }
    // The files of that extension in the archive, oldest first while there are at most nine.
    std::vector<std::filesystem::path> Archived(const char* extension = ".xml") const {
        std::set<std::filesystem::path> found;
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(Folder() / "archive", none)) {
            if (entry.path().extension() == extension) found.insert(entry.path());
        }
        return {found.begin(), found.end()};
    }
    static void SetMaxBackups(int32_t most) {
        EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(136).Set(most));
    }

    TemporaryFolder m_folder;
    std::wstring m_reason;
};

}  // namespace hx::simulator
