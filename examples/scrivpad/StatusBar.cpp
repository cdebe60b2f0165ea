#include "StatusBar.h"

#include <commctrl.h>

#include <utility>

namespace scrivpad {

namespace {

/// The longest text of each part; the last part takes the rest of the bar.
constexpr const wchar_t* widestTexts[StatusBar::partCount - 1] = {
    L"Стр 0000000, Стб 000",
    L"ВСТ",
    L"Изменён",
    L"По умолчанию (UTF-8)",
};

[[nodiscard]] int TextWidth(HDC dc, const wchar_t* text) noexcept
{
    SIZE size = {};
    ::GetTextExtentPoint32W(dc, text, ::lstrlenW(text), &size);
    return size.cx;
}

}  // namespace

bool StatusBar::Create(HWND parent)
{
    m_bar = ::CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0, parent,
                              nullptr, ::GetModuleHandleW(nullptr), nullptr);
    return m_bar != nullptr;
}

int StatusBar::Layout()
{
    ::SendMessageW(m_bar, WM_SIZE, 0, 0);
    const HDC dc = ::GetDC(m_bar);
    const HGDIOBJ font = reinterpret_cast<HGDIOBJ>(::SendMessageW(m_bar, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font != nullptr ? ::SelectObject(dc, font) : nullptr;
    const int margin = TextWidth(dc, L"00");
    int edges[partCount];
    int edge = 0;
    for (int part = 0; part < partCount - 1; ++part) {
        edge += TextWidth(dc, widestTexts[part]) + margin;
        edges[part] = edge;
    }
    edges[partCount - 1] = -1;
    if (before != nullptr)
        ::SelectObject(dc, before);
    ::ReleaseDC(m_bar, dc);
    ::SendMessageW(m_bar, SB_SETPARTS, partCount, reinterpret_cast<LPARAM>(edges));
    RECT bounds = {};
    ::GetWindowRect(m_bar, &bounds);
    return bounds.bottom - bounds.top;
}

void StatusBar::Show(Part part, std::wstring text)
{
    if (m_shown[part] == text)
        return;
    m_shown[part] = std::move(text);
    ::SendMessageW(m_bar, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(m_shown[part].c_str()));
}

}  // namespace scrivpad
