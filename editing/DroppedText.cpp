#include "editing/DroppedText.h"

#include "framework/win/OleDataSource.h"

#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

namespace {

constexpr UINT longestPath = 260;  // in characters; what a longer one has behind them is cut off

/// The characters of a block from a byte on, as many as lie in it whole.
[[nodiscard]] WStrView CharactersOf(const void* data, std::size_t bytes) noexcept
{
    return {static_cast<const WCHAR*>(data), bytes / sizeof(WCHAR)};
}

/// Up to the terminator, or to the end of the block: another program may have left the terminator out.
[[nodiscard]] CString TextOfBlock(HGLOBAL block)
{
    const xTGlobalLock lock(block);
    if (!lock.get())
        return {};
    const WStrView text = CharactersOf(lock.get(), ::GlobalSize(block));
    return text.substr(0, std::min(text.find(WCHAR{0}), text.size()));
}

/// True when the list of files ends within the block, which the system does not ask when it reads the list.
[[nodiscard]] bool IsWholeFileList(HGLOBAL block) noexcept
{
    const xTGlobalLock lock(block);
    const std::size_t size = lock.get() ? ::GlobalSize(block) : 0;
    if (size < sizeof(DROPFILES))
        return false;
    const auto* head = static_cast<const DROPFILES*>(lock.get());
    if (head->pFiles < sizeof(DROPFILES) || head->pFiles >= size)
        return false;
    const std::string_view names(static_cast<const char*>(lock.get()) + head->pFiles, size - head->pFiles);
    // The list ends with an empty name: two terminators in a row, or one where there is no name at all.
    if (!head->fWide)
        return names[0] == 0 || names.find(std::string_view("\0\0", 2)) != names.npos;
    const WStrView wide = CharactersOf(names.data(), names.size());
    return (!wide.empty() && wide[0] == 0) || wide.find(WStrView(L"\0\0", 2)) != wide.npos;
}

[[nodiscard]] CString PathsOf(xTGlobal block)
{
    CString text;
    if (!IsWholeFileList(block.get()))
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
