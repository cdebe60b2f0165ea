#pragma once

#include "api/Caret.h"
#include "api/DragDropWnd.h"
#include "api/InvalidArea.h"
#include "appearance/AttribTable.h"
#include "appearance/HighlightHook.h"
#include "editing/operstack.h"
#include "editing/xTFindReplace.h"
#include "framework/win/CDC.h"
#include "framework/win/Handles.h"
#include "framework/win/OleDataSource.h"
#include "store/MemStor.h"
#include "zsl/text_encoding.h"

#include <algorithm>
#include <memory>
#include <optional>

struct edPoint;
struct edPrintSetup;

constexpr UINT ED_AFTER_PAINT = 0x40E;  ///< from the paint handler to its own window

/// The window of one control and the owner of all that a control is. It lives in the host's message loop, on the thread
/// that created it.
class CEditorCtrl final : public xTDDWnd, public xTFindOwner {
public:
    /// Pixels where there is no attribute table to tell.
    static constexpr int fallbackLineHeight = 10;
    static constexpr int fallbackCharWidth = 5;
    /// The right end of the scrollable area, in pixels; lines are not measured for it.
    static constexpr int horizontalExtent = 13000;

    CEditorCtrl(const xTHighlightHook* hook, const xTSettingsBlock& settings, bool editable, std::uint32_t defaultTheme);

    /// Creates the window, hidden. @return false when it cannot be created
    bool Create(const RECT& rect, HWND parent, const WCHAR* caption) noexcept;

    /// The control of a handle; null for any window that is none.
    [[nodiscard]] static CEditorCtrl* FromHandle(HWND control) noexcept;

    // Text in and out
    bool LoadFile(const WCHAR* path, std::uint32_t* encoding);
    bool SaveFile(const WCHAR* path, std::uint32_t encoding);
    bool LoadTextInto(const WCHAR* text, std::uint32_t maxChars);
    std::uint32_t SaveText(WCHAR* buffer) const;
    bool GetLine(std::uint32_t line, bool fromSelection, WCHAR* buffer, std::uint32_t* length);

    // Scrolling and caret placement. Directions: 0 up, 1 down, 2 left, 3 right; up means towards the start of the text.
    /// @return false only at the two horizontal stops
    bool ScrollBy(int direction, std::int32_t count);
    void ScrollPage(int direction);
    void UpdateScrollBars(int which);  ///< 0 horizontal, 1 vertical, 3 both
    [[nodiscard]] std::int32_t VisibleLines() const noexcept;
    void SetCaretPosition(std::int32_t line, std::int32_t col, std::uint32_t flags);
    void SetScrollPosition(std::int32_t line, std::int32_t col);

    // Appearance
    /// Takes a settings block, where it is readable, and rebuilds the fonts in any case.
    void ReloadSettings(const xTSettingsBlock& block);
    /// @return the bytes written, or the bytes needed when the block is too small; 0 for a null block
    std::uint32_t SaveSettings(xTSettingsBlock* block) const;
    /// Fills the table with theme 1 to 5 and rebuilds the fonts; any other number does nothing.
    void ApplyTheme(std::uint32_t theme);
    void SetHighlightHook(const xTHighlightHook& hook) noexcept { m_highlightHook = hook; }
    /// Null before the window is made and once it is gone.
    [[nodiscard]] xTAttribTable* Attributes() const noexcept { return m_attribs.get(); }

    /// @param code  an ED_POSITION_ code @return false when there is no such code or no such place
    bool GetPosition(int code, edPoint* out);

    // Keys and commands
    /// @param code  an ED_COMMAND_ code @return false when there is no such code, or as the command's row tells
    bool ExecCommand(int code);
    [[nodiscard]] bool CanExecCommand(int code) const;
    /// Inserts at the caret as one step, in place of a selection; nothing in a read-only control.
    void InsertText(const WCHAR* text);
    /// Takes over the text of another control, or keeps its own when that is this one; undo and redo are forgotten.
    void CopyDataFrom(const CEditorCtrl& source);
    /// Puts the name of the typing mode into a label of the host's. Nothing in the control calls it.
    void ShowModeIn(HWND label) const;

    // Printing
    std::int32_t PreparePrinting(const edPrintSetup& setup);  ///< @return the number of pages

    // What the store asks for
    [[nodiscard]] HWND Handle() const override { return m_hWnd; }
    void Invalidate() override;
    void InvalidateCaretLine() override;
    void UpdateNow() override;
    void RequestPaint() override;
    void EnsureCaretVisible() override;
    void MoveCaretTo(std::int32_t line, std::int32_t column, bool redraw, bool centre, bool focus) override;
    void NotifyHost(bool changed, std::int32_t value) override;
    [[nodiscard]] bool ConfirmWrap() override;

    // Find and replace
    [[nodiscard]] xTFindReplace& Find() noexcept { return m_find; }
    [[nodiscard]] xTOperStack* Operations() const noexcept override { return m_operations.get(); }
    [[nodiscard]] xTMemStorage* Store() const noexcept override { return m_store.get(); }

    [[nodiscard]] bool HasSelection() const noexcept { return m_store && m_store->has_selection(); }
    [[nodiscard]] bool IsEditable() const noexcept { return m_editable; }
    [[nodiscard]] bool IsOverwrite() const noexcept { return m_overwrite; }
    [[nodiscard]] std::int32_t LeftColumn() const noexcept { return m_leftColumn; }
    [[nodiscard]] std::int32_t TopLine() const noexcept { return m_topLine; }
    /// Pixels, at least 1.
    [[nodiscard]] int LineHeight() const noexcept
    {
        return m_attribs ? std::max<int>(m_attribs->m_charHeight, 1) : fallbackLineHeight;
    }
    [[nodiscard]] int CharWidth() const noexcept
    {
        return m_attribs ? std::max<int>(m_attribs->m_charWidth, 1) : fallbackCharWidth;
    }

private:
    struct xTRows {
        std::int32_t first = -1;
        std::int32_t last = -1;
    };
    class xTViewWatch;
    /// What waits until the work that asks for it is done.
    enum class xTLater {
        nothing,
        paints,  ///< the picture is moved, the caret goes to its place, the paint comes later
        picture  ///< nothing of all that: the whole picture is about to be painted
    };
    class xTPaintHold;
    class xTOnePaint;

    ~CEditorCtrl() override;
    void PreCreateWindow(xTCreation& creation) override { creation.style |= 0x20; }
    LRESULT WindowProc(const xTMessage& message) override;
    void OnFault() noexcept override;
    void OnUnwound() noexcept override;

    // Message handlers
    static const xTMessageRow<CEditorCtrl> messages[];
    LRESULT OnCreate(const xTMessage& message);
    LRESULT OnDestroy(const xTMessage& message);
    LRESULT OnSize(const xTMessage& message);
    LRESULT OnShowWindow(const xTMessage& message);
    LRESULT OnPaint(const xTMessage& message);
    LRESULT OnSetFocus(const xTMessage& message);
    LRESULT OnKillFocus(const xTMessage& message);
    LRESULT OnTimer(const xTMessage& message);
    LRESULT OnVScroll(const xTMessage& message);
    LRESULT OnHScroll(const xTMessage& message);
    LRESULT OnMouseWheel(const xTMessage& message);
    LRESULT OnLButtonDown(const xTMessage& message);
    LRESULT OnLButtonUp(const xTMessage& message);
    LRESULT OnLButtonDblClk(const xTMessage& message);
    LRESULT OnMouseMove(const xTMessage& message);
    LRESULT OnCaptureChanged(const xTMessage& message);
    LRESULT OnDragScroll(const xTMessage& message);
    LRESULT OnAfterPaint(const xTMessage& message);

    void TellParent(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] const RECT& ClientSeen() const noexcept;

    void ShowLoadedText();

    // Life
    bool MakeParts();
    void RetireParts() noexcept;
    void FreeIdleBitmap();

    // Painting
    [[nodiscard]] bool CannotPaintNow() const noexcept;
    void PaintHeld();
    void ScanBeforePaint();
    [[nodiscard]] SIZE ScreenSize() noexcept;
    void Paint();
    [[nodiscard]] bool HasSomethingToPaint() noexcept;
    void PaintUpdateArea();
    [[nodiscard]] bool PaintUnderHiddenCaret();
    void PaintRows(const xTPaintDC& target);
    void MakePaintBitmap(HDC like, int cx, int cy);
    void DropPaintBitmap() noexcept;
    [[nodiscard]] xTRows RowsToDraw(const RECT& area) const noexcept;
    [[nodiscard]] RECT ClientRect() const noexcept;
    [[nodiscard]] RECT CaretBlockingRect() const noexcept;
    void InvalidateRect(const RECT& area) noexcept;
    void InvalidateStrip(int linesAbove, int linesBelow);
    void PlaceCaretImage();
    [[nodiscard]] int DrawingOffset() const noexcept { return -m_leftColumn * CharWidth(); }
    [[nodiscard]] int BarOffset() const noexcept;

    // Scrolling
    void ScrollToLine(std::int32_t line, bool centre);
    void ScrollUp(std::int32_t count);
    void ScrollDown(std::int32_t count);
    bool ScrollLeft(std::int32_t count);
    bool ScrollRight(std::int32_t count);
    void PageLeft();
    void PageRight();
    void ThumbPosition(int bar);
    void ThumbTrack(int bar);
    void ShiftBits(std::int64_t dx, std::int64_t dy);
    [[nodiscard]] SCROLLINFO ReadBar(int bar) const noexcept;
    void SetBar(int bar, SCROLLINFO info) noexcept;
    void SetBarPosition(int bar, int position) noexcept;
    [[nodiscard]] int CaretOutOfView(std::int32_t& count) const noexcept;

    // The mouse. Points are in client pixels.
    [[nodiscard]] std::int32_t RowOfPoint(int y) const noexcept;
    void CaretToRow(std::int32_t row, int x);
    void CaretToClick(POINT point);
    void CaretToPoint(POINT point, bool invalidate);
    bool PressInsideSelection();
    [[nodiscard]] bool CaretInSelection() const noexcept;
    void ShowPointer(bool inside) noexcept;
    void ForwardToGrandparent(const xTMessage& message) const noexcept;
    void SelectionStep(POINT point);
    void BringIntoViewUnseen(std::int32_t line);
    void FollowHeldPointer();

    // Drag and drop
    void StartDrag();
    void DeleteDragged();
    void on_drop(IDataObject* data, DWORD effect, POINT point) override;
    void BringForward() const noexcept;

    // Keys
    struct xTKeyMap;
    struct xTPress {
        UINT key;
        bool shift;
        bool insertOrDelete;  // one of these two is held
    };
    LRESULT OnGetDlgCode(const xTMessage& message);
    LRESULT OnKeyDown(const xTMessage& message);
    LRESULT OnKeyUp(const xTMessage& message);
    LRESULT OnChar(const xTMessage& message);
    LRESULT OnSysKeyDown(const xTMessage& message);
    LRESULT OnSysChar(const xTMessage& message);
    void PressKey(const xTPress& press, bool ctrl);
    void TypeChar(WCHAR ch);
    void AddChar(WCHAR ch);
    void AddKey(UINT key);
    template <int direction>
    void CaretKey(const xTPress& press);
    template <int direction>
    void ExtendKey(const xTPress& press);
    template <bool down>
    void PageKey(const xTPress& press);
    void StepCaret(int direction);
    void WordLeftKey(const xTPress& press);
    void WordRightKey(const xTPress& press);
    void HomeKey(const xTPress& press);
    void EndKey(const xTPress& press);
    void DocumentStartKey(const xTPress& press);
    void DocumentEndKey(const xTPress& press);
    void DocumentKey(const xTPos& target, bool shift);
    void IndentKey(const xTPress& press);
    void CommentKey(const xTPress& press);
    void CaseKey(const xTPress& press);
    void LayoutKey(const xTPress& press);
    void InsertKey(const xTPress& press);
    void CopyKey(const xTPress& press);
    void PasteKey(const xTPress& press);
    void DeleteKey(const xTPress& press);
    void CutKey(const xTPress& press);
    void OtherKey(const xTPress& press);
    void ShowStep();
    void NotifyCaret() { NotifyHost(false, 0); }
    void SelectRestFromHome();

    // Commands
    struct xTCommands;
    [[nodiscard]] bool HasFocus() const noexcept { return ::GetFocus() == m_hWnd; }
    [[nodiscard]] bool HasSelectionAndFocus() const noexcept { return HasSelection() && HasFocus(); }
    [[nodiscard]] bool CanUndo() const;
    [[nodiscard]] bool CanRedo() const;
    [[nodiscard]] bool CanCut() const noexcept { return m_editable && HasSelectionAndFocus(); }
    [[nodiscard]] bool CanPaste() const;
    [[nodiscard]] bool Always() const noexcept { return true; }
    [[nodiscard]] bool CanFindNext() const;
    bool Undo();
    bool Redo();
    bool StepBack(bool (xTOperStack::*step)());
    bool OpenFind();
    bool OpenReplace();
    bool FindNext();
    bool Cut();
    bool Copy();
    bool Paste();
    bool SelectAll();
    bool ToggleOverwrite();
    bool ClearSelection();
    bool SelectRest();
    bool CopyAppend();

    void SelectBetween(const xTPos& oldCaret, const xTPos& newCaret, const xTSelection& selection, bool keep);
    [[nodiscard]] xTPos PositionUnderMouse();
    [[nodiscard]] POINT CaretOnScreen(bool bottom);
    [[nodiscard]] LPARAM PackedCaret() const noexcept;

    xTSettingsBlock m_settings;
    xTHighlightHook m_highlightHook;
    std::unique_ptr<xTMemStorage> m_store;
    std::unique_ptr<xTAttribTable> m_attribs;
    std::unique_ptr<xTOperStack> m_operations;
    std::unique_ptr<CDC> m_memDC;  // all measuring and off-screen drawing goes through it
    bool m_editable;
    bool m_overwrite = false;
    bool m_controlKey = false;  // nothing but the release of the Control key touches it
    bool m_partsMade = false;
    bool m_shown = false;
    bool m_painting = false;
    bool m_mayBeClean = false;  // a paint was requested, and nothing was known to be invalid then
    xTLater m_later = xTLater::nothing;
    bool m_requestHeld = false;  // a paint was requested while paints were held
    bool m_repaintWhenUnwound = false;
    std::int32_t m_leftColumn = 0;  // in character widths
    std::int32_t m_topLine = 0;
    xTBitmap m_paintBitmap;
    HGDIOBJ m_previousBitmap = nullptr;  // what the memory context held before the paint bitmap
    xTInvalidArea m_invalid;
    /// The client area as the handler at work has seen it when it looked for the caret in it; a new size forgets it.
    mutable std::optional<RECT> m_clientSeen;
    SIZE m_screen{};  // of the whole screen, which is the size of the paint bitmap; empty until it is asked for
    UINT_PTR m_ticker = 1;
    UINT_PTR m_scrollTimer = 0;
    std::uint32_t m_idleMs = 0;  // since the last paint
    std::uint32_t m_defaultTheme;

    // The mouse and drags
    enum class xTMouseState : std::uint16_t {
        idle,
        down,      // the button is down, or a selection step is in progress
        selecting  // at least one step has been taken: the timer may drive it
    };
    xTMouseState m_mouseState = xTMouseState::idle;
    bool m_dragCandidate = false;  // the button went down inside the selection
    HCURSOR m_textCursor = ::LoadCursorW(nullptr, IDC_IBEAM);
    HCURSOR m_previousCursor = nullptr;  // what SetCursor returned last
    xTPos m_mouseAnchor;  // where a mouse selection began
    POINT m_lastMousePoint{-1, -1};
    xTPosRange m_dragRange{{0, 0}, {0, 0}};  // the selection as it stood when a drag began
    COleDataSource m_dragData;

    zsl::text_encoding m_fileEncoding;  // of the file that the text came from: its mark and line ends go back into a save
    xTFindReplace m_find{this};
    xTCaret m_caret;

    // What OnDestroy takes out of use while a handler further up the stack may still be working with it.
    struct xTRetired {
        std::unique_ptr<CDC> memDC;
        std::unique_ptr<xTAttribTable> attribs;
        std::unique_ptr<xTMemStorage> store;  // points to the table, so it goes before it
        std::unique_ptr<xTOperStack> operations;
    } m_retired;
};
