// Keyboard and focus where components are in dialogs: a host with a page in it, which has controls and a
// component of its own that nobody enters. The host is a dialog whose template names the component, or a
// plain window with a site.
#include "platform/com/class_files.h"
#include "platform/com/loader.h"
#include "platform/system/utf8.h"
#include "platform/ui/component_control.h"
#include "platform/ui/component_site.h"
#include "tests/platform/temporary_folder.h"
#include "tests/platform/ui/behaviour_fixture.h"
#include "tests/platform/ui/hosting/gauge.h"

namespace hx_test {
namespace {

using namespace hx::ui;

constexpr uint32_t kHost = 300;
constexpr uint32_t kEmbedded = 301;
enum HostId : uint32_t { kBefore = 30, kPlace = 31, kFirst = 40, kPreview = 41, kPress = 42, kLast = 43 };

constexpr wchar_t kScript[] =
    LR"(
300 DIALOGEX 0, 0, 240, 140
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    LTEXT         "&Power", IDC_STATIC, 110, 4, 40, 8
    EDITTEXT      30, 4, 4, 100, 12, WS_TABSTOP
    LTEXT         "Pa&ge", IDC_STATIC, 4, 18, 40, 8
    CONTROL       "", 31, "Hx.Gauge", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 4, 28, 200, 80
    DEFPUSHBUTTON "&Done", IDOK, 4, 120, 50, 14, WS_TABSTOP
    PUSHBUTTON    "&Cancel", IDCANCEL, 60, 120, 50, 14, WS_TABSTOP
END
301 DIALOGEX 0, 0, 200, 80
STYLE DS_SETFONT | WS_CHILD | WS_VISIBLE
FONT 8, "MS Shell Dlg"
BEGIN
    EDITTEXT      40, 4, 4, 50, 12, WS_TABSTOP
    CONTROL       "", 41, "Hx.Gauge", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 60, 4, 100, 60
    PUSHBUTTON    "&Press", 42, 4, 20, 50, 14, WS_TABSTOP
    AUTOCHECKBOX  "C&heck", 43, 4, 40, 50, 10, WS_TABSTOP
END
)";

hx::ModuleHandle Module() {
    static const hx::ModuleHandle module = [] {
        hx::ResourceError error;
        std::optional<hx::Resources> resources = hx::ReadResourceScript(kScript, error);
        EXPECT_TRUE(resources) << hx::ToUtf8(error.text);
        return hx::MakeResourceModule(L"/test/embedding.so", std::move(resources).value_or(hx::Resources{}));
    }();
    return module;
}

class Embedding : public Behaviour {
protected:
    Embedding() {
        const std::string line = hx::ToUtf8(hx::GuidToText(CLSID_Gauge)) +
                                 "\tHx.Gauge.1\tHx.Gauge\tApartment\t" + HX_BIN_DIR +
                                 "/libhx_test_gauge.so\n";
        m_folder.Write("test.classes", line);
        hx::SetClassLookup(hx::ReadClassFiles(m_folder.path()));
        Gauges::TheScript() = {};
        Gauges::TheScript().doings["OnWindowCreated"] = [this] {
            ASSERT_FALSE(inner.Create(Module(), kEmbedded, Gauges::TheWindow()));
        };
    }
    ~Embedding() override {
        inner.Destroy();
        host.Destroy();
        EXPECT_EQ(Gauges::LivingWindows(), 0);
        hx::SetClassLookup(nullptr);
    }
    void ShowHost() {
        ASSERT_FALSE(host.Create(Module(), kHost, nullptr));
        host.Show(true);
        renderer.Pump();
        host.TakeEvents();
        inner.TakeEvents();
    }
    // The one control that has the focus, in whichever dialog; 0 for none.
    uint32_t Focus() const {
        uint32_t found = 0;
        for (const TestDialog* const dialog : {&host, &inner}) {
            const Control* const focused = dialog->Focused();
            if (!focused || focused->Kind() == ControlKind::component) continue;
            EXPECT_EQ(found, 0u) << "two have the focus";
            found = focused->Id();
        }
        return found;
    }
    static Texts Told(TestDialog& dialog) { return dialog.TakeEvents(); }

    TestDialog host;
    TestDialog inner;

private:
    TemporaryFolder m_folder;
};

TEST_F(Embedding, TabGoesThroughAllThatIsInTheFrame) {
    ShowHost();
    EXPECT_EQ(Focus(), kBefore);
    const uint32_t order[] = {kFirst, kPress, kLast, IDOK, IDCANCEL, kBefore};
    for (const uint32_t id : order) {
        ASSERT_TRUE(user.Key(host, VK_TAB));
        EXPECT_EQ(Focus(), id);
        EXPECT_EQ(host.Find(kPlace)->HasFocus(), id >= kFirst) << "the host knows that it is in the page";
    }
    for (size_t i = std::size(order) - 1; i-- > 0;) {
        ASSERT_TRUE(user.Key(i == 1 ? inner : host, VK_TAB, true));
        EXPECT_EQ(Focus(), order[i]);
    }
    inner.Find(kLast)->Enable(false);
    inner.SetFocus(inner.Find(kPress));
    user.Key(host, VK_TAB);
    EXPECT_EQ(Focus(), IDOK);
    host.Find(kPlace)->Show(false);
    user.Key(host, VK_TAB, true);
    EXPECT_EQ(Focus(), kBefore) << "nobody goes into what is hidden";
}

TEST_F(Embedding, TheFocusIsInOnePlaceAndEveryoneIsTold) {
    ShowHost();
    user.Focus(*inner.Find(kFirst));
    EXPECT_EQ(Told(host), (Texts{"30 EN_KILLFOCUS"}));
    EXPECT_EQ(Told(inner), (Texts{"40 EN_SETFOCUS"}));
    EXPECT_EQ(host.Focused(), host.Find(kPlace));
    EXPECT_EQ(host.FocusedWithin(), inner.Find(kFirst));
    EXPECT_TRUE(user.Click(*inner.Find(kPress)));
    EXPECT_EQ(Told(inner), (Texts{"40 EN_KILLFOCUS", "42 BN_CLICKED"}));
    EXPECT_EQ(host.Focused(), host.Find(kPlace));
    host.Find(kBefore)->SetFocus();
    EXPECT_EQ(inner.FocusedWithin(), nullptr);
    host.Find(kPlace)->SetFocus();
    EXPECT_EQ(Focus(), kFirst) << "a component gives it to its first control";
    inner.Find(kFirst)->Enable(false);
    EXPECT_EQ(Focus(), kPress) << "it stays in the page";
    host.Find(kPlace)->Show(false);
    EXPECT_EQ(Focus(), 0u);
    host.Find(kPlace)->Show(true);
    inner.Find(kPress)->SetFocus();
    inner.Destroy();
    EXPECT_EQ(host.Focused(), nullptr) << "what has gone has no focus";
    EXPECT_TRUE(user.Key(host, VK_TAB));
    EXPECT_EQ(Focus(), kBefore);
    host.Find(kPlace)->SetFocus();
    EXPECT_EQ(Focus(), kBefore) << "a component without controls does not take it";
}

TEST_F(Embedding, KeysThatThePageLeavesReachTheHost) {
    struct Case {
        uint32_t from;
        uint32_t key;  // or the letter of a mnemonic
        Texts told;    // to the page
        std::optional<int32_t> result;
        uint32_t focus;
    };
    const Case cases[] = {
        {kFirst, VK_ESCAPE, {}, 2, kFirst},
        {kFirst, VK_RETURN, {}, 1, kFirst},
        {kPress, VK_RETURN, {"42 BN_CLICKED"}, std::nullopt, kPress},
        {kPress, VK_ESCAPE, {}, 2, kPress},
        {kFirst, L'h', {"40 EN_KILLFOCUS", "43 BN_CLICKED"}, std::nullopt, kLast},
        {kPress, L'c', {}, 2, IDCANCEL},
        {kPress, L'g', {"40 EN_SETFOCUS"}, std::nullopt, kFirst},
        {kBefore, L'g', {"40 EN_SETFOCUS"}, std::nullopt, kFirst},
        {kBefore, L'p', {"42 BN_CLICKED"}, std::nullopt, kPress},
        {kFirst, L'p', {"40 EN_KILLFOCUS", "42 BN_CLICKED"}, std::nullopt, kPress},
        {kPress, L'p', {}, std::nullopt, kBefore},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(&row - cases);
        Gauges::TheScript().doings["OnWindowCreated"] = [this] {
            ASSERT_FALSE(inner.Create(Module(), kEmbedded, Gauges::TheWindow()));
        };
        ShowHost();
        Control* const from = row.from < kFirst ? host.Find(row.from) : inner.Find(row.from);
        ASSERT_TRUE(user.Focus(*from));
        Told(inner);
        EXPECT_TRUE(row.key > L'Z' ? user.Mnemonic(host, static_cast<wchar_t>(row.key))
                                   : user.Key(host, row.key));
        EXPECT_EQ(Told(inner), row.told);
        EXPECT_EQ(host.Result(), row.result);
        EXPECT_EQ(Focus(), row.focus);
        host.Destroy();
    }
}

TEST_F(Embedding, APlainWindowWithASiteIsAHostToo) {
    const auto site = hx::Make<ComponentSite>(LCID{1033});
    page->Find(kPowerText)->SetFocus();
    ASSERT_EQ(site->Open(CLSID_Gauge, frame, {300, 0, 600, 200}, true), S_OK);
    ASSERT_TRUE(user.Click(*inner.Find(kPress)));
    EXPECT_EQ(page->Focused(), nullptr);
    user.Key(inner, VK_TAB);
    EXPECT_EQ(Focus(), kLast);
    user.Key(inner, VK_TAB);
    EXPECT_EQ(page->Focused(), page->Find(kList)) << "the next dialog of the frame";
    user.Key(*page, VK_TAB, true);
    EXPECT_EQ(Focus(), kLast);
    EXPECT_TRUE(user.Mnemonic(inner, L'a')) << "of the other dialog";
    EXPECT_TRUE(page->Find(kAutomatic)->HasFocus());
    EXPECT_EQ(inner.Focused(), nullptr);
    site->Close();
}

TEST_F(Embedding, AModalDialogInFrontOfAPageGivesTheFocusBack) {
    ShowHost();
    user.Focus(*inner.Find(kPress));
    TestDialog dialog;
    script.AnswerModal({hx::ui::Script::Answer::By::escape, 0, {}});
    dialog.RunModal(TestModule(), kModal, &host);
    EXPECT_EQ(Focus(), kPress);
}

}  // namespace
}  // namespace hx_test
