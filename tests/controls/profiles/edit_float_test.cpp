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

class NumberDialog final : public ui::Dialog {
public:
    NumberDialog() {
        Bind(10, number);
        const ModuleHandle module =
            ModuleOf(L"EDITTEXT 10, 0, 0, 50, 14\nPUSHBUTTON \"x\", 11, 0, 20, 50, 14");
        EXPECT_FALSE(Create(module, 1, nullptr));
        Show(true);
    }
    ~NumberDialog() override { Destroy(); }
    void OnCommand(ui::Control& control, uint32_t code) override {
        if (code == EN_KILLFOCUS) left_with = control.Text();
        if (closes_on_change && code == EN_CHANGE) Destroy();
    }
    ui::Colour Colour() {
        ui::Colour colour;
        EXPECT_TRUE(number.BackgroundColour(colour));
        return colour;
    }

    MEditFloat number;
    std::wstring left_with;
    bool closes_on_change = false;
};

using EditFloat = ScreenTest;

// As the satellite of that language does, whose file is not read.
void Speak(const std::wstring& language) {
    MResourceLocale::ExchangeResourceModule(
        MakeResourceModule(L"/opt/x_y/HXScannerCtrls_" + language + L".dll", {}));
}

TEST_F(EditFloat, FollowsWhatIsTypedInTheLanguageOfThePage) {
    const double infinity = std::numeric_limits<double>::infinity();
    struct Case {
        std::wstring language;
        int32_t decimals;
        std::wstring typed;
        bool valid;
        double value;  // 42 before
        std::wstring left;
    };
    const Case cases[] = {
        {L"en-US", 2, L"12.5", true, 12.5, L"12.50"},
        {L"de-DE", 2, L"12,5", true, 12.5, L"12,50"},
        {L"de-DE", 2, L"12.5", false, 12, L"12.5"},
        {L"fr-FR", 1, L" -1,26 ", true, -1.26, L"-1,3"},
        {L"ja-JP", 0, L"7.6", true, 7.6, L"8"},
        {L"es-ES", -3, L"7,6", true, 7.6, L"8"},
        {L"nowhere", 2, L"1.25", true, 1.25, L"1.25"},
        {L"en-US", 2, L"12.5x", false, 12.5, L"12.5x"},
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
        EXPECT_EQ(static_cast<const ui::Edit&>(dialog.number).HoldsValidText(), row.valid);
        EXPECT_EQ(dialog.Colour(), row.valid ? (ui::Colour{255, 255, 255}) : (ui::Colour{255, 176, 176}));
        EXPECT_EQ(dialog.number.IsValid(true), row.valid && !row.typed.empty());
        EXPECT_EQ(dialog.number.Value(), row.value);
        User().Leave(dialog.number);
        EXPECT_EQ(dialog.number.Text(), row.left);
        EXPECT_EQ(dialog.left_with, row.left) << "the page sees what stays";
    }
    MResourceLocale::ExchangeResourceModule(nullptr);
}

TEST_F(EditFloat, KeepsTheSelectionAndTheBounds) {
    NumberDialog dialog;
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
    EXPECT_FALSE(dialog.number.IsValid());
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
