#pragma once

#include <windows.h>

/// Handles the messages that wait, so that the next measurement starts from rest.
inline void Drain()
{
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        ::DispatchMessageW(&message);
}
