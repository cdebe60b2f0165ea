#include "framework/win/CWnd.h"

/// The window class points into the library, so it goes with it.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* processEnds)
{
    if (reason == DLL_PROCESS_DETACH && !processEnds)
        UnregisterWndClass();
    return TRUE;
}
