// The figures of the editing engine without a control, each beside its floor or its goal. bench/run.sh starts it.

#include "bench/BenchEngine.h"
#include "bench/EngineText.h"
#include "bench/Measure.h"
#include "editing/SearchRequest.h"
#include "framework/base/Platform.h"
#include "store/LineJoin.h"
#include "tests/support/native/PlatformNative.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

struct Size {
    const char* name;
    std::size_t characters;
};

/// One row: a figure in a unit of its own, and the most that it may be; 0: no goal.
void Row(const char* size, const char* what, double figure, const char* unit, double goal)
{
    std::printf("%-2s %-52s %10.2f %-22s", size, what, figure, unit);
    if (goal != 0)
        std::printf("  goal %6.1f  %s", goal, figure <= goal ? "met" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

/// The time of one typed character, in nanoseconds: many of them in one line, which is put back before each measurement.
double TypedCharacter(Engine& engine, std::int32_t line, WStrView present)
{
    constexpr int keys = 40;
    const xTExtString start{CString(present)};
    const xTPos middle{line, start.GetLength() / 2};
    static const WString text(keys, _T('x'));
    return MedianTime(301, [&] { engine.Type(text); }, [&] {
               engine.stack.clear_undo();
               engine.store.lines[line] = start;
               engine.store.note_change(line, line);
               engine.store.comments_valid = false;
               engine.store.rescan_comments();
               engine.store.set_caret(middle);
           }) / keys;
}

constexpr WStrView plainLine = _T("    value = table[7] + 17 - step");

void BenchKeystrokes(const Size& size, const WString& text)
{
    static double first = 0;
    Engine engine(text);
    const std::int32_t last = engine.store.line_count() - 1;
    struct Place {
        const char* name;
        std::int32_t line;
    };
    for (const Place& place : {Place{"at the start", 0}, Place{"in the middle", last / 2}, Place{"at the end", last - 1}}) {
        const double typed = TypedCharacter(engine, place.line, plainLine);
        first = first == 0 ? typed : first;
        Row(size.name, (std::string("typed character, ") + place.name).c_str(), typed, "ns", 0);
        Row(size.name, "    beside the first of the smallest text", typed / first, "times", 1.3);
    }
    const double plain = TypedCharacter(engine, last / 2, plainLine);
    struct Special {
        const char* name;
        WStrView line;
        double goal;
    };
    for (const Special& special : {Special{"//", _T("    value = table[7] // 17 - step"), 1.2},
                                   Special{"*", _T("    value = table[7] * 17 - step"), 1.2},
                                   Special{"a backslash", _T("    value = table[7] \\ 17 - step"), 1.2},
                                   Special{"a comment", _T("    value = table[7] /* 1 */ step"), 0}})
        Row(size.name, (std::string("typed character, its line holding ") + special.name).c_str(),
            TypedCharacter(engine, last / 2, special.line) / plain, "times a plain line", special.goal);
    const double enter = MedianTime(301, [&] {
        engine.stack.add_char(13, false);
        engine.stack.undo();
    }, [&] { engine.store.set_caret({last / 2, 3}); });
    Row(size.name, "Enter and its undo", enter, "ns", 0);
}

void BenchComment(const Size& size, const WString& text)
{
    Engine engine(_T("x\n") + text);
    const double lines = engine.store.line_count();
    const int rounds = 9;
    const auto open = [&] { engine.store.set_caret({0, 0}), engine.Type(_T("/*")); };
    const auto close = [&] { engine.stack.undo(), engine.stack.undo(), engine.store.rescan_comments(); };
    open();
    Row(size.name, "open comment at the top", MedianTime(rounds, open, close) / lines, "ns a line", 15);
    close();
    Row(size.name, "the comment at the top taken back", MedianTime(rounds, close, open) / lines, "ns a line", 15);
}

void BenchBlocks(const Size& size, const WString& text)
{
    constexpr double pasted = 100'000;
    constexpr int rounds = 7;
    Engine engine(text);
    NativePlatform().clipboard = {{clipboardWide, EngineText(static_cast<std::size_t>(pasted) * 33 - 1)}};
    const std::int32_t middle = engine.store.line_count() / 2;
    const auto paste = [&] {
        engine.store.set_caret({middle, 7});
        engine.Paste();
    };
    const auto undo = [&] { engine.stack.undo(); };
    paste();
    Row(size.name, "paste of 100,000 lines into the middle", MedianTime(rounds, paste, undo) / pasted, "ns a line", 250);
    undo();
    Row(size.name, "    its undo", MedianTime(rounds, undo, paste) / pasted, "ns a line", 250);
    const auto erase = [&] {
        engine.store.select_range({middle, 7}, {middle + 100'000, 7});
        engine.Delete();
    };
    erase();
    Row(size.name, "deletion of 100,000 lines in the middle", MedianTime(rounds, erase, undo) / pasted, "ns a line", 250);
    undo();
    Row(size.name, "    its undo", MedianTime(rounds, undo, erase) / pasted, "ns a line", 250);
}

/// A block of lines dragged to the start of the text, and a text that the host inserts: each with its undo.
void BenchDrops(const Size& size, const WString& text)
{
    constexpr std::int32_t dropped = 100'000;
    constexpr int rounds = 7;
    Engine engine(text);
    const std::int32_t middle = engine.store.line_count() / 2;
    const auto undo = [&] { engine.stack.undo(); };
    const auto rows = [&](const char* what, const auto& drop) {
        drop();
        Row(size.name, what, MedianTime(rounds, drop, undo) / dropped, "ns a line", 250);
        undo();
        Row(size.name, "    its undo", MedianTime(rounds, undo, drop) / dropped, "ns a line", 250);
    };
    const CString inserted(EngineText(std::size_t{dropped} * 33 - 1));
    rows("insertion of 100,000 lines into the middle", [&] {
        engine.store.set_caret({middle, 7});
        engine.stack.add_block(inserted, xTPos::none, xTPos::none, false);
    });
    const xTPos first{middle, 7};
    xTPos last{middle + dropped, 6};
    CString dragged;
    engine.store.get_text(first, last, dragged);
    rows("move of 100,000 lines to the start", [&] {
        engine.store.select_range(first, {last.line, last.col + 1});
        engine.store.set_caret({3, 0});
        engine.stack.add_block(dragged, first, last, true);
    });
}

void BenchReplace(const Size& size, const WString& text)
{
    Engine engine(text, false);
    const xTSearchRequest request{CString(frequentWord), CString(_T("quantity")), xTSearchRequest::replaceAll};
    const auto replace = [&] {
        engine.store.set_caret({0, 0});
        engine.stack.add_replace(request);
    };
    const auto undo = [&] { engine.stack.undo(); };
    replace();
    const auto matches = static_cast<double>(engine.stack.undoList.front().replacements.size());
    std::printf("%-2s %.0f matches\n", size.name, matches);
    Row(size.name, "replace all, without a window", MedianTime(7, replace, undo) / matches, "ns a match", 400);
    undo();
    Row(size.name, "    its undo", MedianTime(7, undo, replace) / matches, "ns a match", 400);
}

void BenchSearch(const Size& size, const WString& text)
{
    const Engine engine(text);
    const std::size_t bytes = text.size() * sizeof(WCHAR);
    static const void* volatile found;
    const auto scan = [&] { found = std::memchr(text.data(), 0x7F, bytes); };
    Row(size.name, "a plain scan of the bytes", MedianTime(15, scan) / 1e6, "ms", 0);
    // The second one begins as the most frequent word does and differs in its last letter.
    for (const WStrView word : {WStrView(_T("quaternion")), WStrView(_T("counterx"))}) {
        const CString what(word);
        const std::string name(word.begin(), word.end());
        // By turns with the scan, so that neither finds its bytes in the cache because it was the last to read them.
        const auto row = [&](const char* how, bool matchCase, double goal) {
            const auto search = [&] {
                found = engine.store.find_text(what, true, false, matchCase, true).line < 0 ? nullptr : &engine;
            };
            std::vector<double> searches, scans;
            for (int round = 0; round < 15; ++round) {
                scans.push_back(TimeOf(scan));
                searches.push_back(TimeOf(search));
            }
            Row(size.name, ("search that misses, " + std::string(how) + ", " + name).c_str(),
                MedianOf(searches) / MedianOf(scans), "times the scan", goal);
            Row(size.name, "    each by itself", MedianTime(15, search) / MedianTime(15, scan), "times the scan", 0);
        };
        row("match case", true, 2);
        row("ignore case", false, 5);
    }
    static_cast<void>(found);
}

void BenchWholeText(const Size& size, const WString& text)
{
    const Engine engine(text);
    const std::int32_t count = engine.store.line_count();
    WString room(text.size(), _T(' '));
    static const void* volatile end;
    // By turns, and both into the same room.
    std::vector<double> lengths, joins, copies;
    for (int round = 0; round < 15; ++round) {
        copies.push_back(TimeOf([&] { std::memcpy(room.data(), text.data(), text.size() * sizeof(WCHAR)); }));
        lengths.push_back(TimeOf([&] { end = room.data() + JoinedLength(engine.store.lines, 0, count); }));
        joins.push_back(TimeOf([&] { end = JoinLines(engine.store.lines, 0, count, room.data()); }));
    }
    static_cast<void>(end);
    const double copy = MedianOf(copies);
    Row(size.name, "whole text to memory, its length and itself", (MedianOf(lengths) + MedianOf(joins)) / copy,
        "times a copy", 2.5);
    Row(size.name, "    the length alone", MedianOf(lengths) / copy, "times a copy", 0);
}

void BenchDeleteAll(const Size& size, const WString& text)
{
    constexpr int rounds = 7;
    Engine engine(text);
    const double load = MedianTime(rounds, [&] { engine.Load(text); }, [&] { engine.store.load_text(nullptr, 0); });
    const auto erase = [&] { engine.DeleteAll(); };
    const auto undo = [&] { engine.stack.undo(); };
    const double both = MedianTime(rounds, [&] { erase(), undo(); }, [&] { engine.stack.clear_redo(); });
    erase();
    Row(size.name, "load", load / 1e6, "ms", 0);
    Row(size.name, "delete all and undo it", both / load, "times the load", 3);
    Row(size.name, "    the deletion alone", MedianTime(rounds, erase, undo) / load, "times the load", 0);
    // The same with no step that could be redone: the deletion above ends the life of one that holds the whole text.
    const double bare = MedianTime(rounds, erase, [&] { undo(), engine.stack.clear_redo(); });
    Row(size.name, "    the deletion alone, no step to free", bare / 1000, "us", 0);
}

}  // namespace

int main(int argc, char** argv)
{
    const Size sizes[] = {{"S", 1'000'000}, {"M", 10'000'000}, {"L", 100'000'000}};
    const std::string wanted = argc > 1 ? argv[1] : "SML";
    ResetNativePlatform();
    for (const Size& size : sizes) {
        if (wanted.find(size.name) == std::string::npos)
            continue;
        const WString text = EngineText(size.characters);
        BenchKeystrokes(size, text);
        if (size.name[0] == 'S')
            continue;  // the rest is told of large texts
        BenchComment(size, text);
        BenchBlocks(size, text);
        BenchDrops(size, text);
        BenchReplace(size, text);
        BenchSearch(size, text);
        BenchWholeText(size, text);
        BenchDeleteAll(size, text);
    }
    return 0;
}
