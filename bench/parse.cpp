// Parsing: from the text to a document that can be walked through, and away with it.
#include <expat.h>
#include <libxml/parser.h>
#include <tinyxml2.h>

#include <pugixml.hpp>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/filer_rapid.h"
#include "core/xml/MXmlDocument.h"

namespace hx::bench {
namespace {

void Nothing() {}

void ParseHx(std::wstring text, const Input& input) {
    MXmlDocument document;
    Expect(document.Parse(std::move(text)) && document.RecordCount() == input.elements + 1, "HX", input.name);
}

void ParsePugiInPlace(std::string& buffer, const Input& input) {
    pugi::xml_document document;
    Expect(document.load_buffer_inplace(buffer.data(), buffer.size()), "pugixml", input.name);
}

void ParsePugi(const Input& input) {
    pugi::xml_document document;
    Expect(document.load_buffer(input.text.data(), input.text.size()), "pugixml", input.name);
}

void ParseRapid(std::string& buffer, const Input& input) {
    rapidxml::xml_document<char> document;
    document.parse<kRapidFlags>(buffer.data());
    Expect(document.first_node() != nullptr, "rapidxml", input.name);
}

void ParseTiny(const Input& input) {
    tinyxml2::XMLDocument document;
    Expect(document.Parse(input.text.data(), input.text.size()) == tinyxml2::XML_SUCCESS, "tinyxml2",
           input.name);
}

void ParseExpat(const Input& input) {
    const XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(
        parser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    XML_SetCharacterDataHandler(parser, [](void*, const XML_Char*, int) {});
    const XML_Status status =
        XML_Parse(parser, input.text.data(), static_cast<int>(input.text.size()), XML_TRUE);
    XML_ParserFree(parser);
    Expect(status == XML_STATUS_OK, "expat", input.name);
}

void ParseLibXml2(const Input& input) {
    constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_COMPACT | XML_PARSE_NONET | XML_PARSE_NOBLANKS;
    const xmlDocPtr document =
        xmlReadMemory(input.text.data(), static_cast<int>(input.text.size()), nullptr, nullptr, kOptions);
    Expect(document != nullptr, "libxml2", input.name);
    xmlFreeDoc(document);
}

}  // namespace

void CompareParsing(Benchmark& benchmark) {
    Table table =
        PeerTable("Parse",
                  "From the text to the document, the document's destruction included. Where text is parsed "
                  "in place, or moved in as with HX, the copy that it is made from lies outside the time. "
                  "HX parses wide text, which is four times as large; expat makes no document.");
    for (const Input* input :
         benchmark.Choose({InputKind::kSettings, InputKind::kRoomy, InputKind::kLargeRoomy, InputKind::kDense,
                           InputKind::kLargeDense})) {
        const bool dense = input->name.ends_with('d');
        std::wstring wide;
        std::string narrow;
        const auto copy_wide = [&] { wide = input->wide; };
        const auto copy_narrow = [&] { narrow = input->text; };
        AddContest(
            table, input->name,
            {{"HX", copy_wide, [&] { ParseHx(std::move(wide), *input); }},
             {"pugixml in place", copy_narrow, [&] { ParsePugiInPlace(narrow, *input); }, dense ? 2.0 : 2.5},
             {"pugixml load_buffer", Nothing, [&] { ParsePugi(*input); }},
             {"rapidxml in place", copy_narrow, [&] { ParseRapid(narrow, *input); }},
             {"tinyxml2", Nothing, [&] { ParseTiny(*input); }},
             {"expat", Nothing, [&] { ParseExpat(*input); }},
             {"libxml2", Nothing, [&] { ParseLibXml2(*input); }}},
            benchmark.HowMuch());
    }
    benchmark.report.Add(table.Markdown());
}

}  // namespace hx::bench
