// Memory: what a parsed document takes besides its text.
#include <pugixml.hpp>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/heap.h"
#include "core/xml/MXmlDocument.h"

namespace hx::bench {
namespace {

struct Usage {
    double records;  // bytes in the records in use
    double heap;     // bytes taken from the heap
};

Usage UsageOfHx(const Input& input) {
    std::wstring text = input.wide;
    const size_t before = HeapInUse();
    MXmlDocument document;
    Expect(document.Parse(std::move(text)), "HX", input.name);
    return {static_cast<double>(document.IndexBytes()), static_cast<double>(HeapInUse() - before)};
}

double HeapOfPugi(const Input& input) {
    std::string text = input.text;
    const size_t before = HeapInUse();
    pugi::xml_document document;
    Expect(document.load_buffer_inplace(text.data(), text.size()), "pugixml", input.name);
    return static_cast<double>(HeapInUse() - before);
}

}  // namespace

void CompareMemory(Benchmark& benchmark) {
    constexpr double kTarget = 40;
    Table table(
        "Memory",
        "Bytes per element besides the text: in the records that HX uses, and as taken from the heap, unused "
        "records of the last segment included. pugixml has parsed in place.",
        {"Input", "Elements", "HX records", "HX heap", "pugixml heap", "Records at most", "Met"});
    for (const Input* input : benchmark.Choose(
             {InputKind::kRoomy, InputKind::kLargeRoomy, InputKind::kDense, InputKind::kLargeDense})) {
        const auto elements = static_cast<double>(input->elements);
        const Usage usage = UsageOfHx(*input);
        const double per_element = usage.records / elements;
        table.Add({input->name, std::to_string(input->elements), FormatNumber(per_element, 1),
                   FormatNumber(usage.heap / elements, 1), FormatNumber(HeapOfPugi(*input) / elements, 1),
                   FormatNumber(kTarget, 0), per_element <= kTarget ? "yes" : "no"});
    }
    benchmark.report.Add(table.Markdown());
}

}  // namespace hx::bench
