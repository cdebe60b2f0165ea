#include "bench/EngineText.h"

namespace {

// Each of 32 characters; every third holds the frequent word.
constexpr WStrView rows[] = {
    _T("    if (counter > 0) return n12;"), _T("    value = table[7] + 17 - step"), _T("    sum += data[index] + 3 - old"),
    _T("    for (counter = 0; i < n; ++i"), _T("    call(name, \"text\", 41, 0x1F);"), _T("struct point { int x, y; } p77; "),
    _T("    result->item = counter ? 1 : "), _T("    double ratio = 0.5 - (a + b1"), _T("    // \x0441\x0442\x0440\x043E\x043A\x0430 counts from zero to"),
};

}  // namespace

WString EngineText(std::size_t characters)
{
    constexpr std::size_t width = 32;
    WString text;
    text.reserve(characters + width + 1);
    for (std::size_t row = 0; text.size() < characters; ++row) {
        text.append(rows[row % std::size(rows)].substr(0, width)) += _T('\n');
    }
    return text;
}
