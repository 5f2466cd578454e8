// The document in which an owner's presets lie: tagged XML with the root "MFilerTaggedXml" and one element
// "ScannerPresets": version, owner, model, the selected name, and an element "Preset" for each preset, with
// its display name and its profile as the record "LaserProfileSettings". An archive is such a file, too.
// For the preset store; any thread.
#pragma once

#include "simulator/presets/PresetStore.h"

namespace hx::simulator {

struct PresetFile : PresetList {
    std::wstring owner;
    std::wstring model;     // the scanner's
    uint32_t left_out = 0;  // presets of a version that is not known, and others that cannot be taken
    bool is_newer = false;  // of a version that is not known itself
};

// No file of presets is larger: what is, was not written here.
inline constexpr size_t kMostPresetBytes = size_t{64} << 20;

// False if it is no such document, or a newer one; only `is_newer` then has a meaning. A preset that cannot
// be read whole, that has no name, or that has the name of one before it, is left out and counted.
bool ReadPresetFile(std::string_view bytes, PresetFile& file);
std::string WritePresetFile(const PresetFile& file);

// Whether the text comes back from a file as it is.
bool CanBeKept(std::wstring_view text);
// Why the preset would not come back as it is; null if it would.
const wchar_t* WhyNotKept(const StoredPreset& preset);

}  // namespace hx::simulator
