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
    explicit CallLog(size_t most_calls = 1'000'000) : m_most_calls(most_calls) {}

    // `arguments` is a JSON array.
    void Enter(std::wstring_view on, std::wstring_view operation, std::wstring_view arguments,
               HRESULT result);
    // A JSON array; the log is empty afterwards.
    std::wstring Take();

private:
    const size_t m_most_calls;
    std::mutex m_mutex;  // guards what follows
    std::deque<std::wstring> m_calls;
    uint64_t m_lost = 0;
};

}  // namespace hx::simulator
