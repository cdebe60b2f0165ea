#include "framework/base/Platform.h"

#include "tests/support/LogFile.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

#include <array>

// Under Wine the questions about letters, code pages and files are answered by the system, natively by tables: both
// have to say the same here.

namespace {

WString Lower(WString text)
{
    PlatformLowerCase(text.data(), static_cast<std::int32_t>(text.size()));
    return text;
}

WString Upper(WString text)
{
    PlatformUpperCase(text.data(), static_cast<std::int32_t>(text.size()));
    return text;
}

TEST(PlatformLetters, LatinCyrillicAndGreekChangeCase)
{
    EXPECT_EQ(Lower(_T("ABCXYZ Ä\x0178 АБЯЁЇҐ ΑΣΩ")), _T("abcxyz ä\x00FF абяёїґ ασω"));
    EXPECT_EQ(Upper(_T("abcxyz ä\x00FF абяёїґ ασω")), _T("ABCXYZ Ä\x0178 АБЯЁЇҐ ΑΣΩ"));
}

TEST(PlatformLetters, WhatHasNoCaseStays)
{
    const WString signs = _T("0129 _@[`{ \x00D7\x00F7 \x2116 \x4E00 \t\n");
    EXPECT_EQ(Lower(signs), signs);
    EXPECT_EQ(Upper(signs), signs);
}

TEST(PlatformLetters, OnlyTheGivenCharactersChange)
{
    WString text = _T("ABCD");
    PlatformLowerCase(text.data() + 1, 2);
    EXPECT_EQ(text, _T("AbcD"));
    PlatformLowerCase(text.data(), 0);
    EXPECT_EQ(text, _T("AbcD"));
}

TEST(PlatformLetters, LowerUndoesUpperForSmallCyrillic)
{
    for (WCHAR ch = 0x0430; ch <= 0x045F; ++ch)
        EXPECT_EQ(Lower(Upper(WString(1, ch))), WString(1, ch)) << static_cast<unsigned>(ch);
}

class PlatformCodePages : public testing::TestWithParam<xTCodePage> {};

TEST_P(PlatformCodePages, AsciiStandsForItself)
{
    WString wide;
    std::string bytes;
    ASSERT_TRUE(PlatformToWide(GetParam(), "text \x7F\t", wide));
    EXPECT_EQ(wide, _T("text \x7F\t"));
    ASSERT_TRUE(PlatformToBytes(GetParam(), wide, false, bytes));
    EXPECT_EQ(bytes, "text \x7F\t");
}

TEST_P(PlatformCodePages, EveryByteComesBack)
{
    for (int value = 1; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        WString wide;
        std::string back;
        if (!PlatformToWide(GetParam(), byte, wide))
            continue;  // the system's page has no such character
        ASSERT_EQ(wide.size(), 1u) << value;
        ASSERT_TRUE(PlatformToBytes(GetParam(), wide, false, back)) << value;
        EXPECT_EQ(back, byte);
    }
}

TEST_P(PlatformCodePages, ACharacterWithoutAPlaceIsRefusedOrBecomesAQuestionMark)
{
    std::string bytes;
    EXPECT_FALSE(PlatformToBytes(GetParam(), _T("a\x4E00z"), false, bytes));
    EXPECT_TRUE(PlatformToBytes(GetParam(), _T("a\x4E00z"), true, bytes));
    EXPECT_EQ(bytes, "a?z");
}

TEST_P(PlatformCodePages, TheEmptyTextIsATextOfEveryPage)
{
    WString wide = _T("old");
    std::string bytes = "old";
    EXPECT_TRUE(PlatformToWide(GetParam(), "", wide));
    EXPECT_TRUE(wide.empty());
    EXPECT_TRUE(PlatformToBytes(GetParam(), WStrView(), false, bytes));
    EXPECT_TRUE(bytes.empty());
}

INSTANTIATE_TEST_SUITE_P(Both, PlatformCodePages, testing::Values(xTCodePage::ansi, xTCodePage::oem));

#ifndef _WIN32
TEST(PlatformNativePages, AnsiIs1251AndOemIs866)
{
    WString wide;
    ASSERT_TRUE(PlatformToWide(xTCodePage::ansi, "\xC0\xFF\xA8\xB9", wide));
    EXPECT_EQ(wide, _T("АяЁ№"));
    ASSERT_TRUE(PlatformToWide(xTCodePage::oem, "\x80\xEF\xF0\xFC", wide));
    EXPECT_EQ(wide, _T("АяЁ№"));
}
#endif

TEST(PlatformPages, AreAlignedAndWritable)
{
    constexpr std::size_t size = 64 * 1024;
    for (const std::size_t bytes : {size, 4 * size}) {
        auto* pages = static_cast<unsigned char*>(PlatformAllocPages(bytes));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pages) % size, 0u);
        pages[0] = pages[bytes - 1] = 1;
        PlatformFreePages(pages, bytes);
    }
}

TEST(PlatformFiles, AppendedTextGetsTheSystemsLineEnds)
{
    const xTLogFile log;
    std::array<WCHAR, 300> executable{};
    ASSERT_GT(PlatformExecutablePath(executable.data(), 300), 0);
    const WString path = WString(executable.data()).substr(0, WString(executable.data()).rfind(_T('\\'))) + _T("\\scrivctl.log");
    EXPECT_TRUE(PlatformAppendText(path.c_str(), "a\nb"));
    EXPECT_TRUE(PlatformAppendText(path.c_str(), "c\n\n"));
#ifdef _WIN32
    EXPECT_EQ(log.Bytes(), "a\r\nbc\r\n\r\n");
#else
    EXPECT_EQ(log.Bytes(), "a\nbc\n\n");
#endif
}

TEST(PlatformFiles, APathThatIsTooLongCannotBeWritten)
{
    EXPECT_FALSE(PlatformAppendText(WString(5000, _T('a')).c_str(), "text"));
}

class PlatformStandIn : public testing::Test {
protected:
    PlatformStandIn() { ResetNativePlatform(); }
    ~PlatformStandIn() override { ResetNativePlatform(); }

    static WString Typed(WCHAR ch, xTKeyLayout from, xTKeyLayout to)
    {
        const unsigned scan = PlatformKeyScan(ch, from);
        std::array<BYTE, 256> state{};
        state[0x10] = (scan & 0x100) != 0 ? 0xF0 : 0;
        std::array<WCHAR, 2> text{};
        const int count = PlatformKeyText(scan & 0xFF, PlatformScanCode(scan & 0xFF, to), state, to, text);
        return {text.data(), static_cast<std::size_t>(std::max(count, 0))};
    }
};

TEST_F(PlatformStandIn, KnowsTheKeysOfTwoLayouts)
{
    EXPECT_EQ(Typed(_T('q'), layoutEnglish, layoutRussian), _T("й"));
    EXPECT_EQ(Typed(_T('{'), layoutEnglish, layoutRussian), _T("Х"));
    EXPECT_EQ(Typed(_T('Ё'), layoutRussian, layoutEnglish), _T("~"));
    EXPECT_EQ(PlatformKeyScan(_T('й'), layoutEnglish), 0xFFFF);
    EXPECT_EQ(Typed(_T('й'), layoutEnglish, layoutRussian), _T(""));
}

TEST_F(PlatformStandIn, LayoutsFollowEachOtherInARing)
{
    EXPECT_EQ(PlatformKeyLayout(), layoutEnglish);
    PlatformNextKeyLayout();
    EXPECT_EQ(PlatformKeyLayout(), layoutRussian);
    PlatformNextKeyLayout();
    EXPECT_EQ(PlatformKeyLayout(), layoutEnglish);
}

TEST_F(PlatformStandIn, TheClipboardListsItsFormatsInOrder)
{
    NativePlatform().clipboard = {{2, _T("")}, {clipboardBytes, _T("\xC0z")}, {clipboardWide, _T("wide\0behind")}};
    NativePlatform().clipboardRefusals = 1;
    EXPECT_FALSE(PlatformOpenClipboard(nullptr));
    ASSERT_TRUE(PlatformOpenClipboard(nullptr));
    EXPECT_EQ(PlatformNextClipboardFormat(0), 2u);
    EXPECT_EQ(PlatformNextClipboardFormat(2), 1u);
    EXPECT_EQ(PlatformNextClipboardFormat(1), 13u);
    EXPECT_EQ(PlatformNextClipboardFormat(13), 0u);
    CString text;
    EXPECT_TRUE(PlatformReadClipboard(clipboardWide, text));
    EXPECT_EQ(text, _T("wide"));
    EXPECT_TRUE(PlatformReadClipboard(clipboardBytes, text));
    EXPECT_EQ(text.GetLength(), 2);
    EXPECT_FALSE(PlatformReadClipboard(7, text));
    PlatformWriteClipboard(_T("new"));
    EXPECT_EQ(PlatformNextClipboardFormat(0), 13u);
    PlatformCloseClipboard();
    EXPECT_FALSE(PlatformReadClipboard(clipboardWide, text));
}

TEST_F(PlatformStandIn, ABoxLongerThanItsRoomIsRecordedCut)
{
    PlatformMessageBox(WString(1000, _T('x')).c_str(), nullptr, xTBoxIcon::error);
    EXPECT_EQ(NativePlatform().LastBox().text().size(), 511u);
    EXPECT_TRUE(NativePlatform().LastBox().caption().empty());
    for (int i = 0; i < 40; ++i)
        PlatformMessageBox(_T("again"), _T("caption"), xTBoxIcon::none);
    EXPECT_EQ(NativePlatform().boxCount, 41);
    EXPECT_EQ(NativePlatform().LastBox().text(), _T("again"));
}

}  // namespace
