// hxctl inspect: one record of a document as JSON, and the account of a document of unknown kind.
#include <nlohmann/json.hpp>

#include "tests/apps/hxctl_fixture.h"

namespace {

using namespace std::string_literals;
using nlohmann::json;

std::string Settings(const std::string& content) {
    return "<MFilerTaggedXml>" + content + "</MFilerTaggedXml>";
}

std::string Connection(const std::string& element, const std::string& server) {
    return "<" + element + "><Version type='int'>1</Version><ServerIP type='string'>" + server +
           "</ServerIP><IsProxy type='bool'>1</IsProxy></" + element + ">";
}

std::string Profile(const std::string& element, const std::string& version, const std::string& more = {},
                    const std::string& last = {}) {
    return "<" + element + "><Version type='uint'>" + version +
           "</Version><ProfileName type='string'>Fine</ProfileName>"
           "<LocalisationResourceID type='uint'>0</LocalisationResourceID>"
           "<LaserPower type='float'>3.5e+01</LaserPower><ExposureTime type='float'>5e+01</ExposureTime>" +
           more + "<DLPCEnabled type='bool'>0</DLPCEnabled>" + last + "</" + element + ">";
}

// A driver's document without a version, with a scanner that has the planes and nothing behind them.
std::string Scanner(const std::string& planes) {
    return "<Properties><DeviceList><Device><CommonDeviceProperties><Version type='uint'>1</Version>"
           "<InternalName type='string'>a</InternalName><ConfigurationIdentity type='string'>b"
           "</ConfigurationIdentity><DisplayName type='string'>c</DisplayName></CommonDeviceProperties>"
           "<CommonScannerDeviceProperties><Version type='uint'>1</Version><QualificationTolerance "
           "type='float'>1</QualificationTolerance><Planes>" +
           planes + "</Planes></CommonScannerDeviceProperties></Device></DeviceList></Properties>";
}

std::string Inspection(const char* read, const std::string& server, const char* proxy) {
    return "{\n  \"read\": "s + read + ",\n  \"fields\": {\n    \"ServerIP\": \"" + server +
           "\",\n    \"IsProxy\": " + proxy +
           ",\n    \"WiFiConnection\": false\n  },\n  \"valid\": [],\n  \"error\": {\n    \"codes\": \"\"\n  "
           "}\n}\n";
}

TEST_F(Hxctl, InspectsARecordWhateverItsDocumentHolds) {
    const std::string usual = Settings(Connection("HXConnectionSettings", "\xC3\xA4"));
    const std::string other = Settings(Connection("Other", "b"));
    const std::string no_server =
        Settings("<HXConnectionSettings><IsProxy type='bool'>1</IsProxy></HXConnectionSettings>");
    const std::string reason = "hxctl: -: not read as MHXConnectionSettings\n";
    Write("defaults", Settings(Connection("HXConnectionSettings", "other")));
    Write("bad", no_server);
    const std::string in = Inspection("true", "\xC3\xA4", "true");
    const std::string of_other = Inspection("true", "b", "true");
    const std::string new_record = Inspection("false", "192.168.178.10", "true");
    Check({
        {"inspect - --record MHXConnectionSettings", usual, 0, in, ""},
        {"inspect - --record MHXConnectionSettings --element Other", usual, 1, new_record, reason},
        {"inspect - --record MHXConnectionSettings", no_server, 1, new_record, reason},
        {"inspect - --record MHXConnectionSettings --defaults defaults", no_server, 1,
         Inspection("false", "other", "true"), reason},
        {"inspect - --record MHXConnectionSettings --element Other", other, 0, of_other, ""},
        // Without --element the only one that looks like such a record, and the usual one before all others.
        {"inspect - --record MHXConnectionSettings", other, 0, of_other, ""},
        {"inspect - --record MHXConnectionSettings",
         Settings("<List>" + Connection("Other", "b") + "</List>"), 0, of_other, ""},
        {"inspect - --record MHXConnectionSettings",
         Settings(Connection("Other", "b") + Connection("HXConnectionSettings", "\xC3\xA4")), 0, in, ""},
        {"inspect - --record MHXConnectionSettings",
         Settings(Connection("Other", "b") + Connection("Third", "c")), 1, new_record, reason},
        {"inspect - --record MHXConnectionSettings", Settings(Profile("Other", "1")), 1, new_record, reason},
        {"inspect missing", "", 1, "", "hxctl: missing: No such file or directory\n"},
        {"inspect - --record MHXConnectionSettings --defaults missing", usual, 1, "",
         "hxctl: missing: No such file or directory\n"},
        {"inspect - --record MHXConnectionSettings --defaults bad", usual, 1, new_record,
         "hxctl: bad: not read as MHXConnectionSettings\n"},
        {"inspect - --record Other", usual, 2, "", "hxctl: no record class \"Other\"\n"},
    });
    EXPECT_NE(Run("inspect - --rewrite --record MHXConnectionSettings", other)
                  .out.find("<Other>\n<Version type=\"int\">2</Version>\n<ServerIP type=\"string\">b<"),
              std::string::npos);
    EXPECT_EQ(Run("inspect - --rewrite", usual).exit, 2);
}

TEST_F(Hxctl, InspectsADeviceInsideTheDocumentOfItsDriver) {
    const std::string version = "<Version type=\"uint\">1</Version>\n";
    const std::string capability =
        "<Capability>\n<InternalName type=\"string\">a</InternalName>\n"
        "<Configuration type=\"string\">b</Configuration>\n</Capability>\n";
    const std::string device =
        "<DeviceList>\n<Device>\n<CommonDeviceProperties>\n" + version +
        "<InternalName type=\"string\"/>\n<ConfigurationIdentity type=\"string\"/>\n"
        "<DisplayName type=\"string\">d</DisplayName>\n<Buttons>\n"
        "<NumberOfButtons type=\"int\">0</NumberOfButtons>\n</Buttons>\n<ConfigurationList>\n" +
        capability + "</ConfigurationList>\n</CommonDeviceProperties>\n</Device>\n</DeviceList>\n";
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Properties>\n";
    Check({{"inspect - --record MCommonDeviceProperties --rewrite", head + version + device + "</Properties>",
            0, head + device + "</Properties>\n", ""}});
    EXPECT_EQ(Run("inspect - --record MCommonDeviceProperties", head + device + "</Properties>").exit, 0);
    EXPECT_NE(Read("stdout").find("\"ConfigurationList\": {\n      \"a\": \"b\"\n"), std::string::npos);
    EXPECT_EQ(Run("inspect - --record MPropertiesHelper", head + version + device + "</Properties>").exit, 1);
    EXPECT_NE(Read("stdout").find("\"codes\": \"MPropertiesHelper.ReadXML:ReadImpTagged"), std::string::npos);
}

// A list takes as long as it is; the account tells its beginning alone.
TEST_F(Hxctl, InspectsAListOfVeryManyConfigurations) {
    constexpr size_t kMany = 30'000;
    std::string list;
    for (size_t i = 0; i < kMany; ++i) {
        list += "<Capability><InternalName type='string'>" + std::to_string(i) +
                "</InternalName><Configuration type='string'>c</Configuration></Capability>";
    }
    const std::string document =
        "<Properties><DeviceList><Device><CommonDeviceProperties><Version type='uint'>1</Version>"
        "<InternalName type='string'>a</InternalName><ConfigurationIdentity type='string'>b"
        "</ConfigurationIdentity><DisplayName type='string'>c</DisplayName><ConfigurationList>" +
        list + "</ConfigurationList></CommonDeviceProperties></Device></DeviceList></Properties>";
    const json record = json::parse(Run("inspect - --record MCommonDeviceProperties", document).out);
    EXPECT_EQ(record["fields"]["ConfigurationList"].size(), kMany);
    const json account = json::parse(Run("inspect - --json", document).out);
    const json& told = account["contents"][1]["fields"][0]["fields"][4];
    EXPECT_EQ(told["count"], kMany);
    EXPECT_EQ(told["value"].size(), 100u);
    EXPECT_NE(Run("inspect -", document).out.find("... (30000 values)"), std::string::npos);
}

TEST_F(Hxctl, TellsWhatADocumentOfUnknownKindHolds) {
    struct Case {
        const char* about;
        std::string document;
        int exit;
        std::vector<const char*> told;
        const char* reason;
    };
    constexpr char kScannerRefused[] =
        "hxctl: -: Properties: not read as MPropertiesHelper: no \"Version\" of type uint (and 1 more not "
        "read)\n";
    const Case cases[] = {
        {"a record by its name, with what the document does not have",
         Settings(Connection("HXConnectionSettings", "b")),
         0,
         {"well-formed XML\n", "HXConnectionSettings: MHXConnectionSettings, known by its name\n",
          "Version 1 (this program knows 2): read.\n", "ServerIP        \"b\"  [dotted decimal]\n",
          "WiFiConnection  false  (not part of version 1)\n"},
         ""},
        {"a record by its children, converted, with an element that is none of its own",
         Settings(Profile("Mine", "3",
                          "<SignalThreshold type='byte'>9</SignalThreshold><MaxInclination "
                          "type='float'>1</MaxInclination><EdgeFilter3DEnabled type='bool'>1"
                          "</EdgeFilter3DEnabled><EdgeFilter type='float'>1</EdgeFilter>",
                          "<RFEnabled type='bool'>0</RFEnabled>") +
                  "<Odd><A/><B/></Odd>"),
         0,
         {"Mine: MLaserProfileSettings, known by its children\n",
          "200.0  [us; a scale of 1 to 100 in versions 3 and 4]  (the document has 5e+01)\n",
          "SignalThreshold         9\n", "Odd: not known (2 elements in it)\n"},
         ""},
        {"a flag tells what was found",
         Settings("<HXMeasurementSettings><Version type='int'>1</Version><ExposureRange_us type='int'>5"
                  "</ExposureRange_us></HXMeasurementSettings>"),
         1,
         {"NOT READ: missing: ExposureRange_us\n",
          "ExposureRange_us  0  [us]  (in the document as int, not uint)\n"},
         "hxctl: -: HXMeasurementSettings: not read as MHXMeasurementSettings: missing: ExposureRange_us\n"},
        {"a newer record, and an element that is unknown within a record",
         Settings(Profile("LaserProfileSettings", "7", "<Foo type='bool'>1</Foo>")),
         1,
         {"NOT READ: version 7 is newer than 6\n", "\"\"  (the document has Fine)\n", "Foo: not known\n"},
         "hxctl: -: LaserProfileSettings: not read as MLaserProfileSettings: version 7 is newer than 6\n"},
        {"a field under the name that it had",
         Settings("<ImageInterpolatorSettings><Version type='int'>0</Version><Min Reflectivity type='float'>5"
                  "</Min Reflectivity></ImageInterpolatorSettings>"),
         1,
         {"MinReflectivity        5.0  [0 to 1]  (in the document under its former name)\n",
          "NOT READ: missing: Smooth, PerspectiveOnly, SpeckleSettings, Max Reflectivity\n"},
         "hxctl: -: ImageInterpolatorSettings: not read as MImageInterpolatorSettings: missing: Smooth, "
         "PerspectiveOnly, SpeckleSettings, Max Reflectivity\n"},
        {"a root that is a record, and one of several classes of one name",
         "<Properties><Version type='uint'>2</Version><Driver/><DeviceList><Device><CommonDeviceProperties>"
         "<Version type='uint'>2</Version><InternalName type='string'>a</InternalName>"
         "<ConfigurationIdentity type='string'>b</ConfigurationIdentity><DisplayName type='string'>c"
         "</DisplayName></CommonDeviceProperties></Device></DeviceList></Properties>",
         1,
         {"Properties: MPropertiesHelper, known by its name\n", "Driver: MCommonDriverProperties, ",
          "DeviceList/Device: MCommonDeviceProperties, known by its name\n",
          "NOT READ: CommonDeviceProperties: version 2 is newer than 1\n"},
         "hxctl: -: Properties: not read as MPropertiesHelper: "
         "MPropertiesHelper.ReadXML:ReadImpTagged () (and 2 more not read)\n"},
        {"a list of a newer version, behind which nothing is looked for",
         Scanner("<Version type='uint'>2</Version>"),
         1,
         {"NOT READ: CommonScannerDeviceProperties/Planes: version 2 is newer than 1\n"},
         kScannerRefused},
        {"what is missing, but for what a plane may lack",
         Scanner("<Version type='uint'>1</Version><Plane><PlaneNumber type='uint'>3</PlaneNumber></Plane>"),
         1,
         {"NOT READ: missing: CommonScannerDeviceProperties/ReferenceToAutoJoint\n"},
         kScannerRefused},
        {"a scanner without planes, which needs no joint",
         Scanner("<Version type='uint'>1</Version>"),
         1,
         {"MCommonScannerDeviceProperties, known by its name\n", "\n    Read.\n"},
         "hxctl: -: Properties: not read as MPropertiesHelper: no \"Version\" of type uint\n"},
        {"a processing record of a newer version, which is no reason",
         Settings("<SpeckleSettings><Version type='int'>9</Version></SpeckleSettings>"),
         1,
         {"NOT READ: missing: Enable, "},
         "hxctl: -: SpeckleSettings: not read as MSpeckleSettings: missing: Enable, AutomaticDegree, Degree, "
         "WindowSize, NoiseLevel and 1 more\n"},
        {"entries of a list, with what each of them has",
         Settings("<SupportedConfigurations><Version type='uint'>1</Version><Configuration><Version "
                  "type='uint'>1</Version><InternalName type='string'>n</InternalName><DeviceSettings/>"
                  "<Foo/></Configuration></SupportedConfigurations>"),
         0,
         {"Configuration  1 entry\n", "InternalName    \"n\"\n", "Configuration/0/Foo: not known\n"},
         ""},
        {"a chain of exceptions",
         "<ExceptionChain><Exception><Error><Code type='string'>A.B:C</Code></Error></Exception>"
         "</ExceptionChain>",
         0,
         {"`hxctl exception`", "A.B:C"},
         ""},
        {"some other document", "<a><b><c/></b></a>", 0, {"no document of this program", "a\n", "  b\n"}, ""},
        {"no document",
         "<a><b></a>",
         1,
         {"not well-formed: Element 'b' at offset 3 not ended\n"},
         "hxctl: -: Element 'b' at offset 3 not ended\n"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.about);
        const Answer answer = Run("inspect -", row.document);
        EXPECT_EQ(answer.exit, row.exit);
        EXPECT_EQ(answer.err, row.reason);
        for (const char* told : row.told) EXPECT_NE(answer.out.find(told), std::string::npos) << answer.out;
    }
}

TEST_F(Hxctl, CountsManyRecordsAndShowsThoseThatWereNotRead) {
    std::string list = "<Profiles><Count type='uint'>10000</Count>";
    for (int i = 0; i < 10'000; ++i) list += Profile("Profile", i == 5'000 ? "7" : "1");
    const std::string document = Settings(list + "</Profiles>");
    const Answer text = Run("inspect -", document);
    EXPECT_EQ(text.exit, 1);
    EXPECT_TRUE(
        text.out.ends_with("\nMLaserProfileSettings: 10000 records, 9999 of them read; 4 are told above\n"));
    const json account = json::parse(Run("inspect - --json", document).out);
    EXPECT_EQ(account["classes"][0]["read"], 9'999);
    const json& contents = account["contents"];
    ASSERT_EQ(contents.size(), 5u);
    EXPECT_EQ(contents[0]["path"], "Profiles/Count");
    EXPECT_EQ(contents[1]["fields"][0],
              json({{"name", "ProfileName"}, {"value", "Fine"}, {"inDocument", true}}));
    EXPECT_EQ(contents[4]["path"], "Profiles/Profile[5001]");
    EXPECT_EQ(contents[4]["reason"], "version 7 is newer than 6");
}

// Neither a deep document nor one with very many unknown elements takes the tool down.
TEST_F(Hxctl, AccountsOfADocumentOfAnyShape) {
    std::string deep;
    for (int i = 0; i < 100'000; ++i) deep += "<a>";
    for (int i = 0; i < 100'000; ++i) deep += "</a>";
    std::string wide;
    for (int i = 0; i < 100'000; ++i) wide += "<a><b type='int'>1</b></a>";
    EXPECT_EQ(Run("inspect -", Settings(deep)).exit, 0);
    EXPECT_EQ(Run("inspect -", Settings("<HXMeasurementSettings>" + deep + "</HXMeasurementSettings>")).exit,
              1);
    const Answer answer = Run("inspect -", Settings(wide));
    EXPECT_EQ(answer.exit, 0);
    EXPECT_NE(answer.out.find("\nand 99980 more values and elements\n"), std::string::npos);
}

}  // namespace
