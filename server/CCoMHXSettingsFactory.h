// Makes settings objects for the scanner API, by the kind of settings. Stateless; any thread.
#pragma once

#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/class_table.h"
#include "platform/com/implements.h"

namespace hx {

class CCoMHXSettingsFactory final
    : public Implements<CCoMHXSettingsFactory, FreeThreaded, IProfileSettingsFactory> {
public:
    HRESULT STDMETHODCALLTYPE CreateSettingsObject(ProfileSettingsType type,
                                                   IXmlBstrSerializable** settings) override;

private:
    ModuleLock m_module_lock;
};

}  // namespace hx
