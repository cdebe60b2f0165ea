#include "Highlight.h"
#include "Keywords.h"
#include "LineScanner.h"

namespace scrivpad {

namespace {

constexpr std::wstring_view keywords[] = {
    L"alignas", L"alignof", L"and", L"and_eq", L"asm", L"auto", L"bitand", L"bitor", L"bool", L"break", L"case",
    L"catch", L"char", L"char16_t", L"char32_t", L"char8_t", L"class", L"co_await", L"co_return", L"co_yield",
    L"compl", L"concept", L"const", L"const_cast", L"consteval", L"constexpr", L"constinit", L"continue",
    L"decltype", L"default", L"delete", L"do", L"double", L"dynamic_cast", L"else", L"enum", L"explicit", L"export",
    L"extern", L"false", L"final", L"float", L"for", L"friend", L"goto", L"if", L"inline", L"int", L"long",
    L"mutable", L"namespace", L"new", L"noexcept", L"not", L"not_eq", L"nullptr", L"operator", L"or", L"or_eq",
    L"override", L"private", L"protected", L"public", L"register", L"reinterpret_cast", L"requires", L"restrict",
    L"return", L"short", L"signed", L"sizeof", L"static", L"static_assert", L"static_cast", L"struct", L"switch",
    L"template", L"this", L"thread_local", L"throw", L"true", L"try", L"typedef", L"typeid", L"typename", L"union",
    L"unsigned", L"using", L"virtual", L"void", L"volatile", L"wchar_t", L"while", L"xor", L"xor_eq",
};
static_assert(IsSorted(keywords));

/// What may stand before a quote as part of the literal; those with R open a raw string.
constexpr std::wstring_view literalPrefixes[] = {
    L"L", L"LR", L"R", L"U", L"UR", L"u", L"u8", L"u8R", L"uR",
};
static_assert(IsSorted(literalPrefixes));

[[nodiscard]] std::size_t CountWhile(const LineScanner& line, std::size_t from, std::size_t most,
                                     bool (*accepts)(wchar_t)) noexcept
{
    std::size_t count = 0;
    while (count < most && accepts(line.Peek(from + count)))
        ++count;
    return count;
}

[[nodiscard]] constexpr bool IsOctalDigit(wchar_t ch) noexcept
{
    return ch >= L'0' && ch <= L'7';
}

/// @return the length of the escape that begins with the backslash at the place
[[nodiscard]] std::size_t EscapeLength(const LineScanner& line) noexcept
{
    const wchar_t kind = line.Peek(1);
    if (kind == L'x')
        return 2 + CountWhile(line, 2, line.Rest().size(), IsHexDigit);
    if (kind == L'u')
        return 2 + CountWhile(line, 2, 4, IsHexDigit);
    if (kind == L'U')
        return 2 + CountWhile(line, 2, 8, IsHexDigit);
    if (IsOctalDigit(kind))
        return 1 + CountWhile(line, 1, 3, IsOctalDigit);
    return 2;
}

/// A string or character constant, from its opening quote on; one without an end takes the rest of the line.
void MarkQuoted(LineScanner& line) noexcept
{
    const wchar_t quote = line.Peek();
    line.Mark(1, TokenClass::string);
    while (!line.AtEnd()) {
        const wchar_t ch = line.Peek();
        if (ch == L'\\') {
            line.Mark(EscapeLength(line), TokenClass::special);
            continue;
        }
        line.Mark(1, TokenClass::string);
        if (ch == quote)
            return;
    }
}

/// R"mark( ... )mark" from its opening quote on, as far as it lies in this line.
void MarkRaw(LineScanner& line) noexcept
{
    constexpr std::size_t longestMark = 16;
    const std::size_t open = line.Rest().find(L'(');
    if (open == std::wstring_view::npos || open > longestMark + 1) {
        MarkQuoted(line);
        return;
    }
    wchar_t closing[longestMark + 2] = {L')'};
    const std::size_t markLength = line.Rest().copy(closing + 1, open - 1, 1);
    closing[markLength + 1] = L'"';
    line.MarkThrough({closing, markLength + 2}, TokenClass::string, open + 1);
}

/// Digits, letters (base, exponent, suffix), points, separators, and a sign behind an exponent letter.
[[nodiscard]] std::size_t NumberLength(const LineScanner& line) noexcept
{
    const bool hex = line.Peek() == L'0' && (line.Peek(1) | 0x20) == L'x';
    const wchar_t exponent = hex ? L'p' : L'e';
    std::size_t length = 1;
    for (;; ++length) {
        const wchar_t ch = line.Peek(length);
        const bool sign = (ch == L'+' || ch == L'-') && (line.Peek(length - 1) | 0x20) == exponent;
        const bool separator = ch == L'\'' && IsWordPart(line.Peek(length + 1));
        if (!IsWordPart(ch) && ch != L'.' && !sign && !separator)
            return length;
    }
}

void MarkWord(LineScanner& line) noexcept
{
    const std::wstring_view word = line.Rest().substr(0, line.WordLength());
    const wchar_t next = line.Peek(word.size());
    const bool literal = (next == L'"' || next == L'\'') && Holds(literalPrefixes, word);
    if (!literal) {
        line.Mark(word.size(), Holds(keywords, word) ? TokenClass::keyword : TokenClass::identifier);
        return;
    }
    const bool raw = next == L'"' && word.back() == L'R';  // before Mark: it overwrites the word
    line.Mark(word.size(), TokenClass::string);
    if (raw)
        MarkRaw(line);
    else
        MarkQuoted(line);
}

/// The `#`, the blanks behind it and the directive's name; for an include also the name in angle brackets.
void MarkDirective(LineScanner& line) noexcept
{
    std::size_t name = 1;
    while (IsBlank(line.Peek(name)))
        ++name;
    const std::size_t length = line.WordLength(name);
    const bool include = line.Rest().substr(name, length) == L"include";
    line.Mark(name + length, TokenClass::directive);
    if (!include)
        return;
    while (IsBlank(line.Peek()))
        line.Mark(1, TokenClass::plain);
    if (line.Peek() == L'<')
        line.MarkThrough(L">", TokenClass::string);
}

void MarkToken(LineScanner& line) noexcept
{
    const wchar_t ch = line.Peek();
    if (ch == L'"' || ch == L'\'')
        MarkQuoted(line);
    else if (IsDigit(ch) || (ch == L'.' && IsDigit(line.Peek(1))))
        line.Mark(NumberLength(line), TokenClass::number);
    else if (IsWordStart(ch))
        MarkWord(line);
    else
        line.Mark(1, TokenClass::symbol);
}

}  // namespace

void HighlightCpp(void*, wchar_t* text, int insideComment) noexcept
{
    LineScanner line(text);
    if (insideComment != 0)
        line.MarkThrough(L"*/", TokenClass::comment);
    bool lineStart = true;  // only blanks and comments so far: a # begins a directive
    while (!line.AtEnd()) {
        if (line.TakeBlankOrComment())
            continue;
        if (lineStart && line.Peek() == L'#')
            MarkDirective(line);
        else
            MarkToken(line);
        lineStart = false;
    }
}

}  // namespace scrivpad
