#include "LineScanner.h"

#include <algorithm>

namespace scrivpad {

std::size_t LineScanner::WordLength(std::size_t from) const noexcept
{
    std::size_t length = 0;
    while (IsWordPart(Peek(from + length)))
        ++length;
    return length;
}

void LineScanner::Mark(std::size_t count, TokenClass code) noexcept
{
    const std::size_t fitting = std::min(count, Rest().size());
    std::fill_n(m_rest, fitting, static_cast<wchar_t>(code));
    m_rest += fitting;
}

void LineScanner::MarkThrough(std::wstring_view end, TokenClass code, std::size_t skip) noexcept
{
    const std::size_t found = Rest().find(end, skip);
    Mark(found == std::wstring_view::npos ? Rest().size() : found + end.size(), code);
}

bool LineScanner::TakeBlankOrComment() noexcept
{
    if (IsBlank(Peek())) {
        Mark(1, TokenClass::plain);
        return true;
    }
    if (Peek() != L'/')
        return false;
    if (Peek(1) == L'/')
        MarkRest(TokenClass::comment);
    else if (Peek(1) == L'*')
        MarkThrough(L"*/", TokenClass::comment, 2);
    else
        return false;
    return true;
}

}  // namespace scrivpad
