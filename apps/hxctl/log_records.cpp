#include "apps/hxctl/log_records.h"

#include <algorithm>
#include <vector>

namespace hxctl {
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

}  // namespace

Json ReadLogRecords(const std::string& file, std::string_view text) {
    Json header = Json::array();
    Json records = Json::array();
    const std::vector<std::string_view> lines = SplitLines(text);
    for (size_t line = 0; line < lines.size(); ++line) {
        const bool begins_record =
            line + 1 < lines.size() && lines[line + 1].starts_with(kFields[0].introduction);
        if (begins_record) {
            records.push_back(ReadRecord(lines, line));
        } else if (lines[line].starts_with("*** ")) {
            header.push_back(lines[line]);
        } else if (!records.empty() && records.back().contains("message")) {
            // Messages may have several lines.
            records.back()["message"].get_ref<std::string&>().append("\n").append(lines[line]);
        }
    }
    return {{"file", file}, {"header", std::move(header)}, {"records", std::move(records)}};
}

}  // namespace hxctl
