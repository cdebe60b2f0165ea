// A text printed on the default printer of the system, into a file. Skipped where there is no printer.

#include "tests/support/TestFolder.h"
#include "tests/support/win/ControlHost.h"

#include <winspool.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr int perInch = 96;  // the unit in which the print font has its size
constexpr RECT sheet = {96, 96, 96 + 600, 96 + 800};

std::wstring DefaultPrinter()
{
    wchar_t name[300] = L"";
    DWORD length = static_cast<DWORD>(std::size(name));
    return ::GetDefaultPrinterW(name, &length) ? name : L"";
}

class Printer : public testing::Test {
protected:
    void SetUp() override
    {
        const std::wstring name = DefaultPrinter();
        m_dc = name.empty() ? nullptr : ::CreateDCW(L"WINSPOOL", name.c_str(), nullptr, nullptr);
        if (!m_dc)
            GTEST_SKIP() << "there is no printer";
        Map();
    }
    void TearDown() override
    {
        if (m_dc)
            ::DeleteDC(m_dc);
    }

    void Map() const
    {
        ::SetMapMode(m_dc, MM_ANISOTROPIC);
        ::SetWindowExtEx(m_dc, perInch, perInch, nullptr);
        ::SetViewportExtEx(m_dc, ::GetDeviceCaps(m_dc, LOGPIXELSX), ::GetDeviceCaps(m_dc, LOGPIXELSY), nullptr);
    }
    /// Prints all pages into a file. @return how many there were
    BOOL Print(HWND control, const std::wstring& path) const
    {
        const edPrintSetup setup{m_dc, sheet, sheet, sheet, sheet, {1, 1}};
        const BOOL pages = edPreparePrinting(control, &setup);
        const DOCINFOW info{sizeof info, L"test", path.c_str(), nullptr, 0};
        EXPECT_GT(::StartDocW(m_dc, &info), 0);
        for (UINT32 page = 1; page <= static_cast<UINT32>(pages); ++page) {
            EXPECT_GT(::StartPage(m_dc), 0);
            Map();
            const edPrintPageParams params{m_dc, page};
            EXPECT_TRUE(edPrintPage(control, &params));
            EXPECT_GT(::EndPage(m_dc), 0);
        }
        EXPECT_GT(::EndDoc(m_dc), 0);
        EXPECT_TRUE(edPrintingOver(control));
        return pages;
    }

    HDC m_dc = nullptr;
    xTTestFolder folder;
};

TEST_F(Printer, PrintsEachPageOfATextIntoItsFile)
{
    std::wstring text;
    for (int i = 0; i < 120; ++i)
        text += L"строка " + std::to_wstring(i) + L"\twith a tab\n";
    ControlHost host;
    const HWND control = host.Show(text.c_str());
    const std::wstring path = folder.file("printed.prn");
    const BOOL pages = Print(control, path);
    EXPECT_EQ(pages, 3);  // 800 units hold 53 lines of 15
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(bytes.empty());
    if (bytes.find("%!PS") == std::string::npos)
        return;  // a driver of another language
    EXPECT_NE(bytes.find("%%Page: 3 3"), std::string::npos);
    EXPECT_EQ(bytes.find("%%Page: 4 4"), std::string::npos);
}

}  // namespace
