// The log of calls and the faults that all simulators of a process share. They live as long as some object of
// the simulator does, each of which has one of these. Any thread.
#pragma once

#include "simulator/calls/CallLog.h"
#include "simulator/calls/FaultList.h"

namespace hx::simulator {

class SharedCalls {
public:
    // Throws std::bad_alloc.
    SharedCalls();
    SharedCalls(const SharedCalls&) = delete;
    SharedCalls& operator=(const SharedCalls&) = delete;
    ~SharedCalls();

    CallLog& Log() const { return m_shared.log; }
    FaultList& Faults() const { return m_shared.faults; }

private:
    struct Shared {
        CallLog log;
        FaultList faults;
    };
    static Shared& Enter();

    Shared& m_shared;
};

}  // namespace hx::simulator
