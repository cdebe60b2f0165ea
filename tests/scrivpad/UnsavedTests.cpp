// The question before text is lost, and files that are dropped.
#include "UseFixture.h"

namespace {

// ---- Unsaved text

struct LossCase {
    const char* name;
    int answer;
    bool leaves;
    const char* saved;
};

const LossCase lossCases[] = {
    {"YesSavesAndLeaves", IDYES, true, "aone"},
    {"NoLeaves", IDNO, true, "one"},
    {"CancelStays", IDCANCEL, false, "one"},
};

class UseUnsaved : public Use, public testing::WithParamInterface<LossCase> {
protected:
    void Change()
    {
        Given("one");
        Type({'A'});
        boxes.answer = GetParam().answer;
    }
    void ExpectAsked()
    {
        ASSERT_EQ(boxes.texts.size(), 1u);
        EXPECT_EQ(boxes.texts[0], L"Сохранить изменения в файле «use.txt»?");
        EXPECT_EQ(Read(WholePath(L"use.txt")), GetParam().saved);
        boxes.answer = IDNO;
    }
};

TEST_P(UseUnsaved, TextAtTheEndOfTheProgram)
{
    Change();
    Press({VK_MENU}, VK_F4);
    ExpectAsked();
    EXPECT_EQ(window.Handle() == nullptr, GetParam().leaves);
}

TEST_P(UseUnsaved, TextAtTheEndOfTheSession)
{
    Change();
    EXPECT_EQ(::SendMessageW(window.Handle(), WM_QUERYENDSESSION, 0, 0) != 0, GetParam().leaves);
    ExpectAsked();
}

TEST_P(UseUnsaved, TextThatADroppedFileWouldReplace)
{
    const std::wstring other = Write(L"use other.txt", "other");
    Change();
    Drop({other});
    ExpectAsked();
    EXPECT_EQ(Text(), GetParam().leaves ? L"other" : L"aone");
}

TEST_P(UseUnsaved, TextThatTheEndOfTheSplitWouldTakeAway)
{
    PressCtrl('2');
    ASSERT_NE(window.Other(), nullptr);
    Change();
    PressCtrl('2');
    ExpectAsked();
    EXPECT_EQ(window.Other() == nullptr, GetParam().leaves);
}

TEST_P(UseUnsaved, TextBehindTheActiveOneAtTheEndOfTheSession)
{
    Change();
    PressCtrl('2');
    EXPECT_EQ(::SendMessageW(window.Handle(), WM_QUERYENDSESSION, 0, 0) != 0, GetParam().leaves);
    ExpectAsked();
}

INSTANTIATE_TEST_SUITE_P(Each, UseUnsaved, testing::ValuesIn(lossCases),
                         [](const auto& info) { return info.param.name; });

// ---- Dropped files

TEST_F(Use, ADroppedFileIsOpened)
{
    Drop({Write(L"use dropped.txt", "dropped")});
    EXPECT_EQ(Text(), L"dropped");
    EXPECT_EQ(Title(), L"use dropped.txt \x2013 Scrivpad");
    EXPECT_EQ(window.Other(), nullptr);
}

TEST_F(Use, TwoDroppedFilesStandSideBySide)
{
    Drop({Write(L"use left.txt", "left"), Write(L"use right.txt", "right")});
    ASSERT_NE(window.Other(), nullptr);
    EXPECT_EQ(Text(), L"right");
    Type({VK_F6});
    EXPECT_EQ(Text(), L"left");
}

TEST_F(Use, ADroppedFolderIsRefusedWithAMessage)
{
    Given("one");
    boxes.answer = IDOK;
    Drop({WholePath(L".")});
    EXPECT_EQ(boxes.texts.size(), 1u);
    EXPECT_EQ(Text(), L"one");
}

}  // namespace
