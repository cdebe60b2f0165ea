#pragma once

#include "PageLayout.h"
#include "PageSetup.h"

#include <string>

namespace scrivpad {

/// A print job of a control: its text split into sheets with a title on the first and a number on each.
class PrintRun {
public:
    enum class Range { wholeText, selection };

    /// @param dc  what the pages are measured on, with the units of PageLayout
    PrintRun(HWND control, HDC dc, const PageSettings& settings, Range range, std::wstring title);
    PrintRun(const PrintRun&) = delete;
    PrintRun& operator=(const PrintRun&) = delete;
    ~PrintRun();

    [[nodiscard]] int PageCount() const noexcept { return m_pageCount; }
    [[nodiscard]] const PageLayout& Layout() const noexcept { return m_layout; }
    /// Draws one sheet on a context that has the units of PageLayout. @param page  from 1
    void DrawPage(HDC dc, int page) const;

private:
    void DrawNote(HDC dc, const std::wstring& text, RECT place, int height, UINT format) const;

    HWND m_control;
    PageLayout m_layout;
    std::wstring m_title;
    int m_pageCount = 0;
};

/// Sheets from `first` to `last`, both counted from 1 and included.
struct PageRange {
    int first = 1;
    int last = 1;
};

/// @return the sheets of a range that a job of `count` sheets has. Throws a Failure when there is none to print.
[[nodiscard]] PageRange SheetsOf(PageRange range, int count);

/// Prints sheets one by one into a document that is open. Throws a Failure when the printer refuses one.
void PrintPages(HDC dc, const PrintRun& run, PageRange range);

/// Asks for printer and range and prints. Throws a Failure.
/// @return false when the user gave up
bool PrintWithDialog(HWND owner, HWND control, const std::wstring& title, PageSetup& setup);

}  // namespace scrivpad
