// What a program is told of its machine: folders, time, system, threads.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <thread>

#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "platform/system/system_description.h"
#include "platform/system/thread_id.h"
#include "platform/system/user_date.h"
#include "tests/platform/temporary_folder.h"

namespace {

using hx::SpecialFolder;

struct Variable {
    const char* name;
    const char* value;  // null: not set
};

constexpr uid_t kRoot = 0;
constexpr uid_t kNobody = 65534;

// What a process of that user finds with these variables. The user nobody may write in none of the machine's
// folders.
void ExpectFolder(const std::vector<Variable>& variables, SpecialFolder folder, const wchar_t* expected,
                  uid_t user = kNobody) {
    const pid_t child = fork();
    if (child == 0) {
        if (getuid() == kRoot && setuid(user) != 0) _exit(2);
        for (const char* name : {"HX_DATA", "HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"}) unsetenv(name);
        for (const Variable& variable : variables) setenv(variable.name, variable.value, 1);
        std::wstring path;
        _exit(hx::FindSpecialFolder(folder, path) == S_OK && path == expected ? 0 : 1);
    }
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << testing::PrintToString(std::wstring(expected));
}

TEST(Machine, DataLieWhereTheProcessMayWrite) {
    constexpr SpecialFolder kAllUsers = SpecialFolder::kAllUsersData;
    constexpr SpecialFolder kUser = SpecialFolder::kUserData;
    ExpectFolder({{"HX_DATA", "/data"}, {"XDG_STATE_HOME", "/state"}}, kAllUsers, L"/data");
    ExpectFolder({{"HX_DATA", "/a//b/../c"}}, kAllUsers, L"/a/c");
    ExpectFolder({{"HX_DATA", "/data/"}}, kAllUsers, L"/data");
    ExpectFolder({{"HX_DATA", "/"}}, kAllUsers, L"/");
    ExpectFolder({{"HX_DATA", ""}, {"XDG_STATE_HOME", "/state"}, {"HOME", "/me"}}, kAllUsers, L"/state");
    ExpectFolder({{"XDG_STATE_HOME", "relative"}, {"HOME", "/me"}}, kAllUsers, L"/me/.local/state");
    ExpectFolder({{"HX_DATA", "/data"}, {"XDG_DATA_HOME", "/mine"}}, kUser, L"/mine");
    ExpectFolder({{"HOME", "/me"}}, kUser, L"/me/.local/share");
    if (getuid() == kRoot) ExpectFolder({{"XDG_STATE_HOME", "/state"}}, kAllUsers, L"/var/lib", kRoot);
}

TEST(Machine, LocalTimeFollowsTheZone) {
    setenv("TZ", "XYZ-5:30", 1);
    tzset();
    struct Row {
        int64_t wall;
        int32_t parts[6];
    };
    const Row rows[] = {
        {0, {1970, 1, 1, 5, 30, 0}},
        {1'706'745'599'999'999, {2024, 2, 1, 5, 29, 59}},
        {-1, {1970, 1, 1, 5, 29, 59}},
        {951'782'400'000'000, {2000, 2, 29, 5, 30, 0}},
        {INT64_MAX, {294247, 1, 10, 9, 30, 54}},
    };
    for (const Row& row : rows) {
        const hx::LocalTime time = hx::ToLocalTime(row.wall);
        const int32_t parts[] = {time.year, time.month, time.day, time.hour, time.minute, time.second};
        EXPECT_TRUE(std::equal(std::begin(parts), std::end(parts), row.parts)) << row.wall;
    }
    unsetenv("TZ");
    tzset();
}

// For people: never those of the machine's time zone or another calendar.
TEST(Machine, DatesAreShownAsTheUserHasThem) {
    const struct {
        const char* all;
        const char* time;
        const char* language;
        hx::GregorianDate date;
        const wchar_t* shown;  // null: nothing
    } rows[] = {
        {nullptr, nullptr, "de_DE.UTF-8@euro", {2024, 1, 31}, L"31.01.24"},
        {nullptr, "en_US.UTF-8", "de_DE", {2024, 1, 31}, L"1/31/24"},
        {"ja_JP.UTF-8", "en_US", "de_DE", {2024, 1, 31}, L"2024/01/31"},
        {"", "", "fr_FR", {2024, 1, 31}, L"31/01/2024"},
        {"th_TH", nullptr, nullptr, {2024, 1, 31}, L"31/1/24"},
        {"de_ZZ9", nullptr, nullptr, {2024, 1, 31}, L"31.01.24"},
        {"qq_QQ", nullptr, "de_DE", {2024, 1, 31}, L"2024-01-31"},
        {"POSIX", nullptr, "de_DE", {2024, 1, 31}, L"2024-01-31"},
        {nullptr, nullptr, nullptr, {100, 3, 1}, L"0100-03-01"},
        {"C.UTF-8", nullptr, nullptr, {9999, 12, 31}, L"9999-12-31"},
        {"fr_FR", nullptr, nullptr, {1582, 10, 10}, L"10/10/1582"},
        {"fr_FR", nullptr, nullptr, {100, 1, 1}, L"01/01/100"},
        {"C", nullptr, nullptr, {2000, 2, 29}, L"2000-02-29"},
        {"C", nullptr, nullptr, {1900, 2, 29}, nullptr},
        {"C", nullptr, nullptr, {1500, 2, 29}, nullptr},
        {"C", nullptr, nullptr, {2023, 2, 29}, nullptr},
        {"C", nullptr, nullptr, {2024, 4, 31}, nullptr},
        {"C", nullptr, nullptr, {2024, 13, 1}, nullptr},
        {"C", nullptr, nullptr, {2024, 0, 1}, nullptr},
        {"C", nullptr, nullptr, {2024, 1, 0}, nullptr},
        {"C", nullptr, nullptr, {99, 12, 31}, nullptr},
        {"C", nullptr, nullptr, {10000, 1, 1}, nullptr},
        {"C", nullptr, nullptr, {0, 0, 0}, nullptr},
    };
    for (const auto& row : rows) {
        const std::pair<const char*, const char*> variables[] = {
            {"LC_ALL", row.all}, {"LC_TIME", row.time}, {"LANG", row.language}};
        for (const auto& [name, value] : variables) value ? setenv(name, value, 1) : unsetenv(name);
        const std::optional<std::wstring> shown = hx::FormatShortDate(row.date);
        EXPECT_EQ(shown.has_value(), row.shown != nullptr) << row.date.year << "-" << row.date.month;
        EXPECT_EQ(shown.value_or(L""), row.shown ? row.shown : L"") << hx::UserDateLocale();
    }
    for (const char* const name : {"LC_ALL", "LC_TIME", "LANG"}) unsetenv(name);
}

TEST(Machine, TheSystemDescribesItselfAsFarAsItKnows) {
    const TemporaryFolder root;
    EXPECT_EQ(hx::DescribeSystem(root.path()).product, L"Unknown");
    std::filesystem::create_directories(root.path() / "usr/lib");
    std::filesystem::create_directory(root.path() / "etc");
    root.Write("usr/lib/os-release", "# NAME=no\nNAME=\"A \\\"B\\\" \xC3\xA4\"\nVERSION='1 (x)'\n");
    hx::SystemDescription system = hx::DescribeSystem(root.path());
    EXPECT_EQ(system.product, L"A \"B\" \u00E4");
    EXPECT_EQ(system.version, L"1 (x)");
    EXPECT_FALSE(system.service_pack.empty() || system.architecture.empty());
    EXPECT_GT(std::stoi(system.processors), 0);
    root.Write("etc/os-release", "VERSION_ID=12\nNAME=\nVERSION=\xFF");
    system = hx::DescribeSystem(root.path());
    EXPECT_EQ(system.product, L"Unknown");
    EXPECT_EQ(system.version, L"Unknown");
}

TEST(Machine, ThreadsHaveNumbersOfTheirOwn) {
    EXPECT_EQ(hx::ThisThreadId(), static_cast<uint32_t>(getpid())) << "the first thread";
    uint32_t other = 0;
    std::thread([&] { other = hx::ThisThreadId(); }).join();
    EXPECT_NE(other, hx::ThisThreadId());
}

}  // namespace
