#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

struct FreeModule {
    void operator()(HMODULE module) const noexcept { ::FreeLibrary(module); }
};

/// The DLL's resources, read as a host or an installer reads them.
class Resources : public testing::Test {
protected:
    Resources() : m_dll(::LoadLibraryW(L"scrivctl3.dll")) {}
    void SetUp() override { ASSERT_TRUE(m_dll) << "error " << ::GetLastError(); }

    [[nodiscard]] std::wstring Text(UINT id) const
    {
        const wchar_t* text = nullptr;
        const int length = ::LoadStringW(m_dll.get(), id, reinterpret_cast<wchar_t*>(&text), 0);
        return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
    }

    /// A value of the version block, empty when there is none.
    [[nodiscard]] std::wstring VersionValue(const wchar_t* name) const
    {
        const std::vector<char> block = VersionBlock();
        void* value = nullptr;
        UINT length = 0;
        const std::wstring path = std::wstring(L"\\StringFileInfo\\041904B0\\") + name;
        if (block.empty() || !::VerQueryValueW(block.data(), path.c_str(), &value, &length))
            return {};
        return static_cast<const wchar_t*>(value);
    }

    [[nodiscard]] static std::vector<char> VersionBlock()
    {
        std::vector<char> block(::GetFileVersionInfoSizeW(L"scrivctl3.dll", nullptr));
        if (!::GetFileVersionInfoW(L"scrivctl3.dll", 0, static_cast<DWORD>(block.size()), block.data()))
            block.clear();
        return block;
    }

private:
    std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule> m_dll;
};

struct TextRow {
    UINT id;
    const wchar_t* text;
};

constexpr TextRow texts[] = {
    {103, L""},
    {104, L"// Пример синтаксической подсветки\nЕСЛИ НЕ ДоступенSQL ТО\n"
          L"\tСООБЩЕНИЕ(\"Нет доступа к SQL\" )\n\tкод_возврата = 13\nКОНЕЦ_ЕСЛИ\n"},
    {105, L"Цвет фона"},
    {106, L"Текст"},
    {107, L"Ключевые слова"},
    {108, L"Комментарии"},
    {109, L"Числа"},
    {110, L"Идентификаторы"},
    {111, L"Символы"},
    {112, L"Строки"},
    {113, L"Точки останова"},
    {114, L"Выделенный текст"},
    {115, L"Точка исполнения"},
    {116, L"Классическая"},
    {117, L"Океан"},
    {118, L"Поиск закончен. Произведено %d замен(ы)."},
    {119, L"Соответствий не найдено"},
    {120, L"Сумерки"},
    {121, L"Мирана"},
    {122, L"Тиберит"},
    {123, L"Особые символы в строках"},
    {124, L"Ключевые слова в строках"},
    {125, L"Пользовательский 1"},
    {126, L"Пользовательский 2"},
    {127, L"Пользовательский 3"},
    {128, L"Пользовательский 4"},
    {129, L"Пользовательский 5"},
    {130, L""},
};

TEST_F(Resources, HoldEachTextUnderItsNumber)
{
    for (const TextRow& row : texts)
        EXPECT_EQ(Text(row.id), row.text) << row.id;
}

TEST_F(Resources, NameTheProductAndTheFile)
{
    EXPECT_EQ(VersionValue(L"ProductName"), L"Scrivctl");
    EXPECT_EQ(VersionValue(L"OriginalFilename"), L"scrivctl3.dll");
    EXPECT_EQ(VersionValue(L"FileVersion"), L"" SCRIV_VERSION ".0");
    EXPECT_EQ(VersionValue(L"ProductVersion"), L"" SCRIV_VERSION ".0");
}

TEST_F(Resources, GiveTheVersionAsNumbersToo)
{
    const std::vector<char> block = VersionBlock();
    void* value = nullptr;
    UINT length = 0;
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(::VerQueryValueW(block.data(), L"\\", &value, &length));
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    const std::string version = std::to_string(HIWORD(fixed->dwFileVersionMS)) + "." +
                                std::to_string(LOWORD(fixed->dwFileVersionMS)) + "." +
                                std::to_string(HIWORD(fixed->dwFileVersionLS));
    EXPECT_EQ(version, SCRIV_VERSION);
    EXPECT_EQ(fixed->dwFileType, DWORD{VFT_DLL});
}

TEST_F(Resources, AreRussian)
{
    const std::vector<char> block = VersionBlock();
    void* value = nullptr;
    UINT length = 0;
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(::VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation", &value, &length));
    const auto* languageAndCodepage = static_cast<const WORD*>(value);
    EXPECT_EQ(languageAndCodepage[0], 0x0419);
    EXPECT_EQ(languageAndCodepage[1], 1200);
}

}  // namespace
