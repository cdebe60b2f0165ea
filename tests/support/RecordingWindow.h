#pragma once

#include "store/StoreWindow.h"

#include <cstdint>
#include <string>
#include <vector>

/// A window that only writes down what the store asks of it, in order.
class xTRecordingWindow final : public xTStoreWindow {
public:
    bool hasHandle = true;           ///< without one `Handle` answers null
    bool confirmsWrap = false;       ///< the host's answer
    std::vector<std::string> calls;  ///< the operation's name, for some with its arguments

    /// The calls so far in one line, parted by blanks; they are forgotten.
    [[nodiscard]] std::string TakeCalls()
    {
        std::string all;
        for (const std::string& call : calls)
            all += all.empty() ? call : " " + call;
        calls.clear();
        return all;
    }

    // Any value but null: nobody uses it.
    [[nodiscard]] HWND Handle() const override
    {
        return hasHandle ? reinterpret_cast<HWND>(std::uintptr_t{1}) : nullptr;
    }
    void Invalidate() override { calls.emplace_back("Invalidate"); }
    void InvalidateCaretLine() override { calls.emplace_back("InvalidateCaretLine"); }
    void UpdateNow() override { calls.emplace_back("UpdateNow"); }
    void RequestPaint() override { calls.emplace_back("RequestPaint"); }
    void EnsureCaretVisible() override { calls.emplace_back("EnsureCaretVisible"); }
    void MoveCaretTo(std::int32_t line, std::int32_t column, bool redraw, bool centre, bool focus) override
    {
        calls.push_back("MoveCaretTo(" + std::to_string(line) + "," + std::to_string(column) + "," +
                        std::to_string(redraw) + "," + std::to_string(centre) + "," + std::to_string(focus) + ")");
    }
    void NotifyHost(bool changed, std::int32_t value) override
    {
        calls.push_back("NotifyHost(" + std::to_string(changed) + "," + std::to_string(value) + ")");
    }
    [[nodiscard]] bool ConfirmWrap() override
    {
        calls.emplace_back("ConfirmWrap");
        return confirmsWrap;
    }
};
