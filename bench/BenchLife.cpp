#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "include/scrivctl3.h"

#include <ole2.h>

#include <cwchar>

// A control from its creation to its end.

namespace {

// Accepts nothing: it is only there to be registered.
class NoDrops final : public IDropTarget {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override
    {
        const bool known = id == IID_IUnknown || id == IID_IDropTarget;
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }  // it lives as long as the program
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject*, DWORD, POINTL, DWORD*) override { return E_NOTIMPL; }
};

const wchar_t* BareClass()
{
    static constexpr const wchar_t* name = L"BenchBare";
    static const ATOM registered = [] {
        WNDCLASSW wc{};
        wc.lpfnWndProc = &::DefWindowProcW;
        wc.hInstance = ::GetModuleHandleW(nullptr);
        wc.lpszClassName = name;
        return ::RegisterClassW(&wc);
    }();
    static_cast<void>(registered);
    return name;
}

HFONT MakeFont(int style)
{
    LOGFONTW lf{};
    lf.lfHeight = -13;
    lf.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    lf.lfWeight = style & 1 ? 700 : 400;
    lf.lfItalic = (style & 2) != 0;
    lf.lfUnderline = (style & 4) != 0;
    wcscpy(lf.lfFaceName, L"Courier New");
    return ::CreateFontIndirectW(&lf);
}

// Eight fonts, each of them selected and measured once.
class Fonts {
public:
    explicit Fonts(HWND window)
    {
        const HDC dc = ::GetDC(window);
        for (int style = 0; style < count; ++style) {
            m_fonts[style] = MakeFont(style);
            const HGDIOBJ before = ::SelectObject(dc, m_fonts[style]);
            SIZE size{};
            ::GetTextExtentPoint32W(dc, L" ", 1, &size);
            ::SelectObject(dc, before);
        }
        ::ReleaseDC(window, dc);
    }
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;
    ~Fonts()
    {
        for (const HFONT font : m_fonts)
            ::DeleteObject(font);
    }

private:
    static constexpr int count = 8;
    HFONT m_fonts[count];
};

// A window with what every control has.
void MakeBareWindow(IDropTarget* drops)
{
    constexpr DWORD style = WS_CHILD | WS_VSCROLL | WS_HSCROLL;
    const HWND window = ::CreateWindowExW(WS_EX_CLIENTEDGE, BareClass(), L"", style, 0, 0, clientSize.cx, clientSize.cy,
                                          HostWindow(), nullptr, nullptr, nullptr);
    if (drops)
        ::RegisterDragDrop(window, drops);
    ::SetTimer(window, 1, 500, nullptr);
    ::SetTimer(window, 2, 100, nullptr);
    const Fonts fonts(window);
    for (const int bar : {SB_VERT, SB_HORZ}) {
        const SCROLLINFO info{sizeof info, SIF_ALL | SIF_DISABLENOSCROLL, 0, 100, 50, 0, 0};
        ::SetScrollInfo(window, bar, &info, TRUE);
    }
    ::ShowWindow(window, SW_SHOW);
    ::UpdateWindow(window);
    if (drops)
        ::RevokeDragDrop(window);
    ::DestroyWindow(window);
}

void MakeShownControl()
{
    RECT rect{0, 0, clientSize.cx, clientSize.cy};
    edCreateParams params{};
    params.parent = HostWindow();
    params.rect = &rect;
    const HWND control = edCreateCtrl(&params);
    ::ShowWindow(control, SW_SHOW);
    ::UpdateWindow(control);
    edDestroyCtrl(control);
}

}  // namespace

void BenchLife(const Bench& bench)
{
    static NoDrops drops;
    std::vector<double> bare;
    std::vector<double> accepting;
    ::OleInitialize(nullptr);
    const Beside life = MeasureBeside(bench.floors, 30, MakeShownControl, [&] {
        bare.push_back(TimeOf([] { MakeBareWindow(nullptr); }));
        accepting.push_back(TimeOf([] { MakeBareWindow(&drops); }));
    });
    ::OleUninitialize();
    const Floors& f = life.floors;
    const TableRow row{bench.size.name, "a control made, painted and destroyed", life.ns, "a bare window, a page (F2)",
                       MedianOf(bare) + f[Floor::page], 1.2};
    Print(row);
    PrintBound(row, "the window a drop target too, a page off screen", MedianOf(accepting) + f[Floor::boundPage]);
}
