#include "platform/system/append.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "tests/platform/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& path) {
    std::string bytes;
    EXPECT_FALSE(hx::ReadFile(path, bytes));
    return bytes;
}

TEST(Append, AddsBehindWhatIsThere) {
    const TemporaryFolder folder;
    const fs::path path = folder.path() / "file";
    EXPECT_FALSE(hx::AppendToFile(path, ""));
    EXPECT_EQ(Content(path), "");
    EXPECT_FALSE(hx::AppendToFile(path, "one\n"));
    EXPECT_FALSE(hx::MakeFileIfMissing(path));
    EXPECT_FALSE(hx::AppendToFile(path, "two\n"));
    EXPECT_EQ(Content(path), "one\ntwo\n");
    EXPECT_FALSE(hx::MakeEmptyFile(path));
    EXPECT_EQ(Content(path), "");
    EXPECT_FALSE(hx::DeleteFileAt(path));
    EXPECT_FALSE(fs::exists(path));
}

TEST(Append, FailuresNameThePathAndNeverWait) {
    const TemporaryFolder folder;
    folder.Write("file", "kept");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    struct Row {
        fs::path path;
        std::errc code;
    };
    const Row rows[] = {
        {folder.path() / "missing" / "file", std::errc::no_such_file_or_directory},
        {folder.path() / "file" / "below", std::errc::not_a_directory},
        {folder.path(), std::errc::is_a_directory},
        {folder.path() / "pipe", std::errc::no_such_device_or_address},
        {folder.path() / std::string("file\0x", 6), std::errc::invalid_argument},
    };
    for (const Row& row : rows) {
        for (const hx::FileError& error : {hx::AppendToFile(row.path, "x"), hx::MakeEmptyFile(row.path),
                                           hx::MakeFileIfMissing(row.path)}) {
            EXPECT_TRUE(error && error.code == row.code && error.path == row.path) << error.code.message();
        }
    }
    EXPECT_EQ(Content(folder.path() / "file"), "kept");
    EXPECT_EQ(hx::AppendToFile("/dev/full", "x").code, std::errc::no_space_on_device);
    EXPECT_TRUE(hx::DeleteFileAt(folder.path() / "missing"));
}

// A child whose files may grow to `size` bytes appends `line` to one with `before` in it.
std::string CutAt(size_t size, const std::string& before, const std::string& line) {
    const TemporaryFolder folder;
    const fs::path path = folder.Write("file", before);
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{size, size};
        signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(hx::AppendToFile(path, line) ? 0 : 1);
    }
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "a part counted as the whole";
    EXPECT_FALSE(hx::AppendToFile(path, "next\n"));
    return Content(path);
}

TEST(Append, APartOfALineIsALineOfItsOwn) {
    struct Row {
        size_t size;
        const char* line;
        const char* after;
    };
    const Row rows[] = {
        {8, "abcdef\n", "old\nabc\nnext\n"},
        {9, "abcdef\n", "old\nabcd\nnext\n"},
        {5, "abcdef\n", "old\n\nnext\n"},
        {4, "abcdef\n", "old\nnext\n"},
        {7, "a\xC3\xA4xy", "old\na \nnext\n"},
        {6, "\xC3\xA4xy", "old\n \nnext\n"},
        {7, "a\xF0\x9F\x98\x80", "old\na \nnext\n"},
        {8, "ab\xF0\x9F\x98\x80", "old\nab \nnext\n"},
    };
    for (const Row& row : rows) EXPECT_EQ(CutAt(row.size, "old\n", row.line), row.after) << &row - rows;
}

TEST(Append, OrdinaryFilesAreListed) {
    const TemporaryFolder folder;
    folder.Write("b", "");
    folder.Write(".a", "");
    fs::create_directory(folder.path() / "folder");
    fs::create_symlink("missing", folder.path() / "dangling");
    std::vector<std::string> names = {"old"};
    EXPECT_FALSE(hx::ListFiles(folder.path(), names));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{".a", "b"}));
    EXPECT_TRUE(hx::ListFiles(folder.path() / "missing", names));
    EXPECT_TRUE(names.empty());
}

}  // namespace
