#include "tests/support/FailingNew.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestFolder.h"
#include "zsl/text_encoding.h"

namespace {

class StoreSave : public xTStoreFixture {
protected:
    [[nodiscard]] WString Path() const { return folder.file("text.txt"); }
    [[nodiscard]] std::string Bytes() const { return folder.bytes("text.txt"); }
    void Write(const std::string& bytes) const { folder.put("text.txt", bytes); }

    xTTestFolder folder;
};

TEST_F(StoreSave, JoinsTheLinesWithoutATerminatorBehindTheLast)
{
    Load(_T("a\nb\n"));
    EXPECT_TRUE(store.save_file(Path().c_str(), 0));
    EXPECT_EQ(Bytes(), "a\nb");
}

TEST_F(StoreSave, LastEmptyLineIsSavedAsALineFeed)
{
    Load(_T("a\n\n"));
    EXPECT_TRUE(store.save_file(Path().c_str(), 0));
    EXPECT_EQ(Bytes(), "a\n");
}

TEST_F(StoreSave, StoreWithoutLinesGivesAnEmptyFile)
{
    Write("old");
    EXPECT_TRUE(store.save_file(Path().c_str(), 0));
    EXPECT_EQ(Bytes(), "");
}

TEST_F(StoreSave, NullPathFails)
{
    Load(_T("a"));
    EXPECT_FALSE(store.save_file(nullptr, 0));
}

TEST_F(StoreSave, PathThatCannotBeOpenedFails)
{
    Load(_T("a"));
    EXPECT_FALSE(store.save_file(folder.file("missing/text.txt").c_str(), 0));
}

struct xTEncodingRow {
    std::uint32_t code;
    const char* bytes;
};

class StoreSaveEncodings : public StoreSave, public testing::WithParamInterface<xTEncodingRow> {};

TEST_P(StoreSaveEncodings, FollowTheCodeOfTheHost)
{
    Load(_T("\x0416"));
    EXPECT_TRUE(store.save_file(Path().c_str(), GetParam().code));
    EXPECT_EQ(Bytes(), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoreSaveEncodings, testing::Values(
    xTEncodingRow{0, "\xD0\x96"}, xTEncodingRow{2, "\xD0\x96"}, xTEncodingRow{4, "\xFF\xFE\x16\x04"},
    xTEncodingRow{5, "\xFE\xFF\x04\x16"}));

TEST_F(StoreSave, CharacterWithoutAPlaceInTheEncodingFailsAndLeavesTheFile)
{
    Write("old");
    Load(_T("\x4E2D"));
    EXPECT_FALSE(store.save_file(Path().c_str(), 1));
    EXPECT_EQ(Bytes(), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"text.txt"});
}

TEST_F(StoreSave, FactsOfTheFileComeFromTheCaller)
{
    Load(_T("a\nb"));
    const auto encoding = zsl::text_encoding(zsl::E_CharSet::utf8).with_facts(true, true);
    EXPECT_TRUE(store.save_file(Path().c_str(), encoding));
    EXPECT_EQ(Bytes(), "\xEF\xBB\xBF"
                       "a\r\nb");
}

TEST_F(StoreSave, LackOfMemoryAnywhereFailsAndLeavesTheFile)
{
    Load(_T("new\ntext"));
    const WString path = Path();
    int before = 0;
    for (int failures = 1; failures > 0; ++before) {
        ASSERT_LT(before, 1000);
        Write("old");
        bool saved = false;
        failures = FailuresIn([&] { saved = store.save_file(path.c_str(), 0); }, before);
        ASSERT_EQ(Bytes(), saved ? "new\ntext" : "old") << before;
    }
    EXPECT_GT(before, 1);
}

}  // namespace
