// The localisation of a control whose language the scanner API knows. On the thread of the user interface.
#pragma once

#include "core/locale/MLocalisationHelper.h"
#include "platform/com/unknown.h"

namespace hx {

class MLocalisationHelperApi : public MLocalisationHelper {
public:
    // Loads the satellite of the language that the API names. Throws as the two operations do.
    void SetLocaleFromApi(IUnknown* api);

    // "de-DE". Throws an MException: NoApiPointer for a null `api`; QueryInterface if it has no locale
    // interface and GetLocale if that fails, both with "hresult".
    static std::wstring GetLocaleFromApi(IUnknown* api);
};

}  // namespace hx
