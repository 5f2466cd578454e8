#include "server/CCoMHXConnSettings.h"

#include "core/errors/MDiagnosticsRegistry.h"
#include "core/errors/MErrorLocation.h"
#include "core/log/MFlowScope.h"
#include "platform/com/boundary.h"
#include "server/SettingsText.h"

namespace hx {
namespace {

// The number under which exceptions of settings objects are reported.
constexpr int32_t kExceptionKind = 3;
constexpr const char* kSourceName = "CCoMHXConnSettings";

}  // namespace

HRESULT CCoMHXConnSettings::ReadXmlBstr(BSTR xml) {
    const MFlowScope scope("CCoMHXConnSettings::ReadXmlBstr", kSourceName, 20);
    return AtBoundary([&] {
        static MErrorLocation location(kSourceName, "ReadXmlBstr");
        try {
            if (xml == nullptr) {
                m_settings = MHXConnectionSettings();
                return S_OK;
            }
            return ReadSettingsText(xml, m_settings);
        } catch (const MException& exception) {
            location.Set(this, 34);
            DiagnosticsRegistry().OnException(location, exception, kExceptionKind);
            return E_FAIL;
        }
    });
}

HRESULT CCoMHXConnSettings::WriteXmlBstr(BSTR* xml) {
    const MFlowScope scope("CCoMHXConnSettings::WriteXmlBstr", kSourceName, 45);
    if (xml == nullptr) return E_INVALIDARG;
    return AtBoundary([&] {
        static MErrorLocation location(kSourceName, "WriteXmlBstr");
        try {
            return WriteSettingsText(m_settings, xml);
        } catch (const MException& exception) {
            location.Set(this, 59);
            DiagnosticsRegistry().OnException(location, exception, kExceptionKind);
            return E_FAIL;
        }
    });
}

}  // namespace hx
