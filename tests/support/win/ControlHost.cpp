#include "tests/support/win/ControlHost.h"

#include <algorithm>

namespace {

constexpr const wchar_t* hostClass = L"ControlHostOfTests";

}  // namespace

ControlHost::ControlHost(int width, int height)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = &ControlHost::Procedure;
    wc.hInstance = ::GetModuleHandleW(nullptr);
    wc.lpszClassName = hostClass;
    ::RegisterClassW(&wc);  // fails from the second time on, which does no harm
    RECT rect{0, 0, width, height};
    ::AdjustWindowRect(&rect, WS_OVERLAPPEDWINDOW, FALSE);
    m_window = ::CreateWindowExW(0, hostClass, L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                                 rect.right - rect.left, rect.bottom - rect.top, nullptr, nullptr, wc.hInstance, this);
    Pump();
}

ControlHost::~ControlHost()
{
    onMessage = nullptr;
    if (::IsWindow(m_window))
        ::DestroyWindow(m_window);
    Pump();
}

LRESULT CALLBACK ControlHost::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam)
{
    if (id == WM_NCCREATE)
        ::SetWindowLongPtrW(window, GWLP_USERDATA,
                            reinterpret_cast<LONG_PTR>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams));
    auto* host = reinterpret_cast<ControlHost*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    const bool ours = id == ED_NOTIFY_CARET || id == ED_NOTIFY_FIND || id == ED_NOTIFY_SCROLL || id == ED_DRAG_ENTER_PARENT;
    if (host && ours) {
        host->m_messages.push_back({id, wParam, lParam});
        if (host->onMessage)
            host->onMessage({id, wParam, lParam});
        return id == ED_NOTIFY_FIND ? host->answer : 0;
    }
    return ::DefWindowProcW(window, id, wParam, lParam);
}

HWND ControlHost::Create(const edCreateParams& with)
{
    RECT client{};
    ::GetClientRect(m_window, &client);
    edCreateParams params = with;
    params.parent = m_window;
    if (!params.rect)
        params.rect = &client;
    return edCreateCtrl(&params);
}

HWND ControlHost::Show(const wchar_t* text, const edCreateParams& with)
{
    const HWND control = Create(with);
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    edLoadText(control, text, 0xFFFFFFFF);
    Pump();
    return control;
}

std::vector<ControlHost::Message> ControlHost::Of(UINT id) const
{
    std::vector<Message> found;
    std::copy_if(m_messages.begin(), m_messages.end(), std::back_inserter(found),
                 [id](const Message& message) { return message.id == id; });
    return found;
}

void Pump(DWORD milliseconds)
{
    constexpr int atMost = 2000;  // a host that repaints in every paint never comes to rest
    const ULONGLONG end = ::GetTickCount64() + milliseconds;
    do {
        MSG message;
        for (int left = atMost; left > 0 && ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); --left) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        if (milliseconds)
            ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    } while (::GetTickCount64() < end);
}

std::wstring TextOf(HWND control)
{
    std::wstring text(edSaveText(control, nullptr), L'\0');
    if (text.empty())
        return text;
    edSaveText(control, text.data());
    text.pop_back();
    return text;
}

Picture::Picture(HWND window)
{
    RECT client{};
    ::GetClientRect(window, &client);
    m_width = client.right;
    m_height = client.bottom;
    m_pixels.resize(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, m_width, -m_height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    ::HideCaret(window);
    const HDC source = ::GetDC(window);
    const HDC memory = ::CreateCompatibleDC(source);
    const HBITMAP dib = ::CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ old = ::SelectObject(memory, dib);
    ::BitBlt(memory, 0, 0, m_width, m_height, source, 0, 0, SRCCOPY);
    ::GdiFlush();
    const auto* pixels = static_cast<const std::uint32_t*>(bits);
    std::transform(pixels, pixels + m_pixels.size(), m_pixels.begin(), [](std::uint32_t p) { return p & 0xFFFFFF; });
    ::SelectObject(memory, old);
    ::DeleteObject(dib);
    ::DeleteDC(memory);
    ::ReleaseDC(window, source);
    ::ShowCaret(window);
}

COLORREF Picture::At(int x, int y) const
{
    const std::uint32_t p = m_pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x)];
    return RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF);
}

bool Picture::AreaIs(const RECT& area, COLORREF color) const
{
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            if (At(x, y) != color)
                return false;
    return true;
}

bool Picture::Has(const RECT& area, COLORREF color) const
{
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            if (At(x, y) == color)
                return true;
    return false;
}

std::string Picture::Difference(const Picture& other) const
{
    if (m_width != other.m_width || m_height != other.m_height)
        return "sizes differ";
    RECT bounds{m_width, m_height, 0, 0};
    int count = 0;
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            if (At(x, y) == other.At(x, y))
                continue;
            ++count;
            bounds = {std::min<LONG>(bounds.left, x), std::min<LONG>(bounds.top, y), std::max<LONG>(bounds.right, x + 1),
                      std::max<LONG>(bounds.bottom, y + 1)};
        }
    }
    if (count == 0)
        return "";
    return std::to_string(count) + " pixels in " + std::to_string(bounds.left) + "," + std::to_string(bounds.top) + " to " +
           std::to_string(bounds.right) + "," + std::to_string(bounds.bottom);
}
