// The preview as its clients find it: by class, through the library's entry points.
#include <gtest/gtest.h>

#include <thread>

#include "hxapi/HXPreviewClasses.h"
#include "platform/com/loader.h"
#include "platform/com/ole_control.h"
#include "platform/module/this_module.h"
#include "platform/system/locale_data.h"
#include "platform/system/utf8.h"
#include "platform/ui/component_site.h"
#include "preview/PreviewTexts.h"
#include "tests/preview/preview_fixture.h"

namespace {

using namespace hx_test;
using hx::ComPtr;
namespace ui = hx::ui;

class ComponentTest : public PreviewTest {
protected:
    void Open(const char* locale) {
        m_site = hx::Make<ui::ComponentSite>(hx::LcidOf(locale).value());
        ASSERT_EQ(m_site->Open(CLSID_HXPreview, m_frame, {0, 0, 240, 280}, true), S_OK);
        ASSERT_EQ(m_frame.Children().size(), 1u);
        m_object = m_site->Component();
        m_observer = m_object.as<ITrackingCycleObserver>();
        ASSERT_TRUE(m_observer);
    }
    void Close() {
        m_site->Close();
        m_site.reset();
        m_object.reset();
        m_observer.reset();
    }
    void TearDown() override {
        hx::DispatchMessages();
        EXPECT_TRUE(m_frame.Children().empty());
        CoFreeUnusedLibraries();
    }
    std::wstring PaintedText() { return Painted(m_renderer->Paint(*m_frame.Children().front())).text; }
    // On a thread of the scanner's.
    void Deliver(const std::vector<TrackingPoint>& points) {
        std::thread([&] {
            m_observer->OnTrackingAreas(&kSquare, 1);
            const TrackingCycle cycle = CycleOf(points, 0);
            m_observer->OnTrackingCycle(&cycle);
        }).join();
    }

    ComPtr<ui::ComponentSite> m_site;
    ComPtr<IUnknown> m_object;
    ComPtr<ITrackingCycleObserver> m_observer;
};

TEST_F(ComponentTest, ItSpeaksTheLanguageOfItsContainer) {
    const struct {
        const char* locale;
        const wchar_t* hint;
    } rows[] = {{"en-US", L"Too bright"},      {"de-DE", L"Zu hell"},    {"de-AT", L"Zu hell"},
                {"es-ES", L"Demasiado claro"}, {"fr-FR", L"Trop clair"}, {"ja-JP", L"明るすぎます"},
                {"sv-SE", L"Too bright"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        Open(row.locale);
        Deliver(std::vector<TrackingPoint>(9, {0, 50, 1023, 0}));
        EXPECT_TRUE(DispatchUntil([&] { return PaintedText().find(row.hint) != std::wstring::npos; }));
        Close();
    }
}

TEST_F(ComponentTest, ResetIsCalledByNumberAndByName) {
    Open("en-US");
    Deliver({{0, 50, 500, 0}});
    ASSERT_TRUE(DispatchUntil([&] { return PaintedText().find(L"mm") != std::wstring::npos; }));
    const auto dispatch = m_object.as<IDispatch>();
    ASSERT_TRUE(dispatch);
    wchar_t name[] = L"reset";
    LPOLESTR names[] = {name};
    DISPID id = 0;
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK);
    EXPECT_EQ(id, DISPID_HXPREVIEW_RESET);
    VARIANT one{};
    one.vt = VT_I4;
    DISPPARAMS with_one{&one, nullptr, 1, 0};
    DISPPARAMS none{};
    const auto invoke = [&](DISPID member, WORD flags, DISPPARAMS& arguments) {
        return dispatch->Invoke(member, IID_NULL, 0, flags, &arguments, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(22, DISPATCH_METHOD, with_one), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(21, DISPATCH_METHOD, none), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(22, DISPATCH_PROPERTYGET, none), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(22, DISPATCH_METHOD, none), S_OK);
    EXPECT_TRUE(DispatchUntil([&] { return PaintedText().empty(); }));
    Close();
}

TEST_F(ComponentTest, ActivatedAgainItStillKnowsTheAreas) {
    Open("en-US");
    Deliver({{0, 50, 500, 0}});
    ASSERT_TRUE(DispatchUntil([&] { return PaintedText().find(L"mm") != std::wstring::npos; }));
    const RECT place{0, 0, 240, 280};
    EXPECT_EQ(m_object.as<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    ASSERT_TRUE(m_frame.Children().empty());
    ASSERT_EQ(m_object.as<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, m_site.get(), 0, nullptr,
                                                &place),
              S_OK);
    EXPECT_TRUE(DispatchUntil([&] { return PaintedText().find(L"mm") != std::wstring::npos; }));
    Close();
}

TEST_F(ComponentTest, NothingIsTakenOfNullPointers) {
    Open("en-US");
    EXPECT_EQ(m_observer->OnTrackingCycle(nullptr), E_POINTER);
    EXPECT_EQ(m_observer->OnTrackingAreas(nullptr, 1), E_POINTER);
    TrackingCycle cycle{};
    cycle.point_count = 1;
    EXPECT_EQ(m_observer->OnTrackingCycle(&cycle), E_POINTER);
    EXPECT_EQ(m_observer->OnTrackingAreas(nullptr, 0), S_OK);
    Close();
}

// The window is gone, and cycles are still on their way.
TEST_F(ComponentTest, TheScannerMayBeTheLastToLetItGo) {
    Open("en-US");
    ComPtr<ITrackingCycleObserver> scanners = m_observer;
    Close();
    std::thread([&] {
        const std::vector<TrackingPoint> points(100, {0, 50, 500, 0});
        const TrackingCycle cycle = CycleOf(points, 0);
        EXPECT_EQ(scanners->OnTrackingAreas(&kSquare, 1), S_OK);
        EXPECT_EQ(scanners->OnTrackingCycle(&cycle), S_OK);
        scanners.reset();
    }).join();
}

// What is linked into this program finds the satellites of the library.
[[maybe_unused]] const bool g_is_named = [] {
    hx::SetThisModuleFileName(hx::FromUtf8(HX_BIN_DIR "/HXPreview.so").value());
    return true;
}();

// What is missing in a language would be English.
TEST(Texts, AreThereInEveryLanguage) {
    using hx::preview::PreviewTexts;
    const PreviewTexts english = hx::preview::LoadTexts("en-US");
    for (const char* tag : {"de-DE", "es-ES", "fr-FR", "ja-JP"}) {
        const PreviewTexts texts = hx::preview::LoadTexts(tag);
        EXPECT_EQ(texts.scale.unit, L"mm");
        for (const auto text : {&PreviewTexts::weak, &PreviewTexts::saturated, &PreviewTexts::too_bright,
                                &PreviewTexts::too_dark, &PreviewTexts::nothing_seen}) {
            EXPECT_FALSE((texts.*text).empty()) << tag;
            EXPECT_NE(texts.*text, english.*text) << tag;
        }
    }
}

}  // namespace
