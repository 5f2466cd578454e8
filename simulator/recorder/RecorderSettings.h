// What the registry's recorder keys ask for, read when a recording starts. Any thread.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace hx::simulator {

struct RecorderSettings {
    bool enabled = false;
    std::filesystem::path target;  // of the finished recording
    uint32_t keep_every = 1;       // cycle; the others are left out
    uint64_t most_cycles = 0;      // 0: without end
};

RecorderSettings ReadRecorderSettings();
// So that others find the recording. False if the store refuses.
bool SetActiveDataset(const std::filesystem::path& recording);

}  // namespace hx::simulator
