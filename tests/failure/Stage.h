#pragma once

#include "tests/failure/Imports.h"
#include "tests/support/TestFolder.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/DragData.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct State;

/// What a scene plays on: a host with a control in it, and the system as far as a test stands
/// in for it: message boxes are answered at once, the user's choice of a font is made, a drag ends as is asked for.
class Stage {
public:
    Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    /// Makes `control` with a text as GivenMarked() takes it, shown and focused; nothing else is left of the last run.
    void Begin(const std::wstring& marked);
    /// Brings `control` to a state, with a text as GivenMarked() takes it, shown and focused.
    /// @param anew  false: the control of the last run goes on if it can, and meets whatever that has left behind
    void Begin(const std::wstring& marked, const State& state, bool anew);
    /// Ends whatever is left of a run.
    void End();

    void Command(int code) const { edExecCommand(control, code); }
    void Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const { ::SendMessageW(control, message, wParam, lParam); }
    /// WM_CHAR
    void Type(const wchar_t* text) const;
    void Repaint() const;
    void Page(decltype(&edCreateFontTuneDialog) create, int which);
    [[nodiscard]] HWND FindDialog() const;
    /// Presses a button of the find dialog.
    void PressInDialog(int id) const;
    void SetFindTexts(const wchar_t* find, const wchar_t* replacement) const;
    /// Lets go of `text` or of files over the control at a character, as another program would.
    std::int64_t Drop(const wchar_t* text, DWORD keys, POINT at, bool files = false) const;
    std::int64_t Drop(IDataObject* data, DWORD keys, POINT at) const;
    /// @return everything that the control has put on record since the run began, a line each
    [[nodiscard]] std::vector<std::string> Records() const;
    void ForgetRecords() const;

    Imports library{::GetModuleHandleW(L"scrivctl3.dll")};
    ControlHost host{400, 200};
    xTTestFolder folder;
    HWND control = nullptr;
    HWND other = nullptr;              ///< a second control, for scenes that make one
    HWND pages[2] = {};                ///< the tuning pages, font first
    HDC paper = nullptr;               ///< a metafile
    std::wstring file;                 ///< a path in `folder`
    std::vector<unsigned char> settings;
    std::vector<unsigned char> otherSettings;
    edHighlightHook hook;              ///< classes letters, digits and the rest
    int boxes = 0;                     ///< message boxes that were shown in this run
    DWORD dragEnds = DROPEFFECT_NONE;  ///< what the program that a drag ends in did with the text
    std::optional<POINT> dragEndsAt;   ///< it ends over the control itself, at this character

private:
    const State* m_state = nullptr;  // of `control`
    void Make(const State& state);
    void CloseWhatIsOpen();
    [[nodiscard]] edSettingsBlock SettingsOf(const State& state) const noexcept;
    static void Classify(void* stage, wchar_t* text, int insideComment);
    static BOOL WINAPI ChooseFont(CHOOSEFONTW* choice);
    static int WINAPI MessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT style);
    static HRESULT WINAPI Drag(IDataObject* data, IDropSource* source, DWORD effects, DWORD* effect);
    static DWORD WINAPI ModuleFileName(HMODULE module, wchar_t* path, DWORD room);
    static void WINAPI DoNotSleep(DWORD) {}
};
