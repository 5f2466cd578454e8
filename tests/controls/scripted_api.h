// A scanner API that does what a test says: every call is entered in a list, may be told to fail, and answers
// with what the script holds. One object is the API, its profile and its device manager.
#pragma once

#include <gtest/gtest.h>

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

struct Script {
    struct Failure {
        HRESULT result;
        int32_t after;  // that many calls pass
    };

    // Enters the call and says what becomes of it; its name is its first word.
    HRESULT Gate(const std::string& call) {
        calls.push_back(call);
        const auto failure = failures.find(call.substr(0, call.find(' ')));
        return failure == failures.end() || failure->second.after-- > 0 ? S_OK : failure->second.result;
    }
    // What was called since the last time.
    std::string Calls() { return Joined(std::exchange(calls, {})); }

    std::vector<std::string> calls;
    std::map<std::string, Failure> failures;
    std::wstring chain_code;  // of the error information that a failing handle leaves
    int32_t state = HXConnected;
    std::vector<std::wstring> drivers = {L"arm", L"", L"driver"};
    std::wstring properties;
    std::vector<std::wstring> names = {L"$DEFAULT", L"Own"};
    std::vector<std::wstring> display_names = {L"Standard", L"Own"};
    std::wstring selected = L"$DEFAULT";
    int32_t alive = 0;
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
    using Counted::Counted;
    HRESULT GetName(BSTR*) override { return E_NOTIMPL; }
    HRESULT SetName(BSTR) override { return E_NOTIMPL; }
    HRESULT GetLaserPower(double*) override { return E_NOTIMPL; }
    HRESULT SetLaserPower(double) override { return E_NOTIMPL; }
    HRESULT GetExposureTime(double*) override { return E_NOTIMPL; }
    HRESULT SetExposureTime(double) override { return E_NOTIMPL; }
    HRESULT GetAnalogImagerGain(uint32_t*) override { return E_NOTIMPL; }
    HRESULT SetAnalogImagerGain(uint32_t) override { return E_NOTIMPL; }
    HRESULT IsDLPCEnabled(BOOL*) override { return E_NOTIMPL; }
    HRESULT SetDLPCEnabled(BOOL) override { return E_NOTIMPL; }
    HRESULT Get3DEdgeFilterEnabled(BOOL*) override { return E_NOTIMPL; }
    HRESULT Set3DEdgeFilterEnabled(BOOL) override { return E_NOTIMPL; }
    HRESULT GetSignalThreshold(uint32_t*) override { return E_NOTIMPL; }
    HRESULT SetSignalThreshold(uint32_t) override { return E_NOTIMPL; }
    HRESULT GetEdgeFilterValue(double*) override { return E_NOTIMPL; }
    HRESULT SetEdgeFilterValue(double) override { return E_NOTIMPL; }
    HRESULT GetMaxInclination(double*) override { return E_NOTIMPL; }
    HRESULT SetMaxInclination(double) override { return E_NOTIMPL; }
    HRESULT IsRFEnabled(BOOL*) override { return E_NOTIMPL; }
    HRESULT SetRFEnabled(BOOL) override { return E_NOTIMPL; }
};

class Handle final : public hx::Implements<Handle, hx::SingleThreaded, ICalibrationHandle, ISupportErrorInfo>,
                     Counted {
public:
    using Counted::Counted;

    HRESULT AcquireHandle() override { return E_NOTIMPL; }
    HRESULT ReleaseHandle() override { return E_NOTIMPL; }
    HRESULT InitialiseScanner(int32_t, int32_t, int32_t) override { return E_NOTIMPL; }
    HRESULT DisableScanner() override { return E_NOTIMPL; }
    HRESULT RegisterTrackingCycleObserver(IUnknown*) override { return E_NOTIMPL; }
    HRESULT ActivateDynamicSettings(IDynamicSettingsPreset*) override { return E_NOTIMPL; }
    HRESULT ActivateGlobalScanningSettings(VARIANT) override { return E_NOTIMPL; }
    HRESULT GetGlobalScanningSettings(BSTR, VARIANT) override { return E_NOTIMPL; }
    HRESULT GetFovManagementConfig(FovManagementConfig*) override { return E_NOTIMPL; }
    HRESULT GetFrequencyReductionSupport(int32_t*) override { return E_NOTIMPL; }
    HRESULT GetSupportedAnalogImagerGains(SAFEARRAY**) override { return E_NOTIMPL; }
    HRESULT GetMaxExposureTime(BSTR, uint32_t*) override { return E_NOTIMPL; }
    HRESULT GetFrameRate(double*) override { return E_NOTIMPL; }
    HRESULT GetExposureTimeInRows(int32_t*) override { return E_NOTIMPL; }
    HRESULT DetectExposureTime(int16_t*) override { return E_NOTIMPL; }
    HRESULT DetectLaserPower(double*) override { return E_NOTIMPL; }
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
        return GivePreset("GetDynamicSettingsPreset " + Text(name), preset);
    }
    HRESULT SaveDynamicSettingsPresets(BSTR owner, SAFEARRAY* names, SAFEARRAY* presets,
                                       BSTR selected) override {
        for (ULONG i = 0; i < presets->rgsabound[0].cElements; ++i) {
            EXPECT_NE(static_cast<IUnknown**>(presets->pvData)[i], nullptr);
        }
        EXPECT_EQ(presets->rgsabound[0].cElements, names->rgsabound[0].cElements);
        return Gate("SaveDynamicSettingsPresets " + Text(owner) + " [" + Joined(Elements(names)) + "] " +
                    Text(selected));
    }
    HRESULT CreateDynamicSettingsPreset(IDynamicSettingsPreset** preset) override {
        return GivePreset("CreateDynamicSettingsPreset", preset);
    }
    HRESULT CloseHandle() override { return Gate("CloseHandle"); }

    HRESULT InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_ICalibrationHandle ? S_OK : S_FALSE;
    }

private:
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
    HRESULT GivePreset(const std::string& call, IDynamicSettingsPreset** preset) {
        const HRESULT result = Gate(call);
        if (SUCCEEDED(result)) *preset = hx::Make<Preset>(m_script).detach();
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
    HRESULT Resume(IErrorInfo**) override { return E_NOTIMPL; }
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
    HRESULT GetDriverProperties(BSTR category, BSTR name, BSTR* xml, IErrorInfo**) override {
        Give(m_script.properties, xml);
        return m_script.Gate("GetDriverProperties " + Text(category) + " " + Text(name));
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
