// The measurement page's control as its hosts have it: created by name, embedded in a window without a
// screen, called in any order.
#include "core/errors/MException.h"
#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "platform/com/property_page.h"
#include "platform/com/typeinfo.h"
#include "platform/ui/component_site.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/hwnd.h"
#include "platform/ui/script.h"
#include "tests/simulator/api/simulator_fixture.h"

namespace {

using hx::ComPtr;
namespace ui = hx::ui;

class Map final : public hx::Implements<Map, hx::SingleThreaded, IHXSettingsObjectMap> {
    HRESULT STDMETHODCALLTYPE GetSettingsObject(ProfileSettingsType type, IUnknown** settings) override {
        *settings = nullptr;
        return type == ScannerMeasurementSettings ? HX_E_NOTFOUND : E_UNEXPECTED;
    }
};

class Site final : public hx::Implements<Site, hx::SingleThreaded, IPropertyPageSite> {
    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return S_FALSE; }
};

// What the control needs of a container, as it is in use or being designed.
class Container final : public hx::Implements<Container, hx::SingleThreaded, IOleClientSite, IOleInPlaceSite,
                                              IOleControlSite, IDispatch> {
public:
    explicit Container(ui::Window& window) : m_window(window) {}
    bool is_designed = false;
    HRESULT frame_answer = E_NOTIMPL;  // of its own frame for property pages
    int frames = 0;                    // it was asked for

    HRESULT SaveObject() override { return E_NOTIMPL; }
    HRESULT GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT GetContainer(IOleContainer**) override { return E_NOTIMPL; }
    HRESULT ShowObject() override { return S_OK; }
    HRESULT OnShowWindow(BOOL) override { return S_OK; }
    HRESULT RequestNewObjectLayout() override { return E_NOTIMPL; }
    HRESULT GetWindow(HWND* window) override {
        *window = ui::ToHwnd(m_window.Handle());
        return S_OK;
    }
    HRESULT ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT CanInPlaceActivate() override { return S_OK; }
    HRESULT OnInPlaceActivate() override { return S_OK; }
    HRESULT OnUIActivate() override { return S_OK; }
    HRESULT GetWindowContext(IOleInPlaceFrame**, IOleInPlaceUIWindow**, RECT* position, RECT* clip,
                             OLEINPLACEFRAMEINFO*) override {
        *position = *clip = {10, 20, 710, 420};
        return S_OK;
    }
    HRESULT Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT OnInPlaceDeactivate() override { return S_OK; }
    HRESULT DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT OnPosRectChange(const RECT*) override { return E_NOTIMPL; }
    HRESULT OnControlInfoChanged() override { return S_OK; }
    HRESULT LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
    HRESULT GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    HRESULT TransformCoords(POINT*, POINTF*, DWORD) override { return E_NOTIMPL; }
    HRESULT TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    HRESULT OnFocus(BOOL) override { return S_OK; }
    HRESULT ShowPropertyFrame() override {
        ++frames;
        return frame_answer;
    }
    HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                   UINT*) override {
        if (member != DISPID_AMBIENT_USERMODE) return DISP_E_MEMBERNOTFOUND;
        *result = hx::Variant(!is_designed).detach();
        return S_OK;
    }

private:
    ui::Window& m_window;
};

class ControlTest : public SimulatorTest {
protected:
    struct Frame final : ui::Window {};

    void SetUp() override {
        ui::SetRenderer(m_renderer);
        SimulatorTest::SetUp();
        m_frame.Create(ui::WindowKind::frame, nullptr, {0, 0, 800, 600});
        m_frame.Show(true);
        Make();
    }
    void TearDown() override {
        m_control.reset();
        EXPECT_TRUE(m_frame.Children().empty());
        m_frame.Destroy();
        hx::DispatchMessages();
        SimulatorTest::TearDown();
        EXPECT_FALSE(IsPageLoaded());
        ui::SetRenderer(nullptr);
    }
    static bool IsPageLoaded() {
        void* const library = dlopen(HX_BIN_DIR "/HXScannerCtrls.so", RTLD_NOW | RTLD_NOLOAD);
        if (library) dlclose(library);
        return library != nullptr;
    }
    void Make() {
        m_control = Create<DHXConfigCtrl>(kProgIdHXMeasSettingsCtrl);
        ASSERT_TRUE(m_control);
    }
    HRESULT Do(LONG verb) {
        const auto object = m_control.as<IOleObject>();
        object->SetClientSite(m_container.get());
        return object->DoVerb(verb, nullptr, m_container.get(), 0, nullptr, nullptr);
    }
    HRESULT Close() { return m_control.as<IOleObject>()->Close(OLECLOSE_NOSAVE); }
    ui::Dialog* PageDialog() const {
        if (m_frame.Children().size() != 1 || m_frame.Children().front()->Children().size() != 1)
            return nullptr;
        return m_frame.Children().front()->Children().front()->AsDialog();
    }
    HRESULT Invoke(DISPID member, WORD flags, std::vector<VARIANT> arguments, VARIANT* result = nullptr,
                   EXCEPINFO* exception = nullptr) {
        DISPID value = DISPID_PROPERTYPUT;
        const bool puts = flags == DISPATCH_PROPERTYPUT;
        DISPPARAMS given{arguments.data(), puts ? &value : nullptr, static_cast<UINT>(arguments.size()),
                         puts};
        const HRESULT called =
            m_control->Invoke(member, IID_NULL, 0, flags, &given, result, exception, nullptr);
        CheckByDescription(member, flags, given, called);
        return called;
    }
    // The description of the interface calls as the interface does.
    void CheckByDescription(DISPID member, WORD flags, DISPPARAMS& given, HRESULT called) {
        ComPtr<ITypeInfo> info;
        ASSERT_EQ(m_control->GetTypeInfo(0, 0, info.put()), S_OK);
        hx::Variant result;
        EXPECT_EQ(info->Invoke(m_control.get(), member, flags, &given, result.put(), nullptr, nullptr),
                  called);
    }
    void Fail(const std::string& operation) {
        HXSimulatorFault fault{};
        fault.operation = Text(operation);
        fault.result = E_FAIL;
        fault.times = 1;
        EXPECT_EQ(m_hands->InjectFault(&fault), S_OK);
    }

    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();
    ui::Script m_script;
    Frame m_frame;
    ComPtr<Container> m_container = hx::Make<Container>(m_frame);
    ComPtr<DHXConfigCtrl> m_control;
};

// Each before there is a window, with one, after it was closed, and with another one.
TEST_F(ControlTest, CallsComeInAnyOrder) {
    const auto map = hx::Make<Map>();
    BOOL answer = 0;
    const struct {
        const char* what;
        std::function<HRESULT(DHXConfigCtrl&)> call;
        HRESULT result;
    } kCalls[] = {
        {"no map", [](auto& page) { return page.SetSettingsObjectMap(nullptr); }, E_INVALIDARG},
        {"not a map", [&](auto& page) { return page.SetSettingsObjectMap(m_api.get()); }, E_INVALIDARG},
        {"a map", [&](auto& page) { return page.SetSettingsObjectMap(map.get()); }, S_OK},
        {"no API", [](auto& page) { return page.SetHXApi(nullptr); }, E_INVALIDARG},
        {"not an API", [&](auto& page) { return page.SetHXApi(map.get()); }, E_INVALIDARG},
        {"left", [](auto& page) { return page.OnDeselected(); }, S_OK},
        {"an API", [&](auto& page) { return page.SetHXApi(m_api.get()); }, S_OK},
        {"shown", [](auto& page) { return page.OnSelected(); }, S_OK},
        {"no answer", [](auto& page) { return page.Save(nullptr); }, E_INVALIDARG},
        {"closing", [&](auto& page) { return page.Save(&answer); }, S_OK},
    };
    const std::function<HRESULT()> kStates[] = {
        [] { return S_OK; }, [&] { return Do(OLEIVERB_INPLACEACTIVATE); }, [&] { return Close(); },
        [&] { return Do(OLEIVERB_SHOW); },
        [&] { return m_control.as<IOleInPlaceObject>()->InPlaceDeactivate(); }};
    for (const auto& enter : kStates) {
        ASSERT_EQ(enter(), S_OK);
        for (size_t i = 0; i < 2 * std::size(kCalls); ++i) {
            const auto& row = kCalls[i % std::size(kCalls)];
            answer = 0x12340000;
            EXPECT_EQ(row.call(*m_control), row.result) << row.what;
            EXPECT_EQ(answer, std::string(row.what) == "closing" ? 0x1234FFFF : 0x12340000) << row.what;
        }
    }
    EXPECT_TRUE(m_script.TakeBoxes().empty());
}

TEST_F(ControlTest, ArgumentsAreChecked) {
    const auto variants = [](ULONG count) {
        return hx::SafeArray(SafeArrayCreateVector(VT_VARIANT, 5, count));
    };
    hx::SafeArray none, empty = variants(0), number = variants(1), text = variants(2), sizeless = variants(1);
    hx::SafeArray strings(SafeArrayCreateVector(VT_BSTR, 0, 1));
    SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}};
    hx::SafeArray square(SafeArrayCreate(VT_VARIANT, 2, bounds));
    LONG first = 5;
    VARIANT value = hx::Variant(std::wstring_view(L"Own")).detach();
    SafeArrayPutElement(text.get(), &first, &value);
    VariantClear(&value);
    const ULONG size = std::exchange(sizeless.get()->cbElements, 0);
    const struct {
        const char* what;
        SAFEARRAY* array;
        std::wstring error;
    } kRows[] = {
        {"none", none.get(), L"InvalidArguments"},
        {"elements of no size", sizeless.get(), L"MissingArguments"},
        {"empty", empty.get(), L"InvalidArgumentType"},
        {"a number", number.get(), L"InvalidArgumentType"},
        {"strings", strings.get(), L"InvalidArgumentType"},
        {"two dimensions", square.get(), L"InvalidArgumentType"},
        {"a text", text.get(), L""},
    };
    hx::Bstr name(L"Name");
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        const std::wstring code = row.error.empty() ? L"" : L"CMeasSettingsDlg.Initialise:" + row.error;
        SAFEARRAY* array = row.array;
        std::wstring thrown;
        try {
            EXPECT_EQ(m_control->Initialise(name.get(), nullptr, name.get(), &array), S_OK);
        } catch (const hx::MException& exception) {
            thrown = exception.GetChain().back()->GetCode();
        }
        EXPECT_EQ(thrown, code);
        VARIANT names[4] = {};
        names[0].vt =
            static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | (row.array == strings.get() ? VT_BSTR : VT_VARIANT));
        names[0].byref = &array;
        for (int i = 1; i < 4; ++i) {
            names[i].vt = VT_BSTR;
            names[i].bstrVal = name.get();
        }
        EXCEPINFO exception{};
        EXPECT_EQ(
            Invoke(DISPID_HXCONFIG_INITIALISE, DISPATCH_METHOD, {names, names + 4}, nullptr, &exception),
            code.empty() ? S_OK : DISP_E_EXCEPTION);
        hx::Bstr source, description;
        source.attach(exception.bstrSource);
        description.attach(exception.bstrDescription);
        EXPECT_EQ(source.view(), code.empty() ? L"" : L"CMeasSettingsDlg.Initialise");
        EXPECT_EQ(description.view(), code.empty() ? L"" : code + L" ()");
    }
    sizeless.get()->cbElements = size;
    VARIANT nowhere[4] = {};
    for (VARIANT& each : nowhere) each.vt = VT_BSTR;
    nowhere[0].vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    EXCEPINFO exception{};
    EXPECT_EQ(
        Invoke(DISPID_HXCONFIG_INITIALISE, DISPATCH_METHOD, {nowhere, nowhere + 4}, nullptr, &exception),
        DISP_E_EXCEPTION);
    hx::Bstr source, description;
    source.attach(exception.bstrSource);
    description.attach(exception.bstrDescription);
    EXPECT_EQ(description.view(), L"CMeasSettingsDlg.Initialise:InvalidArguments ()");
    EXPECT_THROW(m_control->Initialise(nullptr, nullptr, nullptr, nullptr), hx::MException);
}

TEST_F(ControlTest, TextsAndTheAnswerGoByNumber) {
    for (const DISPID id : {DISPID_CAPTION, DISPID_TEXT}) {
        hx::Variant text(id == DISPID_TEXT ? L"Text" : L"Caption");
        EXPECT_EQ(Invoke(id, DISPATCH_PROPERTYPUT, {text.get()}), S_OK);
    }
    for (const DISPID id : {DISPID_CAPTION, DISPID_TEXT}) {
        hx::Variant kept;
        EXPECT_EQ(Invoke(id, DISPATCH_PROPERTYGET, {}, kept.put()), S_OK);
        EXPECT_STREQ(kept->bstrVal, id == DISPID_TEXT ? L"Text" : L"Caption");
    }
    VARIANT_BOOL answers[] = {0, 0x77};
    VARIANT answer{};
    answer.vt = VT_BYREF | VT_BOOL;
    answer.byref = answers;
    EXPECT_EQ(Invoke(DISPID_HXCONFIG_SAVE, DISPATCH_METHOD, {answer}), S_OK);
    EXPECT_EQ(answers[0], VARIANT_TRUE);
    EXPECT_EQ(answers[1], 0x77);
    for (const int type : {VT_BOOL, VT_I4}) {
        EXCEPINFO exception{};
        answer.vt = static_cast<VARTYPE>(VT_BYREF | type);
        answer.byref = nullptr;
        EXPECT_EQ(Invoke(DISPID_HXCONFIG_SAVE, DISPATCH_METHOD, {answer}, nullptr, &exception),
                  DISP_E_EXCEPTION);
        EXPECT_EQ(exception.scode, E_INVALIDARG);
    }
    answer.vt = VT_BYREF | VT_I2;
    EXPECT_EQ(Invoke(DISPID_HXCONFIG_SAVE, DISPATCH_METHOD, {answer}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Invoke(7, DISPATCH_METHOD, {}), DISP_E_MEMBERNOTFOUND);
}

TEST_F(ControlTest, ThePageIsAsLargeAsItsControl) {
    ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    for (const ui::Rectangle place : {ui::Rectangle{10, 20, 710, 420}, {0, 0, 900, 900}, {5, 5, 5, 5}}) {
        const RECT rect = ui::ToRect(place);
        EXPECT_EQ(m_control.as<IOleInPlaceObject>()->SetObjectRects(&rect, &rect), S_OK);
        ASSERT_NE(PageDialog(), nullptr);
        EXPECT_EQ(PageDialog()->TemplateId(), 203u);
        EXPECT_TRUE(PageDialog()->IsShown());
        EXPECT_EQ(PageDialog()->Bounds(), (ui::Rectangle{0, 0, place.Width(), place.Height()}));
    }
}

// A box is open while the host calls again.
TEST_F(ControlTest, BoxesMayBeOvertaken) {
    const std::pair<const char*, std::function<void()>> kRows[] = {
        {"other calls",
         [&] {
             BOOL answer = -1;
             EXPECT_EQ(m_control->Save(&answer), S_OK);
             EXPECT_EQ(m_control->OnDeselected(), S_OK);
             EXPECT_EQ(m_control->SetHXApi(m_api.get()), S_OK);
         }},
        {"closed", [&] { EXPECT_EQ(Close(), S_OK); }},
        {"closed and shown again",
         [&] {
             EXPECT_EQ(Close(), S_OK);
             EXPECT_EQ(m_control->SetHXApi(m_api.get()), S_OK);
             EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
         }},
        {"the last reference", [&] { m_control.reset(); }},
        {"the window", [&] { m_frame.Children().front()->Destroy(); }},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.first);
        if (!m_control) Make();
        ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
        EXPECT_EQ(m_hands->SetConnectionState(HXConnected, FALSE), S_OK);
        EXPECT_EQ(m_control->OnSelected(), S_OK);
        Fail("CreateCalibrationHandle");
        bool came = false;
        m_script.while_box = [&] {
            if (!std::exchange(came, true)) row.second();
        };
        DHXConfigCtrl* const caller = m_control.get();  // who may lose the last reference meanwhile
        EXPECT_EQ(caller->SetHXApi(m_api.get()), S_OK);
        EXPECT_FALSE(m_script.TakeBoxes().empty());
        if (m_control) Close();
        m_control.reset();
        m_hands->ClearFaults();
    }
}

TEST_F(ControlTest, DesignersSeeAPicture) {
    m_container->is_designed = true;
    ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    ui::Window& window = *m_frame.Children().front();
    EXPECT_TRUE(window.Children().empty());
    const auto steps = m_renderer->Paint(window);
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].kind, ui::PaintStep::Kind::fill);
    EXPECT_EQ(steps[0].colour, (ui::Colour{255, 255, 255}));
    EXPECT_EQ(steps[1].kind, ui::PaintStep::Kind::ellipse);
    for (const auto& step : steps) EXPECT_EQ(step.rectangle, (ui::Rectangle{0, 0, 700, 400}));

    const struct {
        bool is_designed;
        DISPID told;
        bool has_page;
    } kChanges[] = {{false, DISPID_AMBIENT_LOCALEID, false},
                    {false, DISPID_AMBIENT_USERMODE, true},
                    {false, DISPID_UNKNOWN, true},
                    {true, DISPID_UNKNOWN, false},
                    {false, DISPID_UNKNOWN, true}};
    for (const auto& change : kChanges) {
        m_container->is_designed = change.is_designed;
        EXPECT_EQ(m_control.as<IOleControl>()->OnAmbientPropertyChange(change.told), S_OK);
        EXPECT_EQ(m_frame.Children().front(), &window);
        EXPECT_EQ(PageDialog() != nullptr, change.has_page);
        EXPECT_EQ(m_renderer->Paint(window).empty(), change.has_page);
    }
    EXPECT_EQ(PageDialog()->Bounds(), (ui::Rectangle{0, 0, 700, 400}));
}

TEST_F(ControlTest, PropertiesAreATextOnAPage) {
    EXPECT_EQ(Do(OLEIVERB_PROPERTIES), S_OK);
    EXPECT_EQ(Do(1), S_OK);
    EXPECT_EQ(m_container->frames, 2);
    m_container->frame_answer = S_OK;
    EXPECT_EQ(Do(1), S_OK);
    EXPECT_EQ(m_container->frames, 3);
    const auto modals = m_script.TakeModals();
    ASSERT_EQ(modals.size(), 2u);
    EXPECT_EQ(modals[0].title, L"General");

    const auto page = Create<IPropertyPage>(kProgIdHXMeasSettingsPropPage);
    PROPPAGEINFO info{sizeof(PROPPAGEINFO), nullptr, {}, nullptr, nullptr, 0};
    EXPECT_EQ(page->GetPageInfo(&info), S_OK);
    EXPECT_STREQ(info.pszTitle, L"General");
    CoTaskMemFree(info.pszTitle);
    EXPECT_EQ(info.size.cx, 300);
    const RECT place{0, 0, info.size.cx, info.size.cy};
    EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(page->Activate(nullptr, &place, FALSE), E_INVALIDARG);
    for (const HRESULT result : {S_OK, E_UNEXPECTED}) {
        EXPECT_EQ(page->Activate(ui::ToHwnd(m_frame.Handle()), &place, FALSE), result);
        EXPECT_EQ(page->SetPageSite(hx::Make<Site>().get()), result);
    }
    EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
    EXPECT_EQ(page->SetPageSite(hx::Make<Site>().get()), S_OK) << "after the one before was taken away";
    EXPECT_EQ(page->Show(SW_SHOW), S_OK);
    ASSERT_EQ(m_frame.Children().size(), 1u);
    EXPECT_TRUE(m_frame.Children().front()->IsVisible());
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->Deactivate(), E_UNEXPECTED);
}

TEST_F(ControlTest, TheLanguageIsThatOfTheHost) {
    const std::pair<const char*, std::wstring> kRows[] = {
        {"de-DE", L"_de-DE.dll"}, {"xx", L"_en-US.dll"}, {"fails", L"/HXScannerCtrls.so"}};
    for (const auto& [locale, ending] : kRows) {
        m_control.reset();
        m_hands->SetLocale(Text(locale));
        if (std::string(locale) == "fails") Fail("GetHXApi");
        Make();
        ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
        ASSERT_NE(PageDialog(), nullptr);
        EXPECT_TRUE(PageDialog()->Module()->FileName().ends_with(ending)) << locale;
    }
}

}  // namespace
