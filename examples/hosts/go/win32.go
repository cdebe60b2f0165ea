package main

// The little of Windows that the host needs.

import (
	"syscall"
	"unsafe"
)

const (
	WM_CREATE   = 0x0001
	WM_DESTROY  = 0x0002
	WM_SIZE     = 0x0005
	WM_SETFOCUS = 0x0007
	WM_CLOSE    = 0x0010
	WM_KEYDOWN  = 0x0100

	VK_CONTROL   = 0x11
	MB_YESNO     = 4
	MB_ICONERROR = 0x10
	IDYES        = 6

	swShow             = 5
	wsOverlappedWindow = 0x00CF0000
	cwUseDefault       = 0x80000000
)

type windowClass struct {
	style                       uint32
	procedure                   uintptr
	extra                       [2]int32
	module, icon, cursor, brush uintptr
	menu, name                  *uint16
}

type MSG struct {
	window         HWND
	message        uint32
	wParam, lParam uintptr
	time           uint32
	point          [2]int32
	private        uint32
}

var (
	user32               = syscall.NewLazyDLL("user32.dll")
	procRegisterClass    = user32.NewProc("RegisterClassW")
	procCreateWindow     = user32.NewProc("CreateWindowExW")
	procDefWindowProc    = user32.NewProc("DefWindowProcW")
	procShowWindow       = user32.NewProc("ShowWindow")
	procMoveWindow       = user32.NewProc("MoveWindow")
	procSetFocus         = user32.NewProc("SetFocus")
	procGetMessage       = user32.NewProc("GetMessageW")
	procTranslateMessage = user32.NewProc("TranslateMessage")
	procDispatchMessage  = user32.NewProc("DispatchMessageW")
	procGetKeyState      = user32.NewProc("GetKeyState")
	procMessageBox       = user32.NewProc("MessageBoxW")
	procPostQuitMessage  = user32.NewProc("PostQuitMessage")
)

// wide is for texts without a zero character.
func wide(text string) *uint16 {
	units, err := syscall.UTF16PtrFromString(text)
	if err != nil {
		panic(err)
	}
	return units
}

func createWindow(name string, title *uint16, procedure any) HWND {
	class := windowClass{procedure: syscall.NewCallback(procedure), name: wide(name)}
	procRegisterClass.Call(uintptr(unsafe.Pointer(&class)))
	window, _, _ := procCreateWindow.Call(0, uintptr(unsafe.Pointer(class.name)), uintptr(unsafe.Pointer(title)),
		wsOverlappedWindow, cwUseDefault, 0, 640, 400, 0, 0, 0, 0)
	return HWND(window)
}

func defWindowProc(window HWND, message uint32, wParam, lParam uintptr) uintptr {
	result, _, _ := procDefWindowProc.Call(uintptr(window), uintptr(message), wParam, lParam)
	return result
}

func showWindow(window HWND) {
	procShowWindow.Call(uintptr(window), swShow)
}

func moveWindow(window HWND, width, height uintptr) {
	procMoveWindow.Call(uintptr(window), 0, 0, width, height, 1)
}

func setFocus(window HWND) {
	procSetFocus.Call(uintptr(window))
}

// nextMessage waits for a message; false at the end of the program.
func nextMessage() (message MSG, more bool) {
	result, _, _ := procGetMessage.Call(uintptr(unsafe.Pointer(&message)), 0, 0, 0)
	return message, int32(result) > 0
}

func dispatch(message *MSG) {
	procTranslateMessage.Call(uintptr(unsafe.Pointer(message)))
	procDispatchMessage.Call(uintptr(unsafe.Pointer(message)))
}

func isDown(key uintptr) bool {
	state, _, _ := procGetKeyState.Call(key)
	return int16(state) < 0
}

func messageBox(owner HWND, text string, style uintptr) uintptr {
	answer, _, _ := procMessageBox.Call(uintptr(owner), uintptr(unsafe.Pointer(wide(text))),
		uintptr(unsafe.Pointer(wide("Редактор"))), style)
	return answer
}

func postQuitMessage() {
	procPostQuitMessage.Call(0)
}
