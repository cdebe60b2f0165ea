#include "framework/base/CString.h"

#include "tests/support/FailingNew.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace {

CString Abc()
{
    return _T("abc");
}

TEST(CStringBasics, IsOnePointerWide)
{
    EXPECT_EQ(sizeof(CString), sizeof(void*));
}

TEST(CStringBasics, NullAndEmptyTextsMakeTheEmptyString)
{
    EXPECT_TRUE(CString().IsEmpty());
    EXPECT_TRUE(CString(static_cast<const WCHAR*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString(WStrView()).IsEmpty());
    EXPECT_TRUE(CString(_T('x'), 0).IsEmpty());
    EXPECT_TRUE(CString(_T('x'), -3).IsEmpty());
    EXPECT_EQ(*CString().c_str(), 0);
}

TEST(CStringBasics, RepeatsACharacter)
{
    EXPECT_EQ(CString(_T('x'), 3), _T("xxx"));
}

TEST(CStringBasics, AnUnwrittenOneHasItsTerminatorAndItsRoom)
{
    CString text = CString::Unwritten(3, 2);
    std::fill_n(text.OwnBuffer(), 3, _T('x'));
    EXPECT_EQ(text, _T("xxx"));
    const WCHAR* const buffer = text.c_str();
    EXPECT_EQ(buffer[3], 0);
    text.Append(_T("yz"));
    EXPECT_EQ(text.c_str(), buffer) << "within the room";
    EXPECT_EQ(text, _T("xxxyz"));
}

TEST(CStringBasics, TextMayHoldZeros)
{
    const CString text(WStrView(_T("a\0b"), 3));
    EXPECT_EQ(text.GetLength(), 3);
    EXPECT_EQ(text[1], 0);
}

TEST(CStringBasics, ATerminatorAlwaysFollows)
{
    CString text = Abc();
    EXPECT_EQ(text.c_str()[3], 0);
    text.AppendChar(_T('d'));
    EXPECT_EQ(text.c_str()[4], 0);
    text.Delete(1, 2);
    EXPECT_EQ(text.c_str()[2], 0);
}

TEST(CStringBasics, ComparesByCodeUnit)
{
    EXPECT_EQ(Abc(), Abc());
    EXPECT_NE(Abc(), _T("abd"));
    EXPECT_LT(Abc(), CString(_T("abd")));
    EXPECT_LT(CString(_T("ab")), Abc());
    EXPECT_GT(CString(_T("\xFFFF")), CString(_T("\x0430")));
    EXPECT_TRUE(CString() == static_cast<const WCHAR*>(nullptr));
    EXPECT_FALSE(Abc() == static_cast<const WCHAR*>(nullptr));
}

TEST(CStringAccess, ReadsInsideTheTextOnly)
{
    const CString text = Abc();
    EXPECT_EQ(text.GetAt(0), _T('a'));
    EXPECT_EQ(text.GetAt(2), _T('c'));
    for (const std::int32_t bad : {-1, 3, 4, INT32_MIN, INT32_MAX}) {
        try {
            static_cast<void>(text.GetAt(bad));
            ADD_FAILURE() << bad;
        } catch (CInvalidArgException* e) {
            e->Delete();
        }
    }
}

TEST(CStringAccess, WritesInsideTheTextOnly)
{
    CString text = Abc();
    text.SetAt(1, _T('x'));
    EXPECT_EQ(text, _T("axc"));
    for (const std::int32_t bad : {-1, 3}) {
        try {
            text.SetAt(bad, _T('y'));
            ADD_FAILURE() << bad;
        } catch (CInvalidArgException* e) {
            e->Delete();
        }
    }
    EXPECT_EQ(text, _T("axc"));
}

TEST(CStringSharing, ACopyCostsNoAllocation)
{
    const CString text = Abc();
    EXPECT_EQ(AllocationsIn([&] {
        const CString copy = text;
        CString other;
        other = copy;
        EXPECT_TRUE(other.SharesBufferWith(text));
    }), 0);
}

TEST(CStringSharing, AShareIsACopy)
{
    CString text(_T("abc"));
    CString first = text.Share();
    const CString second = text.Share();
    EXPECT_TRUE(first.SharesBufferWith(text) && second.SharesBufferWith(text));
    first.SetAt(0, _T('x'));
    EXPECT_EQ(text, _T("abc"));
    text.Empty();
    EXPECT_EQ(second, _T("abc"));
    EXPECT_TRUE(text.Share().IsEmpty());
}

TEST(CStringSharing, AChangeOfOneLeavesTheOtherAlone)
{
    const CString text = Abc();
    CString copy = text;
    copy.SetAt(0, _T('x'));
    EXPECT_EQ(text, _T("abc"));
    EXPECT_EQ(copy, _T("xbc"));
    EXPECT_FALSE(copy.SharesBufferWith(text));
}

TEST(CStringSharing, AssignmentToItselfKeepsTheText)
{
    CString text = Abc();
    CString& same = text;
    text = same;
    EXPECT_EQ(text, _T("abc"));
    text = std::move(same);
    EXPECT_EQ(text, _T("abc"));
}

TEST(CStringSharing, AMovedFromStringIsUsable)
{
    CString text = Abc();
    const CString taken = std::move(text);
    text = _T("new");
    EXPECT_EQ(taken, _T("abc"));
    EXPECT_EQ(text, _T("new"));
}

TEST(CStringSharing, TheBufferIsOwnAfterOwnBuffer)
{
    const CString text = Abc();
    CString copy = text;
    copy.OwnBuffer()[1] = _T('x');
    EXPECT_EQ(text, _T("abc"));
    EXPECT_EQ(copy, _T("axc"));
}

TEST(CStringSharing, CopiesMayLiveOnSeveralThreads)
{
    const CString text = Abc();
    const auto work = [&] {
        for (int i = 0; i < 10000; ++i) {
            CString copy = text;
            const CString second = copy;
            copy.AppendChar(_T('d'));
            ASSERT_EQ(second.GetLength(), 3);
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    EXPECT_EQ(text, _T("abc"));
}

TEST(CStringInsert, AnIndexOutsideCountsAsTheNearestEnd)
{
    CString text = Abc();
    EXPECT_EQ(text.Insert(-5, _T('<')), 4);
    EXPECT_EQ(text.Insert(99, _T('>')), 5);
    EXPECT_EQ(text.Insert(2, WStrView(_T("--"))), 7);
    EXPECT_EQ(text, _T("<a--bc>"));
}

TEST(CStringInsert, TheTextMayLieInTheStringItself)
{
    CString text = Abc();
    text.Insert(1, text);
    EXPECT_EQ(text, _T("aabcbc"));
    text.Append(text.view().substr(2, 3));
    EXPECT_EQ(text, _T("aabcbcbcb"));
}

TEST(CStringAppend, CharacterByCharacterMakesFewBuffers)
{
    EXPECT_LT(AllocationsIn([] {
        CString text;
        for (int i = 0; i < 100000; ++i)
            text.AppendChar(_T('x'));
        EXPECT_EQ(text.GetLength(), 100000);
    }), 70);
}

TEST(CStringAppend, PieceByPieceMakesFewBuffers)
{
    EXPECT_LT(AllocationsIn([] {
        CString text;
        for (int i = 0; i < 20000; ++i)
            text += _T("12345");
        EXPECT_EQ(text.GetLength(), 100000);
    }), 70);
}

TEST(CStringDelete, TakesAtMostWhatIsThere)
{
    CString text = _T("abcdef");
    EXPECT_EQ(text.Delete(1, 2), 4);
    EXPECT_EQ(text, _T("adef"));
    EXPECT_EQ(text.Delete(2, 99), 2);
    EXPECT_EQ(text.Delete(0, INT32_MAX), 0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringDelete, AnIndexOutsideOrNoCountRemovesNothing)
{
    CString text = Abc();
    EXPECT_EQ(text.Delete(-1, 2), 3);
    EXPECT_EQ(text.Delete(3, 1), 3);
    EXPECT_EQ(text.Delete(0, 0), 3);
    EXPECT_EQ(text.Delete(0, -1), 3);
    EXPECT_EQ(text, _T("abc"));
}

TEST(CStringReplace, ReplacesFromLeftToRight)
{
    CString text = _T("aaaa-aa");
    EXPECT_EQ(text.Replace(_T("aa"), _T("b")), 3);
    EXPECT_EQ(text, _T("bb-b"));
    EXPECT_EQ(text.Replace(_T("b"), _T("bb")), 3);
    EXPECT_EQ(text, _T("bbbb-bb"));
    EXPECT_EQ(text.Replace(_T("b"), _T("")), 6);
    EXPECT_EQ(text, _T("-"));
    EXPECT_EQ(text.Replace(_T("-"), _T("")), 1);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringReplace, WithoutAHitNothingIsCopied)
{
    CString text = Abc();
    const CString copy = text;
    EXPECT_EQ(text.Replace(_T("x"), _T("y")), 0);
    EXPECT_EQ(text.Replace(_T(""), _T("y")), 0);
    EXPECT_TRUE(text.SharesBufferWith(copy));
}

TEST(CStringFind, FindsFromAStart)
{
    const CString text = _T("abcabc");
    EXPECT_EQ(text.Find(_T('b')), 1);
    EXPECT_EQ(text.Find(_T('b'), 2), 4);
    EXPECT_EQ(text.Find(_T('b'), -7), 1);
    EXPECT_EQ(text.Find(_T('b'), 5), -1);
    EXPECT_EQ(text.Find(_T("ca")), 2);
    EXPECT_EQ(text.Find(_T("ca"), 3), -1);
    EXPECT_EQ(text.Find(_T("x"), 99), -1);
}

TEST(CStringExchange, PutsATextInThePlaceOfAnother)
{
    CString text = _T("abcdef");
    EXPECT_EQ(text.Exchange(1, 2, _T("XYZ")), 7);
    EXPECT_EQ(text, _T("aXYZdef"));
    EXPECT_EQ(text.Exchange(5, 99, _T("")), 5);
    EXPECT_EQ(text, _T("aXYZd"));
    text.Exchange(-3, 1, _T("q"));
    text.Exchange(99, 1, _T("!"));
    EXPECT_EQ(text, _T("qXYZd!"));
    text.Exchange(2, -1, text.view().substr(1, 2));  // a piece of itself; a count below 0 takes nothing
    EXPECT_EQ(text, _T("qXXYYZd!"));
}

TEST(CStringExchange, LeavesACopyAlone)
{
    CString text = _T("abc");
    const CString copy = text;
    text.Exchange(0, 3, _T("x"));
    EXPECT_EQ(copy, _T("abc"));
    EXPECT_EQ(text, _T("x"));
}

TEST(CStringMid, ClipsToTheText)
{
    const CString text = _T("abcdef");
    EXPECT_EQ(text.Mid(2, 3), _T("cde"));
    EXPECT_EQ(text.Mid(4, 99), _T("ef"));
    EXPECT_EQ(text.Mid(4), _T("ef"));
    EXPECT_EQ(text.Mid(-2, 3), _T("abc"));
    EXPECT_TRUE(text.Mid(6, 1).IsEmpty());
    EXPECT_TRUE(text.Mid(99, 1).IsEmpty());
    EXPECT_TRUE(text.Mid(1, -1).IsEmpty());
    EXPECT_EQ(text.Left(2), _T("ab"));
}

TEST(CStringMid, TheWholeTextSharesTheBuffer)
{
    const CString text = Abc();
    EXPECT_TRUE(text.Mid(0, 99).SharesBufferWith(text));
}

TEST(CStringLength, ATextLongerThanAnyStringFindsNoMemory)
{
    const WCHAR one = 0;
    const WStrView giant(&one, std::size_t{1} << 32);  // never read: its length decides
    CString text = Abc();
    EXPECT_THROW(text.Append(giant), std::bad_alloc);
    EXPECT_THROW(CString{giant}, std::bad_alloc);
    EXPECT_THROW(CString(_T('x'), INT32_MAX), std::bad_alloc);
    EXPECT_EQ(text, _T("abc"));
}

// The same random changes on a string and on the library's own.
class CStringAgainstAModel : public testing::TestWithParam<unsigned> {
protected:
    std::mt19937 random{GetParam()};
    CString text;
    WString model;

    std::int32_t Number(std::int32_t from, std::int32_t to) { return std::uniform_int_distribution(from, to)(random); }

    WString Piece()
    {
        WString piece(static_cast<std::size_t>(Number(0, 9)), 0);
        for (auto& ch : piece)
            ch = static_cast<WCHAR>(Number(_T('a'), _T('c')));
        return piece;
    }

    std::size_t Place() { return static_cast<std::size_t>(Number(0, static_cast<std::int32_t>(model.size()))); }

    void Change()
    {
        const WString piece = Piece();
        const auto at = Place();
        const auto index = static_cast<std::int32_t>(at);
        switch (Number(0, 6)) {
        case 0: text.Insert(index, piece); model.insert(at, piece); break;
        case 1: text.Insert(index, _T('x')); model.insert(at, 1, _T('x')); break;
        case 2: text.Append(piece); model.append(piece); break;
        case 3: text.AppendChar(_T('y')); model.push_back(_T('y')); break;
        case 4: text.Delete(index, 5); model.erase(at, 5); break;
        case 5: text.Replace(_T("ab"), piece); ReplaceInModel(piece); break;
        case 6: if (at < model.size()) { text.SetAt(index, _T('z')); model[at] = _T('z'); } break;
        }
    }

    void ReplaceInModel(const WString& piece)
    {
        for (auto at = model.find(_T("ab")); at != WString::npos; at = model.find(_T("ab"), at + piece.size()))
            model.replace(at, 2, piece);
    }
};

TEST_P(CStringAgainstAModel, RandomChangesGiveTheSameText)
{
    for (int i = 0; i < 3000; ++i) {
        const CString before = text;
        const WString beforeModel = model;
        const bool shared = Number(0, 1) == 1;
        const CString holder = shared ? text : CString();
        Change();
        ASSERT_EQ(text.view(), WStrView(model)) << "step " << i;
        ASSERT_EQ(text.c_str()[text.GetLength()], 0);
        ASSERT_EQ(before.view(), WStrView(beforeModel)) << "a copy has changed, step " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CStringAgainstAModel, testing::Range(1u, 9u));

// Every changing operation, for the failures.
struct xTChange {
    const char* name;
    void (*change)(CString&);
};
void PrintTo(const xTChange& change, std::ostream* stream)
{
    *stream << change.name;
}
constexpr xTChange changes[] = {
    {"Append", [](CString& s) { s.Append(_T("defghijklmnop")); }},
    {"AppendChar", [](CString& s) { s.AppendChar(_T('d')); }},
    {"AppendItself", [](CString& s) { s.Append(s); }},
    {"Insert", [](CString& s) { s.Insert(1, WStrView(_T("xyz"))); }},
    {"InsertChar", [](CString& s) { s.Insert(0, _T('x')); }},
    {"SetAt", [](CString& s) { s.SetAt(0, _T('x')); }},
    {"Delete", [](CString& s) { s.Delete(0, 1); }},
    {"Replace", [](CString& s) { s.Replace(_T("b"), _T("12345")); }},
    {"Assign", [](CString& s) { s = _T("other"); }},
    {"Mid", [](CString& s) { s = s.Mid(1, 1); }},
    {"OwnBuffer", [](CString& s) { s.OwnBuffer()[0] = _T('x'); }},
};

class CStringOutOfMemory : public testing::TestWithParam<xTChange> {};

TEST_P(CStringOutOfMemory, LeavesTheStringAsItWas)
{
    for (int before = 0;; ++before) {
        CString text = Abc();
        const CString holder = text;  // shared, so that each change needs a buffer
        const int failures = FailuresIn([&] { GetParam().change(text); }, before);
        if (failures == 0) {
            EXPECT_GT(before, 0) << "nothing was allocated";
            EXPECT_NE(text, holder);
            break;
        }
        ASSERT_EQ(text, _T("abc"));
        ASSERT_TRUE(text.SharesBufferWith(holder));
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, CStringOutOfMemory, testing::ValuesIn(changes));

}  // namespace
