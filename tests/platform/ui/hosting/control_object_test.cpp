// A control in a container that does what a test wants: fails, calls back, lets go of it on another thread.
#include "platform/ui/control_object.h"

#include <algorithm>
#include <thread>

#include "platform/module/resources.h"
#include "platform/ui/dialog.h"
#include "platform/ui/hwnd.h"
#include "tests/platform/ui/hosting/gauge_fixture.h"

namespace {

// A container's site; its steps go into a script of its own.
class Site final : public hx::Implements<Site, hx::FreeThreaded, IOleClientSite, IOleInPlaceSite> {
public:
    Site(Script& script, HWND window) : m_script(script), m_window(window) {}
    ~Site() override { m_script.steps.push_back("site gone"); }

    HRESULT SaveObject() override { return E_NOTIMPL; }
    HRESULT GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT GetContainer(IOleContainer**) override { return E_NOTIMPL; }
    HRESULT ShowObject() override { return Step("ShowObject"); }
    HRESULT OnShowWindow(BOOL) override { return S_OK; }
    HRESULT RequestNewObjectLayout() override { return E_NOTIMPL; }

    HRESULT GetWindow(HWND* window) override {
        *window = m_window;
        return Step("GetWindow");
    }
    HRESULT ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT CanInPlaceActivate() override { return Step("CanInPlaceActivate"); }
    HRESULT OnInPlaceActivate() override { return Step("OnInPlaceActivate"); }
    HRESULT OnUIActivate() override { return Step("OnUIActivate"); }
    HRESULT GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                             RECT* clip, OLEINPLACEFRAMEINFO*) override {
        *frame = nullptr;
        *document = nullptr;
        *position = *clip = {10, 20, 110, 70};
        return Step("GetWindowContext");
    }
    HRESULT Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT OnUIDeactivate(BOOL) override { return Step("OnUIDeactivate"); }
    HRESULT OnInPlaceDeactivate() override { return Step("OnInPlaceDeactivate"); }
    HRESULT DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT OnPosRectChange(const RECT*) override { return E_NOTIMPL; }

private:
    HRESULT Step(const char* name) {
        return m_script.Step(name, [] { return S_OK; });
    }

    Script& m_script;
    const HWND m_window;
};

class ControlObject : public WithGauges {
protected:
    void SetUp() override {
        WithGauges::SetUp();
        m_frame.emplace();
        Begin();
    }
    void TearDown() override {
        m_gauge.reset();
        m_frame.reset();
        WithGauges::TearDown();
    }
    // A new gauge in a new site.
    void Begin() {
        m_gauge.reset();
        m_container = {};
        ASSERT_EQ(
            CoCreateInstance(CLSID_Gauge, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject, m_gauge.put_void()),
            S_OK);
        m_gauge->SetClientSite(hx::Make<Site>(m_container, hx::ui::ToHwnd(m_frame->Handle())).get());
        script() = {};
    }
    HRESULT Do(LONG verb) { return m_gauge->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr); }
    size_t Count(const char* step) const {
        return static_cast<size_t>(std::count(m_container.steps.begin(), m_container.steps.end(), step));
    }

    Script m_container;
    std::optional<Frame> m_frame;
    hx::ComPtr<IOleObject> m_gauge;
};

TEST_F(ControlObject, TheContainerIsToldWhatHappensAndSaysWhere) {
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(m_container.TakeSteps(), (Steps{"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                              "GetWindowContext", "ShowObject"}));
    EXPECT_EQ(Gauges::TheWindow()->Bounds(), (hx::ui::Rectangle{10, 20, 110, 70}));
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK) << "it is";
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK) << "it is";
    EXPECT_EQ(m_container.TakeSteps(), Steps{"OnUIActivate"});
    EXPECT_EQ(m_gauge->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(m_container.TakeSteps(), (Steps{"OnUIDeactivate", "OnInPlaceDeactivate"}));
    EXPECT_EQ(m_gauge->Close(OLECLOSE_NOSAVE), S_OK) << "twice is no harm";
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK) << "it can come back";
    EXPECT_EQ(m_gauge->SetClientSite(nullptr), S_OK) << "without Close";
    EXPECT_EQ(m_container.steps.back(), "site gone");
    EXPECT_EQ(Gauges::LivingWindows(), 0);
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_UNEXPECTED);
}

TEST_F(ControlObject, VerbsThatAreNotOfShowingAreRefused) {
    const std::pair<LONG, HRESULT> rows[] = {
        {OLEIVERB_HIDE, S_OK}, {-2, E_NOTIMPL}, {-6, E_NOTIMPL}, {-100, E_NOTIMPL}, {1, OLEOBJ_S_INVALIDVERB},
    };
    for (const auto& [verb, result] : rows) EXPECT_EQ(Do(verb), result) << verb;
    EXPECT_EQ(m_container.steps, Steps{});
}

// A page in the gauge's window, with two edits.
class TwoEdits final : public hx::ui::Dialog {
public:
    ~TwoEdits() override { Destroy(); }
    static hx::ModuleHandle Module() {
        hx::ResourceError error;
        auto resources = hx::ReadResourceScript(
            L"7 DIALOGEX 0, 0, 90, 40 STYLE WS_CHILD | WS_VISIBLE {\n"
            L"EDITTEXT 1, 0, 0, 40, 12, WS_TABSTOP\nEDITTEXT 2, 0, 20, 40, 12, WS_TABSTOP }",
            error);
        return hx::MakeResourceModule(L"/nowhere/edits.so", resources.value_or(hx::Resources{}));
    }
};

TEST_F(ControlObject, TheContainerIsToldWhenTheFocusComesAndGoes) {
    TwoEdits inside;
    TwoEdits outside;
    script().doings["OnWindowCreated"] = [&] {
        ASSERT_FALSE(inside.Create(TwoEdits::Module(), 7, Gauges::TheWindow()));
    };
    m_frame->Show(true);
    ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    ASSERT_FALSE(outside.Create(TwoEdits::Module(), 7, &*m_frame));
    m_container.TakeSteps();
    inside.Find(2)->SetFocus();
    inside.Find(1)->SetFocus();
    EXPECT_EQ(m_container.TakeSteps(), Steps{"OnUIActivate"});
    outside.Find(1)->SetFocus();
    EXPECT_EQ(m_container.TakeSteps(), Steps{"OnUIDeactivate"});
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(inside.Find(1)->HasFocus());
    EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
    EXPECT_EQ(inside.Focused(), nullptr);
    EXPECT_EQ(m_container.TakeSteps(), (Steps{"OnUIActivate", "OnUIDeactivate"}));
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    m_container.doings["OnUIActivate"] = [&] { m_gauge->Close(OLECLOSE_NOSAVE); };
    inside.Find(2)->SetFocus();
    EXPECT_EQ(Gauges::LivingWindows(), 0) << "closed by whoever was told";
    inside.Destroy();
}

TEST_F(ControlObject, AContainerThatFailsHasNothingToTakeBack) {
    struct Row {
        const char* step;
        HRESULT answer;
        HRESULT result;
    };
    const Row rows[] = {
        {"CanInPlaceActivate", S_FALSE, E_FAIL},          {"CanInPlaceActivate", E_HANDLE, E_HANDLE},
        {"OnInPlaceActivate", E_HANDLE, E_HANDLE},        {"GetWindow", E_HANDLE, E_HANDLE},
        {"GetWindowContext", E_NOTIMPL, E_NOTIMPL},       {"ShowObject", E_FAIL, S_OK},
        {"OnUIActivate", E_ACCESSDENIED, E_ACCESSDENIED},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        Begin();
        m_container.results[row.step] = row.answer;
        EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), row.result);
        m_gauge->Close(OLECLOSE_NOSAVE);
        EXPECT_EQ(Gauges::LivingWindows(), 0);
        const bool told = Count("OnInPlaceActivate") == 1 && row.step != std::string("OnInPlaceActivate");
        EXPECT_EQ(Count("OnInPlaceDeactivate"), told ? 1u : 0u);
        EXPECT_EQ(Count("OnUIDeactivate"), row.result == S_OK ? 1u : 0u);
    }
}

TEST_F(ControlObject, AContainerMayChangeItsMindInAnyCall) {
    struct Row {
        const char* mind;
        bool ends;  // its being active
        std::function<void()> change;
    };
    const Row minds[] = {
        {"closes", true, [this] { m_gauge->Close(OLECLOSE_NOSAVE); }},
        {"takes its site back", true, [this] { m_gauge->SetClientSite(nullptr); }},
        {"destroys the window", false, [this] { m_frame->Destroy(); }},
        {"asks again", false, [this] { EXPECT_NE(Do(OLEIVERB_INPLACEACTIVATE), E_FAIL); }},
    };
    for (const auto& [mind, ends, change] : minds) {
        for (const char* step : {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                                 "ShowObject", "OnUIActivate", "OnUIDeactivate", "OnInPlaceDeactivate"}) {
            SCOPED_TRACE(std::string(mind) + " in " + step);
            m_frame.emplace();
            Begin();
            m_container.doings[step] = change;
            Do(OLEIVERB_UIACTIVATE);
            const bool changed = !m_container.doings[step];
            if (changed && ends) {
                EXPECT_EQ(Gauges::LivingWindows(), 0);
            }
            m_gauge->Close(OLECLOSE_NOSAVE);
            m_gauge->Close(OLECLOSE_NOSAVE);
            EXPECT_EQ(Count("OnInPlaceActivate"), Count("OnInPlaceDeactivate"));
            EXPECT_EQ(Gauges::LivingWindows(), 0);
            m_gauge.reset();
            EXPECT_EQ(m_container.steps.back(), "site gone");
        }
    }
}

TEST_F(ControlObject, TheLastReferenceMayBeDroppedOnAnyThread) {
    struct Row {
        const char* what;
        bool active;
        bool elsewhere;
    };
    for (const Row& row : {Row{"with a window", true, true}, Row{"without", false, true},
                           Row{"on its own thread", true, false}}) {
        SCOPED_TRACE(row.what);
        Begin();
        const HRESULT activated = row.active ? Do(OLEIVERB_INPLACEACTIVATE) : S_OK;
        ASSERT_EQ(activated, S_OK);
        if (row.elsewhere) {
            std::thread([&] { m_gauge.reset(); }).join();
            EXPECT_EQ(Gauges::LivingWindows(), row.active ? 1 : 0);
            EXPECT_FALSE(Gauges::NoneLeft()) << "the library is needed to destroy it";
            EXPECT_EQ(Count("site gone"), 0u);
            hx::DispatchMessages();
        } else {
            m_gauge.reset();
        }
        EXPECT_EQ(Gauges::LivingWindows(), 0);
        EXPECT_EQ(Count("OnInPlaceDeactivate"), row.active ? 1u : 0u);
        EXPECT_EQ(m_container.steps.back(), "site gone");
        EXPECT_TRUE(Gauges::NoneLeft());
    }
}

TEST_F(ControlObject, WhatIsNotThereIsNulled) {
    void* rubbish = this;
    EXPECT_EQ(m_gauge->GetMoniker(0, 0, reinterpret_cast<IMoniker**>(&rubbish)), E_NOTIMPL);
    EXPECT_EQ(std::exchange(rubbish, this), nullptr);
    EXPECT_EQ(m_gauge->EnumVerbs(reinterpret_cast<IEnumOLEVERB**>(&rubbish)), E_NOTIMPL);
    EXPECT_EQ(rubbish, nullptr);
    HWND window = hx::ui::ToHwnd(1);
    EXPECT_EQ(m_gauge.as<IOleWindow>()->GetWindow(&window), OLE_E_NOT_INPLACEACTIVE);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(m_gauge.as<IOleInPlaceObject>()->SetObjectRects(nullptr, nullptr), E_POINTER);

    SIZEL size{1, 1};
    EXPECT_EQ(m_gauge->GetExtent(2, &size), DV_E_DVASPECT);
    EXPECT_EQ(size.cx, 0);
    EXPECT_EQ(m_gauge->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(size.cx, 2540) << "an inch";
    EXPECT_EQ(size.cy, 1270);
    LPOLESTR name = nullptr;
    ASSERT_EQ(m_gauge->GetUserType(1, &name), S_OK);
    EXPECT_EQ(std::wstring(name), L"Gauge");
    CoTaskMemFree(name);
}

}  // namespace
