#pragma once

#include "appearance/AttribTable.h"
#include "framework/win/CDC.h"
#include "framework/win/CWnd.h"
#include "store/MemStor.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

/// A picture in memory with a device context to draw on, colours as COLORREF.
class Canvas {
public:
    static constexpr int width = 800;
    static constexpr int height = 320;

    Canvas()
    {
        dc.CreateCompatible(nullptr);
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap.reset(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0));
        m_first = ::SelectObject(dc.m_hDC, m_bitmap.get());
    }
    ~Canvas() { ::SelectObject(dc.m_hDC, m_first); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    void Fill(COLORREF color)
    {
        const xTBrush brush(::CreateSolidBrush(color));
        const RECT all{0, 0, width, height};
        ::FillRect(dc.m_hDC, &all, brush.get());
    }
    [[nodiscard]] COLORREF At(int x, int y) const
    {
        ::GdiFlush();
        const std::uint32_t rgb = static_cast<const std::uint32_t*>(m_bits)[y * width + x] & 0xFFFFFF;
        return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
    }
    /// All colours in a rectangle, right and bottom excluded.
    [[nodiscard]] std::set<COLORREF> Colors(int left, int top, int right, int bottom) const
    {
        std::set<COLORREF> colors;
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x)
                colors.insert(At(x, y));
        return colors;
    }

    CDC dc;

private:
    void* m_bits = nullptr;
    xTBitmap m_bitmap;
    HGDIOBJ m_first;
};

/// What the context of a test was told to draw: a metafile is the output, the canvas is asked for measures.
class DrawnTexts {
public:
    struct Call {
        std::wstring text;
        int x;
        int y;
        friend bool operator==(const Call&, const Call&) = default;
    };

    explicit DrawnTexts(CDC& dc) : m_dc(dc), m_real(dc.m_hDC), m_file(::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr))
    {
        m_dc.m_hDC = m_file;
    }
    std::vector<Call> End()
    {
        m_dc.m_hDC = m_real;
        const HENHMETAFILE file = ::CloseEnhMetaFile(m_file);
        std::vector<Call> calls;
        ::EnumEnhMetaFile(nullptr, file, &DrawnTexts::Record, &calls, nullptr);
        ::DeleteEnhMetaFile(file);
        return calls;
    }

private:
    static int CALLBACK Record(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM to)
    {
        if (record->iType == EMR_EXTTEXTOUTW) {
            const auto& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
            const auto* chars = reinterpret_cast<const wchar_t*>(reinterpret_cast<const char*>(record) + text.offString);
            reinterpret_cast<std::vector<Call>*>(to)->push_back(
                {std::wstring(chars, text.nChars), static_cast<int>(text.ptlReference.x), static_cast<int>(text.ptlReference.y)});
        }
        return 1;
    }

    CDC& m_dc;
    HDC m_real;
    HDC m_file;
};

inline xTExtString Line(WStrView text)
{
    return xTExtString(text);
}

/// A hook of the host made of a function.
struct TestHook {
    std::function<void(wchar_t*, int)> body;
    [[nodiscard]] xTHighlightHook hook() { return {&TestHook::Call, this}; }
    static void Call(void* ctx, WCHAR* text, int inside) { static_cast<TestHook*>(ctx)->body(text, inside); }
};

/// A hook that turns letters into the class codes of this list; any other character is plain.
inline void ClassByLetter(wchar_t* text, int)
{
    for (; *text; ++text) {
        switch (*text) {
        case L'k': *text = 3; break;   // keyword
        case L'i': *text = 2; break;   // identifier
        case L'n': *text = 6; break;   // number
        case L's': *text = 5; break;   // string
        case L'p': *text = 8; break;   // special in a string
        case L'q': *text = 9; break;   // keyword in a string
        case L'y': *text = 4; break;   // symbol
        case L'u': *text = 104; break; // user 5
        default: *text = 1; break;
        }
    }
}

/// A table, a store and a window that is a mere handle, on a canvas.
class AppearanceTest : public testing::Test {
protected:
    AppearanceTest() { wnd.m_hWnd = ::GetDesktopWindow(); }

    void SetTheme(std::uint32_t theme) { table->SetStandardTheme(&canvas.dc, nullptr, theme, 1); }
    void Show(const xTExtString& line, POINT at = {0, 0}, const xTHighlightHook& hook = {})
    {
        table->show_that_str(hook, &canvas.dc, &wnd, &store, line, at);
    }
    [[nodiscard]] COLORREF ColorOf(std::uint32_t flag) const { return table->m_colors[table->FindEntry(flag)]; }
    [[nodiscard]] std::set<COLORREF> Cell(int column, int row = 0) const
    {
        const int w = table->m_charWidth;
        const int h = table->m_charHeight;
        return canvas.Colors(column * w, row * h, (column + 1) * w, (row + 1) * h);
    }
    [[nodiscard]] HFONT CurrentFont() const { return static_cast<HFONT>(::GetCurrentObject(canvas.dc.m_hDC, OBJ_FONT)); }

    Canvas canvas;
    CWnd wnd;
    std::unique_ptr<xTAttribTable> table = std::make_unique<xTAttribTable>(&canvas.dc, nullptr, 1);
    xTMemStorage store{nullptr, table.get()};
};
