// The comparisons that the program makes. Each adds one table to the report; each throws if a contender does
// not do what the others do.
#pragma once

#include <vector>

#include "bench/inputs.h"
#include "bench/report.h"

namespace hx::bench {

struct Benchmark {
    bool quick = false;  // fewer samples, and no large inputs
    Inputs inputs;
    Report report;

    Effort HowMuch() const { return quick ? Effort{3, 51, 0.5} : Effort{7, 101, 5}; }

    // Those of the kinds that are wanted.
    std::vector<const Input*> Choose(std::initializer_list<InputKind> kinds) {
        std::vector<const Input*> chosen;
        for (const InputKind kind : kinds) {
            const bool large = kind == InputKind::kLargeRoomy || kind == InputKind::kLargeDense;
            if (!large || !quick) chosen.push_back(&inputs.Get(kind));
        }
        return chosen;
    }
};

void CompareParsing(Benchmark& benchmark);
void CompareReading(Benchmark& benchmark);
void CompareWriting(Benchmark& benchmark);
void CompareInserting(Benchmark& benchmark);
void CompareMemory(Benchmark& benchmark);
void CompareLogging(Benchmark& benchmark);
void CompareRegistry(Benchmark& benchmark);
void CompareComponents(Benchmark& benchmark);
void CompareSettings(Benchmark& benchmark);
void CompareSessions(Benchmark& benchmark);
void CompareProfileLists(Benchmark& benchmark);
void ComparePreview(Benchmark& benchmark);
void CompareProfileEditing(Benchmark& benchmark);
void ComparePages(Benchmark& benchmark);

}  // namespace hx::bench
