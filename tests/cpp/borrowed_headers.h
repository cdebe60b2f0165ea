// Read in front of everything when the headers of MinGW-w64 serve a compiler that is not theirs: their word for an
// imported variable is one that the Microsoft dialect does not have.
#include <_mingw.h>
#undef __MINGW_IMPORT
#define __MINGW_IMPORT extern __declspec(dllimport)
