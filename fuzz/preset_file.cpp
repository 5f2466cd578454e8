// A file in which the simulator keeps presets: it may have been written by anybody.
#include "fuzz/fuzz_target.h"
#include "simulator/presets/PresetFile.h"

namespace fuzz {

void PresetFile(Input input) {
    using namespace hx::simulator;
    std::string bytes;
    while (!input.Empty()) bytes += static_cast<char>(input.Byte());
    hx::simulator::PresetFile file;
    if (!ReadPresetFile(bytes, file)) return;
    for (const StoredPreset& each : file.presets)
        Require(WhyNotKept(each) == nullptr, "what is read can be kept");
    const std::string written = WritePresetFile(file);
    hx::simulator::PresetFile again;
    Require(ReadPresetFile(written, again), "what is written can be read");
    Require(again.left_out == 0 && again.presets.size() == file.presets.size(), "and nothing is left out");
    Require(WritePresetFile(again) == written, "and is the same");
}

}  // namespace fuzz
