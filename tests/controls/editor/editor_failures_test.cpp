// What becomes of profiles and edits when calls fail, other pages work on the same list, or something comes
// in while the operator is asked.
#include "tests/controls/editor/editor_cases.h"

namespace editing {
namespace {

// A call of the scanner API that fails once, in the middle of an operation; then what the operator does next.
TEST(ProfileEditor, FailuresDamageNoProfile) {
    const struct {
        std::string what, steps, state_then, failing;
        int32_t after;
        std::string then, state;
    } kRows[] = {
        // The other profile cannot be shown: what is edited next is still the first one.
        {"activation", "select Own", kStart, "ActivateDynamicSettings", 0, "edit 60",
         "Fine:20 *Standard:50< Own:30 Pipe:40 60"},
        {"own edits are stored before", "select Own; edit 35; !; select Pipe",
         "Fine:20 Standard:50 Own:35< Pipe:40 35", "ActivateDynamicSettings", 0, "edit 36; discard",
         "Fine:20 Standard:50 Own:35< Pipe:40 35"},
        {"own edits, and then the name", "select Own; edit 35; !; select Pipe",
         "Fine:20 Standard:50 Own:35< Pipe:40 35", "SetName", 0, "edit 36; discard",
         "Fine:20 Standard:50 Own:35< Pipe:40 35"},
        {"edits are saved before", "edit 60; !; select Own ? save New",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 60", "ActivateDynamicSettings", 0, "edit 61; discard",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 60"},
        {"edits are saved before, and then the name", "edit 60; !; select Own ? save New",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 60", "SetName", 0,
         "edit 70; select Pipe; edit 45; discard", "Fine:20 Standard:50 New:70 Own:30 Pipe:40< 40"},
        {"discarding does not come to its end", "edit 60; !; select Own ? discard",
         "Fine:20 *Standard:50< Own:30 Pipe:40 60", "ActivateDynamicSettings", 0, "discard", kStart},
        {"nor by the menu", "edit 60; !; discard", "Fine:20 *Standard:50< Own:30 Pipe:40 60",
         "ActivateDynamicSettings", 0, "discard", kStart},
        {"the new one cannot be made", "edit 60; !; saveas ? save New",
         "Fine:20 *Standard:50< Own:30 Pipe:40 60", "CreateDynamicSettingsPreset", 0, "saveas ? save New",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 60"},
        {"nor stored", "edit 60; !; saveas ? save New", "Fine:20 *Standard:50< Own:30 Pipe:40 60",
         "SaveDynamicSettingsPresets", 0, "saveas ? save New",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 60"},
        {"nor stored when asked", "edit 60; !; select Own ? save New",
         "Fine:20 *Standard:50< Own:30 Pipe:40 60", "SaveDynamicSettingsPresets", 0, "select Own ? save New",
         "Fine:20 Standard:50 New:60 Own:30< Pipe:40 30"},
        // The selection itself is in effect.
        {"the selection is not stored", "select Own", "Fine:20 Standard:50 Own:30< Pipe:40 30",
         "SaveDynamicSettingsPresets", 0, "edit 35; select Pipe", "Fine:20 Standard:50 Own:35 Pipe:40< 40"},
        {"a rename is not stored", "select Own; !; rename ? save Zoo",
         "Fine:20 Standard:50 Pipe:40 Zoo:30< 30", "SaveDynamicSettingsPresets", 0, "edit 35; select Pipe",
         "Fine:20 Standard:50 Pipe:40< Zoo:35 40"},
        {"a deletion is not stored", "select Own; !; delete", "Fine:20 Standard:50 Pipe:40< 40",
         "SaveDynamicSettingsPresets", 0, "edit 45; discard", "Fine:20 Standard:50 Pipe:40< 40"},
        // What the controls show is not left without a question.
        {"an edit is refused", "edit 60", "Fine:20 *Standard:50< Own:30 Pipe:40 60", "SetLaserPower", 0,
         "select Own ? save New", "Fine:20 Standard:50 New:60 Own:30< Pipe:40 30"},
        {"or cannot be compared", "select Own; !; edit 35", "Fine:20 Standard:50 *Own:30< Pipe:40 35",
         "GetLaserPower", 0, "select Pipe", "Fine:20 Standard:50 Own:35 Pipe:40< 40"},
        // Nothing can be edited while the page and the profile do not agree.
        {"a read after it was shown", "select Own", "Fine:20 Standard:50 Own:30< Pipe:40 disabled",
         "GetMaxInclination", 1, "edit 60; select Pipe; select Own",
         "Fine:20 Standard:50 Own:30< Pipe:40 30"},
        {"a write after it was shown", "select Own", "Fine:20 Standard:50 Own:30< Pipe:40 disabled",
         "SetRFEnabled", 0, "saveas ? save New", "Fine:20 Standard:50 New:30< Own:30 Pipe:40 30"},
        {"what is edited goes on as before", "edit 60; !; saveas ? save New",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 disabled", "SetLaserPower", 3,
         "edit 61; saveas ? save X", "Fine:20 Standard:50 New:60 Own:30 Pipe:40 X:60< 60"},
        {"nor when it is closed", "edit 60; !; close ? save New",
         "Fine:20 Standard:50 New:60< Own:30 Pipe:40 disabled", "SetLaserPower", 3, "edit 61; select Pipe",
         "Fine:20 Standard:50 New:60 Own:30 Pipe:40< 40"},
        {"the new one gets half of them", "edit 60; !; select Own ? save New",
         "Fine:20 *Standard:50< Own:30 Pipe:40 60", "SetLaserPower", 2, "select Own ? save New",
         "Fine:20 Standard:50 New:60 Own:30< Pipe:40 30"},
        {"the edits are not read", "select Own; edit 35; !; select Pipe",
         "Fine:20 Standard:50 *Own:30< Pipe:40 35", "GetLaserPower", 0, "select Pipe",
         "Fine:20 Standard:50 Own:35 Pipe:40< 40"},
        {"after a deletion nothing else is shown", "select Own; !; delete",
         "Fine:20 Standard:50 Pipe:40< disabled", "ActivateDynamicSettings", 0, "select $FINE; select Pipe",
         "Fine:20 Standard:50 Pipe:40< 40"},
        {"closing without a store", "select Own; edit 35; !; close", "Fine:20 Standard:50 Own:35< Pipe:40 35",
         "SaveDynamicSettingsPresets", 0, "edit 36; close", "Fine:20 Standard:50 Own:36< Pipe:40 36"},
    };
    for (const auto& row : kRows) {
        Bench bench;
        const std::string& steps = row.steps;
        const size_t mark = steps.find("!;");
        if (mark != std::string::npos) bench.Do(steps.substr(0, mark));
        bench.script.failures = {{row.failing, {E_ABORT, row.after}}};
        // Once: what is done about it succeeds.
        bench.script.fails_once = true;
        bench.Do(mark != std::string::npos ? steps.substr(mark + 2) : steps);
        EXPECT_TRUE(bench.script.failures.empty()) << row.what;
        EXPECT_EQ(bench.State(), row.state_then) << row.what;
        EXPECT_NE(bench.Boxes(), "") << row.what;
        EXPECT_EQ(bench.Wrong(), "") << row.what;
        Check({row.what + ", then", row.then, row.state, ""}, bench);
    }
    // Shown, and then not activated with its edits.
    Bench bench;
    bench.script.failures = {{"ActivateDynamicSettings", {E_ABORT, 1}}};
    bench.Do("select Own");
    EXPECT_EQ(bench.State(), "Fine:20 Standard:50< Own:30 Pipe:40 30");
}

TEST(ProfileEditor, ProfilesThatCannotBeShownLeaveTheListUsable) {
    Bench bench;
    bench.script.gains = {L"4"};
    bench.Do("unplug; plug");
    EXPECT_EQ(bench.Boxes(), "The scanner doesn't support the gain setting of this profile.");
    EXPECT_EQ(bench.State(), "Fine:20 Standard:50< Own:30 Pipe:40 disabled");
    bench.Do("edit 60; saveas ? save Copy");
    EXPECT_EQ(bench.Boxes(), "The scanner doesn't support the gain setting of this profile.");
    EXPECT_EQ(bench.State(), "Fine:20 Standard:50 Copy:50< Own:30 Pipe:40 disabled") << "as it is stored";
    bench.Presets().FindPreset(L"Pipe")->SetAnalogImagerGain(4);
    Check({"another one can", "select Pipe; edit 45", "Fine:20 Standard:50 Copy:50 Own:30 *Pipe:40< 45", ""},
          bench);
    bench.Do("initialise Own; discard; unplug; plug");
    EXPECT_NE(bench.Boxes(), "");
    EXPECT_EQ(WorkingValues(bench).laser_power, 30);
    bench.Do("select Pipe; edit 45");
    // With edits, too.
    bench.script.gains = {L"1"};
    bench.Do("unplug; plug");
    EXPECT_NE(bench.Boxes(), "");
    EXPECT_EQ(bench.State(), "Fine:20 Standard:50 Copy:50 Own:30 *Pipe:40< disabled");
    bench.Do("select Own");
    EXPECT_EQ(bench.State(), "Fine:20 Standard:50 Copy:50 Own:30< Pipe:45 30");
    EXPECT_EQ(bench.Wrong(), "");
}

// A set-up that fails before it comes to the profiles takes no edits along.
TEST(ProfileEditor, EditsOutliveSetUpsThatFail) {
    for (const char* const failing : {"CreateDynamicSettingsPreset", "GetMaxExposureTime", "AcquireHandle"}) {
        Bench bench;
        bench.Do("select Own; edit 35; unplug");
        bench.script.failures = {{failing, {E_ABORT, 0}}};
        bench.Do("plug");
        EXPECT_NE(bench.Boxes(), "");
        bench.script.failures.clear();
        Check({failing, "unplug; plug; select Pipe", "Fine:20 Standard:50 Own:35 Pipe:40< 40", ""}, bench);
    }
}

// The custom preset is not stored: it is there as long as somebody has edits of it.
TEST(ProfileEditor, EditsOfTheCustomProfileOutliveASetUp) {
    {
        Bench bench({"$DEFAULT=Standard:50", "$CUSTOM=Mine:10", "Own=Own:30", "Pipe=Pipe:40"}, "$CUSTOM");
        Check({"they stay", "edit 15; initialise Pipe; unplug; plug",
               "*Mine:10< Standard:50 Own:30 Pipe:40 15", ""},
              bench);
        Check({"and are asked for", "select Own ? save New", "Mine:10 Standard:50 New:15 Own:30< Pipe:40 30",
               ""},
              bench);
        Check({"until there are none", "unplug; plug", "Standard:50 New:15 Own:30< Pipe:40 30", ""}, bench);
    }
    Bench bench({"$DEFAULT=Standard:50", "$CUSTOM=Mine:10", "Own=Own:30"}, "$CUSTOM");
    Check({"also when another page has removed it", "edit 15; initialise Own; remove $CUSTOM; unplug; plug",
           "Standard:50 *User Defined:10< Own:30 15", ""},
          bench);
}

// What another page does to the list that both share. Edits are not lost with their profile.
TEST(ProfileEditor, ProfilesMayBeGone) {
    const std::string kOwn = "select Own; edit 35; ", kSetUp = "; unplug; plug";
    const std::string kAlike = kOwn + "move Own=Zoo; move Pipe=OWN" + kSetUp;
    const std::string kNoRow = "Fine:20 Standard:50 OWN:40 Zoo:30 35";
    const std::string kPredefined = "edit 60; remove $DEFAULT" + kSetUp;
    const Case kCases[] = {
        {"the one that is selected", "remove Own; select Own", "Fine:20 Standard:50< Pipe:40 50", ""},
        {"the one that is renamed", "select Own; remove Own; rename ? save New",
         "Fine:20< Standard:50 Pipe:40 20", ""},
        {"renamed, with edits", kOwn + "remove Own; rename ? save New",
         "Fine:20 Standard:50 *New:30< Pipe:40 35", ""},
        {"left", kOwn + "remove Own; select Pipe", "Fine:20 Standard:50 Own:35 Pipe:40< 40", ""},
        {"left, when the other one is gone", kOwn + "remove Own; remove Pipe; select Pipe",
         "Fine:20 Standard:50 Own:35< 35", ""},
        {"left, and not stored", kOwn + "remove Own; fail SaveDynamicSettingsPresets; select Pipe",
         "Fine:20 Standard:50 *Own:gone< Pipe:40 35", kNoWords},
        {"a predefined one that is left", "edit 60; remove $DEFAULT; select Own ? save New",
         "Fine:20 New:60 Own:30< Pipe:40 30", ""},

        {"set up", kOwn + "remove Own" + kSetUp, "Fine:20 Standard:50 *Own:30< Pipe:40 35", ""},
        {"and discarded", kOwn + "remove Own" + kSetUp + "; discard",
         "Fine:20 Standard:50 Own:30< Pipe:40 30", ""},
        {"saved", kOwn + "remove Own" + kSetUp + "; saveas ? save New",
         "Fine:20 Standard:50 New:35< Own:30 Pipe:40 35", ""},
        {"beside its new name", kOwn + "move Own=Zoo" + kSetUp + "; select Zoo",
         "Fine:20 Standard:50 Own:35 Pipe:40 Zoo:30< 30", ""},
        {"closed", kOwn + "move Own=Zoo" + kSetUp + "; close",
         "Fine:20 Standard:50 Own:35< Pipe:40 Zoo:30 35", ""},
        {"not stored", kOwn + "remove Own; fail SaveDynamicSettingsPresets" + kSetUp,
         "Fine:20 Standard:50 Pipe:40 35", kNoWords},
        {"not made, and then left",
         kOwn + "remove Own; fail SaveDynamicSettingsPresets" + kSetUp + "; edit 36; select Pipe",
         "Fine:20 Standard:50 Own:36 Pipe:40< 40", kNoWords},
        {"nor then",
         kOwn + "remove Own; fail SaveDynamicSettingsPresets" + kSetUp +
             "; fail CreateDynamicSettingsPreset; select Pipe",
         "Fine:20 Standard:50 Pipe:40 35", kNoWords + " | " + kNoWords},
        {"stored by the next set-up", kOwn + "remove Own; fail SaveDynamicSettingsPresets" + kSetUp + kSetUp,
         "Fine:20 Standard:50 *Own:30< Pipe:40 35", kNoWords},

        // Another one's name differs in its case alone.
        {"no row", kAlike, kNoRow, ""},
        {"as long as nobody answers", kAlike + "; edit 30; select Zoo ? cancel",
         "Fine:20 Standard:50 OWN:40 Zoo:30 30", ""},
        {"closed without an answer", kAlike + "; close; rename; delete; saveas", kNoRow, ""},
        {"kept", kAlike + "; select OWN ? save New", "Fine:20 Standard:50 New:35 OWN:40< Zoo:30 40", ""},
        {"kept when closed", kAlike + "; close ? save New", "Fine:20 Standard:50 New:35< OWN:40 Zoo:30 35",
         ""},
        {"dropped", kAlike + "; select Zoo ? discard", "Fine:20 Standard:50 OWN:40 Zoo:30< 30", ""},
        {"dropped when closed", kAlike + "; close ? discard", "Fine:20 Standard:50 OWN:40< Zoo:30 40", ""},
        {"not renamed", kOwn + "move Own=Zoo; move Pipe=OWN; rename ? save New", kNoRow, ""},

        // What is not the operator's is not made one.
        {"a predefined one", kPredefined, "Fine:20 Own:30 Pipe:40 60", ""},
        {"kept by a new name", kPredefined + "; select Own ? save $DEFAULT, save New",
         "Fine:20 New:60 Own:30< Pipe:40 30",
         "The profile name '$DEFAULT' is reserved and cannot be used.\nChoose a different name for the new "
         "profile."},
        {"dropped by choice", kPredefined + "; close ? discard", "Fine:20< Own:30 Pipe:40 20", ""},
    };
    for (const Case& row : kCases) {
        Bench bench;
        Check(row, bench);
    }
    for (const std::string ask : {"saveas ? save New", "rename ? save New"}) {
        Bench bench;
        bench.Do(kOwn);
        bench.while_asked = [&] { bench.Do("remove Own; unplug; plug"); };
        bench.Do(ask);
        EXPECT_EQ(bench.State(), ask.starts_with("saveas") ? "Fine:20 Standard:50 New:35< Pipe:40 35"
                                                           : "Fine:20 Standard:50 *New:30< Pipe:40 35");
        EXPECT_EQ(bench.Wrong(), "") << ask;
    }
}

TEST(ProfileEditor, EditsAreStoredThoughTheNextProfileIsGone) {
    Bench bench;
    bench.Do("select Own; edit 35");
    bench.Presets().RemovePreset(L"Pipe");
    bench.script.calls.clear();
    bench.Do("select Pipe");
    EXPECT_EQ(bench.script.Calls(), "SaveDynamicSettingsPresets device [$DEFAULT, $FINE, Own] Own");
}

// What comes in while the operator is asked.
TEST(ProfileEditor, QuestionsMayBeOvertaken) {
    const struct {
        const char* what;
        void (*comes)(Bench& bench);
        bool goes_on;
    } kRows[] = {
        {"the scanner goes and comes", [](Bench& bench) { bench.Do("unplug; plug"); }, true},
        {"another close", [](Bench& bench) { EXPECT_FALSE(bench.page->CommitOnClose()); }, true},
        {"another page", [](Bench& bench) { bench.page->Session().OnDeselected(); }, false},
    };
    for (const auto& row : kRows) {
        for (const std::string ask : {"select Own ? save New", "saveas ? save New", "close ? save New"}) {
            Bench bench;
            bench.Do("edit 60");
            bench.while_asked = [&] { row.comes(bench); };
            const std::string done = ask.starts_with("select")
                                         ? "Fine:20 Standard:50 New:60 Own:30< Pipe:40 30"
                                         : "Fine:20 Standard:50 New:60< Own:30 Pipe:40 60";
            Check({ask + ": " + row.what, ask, row.goes_on ? done : "Fine:20 *Standard:50< Own:30 Pipe:40 60",
                   ""},
                  bench);
            EXPECT_EQ(bench.committed, row.goes_on && ask.starts_with("close")) << ask << row.what;
        }
    }
    for (const std::string ask : {"select Own ? discard", "select Own ? cancel"}) {
        Bench bench;
        bench.Do("edit 60");
        const bool is_left = ask.ends_with("discard");
        bench.while_asked = [&] {
            bench.page->ProfileList().SelectByName(is_left ? L"$DEFAULT" : L"Pipe");
            if (is_left) bench.page->Session().OnDeselected();
        };
        Check({ask, ask, "Fine:20 *Standard:50< Own:30 Pipe:40 60", ""}, bench);
    }
    {
        Bench bench;
        bench.Do("select Own");
        bench.while_asked = [&] { bench.page->Session().OnDeselected(); };
        Check({"left with a new name", "rename ? save New", "Fine:20 Standard:50 Own:30< Pipe:40 30", ""},
              bench);
    }
    // A box, in which the page is left: the profile before is still the current one.
    Bench bench;
    bench.script.failures = {{"ActivateDynamicSettings", {E_ABORT, 0}}};
    bench.script.fails_once = true;
    bench.while_box = [&] { bench.page->Session().OnDeselected(); };
    Check({"left in a box", "select Own; edit 60", "Fine:20 *Standard:50< Own:30 Pipe:40 60", kNoWords},
          bench);
}

TEST(ProfileEditor, MenusMayBeOvertaken) {
    constexpr uint32_t kDelete = 32771;
    Bench bench;
    hx::ui::Script script;
    const auto delete_by_menu = [&](std::function<void()> meanwhile) {
        script.AnswerMenu(kDelete);
        script.while_menu = std::move(meanwhile);
        bench.page->ProfileList().OnContextMenu({-1, -1});
    };
    bench.Do("select Own; edit 35");
    delete_by_menu([&] {
        const auto working = bench.page->WorkingPreset();
        bench.script.longest_exposure_us = 20000;
        bench.Do("unplug; plug");
        EXPECT_EQ(bench.page->WorkingPreset(), working) << "set up when the menu is closed";
    });
    EXPECT_EQ(bench.page->Data().exposure_range_max, 20000u);
    EXPECT_EQ(bench.State(), "Fine:20 Standard:50 Pipe:40< 40");
    delete_by_menu([&] {
        bench.page->ProfileList().SelectByName(L"$FINE");
        bench.page->OnPresetSelectionChanged();
    });
    EXPECT_EQ(bench.State(), "Fine:20< Standard:50 Pipe:40 20") << "not what was selected meanwhile";
    EXPECT_TRUE(script.TakeBoxes().empty());
    delete_by_menu([&] { bench.page.reset(); });
    EXPECT_FALSE(bench.page);
}

// What an API that was left meanwhile says of the connection is worth nothing.
TEST(ProfileEditor, AnotherApiMayComeWhileOneIsAskedForItsState) {
    for (const bool closed : {false, true}) {
        Bench bench;
        const auto first = hx::Make<scripted::Api>(bench.script).as<IHXApi>();
        const auto second = hx::Make<scripted::Api>(bench.script).as<IHXApi>();
        bench.Do("unplug");
        bench.script.state = HXConnected;
        bool came = false;
        bench.script.during = [&](const std::string&) {
            if (std::exchange(came, true)) return;
            bench.script.state = HXNotConnected;
            if (closed) return bench.page.reset();
            bench.page->Session().SetApi(second);
        };
        bench.page->Session().SetApi(first);
        bench.script.during = nullptr;
        ASSERT_EQ(bench.page == nullptr, closed);
        if (closed) continue;
        EXPECT_EQ(bench.page->Session().ConnectionState(), HXNotConnected);
        EXPECT_EQ(bench.page->Session().Api(), second);
    }
}

// The page is gone when the operator has answered.
TEST(ProfileEditor, MayBeClosedInAQuestion) {
    for (const std::string ask : {"select Own ? save New", "select Own ? discard", "saveas ? save New",
                                  "close ? save New", "rename ? save New"}) {
        Bench bench;
        bench.Do(ask.starts_with("rename") ? "select Own" : "edit 60");
        bench.while_asked = [&] { bench.page.reset(); };
        bench.Do(ask);
        EXPECT_FALSE(bench.page);
        EXPECT_FALSE(bench.committed);
    }
}

}  // namespace
}  // namespace editing
