#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace scrivpad {

struct FileChoice {
    std::wstring path;
    UINT32 encoding = 0;  ///< ED_ENCODING_ code
};

enum class FileDialogKind { open, save };

/// Asks for a file and its encoding with the system's dialog. Throws a Failure when there is no dialog to be had.
/// @param start  what the dialog shows at first; an empty path is none
/// @return what was chosen, none when the user gave up
[[nodiscard]] std::optional<FileChoice> AskForFile(HWND owner, FileDialogKind kind, const FileChoice& start);

}  // namespace scrivpad
