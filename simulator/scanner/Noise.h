// Noise that is the same whenever it is asked for: a function of where it belongs, not a sequence. Any
// thread.
#pragma once

#include <cstdint>

namespace hx::simulator {

// The bits of `value` mixed so that neighbours have nothing in common.
constexpr uint64_t Mixed(uint64_t value) {
    value += 0x9E3779B97F4A7C15;
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
    return value ^ (value >> 31);
}

class Noise {
public:
    Noise(uint64_t cycle, uint32_t plane) : m_seed(Mixed(Mixed(kSeed + cycle) + plane)) {}

    // Mean 0, deviation 1: the sum of four even ones, which is as good as a normal one here. `kind` sets
    // apart what is asked for one column.
    double At(uint32_t column, uint32_t kind) const {
        uint64_t bits = Mixed(m_seed + (uint64_t{kind} << 32) + column);
        double sum = 0;
        for (int i = 0; i < 4; ++i, bits >>= 16) sum += static_cast<double>(bits & 0xFFFF);
        return (sum / 65535 - 2) * kSqrt3;
    }

private:
    static constexpr uint64_t kSeed = 0x0D15EA5E;
    static constexpr double kSqrt3 = 1.7320508075688772;

    uint64_t m_seed;
};

}  // namespace hx::simulator
