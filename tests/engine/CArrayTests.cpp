#include "framework/base/CArray.h"

#include "framework/base/CString.h"
#include "tests/support/FailingNew.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using xTTexts = CArray<CString>;

void Fill(xTTexts& array, int count)
{
    array.Reserve(count);
    for (int i = 0; i < count; ++i)
        array.Add(CString(static_cast<WCHAR>(i + 1), 3));
}

std::vector<WString> Contents(const xTTexts& array)
{
    std::vector<WString> texts;
    for (xTTexts::index i = 0; i < array.GetSize(); ++i)
        texts.emplace_back(array[i].view());
    return texts;
}

template <typename Action>
testing::AssertionResult RaisesInvalidArgument(Action&& action)
{
    try {
        action();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "no CInvalidArgException";
}

TEST(CArrayGrowth, TheFirstBlockIsExact)
{
    CArray<int> array;
    array.InsertAt(0, 7);
    EXPECT_EQ(array.GetCapacity(), 7);
}

TEST(CArrayGrowth, RemovingAllStartsAgain)
{
    CArray<int> array;
    array.InsertAt(0, 100);
    array.RemoveAll();
    EXPECT_EQ(array.GetCapacity(), 0);
    array.InsertAt(0, 1);
    EXPECT_EQ(array.GetCapacity(), 1);
}

struct xTGrowth {
    int size;      // full before the growth
    int added;
    int capacity;  // after it
};
class CArrayGrowthRule : public testing::TestWithParam<xTGrowth> {};

TEST_P(CArrayGrowthRule, AnEighthAtLeast4AtMost1024OrWhatIsAskedFor)
{
    const auto [size, added, capacity] = GetParam();
    CArray<int> array;
    array.InsertAt(0, size);
    array.InsertAt(size / 2, added);
    EXPECT_EQ(array.GetCapacity(), capacity);
    EXPECT_EQ(array.GetSize(), size + added);
}

INSTANTIATE_TEST_SUITE_P(Rows, CArrayGrowthRule, testing::Values(
    xTGrowth{1, 1, 5}, xTGrowth{1, 5, 6}, xTGrowth{32, 1, 36}, xTGrowth{39, 1, 43}, xTGrowth{40, 1, 45},
    xTGrowth{800, 1, 900}, xTGrowth{800, 101, 901}, xTGrowth{8192, 1, 9216}, xTGrowth{80000, 1, 81024},
    xTGrowth{80000, 2000, 82000}));

TEST(CArrayGrowth, TheStepCountsFromTheSizeAndTheRoomFromTheCapacity)
{
    CArray<int> array;
    array.InsertAt(0, 800);
    array.RemoveAt(0, 700);
    array.Reserve(801);
    EXPECT_EQ(array.GetCapacity(), 812);  // 800 and an eighth of 100
}

TEST(CArrayGrowth, WithinTheRoomNothingIsAllocated)
{
    CArray<int> array;
    array.Reserve(100);
    EXPECT_EQ(AllocationsIn([&] {
        for (int i = 0; i < 100; ++i)
            array.Add(i);
        array.RemoveAt(10, 50);
        array.InsertAt(30, 50);
    }), 0);
}

TEST(CArrayRecords, NewOnesAreEmpty)
{
    CArray<int> array;
    array.Add(5);
    array.RemoveAt(0);
    EXPECT_EQ(*array.InsertAt(0), 0);
}

TEST(CArrayRecords, MoveWithoutBeingCopied)
{
    xTTexts array;
    Fill(array, 100);
    const CString text = array[60];
    EXPECT_LE(AllocationsIn([&] { array.InsertAt(10, 200); }), 1);
    EXPECT_TRUE(array[260].SharesBufferWith(text));
}

TEST(CArrayRecords, AnElementCanBeAddedToItsOwnArray)
{
    xTTexts array;
    array.Add(_T("first"));
    for (int i = 0; i < 50; ++i)
        array.Add(array[0]);
    EXPECT_EQ(array[50], _T("first"));
}

TEST(CArrayTakeOut, MovesARunWhicheverPartIsTheLarger)
{
    for (const int gap : {0, 3, 5, 9}) {
        for (int at = 0; at <= 9; ++at) {
            for (int count = 0; count <= 9 - at; ++count) {
                xTTexts array;
                Fill(array, 9);
                array.InsertAt(gap);
                array.RemoveAt(gap);  // the free room stands there now
                std::vector<WString> rest = Contents(array);
                const std::vector<WString> run(rest.begin() + at, rest.begin() + at + count);
                rest.erase(rest.begin() + at, rest.begin() + at + count);
                xTTexts taken;
                array.ReserveForTakeOut(count, taken);
                const auto made = xTFailingNew::Allocations();
                array.TakeOut(at, count, taken);
                EXPECT_EQ(xTFailingNew::Allocations(), made);
                EXPECT_EQ(Contents(array), rest);
                EXPECT_EQ(Contents(taken), run);
                array.Add(CString(_T("new")));
                taken.Add(CString(_T("new")));
                EXPECT_EQ(array.GetSize() + taken.GetSize(), 11);
            }
        }
    }
}

TEST(CArrayTakeOut, WithoutTheRoomForItRaisesInvalidArgument)
{
    xTTexts array;
    Fill(array, 4);
    xTTexts taken;
    EXPECT_TRUE(RaisesInvalidArgument([&] { array.TakeOut(1, 2, taken); }));
    EXPECT_EQ(array.GetSize(), 4);
}

TEST(CArrayIndex, OutsideTheArrayRaisesInvalidArgument)
{
    xTTexts array;
    Fill(array, 3);
    const xTTexts& fixed = array;
    for (const xTTexts::index bad : {xTTexts::index{-1}, xTTexts::index{3}, INT64_MIN, INT64_MAX}) {
        EXPECT_TRUE(RaisesInvalidArgument([&] { static_cast<void>(array[bad]); })) << bad;
        EXPECT_TRUE(RaisesInvalidArgument([&] { static_cast<void>(fixed[bad]); })) << bad;
        EXPECT_TRUE(RaisesInvalidArgument([&] { array.RemoveAt(bad); })) << bad;
    }
    EXPECT_TRUE(RaisesInvalidArgument([&] { array.InsertAt(-1); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { array.InsertAt(4); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { array.InsertAt(0, -1); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { array.RemoveAt(1, 3); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { array.RemoveAt(1, -1); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { array.RemoveAt(1, INT64_MAX); }));
    EXPECT_EQ(array.GetSize(), 3);
}

TEST(CArrayIndex, AnEmptyArrayHasNone)
{
    xTTexts array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_TRUE(RaisesInvalidArgument([&] { static_cast<void>(array[0]); }));
    array.RemoveAt(0, 0);
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CArraySize, ASizeBeyondAllMemoryFindsNone)
{
    xTTexts array;
    Fill(array, 3);
    EXPECT_THROW(array.InsertAt(1, INT64_MAX), std::bad_alloc);
    EXPECT_THROW(array.InsertAt(1, INT64_MAX / 8), std::bad_alloc);
    EXPECT_THROW(array.Reserve(INT64_MAX / 2), std::bad_alloc);
    EXPECT_EQ(array.GetSize(), 3);
}

// Random operations on an array and on a vector.
class CArrayAgainstAModel : public testing::TestWithParam<unsigned> {
protected:
    std::mt19937 random{GetParam()};
    xTTexts array;
    std::vector<WString> model;
    WCHAR nextMark = 1;

    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
    int Place() { return Number(0, static_cast<int>(model.size())); }

    void Insert()
    {
        const int at = Place();
        const int count = Number(0, 30);
        CString* first = array.InsertAt(at, count);
        for (int i = 0; i < count; ++i)
            first[i] = CString(nextMark, 3);
        model.insert(model.begin() + at, static_cast<std::size_t>(count), WString(3, nextMark++));
    }

    void Remove()
    {
        const int at = Place();
        const int count = std::min(Number(0, 25), static_cast<int>(model.size()) - at);
        array.RemoveAt(at, count);
        model.erase(model.begin() + at, model.begin() + at + count);
    }

    void Step()
    {
        switch (Number(0, 6)) {
        case 0: case 1: case 2: Insert(); break;
        case 3: case 4: case 5: Remove(); break;
        case 6: array.Add(CString(nextMark, 3)); model.emplace_back(3, nextMark++); break;
        }
    }
};

TEST_P(CArrayAgainstAModel, RandomOperationsGiveTheSame)
{
    for (int i = 0; i < 2000; ++i) {
        Step();
        ASSERT_EQ(Contents(array), model) << "step " << i;
        ASSERT_LE(array.GetSize(), array.GetCapacity());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CArrayAgainstAModel, testing::Range(1u, 9u));

struct xTArrayChange {
    const char* name;
    void (*change)(xTTexts& array);
};
void PrintTo(const xTArrayChange& change, std::ostream* stream)
{
    *stream << change.name;
}
constexpr xTArrayChange arrayChanges[] = {
    {"Add", [](xTTexts& array) { array.Add(_T("text")); }},
    {"InsertAt", [](xTTexts& array) { array.InsertAt(3, 5); }},
    {"Reserve", [](xTTexts& array) { array.Reserve(1000); }},
};

TEST(CArrayBlocks, AreTheRecordsOnEitherSideOfTheFreeRoom)
{
    CArray<int> array;
    EXPECT_TRUE(array.BlockFrom(0).empty());
    array.InsertAt(0, 10);
    for (int i = 0; i < 10; ++i)
        array[i] = i;
    array.RemoveAt(4, 2);
    const auto head = array.BlockFrom(1);
    EXPECT_EQ(std::vector<int>(head.begin(), head.end()), (std::vector<int>{1, 2, 3}));
    const auto tail = array.BlockFrom(4);
    EXPECT_EQ(std::vector<int>(tail.begin(), tail.end()), (std::vector<int>{6, 7, 8, 9}));
    EXPECT_EQ(array.BlockFrom(7).size(), 1u);
    EXPECT_TRUE(array.BlockFrom(8).empty());
    EXPECT_TRUE(RaisesInvalidArgument([&] { static_cast<void>(array.BlockFrom(9)); }));
    EXPECT_TRUE(RaisesInvalidArgument([&] { static_cast<void>(array.BlockFrom(-1)); }));
}

class CArrayOutOfMemory : public testing::TestWithParam<xTArrayChange> {};

TEST_P(CArrayOutOfMemory, LeavesTheArrayAsItWas)
{
    for (int before = 0;; ++before) {
        xTTexts array;
        Fill(array, 10);
        const auto contents = Contents(array);
        const int failures = FailuresIn([&] { GetParam().change(array); }, before);
        if (failures == 0) {
            EXPECT_GT(before, 0) << "nothing was allocated";
            break;
        }
        ASSERT_EQ(Contents(array), contents);
        ASSERT_EQ(array.GetCapacity(), 10);
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, CArrayOutOfMemory, testing::ValuesIn(arrayChanges));

}  // namespace
