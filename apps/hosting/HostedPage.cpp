#include "apps/hosting/HostedPage.h"

#include <utility>

#include "platform/com/errorinfo.h"
#include "platform/com/loader.h"
#include "platform/com/ole_control.h"
#include "platform/ui/hwnd.h"

namespace hosting {
namespace {

using hx::Bstr;
using hx::ComPtr;

// The strings that a called object leaves behind are freed, whatever becomes of them.
class Exception {
public:
    Exception() = default;
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ~Exception() {
        for (const BSTR text : {m_info.bstrSource, m_info.bstrDescription, m_info.bstrHelpFile}) {
            SysFreeString(text);
        }
    }
    EXCEPINFO* put() { return &m_info; }
    // The reason of a failed call, which DISP_E_EXCEPTION only stands for.
    Answer Reason(HRESULT result) const {
        if (result != DISP_E_EXCEPTION) return {result, {}};
        Answer answer{result, {}};
        if (FAILED(m_info.scode)) answer.result = m_info.scode;
        if (m_info.bstrDescription) answer.text = m_info.bstrDescription;
        return answer;
    }

private:
    EXCEPINFO m_info{};
};

std::wstring TextOfFailure() {
    ComPtr<IErrorInfo> information;
    Bstr text;
    if (GetErrorInfo(0, information.put()) == S_OK) information->GetDescription(text.put());
    return std::wstring(text.view());
}

// What the page says of a call, with the text of this failure rather than of an older one.
template <class F>
Answer Ask(const ComPtr<DHXConfigCtrl>& control, F&& call) {
    if (!control) return {E_UNEXPECTED, {}};
    SetErrorInfo(0, nullptr);
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the page may close itself meanwhile
    const ComPtr<DHXConfigCtrl> page = control;
    const HRESULT result = std::forward<F>(call)(*page);
    return {result, FAILED(result) ? TextOfFailure() : std::wstring()};
}

}  // namespace

HostedPage::~HostedPage() {
    Close();
}

Answer HostedPage::Create(const wchar_t* prog_id) {
    Close();
    CLSID clsid;
    HRESULT result = CLSIDFromProgID(prog_id, &clsid);
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<DHXConfigCtrl>(),
                                  m_control.put_void());
    }
    return {result, {}};
}

Answer HostedPage::Open(const hx::ui::Window& parent, const hx::ui::Rectangle& bounds, LCID locale) {
    if (!m_control || m_site) return {E_UNEXPECTED, {}};
    const ComPtr<IOleObject> object = m_control.as<IOleObject>();
    if (!object) return {E_NOINTERFACE, {}};
    m_site = hx::Make<hx::ui::ComponentSite>(locale);
    const ComPtr<hx::ui::ComponentSite> site = m_site;
    const HRESULT result = site->Open(object, parent, bounds, true);
    if (FAILED(result)) m_site.reset();
    return {result, {}};
}

void HostedPage::Move(const hx::ui::Rectangle& bounds) {
    if (m_site) ComPtr<hx::ui::ComponentSite>(m_site)->Move(bounds);
}

void HostedPage::Show(bool visible) {
    if (m_site) ComPtr<hx::ui::ComponentSite>(m_site)->Show(visible);
}

void HostedPage::Close() {
    if (const ComPtr<hx::ui::ComponentSite> site = std::move(m_site)) site->Close();
    m_control.reset();
    SafeArrayDestroy(std::exchange(m_arguments, nullptr));
}

Answer HostedPage::SetApi(IUnknown* api) {
    return Ask(m_control, [&](DHXConfigCtrl& page) { return page.SetHXApi(api); });
}

Answer HostedPage::SetSettingsObjectMap(IUnknown* map) {
    return Ask(m_control, [&](DHXConfigCtrl& page) { return page.SetSettingsObjectMap(map); });
}

Answer HostedPage::Select() {
    return Ask(m_control, [](DHXConfigCtrl& page) { return page.OnSelected(); });
}

Answer HostedPage::Deselect() {
    return Ask(m_control, [](DHXConfigCtrl& page) { return page.OnDeselected(); });
}

Answer HostedPage::Initialise(const std::wstring& driver, const std::wstring& device,
                              const std::wstring& function, hx::SafeArray arguments) {
    if (!m_control) return {E_UNEXPECTED, {}};
    // The one before may be what the page still writes into until it knows the new one.
    const hx::SafeArray before(std::exchange(m_arguments, arguments.detach()));
    const Bstr names[] = {Bstr(driver), Bstr(device), Bstr(function)};
    VARIANT given[4]{};
    given[0].vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    given[0].byref = &m_arguments;
    for (size_t i = 0; i < 3; ++i) {
        given[3 - i].vt = VT_BSTR;
        given[3 - i].bstrVal = names[i].get();
    }
    DISPPARAMS parameters{given, nullptr, 4, 0};
    Exception exception;
    const ComPtr<DHXConfigCtrl> page = m_control;
    return exception.Reason(page->Invoke(DISPID_HXCONFIG_INITIALISE, IID_NULL, 0, DISPATCH_METHOD,
                                         &parameters, nullptr, exception.put(), nullptr));
}

hx::SafeArray HostedPage::ArgumentsOf(const std::wstring& profile) {
    hx::SafeArray array(SafeArrayCreateVector(VT_VARIANT, 0, 1));
    const hx::Variant first{std::wstring_view(profile)};
    LONG index = 0;
    VARIANT value = first.get();
    if (!array || FAILED(SafeArrayPutElement(array.get(), &index, &value))) throw std::bad_alloc();
    return array;
}

Answer HostedPage::Save(bool& may_close) {
    may_close = false;
    // Pages write 16 bits of it, or nothing at all.
    BOOL answer = -1;
    Answer saved = Ask(m_control, [&](DHXConfigCtrl& page) { return page.Save(&answer); });
    if (saved.IsDone()) may_close = static_cast<int16_t>(answer) != 0;
    return saved;
}

std::optional<std::wstring> HostedPage::Selected() const {
    LONG first = 0;
    VARTYPE type = VT_EMPTY;
    hx::Variant value;
    if (SafeArrayGetDim(m_arguments) != 1 || FAILED(SafeArrayGetVartype(m_arguments, &type)) ||
        type != VT_VARIANT || SafeArrayGetElemsize(m_arguments) != sizeof(VARIANT) ||
        FAILED(SafeArrayGetLBound(m_arguments, 1, &first)) ||
        FAILED(SafeArrayGetElement(m_arguments, &first, value.put())) || value.type() != VT_BSTR) {
        return std::nullopt;
    }
    const BSTR text = value->bstrVal;
    return std::wstring(text, SysStringLen(text));
}

hx::ui::Dialog* HostedPage::Dialog() const {
    const ComPtr<IOleWindow> shown = m_control.as<IOleWindow>();
    HWND handle = nullptr;
    if (!shown || FAILED(shown->GetWindow(&handle))) return nullptr;
    const hx::ui::Window* const window = hx::ui::Window::FromHandle(hx::ui::ToHandle(handle));
    if (!window) return nullptr;
    for (hx::ui::Window* const child : window->Children()) {
        if (hx::ui::Dialog* const dialog = child->AsDialog()) return dialog;
    }
    return nullptr;
}

}  // namespace hosting
