#include "framework/base/Platform.h"
#include "tests/support/model/NaiveStore.h"

#include <algorithm>
#include <array>

namespace {

WString Upper(const WString& text)
{
    WString converted = text;
    PlatformUpperCase(converted.data(), static_cast<std::int32_t>(converted.size()));
    return converted;
}

WString Lower(const WString& text)
{
    WString converted = text;
    PlatformLowerCase(converted.data(), static_cast<std::int32_t>(converted.size()));
    return converted;
}

WCHAR Retyped(WCHAR ch, xTKeyLayout source, xTKeyLayout target)
{
    constexpr BYTE down = 0xF0;
    const std::uint16_t scan = PlatformKeyScan(ch, source);
    const unsigned key = scan & 0xFFu;
    std::array<BYTE, 256> state{};
    state[key] = down;
    if ((scan & 0x100u) != 0)
        state[0x10] = down;
    if ((scan & 0x200u) != 0)
        state[0x11] = down;
    std::array<WCHAR, 2> typed{};
    return PlatformKeyText(key, PlatformScanCode(key, target), state, target, typed) == 1 ? typed[0] : ch;
}

}  // namespace

// Whole lines become the selection; on one empty line the bounds come to stand so that nothing is taken.
void xTNaiveStore::SelectWholeLines()
{
    const int n = Length(last.line);
    if (first.line < last.line || (first.line == last.line && n > 0)) {
        first = xTPos(first.line, 0);
        last = xTPos(last.line, n - 1);
    } else {
        last = xTPos(first.line, -1);
        first = xTPos(first.line, n);
    }
    commentsValid = false;
    RescanComments();
}

void xTNaiveStore::IndentBlock()
{
    if (!FrameHolds())
        return;
    for (int line = first.line; line <= last.line; ++line) {
        for (int i = 0; i < (keepTabs ? 1 : tabSize); ++i)
            LineAt(line).InsertChar(0, keepTabs ? _T('\t') : _T(' '));
    }
    SelectWholeLines();
}

void xTNaiveStore::UnindentBlock()
{
    if (!FrameHolds())
        return;
    for (int line = first.line; line <= last.line; ++line) {
        for (int i = 0; i < tabSize; ++i) {
            const WCHAR ch = LineAt(line).At(0);
            if (ch != _T('\t') && ch != _T(' '))
                break;
            LineAt(line).Delete(0, 1);
            if (ch == _T('\t'))
                break;
        }
    }
    SelectWholeLines();
}

void xTNaiveStore::CommentBlock(bool remove)
{
    if (!FrameHolds())
        return;
    for (int line = first.line; line <= last.line; ++line) {
        xTNaiveLine& here = LineAt(line);
        if (!remove) {
            here.InsertChar(0, _T('/'));
            here.InsertChar(0, _T('/'));
            continue;
        }
        const auto slashes = here.text.find(_T("//"));
        if (slashes != WString::npos && here.text.find_first_not_of(_T(" \t")) == slashes)
            here.Delete(static_cast<int>(slashes), 2);
    }
    SelectWholeLines();
}

// Even a range without characters goes through the insertion, which may touch the flags of a line in a comment.
void xTNaiveStore::ReplaceColumns(int line, int from, int to, const std::function<WString(const WString&)>& convert)
{
    xTNaiveLine& here = LineAt(line);
    WString characters;
    // Before the first character is where the line begins.
    const int at = std::max(from, 0);
    if (at < here.Length() && to > at) {
        characters = here.text.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(to - at));
        here.Delete(at, to - at);
    }
    here.Insert(from, xTNaiveLine(convert(characters)));
}

void xTNaiveStore::ChangeCase(bool upper, const xTPos& from, const xTPos& to)
{
    for (int line = from.line; line <= to.line; ++line) {
        const int start = line == from.line ? from.col : 0;
        const int end = line == to.line ? to.col + 1 : LineAt(line).Length();
        ReplaceColumns(line, start, end, upper ? Upper : Lower);
    }
}

void xTNaiveStore::SwitchLayout(const xTPos& from, const xTPos& to)
{
    const xTKeyLayout source = PlatformKeyLayout();
    PlatformNextKeyLayout();
    const xTKeyLayout target = PlatformKeyLayout();
    const auto retype = [&](const WString& text) {
        WString converted;
        for (const WCHAR ch : text)
            converted += Retyped(ch, source, target);
        return converted;
    };
    for (int line = from.line; line <= to.line; ++line) {
        const int length = LineAt(line).Length();
        const int start = line == from.line && from.col <= length ? from.col : 0;
        const int end = line == to.line && to.col < length ? to.col + 1 : length;
        ReplaceColumns(line, start, end, retype);
    }
}
