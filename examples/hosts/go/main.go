// A host in Go: opens the file of its first argument, colours numbers and strings, saves with Ctrl+S.
package main

import (
	"os"
	"runtime"
	"syscall"
	"unsafe"
)

var (
	editor  HWND
	changed bool
)

// The editor asks for one line at a time; every character of it has to be overwritten by a class code.
func colour(line []uint16) {
	inString := false
	for i, unit := range line {
		quote := unit == '"'
		switch {
		case inString || quote:
			line[i] = ED_CLASS_STRING
		case unit >= '0' && unit <= '9':
			line[i] = ED_CLASS_NUMBER
		default:
			line[i] = ED_CLASS_PLAIN
		}
		inString = inString != quote
	}
}

func hook(ctx unsafe.Pointer, text *uint16, insideComment int32) uintptr {
	length := 0
	for *(*uint16)(unsafe.Add(unsafe.Pointer(text), 2*length)) != 0 {
		length++
	}
	colour(unsafe.Slice(text, length))
	return 0
}

func makeEditor(parent HWND) {
	editor = edCreateCtrl(&edCreateParams{
		parent:        parent,
		highlightHook: &edHighlightHook{fn: syscall.NewCallback(hook)},
		defaultTheme:  ED_THEME_CLASSIC,
	})
	showWindow(editor) // it is born hidden
}

func procedure(window HWND, message uint32, wParam, lParam uintptr) uintptr {
	switch {
	case message == WM_CREATE:
		makeEditor(window)
	case message == WM_SIZE:
		moveWindow(editor, lParam&0xFFFF, lParam>>16&0xFFFF)
	case message == WM_SETFOCUS:
		setFocus(editor)
	case message == ED_NOTIFY_CARET:
		changed = changed || wParam != 0
	case message == WM_CLOSE && changed:
		if messageBox(window, "Закрыть, не сохранив текст?", MB_YESNO) != IDYES {
			return 0
		}
	case message == WM_DESTROY:
		edDestroyCtrl(editor)
		postQuitMessage()
	}
	return defWindowProc(window, message, wParam, lParam)
}

func save(window HWND, path *uint16, encoding uint32) {
	changed = !edSaveFile(editor, path, encoding)
	if changed {
		messageBox(window, "Файл не удалось сохранить.", MB_ICONERROR)
	}
}

func run(path *uint16) int {
	window := createWindow("HostInGo", path, procedure)
	encoding := uint32(ED_ENCODING_DEFAULT)
	if !edLoadFile(editor, path, &encoding) {
		return 1 // the user has been told why
	}
	showWindow(window)
	for message, more := nextMessage(); more; message, more = nextMessage() {
		if message.message == WM_KEYDOWN && message.wParam == 'S' && isDown(VK_CONTROL) {
			save(window, path, encoding)
		}
		dispatch(&message)
	}
	return 0
}

func main() {
	runtime.LockOSThread() // windows belong to a thread
	if len(os.Args) < 2 {
		os.Exit(1)
	}
	path, err := syscall.UTF16PtrFromString(os.Args[1])
	if err != nil {
		os.Exit(1)
	}
	os.Exit(run(path))
}
