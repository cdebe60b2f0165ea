#include "diagnostics/Guarded.h"
#include "editing/ClipboardText.h"
#include "framework/base/Platform.h"
#include "store/MemStor.h"
#include "store/StoreWindow.h"

// The selection on its way to the clipboard. The clipboard is closed on the normal path only: a fault in between leaves
// it open, as required.

namespace {

[[nodiscard]] HWND OwnerOf(const xTMemStorage& store)
{
    return store.wnd ? store.wnd->Handle() : nullptr;
}

// The clipboard keeps what it holds when there is nothing to put there.
void Store(CString& text)
{
    to_crlf(text);
    if (!text.IsEmpty())
        PlatformWriteClipboard(text);
}

}  // namespace

void xTMemStorage::copy_selection()
{
    Guarded([&] {
        if (!has_selection())
            return;
        open_clipboard(OwnerOf(*this));
        CString text;
        selected_text(text);
        Store(text);
        PlatformCloseClipboard();
    });
}

void xTMemStorage::append_selection()
{
    Guarded([&] {
        if (!has_selection())
            return;
        open_clipboard(OwnerOf(*this));
        CString text;
        static_cast<void>(read_clipboard(text));  // leaves it empty where there is no text
        if (!text.IsEmpty())
            text.AppendChar(_T('\n'));
        CString selected;
        selected_text(selected);
        text.Append(selected);
        Store(text);
        PlatformCloseClipboard();
    });
}
