#include "platform/registry/registration_script.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"

namespace fuzz {
namespace {

constexpr hx::RegistryRoot kRoots[] = {hx::RegistryRoot::kCurrentUser, hx::RegistryRoot::kLocalMachine,
                                       hx::RegistryRoot::kClassesRoot};

void RequireDone(hx::RegistryResult result) {
    Require(result == hx::RegistryResult::kDone, "what is listed is there");
}

// Everything below the key.
using Tree = std::vector<std::pair<std::wstring, std::vector<hx::NamedRegistryValue>>>;
void Collect(hx::IRegistry& registry, hx::RegistryRoot root, const std::wstring& path, Tree& tree) {
    std::vector<std::wstring> names;
    tree.emplace_back(path, std::vector<hx::NamedRegistryValue>());
    RequireDone(registry.ListValues(root, path, tree.back().second));
    RequireDone(registry.ListKeys(root, path, names));
    for (const std::wstring& name : names) Collect(registry, root, path + L'\\' + name, tree);
}

Tree Content(hx::IRegistry& registry) {
    Tree tree;
    for (const hx::RegistryRoot root : kRoots) Collect(registry, root, {}, tree);
    return tree;
}

bool Same(const Tree& a, const Tree& b) {
    return std::ranges::equal(a, b, [](const auto& x, const auto& y) {
        return x.first == y.first && std::ranges::equal(x.second, y.second, [](const auto& v, const auto& w) {
                   return v.name == w.name && v.value == w.value;
               });
    });
}

void RequireLocated(const std::wstring& script, const hx::RegistrationError& error) {
    const auto lines = static_cast<size_t>(std::ranges::count(script, L'\n')) + 1;
    Require(error.line >= 1 && error.line <= lines, "an error is in a line of the script");
    Require(!error.text.empty() && error.text.find_first_of(L"\r\n") == std::wstring::npos,
            "it is said in one line");
}

}  // namespace

void RegistrationScript(Input input) {
    const std::wstring script = input.Text(SIZE_MAX);
    const std::wstring value = input.Text(SIZE_MAX);
    const hx::RegistrationReplacement replacements[] = {{L"MODULE", value}};
    const std::shared_ptr<hx::IRegistry> registry = hx::MakeMemoryRegistry();
    hx::RegistrationError error;
    const auto run = [&](hx::RegistrationAction action) {
        return hx::RunRegistrationScript(*registry, script, replacements, action, error);
    };
    const bool is_script = hx::CheckRegistrationScript(script, error);
    if (!is_script) RequireLocated(script, error);

    const Tree empty = Content(*registry);
    const HRESULT result = run(hx::RegistrationAction::kRegister);
    if (result != S_OK) {
        Require(result == E_FAIL, "a registry in memory refuses nothing");
        RequireLocated(script, error);
        Require(Same(Content(*registry), empty), "nothing is changed before the script is read");
        return;
    }
    Require(is_script, "what can be run passes the check");
    const Tree registered = Content(*registry);
    Require(run(hx::RegistrationAction::kRegister) == S_OK, "it registers again");
    Require(Same(Content(*registry), registered), "which changes nothing");
    Require(run(hx::RegistrationAction::kUnregister) == S_OK, "it unregisters");
    const Tree unregistered = Content(*registry);
    Require(unregistered.size() <= registered.size(), "which makes no key");
    Require(run(hx::RegistrationAction::kUnregister) == S_OK, "it unregisters again");
    Require(Same(Content(*registry), unregistered), "which changes nothing");
}

}  // namespace fuzz
