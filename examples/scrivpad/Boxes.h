#pragma once

#include "Failure.h"

#include <windows.h>

#include <exception>

namespace scrivpad {

/// A question with the buttons of an MB_ style. While it stands, the whole program waits.
/// @param from  the window that it concerns: any of the program's @return the ID of the button
int Ask(HWND from, const wchar_t* question, UINT buttons) noexcept;

/// Tells the user what went wrong.
void Tell(HWND from, const wchar_t* message) noexcept;

/// Runs the body; a failure in it is told to the user. @return false for a failure
template <class Body>
bool OrTell(HWND from, Body body) noexcept
{
    try {
        body();
        return true;
    } catch (const Failure& failure) {
        if (!failure.told)
            Tell(from, failure.message.c_str());
    } catch (const std::exception&) {
        Tell(from, L"не хватает памяти");
    }
    return false;
}

}  // namespace scrivpad
