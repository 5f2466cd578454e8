// Dialogs with components in them: what a component is asked, in which order, and what becomes of it and the
// dialog when it does not do what it should.
#include "platform/ui/component_control.h"

#include "platform/module/resources.h"
#include "platform/ui/component_site.h"
#include "platform/ui/dialog.h"
#include "tests/platform/ui/hosting/gauge_fixture.h"

namespace {

using hx::ui::DialogError;

class TestDialog : public hx::ui::Dialog {
public:
    ~TestDialog() override { Destroy(); }
    hx::ui::ComponentControl* Gauge() { return FindAs<hx::ui::ComponentControl>(106); }
};

hx::ModuleHandle ModuleWith(const std::wstring& component_class, const std::wstring& more = L"",
                            const std::wstring& file_name = L"/nowhere/pages.so") {
    hx::ResourceError error;
    auto resources = hx::ReadResourceScript(
        L"7 DIALOGEX 0, 0, 200, 100 STYLE WS_CHILD | WS_VISIBLE {\n"
        L"LTEXT \"Pre&ssure\", -1, 4, 4, 40, 8\n"
        L"CONTROL \"\", 106, \"" +
            component_class + L"\", WS_CHILD | " + more + L" WS_TABSTOP, 40, 8, 100, 64 }",
        error);
    EXPECT_TRUE(resources) << error.line;
    return hx::MakeResourceModule(file_name, resources.value_or(hx::Resources{}));
}

class ComponentControl : public WithGauges {
protected:
    void SetUp() override {
        WithGauges::SetUp();
        m_frame.emplace();
        m_frame->Show(true);
    }
    void TearDown() override {
        m_dialog.Destroy();
        m_frame.reset();
        WithGauges::TearDown();
    }
    std::optional<DialogError> Create(const std::wstring& component_class = L"Hx.Gauge.1",
                                      const std::wstring& more = L"WS_VISIBLE |",
                                      const std::wstring& file_name = L"/nowhere/pages.so") {
        return m_dialog.Create(ModuleWith(component_class, more, file_name), 7, &*m_frame);
    }

    std::optional<Frame> m_frame;
    TestDialog m_dialog;
};

const std::vector<std::string> kActivation = {"SetClientSite", "DoVerb -5", "MakeWindow", "OnWindowCreated"};
const std::vector<std::string> kEnd = {"InPlaceDeactivate", "window destroyed", "Close 1",
                                       "SetClientSite null"};

TEST_F(ComponentControl, AComponentLivesWithItsDialogAndFollowsItsControl) {
    ASSERT_FALSE(Create());
    EXPECT_EQ(script().TakeSteps(), kActivation);
    hx::ui::ComponentControl& control = *m_dialog.Gauge();
    const hx::ui::Window* const window = Gauges::TheWindow();
    ASSERT_TRUE(window);
    EXPECT_TRUE(control.Component());
    EXPECT_EQ(window->Parent(), &m_dialog);
    EXPECT_EQ(window->Bounds(), control.Bounds());
    EXPECT_TRUE(window->IsShown());
    EXPECT_EQ(window->AccessibleName(), L"Pressure");

    control.Move({1, 2, 30, 40});
    EXPECT_EQ(window->Bounds(), (hx::ui::Rectangle{1, 2, 30, 40}));
    control.Show(false);
    EXPECT_FALSE(window->IsShown());
    control.Move({5, 6, 70, 80});
    EXPECT_FALSE(window->IsShown()) << "moving does not show it";
    control.Show(true);
    EXPECT_TRUE(window->IsShown());
    EXPECT_EQ(window->Bounds(), (hx::ui::Rectangle{5, 6, 70, 80}));
    m_dialog.Show(false);
    EXPECT_FALSE(window->IsShown());
    control.SetAccessibleName(L"Depth");
    EXPECT_EQ(window->AccessibleName(), L"Depth");
    EXPECT_EQ(script().TakeSteps(), (Steps{"SetObjectRects", "DoVerb -3", "SetObjectRects", "DoVerb -1"}));

    m_dialog.Destroy();
    EXPECT_EQ(script().TakeSteps(), kEnd);
    EXPECT_FALSE(control.Component());
    ASSERT_FALSE(Create(hx::GuidToText(CLSID_Gauge))) << "and again, by its other name";
}

TEST_F(ComponentControl, AHiddenControlShowsNothing) {
    ASSERT_FALSE(Create(L"Hx.Gauge", L"NOT WS_VISIBLE |"));
    ASSERT_TRUE(Gauges::TheWindow());
    EXPECT_FALSE(Gauges::TheWindow()->IsVisible());
}

TEST_F(ComponentControl, AComponentThatCannotHideIsHidden) {
    script().results = {{"DoVerb -3", E_NOTIMPL}, {"DoVerb -1", E_FAIL}};
    ASSERT_FALSE(Create());
    m_dialog.Gauge()->Show(false);
    EXPECT_FALSE(Gauges::TheWindow()->IsVisible());
    m_dialog.Gauge()->Show(true);
    EXPECT_TRUE(Gauges::TheWindow()->IsVisible());
}

TEST_F(ComponentControl, WhatCannotBeActivatedCostsTheDialogAndLeavesNothing) {
    const struct {
        const wchar_t* component_class;
        const char* step;
        HRESULT answer;
        HRESULT result;
    } rows[] = {
        {L"Hx.Unknown.1", "", S_OK, CO_E_CLASSSTRING},
        {L"{C0000000-0000-0000-0000-0000000000BF}", "", S_OK, REGDB_E_CLASSNOTREG},
        {L"Hx.Mute", "", S_OK, E_NOINTERFACE},
        {L"Hx.Gauge", "SetClientSite", E_ACCESSDENIED, E_ACCESSDENIED},
        {L"Hx.Gauge", "DoVerb -5", E_OUTOFMEMORY, E_OUTOFMEMORY},
        {L"Hx.Gauge", "DoVerb -5", S_OK, E_FAIL},
        {L"Hx.Gauge", "no in-place object", S_OK, E_NOINTERFACE},
        {L"Hx.Gauge", "MakeWindow", S_OK, E_FAIL},
        {L"Hx.Gauge", "MakeWindow", E_OUTOFMEMORY, E_OUTOFMEMORY},
        {L"Hx.Gauge", "MakeWindow", E_UNEXPECTED, E_FAIL},
        {L"Hx.Gauge", "OnWindowCreated", E_HANDLE, E_HANDLE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        script() = {};
        script().results[row.step] = row.answer;
        const std::optional<DialogError> error = Create(row.component_class);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->reason, DialogError::Reason::component_failed);
        EXPECT_EQ(error->control_id, 106u);
        EXPECT_EQ(error->result, row.result);
        if (row.component_class == std::wstring(L"Hx.Gauge")) {
            EXPECT_EQ(script().steps.back(), "SetClientSite null") << "it is told that it is over";
        }
        EXPECT_FALSE(m_dialog.IsCreated());
        EXPECT_EQ(Gauges::LivingWindows(), 0);
        EXPECT_TRUE(Gauges::NoneLeft());
    }
}

TEST_F(ComponentControl, AComponentThatDoesNotWantToGoIsGoneAllTheSame) {
    const std::vector<std::string> steps = {"InPlaceDeactivate", "Close 1", "SetClientSite null"};
    for (size_t failing = 0; failing < (size_t{1} << steps.size()); ++failing) {
        script() = {};
        ASSERT_FALSE(Create());
        for (size_t i = 0; i < steps.size(); ++i) {
            if (failing & (size_t{1} << i)) script().results[steps[i]] = E_FAIL;
        }
        m_dialog.Destroy();
        EXPECT_EQ(Gauges::LivingWindows(), 0) << failing;
        EXPECT_TRUE(Gauges::NoneLeft()) << failing;
    }
}

TEST_F(ComponentControl, ADialogMayGoInTheMiddleOfAnyStep) {
    for (const char* step : {"SetClientSite", "DoVerb -5", "MakeWindow", "OnWindowCreated", "SetObjectRects",
                             "DoVerb -3", "InPlaceDeactivate", "Close 1", "SetClientSite null"}) {
        SCOPED_TRACE(step);
        script() = {};
        script().doings[step] = [&] { m_dialog.Destroy(); };
        Create();
        if (m_dialog.IsCreated()) m_dialog.Gauge()->Move({1, 2, 3, 4});
        if (m_dialog.IsCreated()) m_dialog.Gauge()->Show(false);
        m_dialog.Destroy();
        EXPECT_EQ(Gauges::LivingWindows(), 0);
        EXPECT_TRUE(Gauges::NoneLeft());
    }
}

TEST_F(ComponentControl, AContainerMayBringAComponentThatItHasMade) {
    for (const HRESULT answer : {S_OK, E_OUTOFMEMORY}) {
        script() = {};
        if (FAILED(answer)) script().results["OnWindowCreated"] = answer;
        hx::ComPtr<IOleObject> object;
        ASSERT_EQ(CoCreateInstance(CLSID_Gauge, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<IOleObject>(),
                                   object.put_void()),
                  S_OK);
        const auto site = hx::Make<hx::ui::ComponentSite>(LCID{1033});
        EXPECT_EQ(site->Open(object, *m_frame, {1, 2, 30, 40}, true), answer);
        EXPECT_EQ(site->Component() == object.as<IUnknown>(), SUCCEEDED(answer));
        EXPECT_EQ(Gauges::LivingWindows(), SUCCEEDED(answer) ? 1 : 0);
        site->Close();
        EXPECT_EQ(script().steps.back(), "SetClientSite null");
    }
    EXPECT_EQ(hx::Make<hx::ui::ComponentSite>(LCID{1033})->Open(nullptr, *m_frame, {}, true), E_NOINTERFACE);
}

TEST_F(ComponentControl, AComponentIsToldTheLanguageOfItsDialog) {
    const std::pair<const wchar_t*, const char*> rows[] = {
        {L"/nowhere/pages.so", "en-US"},     {L"/nowhere/pages_de-DE.dll", "de-DE"},
        {L"/nowhere/my_ja-JP.dll", "ja-JP"}, {L"/nowhere/pages_fr-FR.so", "en-US"},
        {L"/nowhere_de-DE/my.dll", "en-US"}, {L"/nowhere/pages_rubbish.dll", "en-US"},
        {L"/nowhere/pages_.dll", "en-US"},   {L"/nowhere/pages_d\u00e9.dll", "en-US"},
    };
    for (const auto& [file_name, language] : rows) {
        ASSERT_FALSE(Create(L"Hx.Gauge", L"", file_name));
        EXPECT_EQ(Gauges::Language(), language) << &file_name - &rows[0].first;
    }
}

}  // namespace
