// What a person does at the machine, by the toolkit's own events and loops.
#include <QAccessible>
#include <QApplication>
#include <QEventLoop>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <thread>
#include <vector>

#include "platform/ui/codes.h"
#include "platform/ui/load_renderer.h"
#include "platform/ui/services.h"
#include "tests/platform/ui/qt/screen.h"

namespace {

using hx_test::Page;

constexpr uint32_t kPage = 1;
constexpr uint32_t kPrompt = 2;
constexpr uint32_t kName = 10;
constexpr uint32_t kBar = 11;
constexpr uint32_t kChoice = 12;
constexpr uint32_t kList = 13;
constexpr uint32_t kPush = 14;
constexpr uint32_t kCheck = 15;
constexpr uint32_t kValue = 16;  // text
constexpr uint32_t kGroup = 20;
constexpr wchar_t kScript[] =
    LR"(
1 DIALOGEX 0, 0, 200, 120
STYLE WS_CHILD
FONT 8, "MS Shell Dlg"
BEGIN
    LTEXT "&Name", -1, 4, 4, 60, 8
    EDITTEXT 10, 4, 14, 80, 12
    LTEXT "&Value", 16, 4, 30, 60, 8
    CONTROL "", 11, "msctls_trackbar32", WS_TABSTOP, 4, 40, 100, 15
    LTEXT "&Choice", -1, 4, 60, 60, 8
    COMBOBOX 12, 4, 70, 60, 60, CBS_DROPDOWNLIST | WS_TABSTOP
    GROUPBOX "&List", 20, 110, 0, 80, 100
    LISTBOX 13, 114, 10, 70, 80, LBS_OWNERDRAWFIXED | WS_TABSTOP
    PUSHBUTTON "&Push", 14, 4, 100, 50, 14
    AUTOCHECKBOX "Check", 15, 60, 100, 40, 10, WS_TABSTOP
END
2 DIALOGEX 0, 0, 100, 40
STYLE WS_POPUP | WS_CAPTION
CAPTION "Prompt"
FONT 8, "MS Shell Dlg"
BEGIN
    DEFPUSHBUTTON "OK", 1, 4, 4, 40, 14
    PUSHBUTTON "Cancel", 2, 50, 4, 40, 14
END
)";

hx::ModuleHandle Module() {
    hx::ResourceError error;
    auto resources = hx::ReadResourceScript(kScript, error);
    if (!resources) throw std::runtime_error("line " + std::to_string(error.line));
    return hx::MakeResourceModule(L"", std::move(*resources));
}

class RecordingPage final : public hx_test::Page {
public:
    ~RecordingPage() override { Destroy(); }

    struct Told {
        uint32_t control;
        uint32_t code;
        int32_t position;
        bool operator==(const Told&) const = default;
    };
    std::vector<Told> told;
    std::vector<uint32_t> messages;
    std::function<void(uint32_t)> on_message;
    std::function<void()> on_command;  // may destroy this page

private:
    void OnCommand(hx::ui::Control& control, uint32_t code) override {
        if (code < EN_SETFOCUS) told.push_back({control.Id(), code, 0});
        if (const auto handler = on_command) handler();
    }
    void OnScroll(hx::ui::TrackBar& track_bar, uint32_t code, int32_t position) override {
        told.push_back({track_bar.Id(), code, position});
        if (const auto handler = on_command) handler();
    }
    void OnMessage(const hx::WindowMessage& message) override {
        messages.push_back(message.id);
        if (on_message) on_message(message.id);
    }
};

class QtPerson : public hx_test::QtTest {
protected:
    QtPerson() {
        Show(m_page, m_module, kPage);
        for (const wchar_t* const item : {L"one", L"two", L"three"}) {
            m_page.FindAs<hx::ui::ComboBox>(kChoice)->Add(item);
            m_page.FindAs<hx::ui::ListBox>(kList)->Insert(-1, item);
        }
    }
    ~QtPerson() override { m_page.Destroy(); }

    QWidget& Widget(uint32_t control) const { return WidgetOf(m_page, control); }
    static void Mouse(QWidget& widget, QEvent::Type type, QPoint where) {
        const bool up = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, where, widget.mapToGlobal(where), Qt::LeftButton,
                          up ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
    static void Press(QWidget& widget, Qt::Key key) {
        const bool is_letter = key >= Qt::Key_A && key <= Qt::Key_Z;
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, is_letter ? QString(QChar(key)) : QString());
        QCoreApplication::sendEvent(&widget, &event);
    }
    // Once a loop of events runs.
    static void Later(std::function<void()> what) { QTimer::singleShot(0, qApp, std::move(what)); }

    const hx::ModuleHandle m_module = Module();
    RecordingPage m_page;
};

TEST_F(QtPerson, WheelOverAControlWithoutFocusIsTheParents) {
    auto& combo_box = *m_page.FindAs<hx::ui::ComboBox>(kChoice);
    for (const uint32_t id : {kBar, kChoice}) {
        QWidget& widget = Widget(id);
        m_page.SetFocus(m_page.Find(kName));
        for (const bool focused : {false, true}) {
            if (focused) m_page.SetFocus(m_page.Find(id));
            m_page.told.clear();
            const QPoint at = widget.rect().center();
            QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&widget, &event);
            m_renderer->Pump();
            EXPECT_EQ(m_page.told.empty(), !focused) << id;
        }
    }
    EXPECT_EQ(combo_box.Selected(), 0);
}

TEST_F(QtPerson, MouseMovesAThumbByTracksAndPages) {
    using Told = RecordingPage::Told;
    auto& bar = static_cast<QSlider&>(Widget(kBar));
    const int middle = bar.height() / 2;
    Mouse(bar, QEvent::MouseButtonPress, {4, middle});
    Mouse(bar, QEvent::MouseMove, {bar.width() * 3, middle});
    m_renderer->Pump();
    EXPECT_EQ(m_page.told, (std::vector<Told>{{kBar, TB_THUMBTRACK, 100}}));
    Mouse(bar, QEvent::MouseButtonRelease, {bar.width() * 3, middle});
    Mouse(bar, QEvent::MouseButtonPress, {4, middle});
    Mouse(bar, QEvent::MouseButtonRelease, {4, middle});
    EXPECT_EQ(m_page.told, (std::vector<Told>{{kBar, TB_THUMBTRACK, 100},
                                              {kBar, TB_THUMBPOSITION, 100},
                                              {kBar, TB_ENDTRACK, 100},
                                              {kBar, TB_PAGEUP, 80},
                                              {kBar, TB_ENDTRACK, 80}}));
    EXPECT_EQ(bar.value(), 80);
}

// The dialog is busy with the first of each row while the others come.
TEST_F(QtPerson, WhatMovesATrackBarMeanwhileIsToldAtOnce) {
    using Told = RecordingPage::Told;
    auto& bar = static_cast<QSlider&>(Widget(kBar));
    m_page.SetFocus(m_page.Find(kBar));
    const auto post = [&bar](QEvent* event) { QCoreApplication::postEvent(&bar, event); };
    const auto mouse = [&](QEvent::Type type, int x) {
        const bool up = type == QEvent::MouseButtonRelease;
        const QPoint at(x, bar.height() / 2);
        post(new QMouseEvent(type, at, bar.mapToGlobal(at),
                             type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                             up ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier));
    };
    const auto key = [&](QEvent::Type type, Qt::Key which, bool repeated) {
        post(new QKeyEvent(type, which, Qt::NoModifier, QString(), repeated));
    };
    const auto wheel = [&](int notches) {
        post(new QWheelEvent({4, 4}, bar.mapToGlobal(QPoint(4, 4)), {}, {0, notches * 120}, Qt::NoButton,
                             Qt::NoModifier, Qt::NoScrollPhase, false));
    };
    const int far = bar.width() * 3;
    struct Case {
        std::function<void()> first;
        std::function<void()> meanwhile;
        std::vector<Told> told;
    };
    const Case cases[] = {
        {[&] { mouse(QEvent::MouseButtonPress, 4), mouse(QEvent::MouseMove, far); },
         [&] {
             for (int x = 20; x < 60; ++x) mouse(QEvent::MouseMove, x);
             mouse(QEvent::MouseMove, -far);
             key(QEvent::KeyPress, Qt::Key_Right, false);
             for (int x = 20; x < 60; ++x) mouse(QEvent::MouseMove, x);
             mouse(QEvent::MouseMove, far);
             mouse(QEvent::MouseButtonRelease, far);
         },
         {{kBar, TB_THUMBTRACK, 100},
          {kBar, TB_THUMBTRACK, 0},
          {kBar, TB_LINEDOWN, 1},
          {kBar, TB_THUMBTRACK, 100},
          {kBar, TB_THUMBPOSITION, 100},
          {kBar, TB_ENDTRACK, 100}}},
        {[&] { key(QEvent::KeyPress, Qt::Key_Left, false); },
         [&] {
             for (int i = 0; i < 7; ++i) key(QEvent::KeyPress, Qt::Key_Left, true);
             key(QEvent::KeyRelease, Qt::Key_Left, false);
             key(QEvent::KeyPress, Qt::Key_Right, false);
             for (int i = 0; i < 3; ++i) key(QEvent::KeyPress, Qt::Key_Right, true);
             key(QEvent::KeyRelease, Qt::Key_Right, false);
         },
         {{kBar, TB_LINEUP, 99},
          {kBar, TB_LINEUP, 92},
          {kBar, TB_ENDTRACK, 92},
          {kBar, TB_LINEDOWN, 93},
          {kBar, TB_LINEDOWN, 96},
          {kBar, TB_ENDTRACK, 96}}},
        {[&] { wheel(-1); },
         [&] { wheel(-2), wheel(-1), wheel(1), wheel(2); },
         {{kBar, TB_LINEUP, 95},
          {kBar, TB_ENDTRACK, 95},
          {kBar, TB_LINEUP, 92},
          {kBar, TB_ENDTRACK, 92},
          {kBar, TB_LINEDOWN, 95},
          {kBar, TB_ENDTRACK, 95}}},
    };
    for (const Case& row : cases) {
        m_page.told.clear();
        auto meanwhile = row.meanwhile;
        m_page.on_command = [&] {
            if (const auto input = std::exchange(meanwhile, nullptr)) input();
        };
        row.first();
        // What is posted in the handler comes by the next.
        for (int i = 0; i < 3; ++i) m_renderer->Pump();
        EXPECT_EQ(m_page.told, row.told) << &row - cases;
    }
}

TEST_F(QtPerson, ProgramTellsNobody) {
    m_page.FindAs<hx::ui::TrackBar>(kBar)->SetPosition(70);
    m_page.FindAs<hx::ui::ComboBox>(kChoice)->Select(2);
    m_page.FindAs<hx::ui::ListBox>(kList)->Select(1);
    m_renderer->Pump();
    EXPECT_TRUE(m_page.told.empty());
    auto& list = static_cast<QListView&>(Widget(kList));
    EXPECT_EQ(list.currentIndex().data().toString(), QStringLiteral("two"));
    // What a person wants goes to the list box, and the widget shows what came of it.
    Press(list, Qt::Key_Down);
    EXPECT_EQ(m_page.told, (std::vector<RecordingPage::Told>{{kList, LBN_SELCHANGE, 0}}));
    EXPECT_EQ(list.selectionModel()->selectedIndexes().first().row(), 2);
}

TEST_F(QtPerson, MnemonicsWorkFromWhereverTheFocusIs) {
    m_page.SetFocus(m_page.Find(kName));
    const std::pair<const char*, uint32_t> kRows[] = {
        {"l", kList}, {"v", kBar}, {"c", kChoice}, {"n", kName}, {"P", kPush}};
    for (const auto& [letter, control] : kRows) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, Qt::AltModifier, QString::fromLatin1(letter));
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        EXPECT_EQ(m_page.Focused(), m_page.Find(control)) << letter;
    }
    EXPECT_EQ(m_page.told, (std::vector<RecordingPage::Told>{{kPush, BN_CLICKED, 0}}));
    EXPECT_TRUE(m_page.Find(kName)->Text().empty());
}

TEST_F(QtPerson, ToolTipsAreThereForWhatIsDisabledAndForFrames) {
    const std::pair<const wchar_t*, const char*> kRows[] = {
        {L"a < b & c", "a < b & c"},
        {L"one\ntwo", "one\ntwo"},
        {L"<b>x</b>\ny", "<qt>&lt;b&gt;x&lt;/b&gt;<br>y</qt>"},
        {L"Exposure: 1 to 100% of the longest time.\nConnect the scanner that these settings belong to, "
         L"then try 100\u00A0% again.",
         "Exposure: 1 to 100% of the longest time.\n"
         "Connect the scanner that these settings belong to, then try\n"
         "100\u00A0% again."},
        {L"スキャナーの前にある表面に適した露光を検出します。次にレーザー出力も検出します。",
         "スキャナーの前にある表面に適した露光を検出します。次にレー\nザー出力も検出します。"},
    };
    for (const uint32_t id : {kName, kBar, kChoice, kList, kPush, kCheck, kValue, kGroup}) {
        hx::ui::Control& control = *m_page.Find(id);
        QWidget& widget = Widget(id);
        for (const auto& [text, shown] : kRows) {
            control.Enable(!control.IsEnabled());
            control.SetToolTip(text);
            QToolTip::hideText();
            // As the toolkit finds who is under the mouse.
            const QPoint at = widget.mapTo(&DialogWidget(m_page), QPoint(2, 2));
            QWidget* const under = DialogWidget(m_page).childAt(at);
            QWidget& target = under ? *under : DialogWidget(m_page);
            QHelpEvent event(QEvent::ToolTip, target.mapFrom(&DialogWidget(m_page), at),
                             widget.mapToGlobal(QPoint(2, 2)));
            QCoreApplication::sendEvent(&target, &event);
            EXPECT_EQ(QToolTip::text().toStdString(), shown) << id;
            EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description),
                      QString::fromWCharArray(text));
        }
        control.SetToolTip({});
    }
    QToolTip::hideText();
}

TEST_F(QtPerson, EditKeepsTheFirstLineAndNoMoreThanItTakes) {
    auto& edit = static_cast<QLineEdit&>(Widget(kName));
    User().Paste(*m_page.FindAs<hx::ui::Edit>(kName), L"first\nsecond");
    edit.setCursorPosition(2);
    edit.insert(QStringLiteral("-\r\n-"));
    EXPECT_EQ(m_page.Find(kName)->Text(), L"fi-rst");
    EXPECT_EQ(edit.text(), QStringLiteral("fi-rst"));
    EXPECT_EQ(m_page.FindAs<hx::ui::Edit>(kName)->GetSelection(), (hx::ui::Edit::Selection{3, 3}));
    // Characters of two units each, behind one of a single one.
    User().Paste(*m_page.FindAs<hx::ui::Edit>(kName),
                 L"x" + std::wstring(hx::ui::Edit::kTextLimit, L'\U0001F600'));
    EXPECT_EQ(m_page.Find(kName)->Text(), L"x" + std::wstring(hx::ui::Edit::kTextLimit - 1, L'\U0001F600'));
}

TEST_F(QtPerson, DiscardedMouseInputReachesNobodyAndTheKeyboardsDoes) {
    QWidget& button = Widget(kPush);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QCoreApplication::postEvent(&button, new QMouseEvent(type, {5, 5}, button.mapToGlobal(QPoint(5, 5)),
                                                             Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    }
    QCoreApplication::postEvent(
        &Widget(kName), new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a")));
    hx::PostWindowMessage(m_page.Handle(), {7});
    m_renderer->DiscardMouseMessages();
    EXPECT_TRUE(m_page.messages.empty());
    m_renderer->Pump();
    EXPECT_TRUE(m_page.told.empty());
    EXPECT_EQ(m_page.messages, std::vector<uint32_t>{7});
    EXPECT_EQ(m_page.Find(kName)->Text(), L"a");
}

TEST_F(QtPerson, ModalDialogRunsTheLoopForEverybody) {
    Page prompt;
    // The message that opens it is the first of two: the second one is dispatched while it is open, as is one
    // from another thread.
    int32_t result = 0;
    bool reachable = true;
    m_page.on_message = [&](uint32_t id) {
        if (id == 1) result = prompt.RunModal(m_module, kPrompt, &m_page);
        if (id == 2) std::thread([&] { hx::PostWindowMessage(m_page.Handle(), {3}); }).join();
        if (id != 3) return;
        reachable = User().Click(*m_page.Find(kPush));
        Later([] { Press(*QApplication::activeModalWidget(), Qt::Key_Return); });
    };
    hx::PostWindowMessage(m_page.Handle(), {1});
    hx::PostWindowMessage(m_page.Handle(), {2});
    m_renderer->Pump();
    EXPECT_EQ(m_page.messages, (std::vector<uint32_t>{1, 2, 3}));
    EXPECT_EQ(result, static_cast<int32_t>(IDOK));
    EXPECT_FALSE(reachable);
    EXPECT_FALSE(QApplication::activeModalWidget());

    Later([] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(prompt.RunModal(m_module, kPrompt, &m_page), static_cast<int32_t>(IDCANCEL));
}

TEST_F(QtPerson, LoopOfTheHostsInsideAMessageGetsTheOthers) {
    QEventLoop loop;
    m_page.on_message = [&](uint32_t id) {
        if (id == 1) loop.exec();
        if (id == 3) loop.quit();
    };
    for (const uint32_t id : {1U, 2U, 3U}) hx::PostWindowMessage(m_page.Handle(), {id});
    QCoreApplication::processEvents();
    EXPECT_EQ(m_page.messages, (std::vector<uint32_t>{1, 2, 3}));
}

TEST_F(QtPerson, WhoeverPostsToHimselfHoldsUpNobody) {
    m_page.on_message = [&](uint32_t id) { hx::PostWindowMessage(m_page.Handle(), {id + 1}); };
    hx::PostWindowMessage(m_page.Handle(), {1});
    QCoreApplication::processEvents();
    m_renderer->Pump();
    const size_t before = m_page.messages.size();
    EXPECT_GT(before, 0U);
    QCoreApplication::processEvents();
    EXPECT_GT(m_page.messages.size(), before) << "forgotten";
}

TEST_F(QtPerson, BoxesShowTheirTextAsItIsAndCutWhatNoScreenHolds) {
    const std::pair<std::wstring, bool> kRows[] = {
        {L"<b>50 %</b> & more", false}, {std::wstring(10'000, L'w'), true}, {L"", false}};
    for (const auto& [text, cut] : kRows) {
        bool shown = false;
        Later([&] {
            auto& box = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
            const QString whole = QString::fromStdWString(text);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(cut ? box.detailedText() : box.text(), whole);
            EXPECT_FALSE(box.windowTitle().isEmpty());
            EXPECT_LT(box.width(), 1000);
            shown = true;
            Press(*box.button(QMessageBox::Ok), Qt::Key_Escape);
        });
        hx::ui::ShowMessageBox(&m_page, L"", text, hx::ui::BoxIcon::warning);
        EXPECT_TRUE(shown);
    }
}

// By a box that the page shows when it is told of something: the widget's own event is under the box's loop.
TEST_F(QtPerson, PageGoesWhileABoxIsOpenInItsHandler) {
    const std::pair<uint32_t, std::function<void()>> kRows[] = {
        {kList, [&] { User().ClickRow(*m_page.FindAs<hx::ui::ListBox>(kList), 1); }},
        {kList, [&] { Press(Widget(kList), Qt::Key_Down); }},
        {kBar, [&] { Press(Widget(kBar), Qt::Key_Right); }},
        {kPush, [&] { User().Click(*m_page.Find(kPush)); }},
        {kCheck, [&] { User().Click(*m_page.Find(kCheck)); }},
        {kName, [&] { Press(Widget(kName), Qt::Key_A); }},
        {kChoice, [&] { Press(Widget(kChoice), Qt::Key_Down); }},
        {kName, [&] { Widget(kName).clearFocus(); }},
    };
    for (size_t row = 0; row < std::size(kRows); ++row) {
        const auto& [id, act] = kRows[row];
        if (row > 0) Show(m_page, m_module, kPage);
        m_page.FindAs<hx::ui::ComboBox>(kChoice)->Add(L"one");
        m_page.FindAs<hx::ui::ListBox>(kList)->Insert(-1, L"one");
        m_page.FindAs<hx::ui::ListBox>(kList)->Insert(-1, L"two");
        User().Focus(*m_page.Find(id));
        const QPointer<QWidget> widget = &Widget(id);
        bool there = false;
        m_page.on_command = [&] {
            m_page.on_command = nullptr;
            hx::PostWindowMessage(m_page.Handle(), {1});
            Later([&] {
                // By now the message has been dispatched, and what is to be deleted may be.
                Later([&] {
                    there = widget && !widget->isVisible();
                    QApplication::activeModalWidget()->close();
                });
            });
            hx::ui::ShowMessageBox(&m_frame, L"", L"text", hx::ui::BoxIcon::none);
        };
        m_page.on_message = [&](uint32_t) { m_page.Destroy(); };
        act();
        EXPECT_FALSE(m_page.IsCreated()) << row;
        EXPECT_TRUE(there) << row;
        m_renderer->Pump();
        EXPECT_FALSE(widget) << row;
    }
}

TEST_F(QtPerson, MenuGivesWhatWasChosen) {
    const std::vector<hx::ui::MenuLine> lines = {
        {40, L"&First", false, false}, {0, L"", true, true}, {41, L"&Second", true, false}};
    for (const auto& [key, chosen] : {std::pair(Qt::Key_S, 41U), {Qt::Key_F, 0U}, {Qt::Key_Escape, 0U}}) {
        Later([key = key] {
            Press(*QApplication::activePopupWidget(), key);
            if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
        });
        EXPECT_EQ(hx::ui::RunMenu(m_page, {5, 5}, lines), chosen) << key;
    }
}

TEST(QtWithoutAScreen, IsRefusedWithAReason) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto load = [](const char* variable, const char* value) {
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(name);
        if (variable) setenv(variable, value, 1);
        std::wstring reason;
        const auto renderer = hx::ui::LoadScreenRenderer({}, reason);
        std::exit(!renderer && !reason.empty() ? 0 : 1);
    };
    EXPECT_EXIT(load(nullptr, nullptr), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(load("DISPLAY", ":987654"), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(load("DISPLAY", "localhost:998.0"), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(load("QT_QPA_PLATFORM", "linuxfb"), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(load("QT_QPA_PLATFORM", "xcb"), testing::ExitedWithCode(0), "");
}

}  // namespace
