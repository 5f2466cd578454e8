// The scanner of this host: a simulated one, made by its name as a real scanner API would be, with its
// switches. On the thread of the user interface; nothing here waits for the simulator's threads.
#pragma once

#include <string>
#include <vector>

#include "hxapi/IHXSimulator.h"
#include "hxapi/IHXSimulatorPresets.h"
#include "platform/com/bstr.h"
#include "platform/com/comptr.h"

namespace hxhost {

struct Fault {
    std::wstring operation;
    HRESULT result = E_FAIL;
    int32_t times = 1;
    uint32_t delay_ms = 0;
    bool hang_up = false;  // the connection is lost while the call runs
    std::wstring text;     // in plain words; empty: none
};

class SimulatedScanner {
public:
    // What its library or the loader says; everything below is good only after success.
    HRESULT Create(const std::wstring& locale);

    std::vector<std::wstring> Models() const;
    std::vector<std::wstring> Surfaces() const;
    // Without their interfaces, each once: those that every page calls first, in the order of use.
    std::vector<std::wstring> Operations() const;

    HRESULT SetModel(const std::wstring& model);
    std::wstring Model() const;
    HRESULT SetSurface(const std::wstring& surface);
    // Internal names, as a page is told them.
    std::wstring Driver() const { return Device().driver; }
    std::wstring DeviceName() const { return Device().device; }

    // Of a profile as it is stored; the internal name of one that is not. Leaves no trace in the log.
    std::wstring DisplayNameOf(const std::wstring& profile) const;

    // Until all that Plug leads to has come.
    HRESULT WaitUntilPlugged() { return m_simulator->WaitForEvents(); }
    HRESULT Plug() { return m_simulator->Connect(); }
    HRESULT Unplug() { return m_simulator->Disconnect(); }
    HRESULT SetState(int32_t state) { return m_simulator->SetConnectionState(state, TRUE); }
    HRESULT Inject(const Fault& fault);
    HRESULT ClearFaults() { return m_simulator->ClearFaults(); }

    // JSON of the calls since the last time; "[]" if they cannot be had.
    std::string TakeCalls();
    // What pages are handed.
    IUnknown* Api() const { return m_simulator.get(); }

private:
    struct Names {
        std::wstring driver;
        std::wstring device;
    };
    Names Device() const;

    hx::ComPtr<IHXSimulator> m_simulator;
};

}  // namespace hxhost
