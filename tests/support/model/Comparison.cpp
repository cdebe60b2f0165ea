#include "tests/support/model/Comparison.h"

#include "tests/support/model/ReadableText.h"
#include "tests/support/native/PlatformNative.h"

namespace {

constexpr xTKeyLayout layoutWithoutKeys = 0x04070407;

std::string Shown(const xTPos& pos)
{
    return "(" + std::to_string(pos.line) + "," + std::to_string(pos.col) + ")";
}

std::string Shown(const WString& text)
{
    return ReadableText(text);
}

std::string Shown(bool value)
{
    return value ? "true" : "false";
}

std::string Shown(int value)
{
    return std::to_string(value);
}

WString Plain(const CString& text)
{
    return WString(text.view());
}

// Collects the first difference.
class xTFinder {
public:
    template <typename Value>
    void Same(const char* what, const Value& model, const Value& engine)
    {
        if (found.empty() && model != engine)
            found = where + what + ": the model has " + Shown(model) + ", the engine " + Shown(engine);
    }
    std::string where;
    std::string found;
};

void CompareLine(xTFinder& finder, const xTNaiveLine& model, const xTExtString& engine)
{
    if (engine.m_text != WStrView(model.text))
        finder.Same("text", model.text, Plain(engine.m_text));
    finder.Same("flags", static_cast<int>(model.flags), int{engine.m_flags});
    finder.Same("snapshot", model.snapshot, static_cast<int>(engine.m_snapshotLine));
    finder.Same("number of marks", model.Length(), static_cast<int>(engine.m_attrs.GetLength()));
    if (!finder.found.empty())
        return;
    const WStrView marks = engine.m_attrs.view();
    for (std::size_t col = 0; col < marks.size(); ++col) {
        if (((model.attrs[col] ^ marks[col]) & xTNaiveLine::commentMark) != 0)
            finder.Same(("comment mark at " + std::to_string(col)).c_str(), model.IsMarked(static_cast<int>(col)),
                        (marks[col] & xTNaiveLine::commentMark) != 0);
    }
}

void CompareStore(xTFinder& finder, const xTNaiveStore& model, const xTMemStorage& engine)
{
    finder.Same("caret", model.caret, engine.caret);
    finder.Same("first", model.first, engine.selection.first);
    finder.Same("last", model.last, engine.selection.last);
    finder.Same("anchor", model.anchor, engine.selection.anchor);
    finder.Same("comments_valid", model.commentsValid, engine.comments_valid);
    finder.Same("exec_line", model.execLine, static_cast<int>(engine.exec_line));
    finder.Same("number of lines", model.Count(), static_cast<int>(engine.line_count()));
    for (int line = 0; line < model.Count() && finder.found.empty(); ++line) {
        finder.where = "line " + std::to_string(line) + ", ";
        CompareLine(finder, model.lines[static_cast<std::size_t>(line)], engine.lines[line]);
    }
    finder.where.clear();
}

void CompareTexts(xTFinder& finder, const xTNaiveOperation& model, const xTOperation& engine)
{
    finder.Same("text", model.text, Plain(engine.text.Spelt()));
    finder.Same("text2", model.text2, Plain(engine.text2.Spelt()));
    finder.Same("find_text", model.findText, Plain(engine.find_text));
    finder.Same("replace_text", model.replaceText, Plain(engine.replace_text));
    finder.Same("number of replacements", static_cast<int>(model.replacements.size()),
                static_cast<int>(engine.replacements.size()));
    for (std::size_t i = 0; i < model.replacements.size() && finder.found.empty(); ++i) {
        finder.Same("replacement's place", model.replacements[i].pos, engine.replacements[i].pos);
        finder.Same("replacement's text", model.replacements[i].oldText, Plain(engine.replacements[i].old_text));
    }
}

void CompareStep(xTFinder& finder, const xTNaiveOperation& model, const xTOperation& engine)
{
    finder.Same("kind", model.kind, static_cast<int>(engine.kind));
    finder.Same("pos", model.pos, engine.pos);
    finder.Same("count", model.count, static_cast<int>(engine.Count()));
    finder.Same("count2", model.count2, static_cast<int>(engine.count2));
    finder.Same("from", model.from, engine.from);
    finder.Same("to", model.to, engine.to);
    finder.Same("split", model.split, engine.split);
    finder.Same("move", model.move, engine.move);
    finder.Same("after_source", model.afterSource, engine.after_source);
    finder.Same("to_upper", model.toUpper, engine.to_upper);
    finder.Same("whole_word", model.wholeWord, engine.whole_word);
    finder.Same("match_case", model.matchCase, engine.match_case);
    CompareTexts(finder, model, engine);
}

void CompareList(xTFinder& finder, const char* name, const std::deque<xTNaiveOperation>& model,
                 const std::list<xTOperation>& engine)
{
    finder.Same(name, static_cast<int>(model.size()), static_cast<int>(engine.size()));
    auto step = engine.begin();
    for (std::size_t i = 0; i < model.size() && finder.found.empty(); ++i, ++step) {
        finder.where = std::string(name) + " step " + std::to_string(i) + ", ";
        CompareStep(finder, model[i], *step);
    }
    finder.where.clear();
}

WString BoxText(const xTNaiveStore::xTBox& box)
{
    WString text = NativePlatform().strings[box.string];
    if (const auto at = text.find(_T("%d")); at != WString::npos) {
        const std::string number = std::to_string(box.replacements);
        text.replace(at, 2, WString(number.begin(), number.end()));
    }
    return text;
}

void CompareBoxes(xTFinder& finder, const xTNaiveStore& model)
{
    const auto& platform = NativePlatform();
    finder.Same("number of message boxes", static_cast<int>(model.boxes.size()), platform.boxCount);
    if (finder.found.empty() && platform.boxCount > 0 && platform.boxCount <= xTNativePlatform::boxRoom)
        finder.Same("message box", BoxText(model.boxes.back()), WString(platform.LastBox().text()));
}

}  // namespace

std::string Difference(const xTNaiveEditor& model, const xTEngineSide& engine)
{
    xTFinder finder;
    CompareStore(finder, model.store, engine.store);
    CompareList(finder, "undoList", model.undoList, engine.stack.undoList);
    CompareList(finder, "redoList", model.redoList, engine.stack.redoList);
    CompareBoxes(finder, model.store);
    return finder.found;
}

xTSideBySide::xTSideBySide()
{
    ResetNativePlatform();
    NativePlatform().layouts.push_back(layoutWithoutKeys);
    // Failures that the rules call for are on record in a log that cannot be opened.
    NativePlatform().executablePath = _T("no such folder\\model.exe");
}

std::string xTSideBySide::Do(const xTCommand& command)
{
    const xTCommandRow& row = CommandRows()[command.verb];
    const auto layouts = NativePlatform().layouts;
    int told = 0;
    row.model(model, command, told);
    const auto modelLayouts = std::exchange(NativePlatform().layouts, layouts);
    int answered = 0;
    row.engine(engine, command, answered);
    if (told != answered)
        return "the model answers " + std::to_string(told) + ", the engine " + std::to_string(answered);
    if (modelLayouts != NativePlatform().layouts)
        return "the keyboard layouts differ";
    return Difference(model, engine);
}

std::string xTSideBySide::GoBackAndForth()
{
    static const xTCommand undo{.verb = CommandRow("undo")};
    static const xTCommand redo{.verb = CommandRow("redo")};
    for (const xTCommand& step : {undo, redo}) {
        const auto& list = step == undo ? model.undoList : model.redoList;
        while (!list.empty()) {
            if (const std::string found = Do(step); !found.empty())
                return std::string(CommandRows()[step.verb].name) + ": " + found;
        }
    }
    return {};
}

std::string RunHistory(const xTHistory& history)
{
    xTSideBySide sides;
    for (std::size_t i = 0; i < history.size(); ++i) {
        if (const std::string found = sides.Do(history[i]); !found.empty())
            return "behind command " + std::to_string(i + 1) + ": " + found;
    }
    if (const std::string found = sides.GoBackAndForth(); !found.empty())
        return "going back and forth, " + found;
    return {};
}
