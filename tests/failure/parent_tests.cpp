// A host that does something else in the middle of each message that the control sends it.

#include "tests/failure/CrashNote.h"
#include "tests/failure/Stage.h"
#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/Pointer.h"

#include <gtest/gtest.h>

#include <dlgs.h>

#include <stdexcept>
#include <tuple>

namespace {

/// What the host gets, and how that is brought about.
struct Notice {
    const char* name;
    UINT id;
    void (*bringAbout)(Stage& stage);
};

void PrintTo(const Notice& notice, std::ostream* out) { *out << notice.name; }

void Search(Stage& s)
{
    s.Command(ED_COMMAND_FIND);
    s.SetFindTexts(L"first", L"");
    s.PressInDialog(IDOK);
}

constexpr Notice notices[] = {
    {"TheCaretHasMoved", ED_NOTIFY_CARET, [](Stage& s) { keys::Press(s.control, VK_END); }},
    {"TheTextHasChanged", ED_NOTIFY_CARET, [](Stage& s) { s.Type(L"k"); }},
    {"TheFocusHasGone", ED_NOTIFY_CARET, [](Stage& s) { ::SetFocus(s.host.Window()); }},
    {"TheViewHasScrolled", ED_NOTIFY_SCROLL, [](Stage& s) { s.Send(WM_VSCROLL, SB_LINEDOWN); }},
    {"AKeyHasScrolled", ED_NOTIFY_SCROLL, [](Stage& s) { keys::Press(s.control, VK_NEXT); }},
    {"ASearchHasPassedTheEnd", ED_NOTIFY_FIND, Search},
    {"ADragHasEntered", ED_DRAG_ENTER_PARENT, [](Stage& s) { s.Drop(L"dropped", MK_LBUTTON, At(0, 1)); }},
};

/// What it does then.
struct Deed {
    const char* name;
    void (*commit)(Stage& stage);
    bool destroys = false;
};

void PrintTo(const Deed& deed, std::ostream* out) { *out << deed.name; }

constexpr Deed deeds[] = {
    {"Destroys", [](Stage& s) { edDestroyCtrl(s.control); }, true},
    {"DestroysTheWindow", [](Stage& s) { ::DestroyWindow(s.control); }, true},
    {"Reloads", [](Stage& s) { edLoadText(s.control, L"another\ntext", 1); }},
    {"ReloadsNothing", [](Stage& s) { edLoadText(s.control, nullptr, 0); }},
    {"ReloadsTheSettings",
     [](Stage& s) {
         const edSettingsBlock block{s.settings.data(), static_cast<UINT32>(s.settings.size())};
         edReloadTuneSettings(s.control, &block);
     }},
    {"Pumps", [](Stage&) { Pump(); }},
    {"PumpsForAWhile", [](Stage&) { Pump(40); }},
    {"Undoes", [](Stage& s) { s.Command(ED_COMMAND_UNDO); }},
    {"TypesMore", [](Stage& s) { s.Type(L"more\r"); }},
    {"Hides", [](Stage& s) { ::ShowWindow(s.control, SW_HIDE); }},
    {"GivesAnotherParent", [](Stage& s) { ::SetParent(s.control, ::GetDesktopWindow()); }},
    {"TakesTheFocus", [](Stage& s) { ::SetFocus(s.host.Window()); }},
    {"Throws", [](Stage&) { throw std::runtime_error("of the host"); }},
};

using Case = std::tuple<Notice, Deed>;

class HostThat : public testing::TestWithParam<Case> {};

// An exception of the host goes through the system's own code on its way to the control, which is the host's affair; the
// control reports it where it comes out.
TEST_P(HostThat, DoesNoHarm)
{
    const auto& [notice, deed] = GetParam();
    const CrashNote note(deed.name);
    Stage stage;
    std::wstring text = L"|first\n";
    for (int i = 0; i < 60; ++i)
        text += L"line\n";
    stage.Begin(text);
    bool done = false;
    stage.host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id != notice.id || done)
            return;
        done = true;
        deed.commit(stage);
    };
    notice.bringAbout(stage);
    stage.host.onMessage = nullptr;
    Pump();
    EXPECT_TRUE(done) << "the message has not come";
    if (deed.destroys) {
        EXPECT_EQ(edGetHWND(stage.control), nullptr);
        EXPECT_FALSE(::IsWindow(stage.control));
        return;
    }
    ASSERT_EQ(edGetHWND(stage.control), stage.control);
    edSetCaretPositionAdv(stage.control, 0, 0, 0);
    edInsertText(stage.control, L"Q");
    EXPECT_EQ(TextOf(stage.control).substr(0, 1), L"Q") << "it takes no text any more";
}

INSTANTIATE_TEST_SUITE_P(Each, HostThat, testing::Combine(testing::ValuesIn(notices), testing::ValuesIn(deeds)),
                         [](const testing::TestParamInfo<Case>& info) {
                             return std::string(std::get<1>(info.param).name) + "When" + std::get<0>(info.param).name;
                         });

}  // namespace
