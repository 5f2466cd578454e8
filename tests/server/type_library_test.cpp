// The component library's description of itself, walked from the description of one of its objects.
#include <string>

#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/ICoMHXConnSettings.h"
#include "hxapi/ICoMHXMeasSettings.h"
#include "hxapi/IGetPointer.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/ole_control.h"
#include "platform/com/typelib.h"
#include "tests/server/component_library.h"

namespace {

using hx::ComPtr;

class TypeLibraryOfTheProduct : public ComponentLibrary {
protected:
    static std::wstring NameOf(ITypeInfo& info) {
        hx::Bstr name;
        EXPECT_EQ(info.GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr), S_OK);
        return std::wstring(name.view());
    }
    // The library around the description `own` of an object of the class; it has that at its index.
    static ComPtr<ITypeLib> LibraryAround(REFCLSID clsid, ComPtr<ITypeInfo>& own) {
        UINT index = 0;
        ComPtr<ITypeLib> library;
        ComPtr<ITypeInfo> same;
        EXPECT_EQ(Create<IDispatch>(clsid)->GetTypeInfo(0, 0, own.put()), S_OK);
        EXPECT_EQ(own->GetContainingTypeLib(library.put(), &index), S_OK);
        EXPECT_EQ(library->GetTypeInfo(index, same.put()), S_OK);
        EXPECT_EQ(NameOf(*same), NameOf(*own));
        return library;
    }
    // The interfaces of a class: "+" before the one that is meant by its name, "<" before one that it calls,
    // "!" before one that `object` has not.
    static std::wstring InterfacesOf(ITypeInfo& info, const ComPtr<IUnknown>& object) {
        std::wstring list;
        HREFTYPE type = 0;
        for (UINT i = 0; SUCCEEDED(info.GetRefTypeOfImplType(i, &type)); ++i) {
            INT flags = 0;
            ComPtr<ITypeInfo> face;
            ComPtr<IUnknown> found;
            TYPEATTR* attributes = nullptr;
            EXPECT_EQ(info.GetImplTypeFlags(i, &flags), S_OK);
            EXPECT_EQ(info.GetRefTypeInfo(type, face.put()), S_OK);
            EXPECT_EQ(face->GetTypeAttr(&attributes), S_OK);
            if (object) object->QueryInterface(attributes->guid, found.put_void());
            face->ReleaseTypeAttr(attributes);
            list += flags & IMPLTYPEFLAG_FDEFAULT ? L" +" : L" ";
            list += flags & IMPLTYPEFLAG_FSOURCE ? L"<" : L"";
            list += (object && !found ? L"!" : L"") + NameOf(*face);
        }
        return list;
    }
};

TEST_F(TypeLibraryOfTheProduct, ListsTypesAndClassesWhoseObjectsHaveWhatItSays) {
    constexpr WORD kDual = TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE,
                   kPage = TYPEFLAG_FCANCREATE | TYPEFLAG_FCONTROL;
    const struct {
        TYPEKIND kind;
        GUID guid;
        WORD flags;
        HRESULT created;
        const wchar_t* text;
    } rows[] = {
        {TKIND_INTERFACE, IID_IXmlBstrSerializable, 0, E_NOTIMPL, L"IXmlBstrSerializable"},
        {TKIND_DISPATCH, IID_ITriggerSource, kDual, E_NOTIMPL, L"ITriggerSource"},
        {TKIND_INTERFACE, IID_IGetPointer, 0, E_NOTIMPL, L"IGetPointer"},
        {TKIND_DISPATCH, IID_ICoMHXMeasSettings, kDual, E_NOTIMPL, L"ICoMHXMeasSettings"},
        {TKIND_INTERFACE, IID_ICoMHXConnSettings, 0, E_NOTIMPL, L"ICoMHXConnSettings"},
        {TKIND_INTERFACE, IID_IProfileSettingsFactory, 0, E_NOTIMPL, L"IProfileSettingsFactory"},
        {TKIND_DISPATCH, IID_DHXConfigCtrl, kDual, E_NOTIMPL, L"DHXConfigCtrl"},
        {TKIND_DISPATCH, IID_DHXConfigCtrlEvents, TYPEFLAG_FDISPATCHABLE, E_NOTIMPL, L"DHXConfigCtrlEvents"},
        {TKIND_COCLASS, CLSID_CoMHXMeasSettings, TYPEFLAG_FCANCREATE, S_OK,
         L"CoMHXMeasSettings +ICoMHXMeasSettings IXmlBstrSerializable ITriggerSource IGetPointer"},
        {TKIND_COCLASS, CLSID_CoMHXSettingsFactory, TYPEFLAG_FCANCREATE, S_OK,
         L"CoMHXSettingsFactory +IProfileSettingsFactory"},
        {TKIND_COCLASS, CLSID_CoMHXConnSettings, TYPEFLAG_FCANCREATE, S_OK,
         L"CoMHXConnSettings +ICoMHXConnSettings IXmlBstrSerializable"},
        {TKIND_COCLASS, CLSID_HXScannerMeasSettingsCtrl, kPage, S_OK,
         L"HXScannerMeasSettingsCtrl +DHXConfigCtrl +<!DHXConfigCtrlEvents"},
        {TKIND_COCLASS, CLSID_HXScannerHandheldMeasSettingsCtrl, kPage, S_OK,
         L"HXScannerHandheldMeasSettingsCtrl +DHXConfigCtrl +<!DHXConfigCtrlEvents"},
        {TKIND_COCLASS, CLSID_HXScannerDiagnosticsCtrl, kPage, S_OK,
         L"HXScannerDiagnosticsCtrl +DHXConfigCtrl +<!DHXConfigCtrlEvents"},
        {TKIND_COCLASS, CLSID_HXScannerRorSettingsCtrl, kPage, REGDB_E_CLASSNOTREG,
         L"HXScannerRorSettingsCtrl +DHXConfigCtrl +<DHXConfigCtrlEvents"},
    };
    ComPtr<ITypeInfo> own;
    const auto library = LibraryAround(CLSID_CoMHXMeasSettings, own);
    ASSERT_EQ(library->GetTypeInfoCount(), std::size(rows));
    for (UINT i = 0; i < std::size(rows); ++i) {
        TYPEKIND kind{};
        EXPECT_EQ(library->GetTypeInfoType(i, &kind), S_OK);
        EXPECT_EQ(kind, rows[i].kind) << i;
        ComPtr<ITypeInfo> info;
        ASSERT_EQ(library->GetTypeInfo(i, info.put()), S_OK);
        ComPtr<IUnknown> object;
        EXPECT_EQ(info->CreateInstance(nullptr, IID_IUnknown, object.put_void()), rows[i].created) << i;
        EXPECT_EQ(NameOf(*info) + InterfacesOf(*info, object), rows[i].text);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->guid, rows[i].guid) << i;
        EXPECT_EQ(attributes->wTypeFlags, rows[i].flags) << i;
        info->ReleaseTypeAttr(attributes);
        if (rows[i].created != S_OK) continue;
        void* none = &own;
        EXPECT_EQ(info->CreateInstance(library.get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION) << i;
        EXPECT_EQ(none, nullptr);
    }
}

TEST_F(TypeLibraryOfTheProduct, DescribesEveryPageAlikeThoughNotEachHasAllMembers) {
    ComPtr<ITypeInfo> own, listed;
    const auto library = LibraryAround(CLSID_HXScannerDiagnosticsCtrl, own);
    ASSERT_EQ(library->GetTypeInfoOfGuid(IID_DHXConfigCtrl, listed.put()), S_OK);
    wchar_t initialise[] = L"Initialise";
    LPOLESTR name = initialise;
    DISPID id = 0;
    EXPECT_EQ(own->GetIDsOfNames(&name, 1, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(listed->GetIDsOfNames(&name, 1, &id), S_OK);

    // Its members work with any page.
    const auto page = Create<DHXConfigCtrl>(CLSID_HXScannerDiagnosticsCtrl);
    const hx::Variant text(std::wstring_view(L"Gauge"));
    VARIANT value = text.get();
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS given{&value, &put, 1, 1}, none{};
    hx::Variant read;
    const auto invoke = [&](WORD flags, DISPPARAMS& arguments) {
        return listed->Invoke(page.get(), DISPID_CAPTION, flags, &arguments, read.put(), nullptr, nullptr);
    };
    EXPECT_EQ(invoke(DISPATCH_PROPERTYPUT, given), S_OK);
    EXPECT_EQ(invoke(DISPATCH_PROPERTYGET, none), S_OK);
    ASSERT_EQ(read.type(), VT_BSTR);
    EXPECT_EQ(read->bstrVal, std::wstring_view(L"Gauge"));
}

}  // namespace
