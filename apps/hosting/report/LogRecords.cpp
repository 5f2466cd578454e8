#include "apps/hosting/report/LogRecords.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace hosting {
namespace {

using Json = nlohmann::ordered_json;

struct Field {
    std::string_view introduction;
    const char* name;
};

constexpr Field kFields[] = {
    {"\t[Level]\t\t=\t", "level"},     {"\t[File]\t\t=\t", "file"},     {"\t[Line]\t\t=\t", "line"},
    {"\t[Location]\t=\t", "location"}, {"\t[Message]\t=\t", "message"},
};

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const size_t length = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

// The record that begins at `line`, with the field lines that follow. Moves to the last of them.
Json ReadRecord(const std::vector<std::string_view>& lines, size_t& line) {
    Json record = {{"time", lines[line]}};
    for (const Field& field : kFields) {
        if (line + 1 == lines.size() || !lines[line + 1].starts_with(field.introduction)) break;
        record[field.name] = lines[++line].substr(field.introduction.size());
    }
    return record;
}

constexpr std::string_view kHeader[] = {"*** Module version ", "*** Windows version ", "*** Architecture ",
                                        "*** Module "};

bool BeginsHeader(const std::vector<std::string_view>& lines, size_t line) {
    if (lines.size() - line < std::size(kHeader)) return false;
    for (size_t i = 0; i < std::size(kHeader); ++i) {
        if (!lines[line + i].starts_with(kHeader[i])) return false;
    }
    return true;
}

}  // namespace

nlohmann::ordered_json ReadLogRecords(const std::string& file, std::string_view text) {
    Json header = Json::array();
    Json records = Json::array();
    const std::vector<std::string_view> lines = SplitLines(text);
    // A record is open until another one, or another run's header, begins.
    bool is_open = false;
    for (size_t line = 0; line < lines.size(); ++line) {
        const bool begins_record =
            line + 1 < lines.size() && lines[line + 1].starts_with(kFields[0].introduction);
        is_open = is_open && !BeginsHeader(lines, line);
        if (begins_record) {
            records.push_back(ReadRecord(lines, line));
            is_open = records.back().contains("message");
        } else if (is_open) {
            // Messages may have several lines, with whatever in front.
            records.back()["message"].get_ref<std::string&>().append("\n").append(lines[line]);
        } else if (lines[line].starts_with("*** ")) {
            header.push_back(lines[line]);
        }
    }
    return {{"file", file}, {"header", std::move(header)}, {"records", std::move(records)}};
}

}  // namespace hosting
