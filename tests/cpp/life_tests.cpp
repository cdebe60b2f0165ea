// How editors come to life, move and end, also in the middle of what they call.

#include "EditorFixture.h"

#include <memory>

using scriv::Editor;

namespace {

class CppLife : public EditorTest {
protected:
    /// An editor that `callback` may end, and what its callables capture, to see that they live on until they return.
    struct Ending {
        std::unique_ptr<Editor> editor;
        std::shared_ptr<int> held = std::make_shared<int>(0);
    };
    Ending ending;
};

TEST_F(CppLife, AnEditorIsMadeInItsPlaceShownAndWithoutText)
{
    scriv::Options options;
    options.place = {10, 20, 210, 120};
    options.caption = L"название";
    const Editor editor(host.Handle(), std::move(options));
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor.LineCount(), 0u);
    EXPECT_TRUE(IsWindowVisible(editor.Handle()));
    RECT rect{};
    GetWindowRect(editor.Handle(), &rect);
    MapWindowPoints(nullptr, host.Handle(), reinterpret_cast<POINT*>(&rect), 2);
    EXPECT_EQ(rect.left, 10);
    EXPECT_EQ(rect.top, 20);
    EXPECT_EQ(rect.right, 210);
    EXPECT_EQ(rect.bottom, 120);
    wchar_t caption[20];
    GetWindowTextW(editor.Handle(), caption, 20);
    EXPECT_STREQ(caption, L"название");
}

TEST_F(CppLife, AHiddenEditorIsShownLater)
{
    scriv::Options options = InView();
    options.visible = false;
    const Editor editor(host.Handle(), std::move(options));
    EXPECT_FALSE(IsWindowVisible(editor.Handle()));
    editor.Show();
    EXPECT_TRUE(IsWindowVisible(editor.Handle()));
    editor.Show(false);
    EXPECT_FALSE(IsWindowVisible(editor.Handle()));
}

TEST_F(CppLife, TheControlFillsItsWindowAndTakesItsFocus)
{
    const Editor editor = Make(L"");
    editor.Move({0, 0, 123, 77});
    RECT rect{};
    GetWindowRect(editor.Handle(), &rect);
    EXPECT_EQ(rect.right - rect.left, 123);
    EXPECT_EQ(rect.bottom - rect.top, 77);
    SetFocus(host.Handle());
    SetFocus(editor.Window());
    EXPECT_EQ(GetFocus(), editor.Handle());
}

TEST_F(CppLife, ABadParentThrows)
{
    EXPECT_THROW(Editor(nullptr), std::system_error);
    EXPECT_THROW(Editor(reinterpret_cast<HWND>(INT_PTR{0x7FFFFFF0})), std::system_error);
}

TEST_F(CppLife, TheControlEndsWithItsEditor)
{
    HWND control = nullptr;
    HWND window = nullptr;
    {
        const Editor editor = Make(L"text");
        control = editor.Handle();
        window = editor.Window();
        EXPECT_NE(edGetHWND(control), nullptr);
    }
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(CppLife, ClosingTwiceIsClosingOnce)
{
    Editor editor = Make(L"text");
    editor.Close();
    EXPECT_FALSE(editor);
    editor.Close();
    EXPECT_EQ(editor.Text(), L"");
}

TEST_F(CppLife, AMovedEditorTakesItsCallbacksAlong)
{
    int changes = 0;
    scriv::Options options = InView();
    options.events.caret = [&](const scriv::CaretEvent& event) { changes += event.textChanged; };
    Editor from = Make(L"text", std::move(options));
    const HWND control = from.Handle();
    Editor to = std::move(from);
    EXPECT_FALSE(from);  // NOLINT: what is left of it is promised
    EXPECT_EQ(to.Handle(), control);
    changes = 0;
    Type(to, L'x');
    EXPECT_GT(changes, 0);
    EXPECT_EQ(to.Text(), L"xtext");
}

TEST_F(CppLife, AssigningClosesWhatWasThere)
{
    Editor one = Make(L"one");
    Editor two = Make(L"two");
    const HWND gone = one.Handle();
    one = std::move(two);
    EXPECT_EQ(edGetHWND(gone), nullptr);
    EXPECT_EQ(one.Text(), L"two");
    Editor& same = one;
    one = std::move(same);
    EXPECT_EQ(one.Text(), L"two");
}

TEST_F(CppLife, AParentThatEndsTakesTheControlAlong)
{
    bool toldWithoutControl = false;
    scriv::Options options = InView();
    options.events.caret = [&](const scriv::CaretEvent& event) {
        toldWithoutControl = toldWithoutControl || !event.focusLost;  // the focus goes while all is still there
    };
    const Editor editor = Make(L"text", std::move(options));
    const HWND control = editor.Handle();
    toldWithoutControl = false;
    host.Destroy();
    EXPECT_FALSE(editor);
    EXPECT_EQ(editor.Handle(), nullptr);
    EXPECT_EQ(editor.Window(), nullptr);
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_FALSE(toldWithoutControl);
}

TEST_F(CppLife, AnEventMayEndItsEditor)
{
    int told = 0;
    scriv::Options options = InView();
    options.events.caret = [&, held = ending.held](const scriv::CaretEvent& event) {
        if (!event.textChanged)
            return;
        ending.editor.reset();
        told = ++*held;
    };
    ending.editor = std::make_unique<Editor>(Make(L"text", std::move(options)));
    const HWND control = ending.editor->Handle();
    Type(control, L'x');
    EXPECT_EQ(told, 1);
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_EQ(ending.held.use_count(), 1);
}

TEST_F(CppLife, AnEventThatEndsItsEditorMayThrow)
{
    scriv::Options options = InView();
    options.events.caret = [&](const scriv::CaretEvent& event) {
        if (event.textChanged) {
            ending.editor.reset();
            throw ending.held;
        }
    };
    ending.editor = std::make_unique<Editor>(Make(L"text", std::move(options)));
    const HWND control = ending.editor->Handle();
    Type(control, L'x');
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_EQ(ending.held.use_count(), 1);  // what was thrown went with the editor, of which nothing is left
}

TEST_F(CppLife, AnEventMayMoveAnotherEditorInItsPlace)
{
    scriv::Options options = InView();
    options.events.caret = [&](const scriv::CaretEvent& event) {
        if (event.textChanged)
            *ending.editor = Make(L"another");
    };
    ending.editor = std::make_unique<Editor>(Make(L"text", std::move(options)));
    Type(*ending.editor, L'x');
    EXPECT_EQ(ending.editor->Text(), L"another");
}

TEST_F(CppLife, AnEventMayDestroyTheParent)
{
    bool done = false;
    scriv::Options options = InView();
    options.events.caret = [&](const scriv::CaretEvent& event) {
        if (event.textChanged && !std::exchange(done, true))
            host.Destroy();
    };
    ending.editor = std::make_unique<Editor>(Make(L"text", std::move(options)));
    Type(*ending.editor, L'x');
    EXPECT_TRUE(done);
    EXPECT_FALSE(*ending.editor);
}

TEST_F(CppLife, AHookMayEndItsEditor)
{
    bool ends = false;
    bool wasWhole = false;
    scriv::Options options = InView();
    options.highlighter = [&, held = ending.held](wchar_t* text, std::size_t length, bool) {
        if (ends)
            ending.editor.reset();
        std::wmemset(text, ED_CLASS_PLAIN, length);
        wasWhole = held.use_count() == 2;  // the fixture's and this closure's
    };
    ending.editor = std::make_unique<Editor>(Make(L"text", std::move(options)));
    const HWND control = ending.editor->Handle();
    ends = true;
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_TRUE(wasWhole);
    EXPECT_EQ(ending.held.use_count(), 1);
}

TEST_F(CppLife, AHookThatEndsItsEditorMayThrow)
{
    bool ends = false;
    scriv::Options options = InView();
    options.highlighter = [&](wchar_t* text, std::size_t length, bool) {
        std::wmemset(text, ED_CLASS_PLAIN, length);
        if (ends) {
            ending.editor.reset();
            throw 1;
        }
    };
    const scriv::Highlighter copy = options.highlighter;
    ending.editor = std::make_unique<Editor>(Make(L"text", std::move(options)));
    const HWND control = ending.editor->Handle();
    ends = true;
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_NE(copy.TakeFailure(), nullptr);
}

TEST_F(CppLife, WhatACallableCapturesGoesWithTheEditor)
{
    scriv::Options options = InView();
    options.highlighter = [held = ending.held](wchar_t* text, std::size_t length, bool) {
        std::wmemset(text, ED_CLASS_PLAIN, length);
    };
    options.events.scroll = [held = ending.held] {};
    {
        const Editor editor = Make(L"text", std::move(options));
        EXPECT_EQ(ending.held.use_count(), 3);
    }
    EXPECT_EQ(ending.held.use_count(), 1);
}

TEST_F(CppLife, EditorsComeAndGoByTheThousand)
{
    for (int i = 0; i < 1000; ++i) {
        const Editor editor(host.Handle());
        ASSERT_TRUE(editor);
    }
}

}  // namespace
