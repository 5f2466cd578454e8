// VARIANT: one value of a kind known at run time, as it crosses IDispatch calls and SAFEARRAYs. It owns what
// it holds (string, object, array) unless VT_BYREF is set. VariantInit before use, VariantClear after;
// hx::Variant does both. Usable on any thread, by one at a time.
#pragma once

#include <concepts>

#include "platform/com/bstr.h"
#include "platform/com/unknown.h"

struct IDispatch;
struct SAFEARRAY;

using VARTYPE = uint16_t;
using VARIANT_BOOL = int16_t;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

// clang-format off
enum VARENUM : uint16_t {
    VT_EMPTY = 0, VT_NULL = 1, VT_I2 = 2, VT_I4 = 3, VT_R4 = 4, VT_R8 = 5, VT_CY = 6, VT_DATE = 7,
    VT_BSTR = 8, VT_DISPATCH = 9, VT_ERROR = 10, VT_BOOL = 11, VT_VARIANT = 12, VT_UNKNOWN = 13,
    VT_I1 = 16, VT_UI1 = 17, VT_UI2 = 18, VT_UI4 = 19, VT_I8 = 20, VT_UI8 = 21, VT_INT = 22, VT_UINT = 23,
    VT_VOID = 24, VT_HRESULT = 25, VT_PTR = 26, VT_SAFEARRAY = 27,  // in descriptions only
    VT_ARRAY = 0x2000, VT_BYREF = 0x4000, VT_TYPEMASK = 0x0FFF,
};
// clang-format on

struct VARIANT {
    // The widest member, which gives the structure its 24 bytes.
    struct Record {
        void* pvRecord;
        void* pRecInfo;
    };
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        int64_t llVal;
        LONG lVal;
        BYTE bVal;
        int16_t iVal;
        float fltVal;
        double dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        double date;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        SAFEARRAY* parray;
        BSTR* pbstrVal;
        VARIANT* pvarVal;
        LONG* plVal;
        VARIANT_BOOL* pboolVal;
        void* byref;
        signed char cVal;
        USHORT uiVal;
        ULONG ulVal;
        uint64_t ullVal;
        INT intVal;
        UINT uintVal;
        Record brecVal;
    };
};
using VARIANTARG = VARIANT;

// A bool becomes the text "True"/"False" instead of "-1"/"0".
inline constexpr USHORT VARIANT_ALPHABOOL = 0x2;

HX_PLATFORM_API void VariantInit(VARIANT* variant);

// Frees what it owns and leaves VT_EMPTY. DISP_E_ARRAYISLOCKED or DISP_E_BADVARTYPE leave it as it was.
HX_PLATFORM_API HRESULT VariantClear(VARIANT* variant);

// `target` becomes a copy: strings and arrays anew, objects by reference, VT_BYREF as the pointer. The two
// may be the same. On failure the target is as it was.
HX_PLATFORM_API HRESULT VariantCopy(VARIANT* target, const VARIANT* source);

// The same with what a VT_BYREF source points at. E_INVALIDARG for a null reference or one to another
// reference to a VARIANT.
HX_PLATFORM_API HRESULT VariantCopyInd(VARIANT* target, const VARIANT* source);

// The source's value as another kind, among integers, floats, VT_BOOL and VT_BSTR, whatever the locale: text
// has '.' as decimal separator, fractions round half to even. A VT_DISPATCH may become a VT_UNKNOWN, and what
// a reference points at is converted like a value. The two may be the same VARIANT. On failure the target is
// as it was: DISP_E_OVERFLOW, DISP_E_TYPEMISMATCH, DISP_E_BADVARTYPE, E_INVALIDARG, E_OUTOFMEMORY.
HX_PLATFORM_API HRESULT VariantChangeType(VARIANT* target, const VARIANT* source, USHORT flags, VARTYPE type);

namespace hx {

class HX_PLATFORM_API Variant {
public:
    Variant() noexcept { VariantInit(&m_value); }
    explicit Variant(int32_t value) noexcept;
    explicit Variant(double value) noexcept;
    // A template, or every pointer would pass for a bool.
    template <std::same_as<bool> Bool>
    explicit Variant(Bool value) noexcept : Variant() {
        m_value.vt = VT_BOOL;
        m_value.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    // Throws std::bad_alloc.
    explicit Variant(std::wstring_view text);
    // Takes a reference; null makes a VT_UNKNOWN of null.
    explicit Variant(IUnknown* object) noexcept;
    Variant(Variant&& other) noexcept : m_value(other.detach()) {}
    ~Variant() { VariantClear(&m_value); }
    Variant& operator=(Variant&& other) noexcept;

    VARTYPE type() const noexcept { return m_value.vt; }
    const VARIANT& get() const noexcept { return m_value; }
    const VARIANT* operator->() const noexcept { return &m_value; }

    // For out-parameters and arguments: clears, then lets the callee fill it in.
    VARIANT* put() noexcept;
    // Takes over the caller's value.
    void attach(const VARIANT& value) noexcept;
    // Hands the value to the caller and is empty after.
    [[nodiscard]] VARIANT detach() noexcept;
    // A copy for the caller; VT_EMPTY on failure, whatever `*out` held before. E_POINTER for a null `out`.
    HRESULT copy_to(VARIANT* out) const noexcept;

private:
    VARIANT m_value;
};

}  // namespace hx
