// The members of DHXConfigCtrl, and the properties that every control has, as they are called by name and
// number. For ConfigCtrl, which is `Control` and gives its StockTexts; `void` stands for any object with the
// interface, as the type library describes it. On the object's thread.
#pragma once

#include <array>
#include <string>
#include <type_traits>

#include "hxapi/DHXConfigCtrl.h"
#include "platform/com/dispatch_type.h"
#include "platform/com/ole_control.h"

namespace hx {

// Kept for the container; nothing shows them.
struct StockTexts {
    std::wstring caption;
    std::wstring text;
};

HRESULT ReadStockText(const std::wstring& text, VARIANT* value);
HRESULT WriteStockText(std::wstring& text, const VARIANT& value);

// Initialise of a DHXConfigCtrl; an exception becomes error information.
HRESULT CallInitialise(void* object, const VARIANT* arguments, VARIANT* result);

// Through the object's own IDispatch: whose the texts are is not known.
HRESULT ReadProperty(void* object, DISPID id, VARIANT* value);
HRESULT WriteProperty(void* object, DISPID id, const VARIANT& value);

// All that pages have.
extern const DispatchType kConfigCtrlType;

template <class Control>
class ConfigDispatch {
public:
    template <bool has_initialise>
    static constexpr DispatchType Type() {
        constexpr size_t kCount = kMembers.size() - (has_initialise ? 0 : 1);
        return {L"DHXConfigCtrl", uuid_of<DHXConfigCtrl>(), std::span(kMembers).first(kCount)};
    }

private:
    using Rows = DispatchMembersOf<DHXConfigCtrl>;
    using StockText = std::wstring StockTexts::*;

    static StockTexts& TextsOf(void* object) {
        return static_cast<Control*>(static_cast<DHXConfigCtrl*>(object))->Texts();
    }
    template <StockText text, DISPID id>
    static HRESULT Read(void* object, const VARIANT*, VARIANT* result) {
        if constexpr (std::is_void_v<Control>) {
            return ReadProperty(object, id, result);
        } else {
            return ReadStockText(TextsOf(object).*text, result);
        }
    }
    template <StockText text, DISPID id>
    static HRESULT Write(void* object, const VARIANT* arguments, VARIANT*) {
        if constexpr (std::is_void_v<Control>) {
            return WriteProperty(object, id, arguments[0]);
        } else {
            return WriteStockText(TextsOf(object).*text, arguments[0]);
        }
    }
    template <StockText text, DISPID id>
    static constexpr DispatchMember Get(const wchar_t* name) {
        return {id, name, INVOKE_PROPERTYGET, 0, {}, VT_BSTR, &Read<text, id>};
    }
    template <StockText text, DISPID id>
    static constexpr DispatchMember Put(const wchar_t* name) {
        return {id,
                name,
                INVOKE_PROPERTYPUT,
                1,
                {DispatchParameter{nullptr, VT_BSTR}},
                VT_VOID,
                &Write<text, id>};
    }
    static constexpr DispatchMember Initialise() {
        DispatchMember row = Rows::Method<&DHXConfigCtrl::Initialise>(
            DISPID_HXCONFIG_INITIALISE, L"Initialise", L"driverInternalName", L"deviceInternalName",
            L"functionName", L"arguments");
        row.call = &CallInitialise;
        row.parameters[3].taking = DispatchTaking::any_array;
        row.parameters[3].takes_null = true;
        return row;
    }
    static constexpr DispatchMember Save() {
        DispatchMember row =
            Rows::Method<&DHXConfigCtrl::Save>(DISPID_HXCONFIG_SAVE, L"Save", L"reallyCloseDlg");
        row.parameters[0].taking = DispatchTaking::half;
        row.parameters[0].takes_null = true;
        return row;
    }

    // Initialise is the last: not every page has it.
    static constexpr std::array kMembers = {
        Get<&StockTexts::caption, DISPID_CAPTION>(L"Caption"),
        Put<&StockTexts::caption, DISPID_CAPTION>(L"Caption"),
        Get<&StockTexts::text, DISPID_TEXT>(L"Text"),
        Put<&StockTexts::text, DISPID_TEXT>(L"Text"),
        Rows::Method<&DHXConfigCtrl::SetSettingsObjectMap>(DISPID_HXCONFIG_SETSETTINGSOBJECTMAP,
                                                           L"SetSettingsObjectMap", L"pSettings"),
        Rows::Method<&DHXConfigCtrl::OnSelected>(DISPID_HXCONFIG_ONSELECTED, L"OnSelected"),
        Rows::Method<&DHXConfigCtrl::OnDeselected>(DISPID_HXCONFIG_ONDESELECTED, L"OnDeselected"),
        Rows::Method<&DHXConfigCtrl::SetHXApi>(DISPID_HXCONFIG_SETHXAPI, L"SetHXApi", L"pApi"),
        Save(),
        Initialise(),
    };
};

}  // namespace hx
