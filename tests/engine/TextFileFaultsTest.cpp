#ifndef _WIN32  // the files of the native build can be told to fail

#include "tests/support/TestFolder.h"
#include "tests/support/native/FileFaults.h"
#include "zsl/text_file_stream.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

using namespace zsl;
using std::filesystem::perm_options;
using std::filesystem::perms;

namespace {

constexpr std::string_view oldBytes = "the old text\r\n";
constexpr perms anyoneWrites = perms::owner_write | perms::group_write | perms::others_write;

// Each test runs with a target that is replaced, and one in a folder that refuses new files, so it is overwritten.
enum class xTWay { replaced, inPlace };

class SaveFaults : public testing::TestWithParam<xTWay> {
protected:
    SaveFaults()
    {
        ::setenv("TMPDIR", rescue.path().c_str(), 1);
        prepare();
    }
    ~SaveFaults() override
    {
        FileFaults() = {};
        ::unsetenv("TMPDIR");
        permissions(folder.path(), anyoneWrites, perm_options::add);
    }

    void prepare() const
    {
        FileFaults() = {};
        permissions(folder.path(), anyoneWrites, perm_options::add);
        for (const xTTestFolder* each : {&folder, &rescue}) {
            for (const std::string& name : each->names())
                std::filesystem::remove(each->path() / name);
        }
        folder.put("t", oldBytes);
        if (GetParam() == xTWay::inPlace)
            permissions(folder.path(), anyoneWrites, perm_options::remove);
    }

    // The target dies with the stream, as it would with the process, so what is left is what the disk holds.
    bool save(WStrView text) const
    {
        text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding());
        if (!stream.is_open())
            return false;
        stream.write(text);
        return stream.flush() && stream.close();
    }

    int calls_of_a_save(WStrView text) const
    {
        prepare();
        EXPECT_TRUE(save(text));
        return FileFaults().calls;
    }

    // Whatever the answer, the target has wholly old or wholly new bytes, and the answer says which.
    void expect_old_or_new(bool saved, std::string_view newBytes) const
    {
        FileFaults() = {};
        EXPECT_EQ(folder.bytes("t"), saved ? newBytes : oldBytes);
    }
    void expect_nothing_left() const
    {
        EXPECT_EQ(folder.names(), std::vector<std::string>{"t"});
        EXPECT_TRUE(rescue.names().empty());
    }

    xTTestFolder folder;
    xTTestFolder rescue;  // the folder for temporary files
};

struct xTNewText {
    WString wide;
    std::string bytes;
};
std::vector<xTNewText> new_texts()
{
    return {{_T(""), ""},
            {_T("short"), "short"},
            {_T("as many bytes!"), "as many bytes!"},
            {_T("a text that is longer than the old one"), "a text that is longer than the old one"},
            {WString(300000, _T('x')), std::string(300000, 'x')}};
}

}  // namespace

TEST_P(SaveFaults, LeaveOldOrNewBytesWhicheverCallFails)
{
    for (const xTNewText& text : new_texts()) {
        const int calls = calls_of_a_save(text.wide);
        ASSERT_GT(calls, 4);
        for (int n = 1; n <= calls; ++n) {
            SCOPED_TRACE(testing::Message() << "call " << n << " of " << calls << ", size " << text.bytes.size());
            prepare();
            FileFaults().failCall = n;
            const bool saved = save(text.wide);
            expect_old_or_new(saved, text.bytes);
        }
    }
}

TEST_P(SaveFaults, LeaveNoTemporaryFileUnlessItsRemovalIsWhatFails)
{
    for (const xTNewText& text : new_texts()) {
        const int calls = calls_of_a_save(text.wide);
        for (int n = 1; n <= calls; ++n) {
            prepare();
            FileFaults().failCall = n;
            const bool saved = save(text.wide);
            // The last call of a save in place takes the copy of the old bytes away.
            const bool removal = GetParam() == xTWay::inPlace && saved && n == calls - 1;
            if (!removal && (folder.names().size() != 1 || !rescue.names().empty()))
                ADD_FAILURE() << "call " << n << " of " << calls;
        }
    }
}

TEST_P(SaveFaults, LeaveOldOrNewBytesSomewhereWhereverTheMachineStops)
{
    for (const xTNewText& text : new_texts()) {
        const int calls = calls_of_a_save(text.wide);
        for (int n = 1; n <= calls; ++n) {
            SCOPED_TRACE(testing::Message() << "stopped at call " << n << " of " << calls);
            prepare();
            FileFaults().failCall = n;
            FileFaults().failRest = true;
            save(text.wide);
            FileFaults() = {};
            const std::string now = folder.bytes("t");
            if (GetParam() == xTWay::inPlace && now != oldBytes && now != text.bytes) {
                // In the middle of overwriting: then the old bytes are in the folder for temporary files.
                ASSERT_EQ(rescue.names().size(), 1u);
                EXPECT_EQ(rescue.bytes(rescue.names()[0]), oldBytes);
            } else {
                EXPECT_TRUE(now == oldBytes || now == text.bytes);
            }
        }
    }
}

TEST_P(SaveFaults, LeaveTheOldBytesWhereverTheDiskGetsFull)
{
    const WString wide = _T("sixty-four bytes of new text, more than there were before: \u0416\u0416!");
    const std::string bytes = "sixty-four bytes of new text, more than there were before: \xd0\x96\xd0\x96!";
    bool savedAtLast = false;
    for (std::int64_t room = 0; room <= 2 * static_cast<std::int64_t>(bytes.size()); ++room) {
        SCOPED_TRACE(room);
        prepare();
        FileFaults().room = room;
        savedAtLast = save(wide);
        expect_old_or_new(savedAtLast, bytes);
        expect_nothing_left();
    }
    EXPECT_TRUE(savedAtLast);
}

TEST_P(SaveFaults, KeepTheOldBytesForACharacterThatHasNoPlace)
{
    text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding(E_CharSet::ansi));
    ASSERT_TRUE(stream.is_open());
    stream.write(WString(300000, _T('x')) + _T("\u4e2d"));
    EXPECT_FALSE(stream.flush());
    EXPECT_FALSE(stream.close());
    expect_old_or_new(false, "");
    expect_nothing_left();
}

TEST_P(SaveFaults, DoNotBeginToOverwriteWithoutACopyOfTheOldBytes)
{
    permissions(rescue.path(), anyoneWrites, perm_options::remove);
    const bool saved = save(_T("new"));
    permissions(rescue.path(), anyoneWrites, perm_options::add);
    EXPECT_EQ(saved, GetParam() == xTWay::replaced);
    expect_old_or_new(saved, "new");
    expect_nothing_left();
}

TEST_P(SaveFaults, LeaveNothingBehindWhenAllGoesWell)
{
    for (const xTNewText& text : new_texts()) {
        calls_of_a_save(text.wide);
        expect_old_or_new(true, text.bytes);
        expect_nothing_left();
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, SaveFaults, testing::Values(xTWay::replaced, xTWay::inPlace),
                         [](const auto& info) { return info.param == xTWay::replaced ? "Replaced" : "InPlace"; });

namespace {

class SaveOfAFile : public testing::Test {
protected:
    ~SaveOfAFile() override { FileFaults() = {}; }
    bool save(const char* name, WStrView text) const
    {
        text_file_stream stream(folder.file(name), file_stream_mode::write, text_encoding());
        stream.write(text);
        return stream.close();
    }
    xTTestFolder folder;
};

}  // namespace

TEST_F(SaveOfAFile, KeepsItsModeAndItsOwner)
{
    folder.put("t", "old");
    ASSERT_EQ(::chmod((folder.path() / "t").c_str(), 0640), 0);
    const bool given = ::chown((folder.path() / "t").c_str(), 1234, 1234) == 0;  // only the superuser may
    EXPECT_TRUE(save("t", _T("new")));
    struct stat facts;
    ASSERT_EQ(::stat((folder.path() / "t").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0640u);
    EXPECT_TRUE(!given || facts.st_uid == 1234);
    EXPECT_EQ(folder.bytes("t"), "new");
}

TEST_F(SaveOfAFile, GoesThroughALinkToTheFileBehindIt)
{
    folder.put("t", "old");
    std::filesystem::create_symlink("t", folder.path() / "link");
    EXPECT_TRUE(save("link", _T("new")));
    EXPECT_TRUE(is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.bytes("t"), "new");
}

TEST_F(SaveOfAFile, MakesTheFileThatADanglingLinkNames)
{
    std::filesystem::create_symlink("t", folder.path() / "link");
    EXPECT_TRUE(save("link", _T("new")));
    EXPECT_TRUE(is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.bytes("t"), "new");
}

TEST_F(SaveOfAFile, KeepsTheNewBytesWhenAFailedReplacementTookTheOldOnesAway)
{
    folder.put("t", "old");
    save("u", _T("x"));
    const int replacement = FileFaults().calls;
    ASSERT_GT(replacement, 0);
    // The replacement is the last call of a save; a target that exists costs two more calls, to try it.
    FileFaults() = {};
    FileFaults().targetGone = true;
    FileFaults().failCall = replacement + 2;
    EXPECT_FALSE(save("t", _T("new")));
    FileFaults() = {};
    bool found = false;
    for (const std::string& name : folder.names())
        found = found || folder.bytes(name) == "new";
    EXPECT_TRUE(found);
}

TEST_F(SaveOfAFile, IsNotOpenWhereTheFolderRefusesNewFilesAndThereIsNone)
{
    permissions(folder.path(), anyoneWrites, perm_options::remove);
    EXPECT_FALSE(text_file_stream(folder.file("t"), file_stream_mode::write, text_encoding()).is_open());
    permissions(folder.path(), anyoneWrites, perm_options::add);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(SaveOfAFile, IsNotOpenForAFileThatMayNotBeRead)
{
    folder.put("t", "old");
    permissions(folder.path() / "t", perms::owner_write);
    EXPECT_FALSE(text_file_stream(folder.file("t"), file_stream_mode::read, text_encoding()).is_open());
}

TEST_F(SaveOfAFile, IsNotOpenForAPipeAndDoesNotWaitForOne)
{
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0666), 0);
    EXPECT_FALSE(text_file_stream(folder.file("pipe"), file_stream_mode::read, text_encoding()).is_open());
    EXPECT_FALSE(text_file_stream(folder.file("pipe"), file_stream_mode::write, text_encoding()).is_open());
}

TEST_F(SaveOfAFile, IsNotOpenForReadingWhicheverCallFails)
{
    folder.put("t", "text");
    const auto opens = [this] {
        return text_file_stream(folder.file("t"), file_stream_mode::read, text_encoding()).is_open();
    };
    ASSERT_TRUE(opens());
    const int calls = FileFaults().calls - 1;  // the last one closes the file: what was read is good
    for (int n = 1; n <= calls; ++n) {
        FileFaults() = {};
        FileFaults().failCall = n;
        EXPECT_FALSE(opens()) << n;
    }
    FileFaults() = {};
}

TEST_F(SaveOfAFile, RefusesAFileOfMoreBytesThanATextCanHaveWithoutReadingIt)
{
    folder.put("t", "");
    std::error_code error;
    std::filesystem::resize_file(folder.path() / "t", (std::uintmax_t{1} << 30) * 3 + 4, error);
    if (error)
        GTEST_SKIP() << "no files with holes here";
    FileFaults() = {};
    EXPECT_FALSE(text_file_stream(folder.file("t"), file_stream_mode::read, text_encoding()).is_open());
    EXPECT_EQ(FileFaults().calls, 3);  // open, size, close
}

#endif
