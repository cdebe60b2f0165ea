#include "tests/failure/SceneTest.h"

#include "tests/failure/CrashNote.h"

#include <algorithm>
#include <cstdlib>
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
    return std::getenv("SCRIV_FULL") ? 1 : std::max(1, all / mostInASlice);
}

void SceneTest::Prepare(Course& course)
{
    stage->Begin(GetParam().text);
    course.loaded = TextOf(stage->control);
    if (GetParam().prepare)
        GetParam().prepare(*stage);
    course.before = TextOf(stage->control);
    course.fileBefore = stage->folder.bytes("text.txt");
    std::filesystem::remove(stage->folder.path() / "scrivctl.log");
}

SceneTest::Course SceneTest::PlayWell()
{
    Course course;
    Prepare(course);
    for (Import& import : stage->library.All())
        import.calls = 0;
    {
        const Fault counting(nullptr);
        course.answer = GetParam().act(*stage);
        course.memoryRequests = Fault::Calls();
    }
    for (const Import& import : stage->library.All())
        if (import.how && import.calls > 0)
            course.calls.emplace_back(&import, import.calls);
    course.after = TextOf(stage->control);
    course.fileAfter = stage->folder.bytes("text.txt");
    EXPECT_TRUE(stage->Records().empty()) << stage->Records().front();
    stage->End();
    return course;
}

void SceneTest::PlayFailing(Course& course, const Import* function, int n, Fault::HowLong howLong, bool mustReport)
{
    const bool once = howLong == Fault::HowLong::once;
    const std::string what = std::string(GetParam().name) + ": " + (function ? function->name : "memory") + " fails at call " +
                             std::to_string(n) + (once ? "" : " and from then on");
    SCOPED_TRACE(what);
    const CrashNote note(what.c_str());
    Course now;
    Prepare(now);
    EXPECT_EQ(now.before, course.before) << "it did not begin as it should";
    course.failing = function ? function->name : "";
    std::int64_t answer = 0;
    {
        const Fault fault(function, n, howLong);
        answer = GetParam().act(*stage);
    }
    ++points;
    Look(course, answer, howLong, mustReport);
    stage->End();
}

void SceneTest::Look(const Course& course, std::int64_t answer, Fault::HowLong howLong, bool mustReport)
{
    LookAtAnswer(course, answer);
    LookAtFile(course);
    const HWND control = stage->control;
    if (!edGetHWND(control)) {
        EXPECT_TRUE(GetParam().allows & Scene::gone) << "the control is gone";
        EXPECT_FALSE(::IsWindow(control)) << "a window without its object";
        return;
    }
    const std::wstring text = TextOf(control);
    const bool allDone = answer == course.answer && text == course.after && stage->folder.bytes("text.txt") == course.fileAfter;
    const bool refused = answer != course.answer && answer == GetParam().afterAFault;
    LookAtRecords(allDone, refused, howLong, mustReport);
    LookAtText(course, text);
    ::SetFocus(control);
    UndoAll(course, text);
    GoOnWorking();
}

void SceneTest::LookAtAnswer(const Course& course, std::int64_t answer)
{
    const bool isSum = GetParam().allows & Scene::sum;
    // A handle that the system does not know any more is a bad one.
    const bool isBadHandle = answer == 0 && !course.failing.empty();
    EXPECT_TRUE(answer == course.answer || answer == GetParam().afterAFault || isBadHandle || (isSum && answer < course.answer))
        << "it answers " << answer << " and not " << course.answer << " or " << GetParam().afterAFault;
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
    const bool told = !records.empty() || refused || stage->boxes > 0 || (GetParam().allows & Scene::quiet);
    EXPECT_TRUE(allDone || told) << "nothing is on record of what was not done";
    EXPECT_TRUE(howLong == Fault::HowLong::fromThenOn || records.size() <= 1) << records.size() << " records";
}

void SceneTest::LookAtText(const Course& course, const std::wstring& text)
{
    const HWND control = stage->control;
    // A load empties the control first, as required: what fails leaves nothing, or the first lines.
    const bool loading = (GetParam().allows & Scene::newText) && course.after.starts_with(text);
    const bool halfWay = GetParam().allows & Scene::halfWay;
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

void SceneTest::UndoAll(const Course& course, const std::wstring& text)
{
    constexpr int most = 400;  // the list holds 300
    int undone = 0;
    while (edCanExecCommand(stage->control, ED_COMMAND_UNDO) && undone++ < most)
        edExecCommand(stage->control, ED_COMMAND_UNDO);
    EXPECT_LT(undone, most);
    const std::wstring left = TextOf(stage->control);
    const bool replaced = (GetParam().allows & Scene::newText) && text != course.before;
    const bool exact = left == (replaced ? text : course.loaded) || (undone == 0 && left == text);
    const bool halfWay = text != course.before && text != course.after && (GetParam().allows & Scene::halfWay);
    if (exact || (GetParam().allows & Scene::keepsStep))
        return;
    ++inexact;
    if (!halfWay || !HoldsEachLineOf(left, course.loaded))
        ADD_FAILURE() << "undo leads to " << Short(left) << "\n     and not to " << Short(course.loaded)
                      << "\n     from " << Short(text) << "\n     record " << (stage->Records().empty() ? "" : stage->Records()[0]);
}

// A key goes in, and the window is drawn.
void SceneTest::GoOnWorking()
{
    const std::wstring before = TextOf(stage->control);
    edSetCaretPosition(stage->control, 0, 0);
    stage->Type(L"Q");
    const std::wstring after = TextOf(stage->control);
    EXPECT_TRUE(after != before && after[0] == L'Q') << "it takes no characters any more";
    Import* drawing = stage->library.Find("BitBlt");
    drawing->calls = 0;
    const Fault counting(drawing);
    stage->Repaint();
    EXPECT_EQ(drawing->calls, 1) << "it is not drawn any more";
}
