#include "controls/api/ScannerDriver.h"

#include "platform/com/text_array.h"
#include "settings/properties/MPropertiesHelper.h"

namespace hx {
namespace {

// In a driver selection.
constexpr size_t kDriverCount = 3;
constexpr size_t kScannerDriver = 2;

std::wstring DescriptionOf(IErrorInfo* detail) {
    Bstr description;
    if (detail == nullptr || FAILED(detail->GetDescription(description.put()))) return {};
    return std::wstring(description.view());
}

}  // namespace

ComPtr<IHXApiInternal> InternalApiOf(const ApiOperation& operation, IHXApi& api) {
    ComPtr<IHXApiInternal> internal;
    operation.Check(28, L"QueryInterfaceApiInternal",
                    api.QueryInterface(uuid_of<IHXApiInternal>(), internal.put_void()));
    if (!internal) operation.Fail(30, L"ApiInternalNull");
    return internal;
}

std::wstring SelectedScannerDriver(const ApiOperation& operation, IHXApiInternal& api) {
    ComPtr<IHXProfile> profile;
    ComPtr<IErrorInfo> detail;
    operation.Check(37, L"GetCurrentProfile", api.GetCurrentProfile(profile.put(), detail.put()));
    if (!profile) operation.Fail(38, L"GetCurrentProfile", E_POINTER);
    SafeArray selection;
    operation.Check(40, L"GetDriverSelection", profile->GetDriverSelection(selection.put()));
    auto drivers = TextsOf(selection.get());
    if (!drivers || drivers->size() != kDriverCount) operation.Fail(42, L"NoScannerDeviceInternalName");
    return std::move((*drivers)[kScannerDriver]);
}

DriverAnswer AskDriver(const ApiOperation& operation, IHXApi& api, const std::wstring& internal_name) {
    ComPtr<IDeviceManager> manager;
    ComPtr<IErrorInfo> detail;
    if (FAILED(api.GetDeviceManager(manager.put(), detail.put())) || !manager) {
        operation.Fail(50, L"GetDeviceManager");
    }
    DriverAnswer answer;
    Bstr xml;
    answer.result = manager->GetDriverProperties(Bstr(kHXCategoryScanner).get(), Bstr(internal_name).get(),
                                                 xml.put(), detail.put());
    if (FAILED(answer.result)) {
        answer.description = DescriptionOf(detail.get());
    } else {
        answer.xml = xml.view();
    }
    return answer;
}

void CheckAnswer(const ApiOperation& operation, const DriverAnswer& answer) {
    operation.Check(66, L"GetDriverProperties", answer.result);
}

DriverProperties ReadDriverProperties(DriverAnswer answer) {
    DriverProperties properties;
    MPropertiesHelper(properties.driver, properties.device).ReadXML(std::move(answer.xml), false);
    return properties;
}

}  // namespace hx
