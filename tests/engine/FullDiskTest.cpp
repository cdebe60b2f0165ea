#ifdef __linux__  // a disk of a few pages is one system call here

#include "tests/support/TestFolder.h"
#include "zsl/text_file_stream.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

// Saving onto a real disk that gets full: the system itself refuses the bytes, at every page where it can happen.

using namespace zsl;
using std::filesystem::perm_options;
using std::filesystem::perms;

namespace {

constexpr int notAllowed = 77;
constexpr std::size_t page = 4096;
constexpr int pagesOfTheDisk = 16;

// A process of its own sees the small disk; nobody else does, and it goes with the process.
bool MountSmallDisk(const std::filesystem::path& folder)
{
    if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    const std::string options = "size=" + std::to_string(pagesOfTheDisk * page);
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && ::mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

class FullDisk : public testing::Test {
protected:
    // Runs the body with the folder being a small disk. What it finds wrong it tells on the standard error.
    void OnASmallDisk(const std::function<bool()>& body)
    {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            ::_exit(!MountSmallDisk(folder.path()) ? notAllowed : body() ? 0 : 1);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        if (WEXITSTATUS(status) == notAllowed)
            GTEST_SKIP() << "this user may not mount a disk";
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }

    // Leaves so many pages of the disk free.
    void FillUp(int pagesLeft) const
    {
        folder.put("filler", "");
        std::filesystem::resize_file(folder.path() / "filler", 0);
        const std::uintmax_t room = std::filesystem::space(folder.path()).available;
        folder.put("filler", std::string(room - static_cast<std::size_t>(pagesLeft) * page, 'f'));
    }
    bool Save(std::size_t size) const
    {
        text_file_stream stream(folder.file("t"), file_stream_mode::write, text_encoding());
        if (!stream.is_open())
            return false;
        stream.write(WString(size, _T('n')));
        return stream.flush() && stream.close();
    }
    // The old bytes or the new ones, as the answer says, and no other file than those that stood there.
    bool OneSave(std::size_t oldSize, std::size_t newSize, int pagesLeft, bool inPlace, int& saved) const
    {
        std::error_code ignored;
        permissions(folder.path(), perms::owner_write, perm_options::add);
        for (const std::string& name : folder.names())
            std::filesystem::remove(folder.path() / name, ignored);
        folder.put("t", std::string(oldSize, 'o'));
        FillUp(pagesLeft);
        if (inPlace)
            permissions(folder.path(), perms::owner_write | perms::group_write | perms::others_write,
                        perm_options::remove);
        const bool done = Save(newSize);
        saved += done;
        const std::string wanted = done ? std::string(newSize, 'n') : std::string(oldSize, 'o');
        const bool good = folder.bytes("t") == wanted && folder.names() == std::vector<std::string>{"filler", "t"};
        if (!good)
            std::fprintf(stderr, "%zu over %zu bytes with %d pages left\n", newSize, oldSize, pagesLeft);
        return good;
    }
    bool AllSaves(bool inPlace) const
    {
        int saved = 0;
        int all = 0;
        for (const std::size_t oldSize : {std::size_t{0}, std::size_t{100}, page, 3 * page + 7}) {
            for (const std::size_t newSize : {std::size_t{1}, page, page + 1, 2 * page, 5 * page}) {
                for (int left = 0; left <= 7; ++left, ++all) {
                    if (!OneSave(oldSize, newSize, left, inPlace, saved))
                        return false;
                }
            }
        }
        return saved > 0 && saved < all;  // both must have come up
    }

    xTTestFolder folder;
};

}  // namespace

TEST_F(FullDisk, LeavesTheOldBytesOfAFileThatIsReplaced)
{
    OnASmallDisk([this] { return AllSaves(false); });
}

TEST_F(FullDisk, LeavesTheOldBytesOfAFileThatIsOverwrittenInPlace)
{
    OnASmallDisk([this] { return AllSaves(true); });
}

#endif
