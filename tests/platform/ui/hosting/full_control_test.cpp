// A full control's verbs, pages, stream and connection point, and what it knows of where it is.
#include "platform/ui/full_control_object.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

HX_IID(IDial, "A0000000-0000-0000-0000-000000000021")
struct IDial : IDispatch {};
HX_IID(IDialEvents, "A0000000-0000-0000-0000-000000000022")
struct IDialEvents : IDispatch {};

namespace {

using hx::ComPtr;
using hx::Variant;

constexpr hx::ui::ControlVerb kVerbs[] = {{OLEIVERB_SHOW, L"Show"}, {OLEIVERB_PROPERTIES, L"Properties", 8}};
constexpr CLSID kPages[] = {IID_IDial, IID_IUnknown};

class Dial final : public hx::ui::FullControlObject<Dial, hx::SingleThreaded, IDial, IDispatch> {
public:
    static constexpr hx::ui::FullControlClass kControlClass{
        {IID_IDial, L"Dial", 0, {}}, 0x00020001, kVerbs, kPages, IID_IDialEvents};
    static const hx::DispatchType kDispatchType;

    using FullControlMethods::IsInUserMode;
    std::vector<LONG> heard;

private:
    std::unique_ptr<hx::ui::Window> MakeWindow() override { throw std::bad_alloc(); }
    HRESULT OnVerb(LONG verb, HWND) override {
        heard.push_back(verb);
        return S_FALSE;
    }
    std::wstring VerbName(const hx::ui::ControlVerb& verb) override { return verb.name + std::wstring(L"!"); }
    void OnAmbientChange(DISPID property) override { heard.push_back(property); }
};
const hx::DispatchType Dial::kDispatchType{L"IDial", IID_IDial, {}};

TEST(FullControl, VerbsAreListedWithNamesAndDone) {
    const auto dial = hx::Make<Dial>();
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(dial->EnumVerbs(verbs.put()), S_OK);
    OLEVERB all[3] = {};
    ULONG count = 0;
    EXPECT_EQ(verbs->Next(3, all, &count), S_FALSE);
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(all[1].lVerb, OLEIVERB_PROPERTIES);
    EXPECT_EQ(all[1].lpszVerbName, std::wstring(L"Properties!"));
    EXPECT_EQ(all[1].fuFlags, 8u);
    for (OLEVERB& verb : all) CoTaskMemFree(verb.lpszVerbName);

    // It has no site to be shown in.
    const std::pair<LONG, HRESULT> rows[] = {
        {OLEIVERB_PROPERTIES, S_FALSE}, {OLEIVERB_SHOW, E_UNEXPECTED}, {2, OLEOBJ_S_INVALIDVERB}};
    for (const auto& [verb, result] : rows) {
        EXPECT_EQ(dial->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr), result) << verb;
    }
    EXPECT_EQ(dial->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
    EXPECT_EQ(dial->heard, (std::vector<LONG>{OLEIVERB_PROPERTIES, DISPID_AMBIENT_USERMODE}));
}

// A container's stream, which takes some bytes and gives one at a time; and its site, which says nothing but
// whether the dialog is being designed.
class Container final : public hx::ImplementsDispatch<Container, hx::SingleThreaded, IDial, IDispatch,
                                                      IOleClientSite, IStream, ISequentialStream> {
public:
    static constexpr const hx::DispatchType& kDispatchType = Dial::kDispatchType;

    HRESULT Read(void* target, ULONG, ULONG* done) override {
        *done = read < bytes.size() ? 1 : 0;
        if (*done) *static_cast<char*>(target) = bytes[read++];
        return S_OK;
    }
    HRESULT Write(const void* source, ULONG count, ULONG* done) override {
        bytes.append(static_cast<const char*>(source), *done = std::min(count, room));
        return S_OK;
    }
    HRESULT Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*, UINT*) override {
        return id == DISPID_AMBIENT_USERMODE ? user_mode.copy_to(value) : DISP_E_MEMBERNOTFOUND;
    }
    HRESULT Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    HRESULT SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    HRESULT CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    HRESULT Commit(DWORD) override { return E_NOTIMPL; }
    HRESULT Revert() override { return E_NOTIMPL; }
    HRESULT LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    HRESULT UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    HRESULT Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
    HRESULT Clone(IStream**) override { return E_NOTIMPL; }
    HRESULT SaveObject() override { return E_NOTIMPL; }
    HRESULT GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT GetContainer(IOleContainer**) override { return E_NOTIMPL; }
    HRESULT ShowObject() override { return E_NOTIMPL; }
    HRESULT OnShowWindow(BOOL) override { return E_NOTIMPL; }
    HRESULT RequestNewObjectLayout() override { return E_NOTIMPL; }

    std::string bytes;
    size_t read = 0;
    ULONG room = 9;
    Variant user_mode;
};

TEST(FullControl, AVersionIsStoredAndANewerOneRefused) {
    const std::pair<std::string, HRESULT> loads[] = {
        {std::string("\1\0\2\0more", 8), S_OK},      {std::string("\xFF\xFF\2\0", 4), S_OK},
        {std::string("\0\0\3\0", 4), E_FAIL},        {std::string("\0\0\0\x80", 4), E_FAIL},
        {std::string("\1\0\2", 3), STG_E_READFAULT},
    };
    const auto dial = hx::Make<Dial>();
    for (const auto& [given, result] : loads) {
        const auto stream = hx::Make<Container>();
        stream->bytes = given;
        dial->InitNew();
        EXPECT_EQ(dial->Load(stream.get()), result);
        EXPECT_EQ(dial->IsDirty(), result == S_OK ? S_FALSE : S_OK);
    }
    dial->InitNew();
    const auto stream = hx::Make<Container>();
    EXPECT_EQ(dial->Save(stream.get(), FALSE), S_OK);
    EXPECT_EQ(stream->bytes, std::string("\1\0\2\0", 4));
    stream->room = 3;
    EXPECT_EQ(dial->Save(stream.get(), TRUE), STG_E_WRITEFAULT);
    EXPECT_EQ(dial->IsDirty(), S_OK);
    stream->room = 4;
    EXPECT_EQ(dial->Save(stream.get(), TRUE), S_OK);
    EXPECT_EQ(dial->IsDirty(), S_FALSE);
}

TEST(FullControl, IsInUseUnlessTheContainerSaysThatItIsBeingDesigned) {
    const auto dial = hx::Make<Dial>();
    const auto site = hx::Make<Container>();
    ASSERT_EQ(dial->SetClientSite(site.get()), S_OK);
    EXPECT_TRUE(dial->IsInUserMode());
    site->user_mode = Variant(false);
    EXPECT_FALSE(dial->IsInUserMode());
}

TEST(FullControl, PagesAndEventsAreThoseOfTheClass) {
    auto dial = hx::Make<Dial>();
    CAUUID pages{};
    ASSERT_EQ(dial->GetPages(&pages), S_OK);
    ASSERT_EQ(pages.cElems, 2u);
    EXPECT_EQ(pages.pElems[0], IID_IDial);
    CoTaskMemFree(pages.pElems);

    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(dial->FindConnectionPoint(IID_IDial, point.put()), CONNECT_E_NOCONNECTION);
    ASSERT_EQ(dial->FindConnectionPoint(IID_IDialEvents, point.put()), S_OK);
    dial.reset();
    ComPtr<IConnectionPointContainer> gone;
    EXPECT_EQ(point->GetConnectionPointContainer(gone.put()), E_UNEXPECTED);
}

}  // namespace
