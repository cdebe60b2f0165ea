#include "appearance/AttribLook.h"

#include "appearance/AttribData.h"

#include <algorithm>

namespace {

// The comment wins over the host's classes, a user class over the comment; the three marks at the end change colours only.
constexpr xTApplyRow applyRows[] = {
    {ATTR_BACKGROUND, xTApplies::background},
    {ATTR_TEXT, xTApplies::fontAndText},
    {ATTR_KEYWORD, xTApplies::fontAndText},
    {ATTR_NUMBER, xTApplies::fontAndText},
    {ATTR_IDENTIFIER, xTApplies::fontAndText},
    {ATTR_SYMBOL, xTApplies::fontAndText},
    {ATTR_STRING, xTApplies::fontAndText},
    {ATTR_STRING_SPECIAL, xTApplies::fontAndText},
    {ATTR_STRING_KEYWORD, xTApplies::fontAndText},
    {ATTR_COMMENT, xTApplies::fontAndText},
    {ATTR_USER1, xTApplies::fontAndText},
    {ATTR_USER2, xTApplies::fontAndText},
    {ATTR_USER3, xTApplies::fontAndText},
    {ATTR_USER4, xTApplies::fontAndText},
    {ATTR_USER5, xTApplies::fontAndText},
    {ATTR_BREAKPOINT, xTApplies::markColors},
    {ATTR_EXECPOINT, xTApplies::markColors},
    {ATTR_SELECTION, xTApplies::markColors},
};

}  // namespace

std::span<const xTApplyRow> ApplyRows() noexcept
{
    return applyRows;
}

const xTApplyRow* FindApplyRow(std::uint32_t flag) noexcept
{
    const auto* row = std::find_if(std::begin(applyRows), std::end(applyRows),
                                   [&](const xTApplyRow& each) { return each.flag == flag; });
    return row == std::end(applyRows) ? nullptr : row;
}

void xTAttribData::AddToLook(const xTApplyRow& row, xTLook& look) const noexcept
{
    const std::int32_t entry = FindEntry(row.flag);
    if (entry < 0)
        return;
    const COLORREF color = m_colors[entry];
    switch (row.how) {
    case xTApplies::background:
        look.back = look.brush = color;
        break;
    case xTApplies::markColors:
        look.back = color;
        if (const std::int32_t background = FindEntry(ATTR_BACKGROUND); background >= 0)
            look.text = m_colors[background];
        break;
    case xTApplies::fontAndText:
        look.text = color;
        look.style = EntryStyle(entry);
        look.styles |= 1U << *look.style;
        break;
    }
}

xTLook xTAttribData::LookOf(std::uint32_t word) const noexcept
{
    xTLook look;
    for (const xTApplyRow& row : applyRows)
        if (word & row.flag)
            AddToLook(row, look);
    return look;
}

xTLook xTAttribData::LookOfFlag(std::uint32_t flag) const noexcept
{
    xTLook look;
    if (const xTApplyRow* row = FindApplyRow(flag))
        AddToLook(*row, look);
    return look;
}
