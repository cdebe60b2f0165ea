#include "Printing.h"

#include "Failure.h"
#include "scrivctl3.h"

#include <commdlg.h>

#include <algorithm>
#include <cwchar>
#include <optional>
#include <utility>

namespace scrivpad {

namespace {

constexpr int titleSize = 18;  // in units of the layout
constexpr int numberSize = 13;
constexpr const wchar_t* noteFace = L"Arial";
constexpr std::size_t longestPath = 0x8000;

struct DeleteFont {
    void operator()(HFONT font) const noexcept { ::DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont>;

/// Ends a document of the printer, or throws it away where it was not finished.
class PrintDocument {
public:
    /// @param path  of the file that takes what the printer would get; empty: the printer gets it
    PrintDocument(HDC dc, const std::wstring& title, const std::wstring& path) : m_dc(dc)
    {
        const DOCINFOW info = {sizeof(info), title.c_str(), path.empty() ? nullptr : path.c_str(), nullptr, 0};
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

/// Asks for the file of a document that is not for the printer. The name "FILE:" that leaves it to the system to ask
/// is not known to all systems: some write a file of that name.
/// @return its path, none when the user gave up
[[nodiscard]] std::optional<std::wstring> AskForOutput(HWND owner)
{
    std::wstring path(longestPath, L'\0');
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = L"Файлы печати\0*.prn;*.ps\0Все файлы\0*.*\0";
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrTitle = L"Печать в файл";
    dialog.lpstrDefExt = L"prn";
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!::GetSaveFileNameW(&dialog)) {
        RequireNoDialogFault();
        return std::nullopt;
    }
    path.resize(std::wcslen(path.c_str()));
    return path;
}

[[nodiscard]] PageRange ChosenPages(const PRINTDLGW& dialog, int count)
{
    const PageRange all = {1, count};
    return SheetsOf(dialog.Flags & PD_PAGENUMS ? PageRange{dialog.nFromPage, dialog.nToPage} : all, count);
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

PageRange SheetsOf(PageRange range, int count)
{
    if (count <= 0)
        throw Failure(L"нет ни одной страницы для печати");
    const PageRange found = {std::max(range.first, 1), std::min(range.last, count)};
    if (found.first > found.last)
        throw Failure(L"нет страниц с " + std::to_wstring(range.first) + L" по " + std::to_wstring(range.last) +
                      L", всего страниц " + std::to_wstring(count));
    return found;
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
    const PageRange pages = ChosenPages(dialog, run.PageCount());  // before there is a document: it would be empty
    const auto path = dialog.Flags & PD_PRINTTOFILE ? AskForOutput(owner) : std::wstring();
    if (!path)
        return false;
    PrintDocument document(dc.get(), title, *path);
    PrintPages(dc.get(), run, pages);
    document.Finish();
    return true;
}

}  // namespace scrivpad
