#include "appearance/AttribData.h"
#include "tests/fuzz/Require.h"

#include <vector>

// Any bytes as a settings block: whatever is taken can be saved, read again, and saved to the same bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::uint8_t> bytes(data, data + size);
    const xTSettingsBlock block{bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    xTAttribData table;
    table.FillTheme(1);
    const bool loaded = table.LoadSettings(&block);
    Require(table.m_count >= 0 && table.m_count <= xTAttribData::maxEntries);
    Require(table.LayoutTabSize() >= 1);
    if (!loaded)
        return 0;
    xTSettingsBlock none;
    std::vector<std::uint8_t> first(table.SaveSettings(&none));
    xTSettingsBlock room{first.data(), static_cast<std::uint32_t>(first.size())};
    Require(table.SaveSettings(&room) == first.size());
    xTAttribData other;
    Require(other.LoadSettings(&room));
    std::vector<std::uint8_t> second(first.size());
    room.data = second.data();
    Require(other.SaveSettings(&room) == first.size());
    Require(first == second);
    return 0;
}
