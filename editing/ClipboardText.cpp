#include "editing/ClipboardText.h"

#include "framework/base/Platform.h"

#include <stdexcept>

namespace {

constexpr int openTries = 10;
constexpr unsigned pauseMs = 50;

// The text format that the open clipboard lists first, not the better one; 0 when there is none.
unsigned FirstTextFormat() noexcept
{
    unsigned format = PlatformNextClipboardFormat(0);
    while (format != 0 && format != clipboardBytes && format != clipboardWide)
        format = PlatformNextClipboardFormat(format);
    return format;
}

}  // namespace

void open_clipboard(HWND owner)
{
    for (int tries = 0; tries < openTries; ++tries) {
        if (PlatformOpenClipboard(owner))
            return;
        PlatformSleep(pauseMs);
    }
    throw std::runtime_error("can't open clipboard");
}

bool read_clipboard(CString& text)
{
    text.Empty();
    const unsigned format = FirstTextFormat();
    if (format == 0 || !PlatformReadClipboard(format, text))
        return false;
    strip_cr(text);
    return true;
}

bool can_paste(HWND owner)
{
    open_clipboard(owner);
    const bool holdsText = FirstTextFormat() != 0;
    PlatformCloseClipboard();  // on this path only: nothing between the two can raise
    return holdsText;
}

void strip_cr(CString& text)
{
    text.Replace(_T("\r"), WStrView());
}

void to_crlf(CString& text)
{
    text.Replace(_T("\n"), _T("\r\n"));
}
