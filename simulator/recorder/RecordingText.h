// The text of a recording, UTF-8, a record per line, its words separated by one blank: HXTRACKING, device,
// area, cycle, the points of the cycle, and end; docs/recordings.md tells them one by one. Numbers are in the
// "C" form, so short that they read back exactly. A text without the last line is not finished. One thread at
// a time.
#pragma once

#include <string>

#include "simulator/recorder/RecordedCycle.h"

namespace hx::simulator {

class RecordingText {
public:
    static std::string Head() { return "HXTRACKING 1\n"; }
    // The lines for a cycle, good until the next call; device and areas only if they are not those of the
    // cycle before.
    const std::string& Add(const RecordedCycle& recorded);
    static std::string End(uint64_t cycles, uint64_t dropped);

private:
    std::string m_text;
    std::wstring_view m_device;
    std::vector<RecordedCycle::Area> m_areas;
};

}  // namespace hx::simulator
