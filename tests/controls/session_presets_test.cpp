// What sessions leave on disk: the presets of the simulated scanner, and recordings.
#include "core/keys/MRegistryKeyLib.h"
#include "platform/com/text_array.h"
#include "tests/controls/simulated_page.h"
#include "tests/memory_registry.h"

namespace {

namespace fs = std::filesystem;
using simulated::Observer;
using simulated::Page;

const hx::SessionTarget kCustom = {true, L"HXScanner", L"HX", L"$CUSTOM"};
const std::string kFactory = "$DEFAULT $SHINY $DARK $SHEETMETAL @QUALIFICATION";

class SessionFiles : public simulated::WithPages {
protected:
    // What lies on disk: the names, and the one that is selected behind a bar.
    std::string Stored() {
        const auto handle = NewHandle();
        hx::SafeArray names, display_names;
        hx::Bstr selected;
        EXPECT_EQ(handle->EnumerateDynamicSettingsPresets(Text("HX"), names.put(), display_names.put()),
                  S_OK);
        EXPECT_EQ(handle->GetSelectedDynamicSettingsPreset(Text("HX"), selected.put()), S_OK);
        const auto texts = hx::TextsOf(names.get());
        std::wstring text;
        for (const std::wstring& name : *texts) text += name + L" ";
        Lines();
        return hx::ToUtf8(text + L"| " + std::wstring(selected.view()));
    }
    // The default under another name; saves.
    static void AddOwn(Page& page) {
        auto& presets = page.session.Presets();
        page.Do([&] { presets.SetPreset(L"Own", presets.FindPresetExactly(L"$DEFAULT")); });
    }
    static std::string BytesOf(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(SessionFiles, TheCustomPresetIsStoredByTheFirstSaveOnly) {
    Page& page = Open(HXConnected, hx::kHandheldSession, kCustom);
    hx::MDynamicSettingsPresets& presets = page.session.Presets();
    EXPECT_EQ(Stored(), kFactory + " $CUSTOM | $DEFAULT");
    presets.SetSelectedName(L"$CUSTOM");
    AddOwn(page);
    EXPECT_EQ(Stored(), kFactory + " Own | $DEFAULT") << "and is never the stored selection";
    EXPECT_EQ(presets.Count(), 6u);
    // It goes with the page; what another page sees of the manager is as the store.
    const hx::PresetsReference another_page;
    page.session.OnDestroy();
    EXPECT_FALSE(another_page->FindPresetExactly(L"$CUSTOM"));
    EXPECT_EQ(another_page->Count(), 5u);
    EXPECT_EQ(another_page->SelectedName(), L"$DEFAULT");
    another_page->SetHandle(nullptr);
    another_page->SetApi(nullptr);
}

TEST_F(SessionFiles, ACustomPresetThatCouldNotBeStoredIsNotThere) {
    Fail("SaveDynamicSettingsPresets", E_ACCESSDENIED);
    Page& page = Open(HXConnected, hx::kHandheldSession, kCustom);
    EXPECT_EQ(page.boxes, std::vector<std::string>{"Save:SaveDynamicSettingsPresets"});
    EXPECT_EQ(page.session.Presets().Count(), 4u);
    Arrive(HXConnected);
    EXPECT_EQ(page.session.Presets().Count(), 5u);
    AddOwn(page);
    EXPECT_EQ(Stored(), kFactory + " Own | $DEFAULT");
}

// As a program leaves it that ends after the first save.
TEST_F(SessionFiles, AStoredCustomPresetStaysOnlyIfItIsAskedFor) {
    Open(HXConnected, hx::kHandheldSession, kCustom);
    for (const wchar_t* const profile : {L"$custom", L"$DARK"}) {
        Page& page = Open(HXConnected, hx::kHandheldSession, {true, L"HXScanner", L"HX", profile});
        EXPECT_EQ(page.session.Presets().Count(), profile[1] == L'c' ? 5u : 4u);
        EXPECT_EQ(Stored(), kFactory + " $CUSTOM | $DEFAULT");
        if (profile[1] == L'D') AddOwn(page);
    }
    EXPECT_EQ(Stored(), kFactory + " Own | $DEFAULT");
}

TEST_F(SessionFiles, AnUnknownVersionIsToldOnceAndTheOthersAreLoaded) {
    AddOwn(Open());
    fs::path file;
    for (const auto& entry : fs::directory_iterator(m_folder.path())) {
        if (entry.path().extension() == ".xml") file = entry.path();
    }
    const std::string version = "<Version type=\"uint\">6<";
    std::string bytes = BytesOf(file);
    ASSERT_NE(bytes.rfind(version), std::string::npos);
    bytes[bytes.rfind(version) + version.size() - 2] = '7';
    m_folder.Write(file.filename().string(), bytes);
    for (const bool told : {true, false}) {
        Lines();
        Page& page = Open();
        const std::string outcome = R"(handle.EnumerateDynamicSettingsPresets(HX) = 80004005
page.logged(Load:EnumerateDynamicSettingsPresets)
page.box(Load:EnumerateDynamicSettingsPresets)
handle.EnumerateDynamicSettingsPresets(HX)
handle.GetSelectedDynamicSettingsPreset(HX)
handle.GetDynamicSettingsPreset(HX, $DEFAULT)
)";
        EXPECT_EQ(Text().find(outcome) != std::string::npos, told);
        EXPECT_EQ(page.boxes.size(), told ? 1u : 0u);
        EXPECT_TRUE(page.session.IsHandleAcquired());
        EXPECT_EQ(page.session.Presets().Count(), 4u);
        EXPECT_FALSE(page.session.Presets().FindPreset(L"Own"));
    }
}

TEST_F(SessionFiles, AListThatWasReadInPartIsNotSaved) {
    Fail("GetDynamicSettingsPreset", E_FAIL, 2);
    Page& page = Open();
    EXPECT_EQ(page.boxes, std::vector<std::string>{"Load:GetDynamicSettingsPreset"});
    EXPECT_EQ(page.session.Presets().Count(), 2u);
    AddOwn(page);
    EXPECT_EQ(page.boxes.size(), 1u);
    EXPECT_EQ(Stored(), kFactory + " | $DEFAULT");
    for (const int32_t state : {0, 2, 1}) Arrive(state);
    EXPECT_EQ(page.session.Presets().Count(), 4u);
    AddOwn(page);
    EXPECT_EQ(Stored(), kFactory + " Own | $DEFAULT");
}

TEST_F(SessionFiles, ASessionLeavesTheRecordingThatTheRegistryAsksFor) {
    using Orvel::RegistryKeys::MRegistryKeyLib;
    constexpr uint32_t kEnable = 24, kTargetFolder = 27;
    hx::SetRegistry(hx::MakeMemoryRegistry());
    const fs::path folder = m_folder.path() / "recordings";
    EXPECT_TRUE(MRegistryKeyLib::GetRegistryKey(kEnable).Set(true));
    EXPECT_TRUE(MRegistryKeyLib::GetRegistryKey(kTargetFolder).Set(folder.wstring()));
    const auto recordings = [&] {
        std::vector<fs::path> found;
        for (const auto& entry : fs::directory_iterator(folder)) {
            if (entry.path().extension() == ".hxtracking") found.push_back(entry.path());
        }
        return found;
    };
    Page& page = Open();
    const uint32_t before = Observer::s_cycles;
    while (Observer::s_cycles < before + 3) std::this_thread::yield();
    EXPECT_TRUE(recordings().empty()) << "not before it is finished";
    page.session.OnDeselected();
    ASSERT_EQ(recordings().size(), 1u);
    const std::string text = BytesOf(recordings()[0]);
    EXPECT_TRUE(text.starts_with("HXTRACKING 1\n"));
    EXPECT_NE(text.find("\ncycle "), std::string::npos);
    EXPECT_NE(text.rfind("\nend "), std::string::npos);
    EXPECT_EQ(text.find('\n', text.rfind("\nend ") + 1), text.size() - 1) << "nothing behind the end";
    hx::SetRegistry(nullptr);
}

TEST_F(SessionFiles, TheRecorderIsOneForAllAndNeedNotBeInstalled) {
    EXPECT_EQ(hx::libReplayCapture::GetInstance(), hx::libReplayCapture::GetInstance());
    hx::libReplayCapture none(nullptr);
    EXPECT_TRUE(none.StartTrackingDataRecording() == 0 && none.StopTrackingDataRecording() == 0);
}

}  // namespace
