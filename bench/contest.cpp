#include "bench/contest.h"

#include <algorithm>
#include <chrono>

namespace hx::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double kSampleSeconds = 0.001;

double SecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double Median(std::vector<double> samples) {
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::ranges::nth_element(samples, middle);
    return *middle;
}

// What the clock tells of nothing at all.
double ClockSeconds() {
    std::vector<double> samples(1000);
    for (double& sample : samples) sample = SecondsSince(Clock::now());
    return Median(std::move(samples));
}

// Each run is timed alone, so that the preparations in between are left out.
double Sample(const Contender& contender, size_t runs) {
    static const double clock_seconds = ClockSeconds();
    double seconds = 0;
    for (size_t i = 0; i < runs; ++i) {
        contender.prepare();
        const Clock::time_point begin = Clock::now();
        contender.run();
        seconds += SecondsSince(begin) - clock_seconds;
    }
    return seconds / static_cast<double>(runs);
}

size_t RunsPerSample(const Contender& contender) {
    size_t runs = 1;
    while (Sample(contender, runs) * static_cast<double>(runs) < kSampleSeconds) runs *= 2;
    return runs;
}

}  // namespace

std::vector<double> Compete(const std::vector<Contender>& contenders, const Effort& effort) {
    std::vector<size_t> runs(contenders.size());
    std::ranges::transform(contenders, runs.begin(), RunsPerSample);

    std::vector<std::vector<double>> samples(contenders.size());
    const Clock::time_point begin = Clock::now();
    for (size_t round = 0; round < effort.max_rounds; ++round) {
        if (round >= effort.min_rounds && SecondsSince(begin) >= effort.seconds) break;
        for (size_t i = 0; i < contenders.size(); ++i) samples[i].push_back(Sample(contenders[i], runs[i]));
    }
    std::vector<double> medians(contenders.size());
    std::ranges::transform(samples, medians.begin(), Median);
    return medians;
}

}  // namespace hx::bench
