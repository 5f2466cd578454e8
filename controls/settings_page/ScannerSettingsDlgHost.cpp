// What the host of the page hands over and asks for.
#include "controls/api/ApiOperation.h"
#include "controls/settings_page/ScannerSettingsDlg.h"

namespace hx {
namespace {

// The index of the first element of an array of variants; none if it is another array, or has no elements.
std::optional<LONG> FirstVariant(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    LONG first = 0;
    LONG last = 0;
    const bool taken = SafeArrayGetDim(array) == 1 && SUCCEEDED(SafeArrayGetVartype(array, &type)) &&
                       type == VT_VARIANT && SafeArrayGetElemsize(array) == sizeof(VARIANT) &&
                       SUCCEEDED(SafeArrayGetLBound(array, 1, &first)) &&
                       SUCCEEDED(SafeArrayGetUBound(array, 1, &last)) && first <= last;
    return taken ? std::optional(first) : std::nullopt;
}

// Its first element, if that is a text.
std::optional<std::wstring> FirstText(SAFEARRAY* array) {
    std::optional<LONG> index = FirstVariant(array);
    Variant element;
    if (!index || FAILED(SafeArrayGetElement(array, &*index, element.put())) || element.type() != VT_BSTR) {
        return {};
    }
    return std::wstring(element->bstrVal ? element->bstrVal : L"", SysStringLen(element->bstrVal));
}

}  // namespace

void ScannerSettingsDlg::SetApi(ComPtr<IHXApi> api) {
    Session().SetApi(std::move(api));
}

void ScannerSettingsDlg::SetSettingsObjectMap(ComPtr<IHXSettingsObjectMap> map) {
    m_settings.reset();
    m_settings_map = std::move(map);
    // A map without the entry is one as well.
    if (m_settings_map) m_settings_map->GetSettingsObject(ScannerMeasurementSettings, m_settings.put());
}

void ScannerSettingsDlg::OnSelected() {
    if (Operations().IsClosed()) return;
    const Scope scope(Operations());
    Session().OnSelected();
    // The scanner may have gone while another page was shown.
    if (scope.IsSessionOpen() && Session().ConnectionState() != HXConnected) RefreshFrameRate();
}

void ScannerSettingsDlg::OnDeselected() {
    Session().OnDeselected();
}

void ScannerSettingsDlg::Initialise(const std::wstring& driver_internal_name,
                                    const std::wstring& device_internal_name,
                                    const std::wstring& function_name, SAFEARRAY** arguments) {
    const ApiOperation operation(Locations().initialise, this);
    m_function_name = function_name;
    if (!Operations().IsClosed()) {
        SessionTarget& target = Session().Target();
        target.initialised = true;
        target.driver_internal_name = driver_internal_name;
        target.device_internal_name = device_internal_name;
        m_arguments = arguments;
        Session().Presets().SetNames(driver_internal_name, device_internal_name);
    }
    SAFEARRAY* const array = arguments != nullptr ? *arguments : nullptr;
    if (array == nullptr) operation.Fail(66, L"InvalidArguments");
    // It is the size of the elements that tells, and not their number.
    if (SafeArrayGetElemsize(array) == 0) operation.Fail(68, L"MissingArguments");
    std::optional<std::wstring> profile_name = FirstText(array);
    if (!profile_name) operation.Fail(70, L"InvalidArgumentType");
    SetProfileToSelect(std::move(*profile_name));
}

void ScannerSettingsDlg::ReportSelectedPreset() {
    if (m_arguments == nullptr || *m_arguments == nullptr) return;
    std::optional<LONG> index = FirstVariant(*m_arguments);
    // What came malformed is not written to.
    if (!index) return;
    Variant name(ProfileList().SelectedName());
    VARIANT value = name.get();
    ApiOperation(Locations().report_selected, this)
        .Check(82, L"SafeArrayPutElement", SafeArrayPutElement(*m_arguments, &*index, &value));
}

}  // namespace hx
