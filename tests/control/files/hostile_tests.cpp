// Files made to be misread, through the exports: what the control takes of each, and what it writes again.

#include "tests/control/files/LongFiles.h"
#include "tests/control/files/NaiveFile.h"
#include "tests/support/TestFolder.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/MessageBoxes.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr const wchar_t* oldText = L"the old text\nof the control";

/// One control for all files, its text set anew for each.
class FileInAControl : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        host = std::make_unique<ControlHost>();
        control = host->Show(oldText);
    }
    static void TearDownTestSuite() { host.reset(); }

    void SetUp() override { edLoadText(control, oldText, 1); }
    void TearDown() override { EXPECT_EQ(log.News(), ""); }

    [[nodiscard]] BOOL Load(std::string_view bytes, UINT32* code) const
    {
        folder.put("t", bytes);
        return edLoadFile(control, folder.file("t").c_str(), code);
    }
    void ExpectRefused(std::string_view bytes, UINT32 asked) const
    {
        MessageBoxes boxes;
        UINT32 code = asked;
        EXPECT_FALSE(Load(bytes, &code));
        EXPECT_EQ(code, asked);
        EXPECT_EQ(boxes.texts, std::vector<std::wstring>{L"Невозможно открыть указанный файл"});
        EXPECT_EQ(TextOf(control), oldText);
    }
    void ExpectLoaded(std::string_view bytes, UINT32 asked, int found, const std::wstring& text) const
    {
        const MessageBoxes boxes;  // one that is not looked for shall not wait for a user
        UINT32 code = asked;
        ASSERT_TRUE(Load(bytes, &code));
        EXPECT_EQ(code, static_cast<UINT32>(found));
        EXPECT_TRUE(TextOf(control) == (text.empty() ? oldText : AsLoaded(text)));
    }
    void ExpectSavedAgain(int code, const std::wstring& text, bool mark, bool crlf) const
    {
        ASSERT_TRUE(edSaveFile(control, folder.file("t").c_str(), static_cast<UINT32>(code)));
        const std::wstring saved = AsSaved(text);
        EXPECT_TRUE(folder.bytes("t") == FileOf(saved, code, mark, crlf));
        EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
    }

    static inline std::unique_ptr<ControlHost> host;
    static inline HWND control = nullptr;
    xTTestFolder folder;
    HostLog log;
};

class HostileFileInAControl : public FileInAControl, public testing::WithParamInterface<xTHostileFile> {};
class LongFileInAControl : public FileInAControl, public testing::WithParamInterface<LongFile> {};

/// @return false where the file system knows no holes, so that the file would fill the disk
bool MakeFileOfHoles(const std::wstring& path, LONGLONG bytes)
{
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    LARGE_INTEGER end;
    end.QuadPart = bytes;
    const bool made = ::SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && ::SetEndOfFile(file);
    ::CloseHandle(file);
    return made;
}

}  // namespace

TEST_P(HostileFileInAControl, IsTakenAndWrittenAgainAsItHasToBe)
{
    const xTHostileFile& file = GetParam();
    if (file.found < 0)
        return ExpectRefused(file.bytes, file.asked);
    const std::wstring text = file.text ? file.text : [&] {
        std::wstring wide = EightBitText(file.bytes, file.found);
        if (file.crlf)
            std::erase(wide, L'\r');
        return wide;
    }();
    ASSERT_NO_FATAL_FAILURE(ExpectLoaded(file.bytes, file.asked, file.found, text));
    if (!text.empty())
        ExpectSavedAgain(file.found, text, file.mark, file.crlf);
}

TEST_P(LongFileInAControl, IsTakenAndWrittenAgainAsItHasToBe)
{
    const LongFile& file = GetParam();
    const std::string bytes = file.make();
    std::wstring text(bytes.size(), L'\0');
    const UINT page = file.found == ansi ? CP_ACP : CP_UTF8;
    text.resize(static_cast<std::size_t>(::MultiByteToWideChar(page, 0, bytes.data(), static_cast<int>(bytes.size()),
                                                               text.data(), static_cast<int>(text.size()))));
    if (file.crlf)
        std::erase(text, L'\r');
    ASSERT_NO_FATAL_FAILURE(ExpectLoaded(bytes, any, file.found, text));
    ExpectSavedAgain(file.found, text, file.mark, file.crlf);
}

INSTANTIATE_TEST_SUITE_P(Table, HostileFileInAControl, testing::ValuesIn(hostileFiles),
                         [](const auto& info) { return std::string(info.param.name); });
INSTANTIATE_TEST_SUITE_P(Table, LongFileInAControl, testing::ValuesIn(LongFiles()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(FileInAControl, OfFourGigabytesIsRefusedAtOnce)
{
    const std::wstring path = folder.file("t");
    if (!MakeFileOfHoles(path, LONGLONG{4} << 30))
        GTEST_SKIP() << "no files with holes here";
    MessageBoxes boxes;
    const ULONGLONG begun = ::GetTickCount64();
    EXPECT_FALSE(edLoadFile(control, path.c_str(), nullptr));
    EXPECT_LT(::GetTickCount64() - begun, 2000u);  // reading it would take longer
    EXPECT_EQ(boxes.texts.size(), 1u);
    EXPECT_EQ(TextOf(control), oldText);
}

TEST_F(FileInAControl, OfZerosIsRefusedHoweverMany)
{
    const std::wstring path = folder.file("t");
    if (!MakeFileOfHoles(path, LONGLONG{64} << 20))
        GTEST_SKIP() << "no files with holes here";
    for (UINT32 code = 0; code <= 6; ++code) {
        MessageBoxes boxes;
        UINT32 asked = code;
        EXPECT_FALSE(edLoadFile(control, path.c_str(), &asked)) << code;
        EXPECT_EQ(boxes.texts.size(), 1u);
    }
    EXPECT_EQ(TextOf(control), oldText);
}

TEST_F(FileInAControl, WithAPairAcrossTheCutAt512LosesThePairInUtf8AndNotInUtf16)
{
    // Required: a line is cut behind 512 characters of 16 bits, wherever that is. Each half is a line's end or start then.
    const std::string pair = std::string(511, 'x') + "\xf0\x9f\x98\x80";
    UINT32 code = any;
    ASSERT_TRUE(Load(pair, &code));
    EXPECT_EQ(edGetLineCount(control), 2u);
    ASSERT_TRUE(edSaveFile(control, folder.file("t").c_str(), utf8));
    EXPECT_EQ(folder.bytes("t"), std::string(511, 'x') + "\xef\xbf\xbd\n\xef\xbf\xbd");
    ASSERT_TRUE(edSaveFile(control, folder.file("t").c_str(), le));
    EXPECT_TRUE(folder.bytes("t") == FileOf(std::wstring(511, L'x') + L"\xD83D\n\xDE00", le, true, false));
}
