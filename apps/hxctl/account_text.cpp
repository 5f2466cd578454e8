// An account as text: a paragraph a record, a line a field.
#include <algorithm>

#include "apps/hxctl/account.h"

namespace hxctl {
namespace {

constexpr size_t kLongText = 70;
constexpr size_t kManyEntries = 5;

std::string Text(const Json& item, const char* key) {
    const auto found = item.find(key);
    return found == item.end() || found->is_null() ? std::string() : found->get<std::string>();
}

// On one line, cut if it is long; `count` values if it is a list of which the first are told.
std::string Value(const Json& value, size_t count = 0) {
    if (value.is_structured()) {
        std::string text = value.dump();
        if (text.size() <= kLongText && count <= value.size()) return text;
        return text.substr(0, kLongText) + "... (" + std::to_string(std::max(count, value.size())) +
               " values)";
    }
    if (!value.is_string() || value.get_ref<const std::string&>().size() <= kLongText) return value.dump();
    const std::string& text = value.get_ref<const std::string&>();
    size_t end = kLongText;
    while ((text[end] & 0xC0) == 0x80) --end;  // not in the middle of a character
    return Json(text.substr(0, end)).dump() + "... (" + std::to_string(text.size()) + " bytes)";
}

size_t Width(const Json& fields) {
    constexpr size_t kWidest = 34;
    size_t width = 0;
    for (const Json& field : fields) width = std::max(width, Text(field, "name").size());
    return std::min(width, kWidest);
}

class Writer {
public:
    std::string Take() { return std::move(m_text); }

    void Head(const Json& content);
    void Item(const Json& item);
    void Class(const Json& counted);
    void Line(size_t indent, std::initializer_list<std::string_view> parts) {
        m_text.append(indent, ' ');
        for (const std::string_view part : parts) m_text.append(part);
        m_text.append("\n");
    }

private:
    void Record(const Json& record);
    void Fields(const Json& fields, size_t indent);
    void Entries(const Json& list, size_t indent);
    void Field(const Json& field, size_t indent, size_t width);

    std::string m_text;
};

void Writer::Head(const Json& content) {
    const bool well_formed = content["wellFormed"].get<bool>();
    const bool readable = content.contains("contents");
    Line(0, {Text(content, "file"),
             well_formed ? ": well-formed XML"
             : readable  ? ": not well-formed, but readable: "
                         : ": not well-formed: ",
             Text(content, "error")});
    Line(0, {"Root: ", content["root"].dump(), ", ", Text(content, "kind")});
    if (content.contains("errorCodes")) Line(0, {"Error codes:\n", Text(content, "errorCodes")});
    if (content.contains("outline")) {
        for (const Json& line : content["outline"]) Line(4, {line.get_ref<const std::string&>()});
    }
}

void Writer::Item(const Json& item) {
    const std::string path = Text(item, "path");
    Line(0, {});
    if (item.contains("class")) {
        Record(item);
    } else if (item.contains("unknown")) {
        Line(0, {path, ": not known (", item["children"].dump(), " elements in it)"});
    } else if (item.contains("more")) {
        Line(0, {path, path.empty() ? "" : ": ", "and ", item["more"].dump(), " more values and elements"});
    } else {
        Line(0, {path, ": ", Value(item["value"]), " (", Text(item, "type"), "), a value of no record"});
    }
}

void Writer::Record(const Json& record) {
    Line(0, {Text(record, "path"), ": ", Text(record, "class"), ", known by its ", Text(record, "knownBy")});
    Line(4, {Text(record, "purpose")});
    std::string state;
    if (record.contains("newest")) {
        state = record["version"].is_null() ? "No version" : "Version " + record["version"].dump();
        state.append(" (this program knows ").append(record["newest"].dump()).append("): ");
    }
    const bool read = record["read"].get<bool>();
    Line(4, {state, !read ? "NOT READ: " : state.empty() ? "Read." : "read.", Text(record, "reason")});
    if (record.contains("errorCodes")) Line(4, {"Error codes: ", Text(record, "errorCodes")});
    if (!read && !record["fields"].empty()) Line(4, {"What a record then holds:"});
    Fields(record["fields"], 8);
    for (const Json& name : record["unknown"]) {
        Line(8, {name.get_ref<const std::string&>(), ": not known"});
    }
}

void Writer::Fields(const Json& fields, size_t indent) {
    const size_t width = Width(fields);
    for (const Json& field : fields) Field(field, indent, width);
}

void Writer::Entries(const Json& list, size_t indent) {
    const Json& entries = list["entries"];
    const size_t told = std::min(entries.size(), kManyEntries);
    for (size_t i = 0; i < told; ++i) Field(entries[i], indent, 0);
    const auto count = list["count"].get<size_t>();
    if (count > told) Line(indent, {"and ", std::to_string(count - told), " more"});
}

void Writer::Field(const Json& field, size_t indent, size_t width) {
    std::string line = field.contains("name") ? Text(field, "name") : "-";
    if (line.size() < width) line.resize(width, ' ');
    const auto add = [&](const char* key, std::string_view before, std::string_view behind) {
        if (field.contains(key)) line.append(before).append(Text(field, key)).append(behind);
    };
    if (field.contains("value"))
        line.append("  ").append(Value(field["value"], field.value("count", size_t{0})));
    add("class", "  ", "");
    if (field.contains("entries") && field.value("inDocument", true)) {
        const auto count = field["count"].get<size_t>();
        line.append("  ").append(std::to_string(count)).append(count == 1 ? " entry" : " entries");
    }
    add("unit", "  [", "]");
    add("note", "  (", ")");
    line.erase(line.find_last_not_of(' ') + 1);
    Line(indent, {line});
    // What a new record would hold there is no account of the document.
    if (!field.value("inDocument", true)) return;
    if (field.contains("fields")) Fields(field["fields"], indent + 4);
    if (field.contains("entries")) Entries(field, indent + 4);
}

void Writer::Class(const Json& counted) {
    if (counted["records"] == counted["shown"]) return;
    Line(0, {"\n", Text(counted, "class"), ": ", counted["records"].dump(), " records, ",
             counted["read"].dump(), " of them read; ", counted["shown"].dump(), " are told above"});
}

}  // namespace

std::string AccountText(const Json& content) {
    Writer writer;
    writer.Head(content);
    if (content.contains("contents")) {
        for (const Json& item : content["contents"]) writer.Item(item);
        for (const Json& counted : content["classes"]) writer.Class(counted);
    }
    return writer.Take();
}

}  // namespace hxctl
