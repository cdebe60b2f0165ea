// Drags from a control to other programs.

#include "tests/control/drag/DragFixture.h"

namespace {

class DragOut : public DragBetween {
protected:
    xTComPtr<ForeignTarget> foreign{new ForeignTarget};
    HWND window = nullptr;

    void SetUp() override
    {
        DragBetween::SetUp();
        window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_BORDER | SS_NOTIFY, 700, 400, 200, 100, nullptr,
                                   nullptr, nullptr, nullptr);
        ASSERT_EQ(::RegisterDragDrop(window, foreign.get()), S_OK);
        Pump(50);
    }
    void TearDown() override
    {
        ::RevokeDragDrop(window);
        ::DestroyWindow(window);
    }
};

TEST_F(DragOut, AProgramThatTakesACopyLeavesTheSourceAsItIs)
{
    GivenMarked(control, L"a[b\nc]|d");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(foreign->dropped, std::wstring(L"b\r\nc\0", 5));  // with the terminator
    EXPECT_EQ(TextOf(control), L"ab\ncd");
    EXPECT_TRUE(edGetMode(control, ED_MODE_SELECTION));
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragOut, AProgramThatMovesHasTheSourceDeletedAsOneStep)
{
    foreign->effect = DROPEFFECT_MOVE;
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(foreign->dropped, std::wstring(L"bc\0", 3));
    EXPECT_EQ(Marked(control), L"a|def");
    undo(control);
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragOut, AProgramMayAnswerWithAnEffectThatWasNotOffered)
{
    foreign->onDrop = [](IDataObject*) {};
    foreign->effect = 0;
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(TextOf(control), L"abcdef");
}

TEST_F(DragOut, TheDataOffersUnicodeTextAndNothingElse)
{
    foreign->onDrop = [](IDataObject* data) {
        xTComPtr<IEnumFORMATETC> formats;
        IEnumFORMATETC* made = nullptr;
        ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, &made), S_OK);
        formats.reset(made);
        FORMATETC format{};
        ULONG got = 0;
        EXPECT_EQ(formats->Next(1, &format, &got), S_OK);
        EXPECT_EQ(format.cfFormat, CF_UNICODETEXT);
        EXPECT_EQ(format.tymed, static_cast<DWORD>(TYMED_HGLOBAL));
        EXPECT_EQ(data->QueryGetData(&format), S_OK);
        EXPECT_EQ(formats->Next(1, &format, &got), S_FALSE);
        STGMEDIUM medium{};
        FORMATETC bytes{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        EXPECT_EQ(data->QueryGetData(&bytes), DV_E_FORMATETC);
        EXPECT_EQ(data->GetData(&bytes, &medium), DV_E_FORMATETC);
        FORMATETC file{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_FILE};
        EXPECT_EQ(data->GetData(&file, &medium), DV_E_FORMATETC);
        EXPECT_EQ(data->GetData(nullptr, &medium), E_INVALIDARG);
        EXPECT_EQ(data->EnumFormatEtc(DATADIR_SET, &made), E_NOTIMPL);
        DWORD connection = 0;
        EXPECT_EQ(data->DAdvise(&bytes, 0, nullptr, &connection), OLE_E_ADVISENOTSUPPORTED);
    };
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(foreign->dropped, std::wstring(L"bc\0", 3));
}

TEST_F(DragOut, DataThatAProgramHoldsOnToIsEmptyAfterTheDragAndOutlivesTheControl)
{
    xTComPtr<IDataObject> held;
    foreign->onDrop = [&](IDataObject* data) { held = Shared(data); };
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(UnicodeBlockOf(held.get()), L"");
    edDestroyCtrl(control);
    FORMATETC format{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(held->QueryGetData(&format), DV_E_FORMATETC);
    held->AddRef();
    EXPECT_EQ(held->Release(), 1u);
}

}  // namespace
