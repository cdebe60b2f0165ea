/* Stands in for Microsoft's windows.h, which is not to be had here: what scrivctl3.h and the hosts of these tests take of
   it, with the widths that it has for 64-bit programs. */
#pragma once

#include <stddef.h>

typedef int BOOL;
typedef int INT32;
typedef long LONG;
typedef unsigned int UINT32;
typedef struct HWND__* HWND;
typedef struct HDC__* HDC;
typedef struct tagRECT {
    LONG left, top, right, bottom;
} RECT;
