#include "editing/DroppedText.h"

#include "framework/base/ForeignBlocks.h"
#include "framework/win/OleDataSource.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

namespace {

constexpr UINT longestPath = 260;  // in characters; what a longer one has behind them is cut off

// The engine, which knows no DROPFILES, has its own record of it.
static_assert(sizeof(xTFileListHead) == sizeof(DROPFILES) && offsetof(xTFileListHead, wide) == offsetof(DROPFILES, fWide));

[[nodiscard]] CString TextOfBlock(HGLOBAL block)
{
    const xTGlobalLock lock(block);
    return lock.get() ? CString(WideTextOfBlock(lock.get(), ::GlobalSize(block))) : CString();
}

[[nodiscard]] bool HoldsWholeFileList(HGLOBAL block) noexcept
{
    const xTGlobalLock lock(block);
    return lock.get() && IsWholeFileList(lock.get(), ::GlobalSize(block));
}

[[nodiscard]] CString PathsOf(xTGlobal block)
{
    CString text;
    if (!HoldsWholeFileList(block.get()))
        return text;
    const struct xTDrop {
        ~xTDrop() { ::DragFinish(handle); }
        HDROP handle;
    } drop{static_cast<HDROP>(static_cast<void*>(block.release()))};
    const UINT count = ::DragQueryFileW(drop.handle, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        WCHAR path[longestPath + 1] = L"";
        ::DragQueryFileW(drop.handle, i, path, longestPath + 1);
        if (i != 0)
            text.Append(L"\r\n");
        text.Append(path);
    }
    return text;
}

}  // namespace

CString DroppedText(IDataObject* data)
{
    if (const xTGlobal text = GetGlobalData(data, CF_UNICODETEXT))
        return TextOfBlock(text.get());
    if (xTGlobal files = GetGlobalData(data, CF_HDROP))
        return PathsOf(std::move(files));
    return {};
}

xTGlobal TextBlock(const CString& text)
{
    const std::size_t bytes = (static_cast<std::size_t>(text.GetLength()) + 1) * sizeof(WCHAR);
    xTGlobal block(::GlobalAlloc(GMEM_ZEROINIT, bytes));
    const xTGlobalLock lock(block.get());
    if (!lock.get())
        throw std::bad_alloc();
    std::memcpy(lock.get(), text.c_str(), bytes);
    return block;
}
