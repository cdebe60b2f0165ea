#include "tests/support/model/Shrink.h"

#include <algorithm>

namespace {

using xTFails = std::function<bool(const xTHistory&)>;

// Leaves out each stretch of `length` commands that is not needed. @return true when one was left out
bool LeaveOut(xTHistory& history, std::size_t length, const xTFails& fails)
{
    bool shorter = false;
    for (std::size_t at = 0; at < history.size();) {
        xTHistory rest(history.begin(), history.begin() + static_cast<std::ptrdiff_t>(at));
        rest.insert(rest.end(), history.begin() + static_cast<std::ptrdiff_t>(std::min(at + length, history.size())), history.end());
        if (fails(rest)) {
            history = std::move(rest);
            shorter = true;
        } else {
            at += length;
        }
    }
    return shorter;
}

bool ShortenText(xTHistory& history, WString xTCommand::*text, std::size_t command, const xTFails& fails)
{
    bool shorter = false;
    for (std::size_t length = (history[command].*text).size(); length > 0; length /= 2) {
        for (std::size_t at = 0; at + length <= (history[command].*text).size();) {
            xTHistory changed = history;
            (changed[command].*text).erase(at, length);
            if (fails(changed)) {
                history = std::move(changed);
                shorter = true;
            } else {
                at += length;
            }
        }
    }
    return shorter;
}

bool ShortenTexts(xTHistory& history, const xTFails& fails)
{
    bool shorter = false;
    for (std::size_t command = 0; command < history.size(); ++command) {
        for (WString xTCommand::*text : {&xTCommand::text, &xTCommand::other})
            shorter |= ShortenText(history, text, command, fails);
    }
    return shorter;
}

}  // namespace

xTHistory Shrunk(xTHistory history, const xTFails& fails)
{
    for (bool shorter = true; shorter;) {
        shorter = false;
        for (std::size_t length = std::max<std::size_t>(history.size() / 2, 1); length > 0; length /= 2)
            shorter |= LeaveOut(history, length, fails);
        shorter |= ShortenTexts(history, fails);
    }
    return history;
}
