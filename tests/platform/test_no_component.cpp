// A shared library with one of the entry points only.
#include "platform/com/hresult.h"

STDAPI DllCanUnloadNow() {
    return S_OK;
}
