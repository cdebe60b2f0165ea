// The keys of Alt, and real input.

#include "tests/control/keys/KeysFixture.h"

namespace {

using namespace keys;

struct AltCase {
    UINT key;
    char plain;
    char shifted;
};

const AltCase altCases[] = {
    {'2', '@', 0},          {'3', '#', 0},          {'4', '$', 0},         {'6', '^', 0},
    {'7', '&', 0},          {VK_OEM_1, ';', ':'},   {VK_OEM_COMMA, '<', ','}, {VK_OEM_PERIOD, '>', '.'},
    {VK_OEM_3, '`', '~'},   {VK_OEM_4, '[', '{'},   {VK_OEM_6, ']', '}'},  {VK_OEM_7, '"', '\''},
    {'5', 0, 0},            {'1', 0, 0},            {VK_OEM_5, 0, 0},
};

class AltKeys : public testing::TestWithParam<AltCase> {};

TEST_P(AltKeys, TypeTheirCharacter)
{
    const auto [key, plain, shifted] = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"");
    const auto expect = [&](unsigned held, char ch) {
        edLoadText(control, L"ab", 0xFFFFFFFF);
        edSetCaretPosition(control, 0, 1);
        PressWithAlt(control, key, held);
        const std::wstring typed = ch ? std::wstring(1, static_cast<wchar_t>(ch)) : L"";
        EXPECT_EQ(TextOf(control), L"a" + typed + L"b") << held;
    };
    expect(none, plain);
    expect(shift, shifted);
    expect(ctrl, 0);
    expect(ctrlShift, 0);
}

TEST_P(AltKeys, TypeNothingOnAReadOnlyControl)
{
    ControlHost host;
    const HWND control = host.Show(L"ab", readOnlyParams());
    PressWithAlt(control, GetParam().key);
    PressWithAlt(control, GetParam().key, shift);
    EXPECT_EQ(TextOf(control), L"ab");
}

INSTANTIATE_TEST_SUITE_P(Each, AltKeys, testing::ValuesIn(altCases),
                         [](const auto& info) { return "Key" + std::to_string(info.param.key); });

TEST_F(Keys, AnAltCharacterLeavesTheSelectedTextInPlace)
{
    given(L"a[bc]|d");
    PressWithAlt(control, '2');
    EXPECT_EQ(TextOf(control), L"abc@d");
}

TEST_F(Keys, ASystemCharacterIsSwallowed)
{
    given(L"a|b");
    EXPECT_EQ(::SendMessageW(control, WM_SYSCHAR, L'x', 0x20000001), 0);
    EXPECT_EQ(marked(), L"a|b");
}

// ---- Real input

TEST_F(Keys, RealKeysReachTheControl)
{
    given(L"one two|");
    ::SetForegroundWindow(host.Window());
    ::SetFocus(control);
    Pump(50);
    RealKey('X');
    EXPECT_EQ(TextOf(control), L"one twox");
    RealKey(VK_BACK);
    RealKey(VK_LEFT, {VK_CONTROL});
    EXPECT_EQ(marked(), L"one |two");
    RealKey(VK_END, {VK_SHIFT});
    EXPECT_EQ(marked(), L"one [two]|");
    RealKey(VK_INSERT, {VK_CONTROL});
    RealKey(VK_HOME);
    RealKey(VK_INSERT, {VK_SHIFT});
    EXPECT_EQ(marked(), L"two|one two");
    RealKey(VK_RETURN);
    EXPECT_EQ(marked(), L"two\n|one two");
    RealKey('2', {VK_MENU});
    EXPECT_EQ(marked(), L"two\n@|one two");
    RealKey(VK_DELETE);
    RealKey('U', {VK_CONTROL});
    EXPECT_EQ(marked(), L"two\n@|ne two");
}

}  // namespace
