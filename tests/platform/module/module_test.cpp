#include "platform/module/module.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>
#include <vector>

#include "platform/system/utf8.h"
#include "tests/platform/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

std::wstring Wide(const fs::path& path) {
    return *hx::FromUtf8(path.native());
}

TEST(Modules, AreLoadedOncePerFileNameForAsLongAsSomebodyHoldsThem) {
    const TemporaryFolder folder;
    const std::wstring name = Wide(folder.Write("x_de-DE.dll", "STRINGTABLE { 7 \"sieben\" }"));
    hx::ModuleError error{193, {}};
    hx::ModuleHandle first = hx::LoadResourceModule(name, error);
    ASSERT_TRUE(first);
    EXPECT_EQ(error.code, 0u);
    EXPECT_EQ(first->FileName(), name);
    ASSERT_TRUE(first->String(7));
    EXPECT_EQ(*first->String(7), L"sieben");
    EXPECT_EQ(first->String(8), nullptr);

    folder.Write("x_de-DE.dll", "STRINGTABLE { 7 \"changed\" }");
    EXPECT_EQ(hx::LoadResourceModule(name, error), first);
    EXPECT_EQ(hx::LoadedResourceModule(name), first);
    first.reset();
    EXPECT_EQ(hx::LoadedResourceModule(name), nullptr);
    first = hx::LoadResourceModule(name, error);
    EXPECT_EQ(*first->String(7), L"changed");
}

TEST(Modules, CountRelativeNamesFromTheCurrentFolder) {
    const TemporaryFolder folder;
    folder.Write("x.dll", "STRINGTABLE { 1 \"a\" }");
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    hx::ModuleError error;
    const hx::ModuleHandle module = hx::LoadResourceModule(L"x.dll", error);
    fs::current_path(before);
    ASSERT_TRUE(module);
    EXPECT_EQ(module->FileName(), Wide(folder.path() / "x.dll"));
    EXPECT_EQ(hx::LoadedResourceModule(module->FileName()), module);
}

TEST(Modules, AnEnteredOneReplacesTheOneBefore) {
    const std::wstring name = L"/nowhere/HXScannerCtrls.so";
    hx::ModuleHandle one = hx::MakeResourceModule(name, {});
    const hx::ModuleHandle other = hx::MakeResourceModule(name, {});
    hx::EnterResourceModule(one);
    hx::ModuleError error;
    EXPECT_EQ(hx::LoadResourceModule(name, error), one) << "no file is asked for";
    hx::EnterResourceModule(other);
    one.reset();
    EXPECT_EQ(hx::LoadedResourceModule(name), other) << "the end of the first leaves the second";
}

TEST(Modules, SayWhyTheyCannotBeLoaded) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "folder");
    ASSERT_EQ(mkfifo((folder.path() / "fifo").c_str(), 0600), 0);
    folder.Write("large", "");
    fs::resize_file(folder.path() / "large", 16 * 1024 * 1024 + 1);
    folder.Write("good", "STRINGTABLE { 1 \"a\" }");
    const std::wstring good = Wide(folder.path() / "good");
    const struct {
        std::wstring file_name;
        uint32_t code;
        uint32_t line;
        std::wstring text;
    } rows[] = {
        {L"", 126, 0, L""},
        {Wide(folder.path() / "missing"), 126, 0, L""},
        {Wide(folder.path() / "folder"), 126, 0, L""},
        {Wide(folder.path() / "fifo"), 126, 0, L""},
        {good + L"/", 126, 0, L""},
        {good + std::wstring(L"\0.dll", 5), 126, 0, L""},
        {Wide(folder.path() / std::string(5000, 'x')), 126, 0, L""},
        {L"/dev/zero", 126, 0, L""},
        {Wide(folder.path() / "large"), 193, 0, L"the file is larger than 16 MB"},
        {Wide(folder.Write("empty", "")), 193, 0, L"the file holds no resources"},
        {Wide(folder.Write("latin", "// one\n// \xE4\n")), 193, 2, L"the text is not UTF-8"},
        {Wide(folder.Write("library",
                           "\x7F"
                           "ELF")),
         193, 1, L"the character U+007F has no meaning here"},
        {Wide(folder.Write("cut", "STRINGTABLE\r\n{\r\n1 \"a\"\r\n2 \"b")), 193, 4,
         L"a text has no closing quote in its line"},
    };
    for (const auto& row : rows) {
        hx::ModuleError error{1, {99, L"old"}};
        EXPECT_EQ(hx::LoadResourceModule(row.file_name, error), nullptr) << &row - rows;
        EXPECT_EQ(error.code, row.code) << &row - rows;
        EXPECT_EQ(error.resources.line, row.line) << &row - rows;
        EXPECT_EQ(error.resources.text, row.text) << &row - rows;
        EXPECT_EQ(hx::LoadedResourceModule(row.file_name), nullptr) << &row - rows;
    }
}

TEST(Modules, ManyThreadsGetTheSameOne) {
    const TemporaryFolder folder;
    const std::wstring name = Wide(folder.Write("x.dll", "STRINGTABLE { 1 \"a\" }"));
    for (int round = 0; round < 50; ++round) {
        constexpr size_t kThreads = 8;
        std::vector<hx::ModuleHandle> modules(kThreads);
        std::atomic<size_t> ready{0};
        std::vector<std::thread> threads;
        for (hx::ModuleHandle& module : modules) {
            threads.emplace_back([&] {
                for (++ready; ready != kThreads;) std::this_thread::yield();
                hx::ModuleError error;
                module = hx::LoadResourceModule(name, error);
            });
        }
        for (std::thread& thread : threads) thread.join();
        ASSERT_TRUE(modules.front());
        for (const hx::ModuleHandle& module : modules) EXPECT_EQ(module, modules.front());
    }
    EXPECT_EQ(hx::LoadedResourceModule(name), nullptr);
}

}  // namespace
