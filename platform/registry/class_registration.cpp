#include "platform/registry/class_registration.h"

#include <iterator>
#include <vector>

#include "platform/com/errorinfo.h"
#include "platform/registry/registration_keys.h"

namespace hx {
namespace {

using Values = std::vector<RegisteredValue>;

std::wstring KeyOf(REFCLSID clsid) {
    return L"CLSID\\" + GuidToText(clsid);
}

Values ClassValues(const ClassRegistration& of) {
    const std::wstring key = KeyOf(of.clsid);
    const std::wstring clsid = GuidToText(of.clsid);
    const std::wstring prog_id(of.prog_id);
    const std::wstring description(of.description);
    const std::wstring server = key + L"\\InprocServer32";
    Values values = {{prog_id, L"", description},
                     {prog_id + L"\\CLSID", L"", clsid},
                     {key, L"", description},
                     {key + L"\\ProgID", L"", prog_id},
                     {server, L"", std::wstring(of.library)}};
    if (!of.threading_model.empty())
        values.push_back({server, L"ThreadingModel", std::wstring(of.threading_model)});
    if (!of.version_independent_prog_id.empty()) {
        const std::wstring name(of.version_independent_prog_id);
        values.push_back({key + L"\\VersionIndependentProgID", L"", name});
        values.push_back({name, L"", description});
        values.push_back({name + L"\\CLSID", L"", clsid});
        values.push_back({name + L"\\CurVer", L"", prog_id});
    }
    return values;
}

}  // namespace

HRESULT WriteClassRegistration(IRegistry& registry, const ClassRegistration& of, RegistrationError& error) {
    return WriteRegistration(registry, ClassValues(of), error);
}

HRESULT WriteControlRegistration(IRegistry& registry, const ClassRegistration& of,
                                 const ControlRegistration& control, RegistrationError& error) {
    const std::wstring key = KeyOf(of.clsid);
    Values values = ClassValues(of);
    const RegisteredValue of_control[] = {
        {key + L"\\Control", L"", L""},
        {key + L"\\MiscStatus", L"", L"0"},
        {key + L"\\MiscStatus\\1", L"", std::to_wstring(control.misc_status)},
        {key + L"\\ToolboxBitmap32", L"",
         std::wstring(of.library) + L", " + std::to_wstring(control.toolbox_bitmap)},
        {key + L"\\TypeLib", L"", GuidToText(control.type_library)},
        {key + L"\\Version", L"", std::wstring(control.version)},
    };
    values.insert(values.end(), std::begin(of_control), std::end(of_control));
    return WriteRegistration(registry, values, error);
}

HRESULT DeleteClassRegistration(IRegistry& registry, const ClassRegistration& of, RegistrationError& error) {
    const auto remove = [&of](IRegistry& changing, RegistrationError& reason) {
        HRESULT result = DeleteRegistration(changing, KeyOf(of.clsid), reason);
        for (const std::wstring_view name : {of.prog_id, of.version_independent_prog_id}) {
            if (SUCCEEDED(result) && !name.empty()) result = DeleteRegistration(changing, name, reason);
        }
        return result;
    };
    return ChangeRegistration(registry, RegistryRoot::kClassesRoot, RegistrationAction::kUnregister, remove,
                              error);
}

HRESULT RegisterCategories(IRegistry& registry, REFCLSID clsid, std::span<const ComponentCategory> categories,
                           RegistrationAction action, RegistrationError& error) {
    for (const ComponentCategory& each : categories) {
        const std::wstring_view use = each.use == CategoryUse::kImplemented ? L"\\Implemented Categories\\"
                                                                            : L"\\Required Categories\\";
        const RegisteredValue key[] = {
            {KeyOf(clsid) + std::wstring(use) + GuidToText(each.category), L"", L""}};
        const HRESULT result = action == RegistrationAction::kRegister
                                   ? WriteRegistration(registry, key, error)
                                   : DeleteRegistration(registry, key[0].key, error);
        if (FAILED(result)) return result;
    }
    return S_OK;
}

HRESULT RegisterClassRows(std::span<const ClassRow> rows, std::wstring_view library_file,
                          RegistrationAction action) noexcept {
    const bool is_registering = action == RegistrationAction::kRegister;
    return AtBoundary([&] {
        const std::shared_ptr<IRegistry> registry = Registry();
        const std::wstring library = RegisteredPath(library_file);
        RegistrationError error;
        if (is_registering && library.empty()) {
            LeaveErrorInfo(library_file, L"the library lies where only a path that is no UTF-8 leads");
            return SELFREG_E_CLASS;
        }
        for (const ClassRow& row : rows) {
            const ClassRegistration of = {row.clsid,       row.prog_id, row.version_independent_prog_id,
                                          row.description, library,     row.threading_model};
            const HRESULT result = is_registering ? WriteClassRegistration(*registry, of, error)
                                                  : DeleteClassRegistration(*registry, of, error);
            if (SUCCEEDED(result)) continue;
            LeaveErrorInfo(row.prog_id, error.text);
            return SELFREG_E_CLASS;
        }
        return S_OK;
    });
}

}  // namespace hx
