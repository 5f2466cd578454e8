// The tool as a person runs it: arguments and input in, output, reason and exit code out.
#include <cstdlib>

#include "tests/apps/hxctl_fixture.h"

namespace {

using namespace std::string_literals;

std::string Document(const std::string& server, char proxy, char wifi) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<MFilerTaggedXml>\n<HXConnectionSettings>\n"
           "<Version type=\"int\">2</Version>\n<ServerIP type=\"string\">" +
           server + "</ServerIP>\n<IsProxy type=\"bool\">" + proxy +
           "</IsProxy>\n<WiFiConnection type=\"bool\">" + wifi +
           "</WiFiConnection>\n</HXConnectionSettings>\n</MFilerTaggedXml>\n";
}

const std::string kDefaults = Document("192.168.178.10", '1', '0');
const std::string kVersion1 =
    "<MFilerTaggedXml><HXConnectionSettings><Version type='int'>1</Version><ServerIP "
    "type='string'>\xC3\xA4</ServerIP>"
    "</HXConnectionSettings></MFilerTaggedXml>";

TEST_F(Hxctl, SaysWhetherADocumentIsWellFormed) {
    Write("good.xml", "\xEF\xBB\xBF<a/>");
    Write("utf16.xml", "\xFF\xFE<\0a\0/\0>\0"s);
    Write("bytes.xml", "<a>\xFF</a>");
    Write("empty.xml", "");
    Check({
        {"xml good.xml", "", 0, "well-formed\n", ""},
        {"xml utf16.xml", "", 0, "well-formed\n", ""},
        {"xml -", "<a>", 1, "", "hxctl: -: Element 'a' at offset 0 not ended\n"},
        {"xml empty.xml", "", 1, "", "hxctl: empty.xml: Empty document\n"},
        {"xml missing.xml", "", 1, "", "hxctl: missing.xml: No such file or directory\n"},
        {"xml .", "", 1, "", "hxctl: .: Is a directory\n"},
        {"xml bytes.xml", "", 1, "", "hxctl: bytes.xml: no UTF-8 or UTF-16 text, at byte 3\n"},
        {"xml - --tree", "<a b='1' b='2' c='&quot;' d><\xC3\xA4>t\n</\xC3\xA4>u</a>", 0,
         "well-formed\n0 a b=\"1\" c=\"\\\"\" d=\"\" \"u\"\n1 \xC3\xA4 \"t\\n\"\n", ""},
        {"xml --tree -", "<a><b></a>", 1, "0 a \"\"\n1 b \"\"\n",
         "hxctl: -: Element 'b' at offset 3 not ended\n"},
        {"xml - --json", "<a/><b/>", 1, "{\"wellFormed\":false,\"error\":\"Root element has sibling\"}\n",
         "hxctl: -: Root element has sibling\n"},
        {"xml - --json --tree", "<a b='1'><c/></a>", 0,
         "{\"wellFormed\":true,\"error\":\"\",\"tree\":["
         "{\"name\":\"a\",\"depth\":0,\"attributes\":{\"b\":\"1\"},\"text\":\"\"},\n"
         "{\"name\":\"c\",\"depth\":1,\"attributes\":{},\"text\":\"\"}]}\n",
         ""},
        {"xml - --json --tree", "x", 1, "{\"wellFormed\":false,\"error\":\"No root element\",\"tree\":[]}\n",
         "hxctl: -: No root element\n"},
    });
}

TEST_F(Hxctl, ShowsATreeOfAnyShape) {
    std::string deep;
    std::string attributes = "<a";
    for (int i = 0; i < 100'000; ++i) deep += "<a>";
    for (int i = 0; i < 200'000; ++i) attributes += " a" + std::to_string(i) + "='1'";
    EXPECT_EQ(Run("xml --tree -", deep).exit, 1);
    EXPECT_TRUE(Read("stdout").ends_with("\n99999 a \"\"\n"));
    EXPECT_EQ(Run("xml --tree -", attributes + "/>").exit, 0);
    EXPECT_TRUE(Read("stdout").ends_with(" a199999=\"1\" \"\"\n"));
}

TEST_F(Hxctl, TakesSettingsThroughTheLibrary) {
    const std::string refused = "0x80004005 E_FAIL\n";
    const std::string reason = "hxctl: ReadXmlBstr answered E_FAIL (0x80004005)\n";
    const std::string unserved = "hxctl: CreateSettingsObject answered E_INVALIDARG (0x80070057)\n";
    const std::string newer =
        "<MFilerTaggedXml><HXConnectionSettings><Version type='int'>3</Version>"
        "</HXConnectionSettings></MFilerTaggedXml>";
    Check({
        {"settings new --type 257", "", 0, kDefaults, ""},
        {"settings new --type 513", "", 1, "", unserved},
        {"settings check --type 513 -", kVersion1, 1, "0x80070057 E_INVALIDARG\n", unserved},
        {"settings check --type 257", "", 0, "0x00000000 S_OK\n", ""},
        {"settings check --type 257 -", kVersion1, 0, "0x00000000 S_OK\n", ""},
        {"settings check --type 257 -", "", 1, refused, reason},
        {"settings check --type 257 -", newer, 1, refused, reason},
        {"settings check --type 257 missing", "", 1, "", "hxctl: missing: No such file or directory\n"},
        {"settings convert --type 257", "", 0, kDefaults, ""},
        {"settings convert --type 257 -", kVersion1, 0, Document("\xC3\xA4", '0', '0'), ""},
        {"settings convert --type 257 -", kDefaults, 0, kDefaults, ""},
        {"settings convert --type 257 -", newer, 1, "", reason},
        {"settings check --type 257 - --json", newer, 1,
         "{\"operation\":\"ReadXmlBstr\",\"hresult\":\"0x80004005\",\"name\":\"E_FAIL\"}\n", reason},
        {"settings check --type 257 --json", "", 0,
         "{\"operation\":\"ReadXmlBstr\",\"hresult\":\"0x00000000\",\"name\":\"S_OK\"}\n", ""},
    });
    // Measurement settings tell why, where reading raised an error.
    const std::string empty_catalogue = Run("settings new --type 258").out;
    const std::string codes = "CCoMHXMeasSettings.ReadXmlBstr ()";
    const std::string cause = "MDeviceSettingsList.ReadImpTagged:Read ($category=";
    Check({
        {"settings check --type 258", "", 1, refused, reason},
        {"settings convert --type 258 -", empty_catalogue, 1, "",
         "hxctl: ReadXmlBstr answered E_FAIL (0x80004005)\nError codes:\n" + codes + "\n" + cause +
             "\"DeviceType\")\n"},
        {"settings check --type 258 - --json", empty_catalogue, 1,
         "{\"operation\":\"ReadXmlBstr\",\"hresult\":\"0x80004005\",\"name\":\"E_FAIL\",\"error\":{"
         "\"codes\":\"" +
             codes + "\\n" + cause + "\\\"DeviceType\\\")\"}}\n",
         "hxctl: ReadXmlBstr answered E_FAIL (0x80004005)\nError codes:\n" + codes + "\n" + cause +
             "\"DeviceType\")\n"},
    });
    EXPECT_TRUE(Run("settings new --type 257 --json")
                    .out.starts_with("{\"operation\":\"WriteXmlBstr\",\"hresult\":\"0x00000000\",\"name\":"
                                     "\"S_OK\",\"document\":\"<?xml"));
}

TEST_F(Hxctl, TellsWhatAChainSaysToTheUser) {
    const auto error = [](const std::string& code, const std::string& name, const std::string& value) {
        return "<Error><Code type='string'>" + code + "</Code><Parameter><Name type='string'>" + name +
               "</Name><Value type='string'>" + value + "</Value></Parameter></Error>";
    };
    const auto document = [](const std::string& groups) {
        return "<ExceptionChain>" + groups + "</ExceptionChain>";
    };
    const std::string chain =
        document("<Exception>" + error("A.B:C", "n", "v") + error("D", "n", "w") + "</Exception>");
    const std::string codes = "D ($n=\"w\")\nA.B:C ($n=\"v\")";
    const std::string own =
        error("MLaserProfileSettings.ValidateProfileName:ProfileNameContains", "invalidCharacter", "/");
    const std::string own_code =
        "MLaserProfileSettings.ValidateProfileName:ProfileNameContains ($invalidCharacter=\"/\")";
    const std::string rule = "<MatchingRule>" + error("X", "n", "v") +
                             "<Message type='string'>\xC3\xBC ${n}</Message></MatchingRule>";
    Check({
        {"exception -", chain, 0,
         "No error description available due to a configuration error.\nError codes:\n" + codes +
             "\nRule: none (score 0)\n",
         ""},
        {"exception - --json", document("<Exception>" + own + "</Exception>" + rule), 0,
         "{\"message\":\"The profile name cannot contain '/'.\\nChoose a different name for the new "
         "profile.\","
         "\"codes\":\"MLaserProfileSettings.ValidateProfileName:ProfileNameContains "
         "($invalidCharacter=\\\"/\\\")\","
         "\"rule\":\"oldest record\",\"score\":2000}\n",
         ""},
        {"exception - --locale de-DE", document("<Exception>" + own + "</Exception>"), 0,
         "Der Profilname darf \xE2\x80\x9E/\xE2\x80\x9C nicht enthalten.\nW\xC3\xA4hlen Sie einen anderen "
         "Namen f\xC3\xBCr das "
         "neue Profil.\nError codes:\n" +
             own_code + "\nRule: oldest record (score 2000)\n",
         ""},
        {"exception - --locale ../de-DE",
         document("<Exception>" + error("D", "n", "w") + "</Exception>" + rule), 0,
         "\xC3\xBC v\nError codes:\nD ($n=\"w\")\nRule: remote (score 500)\n", ""},
        {"exception -", "<ExceptionChain/>", 1, "", "hxctl: -: no document of an exception chain\n"},
        {"exception missing", "", 1, "", "hxctl: missing: No such file or directory\n"},
    });
    // What one process sends on, another one shows in the words of the first, unless it has words of its own.
    const Answer sent = Run("exception - --chain --locale fr-FR",
                            document("<Exception>" + error("D", "n", "w") + "</Exception>" + rule));
    EXPECT_EQ(Run("exception - --locale ja-JP", sent.out).out.substr(0, 5), "\xC3\xBC v\n");
}

TEST_F(Hxctl, WrongUseIsToldOnStandardErrorAlone) {
    for (const char* arguments :
         {"", "nonsense", "xml", "xml a b", "xml a --nonsense", "settings", "settings new",
          "settings new --type x", "settings new --type 257 file", "inspect", "exception", "log file",
          "log --events", "log --events file --follow"}) {
        const Answer answer = Run(arguments);
        EXPECT_EQ(answer.exit, 2) << arguments;
        EXPECT_EQ(answer.out, "") << arguments;
        EXPECT_NE(answer.err, "") << arguments;
    }
}

TEST_F(Hxctl, HelpIsEverywhere) {
    for (const char* command :
         {"", "xml", "settings", "settings new", "settings check", "settings convert", "inspect", "format",
          "exception", "keys", "keys list", "keys get", "keys set", "log"}) {
        const Answer answer = Run(command + " --help"s);
        EXPECT_EQ(answer.exit, 0) << command;
        EXPECT_NE(answer.out.find("Usage: hxctl"), std::string::npos) << answer.out;
        EXPECT_EQ(answer.err, "") << command;
    }
}

TEST_F(Hxctl, OutputThatCannotBeWrittenIsAFailure) {
    EXPECT_EQ(std::system(("'"s + HX_BIN_DIR + "/hxctl' settings new --type 257 >/dev/full 2>'" +
                           (m_folder / "err").string() + "'")
                              .c_str()),
              1 << 8);
    EXPECT_EQ(Read("err"), "hxctl: standard output cannot be written\n");
}

}  // namespace
