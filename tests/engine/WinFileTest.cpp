#ifdef _WIN32  // what only the files of Windows have

#include "tests/support/TestFolder.h"
#include "zsl/text_file_stream.h"

#include <gtest/gtest.h>

#include <windows.h>

using namespace zsl;

namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class WinFile : public testing::Test {
protected:
    void SetUp() override { folder.put("t", "old"); }
    void TearDown() override { hold_no_more(); }

    void hold(DWORD access, DWORD share)
    {
        m_held = ::CreateFileW(folder.file("t").c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(m_held, INVALID_HANDLE_VALUE);
    }
    void hold_no_more()
    {
        if (m_held != INVALID_HANDLE_VALUE)
            ::CloseHandle(m_held);
        m_held = INVALID_HANDLE_VALUE;
    }
    bool reads() const { return text_file_stream(folder.file("t"), file_stream_mode::read, text_encoding()).is_open(); }
    bool save(WStrView text) const
    {
        text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding());
        stream.write(text);
        return stream.close();
    }

    xTTestFolder folder;

private:
    HANDLE m_held = INVALID_HANDLE_VALUE;
};

}  // namespace

TEST_F(WinFile, LockedByAnotherIsRefused)
{
    hold(GENERIC_READ, 0);
    EXPECT_FALSE(reads());
    EXPECT_FALSE(save(L"new"));
    hold_no_more();
    EXPECT_EQ(folder.bytes("t"), "old");
    EXPECT_TRUE(reads());
}

TEST_F(WinFile, OpenForWritingElsewhereIsReadAllTheSame)
{
    hold(GENERIC_READ | GENERIC_WRITE, shareAll);
    EXPECT_TRUE(reads());
}

TEST_F(WinFile, ThatOthersMayOnlyReadIsReadAndNotSaved)
{
    hold(GENERIC_READ, FILE_SHARE_READ);
    EXPECT_TRUE(reads());
    EXPECT_FALSE(save(L"new"));
    hold_no_more();
    EXPECT_EQ(folder.bytes("t"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
}

TEST_F(WinFile, ThatMayBeWrittenButNotReplacedIsOverwritten)
{
    hold(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_TRUE(save(L"new and longer"));
    hold_no_more();
    EXPECT_EQ(folder.bytes("t"), "new and longer");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
}

TEST_F(WinFile, KeepsItsAttributes)
{
    constexpr DWORD wanted = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    ASSERT_TRUE(::SetFileAttributesW(folder.file("t").c_str(), wanted));
    const DWORD before = ::GetFileAttributesW(folder.file("t").c_str());
    if ((before & wanted) != wanted)
        GTEST_SKIP() << "the folder keeps no attributes";
    EXPECT_TRUE(save(L"new"));
    EXPECT_EQ(::GetFileAttributesW(folder.file("t").c_str()) & wanted, wanted);
    EXPECT_EQ(folder.bytes("t"), "new");
}

TEST_F(WinFile, WithTheReadOnlyAttributeIsReadAndNotSaved)
{
    ASSERT_TRUE(::SetFileAttributesW(folder.file("t").c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(reads());
    EXPECT_FALSE(save(L"new"));
    EXPECT_EQ(folder.bytes("t"), "old");
    ::SetFileAttributesW(folder.file("t").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WinFile, OfANameWithTheLongPathPrefixIsReadAndSaved)
{
    const WString path = L"\\\\?\\" + folder.file("t");
    text_file_stream stream(path, file_stream_mode::write, text_encoding());
    ASSERT_TRUE(stream.is_open());
    stream.write(L"new");
    EXPECT_TRUE(stream.close());
    EXPECT_TRUE(text_file_stream(path, file_stream_mode::read, text_encoding()).is_open());
    EXPECT_EQ(folder.bytes("t"), "new");
}

#endif
