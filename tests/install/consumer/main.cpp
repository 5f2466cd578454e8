// A program of somebody else: the text of new connection settings, from the component that goes by that name.
#include <iostream>

#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/IXmlBstrSerializable.h"
#include "platform/com/comptr.h"
#include "platform/com/loader.h"
#include "platform/system/utf8.h"

int main() {
    CLSID clsid;
    hx::ComPtr<IXmlBstrSerializable> settings;
    hx::Bstr xml;
    if (FAILED(CLSIDFromProgID(kProgIdHXConnSettings, &clsid)) ||
        FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<IXmlBstrSerializable>(),
                                settings.put_void())) ||
        FAILED(settings->WriteXmlBstr(xml.put()))) {
        return 1;
    }
    std::cout << hx::ToUtf8(xml.view());
}
