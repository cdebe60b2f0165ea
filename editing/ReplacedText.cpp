#include "editing/ReplacedText.h"

#include <algorithm>
#include <cstring>

namespace {

// Compared as bytes: the library compares wide units one by one.
bool HasAt(const WCHAR* place, WStrView piece) noexcept
{
    return std::memcmp(place, piece.data(), piece.size() * sizeof(WCHAR)) == 0;
}

bool IsJoined(WStrView text, WStrView head, WStrView middle, WStrView tail) noexcept
{
    return text.size() == head.size() + middle.size() + tail.size() && HasAt(text.data(), head) &&
           HasAt(text.data() + head.size(), middle) && HasAt(text.data() + head.size() + middle.size(), tail);
}

}  // namespace

CString xTReplacedText::Of(const CString& text, std::size_t column, std::size_t count, WStrView by) const
{
    const WStrView present = text;
    const WStrView head = present.substr(0, column);
    const WStrView tail = present.substr(column + std::min(count, present.size() - column));
    if (known && IsJoined(*known, head, by, tail))
        return *known;
    if (slabs)
        return slabs->Carve(head, by, tail);
    CString changed = text;
    changed.Exchange(static_cast<std::int32_t>(column), static_cast<std::int32_t>(count), by);
    return changed;
}
