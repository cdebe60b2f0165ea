#pragma once

#include "Failure.h"
#include "MainWindow.h"
#include "Menu.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using namespace scrivpad;

class WindowFixture : public testing::Test {
protected:
    void TearDown() override
    {
        for (const std::wstring& path : m_files) {
            ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            ::DeleteFileW(path.c_str());
        }
    }

    /// @return the whole path of a file of that name, which goes at the end of the test
    std::wstring Path(const wchar_t* name)
    {
        m_files.push_back(WholePath(name));
        return m_files.back();
    }

    std::wstring Write(const wchar_t* name, const std::string& bytes)
    {
        const std::wstring path = Path(name);
        std::ofstream(path.c_str(), std::ios::binary) << bytes;
        return path;
    }

    [[nodiscard]] static std::string Read(const std::wstring& path)
    {
        std::ifstream file(path.c_str(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    [[nodiscard]] HWND Control() const { return window.Active().Control(); }

    [[nodiscard]] std::wstring Text() const
    {
        std::wstring text(edSaveText(Control(), nullptr), L'\0');
        edSaveText(Control(), text.data());
        text.pop_back();
        return text;
    }

    [[nodiscard]] edPoint Position(int code) const
    {
        edPoint point = {-7, -7};
        edGetPosition(Control(), code, &point);
        return point;
    }

    [[nodiscard]] std::wstring Title() const
    {
        wchar_t title[200] = {};
        ::GetWindowTextW(window.Handle(), title, std::size(title));
        return title;
    }

    /// Runs a menu command, or the one `offset` rows behind it.
    void Choose(unsigned command, unsigned offset = 0)
    {
        ::SendMessageW(window.Handle(), WM_COMMAND, command + offset, 0);
    }

    void ChooseTheme(unsigned number)
    {
        const HWND before = Control();
        Choose(cmdFirstTheme, number - 1);
        EXPECT_EQ(Control(), before) << "the text has its control for good";
    }

    [[nodiscard]] std::wstring Status(StatusBar::Part part) const
    {
        wchar_t text[100] = {};
        const HWND bar = ::FindWindowExW(window.Handle(), nullptr, STATUSCLASSNAMEW, nullptr);
        ::SendMessageW(bar, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(text));
        return text;
    }

    MainWindow window{ED_THEME_CLASSIC};

private:
    std::vector<std::wstring> m_files;
};

inline void ExpectAt(const edPoint& point, int line, int col)
{
    EXPECT_EQ(point.y, line);
    EXPECT_EQ(point.x, col);
}
