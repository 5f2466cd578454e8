// What the pages are made of, as a screen shows it: a list of profiles, edits of numbers and the preview in
// the measurement page's dialog, and the dialog that asks for a name. The pictures stay if HX_PICTURES names
// a folder for them; HX_TEST_SCALE, HX_TEST_DARK and HX_TEST_LOCALE say how they are made.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "controls/presets/PresetsReference.h"
#include "controls/profiles/CLaserProfileSaveAsDlg.h"
#include "controls/profiles/CProfileListBox.h"
#include "controls/widgets/AccessibleNames.h"
#include "controls/widgets/CScannerPreviewCtrl.h"
#include "controls/widgets/MEditFloat.h"
#include "core/locale/MLocalisationHelper.h"
#include "core/locale/MResourceLocale.h"
#include "platform/module/this_module.h"
#include "platform/system/utf8.h"
#include "platform/ui/load_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/controls/shell/hosted_page.h"
#include "tests/platform/temporary_folder.h"

std::shared_ptr<hx::ui::IRenderer> hosted::TestRenderer() {
    static const std::shared_ptr<hx::ui::IRenderer> screen = [] {
        const char* const scale = std::getenv("HX_TEST_SCALE");
        std::wstring reason;
        auto loaded = hx::ui::LoadScreenRenderer(
            {true, scale ? std::atof(scale) : 1, std::getenv("HX_TEST_DARK") != nullptr}, reason);
        if (!loaded) throw std::runtime_error(hx::ToUtf8(reason));
        return loaded;
    }();
    return screen;
}

namespace hx {
namespace {

namespace fs = std::filesystem;

double Scale() {
    const char* const scale = std::getenv("HX_TEST_SCALE");
    return scale ? std::atof(scale) : 1;
}

std::shared_ptr<ui::IRenderer> Screen() {
    return hosted::TestRenderer();
}

class Frame final : public ui::Window {
public:
    ~Frame() override { Destroy(); }
};

class Page final : public ui::Dialog, public ICurrentPresetHandler {
public:
    Page() {
        Bind(6000, list);
        Bind(210, laser_power);
        Bind(206, exposure);
        Bind(106, preview);
        list.SetHandler(this);
    }
    ~Page() override { Destroy(); }

    std::wstring GetCurrentPresetName() override { return L"Castings"; }
    bool IsModified() override { return true; }
    void RenamePreset() override {}
    void SaveAsPreset() override {}
    void DiscardChanges() override {}
    void DeletePreset() override {}

    CProfileListBox list;
    MEditFloat laser_power;
    MEditFloat exposure;
    CScannerPreviewCtrl preview;
};

class OnScreen : public testing::Test {
protected:
    OnScreen() {
        ui::SetRenderer(Screen());
        const char* const locale = std::getenv("HX_TEST_LOCALE");
        SetThisModuleFileName(*FromUtf8(HX_BIN_DIR "/HXScannerCtrls.so"));
        m_localisation.LoadSatelliteResources(*FromUtf8(locale ? locale : "en-US"));
        m_frame.Create(ui::WindowKind::frame, nullptr, {0, 0, 900, 520});
        m_frame.Show(true);
        const std::pair<const wchar_t*, const wchar_t*> presets[] = {
            {L"$DEFAULT", L"Standard"},
            {L"$DARK", L"Dark surfaces"},
            {L"Castings", L"Castings"},
            {L"Sheet metal 2 mm (3)", L"Sheet metal 2 mm (3)"},
            {L"アルミ", L"アルミ"}};
        for (const auto& [name, display_name] : presets) {
            m_presets->SetPreset(name, nullptr);
            m_presets->SetDisplayName(name, display_name);
        }
    }
    ~OnScreen() override {
        m_frame.Destroy();
        Screen()->Pump();
        ui::SetRenderer(nullptr);
    }

    // The bytes of the window's picture, which has as many pixels as the window at that scale.
    std::string Picture(ui::Window& window, const std::string& name) {
        Screen()->Pump();
        const char* const kept = std::getenv("HX_PICTURES");
        const fs::path file = fs::path(kept ? fs::path(kept) : m_folder.path()) / (name + ".png");
        EXPECT_TRUE(Screen()->SavePicture(window, *FromUtf8(file.string()))) << file;
        std::ifstream in(file, std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(in), {}};
        constexpr size_t kWidthAt = 16;  // 32 bits, highest first
        int32_t width = 0;
        for (size_t i = kWidthAt; i < kWidthAt + 4; ++i)
            width = width * 256 + static_cast<uint8_t>(bytes.at(i));
        EXPECT_NEAR(width, window.ClientSize().width * Scale(), 1) << name;
        return bytes;
    }

    TemporaryFolder m_folder;
    MLocalisationHelper m_localisation;
    PresetsReference m_presets;
    Frame m_frame;
    ui::Script m_script;
};

TEST_F(OnScreen, ThePageShowsProfilesNumbersAndThePreview) {
    Page page;
    const auto error = page.Create(MResourceLocale::ResourceModule(), 203, &m_frame);
    ASSERT_FALSE(error) << ToUtf8(ui::DialogError::NameOf(error->reason)) << error->control_id;
    SetAccessibleNames(page, *MResourceLocale::ResourceModule());
    page.Show(true);
    page.list.Refill();
    EXPECT_EQ(page.list.SelectedName(), L"Castings");

    // Each step is to be seen.
    std::set<std::string> pictures = {Picture(page, "page_without_numbers")};
    ui::IUser& user = Screen()->User();
    EXPECT_TRUE(user.Type(page.laser_power, L"85"));
    EXPECT_TRUE(user.Type(page.exposure, L"12x"));
    EXPECT_TRUE(user.Focus(page.list));
    pictures.insert(Picture(page, "page_with_edits"));
    page.list.MarkModified(L"Castings", false);
    pictures.insert(Picture(page, "page_unmodified"));
    page.Move({0, 0, 900, 520});
    pictures.insert(Picture(page, "page_enlarged"));
    EXPECT_EQ(pictures.size(), 4u);

    ASSERT_TRUE(page.preview.Observer());
    EXPECT_NO_THROW(page.preview.Reset());
    page.Destroy();
    EXPECT_FALSE(page.preview.Observer());
}

TEST_F(OnScreen, TheNameIsAskedForInEachMode) {
    struct Mode {
        const char* picture;
        bool rename;
        bool prompt;
    };
    constexpr Mode kModes[] = {
        {"name_to_save", false, false}, {"name_to_rename", true, false}, {"name_prompt", false, true}};
    std::set<std::string> pictures;
    for (const Mode& mode : kModes) {
        m_script.while_modal = [&](ui::Dialog& dialog) { pictures.insert(Picture(dialog, mode.picture)); };
        m_script.AnswerModal({ui::Script::Answer::By::escape, 0, {}});
        std::wstring name = L"Sheet metal 2 mm (3)";
        EXPECT_EQ(CLaserProfileSaveAsDlg(&m_frame, mode.rename, mode.prompt).Run(name),
                  CLaserProfileSaveAsDlg::kCancelled);
    }
    EXPECT_EQ(pictures.size(), std::size(kModes));
    EXPECT_EQ(m_script.Unanswered(), 0u);
}

}  // namespace
}  // namespace hx
