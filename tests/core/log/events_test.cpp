// The event store and its dump.
#include <sys/stat.h>

#include "core/log/KLogger.h"
#include "platform/system/thread_id.h"
#include "tests/core/log/log_fixture.h"

namespace {

using hx::KLoggerEvent;

class Events : public LogTest {
protected:
    static const std::wstring& Thread() {
        static const std::wstring thread = L" in_thread " + std::to_wstring(hx::ThisThreadId());
        return thread;
    }
    static std::vector<std::wstring> Lines(const hx::KLogger& events) {
        std::vector<std::wstring> lines;
        const std::wstring text = events.DumpText();
        for (size_t start = 0; start < text.size(); start = text.find(L'\n', start) + 1) {
            lines.push_back(text.substr(start, text.find(L'\n', start) - start));
        }
        return lines;
    }
};

TEST_F(Events, ALineHoldsThePartsThatApply) {
    const auto* const object = reinterpret_cast<const void*>(0xAB12);
    const std::wstring long_state(300, L'x');
    struct Row {
        int16_t event;
        hx::KLoggerParts parts;
        std::wstring line;
    };
    const Row rows[] = {
        {-202, {.to = L"Mod"}, L"% Log_module_added to Mod"},
        {-201, {.to = L"Mod"}, L"% Log_module_removed to Mod"},
        {-105,
         {.in_class = "C", .for_object = object, .to_state = L"Bad", .at = "M"},
         L"% Root_error in_class C for_object 0xab12 to state_Bad at M"},
        {-104, {.in_class = "C"}, L"% Cascade_error in_class C"},
        {-103, {.to_state = L"A.B:C\r\nD"}, L"% Dismissed_error to state_A.B:C  D"},
        {-102, {.to_state = long_state}, L"% Return_error to state_" + long_state.substr(0, 200)},
        {-101, {}, L"% Warning"},
        {-25, {.for_object = object, .to_state = L"Bad"}, L"% State_change for_object 0xab12 to state_Bad"},
        {-23, {}, L"% Notify"},
        {-22, {}, L"% Update"},
        {-21, {.to = L"Other"}, L"% Message_send to Other"},
        {-20, {}, L"% Message_receive"},
        {-14, {.in_class = "C2"}, L"% Construction in_class C2"},
        {-13, {}, L"% Destruction"},
        {-8, {.at = "M"}, L"% Scope_pop at M"},
        {-7, {.at = "M"}, L"% Scope_push at M"},
        {-1, {.at = "P"}, L"% Timing_point at_point P"},
        {0, {.at = "P"}, L"% Timing_point at_point P"},
        {1, {.at = "P"}, L"% unknown event at P"},
    };
    hx::KLogger events(m_clock);
    std::vector<std::wstring> expected = {
        L"%% Reference time: 1706745599.123456 is approximately 123ms past 31-01-2024 at 23:59:59",
        L"%% absolute reference timestamp: 5.000007", L"%%"};
    for (const Row& row : rows) {
        m_clock.steady += FakeClock::kSecond + 1;
        m_clock.wall += FakeClock::kSecond;
        events.Add(static_cast<KLoggerEvent>(row.event), row.parts);
        const std::wstring number = std::to_wstring(&row - rows + 1);
        expected.push_back(row.line + Thread() + L"\t" + number + L"." +
                           std::wstring(6 - number.size(), L'0') + number);
    }
    EXPECT_EQ(Lines(events), expected);
}

TEST_F(Events, TimesMayLieBeforeTheReferenceAndClocksMayDisagree) {
    hx::KLogger events(m_clock);
    m_clock.steady -= 2 * FakeClock::kSecond + 3;
    events.Add(KLoggerEvent::kWarning, {});
    EXPECT_EQ(Lines(events)[3], L"% Warning" + Thread() + L"\t-2.000003");
    EXPECT_EQ(Lines(events)[0], L"%% Reference time: 1706745599.123456 is wrong.");
    m_clock.steady = 5 * FakeClock::kSecond;
    m_clock.wall -= FakeClock::kSecond / 2;
    EXPECT_TRUE(Lines(events)[0].ends_with(L"ms past 31-01-2024 at 23:59:59")) << "adjusted, not set";
    m_clock.wall -= 3600 * FakeClock::kSecond;
    EXPECT_TRUE(Lines(events)[0].ends_with(L" is wrong."));
}

TEST_F(Events, TheNewestStayAndNamesBeyondTheTableAreToldApart) {
    hx::KLogger events(m_clock);
    events.AddNames("C", "M");
    events.AddNames("C", "M");
    for (size_t i = 0; i < hx::KLogger::kCapacity + 2; ++i) {
        events.Add(KLoggerEvent::kWarning, {.in_class = "C", .to_state = std::to_wstring(i)});
    }
    events.Add(KLoggerEvent::kWarning, {.to_state = L"3"});
    const std::vector<std::wstring> lines = Lines(events);
    ASSERT_EQ(lines.size(), hx::KLogger::kCapacity + 3);
    const std::wstring end = Thread() + L"\t0.000000";
    EXPECT_EQ(lines[3], L"% Warning in_class C to state_3" + end);
    EXPECT_EQ(lines[4095], L"% Warning in_class C to state_4095" + end);
    EXPECT_EQ(lines[4096], L"% Warning in_class C to state_*OUT OF BOUNDS*" + end);
    EXPECT_EQ(lines.back(), L"% Warning to state_3" + end);
}

TEST_F(Events, TheDumpIsForItsUserAloneAndFollowsNoLink) {
    hx::KLogger events(m_clock);
    events.Add(KLoggerEvent::kWarning, {.to_state = L"\u00E4"});
    const std::string expected = hx::ToUtf8(events.DumpText());

    const std::filesystem::path readable = m_folder.Write("readable", "old, and longer than nothing");
    std::filesystem::create_hard_link(readable, m_folder.path() / "other_name");
    const auto default_file = LogFolder() / "DebugDump.log";
    EXPECT_EQ(hx::KLogger::DefaultDumpFile(), default_file);
    EXPECT_TRUE(events.Dump(readable) && events.Dump());
    for (const auto& file : {readable, default_file}) {
        std::string bytes;
        hx::ReadFile(file, bytes);
        EXPECT_EQ(bytes, expected);
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0600u);
    }

    const std::filesystem::path victim = m_folder.Write("victim", "kept");
    std::filesystem::create_symlink(victim, m_folder.path() / "link");
    std::filesystem::create_symlink("nowhere", m_folder.path() / "dangling");
    ASSERT_EQ(mkfifo((m_folder.path() / "pipe").c_str(), 0600), 0);
    for (const auto& file :
         {m_folder.path() / "link", m_folder.path() / "dangling", m_folder.path() / "pipe", m_folder.path(),
          m_folder.path() / "missing" / "file", std::filesystem::path()}) {
        EXPECT_FALSE(events.Dump(file)) << file;
    }
    for (const char* untouched : {"victim", "other_name"}) {
        std::string bytes;
        hx::ReadFile(m_folder.path() / untouched, bytes);
        EXPECT_NE(bytes, expected) << untouched;
    }
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "nowhere"));
}

}  // namespace
