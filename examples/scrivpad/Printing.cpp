#include "Printing.h"

#include "Failure.h"
#include "scrivctl3.h"

#include <commdlg.h>

#include <algorithm>
#include <utility>

namespace scrivpad {

namespace {

constexpr int titleSize = 18;  // in units of the layout
constexpr int numberSize = 13;
constexpr const wchar_t* noteFace = L"Arial";

struct DeleteFont {
    void operator()(HFONT font) const noexcept { ::DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont>;

/// Ends a document of the printer, or throws it away where it was not finished.
class PrintDocument {
public:
    PrintDocument(HDC dc, const std::wstring& title) : m_dc(dc)
    {
        const DOCINFOW info = {sizeof(info), title.c_str(), nullptr, nullptr, 0};
        if (::StartDocW(dc, &info) <= 0)
            throw SystemFailure(L"принтер не принял документ", ::GetLastError());
    }
    PrintDocument(const PrintDocument&) = delete;
    PrintDocument& operator=(const PrintDocument&) = delete;
    ~PrintDocument()
    {
        if (!m_finished)
            ::AbortDoc(m_dc);
    }

    void Finish() noexcept
    {
        m_finished = true;
        ::EndDoc(m_dc);
    }

private:
    HDC m_dc;
    bool m_finished = false;
};

/// The dialog with what it was opened with and what it gave back.
[[nodiscard]] bool AskForPrinter(PRINTDLGW& dialog, PrinterChoice& printer)
{
    dialog.hDevMode = printer.mode.release();
    dialog.hDevNames = printer.names.release();
    const bool confirmed = ::PrintDlgW(&dialog) != FALSE;
    printer.mode.reset(dialog.hDevMode);
    printer.names.reset(dialog.hDevNames);
    if (!confirmed)
        RequireNoDialogFault();
    return confirmed;
}

[[nodiscard]] PageRange ChosenPages(const PRINTDLGW& dialog, int count) noexcept
{
    if (!(dialog.Flags & PD_PAGENUMS))
        return {1, count};
    return {std::max<int>(dialog.nFromPage, 1), std::min<int>(dialog.nToPage, count)};
}

}  // namespace

PrintRun::PrintRun(HWND control, HDC dc, const PageSettings& settings, Range range, std::wstring title)
    : m_control(control), m_layout(LayOut(OnPaperOf(dc, settings))), m_title(std::move(title))
{
    const UINT32 whole = range == Range::wholeText ? 1 : 0;
    const RECT& titled = m_layout.titledText;
    const edPrintSetup setup = {dc, titled, m_layout.text, titled, m_layout.text, {whole, whole}};
    m_pageCount = edPreparePrinting(control, &setup);
}

PrintRun::~PrintRun()
{
    edPrintingOver(m_control);
}

void PrintRun::DrawPage(HDC dc, int page) const
{
    if (page == 1)
        DrawNote(dc, m_title, m_layout.title, titleSize, DT_LEFT | DT_TOP);
    DrawNote(dc, std::to_wstring(page) + L" / " + std::to_wstring(m_pageCount), m_layout.number, numberSize,
             DT_CENTER | DT_BOTTOM);
    const edPrintPageParams params = {dc, static_cast<UINT32>(page)};
    edPrintPage(m_control, &params);
}

void PrintRun::DrawNote(HDC dc, const std::wstring& text, RECT place, int height, UINT format) const
{
    const Font font(::CreateFontW(-height, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                  CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, noteFace));
    const HGDIOBJ before = ::SelectObject(dc, font.get());
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place,
                format | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    ::SelectObject(dc, before);
}

void PrintPages(HDC dc, const PrintRun& run, PageRange range)
{
    for (int page = range.first; page <= range.last; ++page) {
        if (::StartPage(dc) <= 0)
            throw SystemFailure(L"принтер не принял страницу " + std::to_wstring(page), ::GetLastError());
        MapToPaper(dc);  // a page may begin with the units of the device
        run.DrawPage(dc, page);
        ::EndPage(dc);
    }
}

bool PrintWithDialog(HWND owner, HWND control, const std::wstring& title, PageSetup& setup)
{
    RequirePrinter();
    PRINTDLGW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.Flags = PD_RETURNDC | PD_USEDEVMODECOPIESANDCOLLATE | PD_NOWARNING;
    dialog.Flags |= edGetMode(control, ED_MODE_SELECTION) ? 0u : static_cast<DWORD>(PD_NOSELECTION);
    dialog.nFromPage = dialog.nToPage = dialog.nMinPage = 1;
    dialog.nMaxPage = 0xFFFF;
    if (!AskForPrinter(dialog, setup.printer))
        return false;
    const PrinterContext dc(dialog.hDC);
    MapToPaper(dc.get());
    const auto range = dialog.Flags & PD_SELECTION ? PrintRun::Range::selection : PrintRun::Range::wholeText;
    const PrintRun run(control, dc.get(), setup.settings, range, title);
    PrintDocument document(dc.get(), title);
    PrintPages(dc.get(), run, ChosenPages(dialog, run.PageCount()));
    document.Finish();
    return true;
}

}  // namespace scrivpad
