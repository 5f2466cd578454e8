// The calls that reached the simulated scanner API, as JSON, oldest first, until somebody takes them. Any
// thread; throws std::bad_alloc.
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/com/hresult.h"

namespace hx::simulator {

class CallLog {
public:
    // The oldest calls are lost once there are more, or their texts are longer.
    explicit CallLog(size_t most_calls = 1'000'000, size_t most_bytes = 64'000'000)
        : m_most_calls(most_calls), m_most_bytes(most_bytes) {}

    // `arguments` is a JSON array, of characters only.
    void Enter(std::wstring_view on, std::wstring_view operation, std::wstring_view arguments,
               HRESULT result);
    // A JSON array; the log is empty afterwards.
    std::wstring Take();

private:
    const size_t m_most_calls;
    const size_t m_most_bytes;
    std::mutex m_mutex;               // guards what follows
    std::deque<std::string> m_calls;  // UTF-8: a quarter of what they take as wide text
    size_t m_bytes = 0;               // of all of them
    uint64_t m_lost = 0;
};

}  // namespace hx::simulator
