//! A host in Rust: opens the file of its first argument, colours numbers and strings, saves with Ctrl+S.
#![windows_subsystem = "windows"]

mod scrivctl3;
mod win32;

use scrivctl3::*;
use std::cell::Cell;
use std::ffi::c_void;
use std::os::windows::ffi::OsStrExt;
use std::process::exit;
use std::ptr::{null, null_mut};
use win32::*;

thread_local! {
    static EDITOR: Cell<HWND> = Cell::new(null_mut());
    static CHANGED: Cell<bool> = Cell::new(false);
}

fn wide(text: &str) -> Vec<u16> {
    text.encode_utf16().chain(Some(0)).collect()
}

fn message_box(window: HWND, text: &str, style: u32) -> i32 {
    unsafe { MessageBoxW(window, wide(text).as_ptr(), wide("Редактор").as_ptr(), style) }
}

/// The editor asks for one line at a time; every character of it has to be overwritten by a class code.
fn colour(line: &mut [u16]) {
    let mut in_string = false;
    for unit in line {
        let quote = *unit == u16::from(b'"');
        let digit = (u16::from(b'0')..=u16::from(b'9')).contains(unit);
        *unit = match (in_string || quote, digit) {
            (true, _) => ED_CLASS_STRING,
            (false, true) => ED_CLASS_NUMBER,
            (false, false) => ED_CLASS_PLAIN,
        };
        in_string ^= quote;
    }
}

unsafe extern "system" fn hook(_ctx: *mut c_void, text: *mut u16, _inside_comment: i32) {
    let length = (0..).take_while(|&i| *text.add(i) != 0).count();
    colour(std::slice::from_raw_parts_mut(text, length));
}

unsafe fn make_editor(parent: HWND) -> HWND {
    let hook = edHighlightHook { r#fn: Some(hook), ctx: null_mut() };
    let editor = edCreateCtrl(&edCreateParams {
        parent,
        rect: null(),
        caption: null(),
        flags: 0,
        settings: null(),
        highlightHook: &hook, // copied
        defaultTheme: ED_THEME_CLASSIC,
    });
    ShowWindow(editor, SW_SHOW); // it is born hidden
    editor
}

unsafe extern "system" fn procedure(window: HWND, message: u32, wparam: usize, lparam: isize) -> isize {
    let editor = EDITOR.with(Cell::get);
    match message {
        WM_CREATE => EDITOR.with(|cell| cell.set(make_editor(window))),
        WM_SIZE => {
            MoveWindow(editor, 0, 0, (lparam & 0xFFFF) as i32, (lparam >> 16 & 0xFFFF) as i32, 1);
        }
        WM_SETFOCUS => {
            SetFocus(editor);
        }
        ED_NOTIFY_CARET if wparam != 0 => CHANGED.with(|cell| cell.set(true)),
        WM_CLOSE if CHANGED.with(Cell::get) => {
            if message_box(window, "Закрыть, не сохранив текст?", MB_YESNO) != IDYES {
                return 0;
            }
        }
        WM_DESTROY => {
            edDestroyCtrl(editor);
            PostQuitMessage(0);
        }
        _ => {}
    }
    DefWindowProcW(window, message, wparam, lparam)
}

unsafe fn make_window(title: &[u16]) -> HWND {
    let name = wide("HostInRust");
    RegisterClassW(&WNDCLASSW { procedure: Some(procedure), name: name.as_ptr() as usize, ..Default::default() });
    CreateWindowExW(
        0,
        name.as_ptr(),
        title.as_ptr(),
        WS_OVERLAPPEDWINDOW,
        CW_USEDEFAULT,
        0,
        640,
        400,
        null_mut(),
        null_mut(),
        null_mut(),
        null_mut(),
    )
}

unsafe fn save(window: HWND, path: &[u16], encoding: u32) {
    let saved = edSaveFile(EDITOR.with(Cell::get), path.as_ptr(), encoding) != 0;
    CHANGED.with(|cell| cell.set(!saved));
    if !saved {
        message_box(window, "Файл не удалось сохранить.", MB_ICONERROR);
    }
}

unsafe fn run(path: &[u16]) -> i32 {
    let window = make_window(path);
    let mut encoding = ED_ENCODING_DEFAULT;
    if edLoadFile(EDITOR.with(Cell::get), path.as_ptr(), &mut encoding) == 0 {
        return 1; // the user has been told why
    }
    ShowWindow(window, SW_SHOW);
    let mut message = MSG::default();
    while GetMessageW(&mut message, null_mut(), 0, 0) > 0 {
        TranslateMessage(&message);
        if message.message == WM_KEYDOWN && message.wparam == usize::from(b'S') && GetKeyState(VK_CONTROL) < 0 {
            save(window, path, encoding);
        }
        DispatchMessageW(&message);
    }
    0
}

fn main() {
    let path: Option<Vec<u16>> = std::env::args_os().nth(1).map(|path| path.encode_wide().chain(Some(0)).collect());
    exit(path.map_or(1, |path| unsafe { run(&path) }))
}
