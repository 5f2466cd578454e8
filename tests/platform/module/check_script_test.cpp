// The check of the build: every broken script is named with file and line, and fails it.
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>

#include "tests/platform/temporary_folder.h"

namespace {

// What the check says of `path`, and whether it is content.
std::pair<std::string, bool> Check(const std::string& options, const std::filesystem::path& path) {
    const std::string command = HX_BIN_DIR "/hxcheckscript " + options + " '" + path.native() + "' 2>&1";
    FILE* const pipe = popen(command.c_str(), "r");
    std::string said;
    for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) said += static_cast<char>(c);
    const int status = pclose(pipe);
    return {said, WIFEXITED(status) && WEXITSTATUS(status) == 0};
}

TEST(CheckScript, NamesThePlaceOfEveryFault) {
    const TemporaryFolder folder;
    const std::string path = folder.path().native() + "/";
    folder.Write("good.rgs", "HKCR { %ANY% = s '%MODULE%' { val N = d 0x%NUMBER% } }");
    folder.Write("bad.rgs", "HKCR\n{\n  A = b 1\n}");
    folder.Write("good.bmp", "BM");
    folder.Write("bad.bmp", "GIF");
    folder.Write("bytes.rgs", "HKCR\n{ '\xFF' }");
    const struct {
        std::string script;
        std::string options;
        std::string said;
    } rows[] = {
        {"7 REGISTRY \"good.rgs\"", "--module", ""},
        {"7 REGISTRY \"bad.rgs\"", "--module",
         path + "bad.rgs:3: error: a value of the kind \"b\": the registry holds texts (s) and numbers (d) "
                "only\n"},
        {"7 REGISTRY \"bytes.rgs\"", "--module",
         path + "bytes.rgs:2: error: the text is not UTF-8\n" + path +
             "a.rc:1: error: the registration script \"bytes.rgs\" cannot be read\n"},
        {"\n7 REGISTRY \"none.rgs\"", "--module",
         path + "none.rgs:0: error: cannot be read\n" + path +
             "a.rc:2: error: the registration script \"none.rgs\" cannot be read\n"},
        {"7 REGISTRY \"../good.rgs\"", "--module",
         path + "a.rc:1: error: a registration script is a file *.rgs that lies beside this one, not "
                "\"../good.rgs\"\n"},
        {"7 REGISTRY \"good.rgs\"\n7 REGISTRY \"good.rgs\"", "--module",
         path + "a.rc:2: error: the registration script 7 is there already, in line 1\n"},
        {"7 REGISTRY", "--module",
         path + "a.rc:1: error: expected the file of a registration script, found the end of the script\n"},
        {"7 BITMAP \"good.bmp\"", "--module", ""},
        {"7 BITMAP \"bad.bmp\"\n8 BITMAP \"none.bmp\"", "--module",
         path + "bad.bmp:0: error: is no bitmap\n" + path + "none.bmp:0: error: is no bitmap\n"},
        {"\n7 REGISTRY \"good.rgs\"", "",
         path + "a.rc:2: error: only a module itself holds registration scripts\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Check(row.options, folder.Write("a.rc", row.script)),
                  std::pair(row.said, row.said.empty()));
    }
}

}  // namespace
