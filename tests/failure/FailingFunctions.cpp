#include "tests/failure/FailingFunctions.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::int64_t invalidHandle = -1;
constexpr std::int64_t invalidColor = CLR_INVALID;
constexpr std::int64_t unexpected = static_cast<std::int32_t>(0x8000FFFF);   // E_UNEXPECTED
constexpr std::int64_t outOfMemory = static_cast<std::int32_t>(0x8007000E);  // E_OUTOFMEMORY

constexpr DWORD noMemory = ERROR_NOT_ENOUGH_MEMORY;
constexpr DWORD noWindow = ERROR_INVALID_WINDOW_HANDLE;
constexpr DWORD noHandle = ERROR_INVALID_HANDLE;
constexpr DWORD denied = ERROR_ACCESS_DENIED;
constexpr DWORD diskFull = ERROR_DISK_FULL;

// Every answer is the one that the documentation of the function gives for a failure.
constexpr FailingFunction failing[] = {
    // Memory
    {"malloc", 0, 0, true},
    {"calloc", 0, 0, true},
    {"realloc", 0, 0, true},
    {"VirtualAlloc", 0, noMemory, true},
    {"GlobalAlloc", 0, noMemory, true},
    {"GlobalLock", 0, noHandle},
    {"GlobalSize", 0, noHandle},
    {"GlobalUnlock", 0, noHandle},
    {"VirtualFree", 0, ERROR_INVALID_PARAMETER, false, true},
    // Dialogs of the system
    {"ChooseFontW"},
    {"FindTextW"},
    {"ReplaceTextW"},
    {"CreateDialogParamW", 0, ERROR_RESOURCE_NAME_NOT_FOUND},
    {"MessageBoxW", 0, noMemory},
    // Drawing
    {"BitBlt", 0, noHandle},
    {"CreateCompatibleBitmap", 0, noMemory},
    {"CreateCompatibleDC", 0, noMemory},
    {"CreateFontIndirectW", 0, noMemory},
    {"CreateSolidBrush", 0, noMemory},
    {"DeleteDC", 0, 0, false, true},
    {"DeleteObject", 0, 0, false, true},
    {"DrawTextW"},
    {"ExtTextOutW"},
    {"FillRect"},
    {"FrameRect"},
    {"GetCharWidth32W"},
    {"GetCharABCWidthsW"},
    {"GetClipBox"},
    {"GetCurrentObject"},
    {"GetDeviceCaps"},
    {"GetGlyphIndicesW", GDI_ERROR},
    {"GetObjectW"},
    {"GetStockObject"},
    {"GetSysColorBrush"},
    {"GetTabbedTextExtentW"},
    {"GetTextExtentExPointW"},
    {"GetTextExtentPoint32W"},
    {"GetTextMetricsW"},
    {"IntersectClipRect"},
    {"PatBlt"},
    {"RestoreDC"},
    {"SaveDC"},
    {"SelectClipRgn"},
    {"SelectObject"},
    {"SetBkColor", invalidColor},
    {"SetBkMode"},
    {"SetTextColor", invalidColor},
    {"TabbedTextOutW"},
    {"TextOutW"},
    {"BeginPaint"},
    {"GetDC"},
    {"ReleaseDC", 0, 0, false, true},
    // Windows
    {"CreateWindowExW", 0, noMemory},
    {"DestroyWindow", 0, denied},
    {"RegisterClassExW", 0, noMemory},
    {"UnregisterClassW", 0, ERROR_CLASS_HAS_WINDOWS},
    {"RegisterWindowMessageW", 0, noMemory},
    {"ClientToScreen", 0, noWindow},
    {"ScreenToClient", 0, noWindow},
    {"MapWindowPoints", 0, noWindow},
    {"GetAncestor", 0, noWindow},
    {"GetParent", 0, noWindow},
    {"SetParent", 0, denied},
    {"GetClassLongPtrW", 0, noWindow},
    {"SetClassLongPtrW", 0, noWindow},
    {"GetWindowLongPtrW", 0, noWindow},
    {"SetWindowLongPtrW", 0, denied},
    {"GetClientRect", 0, noWindow},
    {"GetWindowRect", 0, noWindow},
    {"GetDlgCtrlID", 0, noWindow},
    {"GetDlgItem", 0, ERROR_CONTROL_ID_NOT_FOUND},
    {"GetDlgItemInt"},
    {"SetDlgItemInt", 0, ERROR_CONTROL_ID_NOT_FOUND},
    {"GetScrollInfo", 0, noWindow},
    {"SetScrollInfo"},
    {"ScrollWindow", 0, noWindow},
    {"GetSystemMetrics"},
    {"GetUpdateRect"},
    {"GetWindowThreadProcessId"},
    {"InvalidateRect"},
    {"ValidateRect"},
    {"RedrawWindow"},
    {"UpdateWindow"},
    {"MoveWindow", 0, noWindow},
    {"SetWindowPos", 0, noWindow},
    {"SetWindowTextW", 0, noMemory},
    {"SendMessageW", 0, denied},
    {"SendNotifyMessageW", 0, denied},
    {"SetForegroundWindow"},
    {"IsWindow", 0, noWindow},
    // Keys, pointer, caret, timers
    {"ActivateKeyboardLayout", 0, ERROR_INVALID_PARAMETER},
    {"GetKeyboardLayout"},
    {"GetKeyboardState", 0, denied},
    {"MapVirtualKeyExW"},
    {"ToUnicodeEx"},
    {"VkKeyScanExW", 0xFFFF},
    {"CreateCaret", 0, denied},
    {"DestroyCaret", 0, denied},
    {"GetCaretPos", 0, denied},
    {"SetCaretPos", 0, denied},
    {"ShowCaret", 0, denied},
    {"HideCaret", 0, denied},
    {"GetCursorPos", 0, denied},
    {"LoadCursorW", 0, ERROR_RESOURCE_NAME_NOT_FOUND},
    {"SetFocus", 0, denied},
    {"GetFocus"},
    {"ReleaseCapture"},
    {"SetTimer", 0, noMemory},
    {"KillTimer", 0, ERROR_INVALID_PARAMETER, false, true},
    // Clipboard and drags
    {"OpenClipboard", 0, denied},
    {"CloseClipboard", 0, ERROR_CLIPBOARD_NOT_OPEN, false, true},
    {"EmptyClipboard", 0, ERROR_CLIPBOARD_NOT_OPEN},
    {"EnumClipboardFormats", 0, ERROR_CLIPBOARD_NOT_OPEN},
    {"GetClipboardData", 0, noMemory},
    {"SetClipboardData", 0, noMemory},
    {"CoDisconnectObject", unexpected},
    {"DoDragDrop", outOfMemory},
    {"OleInitialize", outOfMemory},
    {"RegisterDragDrop", outOfMemory},
    {"RevokeDragDrop", unexpected, 0, false, true},
    {"DragQueryFileW"},
    {"SHCreateStdEnumFmtEtc", outOfMemory},
    // Files
    {"CloseHandle", 0, noHandle, false, true},
    {"CreateFileA", invalidHandle, denied},
    {"CreateFileW", invalidHandle, denied},
    {"DeleteFileW", 0, denied},
    {"FlushFileBuffers", 0, diskFull},
    {"GetFileAttributesW", static_cast<std::int64_t>(INVALID_FILE_ATTRIBUTES), denied},
    {"GetFileInformationByHandle", 0, denied},
    {"GetFileSizeEx", 0, denied},
    {"GetFileType", FILE_TYPE_UNKNOWN, noHandle},
    {"GetFinalPathNameByHandleW", 0, noMemory},
    {"GetFullPathNameW", 0, noMemory},
    {"GetTempPathW", 0, noMemory},
    {"MoveFileExW", 0, denied},
    {"ReadFile", 0, ERROR_CRC},
    {"ReplaceFileW", 0, ERROR_UNABLE_TO_REMOVE_REPLACED},
    {"SetEndOfFile", 0, diskFull},
    {"SetFileAttributesW", 0, denied},
    {"SetFilePointerEx", 0, noHandle},
    {"WriteFile", 0, diskFull},
    // Text and the rest
    {"LoadStringW", 0, ERROR_RESOURCE_NAME_NOT_FOUND},
    {"MultiByteToWideChar", 0, ERROR_NO_UNICODE_TRANSLATION},
    {"WideCharToMultiByte", 0, ERROR_NO_UNICODE_TRANSLATION},
    {"MulDiv", -1},
    {"lstrcpynW"},
    {"GetModuleFileNameW", 0, noMemory},
    {"GetModuleHandleExW", 0, ERROR_MOD_NOT_FOUND},
    {"GetModuleHandleW", 0, ERROR_MOD_NOT_FOUND},
    {"TlsSetValue", 0, noMemory},
    {"_localtime64"},
};

constexpr const char* cannotFail = "has no way to tell of a failure";
constexpr const char* question = "answers a question of which each answer is a good one";
constexpr const char* arithmetic = "is plain arithmetic on what it is given";
constexpr const char* giver = "takes back what was lent; there is nothing that a caller could do";
constexpr const char* defaultWork = "is the system's own handling of a message";
constexpr const char* runtime = "is called by the compiler's runtime only: locks, threads, unwinding, start and end";
constexpr const char* library = "is a plain function of the C library that cannot fail, or ends the process";

constexpr NeverFailing never[] = {
    {"CallWindowProcW", defaultWork}, {"DefWindowProcW", defaultWork},
    {"CharLowerBuffW", cannotFail}, {"CharUpperBuffW", cannotFail}, {"Sleep", cannotFail},
    {"GetCurrentThreadId", cannotFail}, {"GetLastError", cannotFail}, {"SetLastError", cannotFail},
    {"GetTickCount64", cannotFail}, {"GetACP", cannotFail}, {"GetOEMCP", cannotFail}, {"_ftime64", cannotFail},
    {"DragFinish", cannotFail}, {"OleUninitialize", cannotFail}, {"EndPaint", "always answers TRUE"},
    {"GetKeyState", question}, {"GetCapture", question}, {"SetCapture", question}, {"SetCursor", question},
    {"IsWindowEnabled", question}, {"IsWindowVisible", question}, {"EnableWindow", question}, {"ShowWindow", question},
    {"GetLastActivePopup", question},
    {"InflateRect", arithmetic}, {"IntersectRect", arithmetic}, {"IsRectEmpty", arithmetic}, {"PtInRect", arithmetic},
    {"GlobalFree", giver}, {"ReleaseStgMedium", giver},
    {"CryptAcquireContextA", runtime}, {"CryptGenRandom", runtime}, {"CryptReleaseContext", runtime},
    {"AddVectoredExceptionHandler", runtime}, {"CreateEventA", runtime}, {"CreateSemaphoreA", runtime},
    {"DeleteCriticalSection", runtime}, {"DuplicateHandle", runtime}, {"EnterCriticalSection", runtime},
    {"FileTimeToSystemTime", runtime}, {"FormatMessageA", runtime}, {"GetCurrentProcess", runtime},
    {"GetCurrentProcessId", runtime}, {"GetCurrentThread", runtime}, {"GetHandleInformation", runtime},
    {"GetModuleHandleA", runtime}, {"GetProcAddress", runtime}, {"GetProcessAffinityMask", runtime},
    {"GetProcessTimes", runtime}, {"GetSystemTimeAdjustment", runtime}, {"GetSystemTimeAsFileTime", runtime},
    {"GetThreadContext", runtime}, {"GetThreadPriority", runtime}, {"GetThreadTimes", runtime},
    {"InitializeCriticalSection", runtime}, {"IsDBCSLeadByteEx", runtime}, {"IsDebuggerPresent", runtime},
    {"LeaveCriticalSection", runtime}, {"LoadLibraryW", runtime}, {"LocalFree", runtime}, {"OpenProcess", runtime},
    {"OutputDebugStringA", runtime}, {"QueryPerformanceCounter", runtime}, {"QueryPerformanceFrequency", runtime},
    {"RaiseException", runtime}, {"ReleaseSemaphore", runtime}, {"RemoveVectoredExceptionHandler", runtime},
    {"ResetEvent", runtime}, {"ResumeThread", runtime}, {"RtlCaptureContext", runtime},
    {"RtlLookupFunctionEntry", runtime}, {"RtlUnwindEx", runtime}, {"RtlVirtualUnwind", runtime}, {"SetEvent", runtime},
    {"SetProcessAffinityMask", runtime}, {"SetSystemTime", runtime}, {"SetThreadContext", runtime},
    {"SetThreadPriority", runtime}, {"SuspendThread", runtime}, {"TlsAlloc", "is asked once, while the library is being loaded"}, {"TlsFree", giver}, {"TlsGetValue", runtime},
    {"TryEnterCriticalSection", runtime}, {"VirtualProtect", runtime},
    {"VirtualQuery", runtime}, {"WaitForMultipleObjects", runtime}, {"WaitForSingleObject", runtime},
    {"__C_specific_handler", runtime}, {"___lc_codepage_func", runtime}, {"___mb_cur_max_func", runtime},
    {"__iob_func", runtime}, {"_amsg_exit", runtime}, {"_beginthreadex", runtime}, {"_endthreadex", runtime},
    {"_exit", runtime}, {"_initterm", runtime}, {"_lock", runtime}, {"_unlock", runtime}, {"_setjmp", runtime},
    {"longjmp", runtime}, {"signal", runtime}, {"_snwprintf", runtime}, {"_ultoa", runtime}, {"fprintf", runtime},
    {"fputc", runtime}, {"fputs", runtime}, {"fwrite", runtime}, {"localeconv", runtime}, {"printf", runtime},
    {"vfprintf", runtime}, {"strerror", runtime}, {"_write", runtime}, {"_strdup", runtime}, {"_read", runtime},
    {"_open", runtime}, {"_close", runtime}, {"_errno", library}, {"abort", library}, {"exit", library},
    {"free", library}, {"memchr", library}, {"memcmp", library}, {"memcpy", library}, {"memmove", library},
    {"memset", library}, {"strcmp", library}, {"strlen", library}, {"strncmp", library}, {"wcslen", library},
    {"wcsrchr", library},
};

template <typename Rows>
auto* FindRow(const Rows& rows, std::string_view name)
{
    const auto* found = std::find_if(std::begin(rows), std::end(rows), [&](const auto& row) { return name == row.name; });
    return found == std::end(rows) ? nullptr : found;
}

}  // namespace

std::span<const FailingFunction> FailingFunctions()
{
    return failing;
}

std::span<const NeverFailing> NeverFailingFunctions()
{
    return never;
}

const FailingFunction* FindFailingFunction(std::string_view name)
{
    return FindRow(failing, name);
}

bool IsLeftAlone(std::string_view name)
{
    return FindRow(never, name) != nullptr;
}
