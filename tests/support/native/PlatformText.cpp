#include "framework/base/Platform.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>

// The questions about letters, code pages and files for the native build: tables instead of a system, so that every
// machine answers the same. The ANSI code page is 1251, the OEM one 866.

namespace {

// A run of capital letters. `offset` leads to the small ones; 0 means that each capital, which stands at every second
// place from `first` on, is followed by its small letter.
struct xTCaseRun {
    WCHAR first;
    WCHAR last;
    int offset;
};
constexpr xTCaseRun caseRuns[] = {
    {0x0041, 0x005A, 32},   {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012E, 0},  {0x0132, 0x0136, 0},
    {0x0139, 0x0147, 0},    {0x014A, 0x0176, 0},  {0x0178, 0x0178, -121}, {0x0179, 0x017D, 0}, {0x0386, 0x0386, 38},
    {0x0388, 0x038A, 37},   {0x038C, 0x038C, 64}, {0x038E, 0x038F, 63}, {0x0391, 0x03A1, 32}, {0x03A3, 0x03AB, 32},
    {0x0400, 0x040F, 80},   {0x0410, 0x042F, 32}, {0x0460, 0x0480, 0},  {0x048A, 0x04BE, 0},  {0x04C0, 0x04C0, 15},
    {0x04C1, 0x04CD, 0},    {0x04D0, 0x052E, 0},  {0x1E00, 0x1E94, 0},  {0x1EA0, 0x1EFE, 0},  {0xFF21, 0xFF3A, 32},
};

constexpr int Step(const xTCaseRun& run) noexcept
{
    return run.offset == 0 ? 2 : 1;
}

constexpr int Offset(const xTCaseRun& run) noexcept
{
    return run.offset == 0 ? 1 : run.offset;
}

WCHAR Lower(WCHAR ch) noexcept
{
    for (const auto& run : caseRuns)
        if (ch >= run.first && ch <= run.last && (ch - run.first) % Step(run) == 0)
            return static_cast<WCHAR>(ch + Offset(run));
    return ch;
}

WCHAR Upper(WCHAR ch) noexcept
{
    for (const auto& run : caseRuns) {
        const int capital = ch - Offset(run);
        if (capital >= run.first && capital <= run.last && (capital - run.first) % Step(run) == 0)
            return static_cast<WCHAR>(capital);
    }
    return ch;
}

// The upper halves of the code pages; the lower ones are ASCII.
using xTHalf = std::array<WCHAR, 128>;
constexpr xTHalf ansiHalf = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409, 0x2039,
    0x040A, 0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0, 0x040E, 0x045E, 0x0408,
    0x00A4, 0x0490, 0x00A6, 0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB,
    0x0458, 0x0405, 0x0455, 0x0457, 0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417,
    0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F, 0x0420, 0x0421, 0x0422, 0x0423,
    0x0424, 0x0425, 0x0426, 0x0427, 0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F,
    0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437, 0x0438, 0x0439, 0x043A, 0x043B,
    0x043C, 0x043D, 0x043E, 0x043F, 0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447,
    0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F};
constexpr xTHalf oemHalf = {
    0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417, 0x0418, 0x0419, 0x041A, 0x041B,
    0x041C, 0x041D, 0x041E, 0x041F, 0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426, 0x0427,
    0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F, 0x0430, 0x0431, 0x0432, 0x0433,
    0x0434, 0x0435, 0x0436, 0x0437, 0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x2561, 0x2562, 0x2556, 0x2555, 0x2563, 0x2551, 0x2557,
    0x255D, 0x255C, 0x255B, 0x2510, 0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x255E, 0x255F,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x2567, 0x2568, 0x2564, 0x2565, 0x2559,
    0x2558, 0x2552, 0x2553, 0x256B, 0x256A, 0x2518, 0x250C, 0x2588, 0x2584, 0x258C, 0x2590, 0x2580,
    0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447, 0x0448, 0x0449, 0x044A, 0x044B,
    0x044C, 0x044D, 0x044E, 0x044F, 0x0401, 0x0451, 0x0404, 0x0454, 0x0407, 0x0457, 0x040E, 0x045E,
    0x00B0, 0x2219, 0x00B7, 0x221A, 0x2116, 0x00A4, 0x25A0, 0x00A0};

const xTHalf& UpperHalf(xTCodePage page) noexcept
{
    return page == xTCodePage::ansi ? ansiHalf : oemHalf;
}

// @return -1 for a character without a place in the code page
int ByteOf(const xTHalf& half, WCHAR ch) noexcept
{
    if (ch < 128)
        return ch;
    const auto* const found = std::find(half.begin(), half.end(), ch);
    return found == half.end() ? -1 : static_cast<int>(128 + (found - half.begin()));
}

struct xTCloseFile {
    void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};
using xTFile = std::unique_ptr<std::FILE, xTCloseFile>;

}  // namespace

void PlatformLowerCase(WCHAR* text, std::int32_t length) noexcept
{
    std::transform(text, text + length, text, Lower);
}

void PlatformUpperCase(WCHAR* text, std::int32_t length) noexcept
{
    std::transform(text, text + length, text, Upper);
}

bool PlatformToWide(xTCodePage page, std::string_view bytes, WString& text)
{
    const auto& half = UpperHalf(page);
    text.resize(bytes.size());
    std::transform(bytes.begin(), bytes.end(), text.begin(), [&](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return value < 128 ? static_cast<WCHAR>(value) : half[value - 128u];
    });
    return true;
}

bool PlatformToBytes(xTCodePage page, WStrView text, bool lossy, std::string& bytes)
{
    const auto& half = UpperHalf(page);
    bytes.clear();
    bytes.reserve(text.size());
    for (const WCHAR ch : text) {
        const int byte = ByteOf(half, ch);
        if (byte < 0 && !lossy)
            return false;
        bytes.push_back(byte < 0 ? '?' : static_cast<char>(byte));
    }
    return true;
}

bool PlatformAppendText(const WCHAR* path, std::string_view text) noexcept
{
    // The engine cuts paths at backslashes; here folders are parted by slashes.
    std::array<char, 1024> name{};
    for (std::size_t i = 0; path[i] != 0; ++i) {
        const int byte = ByteOf(ansiHalf, path[i]);
        if (i + 1 >= name.size())
            return false;
        name[i] = byte < 0 ? '?' : byte == '\\' ? '/' : static_cast<char>(byte);
    }
    const xTFile file(std::fopen(name.data(), "ab"));
    return file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size() && std::fflush(file.get()) == 0;
}
