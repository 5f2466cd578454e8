// Failures on demand, in the order in which they were asked for. Any thread; throws std::bad_alloc.
#pragma once

#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "hxapi/IHXSimulator.h"
#include "simulator/calls/Operations.h"

namespace hx::simulator {

struct Fault {
    const Operation* operation = nullptr;
    HRESULT result = E_FAIL;  // S_OK: what the operation does anyway
    int32_t times = 1;        // negative: for ever
    int32_t after = 0;
    uint32_t delay_ms = 0;
    bool hangs_up = false;
    std::wstring chain_code;
    std::wstring text;
    std::optional<std::wstring> preset;
};

class FaultList {
public:
    // E_POINTER, HX_E_NOTFOUND, E_INVALIDARG as IHXSimulator says.
    HRESULT Inject(const HXSimulatorFault* wanted);
    void Clear();
    // The fault of this call, if it has one. The first that is for the operation, and for the preset,
    // counts the call.
    std::optional<Fault> Take(const Operation& operation, std::wstring_view preset);

private:
    std::mutex m_mutex;  // guards m_faults
    std::list<Fault> m_faults;
};

}  // namespace hx::simulator
