#pragma once

#include "editing/LastSearch.h"
#include "editing/SearchRequest.h"
#include "editing/operstack.h"
#include "store/MemStor.h"
#include "tests/support/MarkedText.h"
#include "tests/support/Shown.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

/// A window that puts the caret where it is told and counts what is asked of it.
class xTEditingWindow final : public xTStoreWindow {
public:
    xTMemStorage* store = nullptr;
    bool hasHandle = true;
    bool confirmsWrap = true;
    bool goesWhenAsked = false;  ///< the host destroys the control when it is asked
    int invalidated = 0;
    int caretLines = 0;
    int updated = 0;
    int ensured = 0;
    int moved = 0;
    int changes = 0;  ///< times that the host heard of a change
    int questions = 0;

    [[nodiscard]] HWND Handle() const override { return hasHandle ? reinterpret_cast<HWND>(std::uintptr_t{1}) : nullptr; }
    void Invalidate() override { ++invalidated; }
    void InvalidateCaretLine() override { ++caretLines; }
    void UpdateNow() override { ++updated; }
    void RequestPaint() override {}
    void EnsureCaretVisible() override { ++ensured; }
    void MoveCaretTo(std::int32_t line, std::int32_t column, bool, bool, bool) override
    {
        ++moved;
        if (store)
            store->set_caret({line, column});
    }
    void NotifyHost(bool changed, std::int32_t) override { changes += changed ? 1 : 0; }
    bool ConfirmWrap() override
    {
        ++questions;
        hasHandle = hasHandle && !goesWhenAsked;
        return confirmsWrap;
    }
};

/// A store with a window and an operation stack; states are given and shown as marked texts.
class xTEditingFixture : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(Faults(), ""); }

    static WString W(std::string_view text) { return {text.begin(), text.end()}; }
    static CString S(std::string_view text) { return CString(W(text)); }
    static CString Filled(char ch, std::int32_t count) { return {static_cast<WCHAR>(ch), count}; }

    void given(std::string_view marked) { GivenMarked(store, W(marked)); }
    [[nodiscard]] std::string marked() const { return Shown(Marked(store)); }
    [[nodiscard]] std::string line(std::int32_t index) const { return Shown(store.lines[index].m_text); }
    /// The lengths of all lines.
    [[nodiscard]] std::string lengths() const
    {
        std::string all;
        for (std::int32_t i = 0; i < store.line_count(); ++i)
            all += (i > 0 ? " " : "") + std::to_string(store.line_length(i));
        return all;
    }

    void type(std::string_view text)
    {
        for (const char ch : text)
            stack.add_char(ch == '\n' ? 13u : static_cast<unsigned char>(ch), overwriting);
    }
    void press(std::uint32_t key) { key == 8 ? stack.add_char(key, overwriting) : stack.add_key(key); }
    /// Inserts at a place; returns what the count has become.
    std::int32_t insert(const xTPos& pos, std::string_view text, bool rejoin = false)
    {
        inserted = S(text);
        std::int32_t count = inserted.GetLength();
        store.insert_text(pos, count, inserted, rejoin);
        return count;
    }
    void copy(WStrView text) { NativePlatform().clipboard = {{clipboardWide, WString(text)}}; }
    void copy(std::string_view text) { copy(W(text)); }
    [[nodiscard]] static std::string box() { return Shown(NativePlatform().LastBox().text()); }

    /// What is wrong with the store; empty when nothing is.
    [[nodiscard]] std::string Faults() const
    {
        std::string faults;
        for (std::int32_t i = 0; i < store.line_count(); ++i) {
            const xTExtString& text = store.lines[i];
            if (!mayLoseWords && text.m_text.GetLength() != text.m_attrs.GetLength())
                faults += "words of line " + std::to_string(i) + "; ";
            if (text.m_text.Find(_T('\n')) >= 0)
                faults += "a line feed in line " + std::to_string(i) + "; ";
        }
        if (store.caret.line < 0 || store.caret.col < 0)
            faults += "the caret; ";
        if ((store.first() == xTPos::none) != (store.last() == xTPos::none))
            faults += "half a selection; ";
        return faults;
    }

    static constexpr std::uint32_t keyBack = 8;
    static constexpr std::uint32_t keyDelete = 46;
    static constexpr std::uint32_t keyPaste = xTOperation::pasteCode;

    xTEditingWindow window;
    xTTabSettings tabs;
    xTMemStorage store{&window, &tabs};
    xTOperStack stack{&window, &store};
    bool overwriting = false;
    bool mayLoseWords = false;  ///< after a string ran out of memory its words may be fewer than its characters
    CString inserted;

    // Not in SetUp: a member of a derived fixture may change the platform before that runs.
    xTEditingFixture()
    {
        ResetNativePlatform();
        window.store = &store;
    }
};
