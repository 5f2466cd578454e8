// The diagnostics page as its host has it: created by name, with the simulated scanner API. With and without
// a screen.
#include <stdlib.h>

#include "tests/controls/shell/hosted_page.h"

namespace {

using HostedDiagnostics = hosted::WithPage;

TEST_F(HostedDiagnostics, FollowsTheScannerFromItsHostsCallsToItsEnd) {
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_EQ(m_hands->SetModel(Text("T820")), S_OK);
    Create(kProgIdHXDiagnosticsCtrl);
    EXPECT_EQ(m_page->SetSettingsObjectMap(nullptr), S_OK);
    EXPECT_EQ(m_page->SetHXApi(nullptr), E_INVALIDARG);
    EXPECT_EQ(m_page->Initialise(nullptr, nullptr, nullptr, nullptr), DISP_E_MEMBERNOTFOUND);
    BOOL answer = 0x12345;
    EXPECT_EQ(m_page->Save(&answer), S_OK);
    EXPECT_EQ(m_page->Save(nullptr), S_OK);
    EXPECT_EQ(answer, 0x12345);
    EXPECT_EQ(m_page->OnSelected(), S_OK);
    Text();

    EXPECT_EQ(m_page->SetHXApi(m_api.get()), S_OK);
    EXPECT_EQ(Text(), "events.Advise[observer]\napi.GetConnectionState[]\n");
    EXPECT_EQ(At(236).Text(), L"Unknown (not connected)");
    const std::string read =
        "api.GetCurrentProfile[]\nprofile.GetDriverSelection[]\napi.GetDeviceManager[]\n"
        "devices.GetDriverProperties[CategoryScanner,";
    Arrive(HXConnected);
    const std::string calls = Text();
    EXPECT_NE(calls.find(read), std::string::npos) << calls;
    for (const uint32_t id : {231, 234}) {
        EXPECT_EQ(std::count(At(id).Text().begin(), At(id).Text().end(), L'.'), 2) << "as in Germany";
    }
    EXPECT_TRUE(At(238).IsVisible());
    EXPECT_TRUE(At(228).ToolTip().empty()) << "what another page says of the same number";

    Fail("GetDriverProperties");
    Arrive(HXConnected);
    EXPECT_NE(Text().find("box: Unable to retrieve scanner properties."), std::string::npos);
    EXPECT_EQ(At(236).Text(), L"Unknown (not connected)");
    EXPECT_EQ(m_page->OnDeselected(), S_OK);
    Close();
    EXPECT_EQ(Text(), "events.Unadvise[1]\n");
    unsetenv("LC_ALL");
}

// One is given back, and what it has told, before the other one is listened to.
TEST_F(HostedDiagnostics, ChangesToAnotherScanner) {
    const auto other = SimulatorTest::Create<IHXApi>(kProgIdHXSimulator);
    Create(kProgIdHXDiagnosticsCtrl);
    EXPECT_EQ(m_page->SetHXApi(m_api.get()), S_OK);
    m_hands->SetConnectionState(HXConnected, TRUE);
    m_hands->WaitForEvents();
    Text();
    EXPECT_EQ(m_page->SetHXApi(other.get()), S_OK);
    hx::DispatchMessages();
    EXPECT_EQ(Text(), "events.Unadvise[1]\nevents.Advise[observer]\napi.GetConnectionState[]\n");
    EXPECT_EQ(At(236).Text(), L"Unknown (not connected)");
    other.as<IHXSimulator>()->SetConnectionState(HXConnected, TRUE);
    other.as<IHXSimulator>()->WaitForEvents();
    hx::DispatchMessages();
    EXPECT_NE(At(236).Text(), L"Unknown (not connected)");
}

}  // namespace
