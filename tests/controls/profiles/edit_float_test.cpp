// The edit for numbers, and the page's side of the preview.
#include <cmath>
#include <limits>

#include "controls/widgets/CScannerPreviewCtrl.h"
#include "controls/widgets/MEditFloat.h"
#include "core/errors/MException.h"
#include "core/locale/MResourceLocale.h"
#include "tests/controls/profiles/profile_page.h"

namespace hx {
namespace {

constexpr ui::Colour kWhite{255, 255, 255};
constexpr ui::Colour kRed{255, 176, 176};

class NumberDialog final : public ui::Dialog {
public:
    NumberDialog() {
        Bind(10, number);
        EXPECT_FALSE(Create(ModuleOf(L"EDITTEXT 10, 0, 0, 50, 14, WS_TABSTOP\n"
                                     L"PUSHBUTTON \"x\", 11, 0, 20, 50, 14, WS_TABSTOP"),
                            1, nullptr));
        Show(true);
    }
    ~NumberDialog() override { Destroy(); }
    void OnCommand(ui::Control& control, uint32_t code) override {
        if (code == EN_KILLFOCUS) left_with = control.Text();
        if (closes_on_change && code == EN_CHANGE) Destroy();
    }

    MEditFloat number;
    std::wstring left_with;
    bool closes_on_change = false;
};

class EditFloat : public ScreenTest {
protected:
    ~EditFloat() override { MResourceLocale::ExchangeResourceModule(nullptr); }
    // As the satellite of that language does, whose file is not read.
    static void Speak(const std::wstring& language) {
        MResourceLocale::ExchangeResourceModule(
            MakeResourceModule(L"/opt/x_y/HXScannerCtrls_" + language + L".dll", {}));
    }
    static ui::Colour ColourOf(MEditFloat& number) {
        ui::Colour colour;
        EXPECT_TRUE(number.BackgroundColour(colour));
        return colour;
    }
};

TEST_F(EditFloat, FollowsWhatIsTypedInTheLanguageOfThePage) {
    const double infinity = std::numeric_limits<double>::infinity();
    struct Case {
        std::wstring language;
        int32_t decimals;
        std::wstring typed;
        bool valid;
        double value;  // it was 42
        std::wstring left;
    };
    const Case cases[] = {
        {L"en-US", 2, L"12.5", true, 12.5, L"12.50"},
        {L"de-DE", 2, L"12,5", true, 12.5, L"12,50"},
        {L"de-DE", 2, L"12.5", false, 12, L"12.5"},
        {L"en-US", 2, L"12,5", false, 12, L"12,5"},
        {L"fr-FR", 1, L" -1,26 ", true, -1.26, L"-1,3"},
        {L"ja-JP", 0, L"7.6", true, 7.6, L"8"},
        {L"es-ES", -3, L"7,6", true, 7.6, L"8"},
        {L"nowhere", 2, L"1.25", true, 1.25, L"1.25"},
        {L"en-US", 2, L"12.5x", false, 12.5, L"12.5x"},
        {L"en-US", 2, L"%n%s", false, 42, L"%n%s"},
        {L"en-US", 2, L"", true, 42, L""},
        {L"en-US", 2, L" ", false, 42, L" "},
        {L"en-US", 0, L"-1e999", true, -infinity, L"-inf"},
        {L"en-US", 3, L"1e-999", true, 0, L"0.000"},
        {L"en-US", 2, L"\xFF11", false, 42, L"\xFF11"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row.language) + testing::PrintToString(row.typed));
        Speak(row.language);
        NumberDialog dialog;
        dialog.number.SetDecimals(row.decimals);
        dialog.number.SetText(L"42");
        User().Type(dialog.number, row.typed);
        EXPECT_EQ(dialog.number.IsValid(), row.valid);
        EXPECT_EQ(ColourOf(dialog.number), row.valid ? kWhite : kRed);
        EXPECT_EQ(dialog.number.IsValid(true), row.valid && !row.typed.empty());
        EXPECT_EQ(dialog.number.Value(), row.value);
        User().Leave(dialog.number);
        EXPECT_EQ(dialog.number.Text(), row.left);
        EXPECT_EQ(dialog.left_with, row.left) << "the page sees what stays";
    }
}

TEST_F(EditFloat, KeepsTheLastNumberTheSelectionAndTheBounds) {
    NumberDialog dialog;
    dialog.number.SetText(L"3");
    dialog.number.SetText(L"x");
    EXPECT_EQ(dialog.number.Value(), 3);
    User().Type(dialog.number, L"1.23456");
    dialog.number.SetSelection({2, 7});
    User().Leave(dialog.number);
    EXPECT_EQ(dialog.number.Text(), L"1.23");
    EXPECT_EQ(dialog.number.GetSelection(), (ui::Edit::Selection{2, 4}));
    const size_t painted = m_renderer->Invalidations(dialog.number);
    dialog.number.OnTyped();
    EXPECT_EQ(m_renderer->Invalidations(dialog.number), painted + 1) << "the colour follows each character";
    dialog.number.SetClamp(-1, 2);
    for (const auto& [text, value] : {std::pair{L"-5", -1.0}, {L"1e999", 2.0}, {L"0.5", 0.5}}) {
        dialog.number.SetText(text);
        EXPECT_EQ(dialog.number.Value(), value);
    }
    User().Type(dialog.number, L"9");
    User().Leave(dialog.number);
    EXPECT_EQ(dialog.number.Text(), L"2.00");
}

TEST_F(EditFloat, SurvivesAMegabyteAndAPageThatGoes) {
    NumberDialog dialog;
    User().Paste(dialog.number, std::wstring(1 << 20, L'9'));
    EXPECT_EQ(dialog.number.Text().size(), ui::Edit::kTextLimit);
    EXPECT_TRUE(std::isinf(dialog.number.Value()));
    User().Paste(dialog.number, std::wstring(1 << 20, L'x'));
    EXPECT_EQ(ColourOf(dialog.number), kRed);
    User().Type(dialog.number, L"1");
    dialog.closes_on_change = true;
    User().Leave(dialog.number);
    EXPECT_FALSE(dialog.IsCreated());
}

TEST(ScannerPreview, WithoutAComponentTheResetIsAnErrorOfItsOwn) {
    CScannerPreviewCtrl preview;
    EXPECT_FALSE(preview.Observer());
    try {
        preview.Reset();
        ADD_FAILURE();
    } catch (const MException& exception) {
        EXPECT_EQ(exception.GetChain().back()->GetCode(), L"CScannerPreviewCtrl.Reset:Component");
    }
}

}  // namespace
}  // namespace hx
