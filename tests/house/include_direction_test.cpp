// Reads every #include of the tree: arrows between the folders run downwards only.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

// What the files of a room may include, by the beginning of the path. The first room that a file's path
// begins with is its own. A room may always include itself.
struct Room {
    std::string_view path;
    std::vector<std::string_view> may_include;
};

const std::vector<Room>& Rooms() {
    static const std::vector<Room> rooms = {
        {"platform/com/", {"platform/api.h", "platform/system/"}},
        {"platform/registry/", {"platform/api.h", "platform/com/", "platform/system/"}},
        {"platform/module/", {"platform/api.h", "platform/com/", "platform/system/"}},
        {"platform/system/", {"platform/api.h", "platform/com/"}},
        {"platform/ui/", {"platform/api.h", "platform/com/", "platform/module/", "platform/system/"}},
        {"platform/", {}},
        {"hxapi/", {"platform/com/"}},
        {"core/",
         {"hxapi/", "platform/api.h", "platform/com/", "platform/registry/", "platform/module/",
          "platform/system/"}},
        {"settings/", {"core/", "platform/com/", "platform/system/"}},
        {"controls/", {"settings/", "core/", "hxapi/", "platform/"}},
        {"preview/", {"hxapi/", "platform/"}},
        {"simulator/", {"settings/", "core/", "hxapi/", "platform/"}},
        {"server/", {"controls/", "settings/", "core/", "hxapi/", "platform/"}},
        {"apps/hxctl/", {"apps/hosting/", "settings/", "core/", "hxapi/", "platform/"}},
        {"apps/hosting/report/", {"core/", "hxapi/", "platform/"}},
        {"apps/", {"hxapi/", "platform/"}},
        {"bench/", {"server/", "controls/", "preview/", "settings/", "core/", "hxapi/", "platform/"}},
        {"fuzz/", {"simulator/", "settings/", "core/", "hxapi/", "platform/"}},
        {"tests/",
         {"fuzz/", "bench/allocations.h", "apps/hosting/", "apps/hxctl/", "apps/hxhost/", "server/",
          "controls/", "preview/", "simulator/", "settings/", "core/", "hxapi/", "platform/"}},
    };
    return rooms;
}

const Room* RoomOf(std::string_view path) {
    const auto found =
        std::ranges::find_if(Rooms(), [&](const Room& room) { return path.starts_with(room.path); });
    return found != Rooms().end() ? &*found : nullptr;
}

bool MayInclude(const Room& room, std::string_view included) {
    return included.starts_with(room.path) ||
           std::ranges::any_of(room.may_include, [&](auto allowed) { return included.starts_with(allowed); });
}

// What a file includes by `opening` ("\"" or "<") and the closing character that belongs to it.
std::vector<std::string> IncludesOf(const fs::path& file, char opening, char closing) {
    std::vector<std::string> includes;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        const std::string start = std::string("#include ") + opening;
        if (!line.starts_with(start)) continue;
        includes.push_back(line.substr(start.size(), line.find(closing, start.size()) - start.size()));
    }
    return includes;
}

std::vector<std::string> SourceFiles() {
    std::vector<std::string> files;
    const fs::path root(HX_SOURCE_DIR);
    for (const char* room : {"platform", "hxapi", "core", "settings", "server", "controls", "preview",
                             "simulator", "apps", "tests", "bench", "fuzz"}) {
        if (!fs::exists(root / room)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
            const auto extension = entry.path().extension();
            if (extension == ".h" || extension == ".cpp") files.push_back(fs::relative(entry.path(), root));
        }
    }
    return files;
}

TEST(House, IncludesRunDownwards) {
    const std::vector<std::string> files = SourceFiles();
    ASSERT_GT(files.size(), 50u);
    for (const std::string& file : files) {
        const Room* const room = RoomOf(file);
        ASSERT_NE(room, nullptr) << file << " is in no room";
        for (const std::string& included : IncludesOf(fs::path(HX_SOURCE_DIR) / file, '"', '"')) {
            EXPECT_TRUE(MayInclude(*room, included)) << file << " includes " << included;
        }
    }
}

// So a header that needs another one in front of it does not compile.
TEST(House, EverySourceIncludesItsOwnHeaderFirst) {
    for (const std::string& file : SourceFiles()) {
        const std::string header = fs::path(file).replace_extension(".h").string();
        if (!file.ends_with(".cpp") || !fs::exists(fs::path(HX_SOURCE_DIR) / header)) continue;
        std::ifstream in(fs::path(HX_SOURCE_DIR) / file);
        std::string line;
        while (std::getline(in, line) && !line.starts_with("#include")) {
        }
        EXPECT_EQ(line, "#include \"" + header + "\"") << file;
    }
}

// A header of the toolkit, by its own way of naming them: <QWidget>, <QtWidgets/QWidget>, <qwidget.h>.
bool IsToolkit(std::string_view included) {
    if (included.size() < 2) return false;
    const bool capital = included[1] >= 'A' && included[1] <= 'Z';
    return (included[0] == 'Q' && capital) || included.starts_with("Qt") ||
           (included[0] == 'q' && included.ends_with(".h"));
}

// What only the platform layer may know, the operating system; and what only the renderer with a screen may.
TEST(House, OnlyThePlatformKnowsTheSystem) {
    constexpr std::string_view kSystem[] = {"dlfcn.h", "unistd.h",  "fcntl.h",   "pthread.h",
                                            "sys/",    "windows.h", "sqlite3.h", "unicode/"};
    for (const std::string& file : SourceFiles()) {
        const bool may_know_the_system =
            file.starts_with("platform/") || file.starts_with("tests/") || file.starts_with("bench/");
        const bool may_know_the_toolkit =
            file.starts_with("platform/ui/qt/") || file.starts_with("tests/platform/ui/qt/");
        for (const std::string& included : IncludesOf(fs::path(HX_SOURCE_DIR) / file, '<', '>')) {
            const bool system = std::ranges::any_of(
                kSystem, [&](std::string_view header) { return included.starts_with(header); });
            EXPECT_TRUE(may_know_the_system || !system) << file << " includes <" << included << ">";
            EXPECT_TRUE(may_know_the_toolkit || !IsToolkit(included))
                << file << " includes <" << included << ">";
        }
    }
}

// A forbidden arrow is found, so that the rules above cannot pass by finding nothing.
TEST(House, AnArrowThatRunsUpIsSeen) {
    EXPECT_FALSE(
        MayInclude(*RoomOf("core/xml/MXmlDocument.h"), "settings/connection/MHXConnectionSettings.h"));
    EXPECT_FALSE(MayInclude(*RoomOf("platform/com/bstr.h"), "core/errors/MError.h"));
    EXPECT_FALSE(MayInclude(*RoomOf("apps/hxhost/main.cpp"), "server/CCoMHXConnSettings.h"));
    EXPECT_TRUE(
        MayInclude(*RoomOf("server/CCoMHXConnSettings.h"), "settings/connection/MHXConnectionSettings.h"));
    for (const char* toolkit : {"QWidget", "QtWidgets/QWidget", "QtGlobal", "qwidget.h"}) {
        EXPECT_TRUE(IsToolkit(toolkit)) << toolkit;
    }
    for (const char* other : {"queue", "sqlite3.h", "Q"}) EXPECT_FALSE(IsToolkit(other)) << other;
}

}  // namespace
