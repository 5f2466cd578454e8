// Lists that are saved come back; names of owners and presets; who keeps what.
#include <rapidcheck.h>

#include <thread>

#include "simulator/presets/OwnerFileName.h"
#include "tests/simulator/presets/store_fixture.h"

namespace hx::simulator {
namespace {

// Any characters, but for halves of pairs.
rc::Gen<std::wstring> AnyText() {
    const auto character = rc::gen::map(
        rc::gen::oneOf(rc::gen::inRange(0, 0x80), rc::gen::inRange(0x80, 0xD800),
                       rc::gen::inRange(0xE000, 0x110000),
                       rc::gen::element<int>('<', '&', '>', '"', '\r', '\n', '\t', ' ', ';', ']')),
        [](int code) { return static_cast<wchar_t>(code); });
    return rc::gen::container<std::wstring>(character);
}

StoredPreset AnyPreset(std::wstring name) {
    StoredPreset preset = MakePreset(name);
    MLaserProfileSettings& profile = preset.profile;
    preset.display_name = *AnyText();
    profile.LaserPower = *rc::gen::inRange(0, 801) / 8.0;
    profile.ExposureTime = *rc::gen::arbitrary<int>() / 8.0;
    profile.SignalThreshold = *rc::gen::arbitrary<uint16_t>();
    profile.MaxInclination = *rc::gen::arbitrary<int>() / 8.0;
    profile.EdgeFilter3DEnabled = *rc::gen::arbitrary<bool>();
    profile.EdgeFilter = *rc::gen::arbitrary<int>() / 8.0;
    profile.DLPCEnabled = *rc::gen::arbitrary<bool>();
    profile.RFEnabled = *rc::gen::arbitrary<bool>();
    profile.Gain = *rc::gen::arbitrary<uint16_t>();
    profile.LocalisationResourceID = *rc::gen::arbitrary<uint32_t>();
    return preset;
}

class PresetStoreLists : public PresetStoreTest {};

TEST_F(PresetStoreLists, AnyListThatIsSavedIsLoadedEqual) {
    const bool held = rc::check([&] {
        PresetList list{{AnyPreset(L"$DEFAULT"), MakeList({}, 0).presets[1]}, *AnyText()};
        for (const std::wstring& name : *rc::gen::container<std::set<std::wstring>>(AnyText())) {
            if (!name.empty() && name[0] != L'@') list.presets.push_back(AnyPreset(name));
        }
        const std::wstring owner = *AnyText();
        RC_ASSERT(Save(list, kModel, owner) == S_OK);
        const Loaded loaded = Load(kModel, owner);
        RC_ASSERT(loaded.outcome == PresetsOutcome::kNone);
        RC_ASSERT(Same(loaded.list, list));
    });
    EXPECT_TRUE(held);
}

TEST_F(PresetStoreLists, AnOwnerThatWasNeverSeenHasTheFactorys) {
    const Loaded loaded = Load();
    EXPECT_EQ(loaded.result, S_OK);
    EXPECT_EQ(loaded.outcome, PresetsOutcome::kNone);
    EXPECT_EQ(NamesOf(loaded.list), L"$DEFAULT @CHECK $DARKMATTE ");
    EXPECT_EQ(loaded.list.selected, L"$DEFAULT");
    const StoredPreset& dark = loaded.list.presets[2];
    EXPECT_EQ(dark.display_name, L"Dark & matte");
    EXPECT_EQ(dark.profile.ExposureTime, 1000.0);
    EXPECT_EQ(dark.profile.Gain, 4u);
    EXPECT_FALSE(std::filesystem::exists(Folder())) << "loading made something";
}

TEST_F(PresetStoreLists, HiddenPresetsStayInTheirPlaces) {
    PresetList list = MakeList(L"u", 1);
    list.presets[1].profile.LaserPower = 99.0;  // a hidden one that comes along
    list.presets.push_back(MakePreset(L"@SMUGGLED"));
    ASSERT_EQ(Save(list), S_OK);
    EXPECT_EQ(NamesOf(Load().list), L"$DEFAULT @CHECK $DARKMATTE u0 ");
    EXPECT_EQ(Load().list.presets[1].profile.LaserPower, 10.0);
    std::string bytes = BytesOf(File());
    const std::string user = ">u0<";
    bytes.replace(bytes.rfind(user), user.size(), ">@LAST<");
    WriteFile(bytes);
    struct Row {
        std::vector<const wchar_t*> saved;
        const wchar_t* loaded;
    };
    const Row rows[] = {
        {{L"$DEFAULT", L"a", L"b", L"c"}, L"$DEFAULT @CHECK a @LAST b c "},
        {{L"$DEFAULT"}, L"$DEFAULT @CHECK @LAST "},
        {{L"b", L"$DEFAULT", L"a"}, L"b @CHECK @LAST $DEFAULT a "},
    };
    for (const Row& row : rows) {
        PresetList some;
        for (const wchar_t* const name : row.saved) some.presets.push_back(MakePreset(name));
        ASSERT_EQ(Save(some), S_OK);
        EXPECT_EQ(NamesOf(Load().list), row.loaded);
    }
}

TEST_F(PresetStoreLists, WhatWouldNotComeBackIsRefused) {
    const PresetList before = MakeList(L"u", 2);
    ASSERT_EQ(Save(before), S_OK);
    struct Row {
        const char* what;
        void (*spoil)(PresetList& list);
    };
    const Row rows[] = {
        {"two of a name", [](PresetList& list) { list.presets.push_back(list.presets[4]); }},
        {"no name", [](PresetList& list) { list.presets[4].profile.ProfileName.clear(); }},
        {"no text", [](PresetList& list) { list.presets[4].profile.ProfileName = wchar_t{0xD800}; }},
        {"display name no text", [](PresetList& list) { list.presets[4].display_name = wchar_t{0xDFFF}; }},
        {"selected no text", [](PresetList& list) { list.selected = wchar_t{0x110000}; }},
        {"too much power", [](PresetList& list) { list.presets[4].profile.LaserPower = 100.5; }},
        {"too great a gain", [](PresetList& list) { list.presets[4].profile.Gain = 65536; }},
    };
    for (const Row& row : rows) {
        PresetList list = MakeList(L"u", 2);
        row.spoil(list);
        EXPECT_EQ(Save(list), E_INVALIDARG) << row.what;
        EXPECT_FALSE(m_reason.empty()) << row.what;
    }
    EXPECT_TRUE(Same(Load().list, before));
    EXPECT_EQ(Save(before, kModel, std::wstring(1, wchar_t{0xD800})), E_INVALIDARG);
}

TEST_F(PresetStoreLists, EveryOwnerHasAFileOfItsOwn) {
    const std::wstring long_name(5000, L'A');
    const std::wstring owners[] = {L"a",  L"A",    L"a.b",    L"a/b",    L"../a",          L"con", L"",
                                   L"+a", L"_41_", L"\u00E4", long_name, long_name + L"A", L"a ",  L"%41"};
    std::set<std::string> files;
    for (const std::wstring& owner : owners) {
        const std::string name = OwnerFileName(owner);
        EXPECT_LT(name.size(), 200u);
        EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-_+~"), std::string::npos);
        files.insert(name);
        ASSERT_EQ(Save(MakeList(owner + L"'s ", 1), kModel, owner), S_OK);
    }
    EXPECT_EQ(files.size(), std::size(owners));
    for (const std::wstring& owner : owners) {
        EXPECT_EQ(Load(kModel, owner).list.selected, owner + L"'s 0");
    }
    // As if two checksums were the same.
    std::filesystem::copy_file(Folder() / "presets-a.xml", File());
    EXPECT_EQ(Load().result, E_FAIL);
    EXPECT_EQ(Save(MakeList(L"u", 1)), E_FAIL);
}

TEST_F(PresetStoreLists, WhatSaversReplaceAtTheSameTimeIsArchived) {
    constexpr int kSavers = 3, kSaves = 40;
    SetMaxBackups(1000);
    std::vector<std::thread> savers;
    for (int saver = 0; saver < kSavers; ++saver) {
        savers.emplace_back([&, saver] {
            std::wstring reason;
            for (int i = 0; i < kSaves; ++i) {
                const PresetList list = MakeList(std::to_wstring(saver * kSaves + i) + L".", 1);
                EXPECT_EQ(PresetStore(Folder(), kModel).Save(kOwner, list, reason), S_OK);
            }
        });
    }
    for (std::thread& each : savers) each.join();
    EXPECT_EQ(Archived().size() + 1, size_t{kSavers * kSaves});
}

TEST_F(PresetStoreLists, TenThousandPresets) {
    const PresetList list = MakeList(L"u", 10'000);
    ASSERT_EQ(Save(list), S_OK);
    EXPECT_TRUE(Same(Load().list, list));
}

}  // namespace
}  // namespace hx::simulator
