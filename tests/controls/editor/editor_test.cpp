// What the operations of the profile editor do: rows, stored values, boxes, and what the scanner is told.
#include "tests/controls/editor/editor_cases.h"

namespace editing {
namespace {

TEST(ProfileEditor, DoesWhatTheOperatorWants) {
    const Case kCases[] = {
        {"the host's profile is shown", "", kStart, ""},
        {"a name is refused, then another", "edit 60; select Own ? save own, save New",
         "Fine:20 Standard:50 New:60 Own:30< Pipe:40 30", "The profile name 'own' already exists."},
        {"edits of an own one go with the new name", "select Own; edit 35; saveas ? save New",
         "Fine:20 Standard:50 New:35< Own:30 Pipe:40 35", ""},
        {"not to another case of its name", "select Own; rename ? save OWN",
         "Fine:20 Standard:50 Own:30< Pipe:40 30", "The profile name 'OWN' already exists."},
        {"a predefined one cannot be renamed", "edit 60; rename", "Fine:20 *Standard:50< Own:30 Pipe:40 60",
         "'Standard' is a predefined profile. It cannot be renamed."},
        {"a predefined one cannot be deleted", "delete", kStart,
         "'Standard' is a predefined profile. It cannot be deleted."},
        {"saved when closed, it is the new one", "edit 60; close ? save New; edit 65; discard",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 60", ""},
        {"edits without a scanner", "unplug; edit 60; plug", "Fine:20 *Standard:50< Own:30 Pipe:40 60", ""},
        {"the host's profile is renamed", "select Own; rename ? save Zoo; unplug; plug",
         "Fine:20 Standard:50 Pipe:40 Zoo:30< 30", ""},
        {"another one than the host's", "select Own; initialise Pipe; rename ? save Zoo; unplug; plug",
         "Fine:20 Standard:50 Pipe:40< Zoo:30 40", ""},
        {"edits that another page has stored", "edit 60; change $DEFAULT=60; unplug; plug",
         "Fine:20 Standard:60< Own:30 Pipe:40 60", ""},
        {"the host's next profile waits for edits",
         "initialise Pipe; edit 60; unplug; plug; discard; unplug; plug",
         "Fine:20 Standard:50 Own:30 Pipe:40< 40", ""},
    };
    for (const Case& row : kCases) {
        Bench bench;
        Check(row, bench);
    }
    {
        Bench alike({"$own=Alpha:50", "$OWN=Beta:20"}, "$own");
        Check({"names that differ in their case alone", "select $OWN; rename", "Alpha:50 Beta:20< 20",
               "'Beta' is a predefined profile. It cannot be renamed."},
              alike);
    }
    {
        Bench bench({"Own=Own:30"}, "Own");
        Check({"the last one", "edit 35; delete", "disabled", ""}, bench);
    }
    {
        Bench bench;
        bench.Do("select Own; edit 35; unplug; plug");
        EXPECT_EQ(WorkingValues(bench).name, L"Own");
        bench.Do("select Pipe");
        EXPECT_EQ(WorkingValues(bench).name, L"Pipe");
    }
    // A page that no host has told anything takes the selection that all pages share: not with edits.
    Bench bench;
    bench.page->Session().Target().initialised = false;
    bench.Do("edit 60");
    bench.Presets().SetSelectedName(L"Pipe");
    Check({"edits stay", "unplug; plug", "Fine:20 *Standard:50< Own:30 Pipe:40 60", ""}, bench);
    Check({"without them", "discard; unplug; plug", "Fine:20 Standard:50 Own:30 Pipe:40< 40", ""}, bench);
}

TEST(ProfileEditor, TellsTheScannerAndTheHost) {
    Bench bench;
    const struct {
        std::string steps;
        std::string calls;  // of the handle
    } kRows[] = {
        // Where it is dragged to, and where it is let go.
        {"edit 60", "ActivateDynamicSettings 60, ActivateDynamicSettings 60"},
        {"select Own ? save New",
         "CreateDynamicSettingsPreset, "
         "SaveDynamicSettingsPresets device [$DEFAULT, $FINE, Own, Pipe, New] $DEFAULT, "
         "ActivateDynamicSettings 30, SaveDynamicSettingsPresets device [$DEFAULT, $FINE, Own, Pipe, New] "
         "Own, ActivateDynamicSettings 30"},
        {"close",
         "ActivateDynamicSettings 30, SaveDynamicSettingsPresets device [$DEFAULT, $FINE, Own, Pipe, New] "
         "Own, ActivateDynamicSettings 30, SaveDynamicSettingsPresets device [$DEFAULT, $FINE, Own, Pipe, "
         "New] Own"},
        {"rename ? save Zoo", "SaveDynamicSettingsPresets device [$DEFAULT, $FINE, Zoo, Pipe, New] Zoo"},
        {"edit 31", "ActivateDynamicSettings 31, ActivateDynamicSettings 31"},
        {"discard", "ActivateDynamicSettings 30"},
    };
    for (const auto& row : kRows) {
        bench.script.calls.clear();
        bench.Do(row.steps);
        EXPECT_EQ(bench.script.Calls(), row.calls) << row.steps;
    }
    EXPECT_EQ(bench.page->reported, "Own");
    EXPECT_TRUE(bench.committed);
    bench.Do("select $FINE; edit 25");
    bench.page->reported.clear();
    bench.script.calls.clear();
    bench.Do("close ? cancel");
    EXPECT_FALSE(bench.committed);
    EXPECT_EQ(bench.script.Calls(),
              "SaveDynamicSettingsPresets device [$DEFAULT, $FINE, Zoo, Pipe, New] $FINE");
    EXPECT_EQ(bench.page->reported, "$FINE") << "what is selected is told also to a host that stays";
}

TEST(ProfileEditor, ClosesWithoutAStoreIfNothingIsLost) {
    Bench bench;
    bench.Do("select Own; edit 35");
    bench.script.failures = {{"SaveDynamicSettingsPresets", {E_ABORT, 0}}};
    bench.Do("close");
    EXPECT_FALSE(bench.committed);
    EXPECT_EQ(bench.Boxes(), kNoWords);
    bench.Do("close");
    EXPECT_TRUE(bench.committed) << "nobody is locked in";
    const struct {
        const char* what;
        const char* steps;
        int32_t after;  // that many stores
        bool closes;
    } kRows[] = {
        {"the second store of the close succeeds", "edit 36; close", 0, false},
        {"again", "edit 37; close", 0, true},
        {"nothing fails", "edit 38; close", -1, true},
        {"the first store succeeds", "edit 39; close", 1, false},
        {"nothing fails", "close", -1, true},
        {"there are no edits", "close", 0, true},
    };
    bench.script.failures.clear();
    bench.Do("close");
    for (const auto& row : kRows) {
        bench.page->reported.clear();
        bench.script.failures.clear();
        if (row.after >= 0) bench.script.failures["SaveDynamicSettingsPresets"] = {E_ABORT, row.after};
        bench.script.fails_once = true;
        bench.Do(row.steps);
        EXPECT_EQ(bench.committed, row.closes) << row.what;
    }
    EXPECT_EQ(bench.script.values[L"Own"].laser_power, 39);
    EXPECT_EQ(bench.page->reported, "Own");
}

}  // namespace
}  // namespace editing
