#include "platform/com/ole_verbs.h"

#include <cstring>
#include <new>
#include <utility>

#include "platform/com/enumerator.h"
#include "platform/com/loader.h"

namespace hx {
namespace {

struct HandOut {
    OLEVERB operator()(const Verb& verb) const {
        const size_t bytes = (verb.name.size() + 1) * sizeof(wchar_t);
        auto* const name = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
        if (!name) throw std::bad_alloc();
        std::memcpy(name, verb.name.c_str(), bytes);
        return {verb.number, name, verb.flags, verb.attributes};
    }
};

using VerbEnumerator = Enumerator<IEnumOLEVERB, OLEVERB, Verb, HandOut>;

}  // namespace

HRESULT EnumerateVerbs(std::vector<Verb> verbs, IEnumOLEVERB** enumeration) noexcept {
    if (!enumeration) return E_POINTER;
    *enumeration = nullptr;
    if (verbs.empty()) return OLEOBJ_E_NOVERBS;
    return AtBoundary([&] {
        *enumeration =
            Make<VerbEnumerator>(std::make_shared<std::vector<Verb>>(std::move(verbs)), 0u).detach();
        return S_OK;
    });
}

}  // namespace hx
