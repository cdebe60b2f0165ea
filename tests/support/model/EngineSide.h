#pragma once

#include "editing/SearchRequest.h"
#include "editing/operstack.h"
#include "store/MemStor.h"

/// The engine as the histories drive it: a store, a stack and a window that does with the caret what a control's window
/// does and shows nothing.
class xTEngineSide {
public:
    class xTWindow final : public xTStoreWindow {
    public:
        xTMemStorage* store = nullptr;
        bool goRound = true;  ///< the host's answer when a search has gone round

        [[nodiscard]] HWND Handle() const override { return reinterpret_cast<HWND>(1); }
        void Invalidate() override {}
        void InvalidateCaretLine() override {}
        void UpdateNow() override {}
        void RequestPaint() override {}
        void EnsureCaretVisible() override {}
        void MoveCaretTo(std::int32_t line, std::int32_t column, bool, bool, bool) override
        {
            if (column >= 0)
                store->set_caret(xTPos(line, column));
        }
        void NotifyHost(bool, std::int32_t) override {}
        [[nodiscard]] bool ConfirmWrap() override { return goRound; }
    };

    xTEngineSide() { window.store = &store; }
    xTEngineSide(const xTEngineSide&) = delete;
    xTEngineSide& operator=(const xTEngineSide&) = delete;
    ~xTEngineSide() = default;

    xTWindow window;
    xTTabSettings tabs;
    xTMemStorage store{&window, &tabs};
    xTOperStack stack{&window, &store};
};
