#pragma once

#include "scrivctl3.h"

#include <string>
#include <vector>

namespace scrivpad {

/// How all texts of the program look: the library's block of settings, kept in a file from one start to the next.
class Appearance {
public:
    /// @param theme  what texts look like while there is no block, 1 to 5
    /// @param file   where the block is kept; empty: nowhere
    Appearance(UINT32 theme, std::wstring file);

    /// Reads the file. One that is not there, or not readable, leaves everything as it is.
    void Load();
    /// Goes on with another block. Throws a Failure when it cannot be kept; it holds all the same.
    /// @param theme  the number of the theme that it shows unchanged, 0 when it shows none
    void Take(std::vector<BYTE> block, UINT32 theme);

    /// The block as the library wants it, valid until the next change; without data when there is none.
    [[nodiscard]] edSettingsBlock Block() noexcept;
    /// The theme for a control that finds no block.
    [[nodiscard]] UINT32 FallbackTheme() const noexcept { return m_fallback; }
    /// The theme in use, 0 when it is not known.
    [[nodiscard]] UINT32 Theme() const noexcept { return m_theme; }

private:
    void Keep() const;

    std::wstring m_file;
    std::vector<BYTE> m_block;
    UINT32 m_fallback;
    UINT32 m_theme;
};

/// The file in the user's own folder; empty when there is no such folder. Its folder is made.
[[nodiscard]] std::wstring SettingsFileOfUser();

/// What the open pages of the library hold now; empty when none is open.
[[nodiscard]] std::vector<BYTE> TunedBlock();

/// Settings with the colours and styles of a theme, all else as in `from`. While pages of the library are open it is
/// what they show that is changed. Empty when it cannot be had.
[[nodiscard]] std::vector<BYTE> BlockOfTheme(const edSettingsBlock& from, UINT32 theme);

}  // namespace scrivpad
