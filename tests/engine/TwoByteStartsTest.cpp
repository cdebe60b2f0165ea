#ifndef _WIN32  // hundreds of thousands of files: where opening one costs next to nothing

#include "tests/support/DecoderComparison.h"
#include "tests/support/NaiveDecoder.h"
#include "tests/support/TestFolder.h"
#include "zsl/text_file_stream.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

// Every two bytes that a file can begin with, in each of the six ways to ask for an encoding: 393,216 files. A run
// without SCRIV_FULL=1 takes every sixteenth.

using namespace zsl;

namespace {

constexpr unsigned starts = 0x10000;
constexpr std::uint32_t ways = 6;  // the codes of hosts

unsigned Stride()
{
    const char* const full = std::getenv("SCRIV_FULL");
    return full && *full == '1' ? 1 : 16;
}

// All starts come up in the end: which sixteenth is taken changes with the way.
template <typename Body>
void ForEachStart(Body body)
{
    for (std::uint32_t code = 0; code < ways; ++code) {
        for (unsigned start = code % Stride(); start < starts; start += Stride())
            body(std::string{static_cast<char>(start >> 8), static_cast<char>(start)}, code);
    }
}

// In a folder that is memory where the system has one.
class TwoByteStartFiles : public testing::Test {
protected:
    TwoByteStartFiles()
    {
        if (::access("/dev/shm", W_OK) == 0)
            ::setenv("TMPDIR", "/dev/shm", 1);
        m_folder = std::make_unique<xTTestFolder>();
        ::unsetenv("TMPDIR");
    }

    void Put(std::string_view bytes) const
    {
        const int file = ::open((m_folder->path() / "t").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        ASSERT_EQ(::write(file, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        ::close(file);
    }
    void ExpectAsNaive(std::string_view bytes, std::uint32_t code) const
    {
        const text_encoding asked = encoding_of_code(code);
        text_file_stream stream(m_folder->file("t"), file_stream_mode::read, asked);
        const auto naive = NaiveDecode(bytes, NumberOf(asked));
        ASSERT_EQ(stream.is_open(), naive.has_value());
        if (!naive)
            return;
        WString text;
        ASSERT_TRUE(stream.read_solid_text(text));
        ASSERT_TRUE(text == naive->text);
        ASSERT_EQ(NumberOf(stream.get_encoding()), naive->charset);
        ASSERT_EQ(stream.get_encoding().has_mark(), naive->mark);
        ASSERT_EQ(stream.get_encoding().has_crlf(), naive->crlf);
    }

private:
    std::unique_ptr<xTTestFolder> m_folder;
};

}  // namespace

TEST_F(TwoByteStartFiles, ReadAsTheNaiveReaderHasThem)
{
    unsigned files = 0;
    ForEachStart([&](std::string bytes, std::uint32_t code) {
        if (HasFatalFailure())
            return;
        SCOPED_TRACE(testing::Message() << "code " << code << ", bytes " << testing::PrintToString(bytes));
        bytes += "a\r\n\xd0\x96 b\r\n";  // an even number of bytes, good in every encoding behind a good start
        Put(bytes);
        ExpectAsNaive(bytes, code);
        ++files;
    });
    RecordProperty("files", static_cast<int>(files));
    EXPECT_EQ(files, starts / Stride() * ways);
}

TEST(TwoByteStarts, ReadAsTheNaiveReaderHasThemWhateverFollows)
{
    constexpr std::string_view tails[] = {"", "\n", "\x80", "\xbf", "\xbf\xbf", "\x80\x80z", "a\r\nb\r\n", "\r\n\r"};
    ForEachStart([&](const std::string& start, std::uint32_t code) {
        for (const std::string_view tail : tails) {
            const std::string found = DecoderDifference(start + std::string(tail), encoding_of_code(code));
            ASSERT_EQ(found, "") << "code " << code << ", bytes " << testing::PrintToString(start + std::string(tail));
        }
    });
}

#endif
