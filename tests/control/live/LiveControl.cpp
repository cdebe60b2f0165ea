#include "tests/control/live/LiveControl.h"

#include "appearance/AttribData.h"

#include <array>
#include <cstring>

namespace {

constexpr SIZE hostSize{240, 120};  // a few rows: what is shown is not what is compared

/// Keys that are down for as long as it lives.
class HeldKeys {
public:
    HeldKeys(UINT key, bool shift, bool ctrl)
    {
        constexpr BYTE down = 0x80;
        std::array<BYTE, 256> state{};
        state[key] = down;
        if (shift)
            state[VK_SHIFT] = state[VK_LSHIFT] = down;
        if (ctrl)
            state[VK_CONTROL] = state[VK_LCONTROL] = down;
        ::SetKeyboardState(state.data());
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys()
    {
        std::array<BYTE, 256> none{};
        ::SetKeyboardState(none.data());
    }
};

}  // namespace

LiveControl::LiveControl()
    : m_own(std::make_unique<ControlHost>(hostSize.cx, hostSize.cy)), m_host(m_own->Window()),
        m_control(m_own->Show(L""))
{
}

LiveControl::LiveControl(ControlHost& host, const RECT& place) : m_host(host.Window())
{
    edCreateParams params{};
    params.rect = &place;
    m_control = host.Show(L"", params);
}

void LiveControl::Char(wchar_t ch, bool shift)
{
    ++m_strokes;
    const HeldKeys held(0, shift, false);
    ::SendMessageW(m_control, WM_CHAR, ch, 1);
}

void LiveControl::Key(UINT key, bool shift, bool ctrl)
{
    ++m_strokes;
    const HeldKeys held(key, shift, ctrl);
    ::SendMessageW(m_control, WM_KEYDOWN, key, 1);
}

void LiveControl::FillClipboard(const wchar_t* text)
{
    if (!::OpenClipboard(m_host))
        return;
    ::EmptyClipboard();
    if (text) {
        const std::size_t bytes = (std::wcslen(text) + 1) * sizeof *text;
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
        std::memcpy(::GlobalLock(memory), text, bytes);
        ::GlobalUnlock(memory);
        ::SetClipboardData(CF_UNICODETEXT, memory);
    }
    ::CloseClipboard();
}

void LiveControl::SetTabs(bool keep, int size)
{
    xTAttribData settings;
    settings.FillTheme(1);
    settings.m_logFont.lfHeight = -13;
    settings.m_logFont.lfWeight = FW_NORMAL;
    ::lstrcpyW(settings.m_logFont.lfFaceName, L"Courier New");
    settings.m_keepTabs = keep;
    settings.m_tabSize = size;
    std::array<char, 1024> bytes;
    xTSettingsBlock block{bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    const edSettingsBlock written{bytes.data(), settings.SaveSettings(&block)};
    edReloadTuneSettings(m_control, &written);
}
