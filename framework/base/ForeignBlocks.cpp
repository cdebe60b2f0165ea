#include "framework/base/ForeignBlocks.h"

#include <algorithm>
#include <cstring>

namespace {

template <typename Char>
std::basic_string_view<Char> Terminated(const void* block, std::size_t bytes) noexcept
{
    const auto* text = static_cast<const Char*>(block);
    return {text, static_cast<std::size_t>(std::find(text, text + bytes / sizeof(Char), Char{0}) - text)};
}

// The names may begin at any byte, so they are no array of characters.
bool IsZeroAt(std::string_view names, std::size_t character, std::size_t width) noexcept
{
    const std::string_view bytes = names.substr(character * width, width);
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == 0; });
}

}  // namespace

WStrView WideTextOfBlock(const void* block, std::size_t bytes) noexcept
{
    return Terminated<WCHAR>(block, bytes);
}

std::string_view ByteTextOfBlock(const void* block, std::size_t bytes) noexcept
{
    return Terminated<char>(block, bytes);
}

bool IsWholeFileList(const void* block, std::size_t bytes) noexcept
{
    xTFileListHead head;
    if (bytes < sizeof head)
        return false;
    std::memcpy(&head, block, sizeof head);
    if (head.names < sizeof head || head.names >= bytes)
        return false;
    const std::string_view names(static_cast<const char*>(block) + head.names, bytes - head.names);
    const std::size_t width = head.wide ? sizeof(WCHAR) : 1;
    // The list ends with an empty name: two terminators in a row, or one where there is no name at all.
    bool nameIsEmpty = true;
    for (std::size_t i = 0; i < names.size() / width; ++i) {
        const bool terminator = IsZeroAt(names, i, width);
        if (terminator && nameIsEmpty)
            return true;
        nameIsEmpty = terminator;
    }
    return false;
}
