// What the diagnostics page shows of a scanner, what it tells of failures, and what comes meanwhile.
#include <stdlib.h>

#include "controls/diagnostics/CDiagnosticsDlg.h"
#include "controls/shell/ConfigCtrl.h"
#include "controls/shell/PageControlClass.h"
#include "core/errors/MException.h"
#include "core/locale/MResourceLocale.h"
#include "core/messages/MMatchingRule.h"
#include "platform/system/utf8.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/services.h"
#include "settings/properties/MPropertiesHelper.h"
#include "tests/controls/scripted_api.h"
#include "tests/settings/record_text.h"

namespace hx {
namespace {

using Scanner = MHXFamilyDeviceProperties;

const std::string kNothing = "Unknown (not connected)";
const std::string kNotKnown = kNothing + "|" + kNothing + "|" + kNothing + "|" + kNothing + "|";
const std::string kKnown = "HX-L|17|1/31/24|2/29/24|-|3.1|B";

// Connected, with nothing behind it.
class OldApi final : public Implements<OldApi, SingleThreaded, IHXApi> {
public:
    HRESULT GetConnectionState(int32_t* state, IErrorInfo**) override {
        *state = HXConnected;
        return S_OK;
    }
    HRESULT Resume(IErrorInfo**) override { return S_OK; }
    HRESULT GetDeviceManager(IDeviceManager**, IErrorInfo**) override { return E_NOTIMPL; }
};

// Keeps the API that it is given, and fails whenever it can.
struct FailingPage final : ui::Dialog {
    static constexpr uint32_t kTemplate = CDiagnosticsDlg::kTemplate;
    void SetApi(const ComPtr<IHXApi>& api) { given = api; }
    HRESULT OnSelected() { return E_ABORT; }
    HRESULT OnDeselected() { return E_ACCESSDENIED; }
    inline static ComPtr<IHXApi> given;
};
constexpr ui::FullControlClass kFailingClass = PageControlClass(CLSID_NULL, L"Failing", {1, 1});

std::wstring ChainSaying(const std::wstring& message) {
    MError error(L"Arm.Move:Stuck");
    error.AddParameter(L"part", L"cable");
    MOutFilerTaggedXml writer(kChainRoot);
    MFilerTaggedPair filer(writer);
    const MMatchingRule rule{{error}, message};
    EXPECT_TRUE(MException(error).Write(filer, kChainGroup) && rule.Write(filer));
    return writer.TakeText();
}

class DiagnosticsPage : public testing::Test {
protected:
    struct Host final : ui::Window {};

    DiagnosticsPage() {
        setenv("LC_ALL", "en_US.UTF-8", 1);
        ui::SetRenderer(m_renderer);
        m_host.Create(ui::WindowKind::frame, nullptr, {0, 0, 800, 600});
        scanner.InternalName = L"HX";
        scanner.DisplayName = L"HX-L";
        scanner.ScannerSerialNumber = L"17";
        scanner.ScannerManufacturingDate = {2024, 1, 31};
        scanner.CalibrationDate = {2024, 2, 29};
        scanner.FirmwareServerVersion = L"3.1";
        scanner.ScannerHardwareVersion = L"B";
    }
    ~DiagnosticsPage() override {
        page.reset();
        api.reset();
        EXPECT_EQ(script.alive, 0);
        m_host.Destroy();
        ui::SetRenderer(nullptr);
        unsetenv("LC_ALL");
    }
    std::wstring Document(const Scanner& device, const std::wstring& without = {}) {
        MOutFilerTaggedXml writer(MPropertiesHelper::kRoot);
        MFilerTaggedPair filer(writer);
        EXPECT_TRUE(MPropertiesHelper::WriteDocument(filer, MCommonDriverProperties(), device));
        std::wstring text = writer.TakeText();
        if (without.empty()) return text;
        const size_t begin = text.find(L"<" + without + L">");
        return text.erase(begin, text.find(L"</" + without + L">") + without.size() + 3 - begin);
    }
    void Create() { EXPECT_FALSE(page->Create(MResourceLocale::ResourceModule(), page->kTemplate, &m_host)); }
    // A new one with a new API, in that state.
    void Open(int32_t state = HXConnected, bool selected = true) {
        script.properties = Document(scanner);
        script.state = state;
        page = std::make_shared<CDiagnosticsDlg>();
        Create();
        if (selected) page->OnSelected();
        api = Make<scripted::Api>(script).as<IHXApi>();
        page->SetApi(api);
    }
    void Arrive(int32_t state) {
        PostWindowMessage(page->Handle(), {WM_HX_CONNECTION_STATE, static_cast<uint64_t>(state), 0});
        DispatchMessages();
    }
    std::string Shown() {
        std::string shown;
        constexpr std::pair<uint32_t, uint32_t> kRows[] = {{228, 235}, {229, 236}, {230, 231}, {233, 234},
                                                           {232, 238}, {239, 242}, {245, 244}};
        for (const auto& [label, id] : kRows) {
            const ui::Control& value = *page->Find(id);
            EXPECT_EQ(value.AccessibleName(), ui::WithoutMnemonic(page->Find(label)->Text()) + L" " +
                                                  ui::WithoutMnemonic(value.Text()));
            shown += (shown.empty() ? "" : "|") + (value.IsVisible() ? ToUtf8(value.Text()) : "-");
        }
        EXPECT_EQ(page->Find(232)->IsVisible(), page->Find(238)->IsVisible());
        return shown;
    }
    scripted::Script script;
    Scanner scanner;
    ui::Script boxes;
    ComPtr<IHXApi> api;
    std::shared_ptr<CDiagnosticsDlg> page;

private:
    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();
    Host m_host;
};

TEST_F(DiagnosticsPage, ShowsWhatTheDriverTells) {
    const auto rotated = [&](const wchar_t* rotation) {
        Scanner turned = scanner;
        turned.InternalName = L"T820";
        if (rotation) turned.Configurations = {{L"MountRotation", rotation}};
        return Document(turned);
    };
    const auto changed = [&](auto member, auto value) {
        Scanner other = scanner;
        other.*member = value;
        return Document(other);
    };
    constexpr auto kMade = &Scanner::ScannerManufacturingDate;
    const struct {
        std::wstring document;
        std::string shown;
    } rows[] = {
        {Document(scanner), kKnown},
        {rotated(L"30deg"), "HX-L|17|1/31/24|2/29/24|30°|3.1|B"},
        {rotated(L"60deg"), "HX-L|17|1/31/24|2/29/24|60°|3.1|B"},
        {rotated(L"90deg"), "HX-L|17|1/31/24|2/29/24|90°|3.1|B"},
        {rotated(L"45deg"), "HX-L|17|1/31/24|2/29/24|0°|3.1|B"},
        {rotated(nullptr), "HX-L|17|1/31/24|2/29/24|0°|3.1|B"},
        {changed(&Scanner::InternalName, L"t820"), kKnown},
        {changed(&Scanner::DisplayName, L"A & B"), "A && B|17|1/31/24|2/29/24|-|3.1|B"},
        {changed(&Scanner::ScannerHardwareVersion, L" B\n2\u2028\u202E3 "),
         "HX-L|17|1/31/24|2/29/24|-|3.1|B 2 3"},
        {Document(scanner, L"ScannerManufacturingDate"), "HX-L|17|Unknown|2/29/24|-|3.1|B"},
        {changed(kMade, CalendarDate{}), "HX-L|17|Unknown|2/29/24|-|3.1|B"},
        {changed(kMade, CalendarDate{2023, 2, 29}), "HX-L|17|Invalid DateTime|2/29/24|-|3.1|B"},
    };
    Open(HXNotConnected);
    EXPECT_EQ(Shown(), kNotKnown + kNothing + "|" + kNothing + "|" + kNothing);
    EXPECT_EQ(script.Calls(), "GetConnectionState");
    for (const auto& row : rows) {
        script.properties = row.document;
        Arrive(1);
        EXPECT_EQ(Shown(), row.shown);
        EXPECT_EQ(script.Calls(),
                  "GetCurrentProfile, GetDriverSelection, GetDeviceManager, "
                  "GetDriverProperties CategoryScanner driver");
    }
    // A device without a name is not shown at all; the row that is hidden stays so.
    script.properties = Document(Scanner());
    Arrive(1);
    EXPECT_EQ(Shown(), kNotKnown + "-|" + kNothing + "|" + kNothing);
    EXPECT_TRUE(boxes.TakeBoxes().empty());
}

TEST_F(DiagnosticsPage, TellsWhatFailsAndShowsNothing) {
    const std::string internal = "An internal error occurred.";
    const std::string refused = "Unable to retrieve scanner properties";
    struct Row {
        std::string call;
        HRESULT result;
        std::wstring detail;
        std::string box;
    };
    std::vector<Row> rows = {
        {"GetDriverProperties", E_FAIL, L"The %s cable is loose.", refused + ". The %s cable is loose."},
        {"GetDriverProperties", E_FAIL, L"", refused + "."},
        {"GetDriverProperties", E_FAIL, ChainSaying(L"The ${part} is loose."),
         refused + ". The cable is loose."},
        {"GetDriverProperties", E_ABORT, L"It is loose.", refused + " due to an installation problem."},
        {"two drivers", S_OK, L"", internal},
        {"no document", S_OK, L"", internal},
        {"no drivers", S_OK, L"", internal},
    };
    for (const char* const call : {"GetCurrentProfile", "GetDriverSelection", "GetDeviceManager"}) {
        for (const HRESULT result : {E_FAIL, E_ABORT}) rows.push_back({call, result, L"not told", internal});
    }
    for (const auto& row : rows) {
        SCOPED_TRACE(row.call + ToUtf8(row.detail));
        Open();
        EXPECT_EQ(Shown(), kKnown);
        if (FAILED(row.result)) script.failures[row.call] = {row.result, 0};
        script.fails_once = true;
        script.detail = row.detail;
        if (row.call == "two drivers") script.drivers = {L"arm", L"driver"};
        if (row.call == "no drivers") script.drivers.clear();
        if (row.call == "no document") script.properties = L"<Properties/>";
        boxes.while_box = [&] { EXPECT_EQ(Shown(), kKnown); };
        Arrive(1);
        const auto shown = boxes.TakeBoxes();
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(ToUtf8(shown[0].text), row.box);
        EXPECT_EQ(shown[0].icon, ui::BoxIcon::error);
        EXPECT_EQ(Shown().find("HX-L"), std::string::npos);
        script.drivers = {L"arm", L"", L"driver"};
    }
    // An API that nothing more can be asked of.
    boxes.while_box = nullptr;
    Open(HXNotConnected);
    page->SetApi(Make<OldApi>().as<IHXApi>());
    EXPECT_EQ(boxes.TakeBoxes().size(), 1u);
    EXPECT_TRUE(Shown().starts_with(kNotKnown));
    // One that does not tell its state may do so later.
    script.failures["GetConnectionState"] = {E_FAIL, 0};
    Open();
    EXPECT_TRUE(Shown().starts_with(kNotKnown));
    Arrive(1);
    EXPECT_EQ(Shown(), kKnown);
    EXPECT_TRUE(boxes.TakeBoxes().empty());
}

TEST_F(DiagnosticsPage, FollowsStatesByItsRule) {
    const struct {
        int32_t before, after;
        bool selected;
        bool fills, resets;
        bool left = false;  // again
    } rows[] = {
        {0, 1, false, true, false}, {0, 0, true, false, false},  {1, 1, false, false, false},
        {1, 1, true, true, false},  {1, 0, false, false, true},  {1, 2, true, false, true},
        {2, 2, true, false, false}, {2, 1, false, true, false},  {1, 7, true, false, true},
        {7, 7, true, false, false}, {2, 0, false, false, false}, {1, 1, true, false, false, true},
    };
    for (const auto& row : rows) {
        Open(row.before, row.selected);
        if (row.left) page->OnDeselected();
        const std::string before = Shown();
        script.calls.clear();
        Arrive(row.after);
        EXPECT_EQ(script.Calls().empty(), !row.fills) << row.before << " to " << row.after;
        EXPECT_EQ(Shown() == before, !row.resets && (row.before == 1 || !row.fills));
    }
}

// While a box is open, while the driver is asked, and before there is a window.
TEST_F(DiagnosticsPage, FollowsWhatComesMeanwhileAfterwards) {
    using Act = std::function<void()>;
    const Act other = [&] { page->SetApi(Make<scripted::Api>(script).as<IHXApi>()); };
    const struct {
        const char* what;
        Act comes;
        const char* shown;  // null: the page has gone
    } rows[] = {
        {"disconnected", [&] { Arrive(0); }, ""},
        {"and connected again", [&] { Arrive(0), Arrive(1); }, "HX-L"},
        {"another API", other, "HX-L"},
        {"no API", [&] { page->SetApi(nullptr); }, ""},
        {"another page", [&] { page->OnDeselected(), Arrive(2), Arrive(1); }, "HX-L"},
        {"closed", [&] { page->Destroy(), Arrive(1), other(); }, nullptr},
        {"destroyed", [&] { page.reset(); }, nullptr},
    };
    for (const auto& row : rows) {
        for (const bool box : {true, false}) {
            SCOPED_TRACE(std::string(row.what) + (box ? ", box" : ", call"));
            Open(HXNotConnected, false);
            script.state = HXConnected;
            script.fails_once = true;
            if (box) script.failures["GetDriverProperties"] = {E_FAIL, 0};
            bool came = false;
            boxes.while_box = row.comes;
            script.during = [&](const std::string& call) {
                if (!box && call.starts_with("GetDriverProperties") && !std::exchange(came, true))
                    row.comes();
            };
            Arrive(1);
            script.during = nullptr;
            EXPECT_EQ(boxes.TakeBoxes().size(), box ? 1u : 0u);
            EXPECT_EQ(page != nullptr && page->IsCreated(), row.shown != nullptr);
            if (!row.shown) continue;
            EXPECT_EQ(Shown().starts_with("HX-L"), row.shown == std::string("HX-L"));
        }
    }
    page = std::make_shared<CDiagnosticsDlg>();
    page->SetApi(api = Make<scripted::Api>(script).as<IHXApi>());
    Arrive(0), Arrive(1);
    script.calls.clear();
    Create();
    EXPECT_EQ(Shown(), kKnown);
    EXPECT_EQ(script.calls.size(), 8u) << "filled, reset and filled";
}

TEST_F(DiagnosticsPage, FollowsTheWidthAndKeepsLongTextsReadable) {
    scanner.DisplayName = std::wstring(80, L'm');
    Open();
    const ui::Size size = page->TemplateSize();
    for (const int32_t wider : {0, 1000}) {
        page->Move({0, 0, size.width + wider, size.height});
        for (const uint32_t id : {231, 234, 235, 236, 238, 242, 244}) {
            EXPECT_GT(page->Find(id)->Bounds().right, size.width + wider - 20) << id;
        }
        EXPECT_GT(page->Find(250)->Bounds().right, size.width + wider - 10);
        EXPECT_EQ(page->Find(251)->Bounds().right, page->Find(250)->Bounds().right);
        EXPECT_EQ(page->Find(235)->ToolTip(), wider ? L"" : scanner.DisplayName);
        EXPECT_EQ(page->Find(236)->ToolTip(), L"");
    }
}

TEST_F(DiagnosticsPage, ItsControlPassesFailuresOnAndRefusesHalfAnApi) {
    const auto control = Make<ConfigCtrl<FailingPage, kFailingClass>>();
    EXPECT_EQ(control->OnSelected(), E_ABORT);
    EXPECT_EQ(control->OnDeselected(), E_ACCESSDENIED);
    const auto whole = Make<scripted::Api>(script).as<IHXApi>();
    EXPECT_EQ(control->SetHXApi(whole.get()), S_OK);
    EXPECT_EQ(control->SetHXApi(Make<OldApi>().get()), E_INVALIDARG);
    EXPECT_EQ(std::exchange(FailingPage::given, nullptr), whole) << "the one before stays";
}

}  // namespace
}  // namespace hx
