// The highlight hook and the events: what they tell, what they may do, and where their exceptions end.

#include "EditorFixture.h"

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

using scriv::Command;
using scriv::Editor;
using scriv::Position;

namespace {

class CppEvents : public EditorTest {
protected:
    static std::string WhatOf(const std::exception_ptr& failure)
    {
        if (!failure)
            return "none";
        try {
            std::rethrow_exception(failure);
        }
        catch (const std::exception& e) {
            return e.what();
        }
        catch (...) {
            return "unknown";
        }
    }
    static void FillWith(wchar_t* text, std::size_t length, int code)
    {
        std::wmemset(text, static_cast<wchar_t>(code), length);
    }
};

TEST_F(CppEvents, AHookIsAnyCallableWithItsCaptures)
{
    std::vector<std::pair<std::wstring, bool>> asked;
    scriv::Options options = InView();
    options.highlighter = [&asked, kept = std::make_unique<int>(ED_CLASS_STRING)](wchar_t* text, std::size_t length,
                                                                                bool insideComment) mutable {
        asked.emplace_back(std::wstring(text, length), insideComment);
        FillWith(text, length, *kept);
    };
    // A callable that can only be moved will do.
    const Editor editor(host.Handle(), std::move(options));
    editor.SetText(L"one /*\ntwo");
    Repaint(editor);
    const auto has = [&](const wchar_t* line, bool inside) {
        return std::find(asked.begin(), asked.end(), std::make_pair(std::wstring(line), inside)) != asked.end();
    };
    EXPECT_TRUE(has(L"one /*", false));
    EXPECT_TRUE(has(L"two", true));
}

TEST_F(CppEvents, TheCodesOfAHookColourTheLine)
{
    int code = ED_CLASS_PLAIN;
    scriv::Options options = InView();
    options.highlighter = [&code](wchar_t* text, std::size_t length, bool) { FillWith(text, length, code); };
    const Editor editor = Make(L"mmmm", std::move(options));
    Repaint(editor);
    const COLORREF plain = RGB(0, 0, 0);
    const int black = Pixels(editor, plain);
    EXPECT_GT(black, 20);
    code = ED_CLASS_STRING;
    Repaint(editor);
    EXPECT_LT(Pixels(editor, plain), black);
}

TEST_F(CppEvents, AnExceptionOfAHookLeavesThePlainLineAndIsKept)
{
    bool fails = false;
    scriv::Options options = InView();
    options.highlighter = [&fails](wchar_t* text, std::size_t length, bool) {
        FillWith(text, length, ED_CLASS_PLAIN);
        if (fails) {
            FillWith(text, length / 2, ED_CLASS_STRING);
            throw std::runtime_error("hook");
        }
    };
    const scriv::Highlighter copy = options.highlighter;
    const Editor editor = Make(L"defghdefgh", std::move(options));  // each letter is the code of a user class
    Repaint(editor);
    const int black = Pixels(editor, RGB(0, 0, 0));
    EXPECT_GT(black, 20);
    EXPECT_EQ(WhatOf(editor.TakeFailure()), "none");
    fails = true;
    Repaint(editor);
    EXPECT_EQ(Pixels(editor, RGB(0, 0, 0)), black);
    EXPECT_EQ(WhatOf(editor.TakeFailure()), "hook");
    EXPECT_EQ(WhatOf(editor.TakeFailure()), "none");
    Repaint(editor);
    EXPECT_EQ(WhatOf(copy.TakeFailure()), "hook");
    EXPECT_EQ(WhatOf(editor.TakeFailure()), "none");
}

TEST_F(CppEvents, AHighlighterOfNothingIsNoHook)
{
    const scriv::Highlighter none;
    EXPECT_EQ(none.Record().fn, nullptr);
    EXPECT_EQ(none.Record().ctx, nullptr);
    EXPECT_EQ(none.TakeFailure(), nullptr);
}

TEST_F(CppEvents, CopiesOfAHighlighterShareItsCallable)
{
    const auto held = std::make_shared<int>();
    scriv::Highlighter one = [held](wchar_t*, std::size_t, bool) {};
    const scriv::Highlighter two = one;
    EXPECT_EQ(one.Record().ctx, two.Record().ctx);
    EXPECT_EQ(held.use_count(), 2);
    one = {};
    EXPECT_EQ(held.use_count(), 2);
}

TEST_F(CppEvents, TheCaretIsToldInWholeNumbers)
{
    std::vector<scriv::CaretEvent> told;
    scriv::Options options = InView();
    options.events.caret = [&](const scriv::CaretEvent& event) { told.push_back(event); };
    const Editor editor = Make(std::wstring(70000, L'\n') + L"last", std::move(options));
    told.clear();
    editor.SetCaret({70000, 1});
    SendMessageW(editor.Handle(), WM_KEYDOWN, VK_RIGHT, 1);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back().caret, (Position{70000, 2}));
    EXPECT_FALSE(told.back().textChanged);
    EXPECT_FALSE(told.back().focusLost);
    told.clear();
    Type(editor, L'x');
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(std::any_of(told.begin(), told.end(), [](const auto& event) { return event.textChanged; }));
    EXPECT_EQ(told.back().caret, (Position{70000, 3}));
    told.clear();
    SetFocus(host.Handle());
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(told.back().focusLost);
}

TEST_F(CppEvents, EachOfTwoEditorsOfOneParentTellsOfItselfAlone)
{
    int one = 0;
    int two = 0;
    scriv::Options first = InView();
    first.events.caret = [&](const scriv::CaretEvent& event) { one += event.textChanged; };
    scriv::Options second = InView();
    second.events.caret = [&](const scriv::CaretEvent& event) { two += event.textChanged; };
    const Editor a = Make(L"a", std::move(first));
    const Editor b = Make(L"b", std::move(second));
    one = two = 0;
    Type(a, L'x');
    EXPECT_GT(one, 0);
    EXPECT_EQ(two, 0);
}

TEST_F(CppEvents, ScrollingIsTold)
{
    int scrolled = 0;
    scriv::Options options = InView();
    options.events.scroll = [&] { ++scrolled; };
    const Editor editor = Make(std::wstring(300, L'\n'), std::move(options));
    scrolled = 0;
    editor.ScrollTo({10, -1});
    EXPECT_GT(scrolled, 0);
}

TEST_F(CppEvents, ADragThatEntersIsTold)
{
    int entered = 0;
    scriv::Options options = InView();
    options.events.dragEnter = [&] { ++entered; };
    const Editor editor = Make(L"", std::move(options));
    SendMessageW(GetParent(editor.Handle()), ED_DRAG_ENTER_PARENT, 0, 1);
    EXPECT_EQ(entered, 1);
}

HWND FindDialog()
{
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            if (!GetDlgItem(window, edt1))
                return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

TEST_F(CppEvents, ASearchPastTheEndAsksAndGoesOnFromTheTop)
{
    std::wstring asked;
    scriv::Options options = InView();
    options.events.searchPassedEnd = [&](std::wstring_view sought, HWND) {
        asked = sought;
        return true;
    };
    const Editor editor = Make(L"one\nslovo\nend", std::move(options));
    editor.SetCaret({2, 0});
    ASSERT_TRUE(editor.Execute(Command::Find));
    Pump();
    const HWND dialog = FindDialog();
    ASSERT_NE(dialog, nullptr);
    SetDlgItemTextW(dialog, edt1, L"slovo");
    SendMessageW(dialog, WM_COMMAND, IDOK, 0);
    SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    Pump();
    EXPECT_EQ(asked, L"slovo");
    EXPECT_EQ(editor.SelectedText(), L"slovo");
}

TEST_F(CppEvents, AnExceptionOfASearchStopsIt)
{
    scriv::Options options = InView();
    options.events.searchPassedEnd = [](std::wstring_view, HWND) -> bool { throw std::runtime_error("search"); };
    const Editor editor = Make(L"one", std::move(options));
    EXPECT_EQ(SendMessageW(editor.Window(), ED_NOTIFY_FIND, 0, reinterpret_cast<LPARAM>(L"word")), 0);
    EXPECT_EQ(WhatOf(editor.TakeFailure()), "search");
}

TEST_F(CppEvents, TheFirstExceptionOfTheEventsIsKept)
{
    int number = 0;
    scriv::Options options = InView();
    options.events.caret = [&](const scriv::CaretEvent&) {
        if (++number == 1)
            throw std::runtime_error("first");
        throw 7;
    };
    const Editor editor = Make(L"one", std::move(options));
    Type(editor, L'x');
    Type(editor, L'y');
    EXPECT_GT(number, 1);
    EXPECT_EQ(editor.Text(), L"xyone");
    EXPECT_EQ(WhatOf(editor.TakeFailure()), "first");
    Type(editor, L'z');
    EXPECT_EQ(WhatOf(editor.TakeFailure()), "unknown");
}

TEST_F(CppEvents, EventsMayBeExchangedFromWithinOne)
{
    const auto held = std::make_shared<std::wstring>(L"alive");
    int later = 0;
    std::wstring seen;
    Editor editor = Make(L"one");
    scriv::Events events;
    events.caret = [&, held](const scriv::CaretEvent&) {
        scriv::Events others;
        others.caret = [&](const scriv::CaretEvent&) { ++later; };
        editor.SetEvents(std::move(others));
        seen = *held;  // this closure is still whole
    };
    editor.SetEvents(std::move(events));
    Type(editor, L'x');
    EXPECT_EQ(seen, L"alive");
    EXPECT_EQ(held.use_count(), 1);
    Type(editor, L'y');
    EXPECT_GT(later, 0);
}

}  // namespace
