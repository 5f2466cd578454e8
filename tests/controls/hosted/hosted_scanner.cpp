#include "tests/controls/hosted/hosted_scanner.h"

#include <cmath>
#include <cstdlib>
#include <vector>

#include "platform/com/loader.h"
#include "platform/com/text_array.h"
#include "platform/system/utf8.h"

namespace hosted {
namespace {

using hx::Bstr;
using hx::ComPtr;
using Preset = IDynamicSettingsPreset;

std::string Narrow(std::wstring_view text) {
    return hx::ToUtf8(text);
}
Bstr Text(std::string_view text) {
    return Bstr(*hx::FromUtf8(text));
}

template <class T>
T Get(const ComPtr<Preset>& preset, HRESULT (STDMETHODCALLTYPE Preset::*getter)(T*)) {
    T value{};
    EXPECT_EQ((preset.get()->*getter)(&value), S_OK);
    return value;
}

}  // namespace

bool Values::IsSame(const Values& other) const {
    constexpr double kSteps = 50;  // half a percent of the longest exposure
    constexpr double kRounding = 0.01;
    constexpr size_t kExposure = 1;
    for (size_t i = 0; i < numbers.size(); ++i) {
        const double tolerance = i == kExposure ? kSteps + kRounding : kRounding;
        if (std::fabs(numbers[i] - other.numbers[i]) > tolerance) return false;
    }
    return flags == other.flags && (gain == other.gain || gain == 0 || other.gain == 0);
}

Scanner::Scanner(const std::string& model, std::shared_ptr<const TemporaryFolder> folder)
    : m_folder(std::move(folder)), m_model(model) {
    CLSID clsid{};
    CLSIDFromProgID(kProgIdHXSimulator, &clsid);
    EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<IHXApi>(), api.put_void()),
              S_OK);
    hands = api.as<IHXSimulator>();
    EXPECT_EQ(hands->SetPresetsFolder(Text(m_folder->path().string()).get()), S_OK);
    EXPECT_EQ(hands->SetModel(Text(model).get()), S_OK);
    Bstr driver_name, device_name;
    hands->GetDevice(driver_name.put(), device_name.put());
    driver = driver_name.view();
    device = device_name.view();
    ComPtr<IUnknown> object;
    ComPtr<IErrorInfo> detail;
    api.as<IHXApiInternal>()->CreateCalibrationHandle(driver_name.get(), IID_ICalibrationHandle, object.put(),
                                                      detail.put());
    m_handle = object.as<ICalibrationHandle>();
    uint32_t longest_us = 0;
    m_handle->GetMaxExposureTime(device_name.get(), &longest_us);
    m_longest_exposure_us = longest_us;
}

Scanner::Scanner(const Scanner& same) : Scanner(same.m_model, same.m_folder) {}

Scanner::Scanner(const std::string& model, size_t own_profiles)
    : Scanner(model, std::make_shared<const TemporaryFolder>()) {
    hx::SafeArray name_array, display_name_array;
    const Bstr owner(device);
    m_handle->EnumerateDynamicSettingsPresets(owner.get(), name_array.put(), display_name_array.put());
    std::vector<std::wstring> names;
    std::vector<ComPtr<Preset>> presets;
    const auto factory_names = hx::TextsOf(name_array.get());
    for (const std::wstring& name : *factory_names) {
        if (name.starts_with(L'@')) continue;
        names.push_back(name);
        m_handle->GetDynamicSettingsPreset(owner.get(), Bstr(name).get(), presets.emplace_back().put());
    }
    for (size_t i = 1; i <= own_profiles; ++i) {
        names.push_back(L"Own " + std::to_wstring(i));
        m_handle->CreateDynamicSettingsPreset(presets.emplace_back().put());
        presets.back()->SetLaserPower(static_cast<double>(10 + i % 90));
    }
    const auto count = static_cast<ULONG>(names.size());
    const hx::SafeArray preset_array(SafeArrayCreateVector(VT_UNKNOWN, 0, count));
    for (LONG i = 0; i < static_cast<LONG>(count); ++i) {
        SafeArrayPutElement(preset_array.get(), &i, presets[static_cast<size_t>(i)].get());
    }
    EXPECT_EQ(m_handle->SaveDynamicSettingsPresets(owner.get(), hx::TextArray(names).get(),
                                                   preset_array.get(), Bstr(L"$DEFAULT").get()),
              S_OK);
}

std::map<std::string, Profile> Scanner::Stored() const {
    std::map<std::string, Profile> stored;
    const Bstr owner(device);
    hx::SafeArray name_array, display_name_array;
    m_handle->EnumerateDynamicSettingsPresets(owner.get(), name_array.put(), display_name_array.put());
    const auto names = hx::TextsOf(name_array.get());
    const auto display_names = hx::TextsOf(display_name_array.get());
    for (size_t i = 0; names && i < names->size(); ++i) {
        if ((*names)[i].starts_with(L'@')) continue;
        ComPtr<Preset> preset;
        m_handle->GetDynamicSettingsPreset(owner.get(), Bstr((*names)[i]).get(), preset.put());
        Profile& profile = stored[Narrow((*names)[i])];
        profile.display_name = Narrow((*display_names)[i]);
        profile.values = {{Get(preset, &Preset::GetLaserPower),
                           Get(preset, &Preset::GetExposureTime) / m_longest_exposure_us * 10000,
                           static_cast<double>(Get(preset, &Preset::GetSignalThreshold)),
                           Get(preset, &Preset::GetMaxInclination), Get(preset, &Preset::GetEdgeFilterValue)},
                          {Get(preset, &Preset::IsDLPCEnabled) != FALSE,
                           Get(preset, &Preset::Get3DEdgeFilterEnabled) != FALSE,
                           Get(preset, &Preset::IsRFEnabled) != FALSE},
                          Get(preset, &Preset::GetAnalogImagerGain)};
    }
    return stored;
}

std::string Scanner::Calls() const {
    Bstr json;
    hands->TakeCalls(json.put());
    return Narrow(json.view());
}

void Scanner::Settle() const {
    hands->WaitForEvents();
    hx::DispatchMessages();
}

void Scanner::Fail(const std::string& operation, HRESULT result, int32_t after, int32_t times,
                   bool hang_up) const {
    const Bstr name = Text(operation);
    const HXSimulatorFault fault{name.get(), result,  times,  after, 0, hang_up ? TRUE : FALSE,
                                 nullptr,    nullptr, nullptr};
    EXPECT_EQ(hands->InjectFault(&fault), S_OK) << operation;
}

uint64_t FromEnvironment(const char* name, uint64_t usual) {
    const char* const text = std::getenv(name);
    return text != nullptr && *text != '\0' ? std::strtoull(text, nullptr, 10) : usual;
}

}  // namespace hosted
