// One run of each case of the editing engine, small, for an exact count of its instructions: bench/instructions.sh
// starts it under callgrind. Run by itself it does the same work and prints the names of the cases.

#include "bench/BenchEngine.h"
#include "bench/EngineText.h"
#include "editing/SearchRequest.h"
#include "tests/support/native/PlatformNative.h"
#include "zsl/text_decoder.h"
#include "zsl/utf8.h"

#include <cstdio>
#include <functional>
#include <string>

/// What callgrind counts: it writes the counts out each time that this function has ended. A plain name, and no inlining,
/// so that it can be told the name.
extern "C" [[gnu::noinline]] void RunCounted(const std::function<void()>& work)
{
    work();
}

namespace {

constexpr std::size_t textSize = 100'000;
constexpr std::int32_t blockLines = 1000;

void Count(const char* name, const std::function<void()>& work)
{
    RunCounted(work);
    std::puts(name);
}

/// The work was done once before, outside the count: tables that are filled at the first use are no case's own.
void CountTwice(const char* name, const std::function<void()>& work, const std::function<void()>& takeBack)
{
    work();
    takeBack();
    Count(name, work);
}

void CountLoads(const WString& text)
{
    Engine engine(text);
    Count("load", [&] { engine.Load(text); });
    CString whole;
    xTPos end = engine.store.end_pos();
    Count("whole text", [&] { engine.store.get_text({0, 0}, end, whole); });
    std::string bytes;
    zsl::append_utf8(text, bytes);
    Count("decode UTF-8", [&] { static_cast<void>(zsl::decode_text(bytes, zsl::text_encoding())); });
    Count("encode UTF-8", [&] {
        std::string out;
        zsl::append_utf8(text, out);
    });
}

void CountKeys(const WString& text)
{
    Engine engine(text);
    const std::int32_t middle = engine.store.line_count() / 2;
    const auto type = [&](const char* name, WStrView present, WStrView typed) {
        engine.store.lines[middle] = xTExtString{CString(present)};
        engine.store.note_change(middle, middle);
        engine.store.comments_valid = false;
        engine.store.rescan_comments();
        engine.store.set_caret({middle, engine.store.line_length(middle) / 2});
        Count(name, [&] { engine.Type(typed); });
    };
    const WString letters(40, _T('x'));
    type("typed characters", _T("    value = table[7] + 17 - step"), letters);
    type("typed characters beside //", _T("    value = table[7] // 17 - step"), letters);
    type("typed characters beside a comment", _T("    value = table[7] /* 1 */ step"), letters);
    const auto undo = [&] { engine.stack.undo(); };
    CountTwice("Enter", [&] { engine.Type(_T("\r")); }, undo);
    Count("undo of Enter", undo);
}

void CountComment(const WString& text)
{
    Engine engine(_T("x\n") + text);
    const auto open = [&] { engine.Type(_T("/*")); };
    const auto close = [&] { engine.stack.undo(), engine.stack.undo(), engine.store.rescan_comments(); };
    engine.store.set_caret({0, 0});
    CountTwice("comment at the top", open, close);
    Count("its undo", close);
}

void CountBlocks(const WString& text)
{
    Engine engine(text);
    const std::int32_t middle = engine.store.line_count() / 2;
    const auto undo = [&] { engine.stack.undo(); };
    const auto redo = [&] { engine.stack.redo(); };
    const auto countAll = [&](const std::string& name, const std::function<void()>& work) {
        CountTwice(name.c_str(), work, undo);
        Count(("undo of " + name).c_str(), undo);
        Count(("redo of " + name).c_str(), redo);
        undo();
    };
    NativePlatform().clipboard = {{clipboardWide, EngineText(std::size_t{blockLines} * 33 - 1)}};
    countAll("paste of a block", [&] {
        engine.store.set_caret({middle, 7});
        engine.Paste();
    });
    countAll("deletion of a block", [&] {
        engine.store.select_range({middle, 7}, {middle + blockLines, 7});
        engine.Delete();
    });
    countAll("deletion of all", [&] { engine.DeleteAll(); });
    countAll("indent of a block", [&] {
        engine.store.select_range({middle, 0}, {middle + blockLines, 0});
        engine.stack.add_indent(false);
    });
    const CString inserted(EngineText(std::size_t{blockLines} * 33 - 1));
    countAll("insertion of a text", [&] {
        engine.store.set_caret({middle, 7});
        engine.stack.add_block(inserted, xTPos::none, xTPos::none, false);
    });
    const xTPos first{middle, 7};
    xTPos last{middle + blockLines, 6};
    CString dragged;
    engine.store.get_text(first, last, dragged);
    countAll("move of a block", [&] {
        engine.store.select_range(first, {last.line, last.col + 1});
        engine.store.set_caret({3, 0});
        engine.stack.add_block(dragged, first, last, true);
    });
}

void CountReplace(const WString& text)
{
    Engine engine(text, false);
    const xTSearchRequest request{CString(frequentWord), CString(_T("quantity")), xTSearchRequest::replaceAll};
    const auto undo = [&] { engine.stack.undo(); };
    CountTwice("replace all", [&] {
        engine.store.set_caret({0, 0});
        engine.stack.add_replace(request);
    }, undo);
    Count("undo of replace all", undo);
    Count("redo of replace all", [&] { engine.stack.redo(); });
}

void CountSearch(const WString& text)
{
    const Engine engine(text);
    for (const WStrView word : {WStrView(_T("quaternion")), WStrView(_T("counterx"))}) {
        const CString what(word);
        const std::string name(word.begin(), word.end());
        for (const bool matchCase : {true, false}) {
            const auto search = [&] { static_cast<void>(engine.store.find_text(what, true, false, matchCase, true)); };
            CountTwice(((matchCase ? "search, match case, " : "search, ignore case, ") + name).c_str(), search, [] {});
        }
    }
}

}  // namespace

int main()
{
    ResetNativePlatform();
    const WString text = EngineText(textSize);
    CountLoads(text);
    CountKeys(text);
    CountComment(text);
    CountBlocks(text);
    CountReplace(text);
    CountSearch(text);
    return 0;
}
