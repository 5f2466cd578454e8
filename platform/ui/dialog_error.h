// Why a dialog could not be made of its template, in which module, and of which control.
#pragma once

#include <cstdint>
#include <string>

#include "platform/api.h"

namespace hx::ui {

struct DialogError {
    enum class Reason {
        no_window,         // no renderer was set, or a child's parent is not created
        no_template,       // the module has none of that id
        unknown_kind,      // no kind of control is called so
        missing_control,   // one is bound and not in the template
        wrong_kind,        // one is bound and of another kind
        repeated_control,  // two have the same id
        component_failed,  // could not be created; `result` says why
    };
    Reason reason = Reason::no_template;
    std::wstring module_file_name;
    uint32_t dialog_id = 0;
    uint32_t control_id = 0;
    std::wstring kind;   // as the template has it
    int32_t result = 0;  // HRESULT
    // "no_template" and so on, for logs.
    HX_PLATFORM_API static const wchar_t* NameOf(Reason reason);
};

}  // namespace hx::ui
