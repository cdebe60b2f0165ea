#pragma once

#include <cstdint>

class xTStoreWindow;

// What a search tells the user. The box belongs to the window that `window` stands in; null is allowed.
void ShowNothingFound(const xTStoreWindow* window);
void ShowReplaceCount(const xTStoreWindow* window, std::int32_t count);  ///< below 1: nothing was found
