//! The little of Windows that the host needs.
#![allow(non_snake_case)]

use crate::scrivctl3::{BOOL, HWND};
use std::ffi::c_void;

pub const WM_CREATE: u32 = 0x0001;
pub const WM_DESTROY: u32 = 0x0002;
pub const WM_SIZE: u32 = 0x0005;
pub const WM_SETFOCUS: u32 = 0x0007;
pub const WM_CLOSE: u32 = 0x0010;
pub const WM_KEYDOWN: u32 = 0x0100;
pub const WS_OVERLAPPEDWINDOW: u32 = 0x00CF_0000;
pub const CW_USEDEFAULT: i32 = i32::MIN;
pub const SW_SHOW: i32 = 5;
pub const VK_CONTROL: i32 = 0x11;
pub const MB_YESNO: u32 = 4;
pub const MB_ICONERROR: u32 = 0x10;
pub const IDYES: i32 = 6;

type Procedure = unsafe extern "system" fn(HWND, u32, usize, isize) -> isize;

#[repr(C)]
#[derive(Default)]
pub struct WNDCLASSW {
    pub style: u32,
    pub procedure: Option<Procedure>,
    pub extra: [i32; 2],
    pub handles: [usize; 4], // module, icon, cursor, brush
    pub menu: usize,
    pub name: usize,
}

#[repr(C)]
#[derive(Default)]
pub struct MSG {
    pub window: usize,
    pub message: u32,
    pub wparam: usize,
    pub lparam: isize,
    pub time: u32,
    pub point: [i32; 2],
    pub private: u32,
}

#[link(name = "user32")]
extern "system" {
    pub fn RegisterClassW(class: *const WNDCLASSW) -> u16;
    pub fn CreateWindowExW(
        styleEx: u32,
        class: *const u16,
        title: *const u16,
        style: u32,
        x: i32,
        y: i32,
        width: i32,
        height: i32,
        parent: HWND,
        menu: *mut c_void,
        instance: *mut c_void,
        parameter: *mut c_void,
    ) -> HWND;
    pub fn DefWindowProcW(window: HWND, message: u32, wparam: usize, lparam: isize) -> isize;
    pub fn ShowWindow(window: HWND, how: i32) -> BOOL;
    pub fn MoveWindow(window: HWND, x: i32, y: i32, width: i32, height: i32, repaint: BOOL) -> BOOL;
    pub fn SetFocus(window: HWND) -> HWND;
    pub fn GetMessageW(message: *mut MSG, window: HWND, first: u32, last: u32) -> BOOL;
    pub fn TranslateMessage(message: *const MSG) -> BOOL;
    pub fn DispatchMessageW(message: *const MSG) -> isize;
    pub fn GetKeyState(key: i32) -> i16;
    pub fn MessageBoxW(owner: HWND, text: *const u16, title: *const u16, style: u32) -> i32;
    pub fn PostQuitMessage(status: i32);
}
