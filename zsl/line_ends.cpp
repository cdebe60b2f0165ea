#include "zsl/line_ends.h"

#include <algorithm>

namespace zsl {
namespace {

constexpr WCHAR feed = 10;
constexpr WCHAR carriageReturn = 13;

// True when one of the characters is 0, a line feed or a carriage return, or another control character below.
constexpr std::size_t step = 16;
bool has_control(const WCHAR* p) noexcept
{
    unsigned found = 0;
    for (std::size_t i = 0; i < step; ++i)
        found |= p[i] <= carriageReturn;
    return found != 0;
}

}  // namespace

void line_ends::count_one(WCHAR ch) noexcept
{
    m_zeros += ch == 0;
    m_feeds += ch == feed;
    m_returns += ch == carriageReturn;
    m_pairs += ch == feed && m_last == carriageReturn;
    m_last = ch;
}

void line_ends::count(WStrView piece) noexcept
{
    while (piece.size() >= step) {
        if (has_control(piece.data())) {
            for (std::size_t i = 0; i < step; ++i)
                count_one(piece[i]);
        }
        m_last = piece[step - 1];
        piece.remove_prefix(step);
    }
    for (const WCHAR ch : piece)
        count_one(ch);
}

void drop_returns(WString& text) noexcept
{
    text.erase(std::remove(text.begin(), text.end(), carriageReturn), text.end());
}

void append_crlf(WStrView text, WString& out)
{
    for (;;) {
        const std::size_t end = text.find(feed);
        out.append(text.substr(0, end));
        if (end == text.npos)
            return;
        out.push_back(carriageReturn);
        out.push_back(feed);
        text.remove_prefix(end + 1);
    }
}

}  // namespace zsl
