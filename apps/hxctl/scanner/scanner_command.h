// hxctl scanner: the scanner API as a host sees it, with a simulated scanner behind it. Each command creates
// the simulator by name, uses it through its interfaces, and lets it go.
#pragma once

#include <vector>

#include "apps/hxctl/command.h"

namespace hxctl {

// What stands on the desk; what a command has in common with the others.
struct ScannerRequest {
    std::string model;                // empty: the first one
    std::string surface;              // empty: the first one
    std::string folder;               // of the stored presets; empty: the usual one
    std::vector<std::string> faults;  // "OPERATION=RESULT[:TIMES]"
    bool calls = false;               // tells all calls in the end
    // A file that the driver reports; nothing: the model's own properties.
    std::optional<std::string> properties;
};

// hxctl scanner list: the models, the surfaces, and the operations that can fail
Outcome RunScannerList(bool json);

// hxctl scanner properties [--document]: what is in the document, or the document itself
Outcome RunScannerProperties(const ScannerRequest& request, bool document, bool json);

// hxctl scanner presets list|save NAME|delete NAME|export FILE|import FILE|reset
struct PresetsRequest {
    ScannerRequest scanner;
    std::string owner;  // empty: the model's device
    std::string name;
    std::string file;
    std::string from;  // the preset whose values a saved one starts with; empty: a new one's
    std::optional<double> exposure_us;
    std::optional<double> laser_power_percent;
    bool select = false;
};
enum class PresetsAction { kList, kSave, kDelete, kExport, kImport, kReset };
Outcome RunScannerPresets(PresetsAction action, const PresetsRequest& request, bool json);

// The values that a scanner works with.
struct PresetRequest {
    std::string preset = "$DEFAULT";
    std::optional<double> exposure_us;  // instead of the preset's
    std::optional<double> laser_power_percent;
};

// hxctl scanner track
struct TrackRequest {
    ScannerRequest scanner;
    PresetRequest values;
    double seconds = 2;
    bool detect = false;  // lets the scanner look for both before
    bool drop = false;    // the connection, half way, and restores it
};
Outcome RunScannerTrack(const TrackRequest& request, bool json);

}  // namespace hxctl
