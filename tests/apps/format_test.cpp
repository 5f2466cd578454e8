// The document of the settings format, and how classes are told by their elements.
#include <fstream>
#include <iterator>

#include "settings/inventory/FormatDocument.h"
#include "settings/inventory/RecordRecognition.h"
#include "tests/apps/hxctl_fixture.h"

namespace {

using hx::VersionSet;

TEST_F(Hxctl, TheFormatsDocumentIsCurrent) {
    std::ifstream file(HX_SOURCE_DIR "/docs/settings_format.md", std::ios::binary);
    const std::string written(std::istreambuf_iterator<char>(file), {});
    EXPECT_TRUE(written == Run("format").out)
        << "docs/settings_format.md is not what the tables tell: run ./hx docs";
}

TEST(FormatDocument, TellsVersionsInRanges) {
    struct Row {
        VersionSet versions;
        uint32_t newest;
        const char* text;
    };
    const Row rows[] = {
        {VersionSet::All(), 6, "all"},
        {VersionSet::From(3), 6, "3 to 6"},
        {VersionSet::From(5), 6, "5, 6"},
        {VersionSet::From(6), 6, "6"},
        {VersionSet::UpTo(4), 6, "0 to 4"},
        {VersionSet::UpTo(7), 6, "all"},
        {VersionSet::Only(0), 0, "all"},
        {VersionSet::Only(7), 6, "none"},
        {VersionSet::Except(1), 4, "0, 2 to 4"},
        {VersionSet::From(1) & VersionSet::Except(2), 31, "1, 3 to 31"},
    };
    for (const Row& row : rows) EXPECT_EQ(hx::VersionsText(row.versions, row.newest), row.text);
}

// Each class is known by the children that its table has, under whatever name.
TEST(RecordRecognition, KnowsAnElementByItsNameOrItsChildren) {
    using Children = std::vector<hx::ChildElement>;
    struct Row {
        const wchar_t* root;
        const wchar_t* element;
        Children children;
        const wchar_t* type;
        bool by_name;
    };
    const wchar_t* const settings = L"MFilerTaggedXml";
    const Children profile = {
        {L"ProfileName", L"string"}, {L"LaserPower", L"float"}, {L"ExposureTime", L"float"}};
    Children odd_profile = profile;
    for (const wchar_t* name : {L"A", L"B"}) odd_profile.push_back({name, L"int"});
    Children odder_profile = odd_profile;
    odder_profile.push_back({L"C", L"int"});
    const Row rows[] = {
        {settings, L"LaserProfileSettings", {}, L"MLaserProfileSettings", true},
        {settings, L"LaserProfileSettings", {{L"ServerIP", L"string"}}, L"MLaserProfileSettings", true},
        {settings, L"X", profile, L"MLaserProfileSettings", false},
        {settings, L"X", odd_profile, L"MLaserProfileSettings", false},
        {settings, L"X", odder_profile, nullptr, false},
        {settings, L"X", {{L"ProfileName", L"string"}, {L"LaserPower", L"int"}}, nullptr, false},
        {settings, L"X", {{L"ExposureRange_us", L"uint"}}, L"MHXMeasurementSettings", false},
        {settings, L"X", {{L"ExposureRange_us", L"float"}}, nullptr, false},
        {settings, L"X", {{L"LaserPower", L"float"}}, nullptr, false},
        {settings, L"X", {{L"Version", L"int"}}, nullptr, false},
        {settings, L"X", {}, nullptr, false},
        {L"Other", L"LaserProfileSettings", profile, nullptr, false},
    };
    const hx::RecordRecognition recognition;
    for (const Row& row : rows) {
        const auto answer = recognition.Recognise(row.root, row.element, row.children);
        ASSERT_EQ(answer.row != nullptr, row.type != nullptr) << &row - rows;
        if (row.type == nullptr) continue;
        EXPECT_EQ(answer.row->type->name, row.type);
        EXPECT_EQ(answer.by_name, row.by_name) << &row - rows;
    }
}

}  // namespace
