#include "Failure.h"

#include <windows.h>

namespace scrivpad {

Failure SystemFailure(std::wstring text, unsigned long errorCode)
{
    wchar_t said[512];
    const DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    DWORD length = ::FormatMessageW(flags, nullptr, errorCode, 0, said, ARRAYSIZE(said), nullptr);
    while (length > 0 && (said[length - 1] <= L' ' || said[length - 1] == L'.'))
        --length;
    if (length > 0)
        text.append(L": ").append(said, length);
    else
        text.append(L": ошибка ").append(std::to_wstring(errorCode));
    return Failure(std::move(text));
}

}  // namespace scrivpad
