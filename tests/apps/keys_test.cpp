// hxctl keys: the commands on a registry in memory, and the tool's own reading of the command line.
#include <algorithm>
#include <string>
#include <vector>

#include "apps/hxctl/command.h"
#include "tests/apps/hxctl_fixture.h"
#include "tests/memory_registry.h"

namespace {

using hxctl::Outcome;

class KeysCommand : public WithMemoryRegistry {
protected:
    static void Expect(const Outcome& outcome, int exit, const std::string& output,
                       const std::string& reason) {
        EXPECT_EQ(outcome.exit, exit);
        EXPECT_EQ(outcome.output, output);
        EXPECT_EQ(outcome.reason, reason);
    }
};

const std::string kMachinePath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\";
const std::string kPlateWidth = kMachinePath + "Configuration\\PlateWidth";
const std::string kRecording = kMachinePath + "SimulatorRecorder\\Enable";

// The keys of these tests: 9 a number, 24 a boolean, 26 a text, 30 and 169 integers without and with a sign.
TEST_F(KeysCommand, WhatFitsIsKeptAndReadBack) {
    struct Row {
        uint32_t id;
        const char* given;
        const char* shown;
        const char* json;
    };
    for (const Row& row : {Row{24, "true", "true", "true"},
                           {24, "0", "false", "false"},
                           {24, "1", "true", "true"},
                           {24, "false", "false", "false"},
                           {30, "0", "0", "0"},
                           {30, "4294967295", "4294967295", "4294967295"},
                           {169, "-2147483648", "-2147483648", "-2147483648"},
                           {169, "2147483647", "2147483647", "2147483647"},
                           {136, "007", "7", "7"},
                           {9, "-0.1", "-0.1", "-0.1"},
                           {9, "1e300", "1e+300", "1e+300"},
                           {9, "0.30000000000000004", "0.3", "0.3"},
                           {26, "", "", "\"\""},
                           {26, "--\n\"\xC3\xA4", "--\n\"\xC3\xA4", "\"--\\n\\\"\xC3\xA4\""}}) {
        SCOPED_TRACE(row.given);
        const Outcome set = hxctl::RunKeysSet(row.id, row.given, false);
        EXPECT_EQ(set.exit, 0) << set.reason;
        EXPECT_TRUE(set.output.ends_with(" = " + std::string(row.shown) + "\n")) << set.output;
        Expect(hxctl::RunKeysGet(row.id, false), 0, std::string(row.shown) + "\n", "");
        Expect(hxctl::RunKeysGet(row.id, true), 0,
               "{\"id\":" + std::to_string(row.id) + ",\"value\":" + row.json + "}\n", "");
    }
    Expect(
        hxctl::RunKeysSet(24, "1", true), 0,
        R"({"id":24,"value":true,"written":"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\SimulatorRecorder\\Enable",)"
        R"("read":"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\SimulatorRecorder\\Enable"})"
        "\n",
        "");
}

TEST_F(KeysCommand, WhatDoesNotFitIsRefusedAndNothingWritten) {
    struct Row {
        uint32_t id;
        const char* accepts;
        std::vector<const char*> given;
    };
    for (const Row& row : {
             Row{24, "true, false, 1 or 0", {"", "yes", "TRUE", "2", "-1", " 1", "true "}},
             Row{30,
                 "an integer from 0 to 4294967295",
                 {"", "-1", "4294967296", "1.0", "0x10", " 1", "1 ", "x"}},
             Row{169,
                 "an integer from -2147483648 to 2147483647",
                 {"", "-", "-2147483649", "2147483648", "99999999999999999999", "1e3", "+1"}},
             Row{9, "a number such as -1.5e3", {"", "1,5", "1.5mm", "nan", "inf", "-inf", "1e400", "."}},
             Row{26, "a text in UTF-8", {"\xFF", "a\xC3"}},
         }) {
        for (const char* given : row.given) {
            Expect(hxctl::RunKeysSet(row.id, given, false), 1, "",
                   "key " + std::to_string(row.id) + " takes " + row.accepts + ", not \"" + given + "\"");
        }
    }
    EXPECT_FALSE(HasKey(kMachineRoot, L"Software"));
}

TEST_F(KeysCommand, AMissingValueIsToldAndSoIsOneOfAnotherType) {
    Expect(hxctl::RunKeysGet(24, false), 1, "", "key 24 is not set: no boolean at " + kRecording);
    Expect(hxctl::RunKeysGet(24, true), 1, "{\"id\":24,\"value\":null}\n",
           "key 24 is not set: no boolean at " + kRecording);
    Store(kMachineRoot, L"Software\\Orvel\\HXAPI4\\SimulatorRecorder", L"Enable", L"true");
    Expect(hxctl::RunKeysGet(24, false), 1, "", "key 24 holds no boolean at " + kRecording);
    Store(kMachineRoot, L"Software\\Orvel\\HXAPI4\\Configuration", L"PlateWidth", 5u);
    Expect(hxctl::RunKeysGet(9, false), 1, "", "key 9 holds no double at " + kPlateWidth);
}

TEST_F(KeysCommand, SetTellsWhenAKeyIsReadElsewhere) {
    const std::string machine = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\";
    Expect(hxctl::RunKeysSet(0, "7.1", false), 0,
           machine + "Orvel\\RDS\\General\\RDS Version = 7.1\nThe key is read from " + machine +
               "Romer\\RDS\\General\\RDS Version, which is unchanged.\n",
           "");
    EXPECT_EQ(hxctl::RunKeysGet(0, false).exit, 1);
}

TEST_F(KeysCommand, AStoreThatRefusesIsTold) {
    EXPECT_EQ(hxctl::RunKeysSet(24, "true", false).exit, 0);
    RefuseWrites();
    Expect(hxctl::RunKeysSet(24, "false", false), 1, "", "key 24 is not written: access denied");
    Expect(hxctl::RunKeysGet(24, false), 0, "true\n", "");
}

using HxctlKeys = Hxctl;

TEST_F(HxctlKeys, ListsEveryKeyOnALineOfItsOwn) {
    const Answer answer = Run("keys list");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(std::ranges::count(answer.out, '\n'), 191) << "and a line above them";
    EXPECT_NE(answer.out.find("\n30   1 integer  0         24     -       " + kMachinePath +
                              "SimulatorRecorder\\MaxTrackingCycles "),
              std::string::npos)
        << answer.out;
    EXPECT_NE(
        answer.out.find("\n87   5 boolean  0         87     create  HKEY_CURRENT_USER\\Software\\Orvel\\"
                        "HXTray\\DDS\\ShowErrors "),
        std::string::npos);

    const Answer json = Run("keys list --json");
    EXPECT_TRUE(json.out.starts_with(R"([
  {
    "id": 0,
    "fullPath": "HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\Romer\\RDS\\General\\RDS Version",
    "type": "string",
    "typeCode": 9,
    "category": 2,
    "group": 0,
    "flags": [
      "view32"
    ],
    "description": ")"))
        << json.out;
    EXPECT_TRUE(json.out.ends_with("\n  }\n]\n"));
}

TEST_F(HxctlKeys, ReadsItsCommandLine) {
    Check({
        {"keys get 24", "", 1, "", "hxctl: key 24 is not set: no boolean at " + kRecording + "\n"},
        {"keys get 190", "", 2, "", "hxctl: no key 190: the ids are 0 to 189\n"},
        {"keys set 4294967295 x", "", 2, "", "hxctl: no key 4294967295: the ids are 0 to 189\n"},
        {"keys set 9 -1.5", "", 0, kPlateWidth + " = -1.5\n", ""},
        {"keys set 26 -- '-x y'", "", 0, kMachinePath + "SimulatorRecorder\\ActiveDataset = -x y\n", ""},
    });
    for (const char* arguments : {"keys", "keys get", "keys get x", "keys get -1", "keys get 4294967296",
                                  "keys set 24", "keys set 24 1 2", "keys list 24"}) {
        const Answer answer = Run(arguments);
        EXPECT_EQ(answer.exit, 2) << arguments;
        EXPECT_EQ(answer.out, "") << arguments;
        EXPECT_NE(answer.err, "") << arguments;
    }
}

}  // namespace
