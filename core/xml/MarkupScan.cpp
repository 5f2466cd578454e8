#include "core/xml/MarkupScan.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace hx {

size_t ScanMarkupPlain(const wchar_t* text, uint32_t from, uint32_t to, uint32_t* positions) {
    size_t count = 0;
    for (uint32_t at = from; at < to; ++at) {
        const wchar_t c = text[at];
        // Written always and kept only for markup: no branch that the text could make unpredictable.
        positions[count] = at;
        count += (c == L'<') | (c == L'>') | (c == L'&') | (c == L'"') | (c == L'\'');
    }
    return count;
}

#if defined(__x86_64__)
namespace {

// 32 characters narrowed to bytes. Characters that do not fit become 0x00 or 0xFF, which are no markup.
__attribute__((target("avx2"))) inline __m256i NarrowBlock(const wchar_t* text) {
    const auto* block = reinterpret_cast<const __m256i*>(text);
    const __m256i low = _mm256_packus_epi32(_mm256_loadu_si256(block), _mm256_loadu_si256(block + 1));
    const __m256i high = _mm256_packus_epi32(_mm256_loadu_si256(block + 2), _mm256_loadu_si256(block + 3));
    // Packing works within the halves of a register; the permutation puts the characters back in order.
    return _mm256_permutevar8x32_epi32(_mm256_packus_epi16(low, high),
                                       _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

__attribute__((target("avx2,bmi,bmi2,popcnt"))) size_t ScanMarkupAvx2(const wchar_t* text, uint32_t from,
                                                                      uint32_t to, uint32_t* positions) {
    // The five characters differ in their low four bits, so one table look-up by those bits gives the only
    // character of the set that each byte can equal. 0xFF marks bits that no character of the set has.
    const char none = static_cast<char>(0xFF);
    const __m128i row = _mm_setr_epi8(none, none, '"', none, none, none, '&', '\'', none, none, none, none,
                                      '<', none, '>', none);
    const __m256i candidates = _mm256_broadcastsi128_si256(row);
    size_t count = 0;
    uint32_t at = from;
    for (; to - at >= 64; at += 64) {
        const __m256i low = NarrowBlock(text + at);
        const __m256i high = NarrowBlock(text + at + 32);
        const auto low_mask = static_cast<uint32_t>(
            _mm256_movemask_epi8(_mm256_cmpeq_epi8(_mm256_shuffle_epi8(candidates, low), low)));
        const auto high_mask = static_cast<uint32_t>(
            _mm256_movemask_epi8(_mm256_cmpeq_epi8(_mm256_shuffle_epi8(candidates, high), high)));
        uint64_t mask = low_mask | static_cast<uint64_t>(high_mask) << 32;
        const auto found = static_cast<size_t>(_mm_popcnt_u64(mask));
        // Four at a time without asking: what is written beyond `found` is overwritten by the next block.
        for (size_t done = 0; done < found; done += 4) {
            for (size_t i = 0; i < 4; ++i) {
                positions[count + done + i] = at + static_cast<uint32_t>(_tzcnt_u64(mask));
                mask = _blsr_u64(mask);
            }
        }
        count += found;
    }
    return count + ScanMarkupPlain(text, at, to, positions + count);
}

}  // namespace
#endif

MarkupScan FastestMarkupScan() {
#if defined(__x86_64__)
    static const MarkupScan scan =
        __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi2") ? ScanMarkupAvx2 : ScanMarkupPlain;
    return scan;
#else
    return ScanMarkupPlain;
#endif
}

}  // namespace hx
