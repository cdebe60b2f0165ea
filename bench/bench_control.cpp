// The figures of a live control, each beside the floor of the same run. bench/run.sh starts it.

#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "bench/Messages.h"
#include "bench/SampleText.h"
#include "include/scrivctl3.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

HWND hostWindow = nullptr;

/// The committed memory that belongs to this process alone.
double PrivateBytes()
{
    double bytes = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; ::VirtualQuery(at, &region, sizeof region);
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
            bytes += static_cast<double>(region.RegionSize);
    return bytes;
}

void MemoryRow(const char* size, const char* what, double bytes, double goal)
{
    std::printf("%-2s %-34s %14.2f bytes a character", size, what, bytes);
    if (goal != 0)
        std::printf("  goal %4.2f  %s", goal, bytes <= goal ? "met" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

std::wstring FilePath()
{
    wchar_t folder[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + L"scrivbench.txt";
}

// What the control keeps of a text: its characters, their terminators and counts, the line records.
double KeptBytes(const std::wstring& text, double lines)
{
    return static_cast<double>(text.size()) * sizeof(wchar_t) + lines * (12 + 24);
}

void BenchLoad(const Size& size, const Floors& floors, const std::wstring& text)
{
    const bool goals = size.characters == 10'000'000;
    const int rounds = size.characters > 50'000'000 ? 3 : 7;
    const HWND control = MakeControl();
    const double before = PrivateBytes();
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        edLoadText(control, nullptr, 0);
        const double start = Now();
        edLoadText(control, text.c_str(), 0xFFFFFFFF);
        times.push_back(Now() - start);
    }
    const double lines = edGetLineCount(control);
    const double loadFloor = 40 * lines + 2.5 * floors.faultByte * KeptBytes(text, lines);
    Row(size.name, "load from memory to painted", MedianOf(times), "40 ns a line + 2.5 page faults", loadFloor, goals ? 1 : 0);
    const double loaded = PrivateBytes();
    MemoryRow(size.name, "private memory after the load", (loaded - before) / static_cast<double>(text.size()), goals ? 3.4 : 0);
    const int pages = static_cast<int>(std::min(lines / pageRows, 20000.0));
    for (int i = 0; i <= pages; ++i)
        edSetScrollPosition(control, static_cast<int>(lines * i / pages), -1);
    MemoryRow(size.name, "private memory when shown", (PrivateBytes() - before) / static_cast<double>(text.size()), goals ? 3.4 : 0);

    const std::wstring path = FilePath();
    const double saving = MedianTime(rounds, [&] { edSaveFile(control, path.c_str(), ED_ENCODING_UTF8); });
    Row(size.name, "save as UTF-8", saving, "copying the text's bytes", floors.copyByte * static_cast<double>(text.size()) * 2, 0);
    std::vector<double> fileTimes;
    for (int i = 0; i < rounds; ++i) {
        edLoadText(control, nullptr, 0);
        UINT32 encoding = ED_ENCODING_UTF8;
        const double start = Now();
        edLoadFile(control, path.c_str(), &encoding);
        fileTimes.push_back(Now() - start);
    }
    Row(size.name, "load from file to painted", MedianOf(fileTimes), "the load from memory", MedianOf(times), 0);
    ::DeleteFileW(path.c_str());
    const double out = MedianTime(rounds, [&] {
        std::wstring copy(edSaveText(control, nullptr), L'\0');
        edSaveText(control, copy.data());
    });
    Row(size.name, "whole text to memory", out, "copying the text's bytes", floors.copyByte * static_cast<double>(text.size()) * 2, 0);
    edDestroyCtrl(control);
}

void BenchView(const Size& size, const Floors& floors, const std::wstring& text)
{
    const HWND control = MakeControl();
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    const int lines = static_cast<int>(edGetLineCount(control));
    edSetScrollPosition(control, lines / 2, -1);
    Drain();
    Row(size.name, "full page paint", MedianTime(60, [&] {
            ::InvalidateRect(control, nullptr, TRUE);
            ::UpdateWindow(control);
        }), "a page of 46 rows, 10 runs each", floors.page, 2);
    int at = lines / 2;
    Row(size.name, "scroll by a line", MedianTime(200, [&] { ::SendMessageW(control, WM_VSCROLL, SB_LINEDOWN, 0); }),
        "one scroll bar call + one line", floors.scrollBar + floors.linePaint, 1.3);
    // What a scrolled line cannot do without here: the picture is moved by the system, the line is drawn off screen in a
    // bitmap of the screen's size, and the caret goes along.
    const double needed = floors.scrollBar + floors.linePaint + floors.shift + floors.bitmap + floors.caret;
    Row(size.name, "scroll by a line", MedianTime(200, [&] { ::SendMessageW(control, WM_VSCROLL, SB_LINEDOWN, 0); }),
        "the same + shift, bitmap and caret", needed, 0);
    Row(size.name, "scroll by a page", MedianTime(60, [&] { ::SendMessageW(control, WM_VSCROLL, SB_PAGEDOWN, 0); }),
        "one scroll bar call + one page", floors.scrollBar + floors.page, 0);
    Row(size.name, "jump to the end and back", MedianTime(20, [&] {
            at = at == 0 ? lines - 1 : 0;
            edSetCaretPosition(control, at, 0);
        }), "one scroll bar call + one page", floors.scrollBar + floors.page, 0);
    edDestroyCtrl(control);
}

// The scan alone: the same text with and without a comment opened at its very top, hidden so that nothing is painted.
void BenchScan(const Size& size, const Floors& floors, const std::wstring& text)
{
    const HWND control = MakeControl();
    ::ShowWindow(control, SW_HIDE);
    const std::wstring commented = L"/*" + text;
    const int rounds = size.characters > 50'000'000 ? 3 : 7;
    const auto load = [&](const std::wstring& t) {
        return MedianTime(rounds, [&] { edLoadText(control, t.c_str(), 0xFFFFFFFF); }, [&] { edLoadText(control, nullptr, 0); });
    };
    const double plain = load(text);
    const double all = load(commented);
    Row(size.name, "load, the text one open comment", all, "the load without painting", plain, 0);
    Row(size.name, "load without painting", plain, "page faults of the bytes kept",
        floors.faultByte * KeptBytes(text, edGetLineCount(control)), 0);
    edDestroyCtrl(control);
}

}  // namespace

void Row(const char* size, const char* what, double ns, const char* floorName, double floor, double goal)
{
    const char* mark = goal == 0 ? "" : ns <= goal * floor ? "met" : "MISSED";
    std::printf("%-2s %-34s %14.0f ns  %-34s %14.0f ns  %6.2f x", size, what, ns, floorName, floor, ns / floor);
    if (goal != 0)
        std::printf("  goal %4.2f  %s", goal, mark);
    std::printf("\n");
    std::fflush(stdout);
}

HWND MakeControl()
{
    edHighlightHook hook{&ClassifySample, nullptr};
    RECT rect{0, 0, clientSize.cx, clientSize.cy};
    edCreateParams params{};
    params.parent = hostWindow;
    params.rect = &rect;
    params.highlightHook = &hook;
    const HWND control = edCreateCtrl(&params);
    // The client area is what counts: the frame and the bars come on top of it.
    RECT client{};
    ::GetClientRect(control, &client);
    ::SetWindowPos(control, nullptr, 0, 0, 2 * clientSize.cx - client.right, 2 * clientSize.cy - client.bottom,
                   SWP_NOMOVE | SWP_NOZORDER);
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    Drain();
    return control;
}

int main(int argc, char** argv)
{
    const Size sizes[] = {{"S", 1'000'000}, {"M", 10'000'000}, {"L", 100'000'000}};
    const std::string wanted = argc > 1 ? argv[1] : "SML";
    const struct {
        char letter;
        void (*run)(const Size&, const Floors&, const std::wstring&);
    } topics[] = {{'l', BenchLoad}, {'v', BenchView}, {'s', BenchScan}, {'k', BenchKeys}};
    const std::string wantedTopics = argc > 2 ? argv[2] : "lvsk";
    hostWindow = ::CreateWindowExW(0, L"STATIC", L"bench", WS_POPUP | WS_VISIBLE, 0, 0, 1280, 1024, nullptr, nullptr,
                                   nullptr, nullptr);
    Drain();
    for (const Size& size : sizes) {
        if (wanted.find(size.name) == std::string::npos)
            continue;
        // Anew for each size: a shared machine changes its pace within minutes.
        const Floors floors = MeasureFloors(clientSize);
        std::printf("floors: line %.0f ns, line without caret %.0f ns, page %.0f ns, scroll bar %.0f ns, page faults %.3f ns a byte, "
                    "scan %.3f ns a byte, copy %.3f ns a byte\n",
                    floors.line, floors.linePaint, floors.page, floors.scrollBar, floors.faultByte, floors.scanByte, floors.copyByte);
        const std::wstring text = SampleText(size.characters);
        for (const auto& topic : topics)
            if (wantedTopics.find(topic.letter) != std::string::npos)
                topic.run(size, floors, text);
    }
    return 0;
}
