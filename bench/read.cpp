// Reading: parsing, then every value in its order, its name and type checked.
#include "bench/checksum.h"
#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/filer_hx.h"
#include "bench/filer_pugi.h"
#include "bench/filer_rapid.h"
#include "bench/records.h"

namespace hx::bench {
namespace {

template <class Reader, class String, class Text>
void Read(const char* who, const Input& input, Text&& text) {
    Reader reader(std::forward<Text>(text));
    Checksum checksum;
    ReadDocument<String>(reader, [&](const auto& record) { ExchangeRecord(checksum, record); });
    Expect(reader.Right() && checksum.Sum() == input.checksum, who, input.name);
}

}  // namespace

void CompareReading(Benchmark& benchmark) {
    Table table =
        PeerTable("Parse and read",
                  "From the text to the values of every record, the document's destruction included. HX "
                  "reads through the strict filer into wide strings; the peers walk from node to node, "
                  "compare name and type, and read numbers with from_chars.");
    for (const Input* input : benchmark.Choose(
             {InputKind::kRoomy, InputKind::kLargeRoomy, InputKind::kDense, InputKind::kLargeDense})) {
        std::wstring wide;
        std::string narrow;
        const auto copy_narrow = [&] { narrow = input->text; };
        AddContest(table, input->name,
                   {{"HX", [&] { wide = input->wide; },
                     [&] { Read<HxReader, std::wstring>("HX", *input, std::move(wide)); }},
                    {"pugixml in place", copy_narrow,
                     [&] { Read<PugiReader, std::string>("pugixml", *input, narrow); }, 2.0},
                    {"rapidxml in place", copy_narrow,
                     [&] { Read<RapidReader, std::string>("rapidxml", *input, narrow); }}},
                   benchmark.HowMuch());
    }
    benchmark.report.Add(table.Markdown());
}

}  // namespace hx::bench
