// The integer and text names that component interfaces are written with, in the sizes that Windows gives
// them. Included by every header of this folder; nobody needs to include it directly. All are of fixed width:
// a 64-bit "long" must never reach an interface.
#pragma once

#include <cstdint>

using BYTE = uint8_t;
using WORD = uint16_t;
using USHORT = uint16_t;
using DWORD = uint32_t;
using ULONG = uint32_t;
using LONG = int32_t;
using UINT = uint32_t;
using INT = int32_t;
using BOOL = int32_t;

using OLECHAR = wchar_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;

// Macros, as other toolkits test for them.
#if !defined(TRUE)
#define TRUE 1
#endif
#if !defined(FALSE)
#define FALSE 0
#endif

// There is one calling convention here; the word stays so that interfaces read alike everywhere.
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE

// Marks the entry points that a component library exports.
#define STDAPI extern "C" __attribute__((visibility("default"))) HRESULT
