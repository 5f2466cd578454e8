// Stops the program loudly when a contender does not do its work: its time would mean nothing.
#pragma once

#include <stdexcept>
#include <string>

namespace hx::bench {

inline void Expect(bool right, const char* who, const std::string& input) {
    if (!right) throw std::runtime_error(std::string(who) + ": wrong result for input " + input);
}

}  // namespace hx::bench
