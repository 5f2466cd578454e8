// The connection settings object: one record, and its way in and out as tagged XML. Made by the settings
// factory or by its class factory; used on the thread that made it. Leaves no error information.
#pragma once

#include "hxapi/ICoMHXConnSettings.h"
#include "hxapi/IXmlBstrSerializable.h"
#include "platform/com/class_table.h"
#include "platform/com/implements.h"
#include "settings/connection/MHXConnectionSettings.h"

namespace hx {

class CCoMHXConnSettings final
    : public Implements<CCoMHXConnSettings, SingleThreaded, ICoMHXConnSettings, IXmlBstrSerializable> {
public:
    HRESULT STDMETHODCALLTYPE ReadXmlBstr(BSTR xml) override;
    HRESULT STDMETHODCALLTYPE WriteXmlBstr(BSTR* xml) override;

private:
    ModuleLock m_module_lock;
    MHXConnectionSettings m_settings;
};

}  // namespace hx
