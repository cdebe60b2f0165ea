#include "bench/SampleText.h"

#include "include/scrivctl3.h"

#include <array>
#include <random>

namespace {

constexpr std::array<const wchar_t*, 12> codeLines{
    L"    if (count > 0) return next(%);",
    L"    value = table[%] + 17 * step;",
    L"    for (i = 0; i < %; ++i) {",
    L"        sum += data[i] * 3 - %;",
    L"    }",
    L"    call(name, \"text\", %, 0x1F);",
    L"struct point { int x, y; } p%;",
    L"    result->item = first(%) ? 1 : 2;",
    L"    switch (kind) { case %: break; }",
    L"    double ratio = 0.5 * (a + %);",
    L"    /* block, note % */ flag = 1;",
    L"    while (*p && p[%] != end) ++p;",
};
constexpr std::array<const wchar_t*, 9> commentWords{
    L"the", L"строка", L"counts", L"from", L"текст", L"zero", L"here", L"число", L"only",
};

bool IsWord(wchar_t ch)
{
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'_' || ch >= 0x400;
}

bool IsDigit(wchar_t ch)
{
    return ch >= L'0' && ch <= L'9';
}

}  // namespace

std::wstring SampleText(std::size_t characters)
{
    std::mt19937 random(20);
    std::wstring text;
    text.reserve(characters + 80);
    while (text.size() < characters) {
        if (random() % 5 == 0) {
            text += L"    //";
            for (int i = 0; i < 5; ++i)
                (text += L' ') += commentWords[random() % commentWords.size()];
        } else {
            for (const wchar_t* p = codeLines[random() % codeLines.size()]; *p; ++p)
                *p == L'%' ? text += std::to_wstring(random() % 1000) : text += *p;
        }
        text += L'\n';
    }
    return text;
}

void ClassifySample(void*, wchar_t* text, int)
{
    for (wchar_t* p = text; *p;) {
        const wchar_t first = *p;
        if (first == L'/' && p[1] == L'/') {
            while (*p)
                *p++ = ED_CLASS_COMMENT;
        } else if (IsWord(first)) {
            wchar_t* end = p;
            while (IsWord(*end) || IsDigit(*end))
                ++end;
            const wchar_t code = end - p < 4 ? ED_CLASS_KEYWORD : ED_CLASS_IDENTIFIER;
            while (p < end)
                *p++ = code;
        } else if (IsDigit(first)) {
            while (IsDigit(*p) || IsWord(*p))
                *p++ = ED_CLASS_NUMBER;
        } else {
            *p++ = ED_CLASS_SYMBOL;  // blanks too: they go on with the run that they stand in
        }
    }
}
