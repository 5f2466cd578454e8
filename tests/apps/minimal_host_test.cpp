// The program of docs/host_guide.md: what it says it does it does, with the page and the simulated scanner.
#include "tests/apps/hxctl_fixture.h"

namespace {

using MinimalHost = Hxctl;

TEST_F(MinimalHost, TellsTheScannerWhatWasChangedAndStoresItByItsNewName) {
    const Answer answer = RunProgram("minimal_host", "--no-screen");
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
    const Answer answer =
        RunProgram("minimal_host", "", "", "-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.err.starts_with("minimal_host: There is no screen")) << answer.err;
}

}  // namespace
