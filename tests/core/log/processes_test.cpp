// Many processes and threads append to one log: no line is lost, torn or doubled.
#include <sys/wait.h>
#include <unistd.h>

#include <set>
#include <sstream>
#include <thread>

#include "tests/core/log/log_fixture.h"

namespace {

constexpr int kProcesses = 4;
constexpr int kThreads = 4;
constexpr int kRecords = 250;

// Of different lengths, so that records meet pages and blocks at all places.
std::wstring Message(int process, int thread, int record) {
    const std::wstring name =
        std::to_wstring(process) + L"." + std::to_wstring(thread) + L"." + std::to_wstring(record);
    return name + L" " + std::wstring(static_cast<size_t>(record * 37 % 2000), L'\u00E4') + L" " + name;
}

class Processes : public LogTest {
protected:
    [[noreturn]] void RunProcess(int process) {
        hx::MLogger& logger = Start();
        std::vector<std::thread> threads;
        for (int thread = 0; thread < kThreads; ++thread) {
            threads.emplace_back([&logger, process, thread] {
                for (int i = 0; i < kRecords; ++i) LogError(logger, Message(process, thread, i));
            });
        }
        for (std::thread& thread : threads) thread.join();
        _exit(0);
    }
};

TEST_F(Processes, AppendToOneFileWithoutHarm) {
    Configure({{L"ClearLogFileUponStart", 0u}});
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = fork();
        if (child == 0) RunProcess(process);
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }

    std::multiset<std::string> expected;
    for (int process = 0; process < kProcesses; ++process) {
        for (int thread = 0; thread < kThreads; ++thread) {
            for (int i = 0; i < kRecords; ++i) expected.insert(hx::ToUtf8(Message(process, thread, i)));
        }
    }
    const std::string record_start = std::string(kTime) +
                                     "\n\t[Level]\t\t=\tError\n\t[File]\t\t=\tSource\n\t[Line]\t\t=\t28\n"
                                     "\t[Location]\t=\tClass::Method\n\t[Message]\t=\t";
    std::string_view text;
    const std::string bytes = Text("Mod.log");
    text = bytes;
    int headers = 0;
    while (!text.empty()) {
        if (text.starts_with("*** ")) {
            ++headers;
            for (int line = 0; line < 4; ++line) text.remove_prefix(text.find('\n') + 1);
            continue;
        }
        ASSERT_TRUE(text.starts_with(record_start)) << text.substr(0, 300);
        text.remove_prefix(record_start.size());
        const auto message = expected.find(std::string(text.substr(0, text.find('\n'))));
        ASSERT_NE(message, expected.end()) << "torn or doubled: " << text.substr(0, 300);
        text.remove_prefix(message->size() + 1);
        expected.erase(message);
    }
    EXPECT_EQ(headers, kProcesses);
    EXPECT_TRUE(expected.empty()) << expected.size() << " records lost";
}

}  // namespace
