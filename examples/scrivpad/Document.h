#pragma once

#include "scrivctl3.h"

#include <string>

namespace scrivpad {

/// The file behind a text.
struct Document {
    std::wstring path;                           ///< whole path; empty: not saved yet
    UINT32 encoding = ED_ENCODING_DEFAULT;       ///< found at the load or chosen by the user; the next save takes it
    UINT32 loadedEncoding = ED_ENCODING_DEFAULT; ///< found at the load
    bool modified = false;                       ///< the text has changed since the last load or save
    bool readOnly = false;                       ///< the file may not be written

    /// @return the name without its folders, or what stands for a text without a file
    [[nodiscard]] std::wstring Name() const;
};

/// @return the whole path of a name given in relation to the current folder
[[nodiscard]] std::wstring WholePath(const std::wstring& name);

[[nodiscard]] bool IsReadOnlyFile(const std::wstring& path) noexcept;

}  // namespace scrivpad
