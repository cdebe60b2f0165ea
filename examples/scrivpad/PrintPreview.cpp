#include "PrintPreview.h"

#include "Failure.h"

#include <algorithm>
#include <utility>

namespace scrivpad {

namespace {

constexpr const wchar_t* className = L"ScrivpadPrintPreview";
constexpr SIZE startSize = {760, 900};  // at 96 dots per inch, as all that follows
constexpr int barHeight = 44;
constexpr int gap = 8;
constexpr int labelWidth = 170;
constexpr int shadow = 4;
constexpr SIZE usualResolution = {300, 300};  // of a printer, where the system has none

struct ButtonRow {
    unsigned command;
    const wchar_t* text;
    int width;
};

constexpr ButtonRow buttons[] = {
    {previewBack, L"\x25C4 Назад", 100},
    {previewForward, L"Вперёд \x25BA", 100},
    {previewPrint, L"Печать...", 100},
    {previewClose, L"Закрыть", 100},
};

struct KeyRow {
    WPARAM key;
    int step;  // in pages
};

constexpr int allPages = 0x1000000;
constexpr KeyRow keys[] = {
    {VK_PRIOR, -1}, {VK_NEXT, 1}, {VK_HOME, -allPages}, {VK_END, allPages},
};

[[nodiscard]] int Scaled(HWND window, int size) noexcept
{
    return ::MulDiv(size, static_cast<int>(::GetDpiForWindow(window)), 96);
}

/// The largest rectangle of a sheet's proportions in the middle of a room.
[[nodiscard]] RECT Fit(const SIZE& sheet, const RECT& room) noexcept
{
    const int width = std::max<int>(room.right - room.left, 1);
    const int height = std::max<int>(room.bottom - room.top, 1);
    const bool byHeight = static_cast<LONGLONG>(sheet.cx) * height < static_cast<LONGLONG>(sheet.cy) * width;
    const SIZE fitted = byHeight ? SIZE{::MulDiv(sheet.cx, height, sheet.cy), height}
                                 : SIZE{width, ::MulDiv(sheet.cy, width, sheet.cx)};
    const LONG left = room.left + (width - fitted.cx) / 2;
    const LONG top = room.top + (height - fitted.cy) / 2;
    return {left, top, left + fitted.cx, top + fitted.cy};
}

}  // namespace

PrintPreview::PrintPreview(HWND owner, HWND control, PageSetup& setup, const std::wstring& title, unsigned printCommand)
    : m_owner(owner), m_printCommand(printCommand)
{
    // In the resolution of the printer, where there is one: the lines and sheets then break as they do on paper.
    const PrinterContext printer = MeasuringContext(setup);
    const SIZE resolution = printer ? SIZE{::GetDeviceCaps(printer.get(), LOGPIXELSX),
                                           ::GetDeviceCaps(printer.get(), LOGPIXELSY)}
                                    : usualResolution;
    const PageSettings settings = printer ? OnPaperOf(printer.get(), setup.settings) : setup.settings;
    m_sheet.emplace(LayOut(settings).paper, resolution);
    if (printer)
        MapToPaper(printer.get());
    m_run.emplace(control, printer ? printer.get() : m_sheet->Context(), settings, PrintRun::Range::wholeText, title);
}

PrintPreview::~PrintPreview()
{
    if (m_window != nullptr)
        ::DestroyWindow(m_window);
}

void PrintPreview::Open(const std::wstring& title)
{
    WindowObject::Register<PrintPreview>(className, frameBackground, CS_HREDRAW | CS_VREDRAW);
    const auto dpi = static_cast<int>(::GetDpiForSystem());
    const std::wstring caption = title + L" \x2013 просмотр печати";
    ::CreateWindowExW(0, className, caption.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                      CW_USEDEFAULT, ::MulDiv(startSize.cx, dpi, 96), ::MulDiv(startSize.cy, dpi, 96), m_owner, nullptr,
                      ::GetModuleHandleW(nullptr), this);
    if (m_window == nullptr)
        throw Failure(L"не удалось создать окно просмотра");
    ShowPage(1);
    ::EnableWindow(m_owner, FALSE);
    ::ShowWindow(m_window, SW_SHOW);
    ::SetFocus(m_window);
}

LRESULT PrintPreview::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        MakeButtons();
        return 0;
    case WM_SIZE:
        LayOutButtons();
        return 0;
    case WM_ERASEBKGND:
        return 1;  // the paint brings its own background
    case WM_PAINT:
        Paint();
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return 0;
    case WM_KEYDOWN:
        OnKey(wParam);
        return 0;
    case WM_MOUSEWHEEL:
        ShowPage(m_page + (GET_WHEEL_DELTA_WPARAM(wParam) < 0 ? 1 : -1));
        return 0;
    case WM_DESTROY:
        OnDestroy();
        return 0;
    case WM_NCDESTROY:
        ::SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
        return ::DefWindowProcW(std::exchange(m_window, nullptr), message, wParam, lParam);
    default:
        return ::DefWindowProcW(m_window, message, wParam, lParam);
    }
}

void PrintPreview::OnCommand(unsigned command)
{
    switch (command) {
    case previewBack:
        ShowPage(m_page - 1);
        break;
    case previewForward:
        ShowPage(m_page + 1);
        break;
    case previewPrint:
        ::PostMessageW(m_owner, WM_COMMAND, m_printCommand, 0);
        ::DestroyWindow(m_window);
        return;
    case previewClose:
        ::DestroyWindow(m_window);
        return;
    default:
        return;
    }
    ::SetFocus(m_window);  // the keys are the window's, not those of a button
}

void PrintPreview::OnKey(WPARAM key)
{
    for (const KeyRow& row : keys) {
        if (row.key == key)
            ShowPage(m_page + row.step);
    }
}

void PrintPreview::OnDestroy()
{
    m_run.reset();
    // Before the window goes: the system gives the focus to another program's window where the owner is still disabled.
    ::EnableWindow(m_owner, TRUE);
    ::SetActiveWindow(m_owner);
}

void PrintPreview::MakeButtons()
{
    const auto font = reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT));
    for (const ButtonRow& row : buttons) {
        const HWND button = ::CreateWindowExW(0, L"BUTTON", row.text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                                              m_window,
                                              reinterpret_cast<HMENU>(static_cast<UINT_PTR>(row.command)),
                                              ::GetModuleHandleW(nullptr), nullptr);
        ::SendMessageW(button, WM_SETFONT, font, FALSE);
    }
    m_label = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE, 0, 0, 0, 0, m_window,
                                nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ::SendMessageW(m_label, WM_SETFONT, font, FALSE);
}

void PrintPreview::LayOutButtons()
{
    const int space = Scaled(m_window, gap);
    const int height = Scaled(m_window, barHeight) - 2 * space;
    int x = space;
    for (const ButtonRow& row : buttons) {
        const int width = Scaled(m_window, row.width);
        ::MoveWindow(::GetDlgItem(m_window, static_cast<int>(row.command)), x, space, width, height, TRUE);
        x += width + space;
    }
    ::MoveWindow(m_label, x + space, space, Scaled(m_window, labelWidth), height, TRUE);
}

void PrintPreview::ShowPage(int page)
{
    page = std::clamp(page, std::min(1, PageCount()), PageCount());
    if (page != m_page) {
        m_page = page;
        m_sheet->Clear();
        m_run->DrawPage(m_sheet->Context(), page);
        ::InvalidateRect(m_window, nullptr, FALSE);
    }
    RefreshButtons();
}

void PrintPreview::RefreshButtons()
{
    const std::wstring text = PageCount() == 0
                                  ? L"Нет ни одной страницы"
                                  : L"Страница " + std::to_wstring(m_page) + L" из " + std::to_wstring(PageCount());
    ::SetWindowTextW(m_label, text.c_str());
    ::EnableWindow(::GetDlgItem(m_window, previewBack), m_page > 1);
    ::EnableWindow(::GetDlgItem(m_window, previewForward), m_page < PageCount());
    ::EnableWindow(::GetDlgItem(m_window, previewPrint), PageCount() > 0);
}

void PrintPreview::Paint()
{
    PAINTSTRUCT paint;
    const HDC target = ::BeginPaint(m_window, &paint);
    RECT client = {};
    ::GetClientRect(m_window, &client);
    // Off screen first: a sheet is drawn line by line, and that is not to be seen.
    const HDC memory = ::CreateCompatibleDC(target);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(target, std::max<int>(client.right, 1),
                                                    std::max<int>(client.bottom, 1));
    const HGDIOBJ before = ::SelectObject(memory, bitmap);
    RECT room = client;
    room.top = Scaled(m_window, barHeight);
    ::FillRect(memory, &client, ::GetSysColorBrush(COLOR_BTNFACE));
    ::FillRect(memory, &room, ::GetSysColorBrush(COLOR_APPWORKSPACE));
    ::InflateRect(&room, -2 * Scaled(m_window, gap), -2 * Scaled(m_window, gap));
    DrawSheet(memory, room);
    ::BitBlt(target, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    ::SelectObject(memory, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::EndPaint(m_window, &paint);
}

void PrintPreview::DrawSheet(HDC dc, const RECT& room) const
{
    if (m_page == 0 || !m_run)
        return;
    const RECT sheet = Fit(m_run->Layout().paper, room);
    RECT below = sheet;
    ::OffsetRect(&below, Scaled(m_window, shadow), Scaled(m_window, shadow));
    ::FillRect(dc, &below, ::GetSysColorBrush(COLOR_3DDKSHADOW));
    m_sheet->Show(dc, sheet);
    ::FrameRect(dc, &sheet, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
}

}  // namespace scrivpad
