// What an operator does on the settings pages, and sees, with their controls in a host. With and without a
// screen.
#include "platform/com/text_array.h"
#include "platform/ui/codes.h"
#include "tests/controls/shell/hosted_page.h"

namespace {

using HostedOperator = hosted::WithPage;

// The places of the sliders with the texts of their edits, the check boxes, and the profile.
std::string StateOf(const hx::ui::Dialog& page) {
    std::string state;
    const std::pair<uint32_t, uint32_t> kNumbers[] = {
        {207, 210}, {204, 206}, {211, 212}, {218, 219}, {214, 217}};
    for (const auto& [slider, edit] : kNumbers) {
        state += std::to_string(page.FindAs<hx::ui::TrackBar>(slider)->Position()) + "/" +
                 hx::ToUtf8(page.Find(edit)->Text()) + " ";
    }
    for (const uint32_t box : {224, 225, 253})
        state += page.FindAs<hx::ui::CheckBox>(box)->IsChecked() ? 'x' : '-';
    const auto& list = *page.FindAs<hx::ui::ListBox>(6000);
    return state + " " + hx::ToUtf8(list.RowText(list.Selected()));
}

TEST_F(HostedOperator, ShowsWhatItsOperatorDoes) {
    // Beside those of the factory, one between whole percents, and one with a gain that this scanner lacks.
    const auto handle = NewHandle();
    hx::SafeArray factory, shown;
    handle->EnumerateDynamicSettingsPresets(Text("HX"), factory.put(), shown.put());
    auto names = *hx::TextsOf(factory.get());
    names.insert(names.end(), {L"Castings", L"Foreign"});
    hx::SafeArray presets(SafeArrayCreateVector(VT_UNKNOWN, 0, static_cast<ULONG>(names.size())));
    for (LONG i = 0; i < static_cast<LONG>(names.size()); ++i) {
        const std::wstring& name = names[static_cast<size_t>(i)];
        hx::ComPtr<IDynamicSettingsPreset> preset;
        if (name.starts_with(L'$')) {
            handle->GetDynamicSettingsPreset(Text("HX"), hx::Bstr(name).get(), preset.put());
        } else {
            handle->CreateDynamicSettingsPreset(preset.put());
            preset->SetExposureTime(625);
            preset->SetAnalogImagerGain(name == L"Foreign" ? 8 : 2);
        }
        SafeArrayPutElement(presets.get(), &i, preset.get());
    }
    EXPECT_EQ(
        handle->SaveDynamicSettingsPresets(Text("HX"), hx::TextArray(names).get(), presets.get(), nullptr),
        S_OK);
    m_hands->SetConnectionState(HXConnected, FALSE);
    Create();
    Initialise(L"Castings");
    m_page->OnSelected();
    m_page->SetHXApi(m_api.get());
    const auto at = [&](uint32_t id) -> hx::ui::TrackBar& { return At<hx::ui::TrackBar>(id); };
    const auto type = [&](uint32_t edit, const wchar_t* text) {
        EXPECT_TRUE(User().Type(At<hx::ui::Edit>(edit), text));
        EXPECT_TRUE(User().Focus(At(6000)));
    };
    const auto choose = [&](int32_t row) { User().ClickRow(At<hx::ui::ListBox>(6000), row); };
    const struct {
        const char* what;
        std::function<void()> act;
        std::string state, box = "";
    } kCases[] = {
        {"nothing", [] {}, "50/50 1250/12 8/8 75/75 10/10 -xx Castings"},
        {"drags", [&] { SetTrackBar(User(), at(207), 61); }, "61/61 1250/12 8/8 75/75 10/10 -xx *Castings"},
        {"steps", [&] { User().Scroll(at(211), TB_PAGEDOWN); },
         "61/61 1250/12 18/18 75/75 10/10 -xx *Castings"},
        {"types", [&] { type(217, L"12.7"); }, "61/61 1250/12 18/18 75/75 13/13 -xx *Castings"},
        {"types too much", [&] { type(219, L"91"); }, "61/61 1250/12 18/18 9/9 13/13 -xx *Castings"},
        {"types an exposure", [&] { type(206, L"101"); }, "61/61 1000/10 18/18 9/9 13/13 -xx *Castings"},
        {"clicks", [&] { User().Click(At<hx::ui::CheckBox>(224)); },
         "61/61 1000/10 18/18 9/9 13/13 xxx *Castings"},
        {"cannot drag", [&] { EXPECT_FALSE(SetTrackBar(User(), at(207), 30)); },
         "61/61 1000/10 18/18 9/9 13/13 xxx *Castings"},
        {"is refused a profile", [&] { choose(5); }, "61/61 1000/10 18/18 9/9 13/13 xxx Castings",
         "The scanner doesn't support the gain setting of this profile."},
        {"chooses another profile", [&] { choose(0); }, "100/100 5000/50 5/5 75/75 10/10 -x- Dark"},
        {"comes back", [&] { choose(4); }, "61/61 1000/10 18/18 9/9 13/13 xxx Castings"},
    };
    for (const auto& row : kCases) {
        row.act();
        EXPECT_EQ(StateOf(*Dialog()), row.state) << row.what;
        std::string box;
        for (const auto& each : script.TakeBoxes()) box += hx::ToUtf8(each.text);
        EXPECT_EQ(box, row.box) << row.what;
    }
    EXPECT_TRUE(Save());
    EXPECT_EQ(Reported(), "Castings");
}

// The click that takes the focus from an edit is the page's as well.
TEST_F(HostedOperator, AnEditOutOfRangeIsComplainedOfOnceAndTheClickCounts) {
    m_hands->SetConnectionState(HXConnected, FALSE);
    for (const bool closes : {false, true}) {
        Create(kProgIdHXHandheldMeasSettingsCtrl);
        Initialise(L"$DARK");
        m_page->OnSelected();
        m_page->SetHXApi(m_api.get());
        ASSERT_TRUE(User().Type(At<hx::ui::Edit>(210), L"101"));
        if (closes) script.while_box = [&] { Close(); };
        User().Click(At<hx::ui::CheckBox>(253));
        script.while_box = nullptr;
        const auto boxes = script.TakeBoxes();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes.front().text, L"Enter an integer between 1 and 100.");
        if (closes) break;
        EXPECT_EQ(At(210).Text(), L"10") << "what was typed before it was too much";
        EXPECT_TRUE(At<hx::ui::CheckBox>(253).IsChecked());
        Close();
    }
}

}  // namespace
