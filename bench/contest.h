// Times contenders against each other: in turns (A, B, C, A, B, C, ...), so that whatever else the machine
// does meets all of them, and by medians. One thread.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace hx::bench {

struct Contender {
    std::string name;
    std::function<void()> prepare;  // not timed; before every run
    std::function<void()> run;
    double target = 0;  // how many times as long as the first contender it is hoped to take; 0: none
};

// Rounds go on until the time is used up, but are no fewer and no more than this.
struct Effort {
    size_t min_rounds;
    size_t max_rounds;
    double seconds;
};

// The median time of one run of each contender, in seconds. A run that is too short for the clock is repeated
// within each sample.
std::vector<double> Compete(const std::vector<Contender>& contenders, const Effort& effort);

}  // namespace hx::bench
