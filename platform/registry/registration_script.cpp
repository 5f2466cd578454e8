#include "platform/registry/registration_script.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/registry/registration_keys.h"
#include "platform/registry/registration_lexer.h"
#include "platform/registry/registration_parser.h"
#include "platform/system/case_fold.h"
#include "platform/system/message_table.h"
#include "platform/system/one_line.h"

namespace hx {
namespace {

// What the registry refused.
struct RegistrationFailure {
    RegistryResult result;
    RegistrationError error;
};

std::wstring_view RootName(RegistryRoot root) {
    constexpr std::wstring_view kNames[] = {L"HKEY_CURRENT_USER", L"HKEY_LOCAL_MACHINE",
                                            L"HKEY_CLASSES_ROOT"};
    return kNames[static_cast<size_t>(root)];
}

// One root of a script, in the order of its text.
class RegistrationRun {
public:
    RegistrationRun(IRegistry& registry, RegistryRoot root) : m_registry(registry), m_root(root) {}

    void Make(const RegistrationKey& key, const std::wstring& path) const {
        for (const RegistrationValue& value : key.values) {
            Check(m_registry.SetValue(m_root, path, value.name, value.value), value.line, L"cannot be set",
                  path, &value.name);
        }
        for (const RegistrationKey& child : key.keys) {
            const std::wstring child_path = Below(path, child);
            if (child.mark == RegistrationMark::kForceRemove || child.mark == RegistrationMark::kDelete)
                DeleteKey(child, child_path);
            if (child.mark == RegistrationMark::kDelete) continue;
            Check(m_registry.CreateKey(m_root, child_path), child.line, L"cannot be made", child_path);
            Make(child, child_path);
        }
    }

    // `key` itself stays.
    void Unmake(const RegistrationKey& key, const std::wstring& path) const {
        for (const RegistrationValue& value : key.values) {
            if (value.stays) continue;
            CheckDeleted(m_registry.DeleteValue(m_root, path, value.name), value.line, path, &value.name);
        }
        for (const RegistrationKey& child : key.keys) {
            const std::wstring child_path = Below(path, child);
            if (child.mark == RegistrationMark::kNoRemove) {
                Unmake(child, child_path);
            } else {
                DeleteKey(child, child_path);
            }
        }
    }

private:
    static std::wstring Below(const std::wstring& path, const RegistrationKey& key) {
        return path.empty() ? key.name : path + L'\\' + key.name;
    }

    void DeleteKey(const RegistrationKey& key, const std::wstring& path) const {
        CheckDeleted(m_registry.DeleteKey(m_root, path), key.line, path);
    }

    void CheckDeleted(RegistryResult result, uint32_t line, const std::wstring& path,
                      const std::wstring* value = nullptr) const {
        if (result == RegistryResult::kNotFound) return;
        Check(result, line, L"cannot be deleted", path, value);
    }

    // `value`: its name, null if the key is meant.
    void Check(RegistryResult result, uint32_t line, const wchar_t* what, const std::wstring& path,
               const std::wstring* value = nullptr) const {
        if (result == RegistryResult::kDone) return;
        std::wstring text = L"the ";
        if (value) text += value->empty() ? L"default value" : L"value " + QuotedForError(*value);
        if (value) text += L" of the ";
        text += L"key " + QuotedForError(path.empty() ? std::wstring(RootName(m_root))
                                                      : std::wstring(RootName(m_root)) + L'\\' + path);
        text += L' ';
        text += what;
        const auto number = std::to_wstring(static_cast<uint32_t>(result));
        text += L": " + OneLine(SystemMessage(HresultOf(result)).value_or(L"error " + number));
        throw RegistrationFailure{result, {line, std::move(text)}};
    }

    IRegistry& m_registry;
    RegistryRoot m_root;
};

HRESULT RunRoots(IRegistry& registry, std::span<const RegistrationRoot> roots, RegistrationAction action,
                 RegistrationError& error) {
    try {
        for (const RegistrationRoot& each : roots) {
            const RegistrationRun run(registry, each.root);
            if (action == RegistrationAction::kRegister) {
                run.Make(each.content, {});
            } else {
                run.Unmake(each.content, {});
            }
        }
        return S_OK;
    } catch (RegistrationFailure& failed) {
        error = std::move(failed.error);
        return HresultOf(failed.result);
    }
}

}  // namespace

HRESULT RunRegistrationScript(IRegistry& registry, std::wstring_view script,
                              std::span<const RegistrationReplacement> replacements,
                              RegistrationAction action, RegistrationError& error) {
    error = {};
    const auto value_of = [&](std::wstring_view name) -> std::optional<std::wstring_view> {
        const auto found = std::ranges::find_if(
            replacements, [&](const auto& each) { return EqualsWithoutCase(each.name, name); });
        return found == replacements.end() ? std::nullopt : std::optional(found->value);
    };
    try {
        const std::vector<RegistrationRoot> roots = ReadRegistrationScript(script, value_of);
        HRESULT result = S_OK;
        for (auto first = roots.begin(); first != roots.end() && SUCCEEDED(result);) {
            const auto last = std::find_if_not(
                first, roots.end(), [&](const auto& each) { return LieTogether(each.root, first->root); });
            const std::span<const RegistrationRoot> together(first, last);
            result = ChangeRegistration(
                registry, first->root, action,
                [&](IRegistry& changing, RegistrationError& reason) {
                    return RunRoots(changing, together, action, reason);
                },
                error);
            first = last;
        }
        return result;
    } catch (RegistrationError& refused) {
        error = std::move(refused);
        return E_FAIL;
    }
}

bool CheckRegistrationScript(std::wstring_view script, RegistrationError& error) {
    error = {};
    try {
        ReadRegistrationScript(script, {});
        return true;
    } catch (RegistrationError& refused) {
        error = std::move(refused);
        return false;
    }
}

}  // namespace hx
