#include "apps/hosting/report/DriverSerialNumbers.h"

#include "apps/hosting/report/SerialNumbers.h"
#include "core/xml/MXmlDocument.h"
#include "hxapi/IHXApi.h"
#include "platform/com/comptr.h"

namespace hosting {
namespace {

// Of the scanner, and of parts in it.
constexpr std::wstring_view kNameEnd = L"SerialNumber";
// May have one in it, behind "S/N", that stands nowhere else.
constexpr std::wstring_view kDisplayName = L"DisplayName";

void Collect(hx::MXmlDocument& document, std::vector<std::wstring>& numbers) {
    while (document.FindElement()) {
        if (document.GetTagName().ends_with(kNameEnd)) numbers.push_back(document.GetContent());
        if (document.GetTagName() == kDisplayName) {
            const auto named = SerialNumbers::NumbersIn(document.GetContent());
            numbers.insert(numbers.end(), named.begin(), named.end());
        }
        if (!document.EnterElement()) continue;
        Collect(document, numbers);
        document.LeaveElement();
    }
}

std::wstring PropertiesOf(IHXApi& api, const std::wstring& driver) {
    hx::ComPtr<IDeviceManager> manager;
    hx::ComPtr<IErrorInfo> detail;
    if (FAILED(api.GetDeviceManager(manager.put(), detail.put())) || !manager) return {};
    hx::Bstr text;
    manager->GetDriverProperties(hx::Bstr(kHXCategoryScanner).get(), hx::Bstr(driver).get(), text.put(),
                                 detail.put());
    return std::wstring(text.view());
}

}  // namespace

std::vector<std::wstring> DriverSerialNumbers(IUnknown* api, const std::wstring& driver) {
    const auto scanner = hx::ComPtr<IUnknown>(api).as<IHXApi>();
    std::vector<std::wstring> numbers;
    hx::MXmlDocument document;
    if (!scanner || !document.Parse(PropertiesOf(*scanner, driver))) return numbers;
    Collect(document, numbers);
    return numbers;
}

}  // namespace hosting
