// VariantChangeType: every source becomes a number or a text first, then the target.
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "platform/com/boundary.h"
#include "platform/com/dispatch.h"
#include "platform/com/variant.h"
#include "platform/system/c_numbers.h"

namespace {

// A number without loss: integers stay integers, since a double cannot hold all 64-bit ones.
struct Number {
    enum class Kind { Signed, Unsigned, Real };
    Kind kind = Kind::Signed;
    int64_t integer = 0;
    uint64_t natural = 0;
    double real = 0;
    int digits = 15;  // that a real's text shows
    bool is_bool = false;

    static Number Signed(int64_t value) { return {.integer = value}; }
    static Number Unsigned(uint64_t value) { return {.kind = Kind::Unsigned, .natural = value}; }
    static Number Real(double value, int digits) {
        return {.kind = Kind::Real, .real = value, .digits = digits};
    }

    double AsReal() const {
        if (kind == Kind::Real) return real;
        return kind == Kind::Signed ? static_cast<double>(integer) : static_cast<double>(natural);
    }
    bool IsZero() const { return AsReal() == 0; }
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Without blanks around it; nothing if it holds what no number has.
std::optional<std::string> Narrow(std::wstring_view text) {
    const size_t first = text.find_first_not_of(L" \t\r\n");
    if (first == std::wstring_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(L" \t\r\n") - first + 1);
    std::string narrow;
    for (const wchar_t c : text) {
        if (c <= L' ' || c > L'~') return std::nullopt;
        narrow += static_cast<char>(c);
    }
    return narrow;
}

// [sign] digits [. digits] [e [sign] digits], with a digit on one side of the point at least. strtod takes
// more (hexadecimal, "inf"), which no value in a document means.
bool IsDecimal(const std::string& text, bool& is_integer) {
    size_t i = text[0] == '+' || text[0] == '-' ? 1 : 0;
    const auto skip_digits = [&] {
        const size_t start = i;
        while (i < text.size() && IsDigit(text[i])) ++i;
        return i - start;
    };
    size_t digits = skip_digits();
    is_integer = i == text.size();
    if (i < text.size() && text[i] == '.') {
        ++i;
        digits += skip_digits();
    }
    if (digits == 0) return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
        if (skip_digits() == 0) return false;
    }
    return i == text.size();
}

HRESULT ParseNumber(std::wstring_view wide, Number& number) {
    const std::optional<std::string> text = Narrow(wide);
    bool is_integer = false;
    if (!text || !IsDecimal(*text, is_integer)) return DISP_E_TYPEMISMATCH;
    if (is_integer) {
        const char* first = text->data() + (text->front() == '+' ? 1 : 0);
        const char* last = text->data() + text->size();
        if (std::from_chars(first, last, number.integer).ec == std::errc()) {
            number.kind = Number::Kind::Signed;
            return S_OK;
        }
        if (*first != '-' && std::from_chars(first, last, number.natural).ec == std::errc()) {
            number.kind = Number::Kind::Unsigned;
            return S_OK;
        }
    }
    number = Number::Real(hx::ParseDoubleC(text->c_str(), nullptr), 15);
    return std::isinf(number.real) ? DISP_E_OVERFLOW : S_OK;
}

bool EqualsWord(std::wstring_view text, std::wstring_view lower_case) {
    if (text.size() != lower_case.size()) return false;
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i] >= L'A' && text[i] <= L'Z' ? static_cast<wchar_t>(text[i] + 32) : text[i];
        if (c != lower_case[i]) return false;
    }
    return true;
}

HRESULT ReadText(std::wstring_view text, VARTYPE target, Number& number) {
    const bool is_true = EqualsWord(text, L"true");
    if (target == VT_BOOL && (is_true || EqualsWord(text, L"false"))) {
        number = Number::Signed(is_true ? VARIANT_TRUE : VARIANT_FALSE);
        return S_OK;
    }
    return ParseNumber(text, number);
}

HRESULT ReadNumber(const VARIANT& source, VARTYPE target, Number& number) {
    // clang-format off
    switch (source.vt) {
        case VT_EMPTY: number = Number::Signed(0); return S_OK;
        case VT_I1: number = Number::Signed(source.cVal); return S_OK;
        case VT_I2: number = Number::Signed(source.iVal); return S_OK;
        case VT_I4: case VT_INT: number = Number::Signed(source.lVal); return S_OK;
        case VT_I8: number = Number::Signed(source.llVal); return S_OK;
        case VT_UI1: number = Number::Unsigned(source.bVal); return S_OK;
        case VT_UI2: number = Number::Unsigned(source.uiVal); return S_OK;
        case VT_UI4: case VT_UINT: number = Number::Unsigned(source.ulVal); return S_OK;
        case VT_UI8: number = Number::Unsigned(source.ullVal); return S_OK;
        case VT_R4: number = Number::Real(source.fltVal, 7); return S_OK;
        case VT_R8: number = Number::Real(source.dblVal, 15); return S_OK;
        case VT_BOOL:
            number = Number::Signed(source.boolVal != VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE);
            number.is_bool = true;
            return S_OK;
        case VT_BSTR:
            return ReadText({source.bstrVal ? source.bstrVal : L"", SysStringLen(source.bstrVal)}, target, number);
        default: return DISP_E_TYPEMISMATCH;
    }
    // clang-format on
}

template <class T>
HRESULT ToInteger(const Number& number, T& value) {
    // A true is all ones in every size, also where -1 does not fit.
    if (number.is_bool) {
        value = static_cast<T>(number.integer);
        return S_OK;
    }
    Number whole = number;
    if (number.kind == Number::Kind::Real) {
        const double rounded = std::nearbyint(number.real);
        if (rounded >= -0x1p63 && rounded < 0x1p63) {
            whole = Number::Signed(static_cast<int64_t>(rounded));
        } else if (rounded >= 0 && rounded < 0x1p64) {
            whole = Number::Unsigned(static_cast<uint64_t>(rounded));
        } else {
            return DISP_E_OVERFLOW;
        }
    }
    const bool is_signed = whole.kind == Number::Kind::Signed;
    if (is_signed ? !std::in_range<T>(whole.integer) : !std::in_range<T>(whole.natural)) {
        return DISP_E_OVERFLOW;
    }
    value = is_signed ? static_cast<T>(whole.integer) : static_cast<T>(whole.natural);
    return S_OK;
}

HRESULT ToFloat(const Number& number, float& value) {
    const double real = number.AsReal();
    value = static_cast<float>(real);
    return std::isinf(value) && !std::isinf(real) ? DISP_E_OVERFLOW : S_OK;
}

HRESULT ToText(const Number& number, USHORT flags, BSTR& text) {
    std::array<char, 32> buffer{};
    char* const last = buffer.data() + buffer.size();
    std::to_chars_result written{buffer.data(), std::errc()};
    std::wstring wide;
    if (number.is_bool && (flags & VARIANT_ALPHABOOL)) {
        wide = number.IsZero() ? L"False" : L"True";
    } else if (number.kind == Number::Kind::Real) {
        written = std::to_chars(buffer.data(), last, number.real, std::chars_format::general, number.digits);
    } else if (number.kind == Number::Kind::Signed) {
        written = std::to_chars(buffer.data(), last, number.integer);
    } else {
        written = std::to_chars(buffer.data(), last, number.natural);
    }
    for (const char* c = buffer.data(); c != written.ptr; ++c) {
        wide += static_cast<wchar_t>(*c == 'e' ? 'E' : *c);
    }
    text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    return text ? S_OK : E_OUTOFMEMORY;
}

HRESULT WriteNumber(const Number& number, USHORT flags, VARIANT& target) {
    // clang-format off
    switch (target.vt) {
        case VT_I1: return ToInteger(number, target.cVal);
        case VT_I2: return ToInteger(number, target.iVal);
        case VT_I4: case VT_INT: return ToInteger(number, target.lVal);
        case VT_I8: return ToInteger(number, target.llVal);
        case VT_UI1: return ToInteger(number, target.bVal);
        case VT_UI2: return ToInteger(number, target.uiVal);
        case VT_UI4: case VT_UINT: return ToInteger(number, target.ulVal);
        case VT_UI8: return ToInteger(number, target.ullVal);
        case VT_R4: return ToFloat(number, target.fltVal);
        case VT_R8: target.dblVal = number.AsReal(); return S_OK;
        case VT_BOOL: target.boolVal = number.IsZero() ? VARIANT_FALSE : VARIANT_TRUE; return S_OK;
        case VT_BSTR: return ToText(number, flags, target.bstrVal);
        default: return DISP_E_TYPEMISMATCH;
    }
    // clang-format on
}

}  // namespace

HRESULT VariantChangeType(VARIANT* target, const VARIANT* source, USHORT flags, VARTYPE type) {
    if (!target || !source) return E_INVALIDARG;
    if (source->vt == type) return VariantCopy(target, source);
    if (source->vt & VT_BYREF) {
        hx::Variant value;
        const HRESULT seen = VariantCopyInd(value.put(), source);
        return FAILED(seen) ? seen : VariantChangeType(target, &value.get(), flags, type);
    }
    if (source->vt == VT_DISPATCH && type == VT_UNKNOWN) {
        VARIANT object = *source;
        object.vt = VT_UNKNOWN;
        object.punkVal = object.pdispVal;
        return VariantCopy(target, &object);
    }
    return hx::AtBoundary([&] {
        VARIANT fresh{};
        fresh.vt = type;
        HRESULT result = S_OK;
        if (source->vt == VT_EMPTY && type == VT_BSTR) {
            fresh.bstrVal = hx::Bstr(std::wstring_view()).detach();
        } else {
            Number number;
            result = ReadNumber(*source, type, number);
            if (FAILED(result)) return result;
            result = WriteNumber(number, flags, fresh);
            if (FAILED(result)) return result;
        }
        // The target last: it may be the source.
        result = VariantClear(target);
        if (FAILED(result)) {
            VariantClear(&fresh);
        } else {
            *target = fresh;
        }
        return result;
    });
}
