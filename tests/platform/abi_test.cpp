// Sizes, offsets, identifiers and slots that code compiled elsewhere relies on.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "platform/com/connection_point.h"
#include "platform/com/dispatch.h"
#include "platform/com/errorinfo.h"
#include "platform/com/ole_control.h"
#include "platform/com/ole_verbs.h"
#include "platform/com/persist.h"
#include "platform/com/property_page.h"
#include "platform/com/safearray.h"
#include "platform/com/typelib.h"
#include "tests/vtable_slot.h"

namespace {

static_assert(std::is_same_v<HRESULT, int32_t>);
static_assert(sizeof(GUID) == 16 && std::is_aggregate_v<GUID> && std::is_trivial_v<GUID>);
static_assert(offsetof(GUID, Data2) == 4 && offsetof(GUID, Data3) == 6 && offsetof(GUID, Data4) == 8);

static_assert(sizeof(VARIANT) == 24 && alignof(VARIANT) == 8 && std::is_trivial_v<VARIANT>);
static_assert(offsetof(VARIANT, vt) == 0 && offsetof(VARIANT, wReserved3) == 6);
static_assert(offsetof(VARIANT, lVal) == 8 && offsetof(VARIANT, bstrVal) == 8);
static_assert(offsetof(VARIANT, dblVal) == 8 && offsetof(VARIANT, parray) == 8);
static_assert(VARIANT_TRUE == -1 && sizeof(VARIANT_BOOL) == 2 && sizeof(VARTYPE) == 2);
static_assert(VT_BSTR == 8 && VT_DISPATCH == 9 && VT_BOOL == 11 && VT_VARIANT == 12 && VT_UNKNOWN == 13);
static_assert(VT_UI1 == 17 && VT_UI8 == 21 && VT_UINT == 23 && VT_ARRAY == 0x2000 && VT_BYREF == 0x4000);

static_assert(sizeof(SAFEARRAY) == 32 && sizeof(SAFEARRAYBOUND) == 8);
static_assert(offsetof(SAFEARRAY, fFeatures) == 2 && offsetof(SAFEARRAY, cbElements) == 4);
static_assert(offsetof(SAFEARRAY, cLocks) == 8 && offsetof(SAFEARRAY, pvData) == 16);
static_assert(offsetof(SAFEARRAY, rgsabound) == 24 && offsetof(SAFEARRAYBOUND, lLbound) == 4);

static_assert(sizeof(DISPPARAMS) == 24 && offsetof(DISPPARAMS, cArgs) == 16);
static_assert(sizeof(EXCEPINFO) == 64 && offsetof(EXCEPINFO, bstrSource) == 8);
static_assert(offsetof(EXCEPINFO, dwHelpContext) == 32 && offsetof(EXCEPINFO, scode) == 56);

static_assert(sizeof(TYPEATTR) == 96 && offsetof(TYPEATTR, typekind) == 44);
static_assert(offsetof(TYPEATTR, tdescAlias) == 64 && sizeof(TYPEDESC) == 16 && sizeof(ELEMDESC) == 32);
static_assert(sizeof(TLIBATTR) == 32 && offsetof(TLIBATTR, wMajorVerNum) == 24);
static_assert(sizeof(FUNCDESC) == 88 && offsetof(FUNCDESC, invkind) == 28);
static_assert(offsetof(FUNCDESC, cParams) == 36 && offsetof(FUNCDESC, elemdescFunc) == 48);

static_assert(sizeof(HWND) == 8 && sizeof(RECT) == 16 && sizeof(POINT) == 8 && sizeof(SIZEL) == 8);
static_assert(sizeof(MSG) == 48 && offsetof(MSG, wParam) == 16 && offsetof(MSG, pt) == 36);
static_assert(sizeof(OLEINPLACEFRAMEINFO) == 32 && offsetof(OLEINPLACEFRAMEINFO, hwndFrame) == 8);

static_assert(sizeof(CONTROLINFO) == 24 && offsetof(CONTROLINFO, cAccel) == 16);
static_assert(sizeof(OLEVERB) == 24 && offsetof(OLEVERB, fuFlags) == 16 && sizeof(POINTF) == 8);
static_assert(sizeof(CAUUID) == 16 && offsetof(CAUUID, pElems) == 8);
static_assert(sizeof(PROPPAGEINFO) == 48 && offsetof(PROPPAGEINFO, size) == 16);
static_assert(offsetof(PROPPAGEINFO, pszDocString) == 24 && offsetof(PROPPAGEINFO, dwHelpContext) == 40);
static_assert(sizeof(ULARGE_INTEGER) == 8 && sizeof(STATSTG) == 80 && offsetof(STATSTG, clsid) == 56);

static_assert(sizeof(CONNECTDATA) == 16 && offsetof(CONNECTDATA, dwCookie) == 8);

// An interface is a vtable pointer and nothing else.
static_assert(sizeof(IUnknown) == 8 && sizeof(IDispatch) == 8 && sizeof(IErrorInfo) == 8);
static_assert(!std::has_virtual_destructor_v<IUnknown> && !std::has_virtual_destructor_v<IDispatch>);

TEST(Abi, InterfacesHaveTheirPublishedIds) {
    struct Row {
        const IID& iid;
        const char* bytes;  // as they lie in memory
    };
    const Row rows[] = {
        {IID_IUnknown, "\0\0\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IClassFactory, "\1\0\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IDispatch, "\0\4\2\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_ITypeInfo, "\1\4\2\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_ITypeLib, "\2\4\2\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IErrorInfo, "\x20\xB1\xF2\x1C\x7D\x54\x1B\x10\x8E\x65\x08\0\x2B\x2B\xD1\x19"},
        {IID_ICreateErrorInfo, "\x40\x33\xF0\x22\x7D\x54\x1B\x10\x8E\x65\x08\0\x2B\x2B\xD1\x19"},
        {IID_IConnectionPointContainer, "\x84\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_IEnumConnectionPoints, "\x85\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_IConnectionPoint, "\x86\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_IEnumConnections, "\x87\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_ISupportErrorInfo, "\x60\x3D\x0B\xDF\x8F\x54\x1B\x10\x8E\x65\x08\0\x2B\x2B\xD1\x19"},
        {IID_IOleObject, "\x12\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleInPlaceObject, "\x13\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleWindow, "\x14\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleInPlaceUIWindow, "\x15\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleInPlaceFrame, "\x16\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleClientSite, "\x18\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleInPlaceSite, "\x19\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleInPlaceActiveObject, "\x17\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IEnumOLEVERB, "\4\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IPersist, "\x0C\1\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IPersistStreamInit, "\x80\x23\xD5\x7F\7\x4E\x1B\x10\xAE\x2D\x08\0\x2B\x2E\xC7\x13"},
        {IID_ISequentialStream, "\x30\x3A\x73\x0C\x1C\x2A\xCE\x11\xAD\xE5\0\xAA\0\x44\x77\x3D"},
        {IID_IStream, "\x0C\0\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"},
        {IID_IOleControl, "\x88\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_IOleControlSite, "\x89\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_ISpecifyPropertyPages, "\x8B\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_IPropertyPageSite, "\x8C\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
        {IID_IPropertyPage, "\x8D\xB2\x96\xB1\xB4\xBA\x1A\x10\xB6\x9C\0\xAA\0\x34\x1D\x07"},
    };
    for (const Row& row : rows) EXPECT_EQ(std::memcmp(&row.iid, row.bytes, 16), 0) << &row - rows;
    EXPECT_EQ(hx::uuid_of<IErrorInfo>(), IID_IErrorInfo);
}

TEST(Abi, MethodsHaveTheirPublishedSlots) {
    ExpectSlots("IUnknown", 0, &IUnknown::QueryInterface, &IUnknown::AddRef, &IUnknown::Release);
    ExpectSlots("IClassFactory", 3, &IClassFactory::CreateInstance, &IClassFactory::LockServer);
    ExpectSlots("IDispatch", 3, &IDispatch::GetTypeInfoCount, &IDispatch::GetTypeInfo,
                &IDispatch::GetIDsOfNames, &IDispatch::Invoke);
    ExpectSlots("ITypeInfo", 3, &ITypeInfo::GetTypeAttr, &ITypeInfo::GetTypeComp, &ITypeInfo::GetFuncDesc,
                &ITypeInfo::GetVarDesc, &ITypeInfo::GetNames, &ITypeInfo::GetRefTypeOfImplType,
                &ITypeInfo::GetImplTypeFlags, &ITypeInfo::GetIDsOfNames, &ITypeInfo::Invoke,
                &ITypeInfo::GetDocumentation, &ITypeInfo::GetDllEntry, &ITypeInfo::GetRefTypeInfo,
                &ITypeInfo::AddressOfMember, &ITypeInfo::CreateInstance, &ITypeInfo::GetMops,
                &ITypeInfo::GetContainingTypeLib, &ITypeInfo::ReleaseTypeAttr, &ITypeInfo::ReleaseFuncDesc,
                &ITypeInfo::ReleaseVarDesc);
    ExpectSlots("ITypeLib", 3, &ITypeLib::GetTypeInfoCount, &ITypeLib::GetTypeInfo,
                &ITypeLib::GetTypeInfoType, &ITypeLib::GetTypeInfoOfGuid, &ITypeLib::GetLibAttr,
                &ITypeLib::GetTypeComp, &ITypeLib::GetDocumentation, &ITypeLib::IsName, &ITypeLib::FindName,
                &ITypeLib::ReleaseTLibAttr);
    ExpectSlots("IErrorInfo", 3, &IErrorInfo::GetGUID, &IErrorInfo::GetSource, &IErrorInfo::GetDescription,
                &IErrorInfo::GetHelpFile, &IErrorInfo::GetHelpContext);
    ExpectSlots("ICreateErrorInfo", 3, &ICreateErrorInfo::SetGUID, &ICreateErrorInfo::SetSource,
                &ICreateErrorInfo::SetDescription, &ICreateErrorInfo::SetHelpFile,
                &ICreateErrorInfo::SetHelpContext);
    ExpectSlots("ISupportErrorInfo", 3, &ISupportErrorInfo::InterfaceSupportsErrorInfo);
    ExpectSlots("IConnectionPoint", 3, &IConnectionPoint::GetConnectionInterface,
                &IConnectionPoint::GetConnectionPointContainer, &IConnectionPoint::Advise,
                &IConnectionPoint::Unadvise, &IConnectionPoint::EnumConnections);
    ExpectSlots("IConnectionPointContainer", 3, &IConnectionPointContainer::EnumConnectionPoints,
                &IConnectionPointContainer::FindConnectionPoint);
    ExpectSlots("IEnumConnections", 3, &IEnumConnections::Next, &IEnumConnections::Skip,
                &IEnumConnections::Reset, &IEnumConnections::Clone);
    ExpectSlots("IEnumConnectionPoints", 3, &IEnumConnectionPoints::Next, &IEnumConnectionPoints::Skip,
                &IEnumConnectionPoints::Reset, &IEnumConnectionPoints::Clone);
}

TEST(Abi, InterfacesOfEmbeddingHaveTheirPublishedSlots) {
    ExpectSlots("IOleWindow", 3, &IOleWindow::GetWindow, &IOleWindow::ContextSensitiveHelp);
    ExpectSlots("IOleObject", 3, &IOleObject::SetClientSite, &IOleObject::GetClientSite,
                &IOleObject::SetHostNames, &IOleObject::Close, &IOleObject::SetMoniker,
                &IOleObject::GetMoniker, &IOleObject::InitFromData, &IOleObject::GetClipboardData,
                &IOleObject::DoVerb, &IOleObject::EnumVerbs, &IOleObject::Update, &IOleObject::IsUpToDate,
                &IOleObject::GetUserClassID, &IOleObject::GetUserType, &IOleObject::SetExtent,
                &IOleObject::GetExtent, &IOleObject::Advise, &IOleObject::Unadvise, &IOleObject::EnumAdvise,
                &IOleObject::GetMiscStatus, &IOleObject::SetColorScheme);
    ExpectSlots("IOleClientSite", 3, &IOleClientSite::SaveObject, &IOleClientSite::GetMoniker,
                &IOleClientSite::GetContainer, &IOleClientSite::ShowObject, &IOleClientSite::OnShowWindow,
                &IOleClientSite::RequestNewObjectLayout);
    ExpectSlots("IOleInPlaceObject", 5, &IOleInPlaceObject::InPlaceDeactivate,
                &IOleInPlaceObject::UIDeactivate, &IOleInPlaceObject::SetObjectRects,
                &IOleInPlaceObject::ReactivateAndUndo);
    ExpectSlots("IOleInPlaceUIWindow", 5, &IOleInPlaceUIWindow::GetBorder,
                &IOleInPlaceUIWindow::RequestBorderSpace, &IOleInPlaceUIWindow::SetBorderSpace,
                &IOleInPlaceUIWindow::SetActiveObject);
    ExpectSlots("IOleInPlaceFrame", 9, &IOleInPlaceFrame::InsertMenus, &IOleInPlaceFrame::SetMenu,
                &IOleInPlaceFrame::RemoveMenus, &IOleInPlaceFrame::SetStatusText,
                &IOleInPlaceFrame::EnableModeless, &IOleInPlaceFrame::TranslateAccelerator);
    ExpectSlots("IOleInPlaceSite", 5, &IOleInPlaceSite::CanInPlaceActivate,
                &IOleInPlaceSite::OnInPlaceActivate, &IOleInPlaceSite::OnUIActivate,
                &IOleInPlaceSite::GetWindowContext, &IOleInPlaceSite::Scroll,
                &IOleInPlaceSite::OnUIDeactivate, &IOleInPlaceSite::OnInPlaceDeactivate,
                &IOleInPlaceSite::DiscardUndoState, &IOleInPlaceSite::DeactivateAndUndo,
                &IOleInPlaceSite::OnPosRectChange);
}

TEST(Abi, InterfacesOfControlsHaveTheirPublishedSlots) {
    ExpectSlots("IOleInPlaceActiveObject", 5, &IOleInPlaceActiveObject::TranslateAccelerator,
                &IOleInPlaceActiveObject::OnFrameWindowActivate,
                &IOleInPlaceActiveObject::OnDocWindowActivate, &IOleInPlaceActiveObject::ResizeBorder,
                &IOleInPlaceActiveObject::EnableModeless);
    ExpectSlots("IEnumOLEVERB", 3, &IEnumOLEVERB::Next, &IEnumOLEVERB::Skip, &IEnumOLEVERB::Reset,
                &IEnumOLEVERB::Clone);
    ExpectSlots("IOleControl", 3, &IOleControl::GetControlInfo, &IOleControl::OnMnemonic,
                &IOleControl::OnAmbientPropertyChange, &IOleControl::FreezeEvents);
    ExpectSlots("IOleControlSite", 3, &IOleControlSite::OnControlInfoChanged,
                &IOleControlSite::LockInPlaceActive, &IOleControlSite::GetExtendedControl,
                &IOleControlSite::TransformCoords, &IOleControlSite::TranslateAccelerator,
                &IOleControlSite::OnFocus, &IOleControlSite::ShowPropertyFrame);
    ExpectSlots("IPersistStreamInit", 3, &IPersist::GetClassID, &IPersistStreamInit::IsDirty,
                &IPersistStreamInit::Load, &IPersistStreamInit::Save, &IPersistStreamInit::GetSizeMax,
                &IPersistStreamInit::InitNew);
    ExpectSlots("IStream", 3, &ISequentialStream::Read, &ISequentialStream::Write, &IStream::Seek,
                &IStream::SetSize, &IStream::CopyTo, &IStream::Commit, &IStream::Revert, &IStream::LockRegion,
                &IStream::UnlockRegion, &IStream::Stat, &IStream::Clone);
    ExpectSlots("ISpecifyPropertyPages", 3, &ISpecifyPropertyPages::GetPages);
    ExpectSlots("IPropertyPageSite", 3, &IPropertyPageSite::OnStatusChange, &IPropertyPageSite::GetLocaleID,
                &IPropertyPageSite::GetPageContainer, &IPropertyPageSite::TranslateAccelerator);
    ExpectSlots("IPropertyPage", 3, &IPropertyPage::SetPageSite, &IPropertyPage::Activate,
                &IPropertyPage::Deactivate, &IPropertyPage::GetPageInfo, &IPropertyPage::SetObjects,
                &IPropertyPage::Show, &IPropertyPage::Move, &IPropertyPage::IsPageDirty,
                &IPropertyPage::Apply, &IPropertyPage::Help, &IPropertyPage::TranslateAccelerator);
}

TEST(Abi, AStringHasItsLengthInFrontAndANulBehind) {
    const hx::Bstr string(std::wstring_view(L"a\0b", 3));
    uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(string.get()) - 4, 4);
    EXPECT_EQ(bytes, 3 * sizeof(wchar_t));
    EXPECT_EQ(string.get()[3], L'\0');
}

TEST(Abi, AnArrayHasItsTypeInFrontAndItsBoundsReversed) {
    SAFEARRAYBOUND bounds[] = {{2, 10}, {3, 20}};
    const hx::SafeArray array(SafeArrayCreate(VT_I2, 2, bounds));
    uint32_t type = 0;
    std::memcpy(&type, reinterpret_cast<const char*>(array.get()) - 4, 4);
    EXPECT_EQ(type, VT_I2);
    EXPECT_EQ(array.get()->rgsabound[0].cElements, 3u);
    EXPECT_EQ(array.get()->rgsabound[0].lLbound, 20);
}

}  // namespace
