#pragma once

#include "framework/base/CString.h"

/// What a search looks for and how.
struct xTSearchRecord {
    CString text;
    bool down = true;
    bool whole_word = false;
    bool match_case = false;
};

// The last search of the process. All controls share it, from whatever thread: each access locks for just as long as it
// copies. It lives as long as the library stays loaded.
[[nodiscard]] xTSearchRecord LastSearch();
void SaveLastSearch(const xTSearchRecord& record);
