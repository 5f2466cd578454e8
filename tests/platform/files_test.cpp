#include "platform/system/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

#include "tests/platform/temporary_folder.h"

namespace {

using namespace std::string_view_literals;
namespace fs = std::filesystem;

size_t CountEntries(const fs::path& folder) {
    return static_cast<size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(Files, WholeContentComesBack) {
    const TemporaryFolder folder;
    const fs::path path = folder.path() / "file";
    std::string large(300000, 'x');
    large[150000] = '\0';
    const std::string_view contents[] = {"first"sv, ""sv, "a\0b\r\n"sv, large, "short"sv};
    for (const auto content : contents) {
        EXPECT_FALSE(hx::WriteFileAtomically(path, content));
        std::string bytes = "old";
        EXPECT_FALSE(hx::ReadFile(path, bytes));
        EXPECT_EQ(bytes, content);
    }
    EXPECT_EQ(CountEntries(folder.path()), 1u) << "a temporary file was left behind";

    std::string bytes;
    EXPECT_FALSE(hx::ReadFile("/proc/self/status", bytes));
    EXPECT_NE(bytes.find("Name:"), std::string::npos) << "a file that states no size";
}

TEST(Files, FailuresNameThePath) {
    const TemporaryFolder folder;
    folder.Write("file", "kept");
    fs::create_symlink("nowhere", folder.path() / "dangling");
    struct Row {
        fs::path path;
        std::errc code;
    };
    const Row rows[] = {
        {folder.path() / "missing" / "file", std::errc::no_such_file_or_directory},
        {folder.path() / "file" / "below", std::errc::not_a_directory},
        {folder.path(), std::errc::is_a_directory},
        {folder.path() / "dangling", std::errc::no_such_file_or_directory},
    };
    for (const Row& row : rows) {
        std::string bytes = "old";
        const hx::FileError read = hx::ReadFile(row.path, bytes);
        EXPECT_TRUE(read && read.code == row.code && read.path == row.path && bytes.empty()) << row.path;
        const hx::FileError written = hx::WriteFileAtomically(row.path, "new");
        EXPECT_TRUE(written && written.code == row.code && written.path == row.path) << row.path;
    }
    EXPECT_EQ(CountEntries(folder.path()), 2u) << "a temporary file was left behind";
}

TEST(Files, ReplacingKeepsPermissionsAndLinks) {
    const TemporaryFolder folder;
    const fs::path target = folder.Write("target", "old");
    const fs::path link = folder.path() / "link";
    fs::permissions(target, fs::perms(0640));
    fs::create_symlink("target", link);
    EXPECT_FALSE(hx::WriteFileAtomically(link, "new"));
    EXPECT_TRUE(fs::is_symlink(link));
    std::string bytes;
    EXPECT_FALSE(hx::ReadFile(target, bytes));
    EXPECT_EQ(bytes, "new");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
    const mode_t mask = umask(027);
    const fs::path fresh = folder.path() / "fresh";
    EXPECT_FALSE(hx::WriteFileAtomically(fresh, "new"));
    umask(mask);
    EXPECT_EQ(fs::status(fresh).permissions(), fs::perms(0640)) << "a new file follows the umask";
}

TEST(Files, ReadersSeeOneContentOrTheOther) {
    const TemporaryFolder folder;
    const fs::path path = folder.path() / "file";
    const std::string contents[] = {std::string(100000, 'a'), std::string(50000, 'b')};
    ASSERT_FALSE(hx::WriteFileAtomically(path, contents[0]));
    std::atomic<bool> stop{false};
    std::thread reader([&] {
        while (!stop) {
            std::string bytes;
            EXPECT_FALSE(hx::ReadFile(path, bytes));
            EXPECT_TRUE(bytes == contents[0] || bytes == contents[1]) << bytes.size();
        }
    });
    for (int i = 0; i < 60; ++i) EXPECT_FALSE(hx::WriteFileAtomically(path, contents[i % 2]));
    stop = true;
    reader.join();
    EXPECT_EQ(CountEntries(folder.path()), 1u);
}

TEST(TextFile, DecodesItsForms) {
    const std::string_view forms[] = {
        "\x41\xC3\xA4\xF0\x9F\x98\x80"sv,              // UTF-8
        "\xEF\xBB\xBF\x41\xC3\xA4\xF0\x9F\x98\x80"sv,  // UTF-8 with a mark
        "\xFF\xFE\x41\0\xE4\0\x3D\xD8\0\xDE"sv,        // UTF-16, low byte first
        "\xFE\xFF\0\x41\0\xE4\xD8\x3D\xDE\0"sv,        // UTF-16, high byte first
    };
    for (const auto bytes : forms) EXPECT_EQ(hx::DecodeTextFile(bytes), L"A\u00E4\U0001F600") << bytes;
    for (const auto empty : {""sv, "\xEF\xBB\xBF"sv, "\xFF\xFE"sv}) EXPECT_EQ(hx::DecodeTextFile(empty), L"");
    EXPECT_EQ(hx::DecodeTextFile("\xFF\xFE\xFF\xFE"sv), L"\uFEFF") << "only the first mark is dropped";
}

TEST(TextFile, SaysWhereItIsMalformed) {
    struct Row {
        std::string_view bytes;
        size_t offset;
    };
    const Row rows[] = {
        {"ab\xFF"sv, 2},
        {"\xEF\xBB\xBF\x61\xC3"sv, 4},
        {"\xEF\xBB"sv, 0},
        {"\xFE"sv, 0},
        {"\xFF\xFE\x41\0\x42"sv, 4},              // half a unit
        {"\xFF\xFE\x41\0\0\xDE"sv, 4},            // low surrogate alone
        {"\xFF\xFE\x41\0\x3D\xD8"sv, 4},          // high surrogate at the end
        {"\xFF\xFE\x3D\xD8\0"sv, 2},              // high surrogate, then half a unit
        {"\xFE\xFF\xD8\x3D\0\x41"sv, 2},          // high surrogate, then a letter
        {"\xFE\xFF\xD8\x3D\xE0\0"sv, 2},          // high surrogate, then beyond the low ones
        {"\xFE\xFF\0\x41\xD8\x3D\xD8\x3D"sv, 4},  // two high surrogates
    };
    for (const Row& row : rows) {
        size_t offset = 999;
        EXPECT_FALSE(hx::DecodeTextFile(row.bytes, &offset)) << &row - rows;
        EXPECT_EQ(offset, row.offset) << &row - rows;
    }
}

}  // namespace
