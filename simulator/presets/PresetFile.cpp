#include "simulator/presets/PresetFile.h"

#include <algorithm>
#include <limits>
#include <mutex>
#include <unordered_set>

#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"
#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/ListType.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hx::simulator {
namespace {

constexpr std::wstring_view kElement = L"ScannerPresets";

using P = FieldsOf<StoredPreset>;
constexpr Field kPresetFields[] = {
    P::Value<&StoredPreset::display_name>(L"DisplayName", L""),
    P::Record<&StoredPreset::profile>(L"LaserProfileSettings"),
};
constexpr RecordType kPresetType{
    L"Preset", {RecordVersion::kNone, 0}, kPresetFields, "A preset as operators see it.", nullptr, nullptr,
    nullptr};

bool ReadPreset(StoredPreset& preset, MFilerTaggedPair& filer) {
    static const StoredPreset defaults;
    try {
        return ReadFields(kPresetFields, &preset, &defaults, filer, 0, ReadRule::kUntilFailure) &&
               !preset.profile.ProfileName.empty();
    } catch (const MException&) {
        return false;  // a value out of its range
    }
}

bool ReadPresets(const Field& field, void* record, const void*, MFilerTaggedPair& filer) {
    auto& file = *static_cast<PresetFile*>(record);
    std::unordered_set<std::wstring> names;
    for (;;) {
        StoredPreset preset;
        bool is_there = false;
        const bool whole = InGroup(filer, field.child, [&] {
            is_there = true;
            return ReadPreset(preset, filer);
        });
        if (!is_there) return true;
        if (whole && names.insert(preset.profile.ProfileName).second) {
            file.presets.push_back(std::move(preset));
        } else {
            ++file.left_out;
        }
    }
}

bool WritePresets(const Field& field, const void* record, MFilerTaggedPair& filer) {
    return std::ranges::all_of(
        static_cast<const PresetFile*>(record)->presets,
        [&](const StoredPreset& preset) { return WriteElement(kPresetType, &preset, filer, field.child); });
}

constexpr FieldOps kPresetsOps{L"Preset", 0, nullptr, &ReadPresets, &WritePresets};

using F = FieldsOf<PresetFile>;
constexpr Field kFileFields[] = {
    F::Value<&PresetFile::owner>(L"Owner", L""),
    F::Value<&PresetFile::model>(L"Model", L""),
    F::Value<&PresetFile::selected>(L"Selected", L"", "a preset's name; empty for none"),
    {L"Preset", &kPresetsOps, {}, "one for each preset"},
};
constexpr RecordType kFileType{
    kElement, {RecordVersion::kUint, 1}, kFileFields, "An owner's presets.", nullptr, nullptr, nullptr};

// Profiles note their unknown versions in a list of the process that has no lock of its own.
std::mutex g_reading;

}  // namespace

bool ReadPresetFile(std::string_view bytes, PresetFile& file) {
    file = {};
    std::optional<std::wstring> text = DecodeTextFile(bytes);
    if (!text) return false;
    MInFilerTaggedXml reader(*std::move(text), kTaggedXmlRoot);
    MFilerTaggedPair filer(reader);
    const PresetFile defaults;
    const std::lock_guard lock(g_reading);
    return InGroup(filer, kElement, [&] {
        int64_t version = 0;
        const bool is_known = ReadVersion(filer, kFileType.version, version);
        file.is_newer = version > kFileType.version.current;
        return is_known && ReadFields(kFileFields, &file, &defaults, filer, version, ReadRule::kUntilFailure);
    });
}

std::string WritePresetFile(const PresetFile& file) {
    MOutFilerTaggedXml writer(kTaggedXmlRoot);
    MFilerTaggedPair filer(writer);
    WriteElement(kFileType, &file, filer, kElement);
    return ToUtf8(writer.TakeText());
}

bool CanBeKept(std::wstring_view text) {
    return FromUtf8(ToUtf8(text)) == text;
}

const wchar_t* WhyNotKept(const StoredPreset& preset) {
    const MLaserProfileSettings& profile = preset.profile;
    if (profile.ProfileName.empty()) return L"a preset has a name";
    if (!CanBeKept(profile.ProfileName) || !CanBeKept(preset.display_name)) return L"a name is no text";
    if (profile.LaserPower < 0.0 || profile.LaserPower > 100.0) return L"laser power is 0 to 100 percent";
    if (profile.Gain > std::numeric_limits<uint16_t>::max()) return L"the gain is too great";
    return nullptr;
}

}  // namespace hx::simulator
