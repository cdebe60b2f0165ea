// The figures of a live control, each beside the floor of the same run. bench/run.sh starts it.

#include "bench/BenchControl.h"
#include "bench/Messages.h"
#include "bench/SampleText.h"

#include <cstdio>
#include <string>

namespace {

constexpr Size sizes[] = {{"S", 1'000'000}, {"M", 10'000'000}, {"L", 100'000'000}};

constexpr struct {
    char letter;
    void (*run)(const Bench&);
} topics[] = {
    {'l', BenchLoad},      {'v', BenchLife},     {'v', BenchView},  {'k', BenchTyping},
    {'k', BenchCaretKeys}, {'c', BenchComments}, {'d', BenchEdits}, {'f', BenchFind},
};

void PrintFloors(FloorWindow& window)
{
    for (int i = 0; i < 5; ++i)
        window.Sample();
    const Floors f = window.Take();
    const MemoryFloors memory = MeasureMemoryFloors();
    std::printf("floors: F1 %.0f ns, F2 %.0f ns, F3 %.0f ns, F4 %.3f ns, F5 %.3f ns, F6 %.3f ns a byte\n",
                f[Floor::line], f[Floor::page], f[Floor::scrollBar], memory.fault, memory.scan, memory.copy);
    std::printf("bound to: a line %.0f ns, a page %.0f ns, a shift by a line %.0f ns, "
                "a key state %.0f ns, an invalidation %.0f ns\n",
                f[Floor::boundLine], f[Floor::boundPage], f[Floor::shift], f[Floor::keyState], f[Floor::invalidate]);
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string wanted = argc > 1 ? argv[1] : "SML";
    const std::string wantedTopics = argc > 2 ? argv[2] : "lvkcdf";
    static_cast<void>(HostWindow());
    Drain();
    FloorWindow floors(HostWindow(), clientSize);
    PrintFloors(floors);
    for (const Size& size : sizes) {
        if (wanted.find(size.name) == std::string::npos)
            continue;
        const std::wstring text = SampleText(size.characters);
        for (const auto& topic : topics)
            if (wantedTopics.find(topic.letter) != std::string::npos)
                topic.run({size, text, floors});
    }
    return 0;
}
