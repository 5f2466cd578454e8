#include "core/errors/MDynObject.h"

namespace hx {
namespace {

// The descriptor registered last; the others hang behind it.
const MDynClass*& Registered() {
    static const MDynClass* registered = nullptr;
    return registered;
}

}  // namespace

MDynClass::MDynClass(const wchar_t* name, const MDynClass* base)
    : m_name(name), m_base(base), m_registered_before(Registered()) {
    Registered() = this;
}

bool MDynClass::IsOfKind(const MDynClass& kind) const {
    for (const MDynClass* klass = this; klass != nullptr; klass = klass->m_base) {
        if (klass->m_name == kind.m_name) return true;
    }
    return false;
}

const MDynClass* MDynClass::Find(std::wstring_view name) {
    const MDynClass* klass = Registered();
    while (klass != nullptr && klass->m_name != name) klass = klass->m_registered_before;
    return klass;
}

const MDynClass& MDynObject::GetDynClass() const {
    return Class();
}

const MDynClass& MDynObject::Class() {
    static const MDynClass klass(L"MDynObject", nullptr);
    return klass;
}

}  // namespace hx
