#include "tests/failure/SceneTest.h"

#include "tests/failure/CrashNote.h"

#include <algorithm>
#include <regex>
#include <sstream>

namespace {

ULONGLONG begun = 0;

std::string Short(const std::wstring& text)
{
    std::string narrow;
    for (const wchar_t ch : text.substr(0, 300))
        narrow += ch == L'\n' ? '$' : ch < 128 ? static_cast<char>(ch) : '?';
    return narrow + " (" + std::to_string(text.size()) + ")";
}

/// Nothing rolls back, so what stopped half-way may be there twice after its undo. But nothing of it is missing.
bool HoldsEachLineOf(std::wstring text, const std::wstring& lines)
{
    std::erase(text, L'\n');
    std::wistringstream all(lines);
    for (std::wstring line; std::getline(all, line);)
        if (text.find(line) == text.npos)
            return false;
    return true;
}

int LengthOf(HWND control, int line)
{
    UINT32 length = 0;
    edGetLine(control, static_cast<UINT32>(line), 0, nullptr, &length);
    return static_cast<int>(length) - 1;
}

}  // namespace

void SceneTest::SetUpTestSuite()
{
    stage = std::make_unique<Stage>();
    points = 0;
    inexact = 0;
    begun = ::GetTickCount64();
}

void SceneTest::TearDownTestSuite()
{
    const double seconds = static_cast<double>(::GetTickCount64() - begun) / 1000;
    std::printf("%d points in %.1f s; after %d of them undo leads back to the text with something in it twice\n", points,
                seconds, inexact);
    stage.reset();
}

int SceneTest::StepFor(int all, int mostInASlice)
{
    return IsFullRun() ? 1 : std::max(1, all / mostInASlice);
}

void SceneTest::Prepare(Course& course, bool anew)
{
    stage->Begin(TheScene().text, *GetParam().state, anew || (TheScene().allows & Scene::fresh));
    course.loaded = TextOf(stage->control);
    if (TheScene().prepare)
        TheScene().prepare(*stage);
    course.before = TextOf(stage->control);
    course.fileBefore = stage->folder.bytes("text.txt");
    stage->ForgetRecords();
}

SceneTest::Course SceneTest::PlayWell()
{
    Course course;
    Prepare(course, true);
    for (Import& import : stage->library.All())
        import.calls = 0;
    {
        const Fault counting(nullptr);
        course.answer = TheScene().act(*stage);
        course.memoryRequests = Fault::Calls();
    }
    for (const Import& import : stage->library.All())
        if (import.how && import.calls > 0)
            course.calls.emplace_back(&import, import.calls);
    course.after = TextOf(stage->control);
    course.fileAfter = stage->folder.bytes("text.txt");
    EXPECT_TRUE(stage->Records().empty()) << stage->Records().front();
    return course;
}

bool SceneTest::PlayFailing(Course& course, const Import* function, int n, Fault::HowLong howLong, bool mustReport)
{
    const bool once = howLong == Fault::HowLong::once;
    const std::string what = GetParam().Name() + ": " + (function ? function->name : "memory") + " fails at call " +
                             std::to_string(n) + (once ? "" : " and from then on");
    SCOPED_TRACE(what);
    const CrashNote note(what.c_str());
    Course now;
    Prepare(now, false);
    EXPECT_EQ(now.before, course.before) << "it did not begin as it should";
    course.failing = function ? function->name : "";
    std::int64_t answer = 0;
    {
        const Fault fault(function, n, howLong);
        answer = TheScene().act(*stage);
    }
    const bool failed = Fault::Failures() > 0;
    points += failed;
    Look(course, answer, howLong, mustReport);
    return failed;
}

void SceneTest::Look(const Course& course, std::int64_t answer, Fault::HowLong howLong, bool mustReport)
{
    LookAtAnswer(course, answer);
    LookAtFile(course);
    const HWND control = stage->control;
    if (!edGetHWND(control)) {
        EXPECT_TRUE(TheScene().allows & Scene::gone) << "the control is gone";
        EXPECT_FALSE(::IsWindow(control)) << "a window without its object";
        return;
    }
    const std::wstring text = TextOf(control);
    const bool allDone = answer == course.answer && text == course.after && stage->folder.bytes("text.txt") == course.fileAfter;
    const bool refused = answer != course.answer && answer == TheScene().afterAFault;
    LookAtRecords(allDone, refused, howLong, mustReport);
    LookAtText(course, text);
    LookAtUndo(course, text);
    // A control that goes on with the next point shows there that it still works, but for the drawing.
    constexpr int everySoMany = 8;
    if ((TheScene().allows & Scene::fresh) || points % everySoMany == 0)
        GoOnWorking();
}

void SceneTest::LookAtAnswer(const Course& course, std::int64_t answer)
{
    const bool isSum = TheScene().allows & Scene::sum;
    // A handle that the system does not know any more is a bad one.
    const bool isBadHandle = answer == 0 && !course.failing.empty();
    EXPECT_TRUE(answer == course.answer || answer == TheScene().afterAFault || isBadHandle || (isSum && answer < course.answer))
        << "it answers " << answer << " and not " << course.answer << " or " << TheScene().afterAFault;
}

void SceneTest::LookAtRecords(bool allDone, bool refused, Fault::HowLong howLong, bool mustReport)
{
    static const std::regex record(
        R"(\d{1,2}\.\d{1,2}\.\d{4}  \d{1,2}:\d{1,2}:\d{1,2}\.\d{1,3}: in [A-Za-z/_.]+\(\d+\)( error: .+\.| unknown error\.))");
    const std::vector<std::string> records = stage->Records();
    for (const std::string& line : records)
        EXPECT_TRUE(std::regex_match(line, record)) << line;
    if (!mustReport)
        return;
    // Tabs become spaces through the deletion of characters in a line, which swallows a lack of memory: required.
    const bool quiet = (TheScene().allows & Scene::quiet) || GetParam().state->spacesForTabs;
    const bool told = !records.empty() || refused || stage->boxes > 0 || quiet;
    EXPECT_TRUE(allDone || told) << "nothing is on record of what was not done";
    EXPECT_TRUE(howLong == Fault::HowLong::fromThenOn || records.size() <= 1) << records.size() << " records";
}

void SceneTest::LookAtText(const Course& course, const std::wstring& text)
{
    const HWND control = stage->control;
    // A load empties the control first, as required: what fails leaves nothing, or the first lines.
    const bool loading = (TheScene().allows & Scene::newText) && course.after.starts_with(text);
    const bool halfWay = TheScene().allows & Scene::halfWay;
    EXPECT_TRUE(halfWay || loading || text == course.before || text == course.after) << Short(text);
    const auto lines = static_cast<int>(edGetLineCount(control));
    const auto breaks = static_cast<int>(std::count(text.begin(), text.end(), L'\n'));
    EXPECT_TRUE(text.empty() || text == L"\n" || lines == breaks + 1) << lines << " lines, " << breaks << " breaks";
    edPoint caret{-9, -9};
    EXPECT_TRUE(edGetPosition(control, ED_POSITION_CARET, &caret));
    EXPECT_GE(caret.y, 0);
    EXPECT_GE(caret.x, 0);
    EXPECT_LT(caret.y, std::max(lines, 1));
    EXPECT_LE(caret.x, LengthOf(control, caret.y)) << "in line " << caret.y;
}

void SceneTest::LookAtFile(const Course& course)
{
    const std::string bytes = stage->folder.bytes("text.txt");
    EXPECT_TRUE(bytes == course.fileBefore || bytes == course.fileAfter) << "a file half written: " << bytes.size();
    for (const std::string& name : stage->folder.names()) {
        if (name == "text.txt" || name == "scrivctl.log")
            continue;
        EXPECT_EQ(course.failing, "DeleteFileW") << "left behind: " << name;
        std::filesystem::remove(stage->folder.path() / name);
    }
}

/// To the start. Returns the text that is there then.
std::wstring SceneTest::Undo()
{
    constexpr int most = 400;  // the list holds 300
    ::SetFocus(stage->control);
    int undone = 0;
    while (edCanExecCommand(stage->control, ED_COMMAND_UNDO) && undone++ < most)
        edExecCommand(stage->control, ED_COMMAND_UNDO);
    EXPECT_LT(undone, most);
    return TextOf(stage->control);
}

void SceneTest::LookAtUndo(const Course& course, const std::wstring& text)
{
    const std::wstring left = Undo();
    const bool replaced = (TheScene().allows & Scene::newText) && text != course.before;
    const bool exact = left == (replaced ? text : course.loaded);
    const bool halfWay = text != course.before && text != course.after && (TheScene().allows & Scene::halfWay);
    if (exact || (TheScene().allows & Scene::keepsStep))
        return;
    ++inexact;
    if (!halfWay || !HoldsEachLineOf(left, course.loaded))
        ADD_FAILURE() << "undo leads to " << Short(left) << "\n     and not to " << Short(course.loaded)
                      << "\n     from " << Short(text) << "\n     record " << (stage->Records().empty() ? "" : stage->Records()[0]);
}

// A key goes in, and the window is drawn.
void SceneTest::GoOnWorking()
{
    const bool editable = !edGetMode(stage->control, ED_MODE_READONLY);
    const std::wstring before = TextOf(stage->control);
    if (!edGetMode(stage->control, ED_MODE_INSERT))
        stage->Command(ED_COMMAND_TOGGLE_OVERWRITE);
    edSetCaretPosition(stage->control, 0, 0);
    stage->Type(L"Q");
    const std::wstring after = TextOf(stage->control);
    EXPECT_EQ(after, (editable ? L"Q" : L"") + before) << "it takes no characters any more";
    Import* drawing = stage->library.Find("BitBlt");
    drawing->calls = 0;
    const Fault counting(drawing);
    stage->Repaint();
    EXPECT_EQ(drawing->calls, 1) << "it is not drawn any more";
}
