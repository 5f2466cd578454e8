// Writing: from records in memory to the text of the document.
#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/filer_hx.h"
#include "bench/filer_pugi.h"
#include "bench/records.h"
#include "bench/write_cereal.h"

namespace hx::bench {
namespace {

template <class String>
struct Collect {
    Document<String>& document;
    void operator()(const Profile<String>& profile) const { document.profiles.push_back(profile); }
    void operator()(const Step& step) const { document.steps.push_back(step); }
};

Document<std::wstring> WideRecords(const Input& input) {
    HxReader reader(input.wide);
    Document<std::wstring> document;
    ReadDocument<std::wstring>(reader, Collect<std::wstring>{document});
    return document;
}

Document<std::string> NarrowRecords(const Input& input) {
    std::string text = input.text;
    PugiReader reader(text);
    Document<std::string> document;
    ReadDocument<std::string>(reader, Collect<std::string>{document});
    return document;
}

std::wstring WriteHx(const Document<std::wstring>& document) {
    HxWriter writer;
    WriteDocument(writer, document);
    return writer.Right() ? writer.TakeText() : std::wstring();
}

template <Numbers By>
std::string WritePugi(const Document<std::string>& document) {
    PugiWriter<By> writer;
    WriteDocument(writer, document);
    return writer.Text();
}

size_t CountEndTags(const std::string& text) {
    size_t count = 0;
    for (size_t at = text.find("</"); at != std::string::npos; at = text.find("</", at + 2)) ++count;
    return count;
}

}  // namespace

void CompareWriting(Benchmark& benchmark) {
    Table table =
        PeerTable("Write",
                  "From records in memory to the text of the whole document. HX writes through its filer. "
                  "pugixml makes the same text, byte for byte: nodes appended, then saved to a string; once "
                  "with numbers made by to_chars in our form, once with its own. cereal writes into a string "
                  "stream, without the type attributes.");
    for (const Input* input : benchmark.Choose({InputKind::kRoomy, InputKind::kDense})) {
        const Document<std::wstring> wide = WideRecords(*input);
        const Document<std::string> narrow = NarrowRecords(*input);
        const auto to_chars = WritePugi<Numbers::kToChars>;
        const auto own = WritePugi<Numbers::kPugi>;
        Expect(WriteHx(wide) == input->wide, "HX", input->name);
        Expect(to_chars(narrow) == input->text, "pugixml", input->name);
        Expect(CountEndTags(own(narrow)) == input->elements, "pugixml", input->name);
        Expect(CountEndTags(WriteCereal(narrow)) == input->elements, "cereal", input->name);

        // Kept to be destroyed by the next run, so that the destruction lies inside the time, as elsewhere.
        std::wstring wide_text;
        std::string text;
        const auto nothing = [] {};
        AddContest(table, input->name,
                   {{"HX", nothing, [&] { wide_text = WriteHx(wide); }},
                    {"pugixml, to_chars", nothing, [&] { text = to_chars(narrow); }, 2.5},
                    {"pugixml, its numbers", nothing, [&] { text = own(narrow); }},
                    {"cereal", nothing, [&] { text = WriteCereal(narrow); }, 9.0}},
                   benchmark.HowMuch());
    }
    benchmark.report.Add(table.Markdown());
}

}  // namespace hx::bench
