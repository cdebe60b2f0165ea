#include "editing/KeyConversion.h"

#include <array>

WCHAR convert_key_char(WCHAR ch, xTKeyLayout source, xTKeyLayout target) noexcept
{
    constexpr BYTE down = 0xF0;
    constexpr std::size_t shiftKey = 0x10;
    constexpr std::size_t controlKey = 0x11;
    const std::uint16_t scan = PlatformKeyScan(ch, source);
    const unsigned key = scan & 0xFFu;
    const unsigned shiftState = scan >> 8;
    std::array<BYTE, 256> state{};
    state[key] = down;
    if (shiftState & 1)
        state[shiftKey] = down;
    if (shiftState & 2)
        state[controlKey] = down;
    std::array<WCHAR, 2> typed{};
    return PlatformKeyText(key, PlatformScanCode(key, target), state, target, typed) == 1 ? typed[0] : ch;
}
