// Which scanner is configured, which is connected, and the way to it.
#include "controls/api/ScannerDriver.h"
#include "controls/presets/MDynamicSettingsPresets.h"

namespace hx {
namespace {

constexpr char kClass[] = "MDynamicSettingsPresets";

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
    const ComPtr<IHXApiInternal> api = InternalApiOf(operation, *m_api);
    if (ConnectionState(operation, 39) == HXConnected) {
        m_active_scanner_name = SelectedScannerDriver(operation, *api);
        if (m_scanner_name.empty()) m_scanner_name = m_active_scanner_name;
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

bool MDynamicSettingsPresets::UpdateActiveDeviceInternalName() {
    static MErrorLocation location(kClass, "UpdateActiveDeviceInternalName");
    const ApiOperation operation(location, this);
    if (ConnectionState(operation, 71) == HXConnected && m_connected_owner_name.empty()) {
        DriverAnswer answer = AskDriver(operation, *m_api, m_scanner_name);
        CheckAnswer(operation, answer);
        m_connected_owner_name = ReadDriverProperties(std::move(answer)).device.InternalName;
    }
    if (m_owner_name.empty()) m_owner_name = m_connected_owner_name;
    return m_owner_name == m_connected_owner_name && !m_owner_name.empty() && !m_active_scanner_name.empty();
}

}  // namespace hx
