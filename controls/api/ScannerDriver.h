// Which driver the scanner API uses for the scanner, and what that driver tells. Asked by the presets manager
// and by pages, which raise failures as their own: a call that fails throws an MException
// "Class.Operation:Call" of the operation given. On the thread of the user interface; the API may dispatch
// messages meanwhile.
#pragma once

#include <string>

#include "controls/api/ApiOperation.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "settings/properties/MCommonDriverProperties.h"
#include "settings/properties/MHXFamilyDeviceProperties.h"

namespace hx {

// Never null: "QueryInterfaceApiInternal", "ApiInternalNull".
ComPtr<IHXApiInternal> InternalApiOf(const ApiOperation& operation, IHXApi& api);

// The scanner's driver of the profile in use: "GetCurrentProfile", "GetDriverSelection",
// "NoScannerDeviceInternalName".
std::wstring SelectedScannerDriver(const ApiOperation& operation, IHXApiInternal& api);

struct DriverAnswer {
    HRESULT result = S_OK;
    std::wstring xml;          // the properties document
    std::wstring description;  // for the user, of a failure; may be empty
};
// What that driver answers when it is asked for its properties, also that it cannot tell. "GetDeviceManager",
// without the result code.
DriverAnswer AskDriver(const ApiOperation& operation, IHXApi& api, const std::wstring& internal_name);
// "GetDriverProperties", with the result code.
void CheckAnswer(const ApiOperation& operation, const DriverAnswer& answer);

struct DriverProperties {
    MCommonDriverProperties driver;
    MHXFamilyDeviceProperties device;
};
// A device that tells less of itself than it should can be used, and shown as far as it is known. Throws what
// MPropertiesHelper does for a document that cannot be read.
DriverProperties ReadDriverProperties(DriverAnswer answer);

}  // namespace hx
