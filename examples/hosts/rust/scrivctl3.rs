//! The editor control for Rust: everything of `scrivctl3.h`, which says what each of these means, takes and answers.
//! Link with the import library: `-L` its folder.
#![allow(dead_code, non_camel_case_types, non_snake_case)]

use std::ffi::c_void;
use std::mem::size_of;

pub type HWND = *mut c_void;
pub type HDC = *mut c_void;
pub type BOOL = i32;

// Bits of edCreateParams.flags.
pub const ED_CREATE_READONLY: u32 = 1;

// Colour themes, for edCreateParams.defaultTheme.
pub const ED_THEME_DEFAULT: u32 = 0;
pub const ED_THEME_CLASSIC: u32 = 1;
pub const ED_THEME_TIBERITE: u32 = 2;
pub const ED_THEME_OCEAN: u32 = 3;
pub const ED_THEME_DUSK: u32 = 4;
pub const ED_THEME_MIRANA: u32 = 5;

// Encodings of text files, for edLoadFile and edSaveFile.
pub const ED_ENCODING_DEFAULT: u32 = 0;
pub const ED_ENCODING_ANSI: u32 = 1;
pub const ED_ENCODING_UTF8: u32 = 2;
pub const ED_ENCODING_OEM: u32 = 3;
pub const ED_ENCODING_UTF16LE: u32 = 4;
pub const ED_ENCODING_UTF16BE: u32 = 5;

// What edGetPosition is asked for.
pub const ED_POSITION_CARET: i32 = 1;
pub const ED_POSITION_MOUSE: i32 = 2;
pub const ED_POSITION_SELECTION_FIRST: i32 = 3;
pub const ED_POSITION_SELECTION_LAST: i32 = 4;
pub const ED_POSITION_VIEWPORT: i32 = 5;
pub const ED_POSITION_CARET_TOP: i32 = 6;
pub const ED_POSITION_CARET_BOTTOM: i32 = 7;

// What edGetMode is asked for.
pub const ED_MODE_INSERT: u32 = 1;
pub const ED_MODE_SELECTION: u32 = 2;
pub const ED_MODE_READONLY: u32 = 3;

// What edExecCommand does.
pub const ED_COMMAND_UNDO: i32 = 1;
pub const ED_COMMAND_REDO: i32 = 2;
pub const ED_COMMAND_FIND: i32 = 3;
pub const ED_COMMAND_REPLACE: i32 = 4;
pub const ED_COMMAND_CUT: i32 = 5;
pub const ED_COMMAND_COPY: i32 = 6;
pub const ED_COMMAND_PASTE: i32 = 7;
pub const ED_COMMAND_SELECT_ALL: i32 = 8;
pub const ED_COMMAND_TOGGLE_OVERWRITE: i32 = 9;
pub const ED_COMMAND_FIND_NEXT: i32 = 10;
pub const ED_COMMAND_CLEAR_SELECTION: i32 = 11;
pub const ED_COMMAND_SELECT_TO_LINE_END: i32 = 12;
pub const ED_COMMAND_COPY_APPEND: i32 = 13;

// Bits of the flags of edSetCaretPositionAdv.
pub const ED_CARET_REDRAW: u32 = 1;
pub const ED_CARET_CENTRE: u32 = 2;
pub const ED_CARET_FOCUS: u32 = 4;
pub const ED_CARET_SELECT: u32 = 8;
pub const ED_CARET_KEEP_SELECTION: u32 = 16;

// Class codes that a highlight callback writes.
pub const ED_CLASS_PLAIN: u16 = 0;
pub const ED_CLASS_IDENTIFIER: u16 = 2;
pub const ED_CLASS_KEYWORD: u16 = 3;
pub const ED_CLASS_SYMBOL: u16 = 4;
pub const ED_CLASS_STRING: u16 = 5;
pub const ED_CLASS_NUMBER: u16 = 6;
pub const ED_CLASS_COMMENT: u16 = 7;
pub const ED_CLASS_STRING_SPECIAL: u16 = 8;
pub const ED_CLASS_STRING_KEYWORD: u16 = 9;
pub const ED_CLASS_USER1: u16 = 100;
pub const ED_CLASS_USER2: u16 = 101;
pub const ED_CLASS_USER3: u16 = 102;
pub const ED_CLASS_USER4: u16 = 103;
pub const ED_CLASS_USER5: u16 = 104;

// Messages from the control to its parent window.
pub const ED_DRAG_ENTER_PARENT: u32 = 0x0464;
pub const ED_NOTIFY_CARET: u32 = 0x80DE;
pub const ED_NOTIFY_FIND: u32 = 0x80DF;
pub const ED_NOTIFY_SCROLL: u32 = 0x80E0;

#[repr(C)]
#[derive(Clone, Copy, Default)]
pub struct RECT {
    pub left: i32,
    pub top: i32,
    pub right: i32,
    pub bottom: i32,
}

/// Gets `edHighlightHook::ctx`, the line up to its zero, and 1 when it begins inside a block comment. It overwrites
/// every character with an `ED_CLASS_` code. No panic may leave it.
pub type edHighlightFn = unsafe extern "system" fn(ctx: *mut c_void, text: *mut u16, insideComment: i32);

#[repr(C)]
pub struct edHighlightHook {
    pub r#fn: Option<edHighlightFn>,
    pub ctx: *mut c_void,
}

#[repr(C)]
pub struct edSettingsBlock {
    pub data: *mut c_void,
    pub size: u32,
}

#[repr(C)]
pub struct edCreateParams {
    pub parent: HWND,
    pub rect: *const RECT,
    pub caption: *const u16,
    pub flags: u32,
    pub settings: *const edSettingsBlock,
    pub highlightHook: *const edHighlightHook,
    pub defaultTheme: u32,
}

#[repr(C)]
#[derive(Clone, Copy, Default)]
pub struct edPoint {
    pub x: i32,
    pub y: i32,
}

#[repr(C)]
pub struct edPrintSetup {
    pub dc: HDC,
    pub firstPage: RECT,
    pub lastPage: RECT,
    pub onlyPage: RECT,
    pub middlePage: RECT,
    pub wholeText: [u32; 2],
}

#[repr(C)]
pub struct edPrintPageParams {
    pub dc: HDC,
    pub page: u32,
}

const _: () = assert!(size_of::<edHighlightHook>() == 16);
const _: () = assert!(size_of::<edSettingsBlock>() == 16);
const _: () = assert!(size_of::<edCreateParams>() == 56);
const _: () = assert!(size_of::<edPoint>() == 8);
const _: () = assert!(size_of::<edPrintSetup>() == 80);
const _: () = assert!(size_of::<edPrintPageParams>() == 16);

#[link(name = "scrivctl3")]
extern "system" {
    // Lifecycle
    pub fn edCreateCtrl(params: *const edCreateParams) -> HWND;
    pub fn edDestroyCtrl(control: HWND);
    pub fn edGetHWND(control: HWND) -> HWND;

    // Text in and out
    pub fn edLoadFile(control: HWND, path: *const u16, encoding: *mut u32) -> BOOL;
    pub fn edSaveFile(control: HWND, path: *const u16, encoding: u32) -> BOOL;
    pub fn edLoadText(control: HWND, text: *const u16, maxChars: u32) -> BOOL;
    pub fn edSaveText(control: HWND, buffer: *mut u16) -> u32;
    pub fn edGetLineCount(control: HWND) -> u32;
    pub fn edGetLine(control: HWND, line: u32, fromSelection: i32, buffer: *mut u16, length: *mut u32) -> BOOL;
    pub fn edInsertText(control: HWND, text: *const u16) -> BOOL;
    pub fn edCopyData(source: HWND, destination: HWND) -> BOOL;

    // Positions and modes
    pub fn edSetCaretPosition(control: HWND, line: i32, col: i32);
    pub fn edSetCaretPositionAdv(control: HWND, line: i32, col: i32, flags: u32);
    pub fn edSetScrollPosition(control: HWND, line: i32, col: i32);
    pub fn edGetPosition(control: HWND, code: i32, out: *mut edPoint) -> BOOL;
    pub fn edGetMode(control: HWND, code: u32) -> BOOL;

    // Commands
    pub fn edExecCommand(control: HWND, code: i32) -> BOOL;
    pub fn edCanExecCommand(control: HWND, code: i32) -> BOOL;

    // Break points and the execution point
    pub fn edSetBreakPoint(control: HWND, line: u32) -> BOOL;
    pub fn edRemoveBreakPoint(control: HWND, line: u32) -> BOOL;
    pub fn edRemoveAllBreakPoints(control: HWND);
    pub fn edGetBreakPointCount(control: HWND) -> i32;
    pub fn edGetBreakPointLine(control: HWND, index: u32) -> i32;
    pub fn edSetExecPoint(control: HWND, line: u32) -> BOOL;
    pub fn edClearExecPoint(control: HWND);

    // Snapshots
    pub fn edTakeSnapshot(control: HWND);
    pub fn edGetSnapshotNewLine(control: HWND, oldLine: i32) -> i32;
    pub fn edGetSnapshotOldLine(control: HWND, line: i32) -> i32;

    // Appearance
    pub fn edReloadTuneSettings(control: HWND, block: *const edSettingsBlock);
    pub fn edCreateFontTuneDialog(
        parent: HWND,
        rect: *const RECT,
        settings: *const edSettingsBlock,
        hook: *const edHighlightHook,
    ) -> HWND;
    pub fn edCreateHighlightTuneDialog(
        parent: HWND,
        rect: *const RECT,
        settings: *const edSettingsBlock,
        hook: *const edHighlightHook,
    ) -> HWND;
    pub fn edApplyTuningChanges(block: *mut edSettingsBlock) -> u32;

    // Printing
    pub fn edPreparePrinting(control: HWND, setup: *const edPrintSetup) -> BOOL;
    pub fn edPrintPage(control: HWND, params: *const edPrintPageParams) -> BOOL;
    pub fn edPrintingOver(control: HWND) -> BOOL;
}
