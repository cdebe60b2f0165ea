#include "tests/control/files/LongFiles.h"

#include "tests/engine/HostileFiles.h"

#include <windows.h>

namespace {

std::string Letters(std::size_t count)
{
    std::string text;
    text.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<char>('a' + i % 26);
    return text;
}

std::string Repeated(std::string_view piece, std::size_t count)
{
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

/// Lines of 64 bytes up to `place`, the piece there, and some more behind it.
std::string At(std::size_t place, std::string_view piece, std::string_view end)
{
    std::string text = Repeated(Letters(64 - end.size()) + std::string(end), place / 64 + 1);
    text.resize(place);
    for (std::size_t i = text.size(); i > 0 && text[i - 1] < ' '; --i)
        text[i - 1] = 'x';  // no line end that is cut in two
    return text + std::string(piece) + Letters(30) + std::string(end) + "end";
}

template <std::size_t length>
std::string Line()
{
    return Letters(length);
}

template <std::size_t length>
std::string LinesWithCrLf()
{
    return Letters(length) + "\r\n" + Letters(length) + "\r\nend";
}

template <std::size_t place>
std::string CrLfAt()
{
    return At(place, "\r\n", "\r\n");
}

template <std::size_t place>
std::string LoneReturnAt()
{
    return At(place, "\r", "\r\n");
}

template <std::size_t place>
std::string PairAt()
{
    return At(place, "\xf0\x9f\x98\x80", "\n");
}

// All but zero and those that the system's code page leaves free: a file with one of these is refused.
std::string EveryByteOfAnsi()
{
    std::string bytes = "x";  // or the first two were a mark
    for (int value = 255; value > 0; --value) {
        const char byte = static_cast<char>(value);
        wchar_t wide = 0;
        if (::MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &byte, 1, &wide, 1) == 1)
            bytes += byte;
    }
    return bytes;
}

constexpr LongFile longFiles[] = {
    // The limits of a line
    {"LineOf461", Line<461>},
    {"LineOf462", Line<462>},
    {"LineOf463", Line<463>},
    {"LineOf511", Line<511>},
    {"LineOf512", Line<512>},
    {"LineOf513", Line<513>},
    {"LineOf1024", Line<1024>},
    {"LineOf1025", Line<1025>},
    {"LineOf1300", Line<1300>},
    {"LinesOf512WithCrLf", LinesWithCrLf<512>, any, false, true},
    {"LinesOf513WithCrLf", LinesWithCrLf<513>, any, false, true},
    {"PairAtTheEndOfALine", [] { return Letters(510) + "\xf0\x9f\x98\x80\nend"; }, utf8},
    {"PairAcrossTheCut", [] { return Letters(511) + "\xf0\x9f\x98\x80 end"; }, utf8},
    // Very much of one kind
    {"LineOfAMillion", Line<1'000'000>},
    {"LineFeedsOnly", [] { return Repeated("\n", 100'000); }},
    {"CrLfOnly", [] { return Repeated("\r\n", 100'000); }, any, false, true},
    {"ReturnsOnly", [] { return Repeated("\r", 5'000); }},
    {"TabsOnly", [] { return Repeated("\t", 5'000); }},
    {"CommentsNeverClosed", [] { return Repeated("/* \n", 20'000); }},
    {"EveryByteOfAnsi", EveryByteOfAnsi, ansi},
    // What stands where the pieces meet in which a file is decoded, encoded and written
    {"CrLfAt16383", CrLfAt<16383>, any, false, true},
    {"CrLfAt16384", CrLfAt<16384>, any, false, true},
    {"CrLfAt32767", CrLfAt<32767>, any, false, true},
    {"CrLfAt65535", CrLfAt<65535>, any, false, true},
    {"CrLfAt262143", CrLfAt<262143>, any, false, true},
    {"LoneReturnAt16383", LoneReturnAt<16383>},
    {"LoneReturnAt32767", LoneReturnAt<32767>},
    {"LoneReturnAt262143", LoneReturnAt<262143>},
    {"PairAt16382", PairAt<16382>, utf8},
    {"PairAt16383", PairAt<16383>, utf8},
    {"PairAt262143", PairAt<262143>, utf8},
    {"LongerThanOneRead", [] { return Repeated(Letters(127) + "\n", (17u << 20) / 128); }},
};

}  // namespace

std::span<const LongFile> LongFiles()
{
    return longFiles;
}
