// What had to be done to a list, each with its cause and told once; archives; files that are no lists;
// folders that refuse.
#include <sys/stat.h>
#include <unistd.h>

#include "simulator/presets/PresetFile.h"
#include "tests/simulator/presets/store_fixture.h"

namespace hx::simulator {
namespace {

using Outcome = PresetsOutcome;

class PresetStoreOutcome : public PresetStoreTest {
protected:
    // The file that a list makes, with `old` replaced where it stands last.
    std::string Spoilt(const PresetList& list, const std::string& old, const std::string& spoilt) {
        EXPECT_EQ(Save(list), S_OK);
        std::string bytes = BytesOf(File());
        const size_t at = bytes.rfind(old);
        EXPECT_NE(at, std::string::npos) << old;
        return bytes.replace(at, old.size(), spoilt);
    }
    // `outcome` and then none; the list is the same both times.
    PresetList LoadTwice(Outcome outcome, const ScannerModel& model = kModel) {
        const Loaded first = Load(model);
        EXPECT_EQ(first.result, S_OK);
        EXPECT_EQ(first.outcome, outcome);
        const Loaded second = Load(model);
        EXPECT_EQ(second.outcome, Outcome::kNone);
        EXPECT_TRUE(Same(first.list, second.list));
        return first.list;
    }
};

constexpr wchar_t kWithCustom[] = L"$DEFAULT @CHECK $DARKMATTE Custom ";

TEST_F(PresetStoreOutcome, APresetThatCannotBeReadIsLeftOut) {
    struct Row {
        std::string old, spoilt;
        const wchar_t* left = L"$DEFAULT @CHECK $DARKMATTE u0 ";
    };
    const Row rows[] = {
        {"<Version type=\"uint\">6<", "<Version type=\"uint\">7<"},
        {"<Version type=\"uint\">6<", "<Version type=\"int\">6<"},
        {"<Gain type=\"uint\">1</Gain>", ""},
        {"<LaserPower type=\"float\">2.0", "<LaserPower type=\"float\">200000.0"},
        {"<RFEnabled type=\"bool\">1<", "<RFEnabled type=\"bool\">yes<"},
        {">u1</ProfileName>", "></ProfileName>"},
        {">u1</ProfileName>", ">u0</ProfileName>"},
        {"<DisplayName", "<Title type=\"string\"/><DisplayName"},
        {">$DARKMATTE</ProfileName>", "></ProfileName>", L"$DARKMATTE $DEFAULT @CHECK u0 u1 "},
    };
    for (const Row& row : rows) {
        const std::string bytes = Spoilt(MakeList(L"u", 2), row.old, row.spoilt);
        std::filesystem::remove_all(Folder() / "archive");
        WriteFile(bytes);
        const PresetList list = LoadTwice(Outcome::kUnknownVersion);
        EXPECT_EQ(NamesOf(list), row.left) << row.spoilt;
        const bool is_selected_left = NamesOf(list).ends_with(L"u1 ");
        EXPECT_EQ(list.selected, is_selected_left ? L"u1" : L"$DEFAULT") << row.spoilt;
        ASSERT_EQ(Archived().size(), 1u) << row.spoilt;
        EXPECT_EQ(BytesOf(Archived()[0]), bytes);
    }
}

TEST_F(PresetStoreOutcome, AnotherModelsPresetsStayInTheArchive) {
    const PresetList first = MakeList(L"u", 2);
    ASSERT_EQ(Save(first), S_OK);
    const std::string bytes = BytesOf(File());
    const PresetList generated = LoadTwice(Outcome::kCustomGenerated, kOtherModel);
    EXPECT_EQ(NamesOf(generated), kWithCustom);
    EXPECT_EQ(generated.selected, L"$DEFAULT");
    EXPECT_EQ(generated.presets[3].profile.ExposureTime, generated.presets[0].profile.ExposureTime);
    EXPECT_EQ(generated.presets[3].profile.LaserPower, 40.0);
    ASSERT_EQ(Archived().size(), 1u);
    EXPECT_EQ(BytesOf(Archived()[0]), bytes);
    // And back again.
    EXPECT_EQ(NamesOf(LoadTwice(Outcome::kCustomRestored)), NamesOf(first));
}

TEST_F(PresetStoreOutcome, ANewerFileIsArchivedAndTakenForUnknown) {
    const std::string newer =
        "<MFilerTaggedXml><ScannerPresets><Version "
        "type=\"uint\">2</Version></ScannerPresets></MFilerTaggedXml>";
    WriteFile(newer);
    EXPECT_EQ(NamesOf(LoadTwice(Outcome::kUnknownVersion)), L"$DEFAULT @CHECK $DARKMATTE ");
    ASSERT_EQ(Archived().size(), 1u);
    EXPECT_EQ(BytesOf(Archived()[0]), newer);
    ASSERT_EQ(Save(MakeList(L"u", 1)), S_OK);
    ASSERT_EQ(Save(MakeList(L"v", 1)), S_OK);  // archives "u0"
    WriteFile(newer);
    EXPECT_EQ(NamesOf(LoadTwice(Outcome::kUnknownVersion)), L"$DEFAULT @CHECK $DARKMATTE u0 ");
}

TEST_F(PresetStoreOutcome, WithoutPredefinedPresetsTheListIsCompleted) {
    PresetList users{{MakePreset(L"mine"), MakePreset(L"$CUSTOM")}, L"mine"};
    ASSERT_EQ(Save(users), S_OK);
    PresetList list = LoadTwice(Outcome::kCustomGenerated);
    EXPECT_EQ(NamesOf(list), L"$DEFAULT $DARKMATTE mine @CHECK $CUSTOM Custom ");
    EXPECT_EQ(list.selected, L"mine");
    ASSERT_EQ(Save(MakeList(L"u", 1)), S_OK);  // archives "mine" and "Custom"
    ASSERT_EQ(Save(MakeList(L"v", 1)), S_OK);  // archives "u0"
    std::ofstream(Archived().back()) << "no list";
    ASSERT_EQ(Save({}), S_OK);  // archives "v0"
    EXPECT_EQ(NamesOf(LoadTwice(Outcome::kCustomRestored)), L"$DEFAULT $DARKMATTE @CHECK v0 ");
    std::ofstream(Archived().back()) << "no list";
    ASSERT_EQ(Save({{MakePreset(L"v0")}, {}}), S_OK);
    EXPECT_EQ(NamesOf(LoadTwice(Outcome::kCustomRestored)), L"$DEFAULT $DARKMATTE v0 @CHECK mine Custom ")
        << "the newest one that can be read";
}

TEST_F(PresetStoreOutcome, WhatIsNoListIsSetAside) {
    const std::string whole = Spoilt(MakeList(L"u", 1), "", "");
    std::string nested;
    for (int i = 0; i < 100'000; ++i) nested += "<Preset>";
    for (int i = 0; i < 100'000; ++i) nested += "</Preset>";
    const std::string head = "<MFilerTaggedXml><ScannerPresets><Version type=\"uint\">1</Version>";
    const std::string rows[] = {
        "",
        "no XML",
        std::string(1000, '\0'),
        "\xFF\xFE",
        whole.substr(0, whole.size() / 2),
        "<Other/>",
        "<MFilerTaggedXml/>",
        "<MFilerTaggedXml><ScannerPresets/></MFilerTaggedXml>",
        head + "</ScannerPresets></MFilerTaggedXml>",
        head + "<Owner type=\"string\">Arm</Owner><Selected/></ScannerPresets></MFilerTaggedXml>",
        "<MFilerTaggedXml>" + nested + "</MFilerTaggedXml>",
    };
    size_t set_aside = 0;
    for (const std::string& bytes : rows) {
        WriteFile(bytes);
        EXPECT_EQ(NamesOf(LoadTwice(Outcome::kCustomGenerated)), kWithCustom) << bytes.substr(0, 99);
        bool found = false;
        for (const auto& file : Archived(".aside")) found |= BytesOf(file) == bytes;
        EXPECT_TRUE(found) << bytes.substr(0, 99);
        EXPECT_EQ(Archived(".aside").size(), ++set_aside);
    }
    EXPECT_TRUE(Archived().empty());
}

TEST_F(PresetStoreOutcome, AsManyArchivesAsTheRegistrySays) {
    SetMaxBackups(3);
    ASSERT_EQ(Save(MakeList(L"u", 8)), S_OK);
    std::vector<std::string> lists;
    for (int users = 7; users > 0; --users) {
        lists.push_back(BytesOf(File()));
        ASSERT_EQ(Save(MakeList(L"u", users)), S_OK);
        ASSERT_EQ(Save(MakeList(L"u", users)), S_OK);  // nothing is gone from it
        const auto archived = Archived();
        ASSERT_EQ(archived.size(), std::min<size_t>(lists.size(), 3));
        for (size_t i = 0; i < archived.size(); ++i) {
            EXPECT_EQ(BytesOf(archived[i]), lists[lists.size() - archived.size() + i]);
        }
    }
    // Files of somebody else, and of another owner.
    const auto folder = Folder() / "archive";
    const char* const foreign[] = {"presets-+arm.xml", "presets-+arm.20200101T000000Z.x.xml",
                                   "presets-+arm.2020-01-01T00:00Z.1.xml",
                                   "presets-b.20200101T000000Z.1.xml"};
    for (const char* const name : foreign) std::ofstream(folder / name) << "mine";
    SetMaxBackups(1);
    EXPECT_EQ(PresetStore(Folder(), kModel).Reset(kOwner, m_reason), S_OK);
    EXPECT_EQ(NamesOf(LoadTwice(Outcome::kNone)), L"$DEFAULT @CHECK $DARKMATTE ");
    EXPECT_EQ(Archived().size(), 1 + std::size(foreign));
    for (const char* const name : foreign) EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;

    SetMaxBackups(0);
    ASSERT_EQ(Save(MakeList(L"u", 2)), S_OK);
    ASSERT_EQ(Save(MakeList(L"u", 1)), S_OK);
    EXPECT_EQ(Archived().size(), std::size(foreign)) << "those that there were are too many";
    const std::string bytes = BytesOf(File());
    LoadTwice(Outcome::kCustomGenerated, kOtherModel);
    ASSERT_EQ(Archived(".aside").size(), 1u) << "nobody asked for the list to be replaced";
    EXPECT_EQ(BytesOf(Archived(".aside")[0]), bytes);
    std::ofstream(folder / "mine.aside");
    for (int i = 0; i < 20; ++i) LoadTwice(Outcome::kCustomGenerated, i % 2 == 0 ? kModel : kOtherModel);
    EXPECT_EQ(Archived(".aside").size(), 10u + 1);
    EXPECT_TRUE(std::filesystem::exists(folder / "mine.aside"));
}

TEST_F(PresetStoreOutcome, AnObstacleIsToldAndGoesIfTheListIsReset) {
    struct Row {
        const char* what;
        void (*make)(const std::filesystem::path& file);
    };
    const Row rows[] = {
        {"a folder", [](const auto& file) { std::filesystem::create_directories(file / "with" / "more"); }},
        {"a pipe, not waited for", [](const auto& file) { ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); }},
        {"too large, not read",
         [](const auto& file) {
             std::ofstream(file) << "x";
             std::filesystem::resize_file(file, uint64_t{1} << 40);
         }},
        {"another owner's",
         [](const auto& file) {
             std::ofstream(file) << WritePresetFile({MakeList(L"u", 1), L"Leg", kModel.name});
         }},
    };
    size_t set_aside = 0;
    for (const Row& row : rows) {
        std::filesystem::create_directories(Folder());
        row.make(File());
        EXPECT_EQ(Load().result, E_FAIL) << row.what;
        EXPECT_EQ(Save(MakeList(L"u", 1)), E_FAIL) << row.what;
        EXPECT_NE(m_reason.find(L"presets-+arm.xml: "), std::wstring::npos) << "which file";
        EXPECT_EQ(PresetStore(Folder(), kModel).Reset(kOwner, m_reason), S_OK) << row.what;
        EXPECT_EQ(NamesOf(LoadTwice(Outcome::kNone)), L"$DEFAULT @CHECK $DARKMATTE ");
        EXPECT_EQ(Archived(".aside").size(), ++set_aside) << row.what;
        std::filesystem::remove(File());
    }
    WriteFile("no XML");
    LoadTwice(Outcome::kCustomGenerated);
    std::filesystem::remove_all(Folder());
    std::ofstream(Folder()) << "no folder";
    EXPECT_EQ(Save(MakeList(L"u", 1)), E_FAIL);
}

TEST_F(PresetStoreOutcome, WhereNothingMayBeWrittenNothingIsLost) {
    if (geteuid() == 0) GTEST_SKIP() << "an administrator may write anywhere";
    const PresetList list = MakeList(L"u", 2);
    ASSERT_EQ(Save(list), S_OK);
    chmod(Folder().c_str(), 0555);
    EXPECT_EQ(Save(MakeList(L"u", 3)), E_ACCESSDENIED);
    EXPECT_EQ(PresetStore(Folder(), kModel).Reset(kOwner, m_reason), E_ACCESSDENIED);
    EXPECT_TRUE(Same(Load().list, list));
    EXPECT_EQ(Load(kOtherModel).result, E_ACCESSDENIED) << "what cannot be mended is not told";
    chmod(File().c_str(), 0);
    EXPECT_EQ(Load().result, E_ACCESSDENIED);
    chmod(Folder().c_str(), 0755);
}

}  // namespace
}  // namespace hx::simulator
