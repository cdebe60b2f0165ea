#include "appearance/AttribTable.h"
#include "appearance/AttribWords.h"
#include "appearance/RunBatch.h"
#include "diagnostics/Guarded.h"
#include "diagnostics/comdefines.h"
#include "framework/base/Exceptions.h"
#include "framework/win/CDC.h"
#include "framework/win/CWnd.h"
#include "store/MemStor.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr std::int32_t bandSpaces = 197;
constexpr std::int32_t maxSpaces = 4096;  // wider than any screen

WStrView Spaces(std::int64_t count) noexcept
{
    static const auto spaces = [] {
        std::array<WCHAR, maxSpaces> all;
        all.fill(_T(' '));
        return all;
    }();
    return {spaces.data(), static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, maxSpaces))};
}

bool BeginsWithTab(WStrView run) noexcept
{
    return !run.empty() && run.front() == _T('\t');
}

bool AnyHas(std::span<const std::uint32_t> words, std::uint32_t flag) noexcept
{
    return std::any_of(words.begin(), words.end(), [&](std::uint32_t word) { return (word & flag) != 0; });
}

// The log shows pointers by their low 32 bits.
unsigned LowBits(const void* pointer) noexcept
{
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(pointer));
}

struct xTShowArgs {
    const xTHighlightHook& hl;
    const CDC* pDC;
    const CWnd* pWnd;
    const xTMemStorage* pStor;
    const xTExtString& str;
    POINT pos;
};

// @param what  the beginning of the message, up to the name of the operation
void ReportShow(unsigned marker, const WString& what, const xTShowArgs& args) noexcept
{
    Guarded([&] {
        std::array<WCHAR, 160> head{};
        std::array<WCHAR, 64> tail{};
        ::_snwprintf(head.data(), head.size() - 1,
                     L" in xTAttribTable::show_that_str(hl = 0x%x, pDC = 0x%x, pWnd = 0x%x, pStor = 0x%x, str = <",
                     LowBits(&args.hl), LowBits(args.pDC), LowBits(args.pWnd), LowBits(args.pStor));
        ::_snwprintf(tail.data(), tail.size() - 1, L">, _out_pos = (x=%d,y=%d))", static_cast<int>(args.pos.x),
                     static_cast<int>(args.pos.y));
        const WString message = what + head.data() + args.str.m_text.c_str() + tail.data();
        LogReport(__builtin_FILE(), marker, message.c_str());
    });
}

WString TextOf(const CException& e)
{
    std::array<WCHAR, 1024> text{};
    e.GetErrorMessage(text.data(), static_cast<std::int32_t>(text.size()));
    return WString(text.data());
}

// The column under a pixel by the mean width of the run's characters: exact for a fixed pitch, else an estimate.
// @return false when the run is too narrow to tell
bool ColumnInRun(int targetX, std::int64_t before, LONG runWidth, std::int32_t first, std::int32_t end,
                 std::int32_t& column) noexcept
{
    const LONG per = end > first ? runWidth / (end - first) : 0;
    if (per == 0)
        return false;
    const std::int64_t distance = targetX - before;
    const std::int64_t steps = distance / per - (distance % per != 0 && (distance < 0) != (per < 0) ? 1 : 0);
    column = static_cast<std::int32_t>(std::clamp<std::int64_t>(first + steps, std::numeric_limits<std::int32_t>::min(),
                                                                std::numeric_limits<std::int32_t>::max()));
    return true;
}

}  // namespace

void xTAttribTable::show_that_str(const xTHighlightHook& hl, CDC* pDC, CWnd* pWnd, const xTMemStorage* pStor,
                                  const xTExtString& str, POINT _out_pos)
{
    const auto canDraw = [&] { return pDC && pDC->GetSafeHdc() && pWnd && pWnd->GetSafeHwnd() && pStor; };
    const auto report = [&](unsigned line, const WString& what) {
        ReportShow(line, what, {hl, pDC, pWnd, pStor, str, _out_pos});
    };
    unsigned marker = __builtin_LINE();
    try {
        // An empty line shows neither the break point's band nor the execution point's: kept on purpose.
        if (!canDraw() || str.m_text.IsEmpty())
            return;
        marker = __builtin_LINE();
        const xTAttribWords words(str.GetLength(), plainWord);
        marker = __builtin_LINE();
        ClassifyLine(str, hl, words.span());
        if (!canDraw())
            return;  // the host destroyed the control from inside its hook
        xTKnown known;
        marker = __builtin_LINE();
        DrawBand(ATTR_BREAKPOINT, _out_pos.y, words.span(), pWnd, pDC, known);
        marker = __builtin_LINE();
        DrawBand(ATTR_EXECPOINT, _out_pos.y, words.span(), pWnd, pDC, known);
        marker = __builtin_LINE();
        DrawRuns(str, words.span(), _out_pos, pWnd, pDC, known);
    } catch (CException* e) {
        Guarded([&] { report(marker, _T("CException*(") + TextOf(*e) + _T(")")); });
        e->Delete();
    } catch (...) {
        Guarded([&] { report(marker, _T("...")); });
    }
}

// The band starts at the left edge whatever the scroll position.
void xTAttribTable::DrawBand(std::uint32_t flag, int y, std::span<const std::uint32_t> words, CWnd* wnd, CDC* dc,
                             xTKnown& known)
{
    if (!AnyHas(words, flag))
        return;
    ApplyGuarded(flag, wnd, dc, known);
    dc->TextOut(0, y, Spaces(bandSpaces));
}

void xTAttribTable::DrawRuns(const xTExtString& str, std::span<const std::uint32_t> words, POINT pos, CWnd* wnd,
                             CDC* dc, xTKnown& known)
{
    const WStrView text = str.m_text;
    const auto count = static_cast<std::int32_t>(words.size());
    const RECT visible = VisibleArea(dc);
    const bool gathers = IsOwn(dc);
    xTRunBatch batch;
    std::int32_t i = 0;
    while (i < count) {
        const std::int32_t first = i;
        const bool replaces = first == 0 || m_lastAttr != 0;
        const bool isNew = first == 0 || (replaces && m_lastAttr != words[first]);
        i = RunEnd(text, first, words);
        const WStrView run = text.substr(first, i - first);
        if (gathers && replaces && Gather(batch, run, words[first], pos.x, visible)) {
            m_lastAttr = words[first];
            pos.x = batch.Right();
            continue;
        }
        DrawBatch(batch, pos.y, wnd, dc, known);
        if (isNew)
            ApplyWord(words[first], wnd, dc, known);
        m_lastAttr = words[first];
        const bool nextSelected = i < count && (words[i] & ATTR_SELECTION);
        if (nextSelected && BeginsWithTab(run)) {
            // The gap before a selection is painted in the background of the tabs; the selected text that follows
            // paints over the surplus.
            dc->TextOut(pos.x, pos.y, Spaces(std::int64_t{i - first} * LayoutTabSize() + 1));
            pos.x += RunWidth(run, dc, known);
            continue;
        }
        const xTAsciiFace* face = FaceFor(run, dc, known);
        const LONG width = face ? face->Width(run) : RunExtent(run, dc).cx;
        // Slanted characters lean out of their run.
        if (pos.x + width + m_charWidth >= visible.left && pos.x - m_charWidth < visible.right)
            DrawRunText(run, pos, dc, face);
        pos.x += width;
    }
    DrawBatch(batch, pos.y, wnd, dc, known);
}

// Only on the control's own context: another one, that of a metafile say, gets each run by itself.
bool xTAttribTable::IsOwn(const CDC* dc) const noexcept
{
    return dc == m_dc && dc->m_hDC == dc->m_hAttribDC;
}

// The face of a run that may be drawn together with others. Where its look leaves something as it is, or the font on the
// way to it is missing, the run has to be drawn in its turn.
const xTAsciiFace* xTAttribTable::FaceToGather(WStrView run, const xTLook& look) const noexcept
{
    if (!look.text || !look.back || !look.style || !HasFonts(look.styles))
        return nullptr;
    const std::optional<xTAsciiFace>& face = m_faces[*look.style];
    return face && face->HoldsContained(run) ? &*face : nullptr;
}

// @return false for a run that has to be drawn by itself, behind the batch
bool xTAttribTable::Gather(xTRunBatch& batch, WStrView run, std::uint32_t word, LONG x, const RECT& visible) const
{
    const xTLook look = LookOf(word);
    const xTAsciiFace* face = FaceToGather(run, look);
    if (!face || x + face->Width(run) < visible.left || x >= visible.right || !batch.Takes(*face, *look.back))
        return false;
    batch.Add({run, x, face, word, *look.style, *look.text}, *look.back);
    return true;
}

// A font that cannot be selected is told to the user, and the fonts are made anew: what the batch has is void then.
void xTAttribTable::DrawBatch(xTRunBatch& batch, LONG y, CWnd* wnd, CDC* dc, xTKnown& known)
{
    batch.Draw(dc->m_hDC, y, [&](const xTRunBatch::xTRun& run) {
        ApplyWord(run.word, wnd, dc, known);
        return dc->GetSafeHdc() && known.style == run.style && m_faces[run.style];
    });
}

// On the control's own context a paint is clipped to what needs it, and the runs outside need no drawing: most of a
// drawing call is what no clipping saves.
RECT xTAttribTable::VisibleArea(CDC* dc) const noexcept
{
    constexpr LONG limit = std::numeric_limits<LONG>::max() / 2;
    RECT area{};
    if (!IsOwn(dc) || ::GetClipBox(dc->m_hDC, &area) == ERROR)
        return {-limit, -limit, limit, limit};
    return area;
}

void xTAttribTable::DrawRun(WStrView run, POINT& pos, CDC* dc) const
{
    if (run.empty() || !dc)
        return;
    DrawRunText(run, pos, dc);
    pos.x += RunExtent(run, dc).cx;
}

void xTAttribTable::DrawRunText(WStrView run, POINT pos, CDC* dc, const xTAsciiFace* face) const
{
    if (face) {
        face->TextOut(dc->m_hDC, pos, run);
    } else if (BeginsWithTab(run)) {
        const int stop = TabStop();
        ::TabbedTextOutW(dc->m_hDC, pos.x, pos.y, run.data(), static_cast<int>(run.size()), 1, &stop, 0);
    } else {
        dc->TextOut(pos.x, pos.y, run);
    }
}

LONG xTAttribTable::RunWidth(WStrView run, CDC* dc, const xTKnown& known)
{
    const xTAsciiFace* face = FaceFor(run, dc, known);
    return face ? face->Width(run) : RunExtent(run, dc).cx;
}

// Held to what the system's answer has room for.
int xTAttribTable::TabStop() const noexcept
{
    return std::clamp(static_cast<int>(m_charWidth) * LayoutTabSize(), 1, 0x7FFF);
}

// Without an origin, so that a run of tabs is exactly so many tab widths wide wherever it stands: tabs are not aligned
// to a grid of columns. Drawing and hit testing both rely on it.
SIZE xTAttribTable::RunExtent(WStrView run, CDC* dc) const
{
    if (!dc)
        return {0, 0};
    const int length = static_cast<int>(run.size());
    if (BeginsWithTab(run)) {
        const int stop = TabStop();
        const DWORD extent = ::GetTabbedTextExtentW(dc->m_hAttribDC, run.data(), length, 1, &stop);
        return {static_cast<SHORT>(LOWORD(extent)), static_cast<SHORT>(HIWORD(extent))};
    }
    SIZE size{0, 0};
    if (!::GetTextExtentPoint32W(dc->m_hAttribDC, run.data(), length, &size))
        return {0, 0};
    return size;
}

int xTAttribTable::MeasureLine(const xTHighlightHook& hl, const xTPos& pos, CDC* dc, CWnd* wnd,
                               const xTMemStorage* store, std::int32_t* outCol, const int* targetX)
{
    return Guarded(0, [&] {
        if (!dc || !dc->GetSafeHdc() || !store || !wnd)
            return 0;
        xTExtString line;
        store->get_line(pos.line, line);
        const std::int32_t count = std::min(pos.col, line.GetLength());
        if (count <= 0)
            return 0;
        // They start as 0 and not as plain text: where nobody classes the line, the font is the one the context holds.
        const xTAttribWords words(count, 0);
        ClassifyLine(line, hl, words.span());
        if (!dc->GetSafeHdc())
            return 0;  // the host destroyed the control from inside its hook
        const xTHit hit{outCol, targetX};
        return MeasureRuns(line.m_text, words.span(), wnd, dc, hit);
    });
}

int xTAttribTable::MeasureRuns(WStrView text, std::span<const std::uint32_t> words, CWnd* wnd, CDC* dc,
                               const xTHit& hit)
{
    xTKnown known;
    if (AnyHas(words, ATTR_BREAKPOINT))
        ApplyGuarded(ATTR_BREAKPOINT, wnd, dc, known);  // nothing is drawn; the context is as drawing has it
    bool searching = hit.outCol && hit.targetX;
    if (searching)
        *hit.outCol = 0;
    int width = 0;
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(words.size());) {
        ApplyWord(words[i], wnd, dc, known);
        const std::int32_t first = i;
        i = RunEnd(text, first, words);
        const int before = width;
        const LONG runWidth = RunWidth(text.substr(first, i - first), dc, known);
        width += runWidth;
        if (searching && width < *hit.targetX)
            *hit.outCol = i;
        else if (searching)
            searching = !ColumnInRun(*hit.targetX, before, runWidth, first, i, *hit.outCol);
    }
    return width;
}
