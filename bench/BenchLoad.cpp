#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "include/scrivctl3.h"

#include <algorithm>

// A text in and out, and the memory that it takes.

namespace {

constexpr double loadNsALine = 20;
constexpr double fileNsAByte = 1;
constexpr double bytesGoal = 3.2;  // a character

// What the control keeps of a text: its characters, their terminators and counts, the line records.
double KeptBytes(const std::wstring& text, double lines)
{
    return static_cast<double>(text.size()) * sizeof(wchar_t) + lines * (12 + 24);
}

std::wstring FilePath()
{
    wchar_t folder[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + L"scrivbench.txt";
}

double FileBytes(const std::wstring& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    return static_cast<double>(data.nFileSizeHigh) * 4294967296.0 + data.nFileSizeLow;
}

class Loads {
public:
    explicit Loads(const Bench& bench)
        : m_bench(bench),
          m_rounds(bench.size.characters > 50'000'000 ? 3 : 9),
          m_control(MakeControl()),
          m_before(PrivateBytes())
    {
    }
    Loads(const Loads&) = delete;
    Loads& operator=(const Loads&) = delete;
    ~Loads() { edDestroyCtrl(m_control); }

    void FromMemory()
    {
        std::vector<double> times;
        std::vector<double> faults;
        for (int i = 0; i < m_rounds; ++i) {
            edLoadText(m_control, nullptr, 0);
            faults.push_back(MeasureMemoryFloors().fault);
            times.push_back(TimeOfLoad(m_control, m_bench.text));
        }
        m_lines = edGetLineCount(m_control);
        Print({m_bench.size.name, "load from memory to painted", MedianOf(times), "page faults twice (2 F4), 20 ns a line",
               Floor(MedianOf(faults)), Goal(1)});
        Bytes("private memory after the load");
    }

    void ShowAll()
    {
        const int pages = static_cast<int>(std::min(m_lines / pageRows, 20000.0));
        for (int i = 0; i <= pages; ++i)
            edSetScrollPosition(m_control, static_cast<int>(m_lines * i / pages), -1);
        Bytes("private memory when all of it was shown");
    }

    void ToFileAndBack()
    {
        const std::wstring path = FilePath();
        const double saving = MedianTime(m_rounds, [&] { edSaveFile(m_control, path.c_str(), ED_ENCODING_UTF8); });
        const double copy = MeasureMemoryFloors().copy;
        Print({m_bench.size.name, "save as UTF-8", saving, "copying its bytes (F6)", copy * FileBytes(path)});
        std::vector<double> times;
        std::vector<double> faults;
        for (int i = 0; i < m_rounds; ++i) {
            edLoadText(m_control, nullptr, 0);
            faults.push_back(MeasureMemoryFloors().fault);
            UINT32 encoding = ED_ENCODING_UTF8;
            times.push_back(TimeOf([&] { edLoadFile(m_control, path.c_str(), &encoding); }));
        }
        Print({m_bench.size.name, "load from a UTF-8 file to painted", MedianOf(times), "the same, 1 ns a byte",
               Floor(MedianOf(faults)) + fileNsAByte * FileBytes(path), Goal(1)});
        ::DeleteFileW(path.c_str());
    }

    // Both calls: how much room, then the text into fresh memory.
    void ToMemory()
    {
        std::vector<double> copies;
        const double out = MedianTime(m_rounds, [&] {
            const UINT32 size = edSaveText(m_control, nullptr);
            edSaveText(m_control, Room(size));
        }, [&] { copies.push_back(MeasureMemoryFloors().copy); });
        Print({m_bench.size.name, "whole text to memory, both calls", out, "copying its bytes (F6)",
               MedianOf(copies) * static_cast<double>(m_bench.text.size()) * sizeof(wchar_t), 2.5});
    }

private:
    [[nodiscard]] double Floor(double fault) const
    {
        return loadNsALine * m_lines + 2 * fault * KeptBytes(m_bench.text, m_lines);
    }
    // Loads and memory have goals from ten million characters on.
    [[nodiscard]] double Goal(double goal) const { return m_bench.size.characters < 10'000'000 ? 0 : goal; }
    wchar_t* Room(UINT32 size)
    {
        if (m_room.size() < size)
            m_room.resize(size);
        return m_room.data();
    }
    void Bytes(const char* what) const
    {
        const double bytes = (PrivateBytes() - m_before) / static_cast<double>(m_bench.text.size());
        PrintBytes(m_bench.size.name, what, bytes, Goal(bytesGoal));
    }

    const Bench& m_bench;
    int m_rounds;
    HWND m_control;
    double m_before;
    double m_lines = 0;
    std::wstring m_room;
};

}  // namespace

void BenchLoad(const Bench& bench)
{
    Loads loads(bench);
    loads.FromMemory();
    loads.ShowAll();
    loads.ToFileAndBack();
    loads.ToMemory();
}
