#include "api/RuntimeReserve.h"
#include "framework/win/CWnd.h"

/// The window class points into the library, so it goes with it; so does what the library keeps of its threads.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* processEnds)
{
    if (reason == DLL_THREAD_DETACH)
        ForgetThisThread();
    if (reason == DLL_PROCESS_DETACH && !processEnds) {
        UnregisterWndClass();
        ForgetAllThreads();
    }
    return TRUE;
}
