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
// The texts, parted by ", ".
std::string Listed(const std::vector<std::wstring>& texts);
// The texts of an array of them, null for none; throws a FailedCall for any other array.
std::vector<std::wstring> TextsOf(const hx::SafeArray& array);

// From now on the driver reports what is in the file, whatever that is. Throws a FailedCall if it cannot be
// read as text; "-" is standard input.
void ReportProperties(IHXSimulator& simulator, const std::string& file);

class Desk {
public:
    explicit Desk(const ScannerRequest& request);

    // Returns when the scanner is connected, or disconnected, and everybody has been told.
    void Connect();
    void Disconnect();
    // A new handle of the scanner's, not acquired.
    hx::ComPtr<ICalibrationHandle> Handle();
    std::wstring PropertiesText();
    // All calls since the last time, of every desk: they are kept for the whole process.
    Json Calls();

    // Something that the operator is to know, whatever becomes of the command.
    void Notice(const std::string& text) { m_notices.push_back(text); }
    const std::vector<std::string>& Notices() const { return m_notices; }

    IHXSimulator& Simulator() { return *m_simulator; }
    const hx::Bstr& Model() const { return m_model; }
    std::wstring DriverName() const { return std::wstring(m_driver.view()); }
    const hx::Bstr& DeviceName() const { return m_device; }

private:
    void Choose(const ScannerRequest& request);
    void Inject(const std::string& fault);

    hx::ComPtr<IHXSimulator> m_simulator;
    hx::ComPtr<IHXApi> m_api;
    hx::Bstr m_model;
    hx::Bstr m_driver;
    hx::Bstr m_device;
    std::vector<std::string> m_notices;
};

// What a command says: as text for people, or as the answer's JSON.
struct DeskAnswer {
    Json json = Json::object();
    std::string text;
    bool is_document = false;  // the text, which nothing may stand beside
};

// Runs a command at a desk. What fails becomes its refusal, and "error" of the JSON, which is told then, too;
// notices come with it, and the calls if they were asked for.
Outcome AtDesk(const ScannerRequest& request, bool json,
               const std::function<void(Desk& desk, DeskAnswer& answer)>& command);

}  // namespace hxctl
