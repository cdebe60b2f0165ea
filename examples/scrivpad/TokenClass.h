#pragma once

namespace scrivpad {

/// The control's class codes, repeated here so that the lexers know nothing of windows. Hooks.cpp checks them.
enum class TokenClass : wchar_t {
    plain = 0,
    identifier = 2,
    keyword = 3,
    symbol = 4,
    string = 5,
    number = 6,
    comment = 7,
    special = 8,        ///< an escape within a string
    directive = 100,    ///< user class 1: what the preprocessor reads
    builtin = 101,      ///< user class 2: a procedure that the language brings along
};

}  // namespace scrivpad
