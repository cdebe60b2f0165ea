#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "bench/Messages.h"
#include "include/scrivctl3.h"
#include "tests/support/win/MessageBoxes.h"

#include <commdlg.h>
#include <dlgs.h>

#include <iterator>
#include <utility>

// What searching and replacing costs in a visible control, asked for through the system's own dialog.

namespace {

constexpr wchar_t word[] = L"seek";
constexpr const wchar_t* longer = L"seeker";  // so that lines change their length
constexpr double charactersAMatch = 10'000'000.0 / 94'000;
constexpr double replaceGoal = 1000;  // nanoseconds a match
constexpr double undoGoal = 700;
constexpr double bytesGoal = 4.0;  // a character

struct Marked {
    std::wstring text;
    double matches = 0;
};

// The word at the head of lines that begin with as many blanks, evenly over the text: 94,000 in ten million characters.
Marked WithMatches(std::wstring text)
{
    constexpr std::size_t length = std::size(word) - 1;
    const std::wstring blanks(length, L' ');
    double matches = 0;
    for (std::size_t line = 0; line < text.size(); line = text.find(L'\n', line) + 1) {
        if (static_cast<double>(line) < matches * charactersAMatch || text.compare(line, length, blanks) != 0)
            continue;
        text.replace(line, length, word);
        ++matches;
    }
    return {std::move(text), matches};
}

HWND OpenReplaceDialog(HWND control, const wchar_t* what, const wchar_t* with)
{
    edExecCommand(control, ED_COMMAND_REPLACE);
    Drain();
    HWND dialog = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            if (::GetDlgItem(window, edt2))
                *reinterpret_cast<HWND*>(result) = window;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&dialog));
    ::SetDlgItemTextW(dialog, edt1, what);
    ::SetDlgItemTextW(dialog, edt2, with);
    return dialog;
}

/// The time from the button to the message box that says how many: the box itself is not the control's work.
double TimeOfButton(HWND dialog, int button)
{
    MessageBoxes boxes;
    double shown = 0;
    boxes.onBox = [&](HWND) { shown = Now(); };
    const double start = Now();
    ::SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
    return (shown != 0 ? shown : Now()) - start;
}

/// What a host gets for each match, in nanoseconds.
double TimeOfMessage()
{
    return MedianTime(9, [] { ::SendNotifyMessageW(HostWindow(), ED_NOTIFY_CARET, 1, 0); }, {}, 5000);
}

class Replacing {
public:
    explicit Replacing(const Bench& bench)
        : m_size(bench.size), m_text(WithMatches(bench.text)), m_control(MakeControl()), m_before(PrivateBytes())
    {
        edLoadText(m_control, m_text.text.c_str(), 0xFFFFFFFF);
        m_dialog = OpenReplaceDialog(m_control, word, longer);
    }
    Replacing(const Replacing&) = delete;
    Replacing& operator=(const Replacing&) = delete;
    ~Replacing() { edDestroyCtrl(m_control); }

    void AllAndBack()
    {
        std::vector<double> replaced;
        std::vector<double> undone;
        std::vector<double> redone;
        for (int round = 0; round < 3; ++round) {
            m_messages.push_back(TimeOfMessage());
            replaced.push_back(TimeOfButton(m_dialog, psh2));
            ::SetFocus(m_control);
            undone.push_back(TimeOfCommand(ED_COMMAND_UNDO));
            redone.push_back(TimeOfCommand(ED_COMMAND_REDO));
            edExecCommand(m_control, ED_COMMAND_UNDO);
        }
        Report("replace all, a match", MedianOf(replaced), "1 us", replaceGoal);
        Report("undo of it, a match", MedianOf(undone), "0.7 us", undoGoal);
        Report("redo of it, a match", MedianOf(redone), "1 us", replaceGoal);
        PrintBytes(m_size.name, "private memory after replace all and undo",
                   (PrivateBytes() - m_before) / static_cast<double>(m_text.text.size()),
                   m_size.characters < 10'000'000 ? 0 : bytesGoal);
    }

    void NotFound()
    {
        edSetCaretPosition(m_control, 0, 0);
        ::SetDlgItemTextW(m_dialog, edt1, L"nowhere to be found");
        const double bytes = static_cast<double>(m_text.text.size()) * sizeof(wchar_t);
        Print({m_size.name, "find what is not there", TimeOfButton(m_dialog, IDOK), "reading its bytes (F5)",
               MeasureMemoryFloors().scan * bytes});
    }

private:
    double TimeOfCommand(int command) const
    {
        return TimeOf([&] { edExecCommand(m_control, command); });
    }
    void Report(const char* what, double ns, const char* goalName, double goal) const
    {
        const double message = MedianOf(m_messages);
        const TableRow row{m_size.name, what, ns / m_text.matches, goalName, goal, 1};
        Print(row);
        PrintBound(row, "the message that tells the host of each", message);
    }

    const Size& m_size;
    Marked m_text;
    HWND m_control;
    double m_before;
    HWND m_dialog = nullptr;
    std::vector<double> m_messages;
};

}  // namespace

void BenchFind(const Bench& bench)
{
    Replacing replacing(bench);
    replacing.AllAndBack();
    replacing.NotFound();
}
