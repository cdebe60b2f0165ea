/// @file scrivctl3.hpp
/// The editor control for C++17 and later: a class that owns a control, over the functions of scrivctl3.h. Nothing to
/// build or to link but the import library of scrivctl3.dll; standard C++ and windows.h only.
///
///     scriv::Options options;
///     options.highlighter = [](wchar_t* text, std::size_t n, bool) { std::fill_n(text, n, ED_CLASS_PLAIN); };
///     options.events.caret = [&](const scriv::CaretEvent& event) { changed = changed || event.textChanged; };
///     scriv::Editor editor(window, std::move(options));
///     editor.LoadFile(L"C:\\source.c");
///
/// Common to all:
/// - Everything of one editor is used on the thread that made it.
/// - Text is UTF-16 with the single character 10 as line break, and ends at a zero character. Lines and columns count
///   from 0, in characters; a tab is one character.
/// - An editor is empty when it was made without arguments, moved from or closed, or when its parent window is gone.
///   An empty editor answers every call: false, 0, an empty text or no value, and does nothing.
/// - An exception of a callback goes no further than this header: the first is kept for Editor::TakeFailure.
/// - A callback may close, move, assign or destroy its editor, and destroy the parent window.
#pragma once

#include "scrivctl3.h"

#include <cstddef>
#include <cwchar>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>
#include <vector>

namespace scriv {

// ---- Values ---------------------------------------------------------------------------------------------------

/// A place in the text, both from 0; a column may be the line's length.
struct Position {
    int line = 0;
    int column = 0;
    friend constexpr bool operator==(Position a, Position b) noexcept
    {
        return a.line == b.line && a.column == b.column;
    }
    friend constexpr bool operator!=(Position a, Position b) noexcept { return !(a == b); }
    friend constexpr bool operator<(Position a, Position b) noexcept
    {
        return a.line != b.line ? a.line < b.line : a.column < b.column;
    }
};

/// What is selected. `last` is the last selected character; with column -1 it is the line break in front of its line.
struct Selection {
    Position first;
    Position last;
};

/// A block of appearance settings: opaque bytes for the host to keep. Empty: none.
using Settings = std::vector<unsigned char>;

enum class Encoding : UINT32 {
    Default = ED_ENCODING_DEFAULT, ///< reading: found out from the bytes; writing: UTF-8
    Ansi = ED_ENCODING_ANSI,       ///< the system's ANSI code page
    Utf8 = ED_ENCODING_UTF8,
    Oem = ED_ENCODING_OEM,         ///< the system's OEM code page
    Utf16LE = ED_ENCODING_UTF16LE, ///< always written with a byte order mark, as is the next
    Utf16BE = ED_ENCODING_UTF16BE
};

enum class Theme : UINT32 {
    Default = ED_THEME_DEFAULT,
    Classic = ED_THEME_CLASSIC,
    Tiberite = ED_THEME_TIBERITE,
    Ocean = ED_THEME_OCEAN,
    Dusk = ED_THEME_DUSK,
    Mirana = ED_THEME_MIRANA
};

/// What menus offer; scrivctl3.h tells of each ED_COMMAND_ when it is enabled and what it answers.
enum class Command : int {
    Undo = ED_COMMAND_UNDO,
    Redo = ED_COMMAND_REDO,
    Find = ED_COMMAND_FIND,
    Replace = ED_COMMAND_REPLACE,
    Cut = ED_COMMAND_CUT,
    Copy = ED_COMMAND_COPY,
    Paste = ED_COMMAND_PASTE,
    SelectAll = ED_COMMAND_SELECT_ALL,
    ToggleOverwrite = ED_COMMAND_TOGGLE_OVERWRITE,
    FindNext = ED_COMMAND_FIND_NEXT,
    ClearSelection = ED_COMMAND_CLEAR_SELECTION,
    SelectToLineEnd = ED_COMMAND_SELECT_TO_LINE_END,
    CopyAppend = ED_COMMAND_COPY_APPEND
};

/// Caret, selection, text or focus changed.
struct CaretEvent {
    bool textChanged; ///< since the last event
    bool focusLost;   ///< the focus went to a window that is no editor control
    Position caret;   ///< where the caret stands now
};

/// What an editor reports. An empty function is not called.
struct Events {
    std::function<void(const CaretEvent&)> caret;
    std::function<void()> scroll;    ///< the first visible line or column changed
    std::function<void()> dragEnter; ///< a file or text is being dragged in
    /// A search has passed the end of the text. Gets the searched text, valid during the call, and the find dialog's
    /// window or null. True goes on from the top; false, an empty function and an exception stop.
    std::function<bool(std::wstring_view sought, HWND dialog)> searchPassedEnd;
};

// ---- The highlight hook ---------------------------------------------------------------------------------------

namespace detail {

/// What calls of the host's have thrown: the first is kept.
struct Failures {
    std::exception_ptr first;

    void Keep(std::exception_ptr failure) noexcept
    {
        if (!first)
            first = std::move(failure);
    }
};

/// A callable of the host with what it has thrown. Shared, so that one that destroys its editor lives on to its end.
struct Hook : std::enable_shared_from_this<Hook> {
    Failures failures;
    virtual ~Hook() = default;
};

template <class F>
struct HookOf final : Hook {
    F call;

    template <class G>
    explicit HookOf(G&& from) : call(std::forward<G>(from))
    {
    }

    static void Call(void* ctx, wchar_t* text, int insideComment) noexcept
    {
        auto& self = *static_cast<HookOf*>(static_cast<Hook*>(ctx));
        const std::shared_ptr<Hook> alive = self.shared_from_this();
        const std::size_t length = std::wcslen(text);
        try {
            self.call(text, length, insideComment != 0);
        }
        catch (...) {
            // What is left of the text would be taken for class codes.
            std::wmemset(text, ED_CLASS_PLAIN, length);
            self.failures.Keep(std::current_exception());
        }
    }
};

} // namespace detail

/// The host's classifier: any callable as `void(wchar_t* text, std::size_t length, bool insideComment)`, captures and
/// all. It has to overwrite the `length` characters of the line with ED_CLASS_ codes; `insideComment` tells that the
/// line begins inside a block comment. The line is plain when it throws. Copies share the callable.
class Highlighter {
public:
    /// None: only block comments are coloured.
    Highlighter() = default;

    /// Throws what copying or moving the callable throws.
    template <class F, class = std::enable_if_t<
        !std::is_same_v<std::decay_t<F>, Highlighter> &&
        std::is_invocable_v<std::decay_t<F>&, wchar_t*, std::size_t, bool>>>
    Highlighter(F&& callable)
        : m_hook(std::make_shared<detail::HookOf<std::decay_t<F>>>(std::forward<F>(callable))),
          m_call(&detail::HookOf<std::decay_t<F>>::Call)
    {
    }

    /// The record for the functions of scrivctl3.h, both fields null for none. It is good while a copy of this lives.
    [[nodiscard]] edHighlightHook Record() const noexcept { return {m_call, m_hook.get()}; }

    /// The first exception of the callable since this was last asked, in whichever control; null for none.
    [[nodiscard]] std::exception_ptr TakeFailure() const noexcept
    {
        return m_hook ? std::exchange(m_hook->failures.first, nullptr) : nullptr;
    }

private:
    std::shared_ptr<detail::Hook> m_hook;
    edHighlightFn m_call = nullptr;
};

/// What a new editor is like.
struct Options {
    RECT place{};              ///< in the parent's client area, in pixels
    bool visible = true;       ///< false: hidden until Editor::Show
    bool readOnly = false;     ///< the user cannot change the text, and no drops are accepted
    std::wstring caption;      ///< the control's window text
    Theme theme = Theme::Default; ///< used when `settings` hold nothing readable
    Settings settings;
    Highlighter highlighter;
    Events events;
};

// ---- The window around a control ------------------------------------------------------------------------------

namespace detail {

[[nodiscard]] inline edSettingsBlock BlockOf(const Settings& settings) noexcept
{
    // The control only reads.
    return {const_cast<unsigned char*>(settings.data()), static_cast<UINT32>(settings.size())};
}

/// A control's messages go to its parent and do not say which control sent them, so each gets a bare parent of its own,
/// which it fills. This leaves the host's windows as they are: nothing of theirs is subclassed.
class Frame : public std::enable_shared_from_this<Frame> {
public:
    HWND window = nullptr;
    HWND control = nullptr; ///< null as long as no events are wanted: before it is made and once it is to go
    Highlighter highlighter;
    std::shared_ptr<const Events> events;
    Failures failures;

    explicit Frame(Options& options)
        : highlighter(std::move(options.highlighter)), events(std::make_shared<Events>(std::move(options.events)))
    {
    }

    void Create(HWND parent, const Options& options)
    {
        const RECT& place = options.place;
        window = CreateWindowExW(0, ClassName(), L"", WS_CHILD | WS_CLIPCHILDREN | WS_TABSTOP, place.left, place.top,
                                 place.right - place.left, place.bottom - place.top, parent, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
        if (window == nullptr)
            throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "window of an editor");
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
        control = CreateControl(options);
        if (control == nullptr) {
            const auto error = static_cast<int>(GetLastError());
            Close();
            throw std::system_error(error, std::system_category(), "editor control");
        }
        ShowWindow(control, SW_SHOW);
        if (options.visible)
            ShowWindow(window, SW_SHOWNA);
    }

    void Close() noexcept
    {
        if (const HWND gone = Release())
            DestroyWindow(gone);
    }

private:
    /// One class serves all modules of a process, since its procedure is the system's own.
    [[nodiscard]] static const wchar_t* ClassName() noexcept
    {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = L"scriv::Editor";
        RegisterClassW(&windowClass); // fails when it was done before
        return windowClass.lpszClassName;
    }

    [[nodiscard]] HWND CreateControl(const Options& options) const noexcept
    {
        const edSettingsBlock settings = BlockOf(options.settings);
        const edHighlightHook hook = highlighter.Record();
        RECT client{};
        GetClientRect(window, &client);
        const edCreateParams params{window, &client, options.caption.c_str(),
                                    options.readOnly ? UINT32{ED_CREATE_READONLY} : UINT32{0}, &settings, &hook,
                                    static_cast<UINT32>(options.theme)};
        return edCreateCtrl(&params);
    }

    /// Ends the control and leaves its window alone. Answers that window; null when this was done before.
    HWND Release() noexcept
    {
        const HWND left = std::exchange(window, nullptr);
        if (left != nullptr) {
            SetWindowLongPtrW(left, GWLP_USERDATA, 0);
            edDestroyCtrl(std::exchange(control, nullptr));
        }
        return left;
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
    {
        if (auto* frame = reinterpret_cast<Frame*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
            const std::shared_ptr<Frame> alive = frame->shared_from_this();
            if (frame->Handles(message))
                return frame->OnMessage(message, wParam, lParam);
            if (message == WM_DESTROY)
                frame->Release(); // with its parent: the control's window still lives here
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    [[nodiscard]] bool Handles(UINT message) const noexcept
    {
        return control != nullptr && (message == WM_SIZE || message == WM_SETFOCUS || message == ED_NOTIFY_CARET ||
                                      message == ED_NOTIFY_SCROLL || message == ED_NOTIFY_FIND ||
                                      message == ED_DRAG_ENTER_PARENT);
    }

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept
    {
        if (message == WM_SIZE) {
            MoveWindow(control, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
            return 0;
        }
        if (message == WM_SETFOCUS) {
            SetFocus(control);
            return 0;
        }
        // A callback may give its editor other events: these here then live on to the end of the call.
        const std::shared_ptr<const Events> told = events;
        try {
            return Tell(*told, message, wParam, lParam);
        }
        catch (...) {
            failures.Keep(std::current_exception());
            return 0;
        }
    }

    LRESULT Tell(const Events& told, UINT message, WPARAM wParam, LPARAM lParam) const
    {
        if (message == ED_NOTIFY_CARET && told.caret) {
            edPoint caret{};
            edGetPosition(control, ED_POSITION_CARET, &caret); // the message has 16 bits of each only
            told.caret({wParam != 0, lParam == -1, {caret.y, caret.x}});
        } else if (message == ED_NOTIFY_SCROLL && told.scroll) {
            told.scroll();
        } else if (message == ED_DRAG_ENTER_PARENT && told.dragEnter) {
            told.dragEnter();
        } else if (message == ED_NOTIFY_FIND && told.searchPassedEnd) {
            return told.searchPassedEnd(reinterpret_cast<const wchar_t*>(lParam), reinterpret_cast<HWND>(wParam));
        }
        return 0;
    }
};

} // namespace detail

// ---- The editor -----------------------------------------------------------------------------------------------

/// Owns an editor control and the window around it. Moves, does not copy.
class Editor {
public:
    /// Empty: no control.
    Editor() = default;

    /// Makes a control with an empty text in a child window of `parent`, which ends with that window at the latest.
    /// Throws std::system_error when it cannot be made, be it for a bad `parent`, and std::bad_alloc.
    /// While the mouse moves over the control `parent` gets WM_MOUSEMOVE with a point in the control's client area.
    explicit Editor(HWND parent, Options options = {}) : m_frame(std::make_shared<detail::Frame>(options))
    {
        m_frame->Create(parent, options);
    }

    Editor(Editor&&) noexcept = default;
    /// Closes what this one had.
    Editor& operator=(Editor&& other) noexcept
    {
        Editor(std::move(other)).m_frame.swap(m_frame);
        return *this;
    }
    /// Closes.
    ~Editor() { Close(); }

    /// Destroys control and window; the editor is empty then. Nothing happens to an empty one.
    void Close() noexcept
    {
        if (const std::shared_ptr<detail::Frame> gone = std::move(m_frame))
            gone->Close();
    }

    /// False when empty.
    [[nodiscard]] explicit operator bool() const noexcept { return edGetHWND(Handle()) != nullptr; }
    /// The control, for the functions of scrivctl3.h; null when empty. It stays this editor's: not for edDestroyCtrl.
    [[nodiscard]] HWND Handle() const noexcept { return m_frame ? m_frame->control : nullptr; }
    /// The window that the control fills, to be placed, shown and given the focus; null when empty.
    [[nodiscard]] HWND Window() const noexcept { return m_frame ? m_frame->window : nullptr; }

    /// @param place  in the parent's client area, in pixels
    void Move(const RECT& place) const noexcept
    {
        MoveWindow(Window(), place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
    }
    void Show(bool visible = true) const noexcept { ShowWindow(Window(), visible ? SW_SHOWNA : SW_HIDE); }
    /// Gives the control the keyboard.
    void Focus() const noexcept { SetFocus(Handle()); }

    /// Other callbacks in place of those it has, also from within one of them. Throws std::bad_alloc.
    void SetEvents(Events events) const
    {
        if (m_frame)
            m_frame->events = std::make_shared<Events>(std::move(events));
    }
    /// The first exception of an event or, if none, of the highlighter since this was last asked; null for none.
    [[nodiscard]] std::exception_ptr TakeFailure() const noexcept
    {
        if (m_frame == nullptr)
            return nullptr;
        const std::exception_ptr failure = std::exchange(m_frame->failures.first, nullptr);
        return failure ? failure : m_frame->highlighter.TakeFailure();
    }

    // ---- Text in and out: the changing ones throw nothing, the asking ones std::bad_alloc

    /// Replaces the text by a file's and forgets undo. Lines of more than 512 characters go on in the next one; an empty
    /// file leaves the old text. A file that cannot be opened or is no text is told to the user in a message box.
    /// @param expected  what to try when the bytes do not tell
    /// @return the encoding found, which is also given after a fault inside; no value when it cannot be opened
    std::optional<Encoding> LoadFile(const std::wstring& path, Encoding expected = Encoding::Default) const noexcept
    {
        auto code = static_cast<UINT32>(expected);
        if (!edLoadFile(Handle(), path.c_str(), &code))
            return std::nullopt;
        return static_cast<Encoding>(code);
    }
    /// Writes the text to a file, which changes only when all could be written.
    /// @return false when it cannot be written or the encoding lacks a character of the text
    bool SaveFile(const std::wstring& path, Encoding encoding = Encoding::Default) const noexcept
    {
        return edSaveFile(Handle(), path.c_str(), static_cast<UINT32>(encoding)) != 0;
    }
    /// Replaces the text and forgets undo. Lines of more than 512 characters go on in the next one, carriage returns
    /// stay.
    bool SetText(const std::wstring& text) const noexcept
    {
        return edLoadText(Handle(), text.c_str(), text.empty() ? 0 : 1) != 0; // the number only says: a text or none
    }
    /// The whole text; one empty line is one line break.
    [[nodiscard]] std::wstring Text() const
    {
        std::wstring text;
        if (const UINT32 size = edSaveText(Handle(), nullptr)) {
            text.resize(size - 1);
            edSaveText(Handle(), text.data());
        }
        return text;
    }
    [[nodiscard]] UINT32 LineCount() const noexcept { return edGetLineCount(Handle()); }
    /// One line without its break; an empty text for a line past the end.
    [[nodiscard]] std::wstring Line(UINT32 line) const { return Part(line, false); }
    /// The selected text with CR LF as line break; empty when nothing is selected.
    [[nodiscard]] std::wstring SelectedText() const { return HasSelection() ? Part(0, true) : std::wstring(); }
    /// Inserts at the caret as one step of undo, in place of a selection. Carriage returns are dropped; a line does not
    /// grow past 462 characters by it. True also for a read-only control, where nothing happens.
    bool Insert(const std::wstring& text) const noexcept { return edInsertText(Handle(), text.c_str()) != 0; }
    /// Gives another editor this one's text with its marks, forgets the undo of that one and gives it the focus.
    bool CopyTo(const Editor& other) const noexcept { return edCopyData(Handle(), other.Handle()) != 0; }

    // ---- Positions and modes

    /// How SetCaret moves: any of these, joined by |.
    enum CaretMove : UINT32 {
        Redraw = ED_CARET_REDRAW,               ///< repaint at once
        Centre = ED_CARET_CENTRE,               ///< bring a line from below to the middle of the view
        TakeFocus = ED_CARET_FOCUS,
        Select = ED_CARET_SELECT,               ///< from the old caret to the new one; without it nothing is selected
        KeepSelection = ED_CARET_KEEP_SELECTION ///< with Select: the old selection stays part of the new one
    };

    /// Moves the caret into view, takes the focus and drops the selection.
    /// @param to  a column past the end of its line stands for that end; a negative column, or a line that does not
    ///            exist, leaves the caret and only scrolls
    void SetCaret(Position to) const noexcept { edSetCaretPosition(Handle(), to.line, to.column); }
    /// Moves the caret as told, `to` being as above.
    /// @param moves  CaretMove bits; others are ignored
    void SetCaret(Position to, UINT32 moves) const noexcept
    {
        edSetCaretPositionAdv(Handle(), to.line, to.column, moves);
    }
    /// Makes `first` the first visible place, as far as the text allows; a negative field leaves its axis alone.
    void ScrollTo(Position first) const noexcept { edSetScrollPosition(Handle(), first.line, first.column); }

    [[nodiscard]] std::optional<Position> Caret() const noexcept { return Place(ED_POSITION_CARET); }
    /// The place under the mouse pointer; below the text its line is past the end.
    [[nodiscard]] std::optional<Position> UnderMouse() const noexcept { return Place(ED_POSITION_MOUSE); }
    /// The first visible line and column.
    [[nodiscard]] std::optional<Position> FirstVisible() const noexcept { return Place(ED_POSITION_VIEWPORT); }
    /// No value when nothing is selected.
    [[nodiscard]] std::optional<Selection> Selected() const noexcept
    {
        const auto first = Place(ED_POSITION_SELECTION_FIRST);
        const auto last = Place(ED_POSITION_SELECTION_LAST);
        if (!first || !last)
            return std::nullopt;
        return Selection{*first, *last};
    }
    /// The top left of the caret, in screen pixels.
    [[nodiscard]] std::optional<POINT> CaretTop() const noexcept { return Pixel(ED_POSITION_CARET_TOP); }
    /// The bottom left of the caret, in screen pixels.
    [[nodiscard]] std::optional<POINT> CaretBottom() const noexcept { return Pixel(ED_POSITION_CARET_BOTTOM); }

    /// True when typing inserts, false when it overwrites.
    [[nodiscard]] bool IsInserting() const noexcept { return edGetMode(Handle(), ED_MODE_INSERT) != 0; }
    [[nodiscard]] bool HasSelection() const noexcept { return edGetMode(Handle(), ED_MODE_SELECTION) != 0; }
    [[nodiscard]] bool IsReadOnly() const noexcept { return edGetMode(Handle(), ED_MODE_READONLY) != 0; }

    // ---- Commands

    /// @return as told at the command's ED_COMMAND_ code
    bool Execute(Command command) const noexcept { return edExecCommand(Handle(), static_cast<int>(command)) != 0; }
    /// Tells what to grey in a menu.
    [[nodiscard]] bool CanExecute(Command command) const noexcept
    {
        return edCanExecCommand(Handle(), static_cast<int>(command)) != 0;
    }

    // ---- Break points and the execution point

    /// @return false when there is no such line or it is empty
    bool SetBreakPoint(UINT32 line) const noexcept { return edSetBreakPoint(Handle(), line) != 0; }
    /// That of a line that has become empty stays.
    /// @return true, also when there was none; false when there is no such line
    bool RemoveBreakPoint(UINT32 line) const noexcept { return edRemoveBreakPoint(Handle(), line) != 0; }
    void RemoveAllBreakPoints() const noexcept { edRemoveAllBreakPoints(Handle()); }
    /// The lines with a break point, in their order.
    [[nodiscard]] std::vector<int> BreakPoints() const
    {
        std::vector<int> lines;
        for (int i = 0, count = edGetBreakPointCount(Handle()); i < count; ++i)
            lines.push_back(edGetBreakPointLine(Handle(), static_cast<UINT32>(i)));
        return lines;
    }
    /// Moves the execution point to a line. One past the end leaves it where it is, and is true as well.
    bool SetExecPoint(UINT32 line) const noexcept { return edSetExecPoint(Handle(), line) != 0; }
    void ClearExecPoint() const noexcept { edClearExecPoint(Handle()); }

    // ---- Snapshots

    /// Remembers the present number of each line, in place of what an earlier snapshot remembered.
    void TakeSnapshot() const noexcept { edTakeSnapshot(Handle()); }
    /// Where a line of the snapshot is now; no value when it is gone. -1 asks for the first line that is newer.
    [[nodiscard]] std::optional<int> LineNow(int lineThen) const noexcept
    {
        return LineOr(edGetSnapshotNewLine(Handle(), lineThen));
    }
    /// Where a line was in the snapshot; no value when it is newer or there is no such line.
    [[nodiscard]] std::optional<int> LineThen(int lineNow) const noexcept
    {
        return LineOr(edGetSnapshotOldLine(Handle(), lineNow));
    }

    // ---- Appearance

    /// Takes other colours, styles, font and tabs. Empty settings and those of another format change nothing.
    void Apply(const Settings& settings) const noexcept
    {
        const edSettingsBlock block = detail::BlockOf(settings);
        edReloadTuneSettings(Handle(), &block);
    }

private:
    [[nodiscard]] std::wstring Part(UINT32 line, int fromSelection) const
    {
        std::wstring text;
        UINT32 size = 0;
        edGetLine(Handle(), line, fromSelection, nullptr, &size);
        if (size > 1) {
            text.resize(size - 1);
            edGetLine(Handle(), line, fromSelection, text.data(), &size);
        }
        return text;
    }
    [[nodiscard]] std::optional<Position> Place(int code) const noexcept
    {
        edPoint point;
        if (!edGetPosition(Handle(), code, &point))
            return std::nullopt;
        return Position{point.y, point.x};
    }
    [[nodiscard]] std::optional<POINT> Pixel(int code) const noexcept
    {
        edPoint point;
        if (!edGetPosition(Handle(), code, &point))
            return std::nullopt;
        return POINT{point.x, point.y};
    }
    [[nodiscard]] static std::optional<int> LineOr(int line) noexcept
    {
        return line >= 0 ? std::optional<int>(line) : std::nullopt;
    }

    std::shared_ptr<detail::Frame> m_frame;
};

// ---- Printing -------------------------------------------------------------------------------------------------

/// What is printed, and on what. The rectangles are in the logical units of `dc`, of which 96 should be an inch.
struct PrintSetup {
    HDC dc = nullptr;  ///< what the pages are measured on
    RECT firstPage{};  ///< room for the text on a first page with more to follow
    RECT lastPage{};   ///< on a last page
    RECT onlyPage{};   ///< on a page that is both
    RECT middlePage{}; ///< on any other page
    bool wholeText = true; ///< false: the selection
};

/// A print job of one editor, which has one at most: another one takes its place. It ends with this object.
class PrintJob {
public:
    /// Splits the text into pages; later changes of the text are not followed. A context that refuses the font is told
    /// to the user in a message box.
    PrintJob(const Editor& editor, const PrintSetup& setup) noexcept : m_control(editor.Handle())
    {
        const UINT32 whole = setup.wholeText;
        const edPrintSetup record{setup.dc,       setup.firstPage,  setup.lastPage,
                                  setup.onlyPage, setup.middlePage, {whole, whole}};
        m_pages = edPreparePrinting(m_control, &record);
    }
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    ~PrintJob() { edPrintingOver(m_control); }

    /// 0 without a selection to print, and for an empty editor.
    [[nodiscard]] int PageCount() const noexcept { return m_pages; }
    /// Draws a page, any one any number of times.
    /// @param dc    with the mapping of the context that the job began with
    /// @param page  from 1; nothing is drawn for one past the last, and the answer is true
    /// @return false for page 0, a null context and an empty editor
    bool Print(HDC dc, UINT32 page) const noexcept
    {
        const edPrintPageParams params{dc, page};
        return edPrintPage(m_control, &params) != 0;
    }

private:
    HWND m_control;
    int m_pages = 0;
};

// ---- The pages on which a user tunes the look -----------------------------------------------------------------

namespace detail {

template <class Create>
[[nodiscard]] HWND CreatePage(Create create, HWND parent, const RECT* place, const Settings& settings,
                              const Highlighter& highlighter) noexcept
{
    const edSettingsBlock block = BlockOf(settings);
    const edHighlightHook hook = highlighter.Record();
    return create(parent, place, &block, &hook);
}

} // namespace detail

/// Makes the page of font and tabs, a shown child dialog of 238 by 147 dialog units. All pages of the process share one
/// preview, which the first of them makes and the last takes along.
/// @param settings     what a new preview begins with
/// @param highlighter  classifies the preview's text; the first one given holds for all pages, and a copy of it has to
///                     live until the last page is gone
/// @param place        in the parent's client area, in pixels; null: the page's own size at 0,0
/// @return the page's window, which goes with its parent or by DestroyWindow; null on failure, be it a bad `parent`
[[nodiscard]] inline HWND CreateFontPage(HWND parent, const Settings& settings, const Highlighter& highlighter = {},
                                         const RECT* place = nullptr) noexcept
{
    return detail::CreatePage(edCreateFontTuneDialog, parent, place, settings, highlighter);
}

/// Makes the page of colours and styles with the preview, 250 by 190 dialog units; all else as for CreateFontPage.
[[nodiscard]] inline HWND CreateHighlightPage(HWND parent, const Settings& settings,
                                              const Highlighter& highlighter = {}, const RECT* place = nullptr) noexcept
{
    return detail::CreatePage(edCreateHighlightTuneDialog, parent, place, settings, highlighter);
}

/// What the user has made of the preview; empty when no page is open. Throws std::bad_alloc.
[[nodiscard]] inline Settings TunedSettings()
{
    edSettingsBlock block{};
    Settings settings(edApplyTuningChanges(&block));
    block = detail::BlockOf(settings);
    edApplyTuningChanges(&block);
    return settings;
}

} // namespace scriv
