#include "server/CCoMHXSettingsFactory.h"

#include <algorithm>
#include <iterator>

#include "core/log/MFlowScope.h"
#include "platform/com/boundary.h"
#include "server/CCoMHXConnSettings.h"
#include "server/CCoMHXMeasSettings.h"

namespace hx {
namespace {

struct ServedSettings {
    ProfileSettingsType type;
    HRESULT (*create)(REFIID iid, void** object);
};

constexpr ServedSettings kServed[] = {
    {ScannerConnectionSettings, &CreateObject<CCoMHXConnSettings>},
    {ScannerMeasurementSettings, &CreateObject<CCoMHXMeasSettings>},
};

}  // namespace

HRESULT CCoMHXSettingsFactory::CreateSettingsObject(ProfileSettingsType type,
                                                    IXmlBstrSerializable** settings) {
    const MFlowScope scope("CCoMHXSettingsFactory::CreateSettingsObject", "CCoMHXSettingsFactory", 25);
    const auto* const served = std::ranges::find(kServed, type, &ServedSettings::type);
    // The caller's pointer stays as it is: hosts ask for kinds that nobody serves and keep what they had.
    if (served == std::end(kServed)) return E_INVALIDARG;
    return AtBoundary(
        [&] { return served->create(uuid_of<IXmlBstrSerializable>(), reinterpret_cast<void**>(settings)); });
}

}  // namespace hx
