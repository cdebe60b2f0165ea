#include "tests/control/streams/Stage.h"

#include <vector>

namespace {

std::string FaultOfText(HWND control)
{
    const UINT32 length = edSaveText(control, nullptr);
    const UINT32 lines = edGetLineCount(control);
    std::vector<wchar_t> text(length + 1, L'#');
    edSaveText(control, text.data());
    if (text[length] != L'#' || text[length - 1] != 0)
        return "edSaveText writes more or less than it tells";
    UINT32 sum = 0;
    for (UINT32 line = 0; line < lines; ++line) {
        UINT32 size = 0;
        if (edGetLine(control, line, 0, nullptr, &size) || size > 1000)
            return "edGetLine tells a wrong size of line " + std::to_string(line);
        std::vector<wchar_t> one(size + 1, L'#');
        if (!edGetLine(control, line, 0, one.data(), &size) || one[size] != L'#' || one[size - 1] != 0)
            return "edGetLine does not fill its buffer as it tells";
        sum += size;
    }
    const UINT32 expected = lines == 0 ? 1 : lines == 1 && sum == 1 ? 2 : sum;
    return length == expected ? "" : "edSaveText and edGetLine tell different lengths";
}

std::string FaultOfPositions(HWND control)
{
    const auto lines = static_cast<INT32>(edGetLineCount(control));
    edPoint caret{-1, -1};
    if (!edGetPosition(control, ED_POSITION_CARET, &caret) || caret.x < 0 || caret.y < 0 || caret.y > lines)
        return "the caret is outside the text";
    edPoint view{-1, -1};
    // A load leaves the view where it was, be it behind the end of a shorter text: required.
    if (!edGetPosition(control, ED_POSITION_VIEWPORT, &view) || view.x < 0 || view.y < 0)
        return "the view begins before the text";
    const int marks = edGetBreakPointCount(control);
    if (marks < 0 || marks > lines || (marks > 0 && edGetBreakPointLine(control, static_cast<UINT32>(marks) - 1) < 0))
        return "break points outside the text";
    return "";
}

}  // namespace

int Choices::Number()
{
    constexpr int extreme[] = {-1, -2, 0x7FFFFFFF, -0x7FFFFFFF - 1, 65535, 65536, 511, 512, 513, 100000};
    const unsigned byte = Byte();
    return byte < 200 ? static_cast<int>(byte % 40) : extreme[byte % std::size(extreme)];
}

std::wstring Choices::Text()
{
    constexpr const wchar_t* pieces[] = {L"word ", L"\n", L"\r\n", L"\t", L"/* ", L"*/", L"//", L"\"",
                                         L"\x0416\x0436", L"\xD83D\xDE00", L"\xD800", L"x = 1;\n"};
    std::wstring text;
    for (unsigned count = Below(24); count > 0; --count) {
        const unsigned byte = Byte();
        if (byte >= 0xF0)
            text.append((byte & 15) * 60u, L'z');  // towards the limits of a line
        else
            text += pieces[byte % std::size(pieces)];
    }
    return text;
}

Stage::Stage()
{
    const HDC screen = ::GetDC(nullptr);
    paper = ::CreateCompatibleDC(screen);
    ::ReleaseDC(nullptr, screen);
    controls[0] = host.Show(L"first\nsecond /* comment\nthird */\n\nlast");
    controls[1] = host.Create();
}

Stage::~Stage()
{
    for (const HWND control : controls)
        edDestroyCtrl(control);
    ::DeleteDC(paper);
}

HWND Stage::Control(Choices& from)
{
    switch (from.Below(16)) {
    case 13: return nullptr;
    case 14: return gone;
    case 15: return host.Window();  // a window, but no control
    default: return controls[from.Below(2)];
    }
}

void Stage::Classify(void* ctx, wchar_t* text, int insideComment)
{
    static_cast<Stage*>(ctx)->host.Forget();
    for (; *text; ++text)
        *text = static_cast<wchar_t>((*text * 7 + insideComment) % 110);
}

HWND Stage::Make(Choices& from)
{
    const edHighlightHook hook{from.Below(2) ? &Stage::Classify : nullptr, this};
    const edSettingsBlock block{settings.empty() ? nullptr : settings.data(), static_cast<UINT32>(settings.size())};
    edCreateParams params{};
    params.flags = from.Byte();
    params.highlightHook = from.Below(4) ? &hook : nullptr;
    params.settings = from.Below(4) ? &block : nullptr;
    params.defaultTheme = from.Byte();
    params.caption = from.Below(2) ? L"caption" : nullptr;
    return host.Create(params);
}

std::string Stage::Faults() const
{
    for (const HWND control : controls) {
        if (edGetHWND(control) != control)
            return "a control is gone";
        if (const std::string fault = FaultOfText(control) + FaultOfPositions(control); !fault.empty())
            return fault;
    }
    return "";
}
