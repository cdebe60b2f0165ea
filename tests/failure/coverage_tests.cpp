// What the scenes reach: asked of the library itself, its table of exports and its lists of steps.

#include "api/EditorCtrl.h"
#include "editing/operstack.h"
#include "tests/failure/Fault.h"
#include "tests/failure/States.h"

#include <gtest/gtest.h>

#include <set>

namespace {

std::set<std::string> ExportsOfTheLibrary()
{
    const auto* base = reinterpret_cast<const unsigned char*>(::GetModuleHandleW(L"scrivctl3.dll"));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* table = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(base + table->AddressOfNames);
    std::set<std::string> all;
    for (DWORD i = 0; i < table->NumberOfNames; ++i)
        all.insert(reinterpret_cast<const char*>(base + names[i]));
    return all;
}

/// The steps of a control, in its own memory.
const xTOperStack* StepsOf(HWND control)
{
    if (!edGetHWND(control))
        return nullptr;
    const auto* window = reinterpret_cast<const CWnd*>(::GetWindowLongPtrW(control, 0));
    return static_cast<const CEditorCtrl*>(window)->Operations();
}

/// The kinds on both lists. A step that is not kept is of the kind that does nothing: it ends the redo list all the same.
void AddKinds(std::set<int>& kinds, HWND control, bool couldRedo, std::size_t stepsBefore)
{
    const xTOperStack* steps = StepsOf(control);
    if (!steps)
        return;
    for (const auto* list : {&steps->undoList, &steps->redoList})
        for (const xTOperation& step : *list)
            kinds.insert(step.kind);
    if (couldRedo && steps->redoList.empty() && steps->undoList.size() == stepsBefore)
        kinds.insert(xTOperation::none);
}

TEST(Scenes, TogetherReachEveryExportAndEveryKindOfOperation)
{
    Stage stage;
    Imports exports(::GetModuleHandleW(nullptr), "scrivctl3.dll");
    std::set<std::string> called;
    std::set<int> kinds;
    for (const Play& play : PlainPlays()) {
        stage.Begin(play.scene.text);
        if (play.scene.prepare)
            play.scene.prepare(stage);
        const xTOperStack* steps = StepsOf(stage.control);
        const bool couldRedo = steps->can_redo();
        const std::size_t stepsBefore = steps->undoList.size();
        {
            const Fault counting(nullptr);
            play.scene.act(stage);
        }
        AddKinds(kinds, stage.control, couldRedo, stepsBefore);
    }
    for (const Import& import : exports.All())
        if (import.calls > 0)
            called.insert(import.name);
    EXPECT_EQ(called, ExportsOfTheLibrary());
    for (int kind = 0; kind <= xTOperation::uncomment; ++kind)
        EXPECT_TRUE(kinds.contains(kind)) << "no step of kind " << kind;
}

}  // namespace
