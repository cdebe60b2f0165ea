#pragma once

#include "framework/base/WinTypes.h"

#include <cstdint>
#include <string_view>

/// A file made by hand to be misread, and how it has to read.
struct xTHostileFile {
    const char* name;
    std::string_view bytes;
    std::uint32_t asked;  ///< a code of hosts
    int found;            ///< the code of hosts that is told back; -1 for a file that is refused
    const WCHAR* text;    ///< null for an 8-bit text: that depends on the system's code page
    bool mark = false;
    bool crlf = false;
};

using namespace std::string_view_literals;

constexpr std::uint32_t any = 0, ansi = 1, utf8 = 2, oem = 3, le = 4, be = 5, zero = 77;
constexpr int refused = -1;
constexpr const WCHAR* eightBit = nullptr;

inline constexpr xTHostileFile hostileFiles[] = {
    // Nothing, or next to nothing
    {"EmptyAsAny", ""sv, any, any, _T("")},
    {"EmptyAsAnsi", ""sv, ansi, ansi, _T("")},
    {"EmptyAsUtf8", ""sv, utf8, utf8, _T("")},
    {"EmptyAsUtf16", ""sv, le, le, _T(""), true},
    {"EmptyAsBigUtf16", ""sv, be, be, _T(""), true},
    {"OneLetter", "a"sv, any, any, _T("a")},
    {"OneLineFeed", "\n"sv, any, any, _T("\n")},
    {"OneReturn", "\r"sv, any, any, _T("\r")},
    {"OneCrLf", "\r\n"sv, any, any, _T("\n"), false, true},
    {"OneZero", "\0"sv, any, refused, _T("")},
    {"OneZeroAsUtf16", "\0"sv, le, refused, _T("")},
    {"OneHighByte", "\xff"sv, any, ansi, eightBit},
    {"OneHighByteAsOem", "\x80"sv, oem, oem, eightBit},
    {"OneContinuation", "\x80"sv, any, ansi, eightBit},
    {"Escape", "\x1b[0m"sv, any, any, _T("\x1b[0m")},
    {"Delete", "\x7f"sv, any, any, _T("\x7f")},
    {"EndOfFileCharacter", "a\x1a" "b"sv, any, any, _T("a\x1a" "b")},

    // Plain ASCII counts as what was asked for
    {"AsciiAsAny", "plain"sv, any, any, _T("plain")},
    {"AsciiAsAnsi", "plain"sv, ansi, ansi, _T("plain")},
    {"AsciiAsOem", "plain"sv, oem, oem, _T("plain")},
    {"AsciiAsUtf8", "plain"sv, utf8, utf8, _T("plain")},
    {"AsciiAsZero", "plain"sv, zero, any, _T("plain")},
    {"AsciiAsUtf16IsPairsOfLetters", "plai"sv, le, le, _T("\u6c70\u6961")},
    {"AsciiAsBigUtf16IsPairsOfLetters", "plai"sv, be, be, _T("\u706c\u6169")},
    {"AsciiAsUtf16OfOddLength", "plain"sv, le, refused, _T("")},

    // Marks
    {"Utf8MarkOnly", "\xef\xbb\xbf"sv, any, utf8, _T(""), true},
    {"LittleMarkOnly", "\xff\xfe"sv, any, le, _T(""), true},
    {"BigMarkOnly", "\xfe\xff"sv, any, be, _T(""), true},
    {"HalfUtf8Mark", "\xef\xbb"sv, any, ansi, eightBit},
    {"FirstByteOfUtf8Mark", "\xef"sv, any, ansi, eightBit},
    {"FirstByteOfLittleMark", "\xff"sv, utf8, ansi, eightBit},
    {"FirstByteOfBigMark", "\xfe"sv, oem, oem, eightBit},
    {"Utf8MarkAndAscii", "\xef\xbb\xbf" "a"sv, any, utf8, _T("a"), true},
    {"Utf8MarkAsAnsi", "\xef\xbb\xbf" "a"sv, ansi, utf8, _T("a"), true},
    {"Utf8MarkAsOem", "\xef\xbb\xbf" "a"sv, oem, utf8, _T("a"), true},
    {"Utf8MarkAsUtf16", "\xef\xbb\xbf" "a"sv, le, utf8, _T("a"), true},
    {"Utf8MarkAsUtf16OfOddLength", "\xef\xbb\xbf"sv, be, utf8, _T(""), true},
    {"LittleMarkAsUtf8", "\xff\xfe" "a\0"sv, utf8, le, _T("a"), true},
    {"LittleMarkAsBig", "\xff\xfe" "a\0"sv, be, le, _T("a"), true},
    {"BigMarkAsLittle", "\xfe\xff\0a"sv, le, be, _T("a"), true},
    {"BigMarkAsAnsi", "\xfe\xff\0a"sv, ansi, be, _T("a"), true},
    {"TwoUtf8Marks", "\xef\xbb\xbf\xef\xbb\xbf" "a"sv, any, utf8, _T("\ufeff" "a"), true},
    {"TwoLittleMarks", "\xff\xfe\xff\xfe" "a\0"sv, any, le, _T("\ufeff" "a"), true},
    {"TwoBigMarks", "\xfe\xff\xfe\xff\0a"sv, any, be, _T("\ufeff" "a"), true},
    {"LittleMarkThenBigMark", "\xff\xfe\xfe\xff"sv, any, le, _T("\xfffe"), true},
    {"MarkInTheMiddle", "a\xef\xbb\xbf" "b"sv, any, utf8, _T("a\ufeff" "b")},
    {"MarkAtTheEnd", "a\xef\xbb\xbf"sv, any, utf8, _T("a\ufeff")},
    {"Utf32LittleMark", "\xff\xfe\0\0a\0\0\0"sv, any, refused, _T("")},
    {"Utf32BigMark", "\0\0\xfe\xff\0\0\0a"sv, any, refused, _T("")},
    {"Utf7Mark", "+/v8-"sv, any, any, _T("+/v8-")},
    {"Utf8MarkBeforeWhatIsNotUtf8", "\xef\xbb\xbf\xff"sv, any, ansi, eightBit},
    {"Utf8MarkBeforeACutCharacter", "\xef\xbb\xbf\xd0"sv, any, ansi, eightBit},
    {"Utf8MarkBeforeWhatIsNotUtf8AsOem", "\xef\xbb\xbf\xff"sv, oem, oem, eightBit},
    {"Utf8MarkBeforeWhatIsNotUtf8AsUtf16", "\xef\xbb\xbf\xff"sv, le, le, _T("\xbbef\xffbf")},
    {"Utf8MarkBeforeAZero", "\xef\xbb\xbf\0"sv, any, refused, _T("")},

    // UTF-8, its forms and what only looks like them
    {"TwoByteForm", "\xd0\x96"sv, any, utf8, _T("\u0416")},
    {"TwoByteFormAsAnsi", "\xd0\x96"sv, ansi, utf8, _T("\u0416")},
    {"TwoByteFormAsOem", "\xd0\x96"sv, oem, utf8, _T("\u0416")},
    {"TwoByteFormAsZero", "\xd0\x96"sv, zero, utf8, _T("\u0416")},
    {"TwoByteFormAsUtf16", "\xd0\x96"sv, le, le, _T("\x96d0")},
    {"LowestTwoByteForm", "\xc2\x80"sv, any, utf8, _T("\x80")},
    {"HighestTwoByteForm", "\xdf\xbf"sv, any, utf8, _T("\x7ff")},
    {"LowestThreeByteForm", "\xe0\xa0\x80"sv, any, utf8, _T("\x800")},
    {"HighestThreeByteForm", "\xef\xbf\xbf"sv, any, utf8, _T("\xffff")},
    {"BeforeTheSurrogates", "\xed\x9f\xbf"sv, any, utf8, _T("\xd7ff")},
    {"BehindTheSurrogates", "\xee\x80\x80"sv, any, utf8, _T("\xe000")},
    {"ReplacementCharacter", "\xef\xbf\xbd"sv, any, utf8, _T("\xfffd")},
    {"LowestFourByteForm", "\xf0\x90\x80\x80"sv, any, utf8, _T("\xd800\xdc00")},
    {"HighestFourByteForm", "\xf4\x8f\xbf\xbf"sv, any, utf8, _T("\xdbff\xdfff")},
    {"FourByteForm", "\xf0\x9f\x98\x80"sv, any, utf8, _T("\xd83d\xde00")},
    {"OverlongZero", "\xc0\x80"sv, any, ansi, eightBit},
    {"OverlongSlash", "\xc0\xaf"sv, utf8, ansi, eightBit},
    {"OverlongDelete", "\xc1\xbf"sv, any, ansi, eightBit},
    {"OverlongZeroInThree", "\xe0\x80\x80"sv, any, ansi, eightBit},
    {"OverlongInThree", "\xe0\x9f\xbf"sv, any, ansi, eightBit},
    {"OverlongInFour", "\xf0\x8f\xbf\xbf"sv, any, ansi, eightBit},
    {"OverlongZeroInFour", "\xf0\x80\x80\x80"sv, any, ansi, eightBit},
    {"HighSurrogate", "\xed\xa0\x80"sv, any, ansi, eightBit},
    {"LowSurrogate", "\xed\xbf\xbf"sv, any, ansi, eightBit},
    {"SurrogatePairInSixBytes", "\xed\xa0\xbd\xed\xb8\x80"sv, any, ansi, eightBit},
    {"BeyondTheLastCharacter", "\xf4\x90\x80\x80"sv, any, ansi, eightBit},
    {"FarBeyondTheLastCharacter", "\xf7\xbf\xbf\xbf"sv, any, ansi, eightBit},
    {"FiveByteForm", "\xf8\x88\x80\x80\x80"sv, any, ansi, eightBit},
    {"SixByteForm", "\xfc\x84\x80\x80\x80\x80"sv, any, ansi, eightBit},
    {"CutTwoByteForm", "a\xd0"sv, any, ansi, eightBit},
    {"CutThreeByteForm", "a\xe2\x82"sv, any, ansi, eightBit},
    {"CutThreeByteFormAfterOne", "a\xe2"sv, any, ansi, eightBit},
    {"CutFourByteForm", "a\xf0\x9f\x98"sv, any, ansi, eightBit},
    {"CutFourByteFormAfterTwo", "a\xf0\x9f"sv, any, ansi, eightBit},
    {"CutFourByteFormAfterOne", "a\xf0"sv, any, ansi, eightBit},
    {"LetterInsteadOfAContinuation", "\xd0" "a"sv, any, ansi, eightBit},
    {"LetterInsteadOfTheThirdByte", "\xe2\x82" "a"sv, any, ansi, eightBit},
    {"LetterInsteadOfTheFourthByte", "\xf0\x9f\x98" "a"sv, any, ansi, eightBit},
    {"LeadInsteadOfAContinuation", "\xd0\xd0\x96"sv, any, ansi, eightBit},
    {"OneContinuationTooMany", "\xd0\x96\x96"sv, any, ansi, eightBit},
    {"OneBadByteBehindGoodText", "\xd0\x96\xd0\x96\xd0\x96\xff"sv, any, ansi, eightBit},
    {"OneBadByteAsOem", "\xd0\x96\xff"sv, oem, oem, eightBit},
    {"OneBadByteAsUtf8", "\xd0\x96\xfe\xff"sv, utf8, ansi, eightBit},
    {"OneBadByteAsZero", "\xd0\x96\xff"sv, zero, ansi, eightBit},
    {"BadByteBehind31Letters", "0123456789012345678901234567890\xff"sv, any, ansi, eightBit},
    {"BadByteBehind32Letters", "01234567890123456789012345678901\xff"sv, any, ansi, eightBit},
    {"CharacterAcrossTheStep", "0123456789012345678901234567890\xf0\x9f\x98\x80" "0123456789"sv, any, utf8,
     _T("0123456789012345678901234567890\xd83d\xde00" "0123456789")},
    {"CutCharacterAcrossTheStep", "0123456789012345678901234567890\xf0\x9f\x98"sv, any, ansi, eightBit},

    // Zero characters
    {"ZeroInAscii", "a\0b"sv, any, refused, _T("")},
    {"ZeroAtTheEnd", "a\0"sv, any, refused, _T("")},
    {"ZeroInUtf8", "\xd0\x96\0"sv, any, refused, _T("")},
    {"ZeroInAnsi", "\xff\0"sv, ansi, refused, _T("")},
    {"ZeroInOem", "\xff\0"sv, oem, refused, _T("")},
    {"ZeroBehindALongText", "0123456789012345678901234567890123456789\0"sv, any, refused, _T("")},
    {"Utf16WithoutItsMark", "a\0b\0"sv, any, refused, _T("")},
    {"ZeroInUtf16", "\xff\xfe" "a\0\0\0b\0"sv, any, refused, _T("")},
    {"ZeroInBigUtf16", "\xfe\xff\0a\0\0"sv, any, refused, _T("")},

    // UTF-16
    {"Utf16AsAsked", "a\0b\0"sv, le, le, _T("ab")},
    {"BigUtf16AsAsked", "\0a\0b"sv, be, be, _T("ab")},
    {"OddUtf16", "\xff\xfe" "a\0b"sv, any, refused, _T("")},
    {"OddBigUtf16", "\xfe\xff\0a\0"sv, any, refused, _T("")},
    {"OddUtf16OfOneByte", "\xff\xfe" "a"sv, any, refused, _T("")},
    {"OddUtf16AsAsked", "a\0b"sv, le, refused, _T("")},
    {"LoneHighSurrogateInUtf16", "\xff\xfe\x3d\xd8"sv, any, le, _T("\xd83d"), true},
    {"LoneLowSurrogateInUtf16", "\xfe\xff\xde\x00" "\0a"sv, any, be, _T("\xde00" "a"), true},
    {"TurnedPairInUtf16", "\x00\xde\x3d\xd8"sv, le, le, _T("\xde00\xd83d")},
    {"NoncharacterInUtf16", "\xff\xff"sv, le, le, _T("\xffff")},
    {"CrLfInUtf16", "\xff\xfe" "a\0\r\0\n\0"sv, any, le, _T("a\n"), true, true},
    {"CrLfInBigUtf16", "\0a\0\r\0\n"sv, be, be, _T("a\n"), false, true},
    {"BytesOfCrLfInUtf16", "\x0d\x0a"sv, le, le, _T("\x0a0d")},
    {"LineFeedsInUtf16", "\n\0\n\0"sv, le, le, _T("\n\n")},

    // Line ends
    {"LineFeeds", "a\nb\n"sv, any, any, _T("a\nb\n")},
    {"CrLf", "a\r\nb\r\n"sv, any, any, _T("a\nb\n"), false, true},
    {"CrLfWithoutTheLast", "a\r\nb"sv, any, any, _T("a\nb"), false, true},
    {"CrLfAsAnsi", "a\r\nb"sv, ansi, ansi, _T("a\nb"), false, true},
    {"CrLfInUtf8", "\xd0\x96\r\n"sv, any, utf8, _T("\u0416\n"), false, true},
    {"CrLfBehindAMark", "\xef\xbb\xbf\r\n"sv, any, utf8, _T("\n"), true, true},
    {"CrLfIn8Bit", "\xff\r\n"sv, any, ansi, eightBit, false, true},
    {"OnlyCrLf", "\r\n\r\n\r\n"sv, any, any, _T("\n\n\n"), false, true},
    {"CrLfThenLineFeed", "a\r\nb\n"sv, any, any, _T("a\r\nb\n")},
    {"LineFeedThenCrLf", "a\nb\r\n"sv, any, any, _T("a\nb\r\n")},
    {"CrLfAndALoneReturn", "a\r\nb\rc"sv, any, any, _T("a\r\nb\rc")},
    {"CrLfAndAReturnAtTheEnd", "a\r\n\r"sv, any, any, _T("a\r\n\r")},
    {"TwoReturnsAndALineFeed", "a\r\r\nb"sv, any, any, _T("a\r\r\nb")},
    {"LineFeedReturn", "a\n\rb"sv, any, any, _T("a\n\rb")},
    {"LineFeedReturnLineFeed", "a\n\r\n"sv, any, any, _T("a\n\r\n")},
    {"ReturnsOnly", "a\rb\r"sv, any, any, _T("a\rb\r")},
    {"LoneReturnsIn8Bit", "\xff\r\r"sv, any, ansi, eightBit},
    {"NextLineAndSeparators", "a\xc2\x85\xe2\x80\xa8\xe2\x80\xa9"sv, any, utf8, _T("a\x85\x2028\x2029")},
};
