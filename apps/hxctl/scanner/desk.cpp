#include "apps/hxctl/scanner/desk.h"

#include "apps/hosting/FaultText.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "hxapi/HXApiErrors.h"
#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/IDeviceManager.h"
#include "platform/com/loader.h"
#include "platform/com/text_array.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

hx::ComPtr<IHXSimulator> CreateSimulator() {
    CLSID clsid;
    CheckCall("CLSIDFromProgID", CLSIDFromProgID(kProgIdHXSimulator, &clsid));
    hx::ComPtr<IHXSimulator> simulator;
    CheckCall("CoCreateInstance", CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER,
                                                   hx::uuid_of<IHXSimulator>(), simulator.put_void()));
    return simulator;
}

// "api.AcquireHandle(1, null) -> 0"
std::string CallsText(const Json& calls) {
    std::string text = "Calls:\n";
    for (const Json& call : calls) {
        text += "  " + call.value("on", "") + "." + call.value("op", "") + "(";
        const char* separator = "";
        for (const Json& argument : call.value("args", Json::array())) {
            text += separator + argument.dump();
            separator = ", ";
        }
        text += ")";
        if (const auto result = call.find("result"); result != call.end() && *result != 0) {
            text += " -> " + NamedResult(result->get<HRESULT>());
        }
        text += "\n";
    }
    return text;
}

}  // namespace

hx::Bstr BstrOf(const std::string& text) {
    const auto wide = hx::FromUtf8(text);
    if (!wide) throw FailedCall("\"" + text + "\" is no UTF-8");
    return hx::Bstr(*wide);
}

std::string TextOf(const hx::Bstr& text) {
    return hx::ToUtf8(text.view());
}

std::vector<std::wstring> TextsOf(const hx::SafeArray& array) {
    auto texts = hx::TextsOf(array.get());
    if (!texts) throw FailedCall("the scanner API gave an array that is none of texts");
    return std::move(*texts);
}

std::string Listed(const std::vector<std::wstring>& texts) {
    std::string list;
    for (const std::wstring& each : texts) list += (list.empty() ? "" : ", ") + hx::ToUtf8(each);
    return list;
}

void ReportProperties(IHXSimulator& simulator, const std::string& file) {
    std::string reason;
    const auto document = ReadTextFile(file, reason);
    if (!document) throw FailedCall("the properties document cannot be read: " + reason);
    CheckCall("SetProperties", simulator.SetProperties(hx::Bstr(*document).get()));
}

Desk::Desk(const ScannerRequest& request) : m_simulator(CreateSimulator()) {
    m_api = m_simulator.as<IHXApi>();
    if (!m_api) throw FailedCall("the simulator is no scanner API");
    Choose(request);
    if (!request.folder.empty()) {
        CheckCall("SetPresetsFolder", m_simulator->SetPresetsFolder(BstrOf(request.folder).get()));
    }
    if (request.properties) ReportProperties(*m_simulator, *request.properties);
    CheckCall("GetModel", m_simulator->GetModel(m_model.put()));
    CheckCall("GetDevice", m_simulator->GetDevice(m_driver.put(), m_device.put()));
    for (const std::string& fault : request.faults) Inject(fault);
}

void Desk::Choose(const ScannerRequest& request) {
    hx::SafeArray known;
    if (!request.model.empty()) {
        const HRESULT result = m_simulator->SetModel(BstrOf(request.model).get());
        if (result == HX_E_NOTFOUND) {
            CheckCall("GetModels", m_simulator->GetModels(known.put()));
            throw WrongUsage("no model \"" + request.model + "\": there are " + Listed(TextsOf(known)));
        }
        CheckCall("SetModel", result);
    }
    if (!request.surface.empty()) {
        const HRESULT result = m_simulator->SetSurface(BstrOf(request.surface).get());
        if (result == HX_E_NOTFOUND) {
            CheckCall("GetSurfaces", m_simulator->GetSurfaces(known.put()));
            throw WrongUsage("no surface \"" + request.surface + "\": there are " + Listed(TextsOf(known)));
        }
        CheckCall("SetSurface", result);
    }
}

void Desk::Inject(const std::string& fault) {
    const auto parsed = hosting::ParseFault(fault);
    if (!parsed) {
        throw WrongUsage("a fault is OPERATION=RESULT, or OPERATION=RESULT:TIMES with * for always, not \"" +
                         fault + "\"; RESULT is a name such as E_FAIL or a number");
    }
    const hx::Bstr operation = BstrOf(parsed->operation);
    HXSimulatorFault injected{};
    injected.operation = operation.get();
    injected.result = parsed->result;
    injected.times = parsed->times;
    const HRESULT result = m_simulator->InjectFault(&injected);
    if (result == HX_E_NOTFOUND) {
        throw WrongUsage("no operation \"" + parsed->operation + "\": `hxctl scanner list` has them");
    }
    if (result == E_INVALIDARG) {
        throw WrongUsage(NamedResult(parsed->result) + " is no failure of " + parsed->operation);
    }
    CheckCall("InjectFault", result);
}

void Desk::Connect() {
    CheckCall("Connect", m_simulator->Connect());
    CheckCall("WaitForEvents", m_simulator->WaitForEvents());
}

void Desk::Disconnect() {
    CheckCall("Disconnect", m_simulator->Disconnect());
    CheckCall("WaitForEvents", m_simulator->WaitForEvents());
}

hx::ComPtr<ICalibrationHandle> Desk::Handle() {
    const auto internal = m_api.as<IHXApiInternal>();
    if (!internal) throw FailedCall("the scanner API has no internal interface");
    hx::ComPtr<IUnknown> object;
    hx::ComPtr<IErrorInfo> detail;
    const HRESULT result = internal->CreateCalibrationHandle(
        m_driver.get(), hx::uuid_of<ICalibrationHandle>(), object.put(), detail.put());
    CheckCall("CreateCalibrationHandle", result, detail.get());
    auto handle = object.as<ICalibrationHandle>();
    if (!handle) throw FailedCall("the calibration handle has no such interface");
    return handle;
}

std::wstring Desk::PropertiesText() {
    hx::ComPtr<IDeviceManager> manager;
    hx::ComPtr<IErrorInfo> detail;
    HRESULT result = m_api->GetDeviceManager(manager.put(), detail.put());
    CheckCall("GetDeviceManager", result, detail.get());
    hx::Bstr text;
    result = manager->GetDriverProperties(hx::Bstr(kHXCategoryScanner).get(), m_driver.get(), text.put(),
                                          detail.put());
    CheckCall("GetDriverProperties", result, detail.get());
    return std::wstring(text.view());
}

Json Desk::Calls() {
    hx::Bstr calls;
    CheckCall("TakeCalls", m_simulator->TakeCalls(calls.put()));
    return Json::parse(TextOf(calls));
}

Outcome AtDesk(const ScannerRequest& request, bool json,
               const std::function<void(Desk& desk, DeskAnswer& answer)>& command) {
    DeskAnswer answer;
    int exit = kDone;
    std::string reason;  // with what else goes to standard error
    const auto fail = [&](int code, const FailedCall& failure) {
        exit = code;
        reason += failure.what();
        answer.json["error"] = failure.what();
    };
    try {
        Desk desk(request);
        desk.Calls();
        std::optional<FailedCall> failure;
        try {
            command(desk, answer);
        } catch (const FailedCall& thrown) {
            failure = thrown;
        }
        for (const std::string& notice : desk.Notices()) {
            reason += notice + "\n";
            answer.json["notices"].push_back(notice);
        }
        if (request.calls) {
            Json calls = desk.Calls();
            if (!json) (answer.is_document ? reason : answer.text) += CallsText(calls);
            answer.json["calls"] = std::move(calls);
        }
        if (failure) fail(kRefused, *failure);
    } catch (const WrongUsage& wrong) {
        fail(kUsage, wrong);
    } catch (const FailedCall& failure) {
        fail(kRefused, failure);
    }
    CoFreeUnusedLibraries();
    if (reason.ends_with('\n')) reason.pop_back();
    return {exit, json ? answer.json.dump(2) + "\n" : std::move(answer.text), std::move(reason)};
}

}  // namespace hxctl
