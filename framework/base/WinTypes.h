#pragma once

// The few system types that the engine speaks in. On Windows they are the system's own; the native build, which
// serves tests and tools, gets equals of the same names, sizes and fields.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#ifdef _WIN32

#include <windef.h>
#include <wingdi.h>

#ifndef _T
#define _T(text) L##text
#endif

#else

#define _T(text) u##text

using WCHAR = char16_t;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using BOOL = std::int32_t;
using UINT = std::uint32_t;
using COLORREF = std::uint32_t;
using HWND = struct HWND__*;
using HDC = struct HDC__*;

struct POINT {
    LONG x;
    LONG y;
};
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[32];
};
static_assert(sizeof(LOGFONTW) == 92);

#endif

using WString = std::basic_string<WCHAR>;
using WStrView = std::basic_string_view<WCHAR>;
