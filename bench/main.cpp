// hxbench: how fast the XML document, the tagged filers, the records and the log are beside others. Prints
// tables; what falls short of its target is told, not punished. Exit 0 done, 1 if a contender did something
// else than the others, 2 usage.
#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "bench/comparisons.h"
#include "bench/heap.h"
#include "bench/peer_versions.h"
#include "core/errors/MException.h"
#include "platform/system/utf8.h"

namespace hx::bench {
namespace {

constexpr char kUsage[] =
    "usage: hxbench [--quick] [--markdown FILE] [--only "
    "parse,read,write,insert,memory,log,registry,components,settings,session,profiles,preview,editor,page]\n";

struct Comparison {
    std::string name;
    void (*run)(Benchmark&);
};

const Comparison kComparisons[] = {
    {"parse", CompareParsing},         {"read", CompareReading},
    {"write", CompareWriting},         {"insert", CompareInserting},
    {"memory", CompareMemory},         {"log", CompareLogging},
    {"registry", CompareRegistry},     {"components", CompareComponents},
    {"settings", CompareSettings},     {"session", CompareSessions},
    {"profiles", CompareProfileLists}, {"preview", ComparePreview},
    {"editor", CompareProfileEditing}, {"page", ComparePages},
};

struct Options {
    bool quick = false;
    std::string markdown_file;
    std::vector<Comparison> comparisons{std::begin(kComparisons), std::end(kComparisons)};
};

// Those named in the list; none if it holds another name.
std::vector<Comparison> Named(const std::string& list) {
    std::vector<Comparison> comparisons;
    std::istringstream names(list);
    for (std::string name; std::getline(names, name, ',');) {
        const auto* const found = std::ranges::find(kComparisons, name, &Comparison::name);
        if (found == std::end(kComparisons)) return {};
        comparisons.push_back(*found);
    }
    return comparisons;
}

bool ReadOptions(const std::vector<std::string>& arguments, Options& options) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        const bool has_value = i + 1 < arguments.size();
        if (arguments[i] == "--quick") {
            options.quick = true;
        } else if (arguments[i] == "--markdown" && has_value) {
            options.markdown_file = arguments[++i];
        } else if (arguments[i] == "--only" && has_value) {
            options.comparisons = Named(arguments[++i]);
        } else {
            return false;
        }
    }
    return !options.comparisons.empty();
}

std::string Processor() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("model name")) return line.substr(line.find(':') + 2);
    }
    return "unknown processor";
}

std::string Introduction() {
    return "# Performance\n\n"
           "Every figure is the median of several samples. All contenders of a table row's input take turns "
           "in one "
           "process, on one thread, and memory that is freed stays in the heap. So the ratios can be "
           "compared within "
           "one run; the times depend on the machine and on what else it does.\n\n"
           "Made by `hxbench` on: " +
           Processor() + "; compiler GCC " + __VERSION__ + ". Peers: " + PeerVersions() +
           ". Compiled peers are as the distribution builds them, those in headers are built like HX.\n\n";
}

std::string DescribeInputs(Benchmark& benchmark) {
    Table table(
        "Inputs",
        "Documents in the tagged form, of ASCII characters. S, M and L hold profiles with texts and numbers, "
        "Md and Ld short numbers; S holds one record of each kind.",
        {"Input", "Characters", "Elements", "Characters per element"});
    for (const Input* input :
         benchmark.Choose({InputKind::kSettings, InputKind::kRoomy, InputKind::kLargeRoomy, InputKind::kDense,
                           InputKind::kLargeDense})) {
        table.Add({input->name, std::to_string(input->text.size()), std::to_string(input->elements),
                   FormatNumber(
                       static_cast<double>(input->text.size()) / static_cast<double>(input->elements), 1)});
    }
    return table.Markdown();
}

int Run(const Options& options) {
    KeepFreedMemory();
    Benchmark benchmark;
    benchmark.quick = options.quick;
    benchmark.report.Add(Introduction());
    benchmark.report.Add(DescribeInputs(benchmark));
    for (const Comparison& comparison : options.comparisons) comparison.run(benchmark);
    if (options.markdown_file.empty()) return 0;
    std::ofstream file(options.markdown_file);
    file << benchmark.report.Markdown() << std::flush;
    if (!file) throw std::runtime_error("cannot write " + options.markdown_file);
    return 0;
}

}  // namespace
}  // namespace hx::bench

int main(int argc, char** argv) {
    hx::bench::Options options;
    if (!hx::bench::ReadOptions({argv + 1, argv + argc}, options)) {
        std::cerr << hx::bench::kUsage;
        return 2;
    }
    try {
        return hx::bench::Run(options);
    } catch (const hx::MException& exception) {
        std::cerr << "hxbench: " << hx::ToUtf8(hx::ErrorCodesText(exception)) << '\n';
        return 1;
    } catch (const std::exception& error) {
        std::cerr << "hxbench: " << error.what() << '\n';
        return 1;
    }
}
