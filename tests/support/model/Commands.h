#pragma once

#include "framework/base/WinTypes.h"
#include "store/Positions.h"

#include <span>
#include <string>
#include <vector>

class xTNaiveEditor;
class xTEngineSide;

/// One command of an editing history: a row of the table below and its arguments. What a row does not use is not read.
struct xTCommand {
    std::size_t verb = 0;  ///< index into CommandRows()
    int number = 0;
    unsigned flags = 0;
    xTPos from{};
    xTPos to{};
    WString text{};
    WString other{};

    friend bool operator==(const xTCommand&, const xTCommand&) = default;
};
using xTHistory = std::vector<xTCommand>;

/// Which arguments a command uses, for its readable form.
enum xTUses : unsigned {
    usesNothing = 0,
    usesNumber = 1,
    usesFlags = 2,
    usesFrom = 4,
    usesTo = 8,
    usesText = 16,
    usesOther = 32,
};

/// A command as the model does it and as the engine does it; their answers must be the same.
struct xTCommandRow {
    const char* name;
    unsigned uses;
    void (*model)(xTNaiveEditor&, const xTCommand&, int& answer);
    void (*engine)(xTEngineSide&, const xTCommand&, int& answer);
};

[[nodiscard]] std::span<const xTCommandRow> CommandRows();

/// The row of that name, which must exist.
[[nodiscard]] std::size_t CommandRow(std::string_view name);

// Bits of `flags`: the keys that are down at add_key, with whether the clipboard holds text; how add_replace looks.
enum : unsigned { keyShift = 1, keyControl = 2, keyInsert = 4, keyDelete = 8, clipboardEmpty = 16 };
enum : unsigned { replaceEach = 1, replaceWholeWord = 2, replaceMatchCase = 4 };

[[nodiscard]] std::string Readable(const xTCommand& command);
[[nodiscard]] std::string Readable(const xTHistory& history);
