// Reads README.md and docs/*.md: links lead somewhere, every document is found from the first one, and what
// is quoted from a program is what it says.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot(HX_SOURCE_DIR);

struct Line {
    std::string text;
    std::string language;  // of the code that it is in, "text" if none is named; empty outside
};

std::vector<Line> LinesOf(const fs::path& document) {
    std::vector<Line> lines;
    std::ifstream file(document);
    EXPECT_TRUE(file) << document;
    std::string language;
    for (std::string text; std::getline(file, text);) {
        if (text.starts_with("```")) {
            language = !language.empty() ? "" : text.size() > 3 ? text.substr(3) : "text";
        } else {
            lines.push_back({text, language});
        }
    }
    EXPECT_EQ(language, "") << document << ": code that does not end";
    return lines;
}

// As pages are shown: small letters, blanks as "-", no punctuation.
std::string AnchorOf(std::string_view heading) {
    std::string anchor;
    for (const char letter : heading) {
        const bool is_ascii_letter = std::isalnum(static_cast<unsigned char>(letter)) != 0;
        if (letter == ' ') {
            anchor += '-';
        } else if (is_ascii_letter || letter == '-' || letter == '_' || letter < 0) {
            anchor += is_ascii_letter ? static_cast<char>(std::tolower(letter)) : letter;
        }
    }
    return anchor;
}

std::set<std::string> AnchorsOf(const fs::path& document) {
    std::set<std::string> anchors;
    for (const Line& line : LinesOf(document)) {
        if (line.language.empty() && line.text.starts_with("#")) {
            anchors.insert(AnchorOf(line.text.substr(line.text.find(' ') + 1)));
        }
    }
    return anchors;
}

// What stands in "](...)", outside of code.
std::vector<std::string> LinksOf(const fs::path& document) {
    std::vector<std::string> links;
    for (const Line& line : LinesOf(document)) {
        if (!line.language.empty()) continue;
        for (size_t place = 0; (place = line.text.find("](", place)) != std::string::npos;) {
            place += 2;
            links.push_back(line.text.substr(place, line.text.find(')', place) - place));
        }
    }
    return links;
}

std::vector<fs::path> Documents() {
    std::vector<fs::path> documents{kRoot / "README.md"};
    for (const auto& entry : fs::directory_iterator(kRoot / "docs")) {
        if (entry.path().extension() == ".md") documents.push_back(entry.path());
    }
    return documents;
}

bool IsOutside(std::string_view link) {
    return link.find("://") != std::string_view::npos || link.starts_with("mailto:");
}

TEST(Documents, LinksLeadToFilesAndHeadingsThatAreThere) {
    size_t links = 0;
    for (const fs::path& document : Documents()) {
        for (const std::string& link : LinksOf(document)) {
            if (IsOutside(link)) continue;
            ++links;
            const size_t hash = std::min(link.find('#'), link.size());
            const fs::path target = hash == 0 ? document : document.parent_path() / link.substr(0, hash);
            ASSERT_TRUE(fs::exists(target)) << document << " links " << link;
            if (hash == link.size()) continue;
            EXPECT_TRUE(AnchorsOf(target).contains(link.substr(hash + 1))) << document << " links " << link;
        }
    }
    EXPECT_GT(links, 50u);
}

TEST(Documents, EveryOneIsLinkedFromTheFirst) {
    std::set<fs::path> linked;
    for (const std::string& link : LinksOf(kRoot / "README.md")) {
        linked.insert((kRoot / link.substr(0, link.find('#'))).lexically_normal());
    }
    for (const fs::path& document : Documents()) {
        if (document.filename() == "README.md") continue;
        EXPECT_TRUE(linked.contains(document)) << document << " is not in README.md";
    }
}

// Without indentation, which differs between a page and a source.
std::string Flattened(const std::string& text) {
    std::string flat;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        const size_t begin = std::min(line.find_first_not_of(' '), line.size());
        flat.append(line, begin).append("\n");
    }
    return flat;
}

TEST(Documents, TheHostGuideQuotesItsProgram) {
    std::ifstream file(kRoot / "docs" / "examples" / "host" / "main.cpp");
    const std::string program = "\n" + Flattened(std::string(std::istreambuf_iterator<char>(file), {}));
    std::vector<std::string> quotes;
    bool in_quote = false;
    for (const Line& line : LinesOf(kRoot / "docs" / "host_guide.md")) {
        const bool is_program = line.language == "cpp";
        if (is_program && !in_quote) quotes.emplace_back();
        if (is_program) quotes.back() += line.text + "\n";
        in_quote = is_program;
    }
    EXPECT_GT(quotes.size(), 3u);
    for (const std::string& quote : quotes) {
        EXPECT_NE(program.find("\n" + Flattened(quote)), std::string::npos) << quote;
    }
}

}  // namespace
