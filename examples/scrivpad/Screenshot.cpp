#include "Screenshot.h"

#include "ComPtr.h"

#include <dwmapi.h>
#include <wincodec.h>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace scrivpad {

namespace {

struct DeleteGdiObject {
    void operator()(HGDIOBJ object) const noexcept { ::DeleteObject(object); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;

struct DeleteContext {
    void operator()(HDC dc) const noexcept { ::DeleteDC(dc); }
};
using MemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext>;

/// The screen's own context, given back at the end of the scope.
class ScreenContext {
public:
    ScreenContext() noexcept : m_dc(::GetDC(nullptr)) {}
    ~ScreenContext() { ::ReleaseDC(nullptr, m_dc); }
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    [[nodiscard]] HDC Get() const noexcept { return m_dc; }

private:
    HDC m_dc;
};

/// The part of the screen that shows the window. The window's rectangle may be larger: of the borders for sizing no
/// more than a line is to be seen, and a picture of them all would show what stands behind the window.
[[nodiscard]] RECT VisibleFrame(HWND window) noexcept
{
    RECT bounds = {};
    RECT frame = {};
    ::GetWindowRect(window, &bounds);
    if (SUCCEEDED(::DwmGetWindowAttribute(window, DWMWA_EXTENDED_FRAME_BOUNDS, &frame, sizeof(frame))) &&
        !::EqualRect(&frame, &bounds))
        return frame;
    // A system whose frames another program draws, with borders of a line, and that knows nothing of it.
    POINT client = {};
    ::ClientToScreen(window, &client);
    const int unseen = std::max(static_cast<int>(client.x - bounds.left) - 1, 0);
    ::InflateRect(&bounds, -unseen, -unseen);
    return bounds;
}

/// Has the window draw itself; `frame` is the part of the screen that the picture is of.
[[nodiscard]] bool DrawWindow(HWND window, const RECT& frame, HDC memory) noexcept
{
    RECT bounds = {};
    ::GetWindowRect(window, &bounds);
    ::SetViewportOrgEx(memory, bounds.left - frame.left, bounds.top - frame.top, nullptr);
    return ::PrintWindow(window, memory, PW_RENDERFULLCONTENT) != FALSE;
}

/// Copies the window off the screen; where the screen may not be read the window is asked to draw itself.
[[nodiscard]] bool CopyWindow(HWND window, const RECT& bounds, HDC screen, HDC memory) noexcept
{
    const int width = bounds.right - bounds.left;
    const int height = bounds.bottom - bounds.top;
    return ::BitBlt(memory, 0, 0, width, height, screen, bounds.left, bounds.top, SRCCOPY | CAPTUREBLT) ||
           DrawWindow(window, bounds, memory);
}

[[nodiscard]] Bitmap Capture(HWND window)
{
    const RECT bounds = VisibleFrame(window);
    const ScreenContext screen;
    const MemoryContext memory(::CreateCompatibleDC(screen.Get()));
    Bitmap bitmap(::CreateCompatibleBitmap(screen.Get(), bounds.right - bounds.left, bounds.bottom - bounds.top));
    if (!memory || !bitmap)
        throw Failure(L"не хватает памяти для снимка окна");
    const HGDIOBJ before = ::SelectObject(memory.get(), bitmap.get());
    const bool copied = CopyWindow(window, bounds, screen.Get(), memory.get());
    ::SelectObject(memory.get(), before);
    if (!copied)
        throw Failure(L"не удалось снять изображение окна");
    return bitmap;
}

constexpr const wchar_t* pngFault = L"не удалось записать снимок окна";

[[nodiscard]] ComPtr<IWICStream> OpenStream(IWICImagingFactory& factory, const std::wstring& path)
{
    auto stream = TakeCom<IWICStream>(pngFault, [&](IWICStream** out) { return factory.CreateStream(out); });
    RequireCom((L"не удалось записать " + path).c_str(), stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
    return stream;
}

void WritePng(IWICImagingFactory& factory, IWICBitmapSource& picture, IStream& stream)
{
    const auto encoder = TakeCom<IWICBitmapEncoder>(pngFault, [&](IWICBitmapEncoder** out) {
        return factory.CreateEncoder(GUID_ContainerFormatPng, nullptr, out);
    });
    RequireCom(pngFault, encoder->Initialize(&stream, WICBitmapEncoderNoCache));
    const auto frame = TakeCom<IWICBitmapFrameEncode>(pngFault, [&](IWICBitmapFrameEncode** out) {
        return encoder->CreateNewFrame(out, nullptr);
    });
    RequireCom(pngFault, frame->Initialize(nullptr));
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;  // no alpha: the screen has none
    RequireCom(pngFault, frame->SetPixelFormat(&format));
    RequireCom(pngFault, frame->WriteSource(&picture, nullptr));
    RequireCom(pngFault, frame->Commit());
    RequireCom(pngFault, encoder->Commit());
}

}  // namespace

void SaveScreenshot(HWND window, const std::wstring& path)
{
    const Bitmap bitmap = Capture(window);
    const auto factory = TakeCom<IWICImagingFactory>(pngFault, [](IWICImagingFactory** out) {
        return ::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                  reinterpret_cast<void**>(out));
    });
    const auto picture = TakeCom<IWICBitmap>(pngFault, [&](IWICBitmap** out) {
        return factory->CreateBitmapFromHBITMAP(bitmap.get(), nullptr, WICBitmapIgnoreAlpha, out);
    });
    const auto stream = OpenStream(*factory, path);
    WritePng(*factory, *picture, *stream);
}

}  // namespace scrivpad
