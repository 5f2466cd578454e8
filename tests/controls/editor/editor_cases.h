// What the tests of the profile editor's operations share: a line of a table, and how it is checked.
#pragma once

#include "core/messages/MErrorFormatter.h"
#include "tests/controls/editor/editor_page.h"

namespace editing {

inline const std::string kStart = "Fine:20 Standard:50< Own:30 Pipe:40 50";
// The scripted scanner's errors have no texts.
inline const std::string kNoWords = hx::ToUtf8(hx::MErrorFormatter::kNoDescription);

struct Case {
    std::string what;
    std::string steps;
    std::string state;
    std::string boxes;
};

inline void Check(const Case& row, Bench& bench) {
    bench.Do(row.steps);
    EXPECT_EQ(bench.State(), row.state) << row.what;
    EXPECT_EQ(bench.Boxes(), row.boxes) << row.what;
    EXPECT_EQ(bench.Wrong(), "") << row.what;
}

inline const scripted::Values& WorkingValues(Bench& bench) {
    return static_cast<const scripted::Preset&>(*bench.page->WorkingPreset()).values;
}

}  // namespace editing
