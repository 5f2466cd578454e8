// The gate through which every operation of every object of the simulated scanner API goes: it fails the call
// if that was asked for, else does what the operation does; leaves error information behind a failure; and
// enters the call in the log. Each object has one. Any thread; no exception passes.
#pragma once

#include <initializer_list>
#include <memory>

#include "platform/com/boundary.h"
#include "platform/com/errorinfo.h"
#include "simulator/calls/Argument.h"
#include "simulator/calls/SharedCalls.h"

namespace hx::simulator {

// The connection that a fault cuts.
class Line {
public:
    virtual void HangUp() = 0;

protected:
    ~Line() = default;
};

// Thrown by what an operation does, to say more than a result does. With a code the text is the message of a
// chain; without text there is a usual one.
struct Refusal {
    HRESULT result;
    std::wstring text{};
    std::wstring chain_code{};
};

// What some calls have besides their arguments.
struct CallExtras {
    IErrorInfo** detail = nullptr;
    std::wstring_view preset{};  // the name of the preset that is called
};

class Gate {
public:
    // Failures are of the interface `iid`.
    Gate(std::shared_ptr<Line> line, REFIID iid) : m_line(std::move(line)), m_iid(iid) {}

    // Out-parameters but the detail were nulled before.
    template <class Body>
    HRESULT Perform(const Operation& operation, std::initializer_list<Argument> arguments, const Body& body,
                    CallExtras extras = {}) const noexcept {
        if (extras.detail) *extras.detail = nullptr;
        Refusal refusal{S_OK};
        const HRESULT result = AtBoundary([&]() -> HRESULT {
            try {
                FailOnDemand(operation, extras.preset);
                return body();
            } catch (Refusal& thrown) {
                refusal = std::move(thrown);
                return refusal.result;
            }
        });
        Finish(operation, arguments, result, refusal, extras);
        return result;
    }

    const SharedCalls& Calls() const { return m_calls; }

private:
    // Throws a Refusal, unless the call is only slow or the connection lost in it.
    void FailOnDemand(const Operation& operation, std::wstring_view preset) const;
    void Finish(const Operation& operation, std::initializer_list<Argument> arguments, HRESULT result,
                const Refusal& refusal, const CallExtras& extras) const noexcept;

    const std::shared_ptr<Line> m_line;
    const IID m_iid;
    const SharedCalls m_calls;
};

}  // namespace hx::simulator
