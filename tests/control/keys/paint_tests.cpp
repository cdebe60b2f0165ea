// What the keys leave on the screen.

#include "tests/control/keys/KeysFixture.h"

#include <vector>

namespace {

using namespace keys;

TEST_F(Keys, APageKeyLeavesTheSamePictureAsAFullRepaint)
{
    given(manyLines(500));
    edSetCaretPosition(control, 3, 2);
    for (const unsigned held : {unsigned{none}, unsigned{shift}}) {
        for (const UINT key : {VK_NEXT, VK_NEXT, VK_PRIOR, VK_PRIOR, VK_PRIOR}) {
            Press(control, key, held);
            EXPECT_FALSE(::GetUpdateRect(control, nullptr, FALSE));
            const Picture pressed(control);
            ::InvalidateRect(control, nullptr, TRUE);
            ::UpdateWindow(control);
            EXPECT_EQ(pressed.Difference(Picture(control)), "");
        }
    }
}

TEST_F(Keys, TypingPaintsTheCaretsRowAloneAndOnce)
{
    std::vector<std::wstring> asked;
    edHighlightHook hook{[](void* ctx, wchar_t* text, int) {
                             static_cast<std::vector<std::wstring>*>(ctx)->push_back(text);
                         },
                         &asked};
    edCreateParams params{};
    params.highlightHook = &hook;
    edDestroyCtrl(control);
    control = host.Show(L"one\ntwo\nthree\nfour", params);
    edSetCaretPosition(control, 2, 5);
    Pump();
    asked.clear();
    Press(control, 'X');
    Type(control, L'x');
    EXPECT_LE(asked.size(), 3u);  // drawn once, and measured for the caret
    for (const std::wstring& line : asked)
        EXPECT_EQ(line, L"threex");
    EXPECT_FALSE(::GetUpdateRect(control, nullptr, FALSE));
}

TEST_F(Keys, TypingShowsTheSamePictureAsAFullRepaint)
{
    given(L"    one\n    two /* three\n    four\n*/ five|\nsix");
    for (const wchar_t ch : std::wstring(L"ab\r\b*/\b\b/*\t;")) {
        Type(control, ch);
        Pump();
        const Picture typed(control);
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
        EXPECT_EQ(typed.Difference(Picture(control)), "") << static_cast<int>(ch);
    }
}

}  // namespace
