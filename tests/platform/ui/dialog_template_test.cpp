// Dialogs as their templates say: places, kinds, what makes a template unusable, every language's dialogs.
#include <gtest/gtest.h>

#include "platform/system/utf8.h"
#include "platform/ui/dialog_units.h"
#include "platform/ui/headless/headless_renderer.h"
#include "tests/platform/ui/behaviour_fixture.h"
#include "tests/resources/scripts.h"

namespace {

using namespace hx::ui;
using hx_test::TestDialog;
using hx_test::TestFrame;
using Reason = DialogError::Reason;

constexpr uint32_t kVisible = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr uint32_t kOne = 1;
constexpr Rectangle kFrame = {0, 0, 400, 300};

hx::DialogControl Line(const wchar_t* window_class, uint32_t id, uint32_t style = 0) {
    return {window_class, L"text", id, {4, 8, 40, 16}, kVisible | style, 0};
}

hx::ModuleHandle ModuleOf(std::vector<hx::DialogControl> controls, uint32_t style = WS_CHILD) {
    hx::Resources resources;
    resources.dialogs[kOne] = {L"caption", {0, 0, 200, 100}, style, 0, 8, L"font", std::move(controls)};
    return hx::MakeResourceModule(L"/test/module_de-DE.dll", std::move(resources));
}

class DialogOfTemplate : public testing::Test {
protected:
    DialogOfTemplate() {
        SetRenderer(renderer);
        frame.Create(WindowKind::frame, nullptr, kFrame);
    }

    const std::shared_ptr<HeadlessRenderer> renderer = HeadlessRenderer::Make();
    TestFrame frame;
};

TEST_F(DialogOfTemplate, AnUnusableTemplateIsLocatedAndLeavesNothingBehind) {
    struct Case {
        const wchar_t* name;
        uint32_t dialog;
        uint32_t id;
        std::vector<hx::DialogControl> controls;
    };
    const Case cases[] = {
        {L"no_template", 2, 0, {}},
        {L"unknown_kind", kOne, 5, {Line(L"Edit", 7), Line(L"ScrollBar", 5)}},
        {L"unknown_kind", kOne, 6, {Line(L"Edit", 7), Line(L"Button", 6, 0x04)}},
        {L"missing_control", kOne, 7, {Line(L"Static", 5)}},
        {L"wrong_kind", kOne, 7, {Line(L"Button", 5), Line(L"ComboBox", 7)}},
        {L"repeated_control", kOne, 5, {Line(L"Edit", 7), Line(L"Static", 5), Line(L"Static", 5)}},
        {L"component_failed",
         kOne,
         5,
         {Line(L"Edit", 7), Line(L"{00000000-0000-0000-0000-00000000BAD0}", 5)}},
        {L"component_failed", kOne, 5, {Line(L"Edit", 7), Line(L"No.Such.Component", 5)}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(hx::ToUtf8(row.name));
        Edit edit;
        TestDialog dialog;
        bool initialised = false;
        dialog.on_init = [&] { initialised = true; };
        dialog.Bind(7, edit);
        const std::optional<DialogError> error = dialog.Create(ModuleOf(row.controls), row.dialog, &frame);
        ASSERT_TRUE(error);
        EXPECT_STREQ(DialogError::NameOf(error->reason), row.name);
        EXPECT_EQ(error->control_id, row.id);
        EXPECT_EQ(error->dialog_id, row.dialog);
        EXPECT_EQ(error->module_file_name, L"/test/module_de-DE.dll");
        EXPECT_EQ(error->result < 0, error->reason == Reason::component_failed);
        EXPECT_FALSE(initialised || dialog.IsCreated());
        EXPECT_TRUE(dialog.Controls().empty());
        EXPECT_TRUE(frame.Children().empty());
        EXPECT_EQ(edit.Parent(), nullptr);
        edit.SetText(L"alone");
        EXPECT_TRUE(dialog.TakeEvents().empty());
        EXPECT_EQ(dialog.RunModal(ModuleOf(row.controls), row.dialog, &frame), -1);
        EXPECT_STREQ(DialogError::NameOf(dialog.create_error.reason), row.name);
        // It can be made of a better one.
        EXPECT_FALSE(dialog.Create(ModuleOf({Line(L"Edit", 7)}), kOne, &frame));
        EXPECT_EQ(edit.Parent(), &dialog);
    }
}

TEST_F(DialogOfTemplate, WithoutARendererOrAParentThereIsNoDialog) {
    TestDialog dialog;
    TestFrame never_created;
    EXPECT_EQ(dialog.Create(ModuleOf({}), kOne, &never_created)->reason, Reason::no_window);
    EXPECT_EQ(dialog.Create(nullptr, kOne, &frame)->reason, Reason::no_template);
    frame.Destroy();
    SetRenderer(nullptr);
    EXPECT_EQ(dialog.Create(ModuleOf({}), kOne, nullptr)->reason, Reason::no_window);
}

TEST_F(DialogOfTemplate, ControlsAreWhatAndWhereTheTemplateSays) {
    struct Case {
        hx::DialogControl line;
        ControlKind kind;
    };
    const Case cases[] = {{Line(L"Static", 1), ControlKind::static_text},
                          {Line(L"Button", 2, BS_GROUPBOX), ControlKind::static_text},
                          {Line(L"Button", 3), ControlKind::button},
                          {Line(L"Button", 4, BS_DEFPUSHBUTTON), ControlKind::button},
                          {Line(L"Button", 5, BS_AUTOCHECKBOX), ControlKind::check_box},
                          {Line(L"Edit", 6, WS_DISABLED), ControlKind::edit},
                          {Line(L"ComboBox", 7), ControlKind::combo_box},
                          {Line(L"ListBox", 8), ControlKind::list_box},
                          {Line(L"msctls_trackbar32", 9), ControlKind::track_bar}};
    std::vector<hx::DialogControl> lines;
    for (const Case& row : cases) lines.push_back(row.line);
    lines.push_back(Line(L"Static", hx::kNoControlId));
    lines.push_back(Line(L"Static", hx::kNoControlId));
    TestDialog dialog;
    ASSERT_FALSE(dialog.Create(ModuleOf(lines, WS_CHILD | WS_VISIBLE), kOne, &frame));
    for (const Case& row : cases) {
        ASSERT_TRUE(dialog.Find(row.line.id)) << row.line.id;
        EXPECT_EQ(dialog.Find(row.line.id)->Kind(), row.kind) << row.line.id;
        EXPECT_EQ(dialog.Find(row.line.id)->Bounds(), (Rectangle{6, 13, 66, 39}));
    }
    EXPECT_EQ(dialog.TemplateSize(), (Size{300, 163}));
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_EQ(dialog.DefaultButton(), dialog.Find(4));
    EXPECT_FALSE(dialog.Find(6)->IsEnabled());
    EXPECT_TRUE(dialog.FindAs<StaticText>(2)->IsGroup());
}

TEST_F(DialogOfTemplate, AControlIsNamedByWhatWasSetItsTextOrItsLabel) {
    hx::DialogControl label = Line(L"Static", hx::kNoControlId);
    label.text = L"&Power && more";
    TestDialog dialog;
    ASSERT_FALSE(
        dialog.Create(ModuleOf({label, Line(L"msctls_trackbar32", 1), Line(L"Edit", 2), Line(L"Button", 3)}),
                      kOne, &frame));
    EXPECT_EQ(dialog.LabelOf(*dialog.Find(2)), dialog.Controls()[0]);
    EXPECT_EQ(dialog.Find(1)->AccessibleName(), L"Power & more");
    EXPECT_EQ(dialog.Find(2)->AccessibleName(), L"Power & more");
    EXPECT_EQ(dialog.Find(3)->AccessibleName(), L"text");
    dialog.Find(2)->SetAccessibleName(L"Power in percent");
    EXPECT_EQ(dialog.Find(2)->AccessibleName(), L"Power in percent");
}

TEST_F(DialogOfTemplate, EdgesFollowTheSizeByTheirShare) {
    struct Case {
        AnchorRule rule;
        Rectangle bounds;
    };
    const Case cases[] = {
        {{1, 0, 0, 0, 0}, {6, 13, 66, 39}},        {{1, 0, 0, 1, 1}, {6, 13, 166, 89}},
        {{1, 1, 1, 1, 1}, {106, 63, 166, 89}},     {{1, 0, 0, 0, 1}, {6, 13, 66, 89}},
        {{1, 0.33, 1, 0.33, 1}, {39, 63, 99, 89}}, {{1, 0.66, 1, 0.66, 1}, {72, 63, 132, 89}},
        {{1, 0.5, 0, 1, 0.25}, {56, 13, 166, 52}}};
    for (const Case& row : cases) {
        TestDialog dialog;
        ASSERT_FALSE(dialog.Create(ModuleOf({Line(L"Edit", 1), Line(L"Static", 2)}), kOne, &frame));
        dialog.SetAnchors({row.rule});
        dialog.UserMoved({0, 0, 400, 213});
        EXPECT_EQ(dialog.Find(1)->Bounds(), row.bounds);
        EXPECT_EQ(dialog.Find(2)->Bounds(), (Rectangle{6, 13, 66, 39}));
        // Below the template's size nothing is laid out, in either direction by itself.
        dialog.Move({0, 0, 10, 213});
        EXPECT_EQ(dialog.Find(1)->Bounds().right, 66);
        EXPECT_EQ(dialog.Find(1)->Bounds().bottom, row.bounds.bottom);
    }
}

TEST(DialogUnits, AreRoundedHalvesAwayFromZero) {
    struct Case {
        hx::DialogRectangle units;
        Size letter;
        Rectangle pixels;
    };
    constexpr int32_t kFar = 1 << 24;
    const Case cases[] = {{{0, 0, 4, 8}, {6, 13}, {0, 0, 6, 13}},
                          {{1, 1, 3, 4}, {6, 13}, {2, 2, 7, 9}},
                          {{-1, -4, 1, 4}, {6, 13}, {-2, -7, 0, 0}},
                          {{7, 14, 260, 65}, {7, 15}, {12, 26, 467, 148}},
                          {{INT32_MAX, INT32_MIN, INT32_MAX, 0}, {6, 13}, {kFar, -kFar, 2 * kFar, -kFar}}};
    for (const Case& row : cases) EXPECT_EQ(PixelsOf(row.units, row.letter), row.pixels) << row.units.x;
}

// A component that is not needed for its dialog.
class Placeholder final : public Control {
public:
    Placeholder() : Control(ControlKind::component) {}
};

class AnyDialog final : public Dialog {
public:
    AnyDialog() = default;
    ~AnyDialog() override { Destroy(); }

protected:
    std::unique_ptr<Control> MakeControl(const hx::DialogControl& line) override {
        return line.window_class.starts_with(L'{') ? std::make_unique<Placeholder>() : nullptr;
    }
};

TEST_F(DialogOfTemplate, EveryDialogOfEveryLanguageIsMade) {
    for (const hx_test::Script& script : hx_test::Scripts()) {
        const hx::ModuleHandle module = hx::MakeResourceModule({}, script.resources);
        for (const auto& [id, dialog_template] : script.resources.dialogs) {
            SCOPED_TRACE(script.tag + ", dialog " + std::to_string(id));
            AnyDialog dialog;
            const std::optional<DialogError> error = dialog.Create(module, id, &frame);
            ASSERT_FALSE(error) << hx::ToUtf8(DialogError::NameOf(error->reason)) << error->control_id;
            EXPECT_EQ(dialog.Controls().size(), dialog_template.controls.size());
            EXPECT_EQ(dialog.Caption(), dialog_template.caption);
        }
    }
}

}  // namespace
