// The program of docs/host_guide.md: what it says it does it does, with the page and the simulated scanner.
#include "tests/platform/temporary_folder.h"

#include <sys/wait.h>

#include <iterator>

namespace {

struct Answer {
    int exit;
    std::string out;
    std::string err;
};

class MinimalHost : public testing::Test {
protected:
    // `environment` as for env(1).
    Answer Run(const std::string& environment, const std::string& arguments) const {
        const std::string command = "cd '" + m_folder.path().string() + "' && env " + environment +
                                    " HX_DATA=\"$PWD\" HX_REGISTRY=\"$PWD\" '" + HX_BIN_DIR +
                                    "/minimal_host' " + arguments + " >stdout 2>stderr";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read("stdout"), Read("stderr")};
    }

private:
    std::string Read(const char* name) const {
        std::ifstream file(m_folder.path() / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    TemporaryFolder m_folder;
};

TEST_F(MinimalHost, TellsTheScannerWhatWasChangedAndStoresItByItsNewName) {
    const Answer answer = Run("", "--no-screen");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(answer.out.starts_with("Brass\n"))
        << "the profile that is selected in the end: " << answer.out;
    // In this order, with other calls between them.
    size_t place = 0;
    for (const char* call :
         {R"("op":"SetLaserPower","args":[40],"result":0)", R"("op":"ActivateDynamicSettings")",
          R"("op":"SaveDynamicSettingsPresets")", R"("op":"DisableScanner")", R"("op":"ReleaseHandle")"}) {
        place = answer.out.find(call, place);
        ASSERT_NE(place, std::string::npos) << call << " is missing in " << answer.out;
    }
}

TEST_F(MinimalHost, SaysThatThereIsNoScreen) {
    const Answer answer = Run("-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM", "");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.err.starts_with("minimal_host: There is no screen")) << answer.err;
}

}  // namespace
