#include "tests/endurance/Census.h"

#include <windows.h>  // before the header of the process' memory

#include <malloc.h>
#include <psapi.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::uintptr_t pastHandles = 0x10000;

template <typename IsOne>
std::int64_t CountHandles(std::uintptr_t step, IsOne isOne)
{
    std::int64_t count = 0;
    for (std::uintptr_t number = step; number < pastHandles; number += step)
        count += isOne(number) ? 1 : 0;
    return count;
}

bool IsOwnWindow(std::uintptr_t number)
{
    DWORD process = 0;
    ::GetWindowThreadProcessId(reinterpret_cast<HWND>(number), &process);
    return process == ::GetCurrentProcessId();
}

bool IsIcon(std::uintptr_t number)
{
    ICONINFO info{};
    if (!::GetIconInfo(reinterpret_cast<HICON>(number), &info))
        return false;
    ::DeleteObject(info.hbmMask);
    ::DeleteObject(info.hbmColor);
    return true;
}

std::pair<std::int64_t, std::int64_t> CountBlocks(HANDLE heap)
{
    std::int64_t blocks = 0;
    std::int64_t bytes = 0;
    ::HeapLock(heap);
    PROCESS_HEAP_ENTRY entry{};
    while (::HeapWalk(heap, &entry)) {
        if (!(entry.wFlags & PROCESS_HEAP_ENTRY_BUSY))
            continue;
        ++blocks;
        bytes += entry.cbData;
    }
    ::HeapUnlock(heap);
    return {blocks, bytes};
}

std::int64_t PrivateKb()
{
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<std::int64_t>(counters.PagefileUsage / 1024);  // the private bytes under another name
}

}  // namespace

std::int64_t Census::Gdi()
{
    if (const DWORD told = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS))
        return told;
    ::GdiFlush();
    return CountHandles(1,
        [](std::uintptr_t number) { return ::GetObjectType(reinterpret_cast<HGDIOBJ>(number)) != 0; });
}

std::int64_t Census::Windows()
{
    constexpr std::uintptr_t step = 2;
    return CountHandles(step, IsOwnWindow);
}

std::int64_t Census::User()
{
    if (const DWORD told = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS))
        return told;
    constexpr std::uintptr_t step = 2;
    return CountHandles(step, [](std::uintptr_t number) {
        return ::IsMenu(reinterpret_cast<HMENU>(number)) || IsIcon(number);
    });
}

std::int64_t Census::Handles()
{
    DWORD told = 0;
    if (::GetProcessHandleCount(::GetCurrentProcess(), &told) && told)
        return told;
    constexpr std::uintptr_t step = 4;
    return CountHandles(step, [](std::uintptr_t number) {
        DWORD flags = 0;
        return ::GetHandleInformation(reinterpret_cast<HANDLE>(number), &flags) != 0;
    });
}

Census Census::TakeMemory()
{
    Census census;
    const HANDLE own = reinterpret_cast<HANDLE>(::_get_heap_handle());
    std::array<HANDLE, 64> heaps{};
    const DWORD count = std::min<DWORD>(::GetProcessHeaps(heaps.size(), heaps.data()), heaps.size());
    for (DWORD i = 0; i < count; ++i) {
        const auto [blocks, bytes] = CountBlocks(heaps[i]);
        (heaps[i] == own ? census.heapBlocks : census.systemBlocks) += blocks;
        census.heapBytes += heaps[i] == own ? bytes : 0;
    }
    census.privateKb = PrivateKb();
    return census;
}

Census Census::Take()
{
    Census census = TakeMemory();
    census.gdi = Gdi();
    census.windows = Windows();
    census.user = User();
    census.handles = Handles();
    return census;
}

Census operator-(const Census& a, const Census& b)
{
    return {a.gdi - b.gdi, a.windows - b.windows, a.user - b.user, a.handles - b.handles,
            a.heapBlocks - b.heapBlocks, a.heapBytes - b.heapBytes, a.systemBlocks - b.systemBlocks,
                a.privateKb - b.privateKb};
}

void PrintTo(const Census& census, std::ostream* out)
{
    *out << census.gdi << " GDI, " << census.windows << " windows, " << census.user << " menus and icons, "
        << census.handles
         << " handles, " << census.heapBlocks << " blocks of " << census.heapBytes << " bytes, "
         << census.systemBlocks << " blocks of the system, " << census.privateKb << " KB private";
}
