#include "core/errors/MError.h"

namespace hx {
namespace {

// Kinds that records of other modules may have; here they are known by name alone.
const MDynClass kFurtherKinds[] = {
    {L"MErrorBadInput", &MError::Class()},
    {L"MErrorDivisionByZero", &MError::Class()},
    {L"MErrorInternal", &MError::Class()},
    {L"MErrorUserEscape", &MError::Class()},
};

// Kinds whose objects may never be made in a run are registered all the same.
const MDynClass& kOutOfMemoryKind = MErrorOutOfMemory::Class();

}  // namespace

const MDynClass& MError::Class() {
    static const MDynClass klass(L"MError", &MDynObject::Class());
    return klass;
}

const MDynClass& MErrorOutOfMemory::Class() {
    static const MDynClass klass(L"MErrorOutOfMemory", &MError::Class());
    return klass;
}

bool MError::Read(MFilerTaggedPair& filer, std::wstring_view tag) {
    if (!filer.BeginGroup(tag)) return false;
    const std::wstring none;
    const bool has_code = filer.Read(L"Code", m_code, none);
    m_parameters.clear();
    while (filer.BeginGroup(L"Parameter")) {
        std::wstring name;
        std::wstring value;
        filer.Read(L"Name", name, none);
        filer.Read(L"Value", value, none);
        if (!filer.EndGroup()) return false;
        AddParameter(name, value);
    }
    return filer.EndGroup() && has_code;
}

bool MError::Write(MFilerTaggedPair& filer, std::wstring_view tag) const {
    bool written = filer.BeginGroup(tag) && filer.Write(L"Code", m_code);
    for (const auto& [name, value] : m_parameters) {
        written = written && filer.BeginGroup(L"Parameter") && filer.Write(L"Name", name) &&
                  filer.Write(L"Value", value) && filer.EndGroup();
    }
    return written && filer.EndGroup();
}

std::wstring MError::GetMessage() const {
    return m_code.empty() ? L"Unspecified error" : m_code;
}

void MError::AddParameter(std::wstring_view name, std::wstring_view value) {
    m_parameters.emplace(name, value);
}

void MError::AddParameter(std::wstring_view name, uint32_t value, bool hexadecimal) {
    if (!hexadecimal) return AddParameter(name, std::to_wstring(value));
    std::wstring digits(8, L'0');
    for (size_t place = digits.size(); value != 0; value >>= 4)
        digits[--place] = L"0123456789abcdef"[value & 0xF];
    AddParameter(name, digits + L'h');
}

}  // namespace hx
