// hxctl xml: is a document well-formed, and what elements does it hold? The tree is written front to back,
// one element a line, so that neither depth nor size of a document matters.
#include <unordered_set>

#include "apps/hxctl/command.h"
#include "apps/hxctl/json.h"
#include "core/xml/AttributeReader.h"
#include "core/xml/MXmlDocument.h"
#include "core/xml/XmlText.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using Attributes = std::vector<std::pair<std::string, std::string>>;

Attributes AttributesOf(const hx::MXmlDocument& document) {
    Attributes attributes;
    std::unordered_set<std::wstring_view> seen;
    hx::AttributeReader reader(document.StartTag());
    hx::Attribute attribute;
    while (reader.Next(attribute)) {
        // The first of a name is the one that a reader gets.
        if (attribute.name.empty() || !seen.insert(attribute.name).second) continue;
        std::wstring value;
        hx::AppendDecoded(value, attribute.value);
        attributes.emplace_back(hx::ToUtf8(attribute.name), hx::ToUtf8(value));
    }
    return attributes;
}

std::string Quoted(const std::string& text) {
    return Json(text).dump();
}

void AppendJson(std::string& out, const hx::MXmlDocument& document) {
    out.append("{\"name\":").append(Quoted(hx::ToUtf8(document.GetTagName())));
    out.append(",\"depth\":").append(std::to_string(document.GetLevel() - 1)).append(",\"attributes\":{");
    std::string_view separator;
    for (const auto& [name, value] : AttributesOf(document)) {
        out.append(separator).append(Quoted(name)).append(":").append(Quoted(value));
        separator = ",";
    }
    out.append("},\"text\":").append(Quoted(hx::ToUtf8(document.GetContent()))).append("}");
}

void AppendLine(std::string& out, const hx::MXmlDocument& document) {
    out.append(std::to_string(document.GetLevel() - 1)).append(" ").append(hx::ToUtf8(document.GetTagName()));
    for (const auto& [name, value] : AttributesOf(document)) {
        out.append(" ").append(name).append("=").append(Quoted(value));
    }
    out.append(" ").append(Quoted(hx::ToUtf8(document.GetContent()))).append("\n");
}

// Every element, parents in front of their children.
void AppendTree(std::string& out, hx::MXmlDocument& document, bool json) {
    std::string_view separator;
    document.ResetPosition();
    for (bool more = true; more;) {
        if (document.FindElement()) {
            if (json) {
                out.append(separator);
                AppendJson(out, document);
                separator = ",\n";
            } else {
                AppendLine(out, document);
            }
            document.EnterElement();
        } else {
            more = document.LeaveElement();
        }
    }
}

}  // namespace

Outcome RunXml(const std::string& file, bool tree, bool json) {
    Outcome outcome;
    auto text = ReadTextFile(file, outcome.reason);
    if (!text) return Refused(outcome.reason);
    hx::MXmlDocument document;
    const bool well_formed = document.Parse(std::move(*text));
    if (!well_formed) outcome = Refused(file + ": " + hx::ToUtf8(document.GetError()));

    if (json) {
        outcome.output = std::string("{\"wellFormed\":") + (well_formed ? "true" : "false") +
                         ",\"error\":" + Quoted(hx::ToUtf8(document.GetError()));
        if (tree) {
            outcome.output += ",\"tree\":[";
            AppendTree(outcome.output, document, true);
            outcome.output += "]";
        }
        outcome.output += "}\n";
    } else {
        if (well_formed) outcome.output = "well-formed\n";
        if (tree) AppendTree(outcome.output, document, false);
    }
    return outcome;
}

}  // namespace hxctl
