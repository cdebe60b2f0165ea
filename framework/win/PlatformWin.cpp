#include "framework/base/Platform.h"

#include "framework/base/ForeignBlocks.h"
#include "framework/win/CWnd.h"

#include <windows.h>

#include <sys/timeb.h>
#include <time.h>

#include <algorithm>
#include <memory>
#include <new>

// The questions about memory, the user and the machine, put to the system. Those about text stand in PlatformTextWin.

namespace {

HKL Handle(xTKeyLayout layout) noexcept
{
    return reinterpret_cast<HKL>(layout);
}

// The module that holds this code, which is the library and not the host.
HMODULE OwnModule() noexcept
{
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<LPCWSTR>(&OwnModule), &module);
    return module;
}

struct xTUnlock {
    void operator()(HGLOBAL memory) const noexcept { ::GlobalUnlock(memory); }
};
using xTLocked = std::unique_ptr<void, xTUnlock>;

struct xTGlobalDelete {
    void operator()(HGLOBAL memory) const noexcept { ::GlobalFree(memory); }
};
using xTGlobal = std::unique_ptr<void, xTGlobalDelete>;

}  // namespace

void* PlatformAllocPages(std::size_t bytes)
{
    void* pages = ::VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (!pages)
        throw std::bad_alloc();
    return pages;
}

void PlatformFreePages(void* pages, std::size_t) noexcept
{
    ::VirtualFree(pages, 0, MEM_RELEASE);
}

bool PlatformKeyDown(int key) noexcept
{
    return (::GetKeyState(key) & 0xF0) != 0;  // the toggle bit stays set after release and is not asked for
}

xTKeyLayout PlatformKeyLayout() noexcept
{
    return reinterpret_cast<xTKeyLayout>(::GetKeyboardLayout(0));
}

void PlatformNextKeyLayout() noexcept
{
    ::ActivateKeyboardLayout(reinterpret_cast<HKL>(HKL_NEXT), KLF_REORDER);
}

std::uint16_t PlatformKeyScan(WCHAR ch, xTKeyLayout layout) noexcept
{
    return static_cast<std::uint16_t>(::VkKeyScanExW(ch, Handle(layout)));
}

unsigned PlatformScanCode(unsigned key, xTKeyLayout layout) noexcept
{
    return ::MapVirtualKeyExW(key, MAPVK_VK_TO_VSC, Handle(layout));
}

int PlatformKeyText(unsigned key, unsigned scanCode, std::span<const BYTE, 256> state, xTKeyLayout layout,
                    std::span<WCHAR, 2> text) noexcept
{
    return ::ToUnicodeEx(key, scanCode, state.data(), text.data(), static_cast<int>(text.size()), 0, Handle(layout));
}

bool PlatformOpenClipboard(HWND owner) noexcept
{
    return ::OpenClipboard(owner) != FALSE;
}

void PlatformCloseClipboard() noexcept
{
    ::CloseClipboard();
}

unsigned PlatformNextClipboardFormat(unsigned format) noexcept
{
    return ::EnumClipboardFormats(format);
}

bool PlatformReadClipboard(unsigned format, CString& text)
{
    const HGLOBAL memory = ::GetClipboardData(format);  // the clipboard's own, never freed here
    const void* bytes = memory ? ::GlobalLock(memory) : nullptr;
    if (!bytes)
        return false;
    const xTLocked locked(memory);
    const std::size_t size = ::GlobalSize(memory);
    if (format == clipboardWide) {
        text = WideTextOfBlock(bytes, size);
        return true;
    }
    WString wide;
    if (!PlatformToWide(xTCodePage::ansi, ByteTextOfBlock(bytes, size), wide))
        return false;
    text = WStrView(wide);
    return true;
}

void PlatformWriteClipboard(WStrView text) noexcept
{
    xTGlobal memory(::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(WCHAR)));
    auto* to = memory ? static_cast<WCHAR*>(::GlobalLock(memory.get())) : nullptr;
    if (!to)
        return;
    *std::copy(text.begin(), text.end(), to) = 0;
    ::GlobalUnlock(memory.get());
    ::EmptyClipboard();
    if (::SetClipboardData(clipboardWide, memory.get()))
        static_cast<void>(memory.release());  // the clipboard's now
}

void PlatformSleep(unsigned milliseconds) noexcept
{
    ::Sleep(milliseconds);
}

void PlatformMessageBox(const WCHAR* text, const WCHAR* caption, xTBoxIcon icon) noexcept
{
    ::MessageBoxW(nullptr, text, caption, static_cast<UINT>(icon));
}

void PlatformNotice(HWND from, const WCHAR* text, xTBoxIcon icon) noexcept
{
    ShowMessageBox(from, text, static_cast<UINT>(icon));
}

CString PlatformString(unsigned id)
{
    const WCHAR* text = nullptr;  // with no room given the system hands out the place of the text itself
    const int length = ::LoadStringW(OwnModule(), id, reinterpret_cast<LPWSTR>(&text), 0);
    return length > 0 ? CString(WStrView(text, static_cast<std::size_t>(length))) : CString();
}

std::int32_t PlatformExecutablePath(WCHAR* path, std::int32_t room) noexcept
{
    const DWORD told = ::GetModuleFileNameW(nullptr, path, static_cast<DWORD>(room));
    const auto length = static_cast<std::int32_t>(std::min(told, static_cast<DWORD>(room) - 1));
    path[length] = 0;  // a cut path counts as told, and not every system ends it
    return length;
}

xTResolution PlatformScreenResolution() noexcept
{
    const HDC screen = ::GetDC(nullptr);
    if (!screen)
        return {96, 96};
    const xTResolution resolution{::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
    ::ReleaseDC(nullptr, screen);
    return resolution;
}

xTLocalTime PlatformLocalTime() noexcept
{
    struct __timeb64 now = {};
    ::_ftime64(&now);
    const struct tm* local = ::_localtime64(&now.time);
    if (!local)
        return {};
    return {local->tm_mday, local->tm_mon + 1, local->tm_year + 1900, local->tm_hour, local->tm_min, local->tm_sec,
            now.millitm};
}
