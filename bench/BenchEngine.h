#pragma once

#include "editing/operstack.h"
#include "store/MemStor.h"

/// A window that shows nothing: what stays is the engine's own work.
class SilentWindow final : public xTStoreWindow {
public:
    [[nodiscard]] HWND Handle() const override { return reinterpret_cast<HWND>(1); }
    void Invalidate() override {}
    void InvalidateCaretLine() override {}
    void UpdateNow() override {}
    void RequestPaint() override {}
    void EnsureCaretVisible() override {}
    void MoveCaretTo(std::int32_t, std::int32_t, bool, bool, bool) override {}
    void NotifyHost(bool, std::int32_t) override {}
    [[nodiscard]] bool ConfirmWrap() override { return false; }
};

/// A store with its stack. Without a window the one and the other have none.
struct Engine {
    explicit Engine(const WString& text, bool withWindow = true)
        : store(withWindow ? &window : nullptr, &tabs), stack(withWindow ? &window : nullptr, &store)
    {
        Load(text);
    }
    void Load(const WString& text) { store.load_text(text.c_str(), 1); }
    void Type(WStrView text)
    {
        for (const WCHAR ch : text)
            stack.add_char(ch, false);
    }
    void Delete() { stack.add_key(46); }
    void Paste() { stack.add_key(xTOperation::pasteCode); }
    void DeleteAll()
    {
        store.select_range({0, 0}, store.end_pos());
        Delete();
    }

    SilentWindow window;
    xTTabSettings tabs;
    xTMemStorage store;
    xTOperStack stack;
};
