// SAFEARRAY: an array with its own bounds and element type, as arrays cross interfaces. It owns its elements:
// strings, objects and variants are copied in, copied out and freed with it. Dimensions count from 1, the
// leftmost first; the leftmost index varies fastest in memory. hx::SafeArray owns one. Usable on any thread,
// by one at a time; several may read.
#pragma once

#include <utility>

#include "platform/com/variant.h"

struct SAFEARRAYBOUND {
    ULONG cElements;
    LONG lLbound;
};

struct SAFEARRAY {
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    void* pvData;
    SAFEARRAYBOUND rgsabound[1];  // cDims of them, the rightmost dimension first
};

inline constexpr USHORT FADF_HAVEVARTYPE = 0x0080;
inline constexpr USHORT FADF_BSTR = 0x0100;
inline constexpr USHORT FADF_UNKNOWN = 0x0200;
inline constexpr USHORT FADF_DISPATCH = 0x0400;
inline constexpr USHORT FADF_VARIANT = 0x0800;

// New arrays of zeroed elements, [caller owns]; null for a type that cannot be an element, no dimension, or
// too many elements for memory. `bounds` has the leftmost dimension first. Zero elements are allowed.
HX_PLATFORM_API SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
HX_PLATFORM_API SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lower_bound, ULONG elements);

// Frees the array and its elements; null is no error. DISP_E_ARRAYISLOCKED while its data are accessed.
HX_PLATFORM_API HRESULT SafeArrayDestroy(SAFEARRAY* array);

// A copy with elements of its own, [caller owns]; null on failure. Null copies to null.
HX_PLATFORM_API HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);

// Zero for null.
HX_PLATFORM_API UINT SafeArrayGetDim(SAFEARRAY* array);
HX_PLATFORM_API UINT SafeArrayGetElemsize(SAFEARRAY* array);

// E_INVALIDARG for a null argument, DISP_E_BADINDEX for a dimension that it lacks. The upper bound is
// inclusive: one less than the lower one if the dimension is empty.
HX_PLATFORM_API HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HX_PLATFORM_API HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HX_PLATFORM_API HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);

// One element by its indices, leftmost dimension first; DISP_E_BADINDEX outside the bounds. Reading writes a
// copy over `*element` without freeing what it held. Writing takes a pointer to the value, but for a string
// the BSTR and for an object the interface pointer themselves; the old element is freed, and stays on
// failure.
HX_PLATFORM_API HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* element);
HX_PLATFORM_API HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* element);

// The elements in place, until the matching SafeArrayUnaccessData (E_UNEXPECTED without one).
HX_PLATFORM_API HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data);
HX_PLATFORM_API HRESULT SafeArrayUnaccessData(SAFEARRAY* array);

namespace hx {

// An array that is still accessed when its owner goes is left to the one who accesses it.
class SafeArray {
public:
    SafeArray() noexcept = default;
    // Takes over the caller's array.
    explicit SafeArray(SAFEARRAY* array) noexcept : m_array(array) {}
    SafeArray(SafeArray&& other) noexcept : m_array(other.detach()) {}
    ~SafeArray() { SafeArrayDestroy(m_array); }
    SafeArray& operator=(SafeArray&& other) noexcept {
        if (this != &other) attach(other.detach());
        return *this;
    }

    SAFEARRAY* get() const noexcept { return m_array; }
    explicit operator bool() const noexcept { return m_array != nullptr; }

    // For out-parameters: destroys what it held, then lets the callee attach.
    SAFEARRAY** put() noexcept {
        attach(nullptr);
        return &m_array;
    }
    void attach(SAFEARRAY* array) noexcept { SafeArrayDestroy(std::exchange(m_array, array)); }
    // Hands the array to the caller and is empty after.
    [[nodiscard]] SAFEARRAY* detach() noexcept { return std::exchange(m_array, nullptr); }
    // A copy for the caller, null for none. `*out` is null on failure: E_POINTER, E_OUTOFMEMORY.
    HRESULT copy_to(SAFEARRAY** out) const noexcept { return out ? SafeArrayCopy(m_array, out) : E_POINTER; }

private:
    SAFEARRAY* m_array = nullptr;
};

}  // namespace hx
