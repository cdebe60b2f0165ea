#pragma once

#include "framework/win/Handles.h"
#include "store/MemStor.h"

#include <cstdint>
#include <vector>

/// The font of a print job: that of plain text, as high as it is on a screen of 96 dots per inch.
struct xTPrintFont {
    xTFont font;  ///< null when the system could not make it
    std::int32_t tabSize = 0;
};

/// What a host asks a print job for. The rectangles are in the logical units of the context.
struct xTPrintSetup {
    HDC dc = nullptr;
    RECT firstPage{};   ///< of the first page when more follow
    RECT lastPage{};    ///< of the last page when others stand before it
    RECT onlyPage{};    ///< of a page that is first and last
    RECT middlePage{};  ///< of all others
    bool wholeText = false;
};

/// What stands on one page. Later changes of the text are not followed.
struct xTPrintPage {
    RECT rect;
    xTPos first;
    xTPos last;  ///< inclusive
};

/// A print job of the store.
struct xTMemStorage::xTPrintJob {
    xTPrintFont font;
    std::vector<xTPrintPage> pages;
};

/// Black on white in the print font, while it lives; what the context had before comes back at the end. A font that
/// cannot be selected is told to the user, and printing goes on with the one that the context has.
class xTMemStorage::xTPrintAttr {
public:
    xTPrintAttr(HDC dc, HFONT font) noexcept;
    xTPrintAttr(const xTPrintAttr&) = delete;
    xTPrintAttr& operator=(const xTPrintAttr&) = delete;
    virtual ~xTPrintAttr();

private:
    HDC m_dc;
    HGDIOBJ m_font;
    COLORREF m_background;
    COLORREF m_text;
};
