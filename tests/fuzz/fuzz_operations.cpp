#include "tests/support/model/CommandMaker.h"
#include "tests/support/model/Comparison.h"

#include <cstdio>
#include <cstdlib>

// Streams of editing commands: the bytes make the choices, and after every command the engine must stand as the model
// does. A fault is shown with its whole history.

namespace {

constexpr std::size_t longestHistory = 60;

class xTByteChoices {
public:
    xTByteChoices(const std::uint8_t* bytes, std::size_t size) : m_bytes(bytes), m_size(size) {}
    [[nodiscard]] bool IsUsedUp() const { return m_at >= m_size; }

    /// Takes one byte, or two for a choice that needs them; 0 when there are none left.
    [[nodiscard]] unsigned Below(unsigned n)
    {
        unsigned value = Take();
        if (n > 256)
            value = value << 8 | Take();
        return value % n;
    }

private:
    [[nodiscard]] unsigned Take() { return IsUsedUp() ? 0u : m_bytes[m_at++]; }

    const std::uint8_t* m_bytes;
    std::size_t m_size;
    std::size_t m_at = 0;
};

void Do(xTSideBySide& sides, xTHistory& history, const xTCommand& command)
{
    history.push_back(command);
    const std::string found = sides.Do(command);
    if (found.empty())
        return;
    std::fprintf(stderr, "%s\n%s", found.c_str(), Readable(history).c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    xTByteChoices choices(bytes, size);
    xTCommandMaker maker([&](unsigned n) { return choices.Below(n); });
    xTSideBySide sides;
    xTHistory history;
    for (const xTCommand& command : maker.Start(sides.model.store))
        Do(sides, history, command);
    while (!choices.IsUsedUp() && history.size() < longestHistory)
        Do(sides, history, maker.Next(sides.model.store));
    if (const std::string found = sides.GoBackAndForth(); !found.empty()) {
        std::fprintf(stderr, "going back and forth, %s\n%s", found.c_str(), Readable(history).c_str());
        std::abort();
    }
    return 0;
}
