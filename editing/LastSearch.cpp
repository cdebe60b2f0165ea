#include "editing/LastSearch.h"

#include <mutex>

namespace {

// Both are made when the library is loaded, before anything can ask.
std::mutex lastSearchLock;
xTSearchRecord lastSearch;

}  // namespace

xTSearchRecord LastSearch()
{
    const std::lock_guard lock(lastSearchLock);
    return lastSearch;
}

void SaveLastSearch(const xTSearchRecord& record)
{
    const std::lock_guard lock(lastSearchLock);
    lastSearch = record;
}
