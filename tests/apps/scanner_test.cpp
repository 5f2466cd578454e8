// hxctl scanner: the tool with a simulated scanner, as a person runs it.
#include <nlohmann/json.hpp>

#include "apps/hosting/FaultText.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "tests/apps/hxctl_fixture.h"

namespace {

using Json = nlohmann::json;

class ScannerCommand : public Hxctl {
protected:
    Answer Scanner(const std::string& arguments) const { return Run("scanner " + arguments); }
    // A command that must do its work.
    Json Asked(const std::string& arguments) const {
        const Answer answer = Scanner(arguments + " --json");
        EXPECT_EQ(answer.exit, 0) << arguments << ": " << answer.err;
        return Json::parse(answer.out, nullptr, false);
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        const Json list = Asked("presets list");
        for (const Json& each : list["presets"]) names.push_back(each["name"]);
        return names;
    }
};

TEST(FaultText, IsAnOperationAResultAndANumber) {
    struct Row {
        const char* text;
        const char* operation;
        HRESULT result;
        int times;
    };
    for (const Row& row :
         {Row{"AcquireHandle=E_FAIL", "AcquireHandle", E_FAIL, 1},
          {"IHXApi.Resume=0x80070005:3", "IHXApi.Resume", E_ACCESSDENIED, 3},
          {"StopTrackingDataRecording=5:*", "StopTrackingDataRecording", 5, -1},
          {"Resume=HX_E_NOTACQUIRED:2147483647", "Resume", static_cast<HRESULT>(0x8004A002), 2147483647},
          {"A=-1", "A", -1, 1}}) {
        const auto parsed = hosting::ParseFault(row.text);
        ASSERT_TRUE(parsed) << row.text;
        const hosting::FaultText& fault = *parsed;
        EXPECT_EQ(fault.operation, row.operation);
        EXPECT_EQ(fault.result, row.result) << row.text;
        EXPECT_EQ(fault.times, row.times) << row.text;
    }
    for (const char* bad :
         {"", "=", "A", "A=", "=E_FAIL", "A=E_FAIL:", "A=E_FAIL:0", "A=E_FAIL:-1", "A=E_FAIL:x", "A:1",
          "A:1=E_FAIL", "A=0x", "A=0x100000000", "A=e_fail", "A=E_FAIL :1"}) {
        EXPECT_FALSE(hosting::ParseFault(bad)) << bad;
    }
}

TEST_F(ScannerCommand, EveryModelTellsItsProperties) {
    const Json list = Asked("list");
    EXPECT_GE(list["operations"].size(), 50u);
    EXPECT_EQ(list["models"].size(), 6u);
    for (const std::string model : list["models"]) {
        const Json answer = Asked("properties --model " + model);
        EXPECT_EQ(answer["model"], model);
        EXPECT_FALSE(answer["properties"].empty());
        // The document, told by the first model.
        Write("own.xml", Scanner("properties --document --model " + model).out);
        EXPECT_EQ(Asked("properties --properties own.xml")["properties"], answer["properties"]);
    }
}

TEST_F(ScannerCommand, PresetsAreSavedCarriedAwayAndBroughtBack) {
    const std::vector<std::string> delivered = Names();
    std::vector<std::string> with_own = delivered;
    with_own.insert(with_own.end(), {"Teil \xC3\xA4", "Second"});
    Asked("presets save 'Teil \xC3\xA4' --from '$DARK' --exposure 321.5 --select");
    Asked("presets save Second");
    EXPECT_EQ(Names(), with_own);
    Json list = Asked("presets list");
    EXPECT_EQ(list["selected"], "Teil \xC3\xA4");
    EXPECT_EQ(list["presets"][delivered.size()]["values"]["ExposureTime"], 321.5);
    EXPECT_EQ(list["presets"][delivered.size()]["values"]["LaserPower"], 100.0);

    EXPECT_EQ(Asked("presets export own.xml")["exported"], 2);
    Asked("presets delete 'Teil \xC3\xA4'");
    EXPECT_EQ(Asked("presets list")["selected"], "$DEFAULT");
    Asked("presets reset");
    EXPECT_EQ(Names(), delivered);
    EXPECT_EQ(Asked("presets import own.xml")["imported"], 2);
    EXPECT_EQ(Names(), with_own);
    list = Asked("presets list");
    EXPECT_EQ(list["presets"][delivered.size()]["values"]["ExposureTime"], 321.5);
    // The document is one of records, as any other.
    EXPECT_EQ(Run("inspect own.xml --record MLaserProfileSettings").exit, 0);
}

TEST_F(ScannerCommand, WhatIsRefusedIsToldAndChangesNothing) {
    Asked("presets save Own");
    const std::vector<std::string> before = Names();
    Write("empty.xml", "<MFilerTaggedXml></MFilerTaggedXml>");
    Write("broken.xml", "<MFilerTaggedXml>");
    const std::string profile =
        "<LaserProfileSettings><Version type=\"uint\">7</Version></LaserProfileSettings>";
    Write("newer.xml", "<MFilerTaggedXml>" + profile + "</MFilerTaggedXml>");
    struct Refused {
        const char* arguments;
        int exit;
        const char* reason;  // a part of it
    };
    for (const Refused& row : {
             Refused{"presets save '$MINE'", 1, "cannot begin with a '$'"},
             {"presets save ''", 1, "must not be empty"},
             {"presets save New --from Missing", 1, "no preset \"Missing\""},
             {"presets save New --exposure 0", 1, "SetExposureTime answered E_INVALIDARG"},
             {"presets save New --laser-power 101", 1, "SetLaserPower answered E_INVALIDARG"},
             {"presets save New --exposure nan", 1, "SetExposureTime answered E_INVALIDARG"},
             {"presets delete '$DEFAULT'", 1, "predefined"},
             {"presets delete own", 1, "no preset \"own\""},
             {"presets import missing.xml", 1, "No such file"},
             {"presets import empty.xml", 1, "no profile"},
             {"presets import broken.xml", 1, "not well-formed"},
             {"presets import newer.xml", 1, "its version is 7"},
             {"presets list --fault GetDynamicSettingsPreset=E_FAIL", 1,
              "GetDynamicSettingsPreset answered E_FAIL"},
             {"presets list --model Nobody", 2, "no model \"Nobody\": there are HX, "},
             {"presets list --fault Nothing=E_FAIL", 2, "no operation \"Nothing\""},
             {"presets list --fault Resume=0", 2, "no failure of Resume"},
             {"presets list --fault Resume", 2, "OPERATION=RESULT"},
             {"presets list --fault EnumerateDynamicSettingsPresets=E_ABORT", 1, "answered E_ABORT"},
             {"presets save New --fault SaveDynamicSettingsPresets=E_ACCESSDENIED", 1, "E_ACCESSDENIED"},
             {"properties --properties nowhere.xml", 1, "nowhere.xml: No such file"},
             {"properties --properties broken.xml", 1, "the properties document is not read"},
             {"track --seconds 0", 2, "number of seconds"},
             {"track --seconds nan", 2, "number of seconds"},
             {"track --preset Missing", 1, "no preset \"Missing\""},
             {"track --fault ReleaseHandle=HX_E_NOTFOUND --seconds 0.05", 1, "HX_E_NOTFOUND (0x8004A003)"},
             {"track --surface moon", 2, "no surface \"moon\": there are plane, "},
             {"track --fault AcquireHandle=E_ACCESSDENIED", 1, "AcquireHandle answered E_ACCESSDENIED"},
             {"track --surface nothing --detect", 1, "DetectExposureTime answered E_FAIL"},
             {"track --seconds x", 2, ""},
         }) {
        const Answer answer = Scanner(row.arguments);
        EXPECT_EQ(answer.exit, row.exit) << row.arguments;
        EXPECT_NE(answer.err.find(row.reason), std::string::npos) << row.arguments << ": " << answer.err;
        EXPECT_EQ(answer.out, "") << row.arguments;
    }
    EXPECT_EQ(Names(), before);
    const Answer failed = Scanner("presets save New --exposure nan --json");
    EXPECT_EQ(failed.exit, 1);
    EXPECT_NE(Json::parse(failed.out)["error"].get<std::string>().find("SetExposureTime"), std::string::npos);
}

// Presets of another model are not those of this one, which the operator has to know.
TEST_F(ScannerCommand, WhatIsToldOnceIsToldWhateverHappens) {
    Asked("presets save Own --owner T820");
    EXPECT_NE(Scanner("presets delete nosuch --model T820").err.find("No presets were found"),
              std::string::npos);
    Asked("presets save Other --owner HXHandheld");
    const Answer exported = Scanner("presets export - --model Handheld --calls");
    EXPECT_TRUE(exported.out.starts_with("<?xml") && exported.out.ends_with(">\n")) << exported.out;
    EXPECT_NE(exported.err.find("No presets were found"), std::string::npos);
    EXPECT_NE(Asked("presets export - --model Handheld")["document"].get<std::string>().find("<?xml"),
              std::string::npos);
}

TEST_F(ScannerCommand, MoreExposureIsMoreSignalAndALostConnectionIsTakenUpAgain) {
    const auto seen = [&](const std::string& arguments) {
        return Asked("track --seconds 0.4 " + arguments)["statistics"];
    };
    const Json weak = seen("--exposure 300");
    const Json strong = seen("--exposure 1200");
    EXPECT_NEAR(strong["mean_signal_percent"].get<double>() / weak["mean_signal_percent"].get<double>(), 4,
                0.4);
    EXPECT_EQ(weak["saturated_percent"], 0.0);
    EXPECT_GT(seen("--exposure 4000")["saturated_percent"], 50.0);

    const Json calls = Asked("track --seconds 0.2 --drop --calls")["calls"];
    std::vector<std::string> told;
    for (const Json& call : calls) {
        const std::string operation = call["op"];
        if (operation == "Raise") told.push_back(call["args"].dump());
        if (operation == "InitialiseScanner" || operation == "ReleaseHandle") told.push_back(operation);
    }
    EXPECT_EQ(told, (std::vector<std::string>{"[0]", "[2]", "[1]", "InitialiseScanner", "[1]", "[0]",
                                              "ReleaseHandle", "[0]", "[2]", "[1]", "InitialiseScanner",
                                              "ReleaseHandle", "[1]", "[0]"}));
}

}  // namespace
