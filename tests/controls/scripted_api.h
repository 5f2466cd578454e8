// A scanner API that does what a test says: every call is entered in a list, may be told to fail, and answers
// with what the script holds. One object is the API, its profile and its device manager.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/errors/MException.h"
#include "hxapi/ICalibrationHandle.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "platform/com/class_table.h"

namespace scripted {

inline std::string Narrow(std::wstring_view text) {
    return {text.begin(), text.end()};
}
inline std::string Text(BSTR text) {
    return text == nullptr ? "null" : Narrow({text, SysStringLen(text)});
}
inline HRESULT Give(std::wstring_view text, BSTR* out) {
    *out = hx::Bstr(text).detach();
    return S_OK;
}
inline HRESULT Give(const std::vector<std::wstring>& texts, SAFEARRAY** out) {
    *out = SafeArrayCreateVector(VT_BSTR, 5, static_cast<ULONG>(texts.size()));
    for (size_t i = 0; i < texts.size(); ++i) {
        LONG index = static_cast<LONG>(i) + 5;
        SafeArrayPutElement(*out, &index, hx::Bstr(texts[i]).get());
    }
    return S_OK;
}
inline std::vector<std::string> Elements(SAFEARRAY* array) {
    std::vector<std::string> texts;
    for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i) {
        texts.push_back(Text(static_cast<BSTR*>(array->pvData)[i]));
    }
    return texts;
}
inline std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}
// The error codes of what `body` throws, oldest first; "" if nothing.
template <class Body>
std::string Raised(Body body) {
    try {
        body();
    } catch (const hx::MException& exception) {
        std::vector<std::string> codes;
        for (const auto& error : exception.GetChain()) codes.push_back(Narrow(error->GetCode()));
        return Joined(codes);
    }
    return {};
}

// What a preset holds.
struct Values {
    double laser_power = 50;
    double exposure_us = 1000;
    uint32_t gain = 1;
    BOOL automatic_laser_power = FALSE;
    BOOL edge_filter_3d = FALSE;
    uint32_t signal_threshold = 5;
    double edge_filter = 0;
    double max_inclination = 90;
    BOOL reflection_filter = TRUE;
    std::wstring name;
};

struct Script {
    struct Failure {
        HRESULT result;
        int32_t after;  // that many calls pass
    };

    // Enters the call and says what becomes of it; its name is its first word.
    HRESULT Gate(const std::string& call) {
        calls.push_back(call);
        if (during) during(call);
        return ResultOf(call.substr(0, call.find(' ')));
    }
    HRESULT ResultOf(const std::string& operation) {
        if (failures.empty()) return S_OK;
        const auto failure = failures.find(operation);
        if (failure == failures.end() || failure->second.after-- > 0) return S_OK;
        const HRESULT result = failure->second.result;
        if (fails_once) failures.erase(failure);
        return result;
    }
    // What was called since the last time.
    std::string Calls() { return Joined(std::exchange(calls, {})); }

    std::vector<std::string> calls;
    std::map<std::string, Failure> failures;
    bool fails_once = false;  // each of them
    std::wstring chain_code;  // of the error information that a failing handle leaves
    int32_t state = HXConnected;
    std::vector<std::wstring> drivers = {L"arm", L"", L"driver"};
    std::wstring properties;
    std::wstring detail;  // what a failing driver has to say
    std::vector<std::wstring> names = {L"$DEFAULT", L"Own"};
    std::vector<std::wstring> display_names = {L"Standard", L"Own"};
    std::wstring selected = L"$DEFAULT";
    std::map<std::wstring, Values> values;  // of stored presets; others have those of a new one
    std::vector<std::wstring> gains = {L"1"};
    uint32_t longest_exposure_us = 10000;
    double frame_rate_hz = 0;
    MGlobalScanningSettings scanning;
    int32_t field_of_view = 0;
    int32_t reduces_frequency = 0;
    int32_t exposure_rows = 0;
    int16_t detected_exposure_us = 0;
    double detected_power = 0;
    std::function<void(const std::string& call)> during;  // the call: messages that it dispatches
    bool enters_values = false;                           // among the calls: what is asked of presets
    int32_t alive = 0;
    // What a page has of the scanner: acquired, running, observed; no more once the handle was closed.
    bool closed = false;
    std::string Uses() const { return closed ? "---" : uses; }
    std::string uses = "---";
};

// Counted while it is there.
class Counted {
public:
    explicit Counted(Script& script) : m_script(script) { ++m_script.alive; }
    Counted(const Counted&) = delete;
    ~Counted() { --m_script.alive; }

protected:
    Script& m_script;
};

class Preset final : public hx::Implements<Preset, hx::SingleThreaded, IDynamicSettingsPreset>, Counted {
public:
    explicit Preset(Script& script, Values initial = {}) : Counted(script), values(std::move(initial)) {}

    HRESULT GetName(BSTR* name) override { return Give(values.name, name); }
    HRESULT SetName(BSTR name) override {
        const HRESULT result = m_script.ResultOf("SetName");
        if (SUCCEEDED(result)) values.name.assign(name, SysStringLen(name));
        return result;
    }
    HRESULT GetLaserPower(double* value) override {
        return Get("GetLaserPower", &Values::laser_power, value);
    }
    HRESULT SetLaserPower(double value) override { return Set("SetLaserPower", &Values::laser_power, value); }
    HRESULT GetExposureTime(double* value) override {
        return Get("GetExposureTime", &Values::exposure_us, value);
    }
    HRESULT SetExposureTime(double value) override {
        return Set("SetExposureTime", &Values::exposure_us, value);
    }
    HRESULT GetAnalogImagerGain(uint32_t* value) override {
        return Get("GetAnalogImagerGain", &Values::gain, value);
    }
    HRESULT SetAnalogImagerGain(uint32_t value) override {
        return Set("SetAnalogImagerGain", &Values::gain, value);
    }
    HRESULT IsDLPCEnabled(BOOL* value) override {
        return Get("IsDLPCEnabled", &Values::automatic_laser_power, value);
    }
    HRESULT SetDLPCEnabled(BOOL value) override {
        return Set("SetDLPCEnabled", &Values::automatic_laser_power, value);
    }
    HRESULT Get3DEdgeFilterEnabled(BOOL* value) override {
        return Get("Get3DEdgeFilterEnabled", &Values::edge_filter_3d, value);
    }
    HRESULT Set3DEdgeFilterEnabled(BOOL value) override {
        return Set("Set3DEdgeFilterEnabled", &Values::edge_filter_3d, value);
    }
    HRESULT GetSignalThreshold(uint32_t* value) override {
        return Get("GetSignalThreshold", &Values::signal_threshold, value);
    }
    HRESULT SetSignalThreshold(uint32_t value) override {
        return Set("SetSignalThreshold", &Values::signal_threshold, value);
    }
    HRESULT GetEdgeFilterValue(double* value) override {
        return Get("GetEdgeFilterValue", &Values::edge_filter, value);
    }
    HRESULT SetEdgeFilterValue(double value) override {
        return Set("SetEdgeFilterValue", &Values::edge_filter, value);
    }
    HRESULT GetMaxInclination(double* value) override {
        return Get("GetMaxInclination", &Values::max_inclination, value);
    }
    HRESULT SetMaxInclination(double value) override {
        return Set("SetMaxInclination", &Values::max_inclination, value);
    }
    HRESULT IsRFEnabled(BOOL* value) override {
        return Get("IsRFEnabled", &Values::reflection_filter, value);
    }
    HRESULT SetRFEnabled(BOOL value) override {
        return Set("SetRFEnabled", &Values::reflection_filter, value);
    }

    Values values;
    std::string tag;  // behind the names of its calls

private:
    HRESULT Outcome(const char* call) {
        if (m_script.enters_values) m_script.calls.push_back(call + tag);
        return m_script.ResultOf(call + tag);
    }
    template <class T>
    HRESULT Get(const char* call, T Values::*member, T* value) {
        const HRESULT result = Outcome(call);
        if (SUCCEEDED(result)) *value = values.*member;
        return result;
    }
    template <class T>
    HRESULT Set(const char* call, T Values::*member, T value) {
        const HRESULT result = Outcome(call);
        if (SUCCEEDED(result)) values.*member = value;
        return result;
    }
};

class Handle final : public hx::Implements<Handle, hx::SingleThreaded, ICalibrationHandle, ISupportErrorInfo>,
                     Counted {
public:
    using Counted::Counted;

    HRESULT AcquireHandle() override { return Take("AcquireHandle", 0, 'A'); }
    HRESULT ReleaseHandle() override { return GiveBack("ReleaseHandle", 0); }
    HRESULT InitialiseScanner(int32_t, int32_t, int32_t) override {
        return Take("InitialiseScanner", 1, 'R');
    }
    HRESULT DisableScanner() override { return GiveBack("DisableScanner", 1); }
    HRESULT RegisterTrackingCycleObserver(IUnknown* observer) override {
        constexpr char kCall[] = "RegisterTrackingCycleObserver";
        return observer != nullptr ? Take(kCall, 2, 'O') : GiveBack(kCall, 2);
    }
    HRESULT ActivateDynamicSettings(IDynamicSettingsPreset* preset) override {
        return Gate("ActivateDynamicSettings " +
                    std::to_string(std::lround(static_cast<Preset*>(preset)->values.laser_power)));
    }
    HRESULT ActivateGlobalScanningSettings(VARIANT address) override {
        const auto& to = *reinterpret_cast<const MGlobalScanningSettings*>(address.ullVal);
        std::string call = "ActivateGlobalScanningSettings";
        for (const int32_t value :
             {to.HorizontalFov, to.VerticalFov, to.FovIndicator, to.ScanningMode, to.FrequencySelection}) {
            call += " " + std::to_string(value);
        }
        const HRESULT result = Gate(call);
        if (SUCCEEDED(result)) m_script.scanning = to;
        return result;
    }
    HRESULT GetGlobalScanningSettings(BSTR device, VARIANT address) override {
        *reinterpret_cast<MGlobalScanningSettings*>(address.ullVal) = m_script.scanning;
        return Gate("GetGlobalScanningSettings " + Text(device));
    }
    HRESULT GetFovManagementConfig(FovManagementConfig* config) override {
        config->Managed = m_script.field_of_view;
        return Gate("GetFovManagementConfig");
    }
    HRESULT GetFrequencyReductionSupport(int32_t* supported) override {
        *supported = m_script.reduces_frequency;
        return Gate("GetFrequencyReductionSupport");
    }
    HRESULT GetSupportedAnalogImagerGains(SAFEARRAY** gains) override {
        const HRESULT result = Gate("GetSupportedAnalogImagerGains");
        return FAILED(result) ? result : Give(m_script.gains, gains);
    }
    HRESULT GetMaxExposureTime(BSTR, uint32_t* exposure_us) override {
        *exposure_us = m_script.longest_exposure_us;
        return Gate("GetMaxExposureTime");
    }
    HRESULT GetFrameRate(double* frame_rate_hz) override {
        *frame_rate_hz = m_script.frame_rate_hz;
        return Gate("GetFrameRate");
    }
    HRESULT GetExposureTimeInRows(int32_t* rows) override {
        *rows = m_script.exposure_rows;
        return Gate("GetExposureTimeInRows");
    }
    HRESULT DetectExposureTime(int16_t* exposure_us) override {
        *exposure_us = m_script.detected_exposure_us;
        return Gate("DetectExposureTime");
    }
    HRESULT DetectLaserPower(double* percent) override {
        *percent = m_script.detected_power;
        return Gate("DetectLaserPower");
    }
    HRESULT EnumerateDynamicSettingsPresets(BSTR owner, SAFEARRAY** names,
                                            SAFEARRAY** display_names) override {
        const HRESULT result = Gate("EnumerateDynamicSettingsPresets " + Text(owner));
        if (FAILED(result)) return result;
        Give(m_script.names, names);
        return Give(m_script.display_names, display_names);
    }
    HRESULT GetSelectedDynamicSettingsPreset(BSTR, BSTR* name) override {
        const HRESULT result = Gate("GetSelectedDynamicSettingsPreset");
        return FAILED(result) ? result : Give(m_script.selected, name);
    }
    HRESULT GetDynamicSettingsPreset(BSTR, BSTR name, IDynamicSettingsPreset** preset) override {
        const auto stored = m_script.values.find(std::wstring(name, SysStringLen(name)));
        return GivePreset("GetDynamicSettingsPreset " + Text(name), preset,
                          stored != m_script.values.end() ? stored->second : Values());
    }
    HRESULT SaveDynamicSettingsPresets(BSTR owner, SAFEARRAY* names, SAFEARRAY* presets,
                                       BSTR selected) override {
        for (ULONG i = 0; i < presets->rgsabound[0].cElements; ++i) {
            EXPECT_NE(static_cast<IUnknown**>(presets->pvData)[i], nullptr);
        }
        EXPECT_EQ(presets->rgsabound[0].cElements, names->rgsabound[0].cElements);
        const HRESULT result = Gate("SaveDynamicSettingsPresets " + Text(owner) + " [" +
                                    Joined(Elements(names)) + "] " + Text(selected));
        if (FAILED(result)) return result;
        m_script.values.clear();
        for (ULONG i = 0; i < names->rgsabound[0].cElements; ++i) {
            const auto name = static_cast<BSTR*>(names->pvData)[i];
            m_script.values[std::wstring(name, SysStringLen(name))] =
                static_cast<Preset*>(static_cast<IUnknown**>(presets->pvData)[i])->values;
        }
        return S_OK;
    }
    HRESULT CreateDynamicSettingsPreset(IDynamicSettingsPreset** preset) override {
        return GivePreset("CreateDynamicSettingsPreset", preset, {});
    }
    HRESULT CloseHandle() override {
        m_script.closed = true;
        return Gate("CloseHandle");
    }

    HRESULT InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_ICalibrationHandle ? S_OK : S_FALSE;
    }

private:
    // The worst case, if it is used meanwhile: it is there at the end of the call, and gone at its beginning.
    HRESULT Take(const std::string& call, size_t use, char letter) {
        const HRESULT result = Gate(call);
        if (SUCCEEDED(result)) m_script.uses[use] = letter;
        return result;
    }
    HRESULT GiveBack(const std::string& call, size_t use) {
        m_script.uses[use] = '-';
        return Gate(call);
    }
    HRESULT Gate(const std::string& call) {
        const HRESULT result = m_script.Gate(call);
        if (FAILED(result) && !m_script.chain_code.empty()) LeaveErrorInformation();
        return result;
    }
    void LeaveErrorInformation() {
        std::wstring chain = hx::ChainDocument(hx::MException(hx::MError(m_script.chain_code)));
        hx::ComPtr<ICreateErrorInfo> information;
        CreateErrorInfo(information.put());
        information->SetGUID(IID_ICalibrationHandle);
        information->SetDescription(chain.data());
        SetErrorInfo(0, information.as<IErrorInfo>().get());
    }
    HRESULT GivePreset(const std::string& call, IDynamicSettingsPreset** preset, const Values& values) {
        const HRESULT result = Gate(call);
        if (SUCCEEDED(result)) *preset = hx::Make<Preset>(m_script, values).detach();
        return result;
    }
};

class Api final
    : public hx::Implements<Api, hx::SingleThreaded, IHXApi, IHXApiInternal, IHXProfile, IDeviceManager>,
      Counted {
public:
    using Counted::Counted;

    HRESULT GetConnectionState(int32_t* state, IErrorInfo**) override {
        *state = m_script.state;
        return m_script.Gate("GetConnectionState");
    }
    HRESULT Resume(IErrorInfo**) override { return m_script.Gate("Resume"); }
    HRESULT GetDeviceManager(IDeviceManager** manager, IErrorInfo**) override {
        return GiveSelf("GetDeviceManager", manager);
    }
    HRESULT GetCurrentProfile(IHXProfile** profile, IErrorInfo**) override {
        return GiveSelf("GetCurrentProfile", profile);
    }
    HRESULT CreateCalibrationHandle(BSTR name, REFIID iid, IUnknown** object, IErrorInfo**) override {
        EXPECT_EQ(iid, IID_ICalibrationHandle);
        const HRESULT result = m_script.Gate("CreateCalibrationHandle " + Text(name));
        if (SUCCEEDED(result)) *object = hx::Make<Handle>(m_script).as<IUnknown>().detach();
        return result;
    }
    HRESULT GetDriverSelection(SAFEARRAY** names) override {
        Give(m_script.drivers, names);
        return m_script.Gate("GetDriverSelection");
    }
    HRESULT GetDriverProperties(BSTR category, BSTR name, BSTR* xml, IErrorInfo** detail) override {
        Give(m_script.properties, xml);
        const HRESULT result = m_script.Gate("GetDriverProperties " + Text(category) + " " + Text(name));
        if (FAILED(result) && !m_script.detail.empty()) {
            hx::ComPtr<ICreateErrorInfo> information;
            CreateErrorInfo(information.put());
            information->SetDescription(m_script.detail.data());
            *detail = information.as<IErrorInfo>().detach();
        }
        return result;
    }

private:
    template <class I>
    HRESULT GiveSelf(const std::string& call, I** out) {
        const HRESULT result = m_script.Gate(call);
        if (SUCCEEDED(result)) *out = hx::ComPtr<I>(static_cast<I*>(this)).detach();
        return result;
    }
};

}  // namespace scripted
