// A desk with a simulated scanner on it, and the scanner API that belongs to it. Operations throw a
// FailedCall.
#pragma once

#include <functional>

#include "apps/hxctl/record_json.h"
#include "apps/hxctl/scanner/scanner_command.h"
#include "hxapi/ICalibrationHandle.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXSimulator.h"
#include "platform/com/comptr.h"

namespace hxctl {

// Text of the command line, which is UTF-8; throws a FailedCall if it is not.
hx::Bstr BstrOf(const std::string& text);
std::string TextOf(const hx::Bstr& text);
// The texts of an array of them, null for none; throws a FailedCall for any other array.
std::vector<std::wstring> TextsOf(const hx::SafeArray& array);

class Desk {
public:
    explicit Desk(const ScannerRequest& request);

    // Returns when the scanner is connected, or disconnected, and everybody has been told.
    void Connect();
    void Disconnect();
    // A new handle of the scanner's, not acquired.
    hx::ComPtr<ICalibrationHandle> Handle();
    std::wstring PropertiesText();
    // All calls since the last time, or since the desk was set up.
    Json Calls();

    IHXSimulator& Simulator() { return *m_simulator; }
    const hx::Bstr& Model() const { return m_model; }
    const hx::Bstr& DeviceName() const { return m_device; }

private:
    void Inject(const std::string& fault);

    hx::ComPtr<IHXSimulator> m_simulator;
    hx::ComPtr<IHXApi> m_api;
    hx::Bstr m_model;
    hx::Bstr m_driver;
    hx::Bstr m_device;
};

// Runs a command at a desk: what fails becomes its refusal, and the calls are told if they were asked for.
// `command` fills in the answer, and gives the text for people.
Outcome AtDesk(const ScannerRequest& request, bool json,
               const std::function<std::string(Desk& desk, Json& answer)>& command);

}  // namespace hxctl
