// Finds the characters that mean more than themselves in a document: < > & " and '.
//
// Called by the tape below for one stretch of text after the other; pure functions, any thread. The stretch
// is classified in whole blocks of characters, with AVX2 where the processor has it and plainly elsewhere;
// both ways give the same positions.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hx {

// Writes the position of every < > & " ' in text[from, to) to `positions`, in rising order, and returns how
// many there are. `positions` has room for to - from + kScanSlack entries; what lies behind the returned
// count is scratch.
using MarkupScan = size_t (*)(const wchar_t* text, uint32_t from, uint32_t to, uint32_t* positions);

inline constexpr size_t kScanSlack = 8;

// The fastest scan of this processor, chosen once.
MarkupScan FastestMarkupScan();

// The plain scan, which every other one must equal.
size_t ScanMarkupPlain(const wchar_t* text, uint32_t from, uint32_t to, uint32_t* positions);

}  // namespace hx
