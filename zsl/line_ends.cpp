#include "zsl/line_ends.h"

#include <algorithm>
#include <cstdint>

namespace zsl {
namespace {

constexpr WCHAR feed = 10;
constexpr WCHAR carriageReturn = 13;

constexpr std::size_t step = 64;

}  // namespace

void line_ends::count_one(WCHAR ch) noexcept
{
    m_zeros += ch == 0;
    m_feeds += ch == feed;
    m_returns += ch == carriageReturn;
    m_pairs += ch == feed && m_last == carriageReturn;
    m_last = ch;
}

// The character before `p` belongs to the text too. Without a branch and with counters as wide as the characters, so
// that it becomes wide instructions.
void line_ends::count_step(const WCHAR* p) noexcept
{
    using counter = std::uint16_t;
    const WCHAR* const before = p - 1;
    counter zeros = 0, feeds = 0, returns = 0, pairs = 0;
    for (std::size_t i = 0; i < step; ++i) {
        const counter isFeed = p[i] == feed;
        const counter behindReturn = before[i] == carriageReturn;
        zeros = static_cast<counter>(zeros + (p[i] == 0));
        feeds = static_cast<counter>(feeds + isFeed);
        returns = static_cast<counter>(returns + (p[i] == carriageReturn));
        pairs = static_cast<counter>(pairs + (isFeed & behindReturn));
    }
    m_zeros += zeros;
    m_feeds += feeds;
    m_returns += returns;
    m_pairs += pairs;
    m_last = p[step - 1];
}

void line_ends::count(WStrView piece) noexcept
{
    if (piece.empty())
        return;
    count_one(piece[0]);  // the steps look at the character before them too
    piece.remove_prefix(1);
    for (; piece.size() >= step; piece.remove_prefix(step))
        count_step(piece.data());
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
