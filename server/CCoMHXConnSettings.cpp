#include "server/CCoMHXConnSettings.h"

#include "core/errors/MDiagnosticsRegistry.h"
#include "core/errors/MErrorLocation.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"
#include "core/log/MFlowScope.h"
#include "platform/com/boundary.h"

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
            return Read({xml, SysStringLen(xml)});
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
            return Write(xml);
        } catch (const MException& exception) {
            location.Set(this, 59);
            DiagnosticsRegistry().OnException(location, exception, kExceptionKind);
            return E_FAIL;
        }
    });
}

HRESULT CCoMHXConnSettings::Read(std::wstring_view xml) {
    MInFilerTaggedXml reader(std::wstring(xml), kTaggedXmlRoot);
    MFilerTaggedPair filer(reader);
    return m_settings.ReadTagged(filer, MHXConnectionSettings::kElement, MHXConnectionSettings()) ? S_OK
                                                                                                  : E_FAIL;
}

HRESULT CCoMHXConnSettings::Write(BSTR* xml) const {
    MOutFilerTaggedXml writer(kTaggedXmlRoot);
    MFilerTaggedPair filer(writer);
    if (!m_settings.WriteTagged(filer, MHXConnectionSettings::kElement)) return E_FAIL;
    const std::wstring text = writer.TakeText();
    if (text.empty()) return E_FAIL;
    BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (copy == nullptr) return E_OUTOFMEMORY;
    *xml = copy;
    return S_OK;
}

}  // namespace hx
