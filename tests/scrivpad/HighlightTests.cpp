#include "Classes.h"

#include <random>

using namespace scrivpad;

namespace {

struct Line {
    const wchar_t* text;
    const char* classes;
    int insideComment = 0;
};

class CppLine : public testing::TestWithParam<Line> {};
class SslLine : public testing::TestWithParam<Line> {};

TEST_P(CppLine, IsClassifiedCharacterByCharacter)
{
    EXPECT_EQ(ClassesOf(HighlightCpp, GetParam().text, GetParam().insideComment), GetParam().classes);
}

TEST_P(SslLine, IsClassifiedCharacterByCharacter)
{
    EXPECT_EQ(ClassesOf(HighlightSsl, GetParam().text, GetParam().insideComment), GetParam().classes);
}

const Line cppWords[] = {
    {L"", ""},
    {L" \t ", "..."},
    {L"int x;", "kkk.is"},
    {L"interest returns", "iiiiiiii.iiiiiii"},
    {L"_a1 $b", "iii.ii"},
    {L"длина = ширина", "iiiii.s.iiiiii"},
    {L"a->b::c", "ississi"},
    {L"a \x2014 b \x00D7", "i.s.i.s"},
    {L"co_await static_assert", "kkkkkkkk.kkkkkkkkkkkkk"},
};
const Line cppNumbers[] = {
    {L"0x1Fu+2", "99999s9"},
    {L"0x1e+1", "9999s9"},
    {L"0x1p-3f", "9999999"},
    {L"1e+10L", "999999"},
    {L"1.5f .5 5.", "9999.99.99"},
    {L"1'000'000", "999999999"},
    {L"1'a'", "999t"},
    {L"0b1010ULL 0755", "999999999.9999"},
    {L"a.5", "i99"},
    {L"x1 1x", "ii.99"},
    {L"1-2", "9s9"},
    {L"12_km", "99999"},
};
const Line cppStrings[] = {
    {L"\"a\\n\"", "tteet"},
    {L"\"\\x1Bz\\0a\"", "teeeeteett"},
    {L"\"\\u2192\\U0001F600!\"", "teeeeeeeeeeeeeeeett"},
    {L"\"\\1234\"", "teeeett"},
    {L"\"a\\\"b\" c", "tteett.i"},
    {L"'\\'' + 'x'", "teet.s.ttt"},
    {L"\"no end", "ttttttt"},
    {L"\"end\\", "tttte"},
    {L"L\"a\" u8\"b\" U'c'", "tttt.ttttt.tttt"},
    {L"x\"a\"", "ittt"},
    {L"R\"(a\\n\")\" b", "ttttttttt.i"},
    {L"R\"==(a)\")==\";", "tttttttttttts"},
    {L"R\"(no end", "ttttttttt"},
    {L"R\"0123456789abcdefg(x)\"", "ttttttttttttttttttttttt"},
    {L"\"/* no comment */\" a", "tttttttttttttttttt.i"},
    {L"\"// no comment\"", "ttttttttttttttt"},
};
const Line cppComments[] = {
    {L"a // int 5", "i.cccccccc"},
    {L"a /* b */ c", "i.ccccccc.i"},
    {L"/* open", "ccccccc"},
    {L"/*/ still", "ccccccccc"},
    {L"a / b", "i.s.i"},
    {L"in */ out", "ccccc.iii", 1},
    {L"int in", "cccccc", 1},
    {L"*/", "cc", 1},
    {L"", "", 1},
    {L"a */ b", "i.ss.i"},
    {L"end */ /* again", "cccccc.cccccccc", 1},
};
const Line cppDirectives[] = {
    {L"#include <map> // x", "########.ttttt.cccc"},
    {L"#include \"a.h\"", "########.ttttt"},
    {L"  #  if x == 1", "..#####.i.ss.9"},
    {L"#define F(x) \"s\"", "#######.isis.ttt"},
    {L"#", "#"},
    {L"a # b", "i.s.i"},
    {L"/* c */ #endif", "ccccccc.######"},
    {L"#include <open", "########.ttttt"},
    {L"#if a < b", "###.i.s.i"},
};
INSTANTIATE_TEST_SUITE_P(Words, CppLine, testing::ValuesIn(cppWords));
INSTANTIATE_TEST_SUITE_P(Numbers, CppLine, testing::ValuesIn(cppNumbers));
INSTANTIATE_TEST_SUITE_P(Strings, CppLine, testing::ValuesIn(cppStrings));
INSTANTIATE_TEST_SUITE_P(Comments, CppLine, testing::ValuesIn(cppComments));
INSTANTIATE_TEST_SUITE_P(Directives, CppLine, testing::ValuesIn(cppDirectives));

const Line sslLines[] = {
    {L"", ""},
    {L"// Пример", "ccccccccc"},
    {L"ЕСЛИ НЕ ДоступенSQL ТО", "kkkk.kk.iiiiiiiiiii.kk"},
    {L"\tСООБЩЕНИЕ(\"Нет\" )", ".bbbbbbbbbsttttt.s"},
    {L"\tкод_возврата = 13", ".iiiiiiiiiiii.s.99"},
    {L"КОНЕЦ_ЕСЛИ", "kkkkkkkkkk"},
    {L"если", "iiii"},
    {L"ЕСЛИ1", "iiiii"},
    {L"\"a\"\"b\" c", "tteett.i"},
    {L"\"a\\\" c", "tttt.i"},
    {L"\"нет конца", "tttttttttt"},
    {L"1.5 2. 3.4.5", "999.9s.999s9"},
    {L"а /* б */ в", "i.ccccccc.i"},
    {L"конец */ И", "cccccccc.k", 1},
};
INSTANTIATE_TEST_SUITE_P(Lines, SslLine, testing::ValuesIn(sslLines));

TEST(Highlighters, AreChosenByTheExtensionInAnyLetterCase)
{
    for (const wchar_t* path : {L"a.c", L"a.h", L"A.CPP", L"a.hpp", L"a.cc", L"a.cxx", L"a.inl", L"C:\\x.ssl\\b.Cpp"})
        EXPECT_EQ(HighlighterOf(path), HighlightCpp);
    EXPECT_EQ(HighlighterOf(L"отчёт.SSL"), HighlightSsl);
}

TEST(Highlighters, AreNotThereForOtherFiles)
{
    for (const wchar_t* path : {L"", L"cpp", L"a.txt", L"a.cp", L"a.cppx", L"a.", L"C:\\x.cpp\\readme", L"x.cpp/b"})
        EXPECT_EQ(HighlighterOf(path), nullptr);
}

TEST(Highlighters, OverwriteEveryCharacterOfAnyLineAndNothingElse)
{
    constexpr std::wstring_view alphabet = L"/*\"'\\#()<>R=uUxL8 0e1.+-_aЖЕСЛИ\t\x2014\xFFFF";
    std::mt19937 random(20240501);
    for (int round = 0; round < 20000; ++round) {
        std::wstring line(random() % 24, L' ');
        for (wchar_t& ch : line)
            ch = alphabet[random() % alphabet.size()];
        const int inside = static_cast<int>(random() % 2);
        for (const Highlighter highlighter : {HighlightCpp, HighlightSsl}) {
            // No class has the code of a character of this alphabet, so what was left alone shows.
            const std::string classes = ClassesOf(highlighter, line, inside);
            ASSERT_EQ(classes.find('?'), std::string::npos) << "round " << round;
        }
    }
}

}  // namespace
