// The presets manager: its list, and loading and saving it.
#include "controls/presets/PresetsReference.h"
#include "tests/controls/scripted_api.h"

namespace {

using scripted::Raised;
using Presets = hx::MDynamicSettingsPresets;

class PresetsManager : public testing::Test {
protected:
    PresetsManager() {
        m_presets.SetHandle(hx::Make<scripted::Handle>(m_script));
        m_presets.SetNames(L"driver", L"device");
    }
    // "name=display name" of each.
    std::string List() const {
        std::vector<std::string> rows;
        for (size_t i = 0; i < m_presets.Count(); ++i) {
            const hx::PresetEntry& entry = m_presets.At(i);
            EXPECT_TRUE(entry.preset);
            rows.push_back(scripted::Narrow(entry.name + L"=" + entry.display_name));
        }
        return scripted::Joined(rows);
    }
    std::string Saved(const std::string& names, const std::string& selected) const {
        return "SaveDynamicSettingsPresets device [" + names + "] " + selected;
    }
    // Loads, and forgets the calls for it.
    void Load() {
        m_presets.Load();
        m_script.calls.clear();
    }

    scripted::Script m_script;
    Presets m_presets;
};

TEST_F(PresetsManager, LoadsInOrderWithoutHiddenNames) {
    m_script.names = {L"$DEFAULT", L"@hidden", L"Own", L"@", L"own", L"Own"};
    m_script.display_names = {L"Standard", L"-", L"Mine", L"-", L"other", L"third"};
    m_presets.Load();
    EXPECT_EQ(List(), "$DEFAULT=Standard, Own=Mine, own=other, Own=third");
    EXPECT_EQ(m_presets.SelectedName(), L"$DEFAULT");
    EXPECT_EQ(
        m_script.Calls(),
        "EnumerateDynamicSettingsPresets device, GetSelectedDynamicSettingsPreset, "
        "GetDynamicSettingsPreset $DEFAULT, GetDynamicSettingsPreset Own, GetDynamicSettingsPreset own, "
        "GetDynamicSettingsPreset Own");
    m_presets.LoadOnce();
    EXPECT_EQ(m_script.Calls(), "");
    // The first of equal names counts, in any case or in this one.
    EXPECT_EQ(m_presets.FindPreset(L"OWN"), m_presets.At(1).preset);
    EXPECT_EQ(m_presets.FindPresetExactly(L"own"), m_presets.At(2).preset);
    EXPECT_FALSE(m_presets.FindPresetExactly(L"OWN"));
    EXPECT_EQ(m_presets.DisplayName(L"OWN"), L"Mine");
    EXPECT_EQ(m_presets.DisplayName(L"@hidden"), L"");
    m_presets.RemovePreset(L"Own");
    EXPECT_EQ(List(), "$DEFAULT=Standard, own=other, Own=third");
    EXPECT_EQ(m_presets.DisplayName(L"Own"), L"third") << "the exact one before others";
    EXPECT_EQ(m_presets.DisplayName(L"OWN"), L"other");
    m_presets.Rename(L"OWN", L"x");
    m_presets.Rename(L"own", L"New");
    m_presets.SetDisplayName(L"Own", L"Last");
    EXPECT_EQ(List(), "$DEFAULT=Standard, New=New, Own=Last");
    EXPECT_EQ(m_presets.DisplayName(L"own"), L"Last");
    EXPECT_TRUE(m_presets.IsReserved(L"$DEFAULT"));
    EXPECT_FALSE(m_presets.IsReserved(L"$default") || m_presets.IsReserved(L"$other") ||
                 m_presets.IsReserved(L"New"));
}

TEST_F(PresetsManager, WithoutAnOwnerNothingIsLoadedOrSaved) {
    m_presets.SetNames(L"driver", L"");
    m_presets.LoadOnce();
    m_presets.SetNames(L"driver", L"device");
    m_presets.LoadOnce();  // that was all
    m_presets.Save();
    EXPECT_EQ(m_script.Calls(), "");
    EXPECT_EQ(List(), "");
}

TEST_F(PresetsManager, SavesOnlyWhatWasLoadedCompletely) {
    Load();
    m_presets.SetNames(L"driver", L"another");
    m_presets.Save();
    EXPECT_EQ(m_script.Calls(), "");
    m_presets.SetNames(L"driver", L"device");
    m_presets.Save();
    EXPECT_EQ(m_script.Calls(), Saved("$DEFAULT, Own", "$DEFAULT"));
    // The second preset cannot be had: the first stays in the list, which is not stored.
    m_script.failures["GetDynamicSettingsPreset"] = {E_FAIL, 1};
    EXPECT_NE(Raised([&] { m_presets.Load(); }), "");
    m_script.calls.clear();
    m_presets.SetPreset(L"new", hx::Make<scripted::Preset>(m_script));
    EXPECT_EQ(List(), "$DEFAULT=Standard, new=new");
    EXPECT_EQ(m_script.Calls(), "");
}

TEST_F(PresetsManager, TheCustomPresetIsStoredOnceAndNeverSelected) {
    struct Row {
        const char* what;
        const wchar_t* loaded_selection;
        const char* stored_selection;
    };
    const Row rows[] = {
        {"the loaded selection", L"Own", "Own"},
        {"that is gone", L"Gone", "$DEFAULT"},
        {"that is none", L"", "$DEFAULT"},
        {"in another case", L"own", "$DEFAULT"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        m_script.selected = row.loaded_selection;
        Load();
        EXPECT_TRUE(m_presets.SetCustomPreset());
        EXPECT_EQ(m_script.Calls(),
                  "CreateDynamicSettingsPreset, " +
                      Saved("$DEFAULT, Own, $CUSTOM",
                            *row.loaded_selection == 0 ? "null" : scripted::Narrow(m_script.selected)));
        EXPECT_EQ(List(), "$DEFAULT=Standard, Own=Own, $CUSTOM=User Defined");
        EXPECT_TRUE(m_presets.SetCustomPreset());
        EXPECT_EQ(m_script.Calls(), "");
        m_presets.SetSelectedName(L"$CUSTOM");
        m_presets.Save();
        EXPECT_EQ(m_script.Calls(), Saved("$DEFAULT, Own", row.stored_selection));
        m_presets.RemoveCustomPreset();
        EXPECT_EQ(scripted::Narrow(m_presets.SelectedName()), row.stored_selection);
        EXPECT_EQ(List(), "$DEFAULT=Standard, Own=Own");
    }
}

TEST_F(PresetsManager, AStoredCustomPresetIsDiscardedOnlyOnRequest) {
    m_script.names = {L"$CUSTOM", L"Own"};
    m_script.selected = L"$CUSTOM";
    Load();
    EXPECT_FALSE(m_presets.SetCustomPreset());
    m_presets.RemoveCustomPreset();
    m_presets.Save();
    EXPECT_EQ(m_script.Calls(), Saved("$CUSTOM, Own", "$CUSTOM"));
    m_presets.DiscardCustomPreset();
    m_presets.Save();
    EXPECT_EQ(m_script.Calls(), Saved("Own", "$DEFAULT"));
}

TEST_F(PresetsManager, FailuresNameTheCallAndTheirCause) {
    m_script.chain_code = L"Remote.Cause:Real";
    struct Row {
        const char* call;
        const char* location;
        void (*run)(Presets&);
    };
    const auto load = [](Presets& presets) { presets.Load(); };
    const Row rows[] = {
        {"EnumerateDynamicSettingsPresets", "Load", load},
        {"GetSelectedDynamicSettingsPreset", "Load", load},
        {"GetDynamicSettingsPreset", "Load", load},
        {"SaveDynamicSettingsPresets", "Save", [](Presets& presets) { presets.Save(); }},
        {"CreateDynamicSettingsPreset", "CreateNewPreset",
         [](Presets& presets) { presets.CreateNewPreset(); }},
        {"CreateDynamicSettingsPreset", "SetCustomPreset",
         [](Presets& presets) { presets.SetCustomPreset(); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.call);
        Load();
        m_script.failures[row.call] = {E_ACCESSDENIED, 0};
        EXPECT_EQ(Raised([&] { row.run(m_presets); }),
                  std::string("Remote.Cause:Real, MErrorCom.MErrorCom:, MDynamicSettingsPresets.") +
                      row.location + ":" + row.call);
        m_script.failures.clear();
    }
    // What an older failure left behind is not the cause of this one.
    m_script.failures = {{"CloseHandle", {E_FAIL, 0}}, {"CreateDynamicSettingsPreset", {E_FAIL, 0}}};
    m_presets.Handle()->CloseHandle();
    m_script.chain_code.clear();
    EXPECT_EQ(Raised([&] { m_presets.CreateNewPreset(); }),
              "MErrorCom.MErrorCom:, MDynamicSettingsPresets.CreateNewPreset:CreateDynamicSettingsPreset");
    m_script.failures.clear();
    Load();
    EXPECT_EQ(List(), "$DEFAULT=Standard, Own=Own");
    m_presets.SetHandle(nullptr);
    EXPECT_NE(Raised([&] { m_presets.Save(); }), "");
    // Arrays that do not belong together.
    m_presets.SetHandle(hx::Make<scripted::Handle>(m_script));
    m_script.display_names.pop_back();
    EXPECT_EQ(Raised([&] { m_presets.Load(); }),
              "MErrorCom.MErrorCom:, MDynamicSettingsPresets.Load:EnumerateDynamicSettingsPresets");
}

TEST_F(PresetsManager, OutcomesAreRecognisedAnywhereInTheChain) {
    const auto is_outcome = [&](std::wstring_view code) {
        m_script.chain_code = code;
        m_script.failures["EnumerateDynamicSettingsPresets"] = {E_FAIL, 0};
        try {
            m_presets.Load();
        } catch (const hx::MException& exception) {
            return Presets::IsEnumerationOutcome(exception);
        }
        return false;
    };
    EXPECT_TRUE(is_outcome(kHXPresetsCustomRestored) && is_outcome(kHXPresetsCustomGenerated) &&
                is_outcome(kHXPresetsUnknownVersion));
    EXPECT_FALSE(is_outcome(L"IProperties.EnumerateDynamicSettingsPresets:Other") || is_outcome(L""));
}

}  // namespace
