/// @file scrivctl3.h
/// Everything that a host of the editor control sees: records, codes, messages and exports of scrivctl3.dll.
/// Plain C99, also C++11 and later. docs/api.md is the long form, with rules, examples and limits.
///
/// A control is a child window. The host makes one with edCreateCtrl, shows it (it is born hidden), gives it a text
/// or a file and destroys it with edDestroyCtrl. The parent hears of changes through the ED_NOTIFY_ messages.
///
/// Common to all exports:
/// - Call them on the thread that created the control.
/// - Text is UTF-16, with the single character 10 as line break. Lines and columns count from 0, in characters; a tab
///   is one character.
/// - A handle that is no window, or no control of the calling thread, is answered at once with the result named "bad
///   handle" below.
/// - All of them may be called from inside the messages and the highlight callback, edDestroyCtrl too.
/// - Line numbers and indexes that are unsigned here are read as signed: from 0x80000000 on they are negative.
/// - No exception leaves them: a fault inside is written to the log "scrivctl.log" beside the host's executable, and
///   the call answers as for a bad handle unless told otherwise.
#pragma once

#include <windows.h>

// The library itself is built with SCRIVCTL3_BUILD; its module definition file names the exports.
#if defined(SCRIVCTL3_BUILD)
#define SCRIVCTL3_API
#else
#define SCRIVCTL3_API __declspec(dllimport)
#endif

// The records have their natural layout whatever packing the host compiles with.
#pragma pack(push, 8)

#ifdef __cplusplus
extern "C" {
#endif

// ---- Codes ----------------------------------------------------------------------------------------------------

/// Bits of edCreateParams.flags.
enum {
    ED_CREATE_READONLY = 1  ///< the user cannot change the text, and the control accepts no drops
};

/// Colour themes, for edCreateParams.defaultTheme. Any number past the last gives a control without any colours.
enum {
    ED_THEME_DEFAULT = 0,  ///< theme 1
    ED_THEME_CLASSIC = 1,  ///< black on white
    ED_THEME_TIBERITE = 2, ///< blue on white, keywords bold
    ED_THEME_OCEAN = 3,    ///< bright on dark blue
    ED_THEME_DUSK = 4,     ///< bright on black
    ED_THEME_MIRANA = 5    ///< bright on black, comments magenta, strings red
};

/// Encodings of text files, for edLoadFile and edSaveFile.
enum {
    ED_ENCODING_DEFAULT = 0, ///< reading: found out from the bytes; writing: UTF-8
    ED_ENCODING_ANSI = 1,    ///< the system's ANSI code page
    ED_ENCODING_UTF8 = 2,
    ED_ENCODING_OEM = 3,     ///< the system's OEM code page
    ED_ENCODING_UTF16LE = 4, ///< little endian; always written with a byte order mark
    ED_ENCODING_UTF16BE = 5  ///< big endian; always written with a byte order mark
};

/// What edGetPosition is asked for.
enum {
    ED_POSITION_CARET = 1,           ///< the caret
    ED_POSITION_MOUSE = 2,           ///< the place under the mouse pointer; below the text its line is past the end
    ED_POSITION_SELECTION_FIRST = 3, ///< the first selected character
    ED_POSITION_SELECTION_LAST = 4,  ///< the last selected character (inclusive)
    ED_POSITION_VIEWPORT = 5,        ///< x: first visible column, y: first visible line
    ED_POSITION_CARET_TOP = 6,       ///< top left of the caret, in screen pixels
    ED_POSITION_CARET_BOTTOM = 7     ///< bottom left of the caret, in screen pixels
};

/// What edGetMode is asked for.
enum {
    ED_MODE_INSERT = 1,    ///< typing inserts; not set: it overwrites
    ED_MODE_SELECTION = 2, ///< a selection exists
    ED_MODE_READONLY = 3   ///< the control is read-only
};

/// What edExecCommand does. "Focus" means that the control's own window has it, "selection" that one exists. Where no
/// other result is told, edExecCommand answers 1, also when the command refused to act.
enum {
    ED_COMMAND_UNDO = 1,             ///< undoes one step; enabled with focus and a step to undo; 1 only when one was undone
    ED_COMMAND_REDO = 2,             ///< the same for redo
    ED_COMMAND_FIND = 3,             ///< opens the find dialog unless one is open; always enabled
    ED_COMMAND_REPLACE = 4,          ///< opens the replace dialog; enabled unless read-only
    ED_COMMAND_CUT = 5,              ///< enabled unless read-only, with selection and focus
    ED_COMMAND_COPY = 6,             ///< enabled with selection and focus
    ED_COMMAND_PASTE = 7,            ///< in place of a selection; enabled unless read-only, with focus and a text on the
                                     ///< clipboard; 0 when another program keeps the clipboard
    ED_COMMAND_SELECT_ALL = 8,       ///< the caret goes to the start; enabled with focus; 0 without
    ED_COMMAND_TOGGLE_OVERWRITE = 9, ///< flips between insert and overwrite, also without focus; enabled with focus
    ED_COMMAND_FIND_NEXT = 10,       ///< repeats the last search of the process; enabled when there was one; 0 otherwise
    ED_COMMAND_CLEAR_SELECTION = 11, ///< the caret stays; enabled with selection and focus
    ED_COMMAND_SELECT_TO_LINE_END = 12, ///< from the caret, which stays; always enabled
    ED_COMMAND_COPY_APPEND = 13      ///< copies behind the text that the clipboard holds; enabled as copying is
};

/// Bits of the flags of edSetCaretPositionAdv.
enum {
    ED_CARET_REDRAW = 1,         ///< repaint at once
    ED_CARET_CENTRE = 2,         ///< bring the line to the middle of the view, unless it is in the upper half already
    ED_CARET_FOCUS = 4,          ///< take the focus
    ED_CARET_SELECT = 8,         ///< select from the old caret to the new one; without it the selection is dropped
    ED_CARET_KEEP_SELECTION = 16 ///< with ED_CARET_SELECT: the old selection stays part of the new one
};

/// Class codes that a highlight callback writes. Any other number is plain text.
enum {
    ED_CLASS_PLAIN = 0,
    ED_CLASS_IDENTIFIER = 2,
    ED_CLASS_KEYWORD = 3,
    ED_CLASS_SYMBOL = 4,
    ED_CLASS_STRING = 5,
    ED_CLASS_NUMBER = 6,
    ED_CLASS_COMMENT = 7,
    ED_CLASS_STRING_SPECIAL = 8, ///< a special character in a string, such as an escape
    ED_CLASS_STRING_KEYWORD = 9, ///< a keyword in a string
    ED_CLASS_USER1 = 100,        ///< the user classes show over comments, all others under them
    ED_CLASS_USER2 = 101,
    ED_CLASS_USER3 = 102,
    ED_CLASS_USER4 = 103,
    ED_CLASS_USER5 = 104
};

/// Messages from the control to its parent window. All but ED_NOTIFY_FIND ignore the answer.
enum {
    /// A file or text is being dragged in. wParam 0, lParam 1.
    ED_DRAG_ENTER_PARENT = 0x0464,
    /// Caret, selection, text or focus changed. wParam: 1 when the text changed, else 0. lParam: the low 16 bits of the
    /// caret's line in the low word and of its column in the high word (ask edGetPosition for the whole numbers);
    /// -1 when the focus went to a window that is no editor control. Sent with SendNotifyMessageW. Every change of the
    /// text is told but for a load or a copy of the whole; not every move of the caret is, such as one by a search, by
    /// the host or by a key with Shift or Ctrl.
    ED_NOTIFY_CARET = 0x80DE,
    /// A search has passed the end of the text. wParam: the find dialog's window or 0; lParam: the searched text, a
    /// `const wchar_t*` that is valid during the call. Answer non-zero to go on from the top, 0 to stop.
    ED_NOTIFY_FIND = 0x80DF,
    /// The first visible line or column changed. wParam and lParam 0. Sent with SendNotifyMessageW.
    ED_NOTIFY_SCROLL = 0x80E0
};

// ---- Records --------------------------------------------------------------------------------------------------

/// A highlight callback: called whenever a line is drawn or measured.
/// @param ctx            edHighlightHook.ctx
/// @param text           the line, or what of it stands before the place that is measured, NUL-terminated and writable;
///                       EVERY character before the terminator has to be overwritten by an ED_CLASS_ code, for what is
///                       left is taken as a code too
/// @param insideComment  1 when the line begins inside a block comment, else 0
typedef void (*edHighlightFn)(void* ctx, wchar_t* text, int insideComment);

/// The host's classifier. The control finds comments (block comments, and `//` as far as it hides their start) itself.
typedef struct edHighlightHook {
    edHighlightFn fn; ///< may be null: only block comments are coloured
    void* ctx;        ///< handed to `fn` as it is
} edHighlightHook;

/// An opaque block of appearance settings. The host owns the bytes; they are read only inside the call that gets them.
typedef struct edSettingsBlock {
    void* data;  ///< may be null: no settings
    UINT32 size; ///< bytes at `data`
} edSettingsBlock;

/// What edCreateCtrl wants to know. The records are copied; only what `highlightHook->ctx` points to has to outlive it.
typedef struct edCreateParams {
    HWND parent;                          ///< parent window; it gets the messages
    const RECT* rect;                     ///< place in the parent's client area, in pixels; null: empty, at 0,0
    const wchar_t* caption;               ///< window text; null: none
    UINT32 flags;                         ///< ED_CREATE_ bits; only the low byte is read
    const edSettingsBlock* settings;      ///< null: none
    const edHighlightHook* highlightHook; ///< null: none
    UINT32 defaultTheme;                  ///< ED_THEME_ number, used when `settings` holds nothing readable
} edCreateParams;

/// A place: `x` is the column and `y` the line, or both are pixels.
typedef struct edPoint {
    INT32 x;
    INT32 y;
} edPoint;

/// A print job, for edPreparePrinting. The rectangles are in the logical units of `dc`.
typedef struct edPrintSetup {
    HDC dc;              ///< what the pages are measured on: the printer, or what stands for it
    RECT firstPage;      ///< room for the text on a first page with more to follow
    RECT lastPage;       ///< on a last page
    RECT onlyPage;       ///< on a page that is both first and last
    RECT middlePage;     ///< on any other page
    UINT32 wholeText[2]; ///< both 0: the selection is printed; else the whole text
} edPrintSetup;

/// One page, for edPrintPage.
typedef struct edPrintPageParams {
    HDC dc;      ///< what the page is drawn on, with the mapping that edPreparePrinting met
    UINT32 page; ///< from 1
} edPrintPageParams;

// ---- Lifecycle ------------------------------------------------------------------------------------------------

/// Makes a control, hidden and without any line of text.
/// @return its window; 0 when `params` or its parent is null, or the window could not be made
SCRIVCTL3_API HWND edCreateCtrl(const edCreateParams* params);

/// Destroys a control and frees what it holds; its handle is dead after it. Call it at the latest in the WM_DESTROY of
/// the parent: a window that goes without it leaves memory behind. Bad handle: nothing happens.
SCRIVCTL3_API void edDestroyCtrl(HWND control);

/// Tests a handle.
/// @return `control` when it is a control; bad handle: null
SCRIVCTL3_API HWND edGetHWND(HWND control);

// ---- Text in and out ------------------------------------------------------------------------------------------

/// Replaces the text by a file's and forgets undo, selection and marks; the caret goes to the start, the view stays
/// scrolled. A line of more than 512 characters goes on in the next one. An empty file leaves the old text, and the
/// result is 1. A file that cannot be opened or is no text is told to the user in a message box.
/// @param path      null gives 0
/// @param encoding  in: ED_ENCODING_ code to try when the bytes do not tell; out: the code found. May be null
/// @return 1 when loaded, and also after a fault inside; 0 when the file cannot be opened or is no text; bad handle: 0
SCRIVCTL3_API BOOL edLoadFile(HWND control, const wchar_t* path, UINT32* encoding);

/// Writes the text to a file, the lines joined by line breaks, with none behind the last. The file on disk changes only
/// when all could be written. Line ends and byte order mark are those of the file that was loaded, as far as the
/// encoding is still that one.
/// @param encoding  ED_ENCODING_ code; any other is the system's ANSI code page
/// @return 1 when written; 0 when `path` is null, the file cannot be written or the encoding lacks a character of the
///         text; bad handle: 0
SCRIVCTL3_API BOOL edSaveFile(HWND control, const wchar_t* path, UINT32 encoding);

/// Replaces the text and forgets undo, selection and marks; the caret goes to the start, the view stays scrolled. A
/// last line break makes no further line; a line of more than 512 characters goes on in the next one; carriage returns
/// stay as characters.
/// @param text      NUL-terminated; null empties the control
/// @param maxChars  0 empties the control; any other number loads the whole of `text`, however long it is
/// @return 1 when loaded; bad handle: 0
SCRIVCTL3_API BOOL edLoadText(HWND control, const wchar_t* text, UINT32 maxChars);

/// Copies the whole text, lines joined by line breaks; a text of one empty line is one line break.
/// @param buffer  room for the result of a call with null; may be null
/// @return the length in characters with the terminator; bad handle: 0
SCRIVCTL3_API UINT32 edSaveText(HWND control, wchar_t* buffer);

/// @return the number of lines, 0 for a control without a text; bad handle: 0
SCRIVCTL3_API UINT32 edGetLineCount(HWND control);

/// Copies one line, or the selection, into the host's buffer.
/// @param line           a line past the end counts as an empty text
/// @param fromSelection  non-zero: the selection if there is one, with CR LF as line break; `line` is then ignored
/// @param buffer         may be null only with a `*length` of 0; a buffer that is too small gets an empty text
/// @param length         in: room in `buffer` in characters with the terminator; out: the size needed, with terminator
/// @return 1 when copied; 0 when `length` is null or the room too small; bad handle: 0
SCRIVCTL3_API BOOL edGetLine(HWND control, UINT32 line, int fromSelection, wchar_t* buffer, UINT32* length);

/// Inserts a text at the caret as one step of undo, in place of a selection, which goes as a step of its own. Carriage
/// returns are dropped. A line does not grow past 462 characters by it: what is too much goes on in the next line, and
/// where the line is full already the rest of the text is dropped. Nothing happens in a read-only control.
/// @param text  NUL-terminated; null or empty does nothing
/// @return 1, also when nothing was done; bad handle: 0
SCRIVCTL3_API BOOL edInsertText(HWND control, const wchar_t* text);

/// Copies the text of one control, with its marks, into another and forgets the undo of that one, which takes the focus.
/// Its caret stays as far as the new text allows, its selection stays whatever the new text. A control copied into
/// itself only forgets its undo.
/// @return 1; bad handle, be it either: 0
SCRIVCTL3_API BOOL edCopyData(HWND source, HWND destination);

// ---- Positions and modes --------------------------------------------------------------------------------------

/// Moves the caret, brings it into view, takes the focus and drops the selection: edSetCaretPositionAdv with the flags
/// ED_CARET_REDRAW, ED_CARET_CENTRE and ED_CARET_FOCUS. Bad handle: nothing happens.
/// @param line  one that the text has not leaves the caret and only scrolls; one below -1 counts as 0
/// @param col   cut to the length of the line; a negative one leaves the caret and only scrolls
SCRIVCTL3_API void edSetCaretPosition(HWND control, int line, int col);

/// Moves the caret as told. Bad handle: nothing happens.
/// @param line, col  as for edSetCaretPosition
/// @param flags      ED_CARET_ bits
SCRIVCTL3_API void edSetCaretPositionAdv(HWND control, int line, int col, UINT32 flags);

/// Scrolls so that `line` is the first visible line and `col` the first visible column, as far as the text allows.
/// The caret stays. A negative value leaves its axis alone. Bad handle: nothing happens.
SCRIVCTL3_API void edSetScrollPosition(HWND control, int line, int col);

/// Asks for a position.
/// @param code  ED_POSITION_ code
/// @param out   gets the answer; untouched when the result is 0
/// @return 1; 0 for any other code, for a selection when there is none and when `out` is null; bad handle: 0
SCRIVCTL3_API BOOL edGetPosition(HWND control, int code, edPoint* out);

/// Asks for a mode.
/// @param code  ED_MODE_ code
/// @return 1 when the mode is on; 0 when it is off and for any other code; bad handle: 0
SCRIVCTL3_API BOOL edGetMode(HWND control, UINT32 code);

// ---- Commands -------------------------------------------------------------------------------------------------

/// Does what a menu of the host offers.
/// @param code  ED_COMMAND_ code
/// @return as told there; 0 for any other code; bad handle: 0
SCRIVCTL3_API BOOL edExecCommand(HWND control, int code);

/// Tells a host what to grey in its menus.
/// @param code  ED_COMMAND_ code
/// @return 1 when the command is enabled; 0 when it is not and for any other code; bad handle: 0
SCRIVCTL3_API BOOL edCanExecCommand(HWND control, int code);

// ---- Break points and the execution point ---------------------------------------------------------------------

/// Sets a break point; one that is there already stays. It moves with its line and goes with it.
/// @return 1 when set; 0 when there is no such line or the line is empty; bad handle: 0
SCRIVCTL3_API BOOL edSetBreakPoint(HWND control, UINT32 line);

/// Removes the break point of a line that has characters; that of a line that has become empty stays.
/// @return 1, also when there was none and for a negative `line`; 0 when `line` is past the end; bad handle: 0
SCRIVCTL3_API BOOL edRemoveBreakPoint(HWND control, UINT32 line);

/// Removes all break points, those of empty lines too. Bad handle: nothing happens.
SCRIVCTL3_API void edRemoveAllBreakPoints(HWND control);

/// @return the number of lines with a break point; bad handle: -1
SCRIVCTL3_API int edGetBreakPointCount(HWND control);

/// @param index  from 0, in the order of the lines; a negative one gives line 0
/// @return the line of that break point; -1 when there is none; bad handle: -1
SCRIVCTL3_API int edGetBreakPointLine(HWND control, UINT32 index);

/// Moves the execution point to a line. One past the end leaves it where it is; a negative one takes it away and puts a
/// record into the log.
/// @return 1, also when the line was refused; bad handle: 0
SCRIVCTL3_API BOOL edSetExecPoint(HWND control, UINT32 line);

/// Takes the execution point away. Bad handle: nothing happens.
SCRIVCTL3_API void edClearExecPoint(HWND control);

// ---- Snapshots ------------------------------------------------------------------------------------------------

/// Remembers the present number of each line, in place of what an earlier snapshot remembered. Bad handle: nothing.
SCRIVCTL3_API void edTakeSnapshot(HWND control);

/// @param oldLine  a line's number in the snapshot; -1 asks for the first line that is newer than the snapshot
/// @return its number now; -1 when it is gone; bad handle: -1
SCRIVCTL3_API int edGetSnapshotNewLine(HWND control, int oldLine);

/// @param line  a line's number now
/// @return its number in the snapshot; -1 when it is newer or there is no such line; bad handle: -1
SCRIVCTL3_API int edGetSnapshotOldLine(HWND control, int line);

// ---- Appearance -----------------------------------------------------------------------------------------------

/// Gives a control other settings: colours, styles, font and tabs. A block of another format changes nothing.
/// Text, caret, marks and undo stay. Bad handle: nothing happens.
/// @param block  null, without data, or with a size of 0 or above 0x7FFFFFFF: nothing happens. The bytes are read only
///               inside the call
SCRIVCTL3_API void edReloadTuneSettings(HWND control, const edSettingsBlock* block);

// The two pages on which a user tunes the look. A host places them in a dialog of its own. They change nothing but one
// preview, which all pages of the process share and which the first of them makes; edApplyTuningChanges fetches what
// the user has made of it, for the host to keep and to hand to its controls. The last page takes the preview along.
// The pages are child dialogs with WS_EX_CONTROLPARENT, so Tab goes through them where the host's dialog lets it.

/// Makes the page of font and tabs, shown: 238 by 147 dialog units.
/// @param parent    the host's page or dialog; it gets the messages 0x365 and 0x366 that ask for help
/// @param rect      place in the parent's client area, in pixels; null: the template's size at 0,0
/// @param settings  what a new preview begins with, theme 1 where it holds nothing readable; an open preview goes on as
///                  it is. Null gives 0
/// @param hook      classifies the preview's text; the first one given holds for all pages. May be null; what
///                  `hook->ctx` points to has to outlive the pages
/// @return the page's window, which goes with its parent or by DestroyWindow; 0 on failure. Bad `parent`: 0
SCRIVCTL3_API HWND edCreateFontTuneDialog(HWND parent, const RECT* rect, const edSettingsBlock* settings,
                                          const edHighlightHook* hook);

/// Makes the page of colours and styles, which also shows the preview: 250 by 190 dialog units. Everything else as for
/// edCreateFontTuneDialog.
SCRIVCTL3_API HWND edCreateHighlightTuneDialog(HWND parent, const RECT* rect, const edSettingsBlock* settings,
                                               const edHighlightHook* hook);

/// Writes the settings of the preview into a block. `block->size` is the room and stays as it is.
/// @param block  null gives 0; null data or too little room leave it unchanged
/// @return the size of the settings in bytes, written or not; 0 when no page is open
SCRIVCTL3_API UINT32 edApplyTuningChanges(edSettingsBlock* block);

// ---- Printing -------------------------------------------------------------------------------------------------
//
// The host owns the printer, the page loop and the mapping of units; the control splits the text into pages and draws
// one on request, black on white, in the font of plain text. That font has the height that it would have on a screen
// of 96 dots per inch, so on a printer 96 logical units should be an inch. Long lines are wrapped. An ampersand
// underlines the character behind it and is not printed itself; two print one.

/// Starts a print job, in place of one that runs: splits the whole text, or the selection, into pages. A page ends at
/// the end of a line; a line that fits no page is printed alone, cut off. Later changes of the text are not followed.
/// A context that refuses the font, as null does, is told to the user in a message box.
/// @return the number of pages, 0 without a selection to print; 0, and the running job stays, when `setup` is null;
///         bad handle: 0
SCRIVCTL3_API BOOL edPreparePrinting(HWND control, const edPrintSetup* setup);

/// Draws a page of the running job, any one any number of times. Font and colours of the context are as before after it.
/// @return 1, also for a page past the last one, for which nothing is drawn; 0 when `params` or its context is null and
///         for page 0; bad handle: 0
SCRIVCTL3_API BOOL edPrintPage(HWND control, const edPrintPageParams* params);

/// Ends the running job.
/// @return 1; 0 when none was running; bad handle: 0
SCRIVCTL3_API BOOL edPrintingOver(HWND control);

#ifdef __cplusplus
}
#endif

#pragma pack(pop)
