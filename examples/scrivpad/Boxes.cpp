#include "Boxes.h"

#include "Names.h"

namespace scrivpad {

namespace {

/// A box over a modeless dialog lets that one wait, but not the window behind it.
class OwnerWaits {
public:
    explicit OwnerWaits(HWND top) noexcept : m_owner(::GetWindow(top, GW_OWNER))
    {
        if (m_owner != nullptr && ::EnableWindow(m_owner, FALSE))
            m_owner = nullptr;  // somebody else let it wait already
    }
    ~OwnerWaits()
    {
        if (m_owner != nullptr)
            ::EnableWindow(m_owner, TRUE);
    }
    OwnerWaits(const OwnerWaits&) = delete;
    OwnerWaits& operator=(const OwnerWaits&) = delete;

private:
    HWND m_owner;
};

int Show(HWND from, const wchar_t* text, UINT style) noexcept
{
    const HWND top = ::GetAncestor(from, GA_ROOT);
    const OwnerWaits owner(top);
    return ::MessageBoxW(top, text, programName, style);
}

}  // namespace

int Ask(HWND from, const wchar_t* question, UINT buttons) noexcept
{
    return Show(from, question, buttons | MB_ICONQUESTION);
}

void Tell(HWND from, const wchar_t* message) noexcept
{
    Show(from, message, MB_OK | MB_ICONWARNING);
}

}  // namespace scrivpad
