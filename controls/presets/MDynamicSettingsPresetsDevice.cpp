// Which scanner is configured, which is connected, and the way to it.
#include "controls/api/ApiOperation.h"
#include "controls/presets/MDynamicSettingsPresets.h"
#include "platform/com/text_array.h"
#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "settings/properties/MPropertiesHelper.h"

namespace hx {
namespace {

constexpr char kClass[] = "MDynamicSettingsPresets";
// In a driver selection.
constexpr size_t kDriverCount = 3;
constexpr size_t kScannerDriver = 2;

}  // namespace

int32_t MDynamicSettingsPresets::ConnectionState(const ApiOperation& operation, int32_t line) const {
    int32_t state = HXNotConnected;
    ComPtr<IErrorInfo> detail;
    operation.Check(line, L"GetConnectionState",
                    m_api ? m_api->GetConnectionState(&state, detail.put()) : E_POINTER);
    return state;
}

ComPtr<ICalibrationHandle> MDynamicSettingsPresets::CreateCalibrationHandle() {
    static MErrorLocation location(kClass, "CreateCalibrationHandle");
    const ApiOperation operation(location, this);
    if (!m_api) operation.Fail(34, L"NoApi");
    ComPtr<IHXApiInternal> api;
    operation.Check(36, L"QueryInterfaceApiInternal",
                    m_api->QueryInterface(uuid_of<IHXApiInternal>(), api.put_void()));
    if (!api) operation.Fail(38, L"ApiInternalNull");
    if (ConnectionState(operation, 39) == HXConnected) {
        ReadDriverSelection(operation, *api);
        UpdateActiveDeviceInternalName();
    }

    ComPtr<IUnknown> object;
    ComPtr<IErrorInfo> detail;
    operation.Check(46, L"CreateCalibrationHandle",
                    api->CreateCalibrationHandle(Bstr(m_scanner_name).get(), uuid_of<ICalibrationHandle>(),
                                                 object.put(), detail.put()));
    ComPtr<ICalibrationHandle> handle;
    operation.Check(50, L"QueryInterfaceCalibrationHandle",
                    object.query_to(uuid_of<ICalibrationHandle>(), handle.put_void()));
    return handle;
}

void MDynamicSettingsPresets::ReadDriverSelection(const ApiOperation& operation, IHXApiInternal& api) {
    ComPtr<IHXProfile> profile;
    ComPtr<IErrorInfo> detail;
    operation.Check(58, L"GetCurrentProfile", api.GetCurrentProfile(profile.put(), detail.put()));
    if (!profile) operation.Fail(59, L"GetCurrentProfile", E_POINTER);
    SafeArray selection;
    operation.Check(61, L"GetDriverSelection", profile->GetDriverSelection(selection.put()));
    const auto drivers = TextsOf(selection.get());
    if (!drivers || drivers->size() != kDriverCount) operation.Fail(63, L"NoScannerDeviceInternalName");
    m_active_scanner_name = (*drivers)[kScannerDriver];
    if (m_scanner_name.empty()) m_scanner_name = m_active_scanner_name;
}

bool MDynamicSettingsPresets::UpdateActiveDeviceInternalName() {
    static MErrorLocation location(kClass, "UpdateActiveDeviceInternalName");
    const ApiOperation operation(location, this);
    if (ConnectionState(operation, 71) == HXConnected && m_connected_owner_name.empty()) {
        ComPtr<IDeviceManager> manager;
        ComPtr<IErrorInfo> detail;
        if (FAILED(m_api->GetDeviceManager(manager.put(), detail.put())) || !manager) {
            operation.Fail(75, L"GetDeviceManager");
        }
        Bstr xml;
        operation.Check(78, L"GetDriverProperties",
                        manager->GetDriverProperties(Bstr(kHXCategoryScanner).get(),
                                                     Bstr(m_scanner_name).get(), xml.put(), detail.put()));
        MCommonDriverProperties driver;
        MHXFamilyDeviceProperties device;
        // The name is all that counts: a device that tells less of itself than it should can be used.
        MPropertiesHelper(driver, device).ReadXML(std::wstring(xml.view()), false);
        m_connected_owner_name = device.InternalName;
    }
    if (m_owner_name.empty()) m_owner_name = m_connected_owner_name;
    return m_owner_name == m_connected_owner_name && !m_owner_name.empty() && !m_active_scanner_name.empty();
}

}  // namespace hx
