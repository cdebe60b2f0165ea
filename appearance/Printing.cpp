#include "appearance/Printing.h"

#include "appearance/AttribTable.h"
#include "appearance/FontScale.h"
#include "diagnostics/Guarded.h"
#include "framework/base/Platform.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

// Plain printing: one font, black on white, no highlighting; the system's text drawing wraps the lines. Neither format
// says DT_NOPREFIX, so an ampersand is not printed but underlines the character behind it, and two print one. Measuring
// expands tabs to the system's default width and drawing to the table's, so that a line with tabs may wrap differently
// in the two and overrun its page. All three are required behaviour.

namespace {

constexpr UINT measuringFormat = DT_CALCRECT | DT_EXPANDTABS | DT_WORDBREAK;
constexpr UINT drawingFormat = DT_TABSTOP | DT_EXPANDTABS | DT_WORDBREAK;
static_assert(measuringFormat == 1104 && drawingFormat == 208);

constexpr WStrView heightOfAnEmptyLine = _T(".");

// The drawing format with the tab size in its bits 8 to 15. A settings block may hold any size; 0 is one that the
// system may not be given.
UINT DrawingFormat(std::int32_t tabSize) noexcept
{
    return drawingFormat | static_cast<UINT>(std::clamp<std::int32_t>(tabSize, 1, 255)) << 8;
}

// The part of a rectangle that lies below what is used of it already.
RECT Below(RECT rect, std::int64_t used) noexcept
{
    constexpr std::int64_t lowest = std::numeric_limits<LONG>::max();
    rect.top = static_cast<LONG>(std::min(rect.top + used, lowest));
    return rect;
}

std::int64_t MeasuredHeight(HDC dc, WStrView text, RECT rect) noexcept
{
    if (text.empty())
        text = heightOfAnEmptyLine;
    return ::DrawTextW(dc, text.data(), static_cast<int>(text.size()), &rect, measuringFormat);
}

// What of a line lies in a range, both ends inclusive.
struct xTPrintedPart {
    WStrView text;
    std::int32_t lastColumn;  // -1 for nothing of a line's start
};

xTPrintedPart PartOf(WStrView text, std::int32_t line, const xTPos& from, const xTPos& to) noexcept
{
    const auto length = static_cast<std::int32_t>(text.size());
    const std::int32_t begin = line == from.line ? std::clamp(from.col, 0, length) : 0;
    const std::int32_t end = line == to.line ? std::clamp(to.col + 1, begin, length) : length;
    return {text.substr(begin, end - begin), end - 1};
}

}  // namespace

void xTAttribTable::MakePrintFont(xTPrintFont& out) const
{
    LOGFONTW lf{};
    GetAttrFont(ATTR_TEXT, &lf);
    const HFONT font = FindFont(FontKey(lf));
    if (!font || !::GetObjectW(font, sizeof lf, &lf))
        lf = UsableFont(lf);
    lf.lfCharSet = DEFAULT_CHARSET;
    ScaleFontTo96(lf);
    out.font.reset(::CreateFontIndirectW(&lf));
    out.tabSize = m_tabSize;
}

xTMemStorage::xTPrintAttr::xTPrintAttr(HDC dc, HFONT font) noexcept : m_dc(dc), m_font(::SelectObject(dc, font))
{
    if (!m_font)
        PlatformMessageBox(_T("Испорчен шрифт редактора!"), _T("xTPrintAttr::xTPrintAttr(...)"), xTBoxIcon::none);
    m_background = ::SetBkColor(dc, RGB(255, 255, 255));
    m_text = ::SetTextColor(dc, RGB(0, 0, 0));
}

xTMemStorage::xTPrintAttr::~xTPrintAttr()
{
    if (m_font)
        ::SelectObject(m_dc, m_font);
    if (m_background != CLR_INVALID)
        ::SetBkColor(m_dc, m_background);
    if (m_text != CLR_INVALID)
        ::SetTextColor(m_dc, m_text);
}

std::int32_t xTMemStorage::prepare_printing(const xTPrintSetup& setup, const xTAttribTable& table)
{
    return Guarded(std::int32_t{0}, [&] {
        printing_over();
        const auto job = std::make_shared<xTPrintJob>();
        table.MakePrintFont(job->font);
        const xTPrintAttr attr(setup.dc, job->font.font.get());
        split_pages(setup, *job);
        print_job = job;
        return static_cast<std::int32_t>(job->pages.size());
    });
}

void xTMemStorage::split_pages(const xTPrintSetup& setup, xTPrintJob& job) const
{
    if (!setup.wholeText && !has_selection())
        return;
    const xTPos begin = setup.wholeText ? xTPos(0, 0) : first();
    const xTPos end = setup.wholeText ? end_pos() : std::min(last(), end_pos());
    xTPos cur = begin;
    xTPos reached(0, 0);
    bool middleTakesTheRest = false;
    do {
        const bool firstPage = job.pages.empty();
        RECT rect = firstPage ? setup.firstPage : setup.middlePage;
        // Where the middle rectangle has taken all the rest once, it takes the rest of that rest too. It is not
        // measured again, so that the splitting is linear in the text also when the last rectangle holds much less.
        if (!middleTakesTheRest && !DrawTextRows(setup.dc, rect, true, job.font.tabSize, cur, end, reached))
            return;
        if (middleTakesTheRest || reached.line == end.line) {
            // The second result stands, also where it reaches less than the first.
            rect = firstPage ? setup.onlyPage : setup.lastPage;
            DrawTextRows(setup.dc, rect, true, job.font.tabSize, cur, end, reached);
            middleTakesTheRest = !firstPage;
        }
        job.pages.push_back({rect, cur, reached});
        cur = {reached.line + 1, 0};
    } while (reached != end && cur.line <= end.line);
}

bool xTMemStorage::DrawTextRows(HDC dc, const RECT& rect, bool measureOnly, std::int32_t tabSize, const xTPos& from,
                                const xTPos& to, xTPos& reached) const
{
    const std::int64_t height = std::int64_t{rect.bottom} - rect.top;
    std::int64_t used = 0;
    bool taken = false;
    for (std::int32_t line = std::max(from.line, 0); line <= to.line && line < line_count(); ++line) {
        const CString whole = lines[line].m_text;  // a copy: a printer driver may let the host load another text
        const xTPrintedPart part = PartOf(whole, line, from, to);
        RECT rest = Below(rect, used);
        used += MeasuredHeight(dc, part.text, rest);
        // A line that does not fit opens the next page; but one that fits no page at all is printed alone, cut off.
        if (used >= height && taken)
            break;
        if (!measureOnly)
            ::DrawTextW(dc, part.text.data(), static_cast<int>(part.text.size()), &rest, DrawingFormat(tabSize));
        reached = {line, part.lastColumn};
        taken = true;
        if (used >= height)
            break;
    }
    return taken;
}

bool xTMemStorage::print_page(HDC dc, std::uint32_t page)
{
    return Guarded(false, [&] {
        const std::shared_ptr<const xTPrintJob> job = print_job;  // it stays also when the host ends it meanwhile
        if (page > (job ? job->pages.size() : 0))
            return true;
        if (page == 0)
            throw std::out_of_range("invalid vector<T> subscript");
        const xTPrintPage& record = job->pages[page - 1];
        const xTPrintAttr attr(dc, job->font.font.get());
        xTPos reached;
        DrawTextRows(dc, record.rect, false, job->font.tabSize, record.first, record.last, reached);
        return true;
    });
}

bool xTMemStorage::printing_over() noexcept
{
    const bool running = print_job != nullptr;
    print_job.reset();
    return running;
}
