#include "framework/base/ForeignBlocks.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

/// A list of files whose names begin at `names`, as a program puts it into a block.
std::string List(DWORD names, std::int32_t wide, std::string_view behindTheHead)
{
    const xTFileListHead head{names, 1, 2, 0, wide};
    std::string block(sizeof head, '\0');
    std::memcpy(block.data(), &head, sizeof head);
    return block.append(behindTheHead);
}

bool IsWhole(const std::string& block) { return IsWholeFileList(block.data(), block.size()); }

}  // namespace

TEST(ForeignBlocks, TextEndsWithItsTerminatorOrWithTheBlock)
{
    const WCHAR text[] = _T("ab\0c");
    EXPECT_EQ(WideTextOfBlock(text, sizeof text), _T("ab"));
    EXPECT_EQ(WideTextOfBlock(text, 4), _T("ab"));
    EXPECT_EQ(WideTextOfBlock(text, 3), _T("a"));  // and half a character
    EXPECT_EQ(WideTextOfBlock(text, 1), _T(""));
    EXPECT_EQ(WideTextOfBlock(nullptr, 0), _T(""));
    EXPECT_EQ(ByteTextOfBlock("ab\0c", 4), "ab");
    EXPECT_EQ(ByteTextOfBlock("ab", 2), "ab");
    EXPECT_EQ(ByteTextOfBlock(nullptr, 0), "");
}

TEST(ForeignBlocks, FileListEndsWithAnEmptyName)
{
    using namespace std::string_view_literals;
    EXPECT_TRUE(IsWhole(List(20, 0, "a\0b\0\0"sv)));
    EXPECT_FALSE(IsWhole(List(20, 0, "a\0b\0"sv)));
    EXPECT_FALSE(IsWhole(List(20, 0, "ab"sv)));
    EXPECT_TRUE(IsWhole(List(20, 0, "\0"sv)));
    EXPECT_TRUE(IsWhole(List(20, 1, "a\0\0\0\0\0"sv)));
    EXPECT_FALSE(IsWhole(List(20, 1, "a\0\0\0\0"sv)));  // half of the last terminator is missing
    EXPECT_FALSE(IsWhole(List(20, 1, "\0a\0\0\0b"sv)));  // zero bytes, but no character of two of them behind another
    EXPECT_TRUE(IsWhole(List(21, 1, "xa\0\0\0\0\0"sv)));
    EXPECT_TRUE(IsWhole(List(20, 1, "\0\0"sv)));
}

TEST(ForeignBlocks, FileListWithNamesOutsideItsBlockIsNone)
{
    const std::string good = List(20, 0, std::string(8, '\0'));
    EXPECT_TRUE(IsWhole(good));
    EXPECT_FALSE(IsWhole(List(19, 0, std::string(8, '\0'))));
    EXPECT_FALSE(IsWhole(List(28, 0, std::string(8, '\0'))));
    EXPECT_FALSE(IsWhole(List(0xFFFFFFFF, 0, std::string(8, '\0'))));
    EXPECT_FALSE(IsWhole(good.substr(0, 19)));
    EXPECT_FALSE(IsWhole(""));
}
