#include "tests/engine/HostileFiles.h"
#include "tests/support/TestFolder.h"
#include "zsl/text_file_stream.h"

#include <gtest/gtest.h>

using namespace zsl;
using std::filesystem::path;

namespace {

struct xTSaved {
    const char* name;
    std::uint32_t code;
    bool mark;
    bool crlf;
    const WCHAR* text;
    std::string_view bytes;
};

// What a text is in each encoding, as it is without a file before it and with the facts of one.
constexpr xTSaved saves[] = {
    {"DefaultIsUtf8", any, false, false, _T("a\n\u0416"), "a\n\xd0\x96"sv},
    {"DefaultWithCrLf", any, false, true, _T("a\n\u0416"), "a\r\n\xd0\x96"sv},
    {"DefaultWithMark", any, true, false, _T("a\n\u0416"), "\xef\xbb\xbf" "a\n\xd0\x96"sv},
    {"Utf8", utf8, false, false, _T("a\n\u0416"), "a\n\xd0\x96"sv},
    {"Utf8WithMarkAndCrLf", utf8, true, true, _T("a\n\u0416"), "\xef\xbb\xbf" "a\r\n\xd0\x96"sv},
    {"Utf8OfAPair", utf8, false, false, _T("\xd83d\xde00"), "\xf0\x9f\x98\x80"sv},
    {"Utf8OfALoneHighSurrogate", utf8, false, false, _T("a\xd83d" "b"), "a\xef\xbf\xbd" "b"sv},
    {"Utf8OfALoneHighSurrogateAtTheEnd", utf8, false, false, _T("a\xd83d"), "a\xef\xbf\xbd"sv},
    {"Utf8OfALoneLowSurrogate", utf8, false, false, _T("\xde00" "b"), "\xef\xbf\xbd" "b"sv},
    {"Utf16WithoutMark", le, false, false, _T("a\n"), "a\0\n\0"sv},
    {"Utf16WithMark", le, true, false, _T("a\n"), "\xff\xfe" "a\0\n\0"sv},
    {"Utf16WithCrLf", le, true, true, _T("a\n"), "\xff\xfe" "a\0\r\0\n\0"sv},
    {"Utf16OfALoneSurrogate", le, true, false, _T("\xd83d"), "\xff\xfe\x3d\xd8"sv},
    {"BigUtf16WithoutMark", be, false, false, _T("a\n"), "\0a\0\n"sv},
    {"BigUtf16WithMarkAndCrLf", be, true, true, _T("a\n"), "\xfe\xff\0a\0\r\0\n"sv},
    {"Ansi", ansi, false, false, _T("a\nb"), "a\nb"sv},
    {"AnsiWithCrLf", ansi, false, true, _T("a\nb"), "a\r\nb"sv},
    {"AnsiHasNoMark", ansi, true, false, _T("a"), "a"sv},
    {"Oem", oem, false, true, _T("a\nb"), "a\r\nb"sv},
    {"Zero", zero, false, false, _T("a\nb"), "a\nb"sv},
    {"EmptyUtf8", utf8, false, true, _T(""), ""sv},
    {"EmptyUtf8WithMark", utf8, true, false, _T(""), "\xef\xbb\xbf"sv},
    {"EmptyUtf16WithMark", be, true, false, _T(""), "\xfe\xff"sv},
    {"FirstCharacterThatLooksLikeAMark", utf8, false, false, _T("\ufeff" "a"), "\xef\xbb\xbf\xef\xbb\xbf" "a"sv},
    {"FirstCharacterThatLooksLikeAMarkInUtf16", le, false, false, _T("\ufeff"), "\xff\xfe\xff\xfe"sv},
    {"FirstCharacterThatLooksLikeATurnedMark", le, false, false, _T("\xfffe"), "\xff\xfe\xfe\xff"sv},
    {"FirstCharacterFffeInUtf8", utf8, false, false, _T("\xfffe"), "\xef\xbf\xbe"sv},
};

class SavedText : public testing::TestWithParam<xTSaved> {
protected:
    xTTestFolder folder;
};

class TextFileStream : public testing::Test {
protected:
    bool save(const path& name, WStrView text, const text_encoding& encoding = text_encoding()) const
    {
        text_file_stream stream(folder.file(name), file_stream_mode::write, encoding);
        if (!stream.is_open())
            return false;
        stream.write(text);
        return stream.flush() && stream.close();
    }
    bool opens(const path& name) const
    {
        return text_file_stream(folder.file(name), file_stream_mode::read, text_encoding()).is_open();
    }

    xTTestFolder folder;
};

}  // namespace

TEST_P(SavedText, IsTheBytesItHasToBe)
{
    const xTSaved& save = GetParam();
    const text_encoding encoding = encoding_of_code(save.code).with_facts(save.mark, save.crlf);
    text_file_stream stream(folder.file("t"), file_stream_mode::write, encoding);
    ASSERT_TRUE(stream.is_open());
    stream.write_solid_text(save.text);
    EXPECT_TRUE(stream.flush());
    EXPECT_TRUE(stream.close());
    EXPECT_EQ(folder.bytes("t"), save.bytes);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
}

TEST_P(SavedText, IsTheSameWrittenCharacterByCharacter)
{
    const xTSaved& save = GetParam();
    const text_encoding encoding = encoding_of_code(save.code).with_facts(save.mark, save.crlf);
    text_file_stream stream(folder.file("t"), file_stream_mode::write, encoding);
    for (const WCHAR* ch = save.text; *ch; ++ch) {
        stream.write_char(*ch);
        EXPECT_TRUE(stream.flush());
    }
    EXPECT_TRUE(stream.close());
    EXPECT_EQ(folder.bytes("t"), save.bytes);
}

INSTANTIATE_TEST_SUITE_P(Table, SavedText, testing::ValuesIn(saves),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(TextFileStream, ReadsEveryHostileFileAndWritesItAgainTheSame)
{
    for (const xTHostileFile& file : hostileFiles) {
        SCOPED_TRACE(file.name);
        folder.put("in", file.bytes);
        text_file_stream in(folder.file("in"), file_stream_mode::read, encoding_of_code(file.asked));
        ASSERT_EQ(in.is_open(), file.found >= 0);
        if (!in.is_open())
            continue;
        WString text;
        ASSERT_TRUE(in.read_solid_text(text));
        EXPECT_EQ(code_of_encoding(in.get_encoding()), static_cast<std::uint32_t>(file.found));
        ASSERT_TRUE(save("in", text, in.get_encoding()));
        EXPECT_EQ(folder.bytes("in"), file.bytes);
    }
}

TEST_F(TextFileStream, WritesATextWithoutAFileBeforeItWithPlainLineFeedsAndNoMarkButInUtf16)
{
    EXPECT_TRUE(save("u8", _T("a\nb"), encoding_of_code(2)));
    EXPECT_EQ(folder.bytes("u8"), "a\nb");
    EXPECT_TRUE(save("u16", _T("\n"), encoding_of_code(4)));
    EXPECT_EQ(folder.bytes("u16"), "\xff\xfe\n\0"sv);
    EXPECT_TRUE(save("u16b", _T("\n"), encoding_of_code(5)));
    EXPECT_EQ(folder.bytes("u16b"), "\xfe\xff\0\n"sv);
}

TEST_F(TextFileStream, WritesNothingAsAnEmptyFileInEveryEncoding)
{
    for (std::uint32_t code = 0; code <= 6; ++code) {
        folder.put("t", "old");
        EXPECT_TRUE(save("t", {}, encoding_of_code(code)));
        EXPECT_EQ(folder.bytes("t"), "") << code;
    }
}

TEST_F(TextFileStream, IsNotOpenForWhatIsNoFile)
{
    EXPECT_FALSE(opens("missing"));
    EXPECT_FALSE(opens(path("missing") / "t"));
    EXPECT_FALSE(opens("."));
    EXPECT_FALSE(text_file_stream(WString(), file_stream_mode::read, text_encoding()).is_open());
    EXPECT_FALSE(text_file_stream(WString(), file_stream_mode::write, text_encoding()).is_open());
    const WString withZero = folder.file("t") + WCHAR{} + _T("x");
    EXPECT_FALSE(text_file_stream(withZero, file_stream_mode::write, text_encoding()).is_open());
    EXPECT_FALSE(save(".", _T("a")));
    EXPECT_FALSE(save(path("missing") / "t", _T("a")));
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(TextFileStream, IsNotOpenForADevice)
{
#ifdef _WIN32
    for (const WCHAR* name : {L"CON", L"NUL", L"nul", L"CONIN$", L"COM1", L"\\\\.\\NUL", L"\\\\.\\C:",
                              L"\\\\.\\pipe\\x"}) {
#else
    for (const WCHAR* name : {_T("/dev/null"), _T("/dev/zero"), _T("/dev/tty"), _T("/dev")}) {
#endif
        EXPECT_FALSE(text_file_stream(name, file_stream_mode::read, text_encoding()).is_open());
        EXPECT_FALSE(text_file_stream(name, file_stream_mode::write, text_encoding()).is_open());
    }
}

TEST_F(TextFileStream, IsNotOpenInAnyOtherMode)
{
    folder.put("t", "old");
    for (const unsigned mode : {0u, 2u, 3u, 0x20001u, 0xffffffffu})
        EXPECT_FALSE(text_file_stream(folder.file("t"), file_stream_mode(mode), text_encoding()).is_open());
    EXPECT_EQ(folder.bytes("t"), "old");
}

TEST_F(TextFileStream, HandsTheTextOverOnce)
{
    folder.put("t", "abc");
    text_file_stream stream(folder.file("t"), file_stream_mode::read, text_encoding());
    WString text = _T("old");
    EXPECT_TRUE(stream.read_solid_text(text));
    EXPECT_TRUE(text == _T("abc"));
    EXPECT_TRUE(stream.read_solid_text(text));
    EXPECT_TRUE(text.empty());
    EXPECT_TRUE(stream.close());
    EXPECT_FALSE(stream.is_open());
    EXPECT_FALSE(stream.read_solid_text(text));
    EXPECT_FALSE(stream.close());
}

TEST_F(TextFileStream, DoesNotReadWhatItWrites)
{
    text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding());
    stream.write_char(_T('a'));
    WString text = _T("old");
    EXPECT_FALSE(stream.read_solid_text(text));
    EXPECT_TRUE(text.empty());
}

TEST_F(TextFileStream, DoesNotWriteToWhatItReads)
{
    folder.put("t", "abc");
    text_file_stream stream(folder.file("t"), file_stream_mode::read, text_encoding());
    stream.write(_T("x"));
    EXPECT_FALSE(stream.flush());
    EXPECT_TRUE(stream.close());
    EXPECT_EQ(folder.bytes("t"), "abc");
}

TEST_F(TextFileStream, ReplacesTheFileOnlyInClose)
{
    folder.put("t", "old");
    text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding());
    stream.write(_T("new"));
    EXPECT_TRUE(stream.flush());
    EXPECT_EQ(folder.bytes("t"), "old");
    EXPECT_TRUE(stream.close());
    EXPECT_EQ(folder.bytes("t"), "new");
    EXPECT_FALSE(stream.flush());
    EXPECT_FALSE(stream.close());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
}

TEST_F(TextFileStream, LeavesTheFileAsItIsWhenItDiesWithoutClose)
{
    folder.put("t", "old");
    {
        text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding());
        stream.write(_T("new"));
        EXPECT_TRUE(stream.flush());
    }
    EXPECT_EQ(folder.bytes("t"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
}

TEST_F(TextFileStream, FailsForACharacterThatTheEncodingCannotHoldAndLeavesTheFileAsItWas)
{
    for (const std::uint32_t code : {ansi, oem, zero}) {
        for (const WCHAR* text : {_T("\u4e2d"), _T("a\xd83d"), _T("\xd83d\xde00"), _T("a\ufffd")}) {
            folder.put("t", "old");
            EXPECT_FALSE(save("t", text, encoding_of_code(code)));
            EXPECT_FALSE(save("new", text, encoding_of_code(code)));
            EXPECT_EQ(folder.bytes("t"), "old");
            EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
        }
    }
}

TEST_F(TextFileStream, TellsTheFailureInCloseWithoutAFlush)
{
    folder.put("t", "old");
    text_file_stream stream(folder.file("t"), file_stream_mode::write, encoding_of_code(ansi));
    stream.write(_T("\u4e2d"));
    EXPECT_FALSE(stream.close());
    EXPECT_EQ(folder.bytes("t"), "old");
}

TEST_F(TextFileStream, GoesOnWritingNothingAfterAFailure)
{
    folder.put("t", "old");
    text_file_stream stream(folder.file("t"), file_stream_mode::write, encoding_of_code(ansi));
    stream.write(_T("\u4e2d"));
    EXPECT_FALSE(stream.flush());
    stream.write(_T("good"));
    EXPECT_FALSE(stream.flush());
    EXPECT_FALSE(stream.close());
    EXPECT_EQ(folder.bytes("t"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
}

TEST_F(TextFileStream, KeepsAPairWholeAcrossWritesAndPieces)
{
    WString text(16383, _T('a'));
    text += _T("\xd83d\xde00");
    EXPECT_TRUE(save("t", text));
    EXPECT_EQ(folder.bytes("t"), std::string(16383, 'a') + "\xf0\x9f\x98\x80");
    text_file_stream stream(folder.file("u"), file_stream_mode::write, text_encoding());
    stream.write_char(0xd83d);
    EXPECT_TRUE(stream.flush());
    stream.write_char(0xde00);
    EXPECT_TRUE(stream.close());
    EXPECT_EQ(folder.bytes("u"), "\xf0\x9f\x98\x80");
}

TEST_F(TextFileStream, WritesLongTextsInAllEncodings)
{
    WString text;
    std::string bytes;
    for (int i = 0; i < 100000; ++i) {
        text += _T("line\n");
        bytes += "line\r\n";
    }
    for (const std::uint32_t code : {any, ansi, utf8, oem}) {
        EXPECT_TRUE(save("t", text, encoding_of_code(code).with_crlf()));
        EXPECT_TRUE(folder.bytes("t") == bytes);
    }
    EXPECT_TRUE(save("t", text, encoding_of_code(be)));
    text_file_stream stream(folder.file("t"), file_stream_mode::read, text_encoding());
    WString again;
    EXPECT_TRUE(stream.read_solid_text(again));
    EXPECT_TRUE(again == text);
}

TEST_F(TextFileStream, WritesNothingForANullText)
{
    text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding());
    stream.write_solid_text(nullptr);
    EXPECT_TRUE(stream.close());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
    EXPECT_EQ(folder.bytes("t"), "");
}

TEST_F(TextFileStream, TakesPathsOfAnyLength)
{
    path deep;
    for (int i = 0; i < 5; ++i)
        deep /= std::string(60, static_cast<char>('a' + i));
#ifdef _WIN32
    std::filesystem::create_directories(L"\\\\?\\" + folder.file(deep));
#else
    std::filesystem::create_directories(folder.path() / deep);
#endif
    EXPECT_TRUE(save(deep / "t", _T("first")));
    EXPECT_TRUE(save(deep / "t", _T("second")));
    text_file_stream stream(folder.file(deep / "t"), file_stream_mode::read, text_encoding());
    WString text;
    EXPECT_TRUE(stream.read_solid_text(text));
    EXPECT_TRUE(text == _T("second"));
}

TEST_F(TextFileStream, TakesNamesInAnyScript)
{
    const path name = u"\u0416\u4e2d \u00e9.txt";
    EXPECT_TRUE(save(name, _T("a")));
    EXPECT_EQ(folder.bytes(name), "a");
    EXPECT_TRUE(opens(name));
}

TEST_F(TextFileStream, RefusesAFileThatMayNotBeWritten)
{
    folder.put("t", "old");
    using std::filesystem::perms;
    permissions(folder.path() / "t", perms::owner_write | perms::group_write | perms::others_write,
                std::filesystem::perm_options::remove);
    EXPECT_FALSE(text_file_stream(folder.file("t"), file_stream_mode::write, text_encoding()).is_open());
    EXPECT_EQ(folder.bytes("t"), "old");
    EXPECT_TRUE(opens("t"));
    permissions(folder.path() / "t", perms::owner_write, std::filesystem::perm_options::add);
}

TEST_F(TextFileStream, OverwritesAFileOfSeveralNamesInPlace)
{
    folder.put("t", "old");
    std::error_code error;
    std::filesystem::create_hard_link(folder.path() / "t", folder.path() / "other", error);
    if (error)
        GTEST_SKIP() << "no hard links here";
    for (const WCHAR* text : {_T("longer than before"), _T("x"), _T("")}) {
        EXPECT_TRUE(save("t", text));
        EXPECT_EQ(folder.bytes("t").size(), WStrView(text).size());
        EXPECT_EQ(folder.bytes("other"), folder.bytes("t"));
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"other", "t"}));
}
