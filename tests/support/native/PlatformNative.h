#pragma once

#include "framework/base/Platform.h"

#include <array>
#include <map>
#include <set>
#include <utility>
#include <vector>

/// What the stand-in for the system answers, and what it was told. Tests set and read it. The native build has no other
/// system; the engine tests under Wine use it too, for all but letters, code pages and files.
struct xTNativePlatform {
    /// A message box that would have been shown. Its fixed room lets it be recorded when memory is short.
    struct xTBox {
        std::array<WCHAR, 512> textRoom{};
        std::array<WCHAR, 128> captionRoom{};
        xTBoxIcon icon = xTBoxIcon::none;
        [[nodiscard]] WStrView text() const noexcept { return textRoom.data(); }
        [[nodiscard]] WStrView caption() const noexcept { return captionRoom.data(); }
    };
    static constexpr int boxRoom = 16;

    std::set<int> keysDown;  ///< virtual key codes

    int boxCount = 0;                  ///< message boxes since the last reset
    std::array<xTBox, boxRoom> boxes;  ///< the first of them; past the room the last place is used anew
    /// The message box shown last; an empty one when there was none.
    [[nodiscard]] const xTBox& LastBox() const noexcept;

    std::map<unsigned, WString> strings;  ///< the user interface texts by number
    WString executablePath;               ///< parted by backslashes; empty: the system does not tell
    xTResolution resolution{96, 96};
    xTLocalTime time{1, 2, 2015, 9, 5, 7, 31};

    /// The installed keyboard layouts in the order in which they follow each other; the first is the one in use.
    std::vector<xTKeyLayout> layouts;

    int clipboardRefusals = 0;    ///< so many tries to open the clipboard fail
    bool clipboardOpen = false;
    bool clipboardNoMemory = false;  ///< a write finds no memory
    /// What the clipboard holds, in the order in which it lists it. Bytes (format clipboardBytes) stand one in each unit.
    std::vector<std::pair<unsigned, WString>> clipboard;
    unsigned sleptMilliseconds = 0;

    /// The number of block allocations that go well before the next one fails once; below 0 none fails.
    int pagesBeforeFailure = -1;
};

/// The layouts that the stand-in knows the keys of: US English, Russian, and a third one which is the English with Y and
/// Z in each other's place, as a German one has them. The third is not installed at the start.
inline constexpr xTKeyLayout layoutEnglish = 0x04090409;
inline constexpr xTKeyLayout layoutRussian = 0x04190419;
inline constexpr xTKeyLayout layoutGerman = 0x04070407;

[[nodiscard]] xTNativePlatform& NativePlatform();

/// Everything as at the start of the process.
void ResetNativePlatform();
