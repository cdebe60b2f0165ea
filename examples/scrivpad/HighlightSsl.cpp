#include "Highlight.h"
#include "Keywords.h"
#include "LineScanner.h"

namespace scrivpad {

namespace {

constexpr std::wstring_view keywords[] = {
    L"ВОЗВРАТ", L"ДЛЯ", L"ДО", L"ЕСЛИ", L"И", L"ИЛИ", L"ИНАЧЕ", L"ИСТИНА", L"КОНЕЦ_ДЛЯ", L"КОНЕЦ_ЕСЛИ",
    L"КОНЕЦ_ПОКА", L"КОНЕЦ_ПРОЦЕДУРЫ", L"КОНЕЦ_ФУНКЦИИ", L"ЛОЖЬ", L"НЕ", L"ОТ", L"ПЕРЕМ", L"ПОКА", L"ПРОЦЕДУРА",
    L"ТО", L"ФУНКЦИЯ", L"ЦИКЛ", L"ШАГ",
};
static_assert(IsSorted(keywords));

constexpr std::wstring_view builtins[] = {
    L"ВВОД", L"ВЫВОД", L"ДЛИНА", L"СООБЩЕНИЕ",
};
static_assert(IsSorted(builtins));

/// A string ends at a single quote mark; a doubled one stands for the mark itself.
void MarkString(LineScanner& line) noexcept
{
    line.Mark(1, TokenClass::string);
    while (!line.AtEnd()) {
        const bool mark = line.Peek() == L'"';
        if (mark && line.Peek(1) == L'"') {
            line.Mark(2, TokenClass::special);
            continue;
        }
        line.Mark(1, TokenClass::string);
        if (mark)
            return;
    }
}

/// Digits with at most one point that has digits on both sides.
[[nodiscard]] std::size_t NumberLength(const LineScanner& line) noexcept
{
    std::size_t length = 0;
    bool pointSeen = false;
    for (;; ++length) {
        const bool point = !pointSeen && line.Peek(length) == L'.' && IsDigit(line.Peek(length + 1));
        if (!IsDigit(line.Peek(length)) && !point)
            return length;
        pointSeen = pointSeen || point;
    }
}

[[nodiscard]] TokenClass ClassOfWord(std::wstring_view word) noexcept
{
    if (Holds(keywords, word))
        return TokenClass::keyword;
    return Holds(builtins, word) ? TokenClass::builtin : TokenClass::identifier;
}

}  // namespace

void HighlightSsl(void*, wchar_t* text, int insideComment) noexcept
{
    LineScanner line(text);
    if (insideComment != 0)
        line.MarkThrough(L"*/", TokenClass::comment);
    while (!line.AtEnd()) {
        if (line.TakeBlankOrComment())
            continue;
        const wchar_t ch = line.Peek();
        if (ch == L'"') {
            MarkString(line);
        } else if (IsDigit(ch)) {
            line.Mark(NumberLength(line), TokenClass::number);
        } else if (IsWordStart(ch)) {
            const std::size_t length = line.WordLength();
            line.Mark(length, ClassOfWord(line.Rest().substr(0, length)));
        } else {
            line.Mark(1, TokenClass::symbol);
        }
    }
}

}  // namespace scrivpad
