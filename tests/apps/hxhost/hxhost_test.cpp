// The desktop host by its operator's hands, without a screen and with the real page and simulator.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <set>

#include "apps/hxhost/CallWords.h"
#include "apps/hxhost/HostDialog.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/com/loader.h"
#include "platform/system/sleep.h"
#include "platform/ui/codes.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/memory_registry.h"
#include "tests/platform/temporary_folder.h"

namespace {

using namespace hxhost;
using hx::ui::Rectangle;

class Host : public WithMemoryRegistry {
protected:
    void SetUp() override {
        WithMemoryRegistry::SetUp();
        setenv("HX_DATA", m_data.path().c_str(), 1);
        m_before = hx::ui::SetRenderer(hx::ui::HeadlessRenderer::Make());
        ASSERT_EQ(m_scanner.Create(L"en-US"), S_OK);
    }
    void TearDown() override {
        hx::ui::SetRenderer(m_before);
        WithMemoryRegistry::TearDown();
    }

    // The window is open while `person` acts, then closed without saving if it still is.
    WindowMemory Run(const std::function<void(HostDialog&)>& person, std::span<const PageRow> pages = Pages(),
                     WindowMemory memory = {}) {
        HostDialog dialog(m_scanner, m_texts, std::move(memory), pages);
        m_script.while_modal = [&](hx::ui::Dialog& modal) {
            if (&modal != &dialog) return;
            person(dialog);
            if (!dialog.HasEnded()) Click(dialog, IDC_DISCARD);
        };
        EXPECT_GE(dialog.Run(), 0) << dialog.WhyNotCreated().size();
        return dialog.Memory();
    }

    static hx::ui::IUser& User() { return hx::ui::CurrentRenderer()->User(); }
    static void Click(hx::ui::Dialog& dialog, uint32_t id) {
        EXPECT_TRUE(User().Click(*dialog.Find(id))) << id;
    }
    static bool Until(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            hx::ui::CurrentRenderer()->Pump();
            hx::SleepMilliseconds(2);
        }
        return true;
    }
    static void ChooseItem(hx::ui::Dialog& dialog, uint32_t id, const std::wstring& item) {
        auto& box = *dialog.FindAs<hx::ui::ComboBox>(id);
        for (size_t i = 0; i < box.Items().size(); ++i) {
            if (box.Items()[i] != item) continue;
            EXPECT_TRUE(User().Choose(box, static_cast<int32_t>(i)));
        }
        EXPECT_EQ(Chosen(box), item);
    }
    static bool Logged(const hx::ui::Dialog& dialog, const std::wstring& part) {
        const auto& log = *dialog.FindAs<hx::ui::ListBox>(IDC_LOG);
        for (int32_t i = 0; i < log.Count(); ++i) {
            if (log.RowText(i).find(part) != std::wstring::npos) return true;
        }
        return false;
    }
    static int32_t State(const hx::ui::Dialog& dialog) {
        return dialog.FindAs<hx::ui::ComboBox>(IDC_CONNECTION)->Selected();
    }
    static void Connect(HostDialog& dialog) {
        Click(dialog, IDC_PLUG);
        EXPECT_TRUE(Until([&] { return State(dialog) == 1 && dialog.IsPreviewFed(); }));
    }
    static hx::ui::Dialog* PageOf(const hx::ui::Window& window) {
        for (hx::ui::Window* const child : window.Children()) {
            if (child->AsDialog() && child->IsShown()) return child->AsDialog();
            if (hx::ui::Dialog* const page = PageOf(*child)) return page;
        }
        return nullptr;
    }

    TemporaryFolder m_data;
    hx::ui::Script m_script;
    std::shared_ptr<hx::ui::IRenderer> m_before;
    SimulatedScanner m_scanner;
    HostTexts m_texts{"en-US"};
};

TEST_F(Host, TheCableAndTheModelReachThePage) {
    const WindowMemory memory = Run([](HostDialog& dialog) {
        Connect(dialog);
        EXPECT_TRUE(Logged(dialog, L"Take the scanner"));
        EXPECT_FALSE(Logged(dialog, L"GetFrameRate"));
        // Tab goes on from above the page into the page.
        EXPECT_TRUE(User().Focus(*dialog.Find(IDC_SERIALS)));
        EXPECT_TRUE(User().Key(dialog, VK_TAB));
        EXPECT_NE(PageOf(dialog)->Focused(), nullptr);
        EXPECT_FALSE(dialog.Find(IDC_MODEL)->IsEnabled());
        EXPECT_NE(dialog.Find(IDC_MODEL)->ToolTip().find(L"unplug"), std::wstring::npos);
        Click(dialog, IDC_UNPLUG);
        EXPECT_TRUE(Until([&] { return State(dialog) == 0; }));
        ChooseItem(dialog, IDC_MODEL, L"T820");
        EXPECT_TRUE(dialog.IsPageOpen());
        ChooseItem(dialog, IDC_SURFACE, L"Waves");
        Connect(dialog);
        ChooseItem(dialog, IDC_CONNECTION, L"Suspended (2)");
        EXPECT_TRUE(Until([&] { return Logged(dialog, L"Connection: Suspended (2)"); }));
    });
    EXPECT_EQ(memory.model, L"T820");
    EXPECT_EQ(memory.surface, L"waves");
    EXPECT_EQ(m_script.TakeBoxes().size(), 0u);
}

TEST_F(Host, CallsFailAsAskedForAndLoseTheConnection) {
    Run([this](HostDialog& dialog) {
        ChooseItem(dialog, IDC_OPERATION, L"AcquireHandle");
        ChooseItem(dialog, IDC_RESULT, L"E_ACCESSDENIED");
        for (const wchar_t* const wrong : {L"", L"0", L"1001", L"99999999999", L"-1", L"2x"}) {
            User().Type(*dialog.FindAs<hx::ui::Edit>(IDC_TIMES), wrong);
            Click(dialog, IDC_INJECT);
            EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), m_texts.Text(IDS_BAD_TIMES));
        }
        User().Type(*dialog.FindAs<hx::ui::Edit>(IDC_TIMES), L" 2 ");
        Click(dialog, IDC_HANG_UP);
        Click(dialog, IDC_INJECT);
        EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), L"AcquireHandle is going to fail.");
        Click(dialog, IDC_PLUG);
        EXPECT_TRUE(Until([&] { return Logged(dialog, L"failed: E_ACCESSDENIED"); }));
        EXPECT_TRUE(Until([&] { return State(dialog) == 0; }));
        const auto boxes = m_script.TakeBoxes();
        ASSERT_FALSE(boxes.empty());
        EXPECT_NE(boxes.front().text.find(m_texts.Text(IDS_FAULT_TEXT)), std::wstring::npos);
        Click(dialog, IDC_CLEAR);
        ChooseItem(dialog, IDC_RESULT, m_texts.Text(IDS_SLOWLY));
        Click(dialog, IDC_HANG_UP);
        Click(dialog, IDC_INJECT);
        EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), m_texts.Text(IDS_SLOW_HOW));
        User().Type(*dialog.FindAs<hx::ui::Edit>(IDC_TIMES), L"1");
        User().Type(*dialog.FindAs<hx::ui::Edit>(IDC_DELAY), L"1");
        ChooseItem(dialog, IDC_OPERATION, L"ActivateDynamicSettings");
        Click(dialog, IDC_INJECT);
        EXPECT_NE(dialog.Find(IDC_STATUS)->Text(), L"");
        m_scanner.Plug();
        EXPECT_TRUE(Until([&] { return dialog.Find(IDC_STATUS)->Text().empty(); }));
    });
}

TEST_F(Host, ACancelledSaveKeepsTheWindowOpenAndSaysWhy) {
    constexpr uint32_t kReflectionFilter = 253;
    bool was_open = false;
    Run([&](HostDialog& dialog) {
        Connect(dialog);
        Click(dialog, IDOK);
        EXPECT_EQ(dialog.Find(IDC_STATUS)->Text().find(L"Saved."), 0u);
        EXPECT_EQ(dialog.Find(IDC_STATUS)->Text().find(L'$'), std::wstring::npos);
        Click(*PageOf(dialog), kReflectionFilter);
        EXPECT_TRUE(Until([&] { return dialog.Find(IDC_STATUS)->Text().empty(); }));
        hx::ui::Script::Answer cancel;
        cancel.button = IDCANCEL;
        Click(dialog, IDC_UNPLUG);
        EXPECT_TRUE(Until([&] { return State(dialog) == 0; }));
        const std::wstring model = m_scanner.Model();
        m_script.AnswerModal(cancel);
        EXPECT_TRUE(User().Choose(*dialog.FindAs<hx::ui::ComboBox>(IDC_MODEL), 1));
        EXPECT_EQ(m_scanner.Model(), model);
        EXPECT_EQ(Chosen(*dialog.FindAs<hx::ui::ComboBox>(IDC_MODEL)), model);
        EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), m_texts.Text(IDS_MODEL_STAYS));
        for (const auto& [button, said] :
             {std::pair(IDOK, IDS_NOT_SAVED), std::pair(IDCANCEL, IDS_NOT_CLOSED)}) {
            m_script.AnswerModal(cancel);
            Click(dialog, static_cast<uint32_t>(button));
            EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), m_texts.Text(said));
        }
        was_open = !dialog.HasEnded();
    });
    EXPECT_TRUE(was_open);
    const auto modals = m_script.TakeModals();
    ASSERT_EQ(modals.size(), 4u);
    EXPECT_EQ(modals.back().result, static_cast<int32_t>(IDC_DISCARD));
    EXPECT_EQ(m_script.Unanswered(), 0u);
}

TEST_F(Host, TheReportIsCopiedWhateverPageIsShownAndWithoutSerialNumbers) {
    Run([this](HostDialog& dialog) {
        Connect(dialog);
        hx::ui::Dialog* const shown = PageOf(dialog);
        const auto serial_numbers_in_copy = [&](uint32_t said) {
            Click(dialog, IDC_REPORT);
            EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), m_texts.Text(said));
            EXPECT_NE(User().Clipboard().find(m_texts.Text(IDS_WORD_TITLE)), std::wstring::npos);
            return User().Clipboard().find(L"1042") != std::wstring::npos;
        };
        EXPECT_FALSE(serial_numbers_in_copy(IDS_REPORT_COPIED));
        EXPECT_NE(User().Clipboard().find(m_texts.Text(IDS_WORD_LEFT_OUT)), std::wstring::npos);
        Click(dialog, IDC_SERIALS);
        EXPECT_TRUE(serial_numbers_in_copy(IDS_REPORT_COPIED_WHOLE));
        EXPECT_TRUE(shown->IsShown());
        // A failure is over with the report that it made poorer, and its text is in plain words.
        Fault fault;
        fault.operation = L"GetDriverProperties";
        fault.text = L"no answer";
        EXPECT_EQ(m_scanner.Inject(fault), S_OK);
        EXPECT_FALSE(serial_numbers_in_copy(IDS_REPORT_COPIED_WHOLE));
        const auto boxes = m_script.TakeBoxes();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_TRUE(boxes[0].text.ends_with(L". no answer")) << boxes[0].text;
        EXPECT_TRUE(serial_numbers_in_copy(IDS_REPORT_COPIED_WHOLE));
        ChooseItem(dialog, IDC_PAGES, m_texts.Text(IDS_PAGE_DIAGNOSTICS));
        EXPECT_FALSE(shown->IsShown());
        EXPECT_TRUE(dialog.IsPageOpen());
        Click(dialog, IDC_SERIALS);
        EXPECT_FALSE(serial_numbers_in_copy(IDS_REPORT_COPIED));
        Click(dialog, IDOK);
        EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), m_texts.Text(IDS_SAVED_ALL));
    });
    EXPECT_EQ(m_script.TakeBoxes().size(), 0u);
}

TEST_F(Host, AllPagesStayOpenAndFollowTheScanner) {
    Run([this](HostDialog& dialog) {
        std::vector<hx::ui::Dialog*> opened;
        for (int round = 0; round < 3; ++round) {
            std::vector<hx::ui::Dialog*> shown;
            for (const PageRow& row : Pages()) {
                ChooseItem(dialog, IDC_PAGES, m_texts.Text(row.name));
                ASSERT_TRUE(dialog.IsPageOpen()) << row.name;
                shown.push_back(PageOf(dialog));
                const int32_t state = State(dialog) == 0 ? 1 : 0;
                Click(dialog, state == 1 ? IDC_PLUG : IDC_UNPLUG);
                EXPECT_TRUE(Until([&] { return State(dialog) == state; }));
            }
            EXPECT_EQ(std::set<hx::ui::Dialog*>(shown.begin(), shown.end()).size(), Pages().size());
            if (round == 0) opened = shown;
            EXPECT_EQ(shown, opened);
        }
        // What was edited in a page behind is asked for.
        constexpr uint32_t kReflectionFilter = 253;
        ChooseItem(dialog, IDC_PAGES, m_texts.Text(IDS_PAGE_MEASUREMENT));
        Click(*PageOf(dialog), kReflectionFilter);
        ChooseItem(dialog, IDC_PAGES, m_texts.Text(IDS_PAGE_DIAGNOSTICS));
        hx::ui::Script::Answer cancel;
        cancel.button = IDCANCEL;
        m_script.AnswerModal(cancel);
        Click(dialog, IDCANCEL);
        EXPECT_FALSE(dialog.HasEnded());
        EXPECT_EQ(dialog.Find(IDC_STATUS)->Text(), m_texts.Text(IDS_NOT_CLOSED));
    });
    EXPECT_EQ(m_script.TakeBoxes().size(), 0u);
    EXPECT_EQ(m_script.Unanswered(), 0u);
}

TEST_F(Host, APageThatIsNotInstalledSaysSoAndTheWindowCloses) {
    constexpr PageRow kPages[] = {{L"Nobody.Nothing.1", IDS_PAGE_MEASUREMENT}};
    Run(
        [this](HostDialog& dialog) {
            EXPECT_NE(dialog.Find(IDC_PAGE_PLACE)->Text().find(L"Nobody.Nothing.1"), std::wstring::npos);
            EXPECT_FALSE(dialog.Find(IDOK)->IsEnabled());
            EXPECT_FALSE(dialog.Find(IDC_REPORT)->IsEnabled());
            EXPECT_EQ(dialog.Find(IDC_REPORT)->ToolTip(), m_texts.Text(IDS_TIP_NO_REPORT));
            Click(dialog, IDCANCEL);
            EXPECT_TRUE(dialog.HasEnded());
        },
        kPages);
}

// All classes but that of the factory for settings.
struct WithoutSettings final : hx::IClassLookup {
    std::shared_ptr<hx::IClassLookup> others = hx::ClassLookup();
    CLSID hidden{};

    std::optional<hx::ClassEntry> ByClsid(const CLSID& clsid) const override {
        return clsid == hidden ? std::nullopt : others->ByClsid(clsid);
    }
    std::optional<CLSID> ByProgId(std::wstring_view prog_id) const override {
        return others->ByProgId(prog_id);
    }
    std::vector<hx::ClassEntry> All() const override { return others->All(); }
};

TEST_F(Host, APageHasSettingsBeforeItIsOpened) {
    const auto lookup = std::make_shared<WithoutSettings>();
    ASSERT_EQ(CLSIDFromProgID(kProgIdHXSettingsFactory, &lookup->hidden), S_OK);
    hx::SetClassLookup(lookup);
    Run([](HostDialog& dialog) {
        EXPECT_FALSE(dialog.IsPageOpen());
        EXPECT_NE(dialog.Find(IDC_PAGE_PLACE)->Text(), L"");
    });
    hx::SetClassLookup(nullptr);
    Run([](HostDialog& dialog) { EXPECT_TRUE(dialog.IsPageOpen()); });
}

TEST_F(Host, TheWindowComesBackWhereItWasButOnTheScreen) {
    constexpr hx::ui::Size kSmallest{800, 500};
    const struct {
        Rectangle remembered;
        Rectangle shown;
    } rows[] = {
        {{100, 200, 1000, 800}, {100, 200, 1000, 800}},
        {{-5000, -5000, -4000, -4400}, {0, 32, 1000, 632}},
        {{1800, 1000, 2700, 1600}, {1020, 480, 1920, 1080}},
        {{0, 100, 9000, 9000}, {0, 32, 1920, 1080}},
        {{10, 100, 20, 110}, {10, 100, 810, 600}},
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(SaveMemory({row.remembered, L"HX", L"steps"}));
        const WindowMemory memory = LoadMemory();
        EXPECT_EQ(memory.window, row.remembered);
        EXPECT_EQ(memory.surface, L"steps");
        EXPECT_EQ(FittedToScreen(memory.window, kSmallest), row.shown) << row.remembered.left;
    }
    EXPECT_EQ(FittedToScreen({}, {3000, 2000}), (Rectangle{0, 32, 1920, 1080}));
    EXPECT_EQ(FittedToScreen({}, kSmallest), (Rectangle{560, 306, 1360, 806}));
    for (const hx::RegistryValue& wrong : {hx::RegistryValue(L"far"), hx::RegistryValue(0x7FFFFFFFu)}) {
        Store(kUserRoot, L"Software\\Orvel\\HXHost", L"WindowRight", wrong);
        EXPECT_FALSE(LoadMemory().window);
    }
    const Rectangle place{300, 150, 1700, 900};
    EXPECT_EQ(Run([](HostDialog&) {}, Pages(), {place, L"", L"shiny"}).window, place);
    RefuseWrites();
    EXPECT_FALSE(SaveMemory({}));
}

TEST_F(Host, ValuesAreLoggedOnceForEachProfileThatHasAName) {
    const auto simulator = hx::ComPtr<IUnknown>(m_scanner.Api()).as<IHXSimulator>();
    const hx::Bstr operation(L"SetExposureTime");
    m_scanner.TakeCalls();
    for (const auto& [on, arguments] :
         {std::pair(L"preset:A", L"[1.0]"), std::pair(L"preset:B", L"[2.0]"), std::pair(L"preset:", L"[3.0]"),
          std::pair(L"preset:A", L"[1.0]"), std::pair(L"preset:A", L"[2.0]")}) {
        simulator->LogCall(hx::Bstr(on).get(), operation.get(), hx::Bstr(arguments).get());
    }
    CallLog log(m_scanner, m_texts);
    log.Fetch();
    ASSERT_EQ(log.List().Count(), 2);
    EXPECT_EQ(log.List().RowText(1), L"Exposure: 2.0 µs (×2)");
}

TEST_F(Host, CallsAreToldInWordsAndTheListIsBounded) {
    const struct {
        const char* call;
        const wchar_t* words;
        bool is_question;
    } rows[] = {
        {R"({"on":"preset:A","op":"SetExposureTime","args":[800.5],"result":0})", L"Exposure: 800.5 µs",
         false},
        {R"({"on":"preset:A","op":"SetRFEnabled","args":[true]})", L"Reflection filter: on", false},
        {R"({"on":"events","op":"Raise","args":[7]})", L"Connection: 7", false},
        {R"({"on":"handle","op":"RegisterTrackingCycleObserver","args":[null]})",
         L"The preview shows nothing any more", false},
        {R"({"on":"handle","op":"GetFrameRate","args":[1,"${value}"]})",
         L"handle.GetFrameRate(1, \"${value}\")", true},
        {R"({"on":"handle","op":"GetFrameRate","args":[],"result":-2147467259})",
         L"handle.GetFrameRate() – failed: E_FAIL", false},
        {R"({"on":"handle","op":"ActivateDynamicSettings","args":["${value}"],"result":-2147467259})",
         L"Apply the profile ${value} – failed: E_FAIL", false},
        {R"({"on":"handle","op":"RegisterTrackingCycleObserver","args":["o"],"result":-2147467259})",
         L"Show the preview what the scanner sees – failed: E_FAIL", false},
        {R"({})", L".()", false},
    };
    for (const auto& row : rows) {
        const CallInWords words = InWords(nlohmann::json::parse(row.call), m_texts);
        EXPECT_EQ(words.text, row.words);
        EXPECT_EQ(words.is_question, row.is_question) << row.call;
    }
    LogList list;
    const auto repeated = [](const std::wstring& line, int32_t count) {
        return line + std::to_wstring(count);
    };
    for (int32_t i = 0; i < LogList::kMostLines + 10; ++i)
        list.Append({std::to_wstring(i), L"x", L"x"}, repeated);
    EXPECT_EQ(list.Count(), LogList::kMostLines);
    EXPECT_EQ(list.RowText(list.Count() - 1), L"x2");
    EXPECT_EQ(list.Selected(), list.Count() - 1);
    list.Select(3);
    const std::wstring reading = list.RowText(3);
    list.Append({L"y"}, repeated);
    EXPECT_EQ(list.RowText(list.Selected()), reading);
}

}  // namespace
