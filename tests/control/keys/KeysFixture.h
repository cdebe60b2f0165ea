#pragma once

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/MarkedControl.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

// What the tests of the keys share: a row of a table of keys, and a control that gets them.

inline constexpr unsigned ctrlShift = keys::ctrl | keys::shift;

inline edCreateParams readOnlyParams()
{
    edCreateParams params{};
    params.flags = ED_CREATE_READONLY;
    return params;
}

struct KeyCase {
    const char* name;
    UINT key;
    unsigned held;
    const wchar_t* before;
    const wchar_t* after;
};

inline std::ostream& operator<<(std::ostream& out, const KeyCase& row) { return out << row.name; }

class Keys : public testing::Test {
protected:
    ControlHost host;
    HWND control = host.Show(L"");

    void given(std::wstring_view text) { GivenMarked(control, text); }
    void givenReadOnly(std::wstring_view text)
    {
        edDestroyCtrl(control);
        control = host.Show(L"", readOnlyParams());
        given(text);
    }
    std::wstring marked() const { return Marked(control); }
    bool inserting() const { return edGetMode(control, ED_MODE_INSERT) != 0; }
    int topLine() const
    {
        edPoint view{};
        edGetPosition(control, ED_POSITION_VIEWPORT, &view);
        return view.y;
    }
    std::wstring manyLines(int count) const
    {
        std::wstring text;
        for (int i = 0; i < count; ++i)
            text += L"line " + std::to_wstring(i) + (i + 1 < count ? L"\n" : L"");
        return text;
    }
};
