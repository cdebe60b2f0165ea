package main

// The editor control for Go: everything of scrivctl3.h, which says what each of these means, takes and answers.
// All of it is called on one thread: see runtime.LockOSThread.

import (
	"syscall"
	"unsafe"
)

type HWND uintptr
type HDC uintptr

// Bits of edCreateParams.flags.
const (
	ED_CREATE_READONLY = 1
)

// Colour themes, for edCreateParams.defaultTheme.
const (
	ED_THEME_DEFAULT  = 0
	ED_THEME_CLASSIC  = 1
	ED_THEME_TIBERITE = 2
	ED_THEME_OCEAN    = 3
	ED_THEME_DUSK     = 4
	ED_THEME_MIRANA   = 5
)

// Encodings of text files, for edLoadFile and edSaveFile.
const (
	ED_ENCODING_DEFAULT = 0
	ED_ENCODING_ANSI    = 1
	ED_ENCODING_UTF8    = 2
	ED_ENCODING_OEM     = 3
	ED_ENCODING_UTF16LE = 4
	ED_ENCODING_UTF16BE = 5
)

// What edGetPosition is asked for.
const (
	ED_POSITION_CARET           = 1
	ED_POSITION_MOUSE           = 2
	ED_POSITION_SELECTION_FIRST = 3
	ED_POSITION_SELECTION_LAST  = 4
	ED_POSITION_VIEWPORT        = 5
	ED_POSITION_CARET_TOP       = 6
	ED_POSITION_CARET_BOTTOM    = 7
)

// What edGetMode is asked for.
const (
	ED_MODE_INSERT    = 1
	ED_MODE_SELECTION = 2
	ED_MODE_READONLY  = 3
)

// What edExecCommand does.
const (
	ED_COMMAND_UNDO               = 1
	ED_COMMAND_REDO               = 2
	ED_COMMAND_FIND               = 3
	ED_COMMAND_REPLACE            = 4
	ED_COMMAND_CUT                = 5
	ED_COMMAND_COPY               = 6
	ED_COMMAND_PASTE              = 7
	ED_COMMAND_SELECT_ALL         = 8
	ED_COMMAND_TOGGLE_OVERWRITE   = 9
	ED_COMMAND_FIND_NEXT          = 10
	ED_COMMAND_CLEAR_SELECTION    = 11
	ED_COMMAND_SELECT_TO_LINE_END = 12
	ED_COMMAND_COPY_APPEND        = 13
)

// Bits of the flags of edSetCaretPositionAdv.
const (
	ED_CARET_REDRAW         = 1
	ED_CARET_CENTRE         = 2
	ED_CARET_FOCUS          = 4
	ED_CARET_SELECT         = 8
	ED_CARET_KEEP_SELECTION = 16
)

// Class codes that a highlight callback writes.
const (
	ED_CLASS_PLAIN          = 0
	ED_CLASS_IDENTIFIER     = 2
	ED_CLASS_KEYWORD        = 3
	ED_CLASS_SYMBOL         = 4
	ED_CLASS_STRING         = 5
	ED_CLASS_NUMBER         = 6
	ED_CLASS_COMMENT        = 7
	ED_CLASS_STRING_SPECIAL = 8
	ED_CLASS_STRING_KEYWORD = 9
	ED_CLASS_USER1          = 100
	ED_CLASS_USER2          = 101
	ED_CLASS_USER3          = 102
	ED_CLASS_USER4          = 103
	ED_CLASS_USER5          = 104
)

// Messages from the control to its parent window.
const (
	ED_DRAG_ENTER_PARENT = 0x0464
	ED_NOTIFY_CARET      = 0x80DE
	ED_NOTIFY_FIND       = 0x80DF
	ED_NOTIFY_SCROLL     = 0x80E0
)

type RECT struct {
	left, top, right, bottom int32
}

// fn is made by syscall.NewCallback of a func(ctx unsafe.Pointer, text *uint16, insideComment int32) uintptr. It gets
// the line up to its zero and overwrites every character with an ED_CLASS_ code. No panic may leave it.
type edHighlightHook struct {
	fn  uintptr
	ctx unsafe.Pointer
}

type edSettingsBlock struct {
	data unsafe.Pointer
	size uint32
}

type edCreateParams struct {
	parent        HWND
	rect          *RECT
	caption       *uint16
	flags         uint32
	settings      *edSettingsBlock
	highlightHook *edHighlightHook
	defaultTheme  uint32
}

type edPoint struct {
	x, y int32
}

type edPrintSetup struct {
	dc         HDC
	firstPage  RECT
	lastPage   RECT
	onlyPage   RECT
	middlePage RECT
	wholeText  [2]uint32
}

type edPrintPageParams struct {
	dc   HDC
	page uint32
}

// None of these compiles when the size of its record is another.
var (
	_ = [1]struct{}{}[unsafe.Sizeof(edHighlightHook{})-16]
	_ = [1]struct{}{}[unsafe.Sizeof(edSettingsBlock{})-16]
	_ = [1]struct{}{}[unsafe.Sizeof(edCreateParams{})-56]
	_ = [1]struct{}{}[unsafe.Sizeof(edPoint{})-8]
	_ = [1]struct{}{}[unsafe.Sizeof(edPrintSetup{})-80]
	_ = [1]struct{}{}[unsafe.Sizeof(edPrintPageParams{})-16]
)

var (
	scrivctl3 = syscall.NewLazyDLL("scrivctl3.dll")

	procCreateCtrl                = scrivctl3.NewProc("edCreateCtrl")
	procDestroyCtrl               = scrivctl3.NewProc("edDestroyCtrl")
	procGetHWND                   = scrivctl3.NewProc("edGetHWND")
	procLoadFile                  = scrivctl3.NewProc("edLoadFile")
	procSaveFile                  = scrivctl3.NewProc("edSaveFile")
	procLoadText                  = scrivctl3.NewProc("edLoadText")
	procSaveText                  = scrivctl3.NewProc("edSaveText")
	procGetLineCount              = scrivctl3.NewProc("edGetLineCount")
	procGetLine                   = scrivctl3.NewProc("edGetLine")
	procInsertText                = scrivctl3.NewProc("edInsertText")
	procCopyData                  = scrivctl3.NewProc("edCopyData")
	procSetCaretPosition          = scrivctl3.NewProc("edSetCaretPosition")
	procSetCaretPositionAdv       = scrivctl3.NewProc("edSetCaretPositionAdv")
	procSetScrollPosition         = scrivctl3.NewProc("edSetScrollPosition")
	procGetPosition               = scrivctl3.NewProc("edGetPosition")
	procGetMode                   = scrivctl3.NewProc("edGetMode")
	procExecCommand               = scrivctl3.NewProc("edExecCommand")
	procCanExecCommand            = scrivctl3.NewProc("edCanExecCommand")
	procSetBreakPoint             = scrivctl3.NewProc("edSetBreakPoint")
	procRemoveBreakPoint          = scrivctl3.NewProc("edRemoveBreakPoint")
	procRemoveAllBreakPoints      = scrivctl3.NewProc("edRemoveAllBreakPoints")
	procGetBreakPointCount        = scrivctl3.NewProc("edGetBreakPointCount")
	procGetBreakPointLine         = scrivctl3.NewProc("edGetBreakPointLine")
	procSetExecPoint              = scrivctl3.NewProc("edSetExecPoint")
	procClearExecPoint            = scrivctl3.NewProc("edClearExecPoint")
	procTakeSnapshot              = scrivctl3.NewProc("edTakeSnapshot")
	procGetSnapshotNewLine        = scrivctl3.NewProc("edGetSnapshotNewLine")
	procGetSnapshotOldLine        = scrivctl3.NewProc("edGetSnapshotOldLine")
	procReloadTuneSettings        = scrivctl3.NewProc("edReloadTuneSettings")
	procCreateFontTuneDialog      = scrivctl3.NewProc("edCreateFontTuneDialog")
	procCreateHighlightTuneDialog = scrivctl3.NewProc("edCreateHighlightTuneDialog")
	procApplyTuningChanges        = scrivctl3.NewProc("edApplyTuningChanges")
	procPreparePrinting           = scrivctl3.NewProc("edPreparePrinting")
	procPrintPage                 = scrivctl3.NewProc("edPrintPage")
	procPrintingOver              = scrivctl3.NewProc("edPrintingOver")
)

// ---- Lifecycle

func edCreateCtrl(params *edCreateParams) HWND {
	result, _, _ := procCreateCtrl.Call(uintptr(unsafe.Pointer(params)))
	return HWND(result)
}

func edDestroyCtrl(control HWND) {
	procDestroyCtrl.Call(uintptr(control))
}

func edGetHWND(control HWND) HWND {
	result, _, _ := procGetHWND.Call(uintptr(control))
	return HWND(result)
}

// ---- Text in and out

func edLoadFile(control HWND, path *uint16, encoding *uint32) bool {
	result, _, _ := procLoadFile.Call(uintptr(control), uintptr(unsafe.Pointer(path)),
		uintptr(unsafe.Pointer(encoding)))
	return int32(result) != 0
}

func edSaveFile(control HWND, path *uint16, encoding uint32) bool {
	result, _, _ := procSaveFile.Call(uintptr(control), uintptr(unsafe.Pointer(path)), uintptr(encoding))
	return int32(result) != 0
}

func edLoadText(control HWND, text *uint16, maxChars uint32) bool {
	result, _, _ := procLoadText.Call(uintptr(control), uintptr(unsafe.Pointer(text)), uintptr(maxChars))
	return int32(result) != 0
}

func edSaveText(control HWND, buffer *uint16) uint32 {
	result, _, _ := procSaveText.Call(uintptr(control), uintptr(unsafe.Pointer(buffer)))
	return uint32(result)
}

func edGetLineCount(control HWND) uint32 {
	result, _, _ := procGetLineCount.Call(uintptr(control))
	return uint32(result)
}

func edGetLine(control HWND, line uint32, fromSelection int32, buffer *uint16, length *uint32) bool {
	result, _, _ := procGetLine.Call(uintptr(control), uintptr(line), uintptr(fromSelection),
		uintptr(unsafe.Pointer(buffer)), uintptr(unsafe.Pointer(length)))
	return int32(result) != 0
}

func edInsertText(control HWND, text *uint16) bool {
	result, _, _ := procInsertText.Call(uintptr(control), uintptr(unsafe.Pointer(text)))
	return int32(result) != 0
}

func edCopyData(source HWND, destination HWND) bool {
	result, _, _ := procCopyData.Call(uintptr(source), uintptr(destination))
	return int32(result) != 0
}

// ---- Positions and modes

func edSetCaretPosition(control HWND, line int32, col int32) {
	procSetCaretPosition.Call(uintptr(control), uintptr(line), uintptr(col))
}

func edSetCaretPositionAdv(control HWND, line int32, col int32, flags uint32) {
	procSetCaretPositionAdv.Call(uintptr(control), uintptr(line), uintptr(col), uintptr(flags))
}

func edSetScrollPosition(control HWND, line int32, col int32) {
	procSetScrollPosition.Call(uintptr(control), uintptr(line), uintptr(col))
}

func edGetPosition(control HWND, code int32, out *edPoint) bool {
	result, _, _ := procGetPosition.Call(uintptr(control), uintptr(code), uintptr(unsafe.Pointer(out)))
	return int32(result) != 0
}

func edGetMode(control HWND, code uint32) bool {
	result, _, _ := procGetMode.Call(uintptr(control), uintptr(code))
	return int32(result) != 0
}

// ---- Commands

func edExecCommand(control HWND, code int32) bool {
	result, _, _ := procExecCommand.Call(uintptr(control), uintptr(code))
	return int32(result) != 0
}

func edCanExecCommand(control HWND, code int32) bool {
	result, _, _ := procCanExecCommand.Call(uintptr(control), uintptr(code))
	return int32(result) != 0
}

// ---- Break points and the execution point

func edSetBreakPoint(control HWND, line uint32) bool {
	result, _, _ := procSetBreakPoint.Call(uintptr(control), uintptr(line))
	return int32(result) != 0
}

func edRemoveBreakPoint(control HWND, line uint32) bool {
	result, _, _ := procRemoveBreakPoint.Call(uintptr(control), uintptr(line))
	return int32(result) != 0
}

func edRemoveAllBreakPoints(control HWND) {
	procRemoveAllBreakPoints.Call(uintptr(control))
}

func edGetBreakPointCount(control HWND) int32 {
	result, _, _ := procGetBreakPointCount.Call(uintptr(control))
	return int32(result)
}

func edGetBreakPointLine(control HWND, index uint32) int32 {
	result, _, _ := procGetBreakPointLine.Call(uintptr(control), uintptr(index))
	return int32(result)
}

func edSetExecPoint(control HWND, line uint32) bool {
	result, _, _ := procSetExecPoint.Call(uintptr(control), uintptr(line))
	return int32(result) != 0
}

func edClearExecPoint(control HWND) {
	procClearExecPoint.Call(uintptr(control))
}

// ---- Snapshots

func edTakeSnapshot(control HWND) {
	procTakeSnapshot.Call(uintptr(control))
}

func edGetSnapshotNewLine(control HWND, oldLine int32) int32 {
	result, _, _ := procGetSnapshotNewLine.Call(uintptr(control), uintptr(oldLine))
	return int32(result)
}

func edGetSnapshotOldLine(control HWND, line int32) int32 {
	result, _, _ := procGetSnapshotOldLine.Call(uintptr(control), uintptr(line))
	return int32(result)
}

// ---- Appearance

func edReloadTuneSettings(control HWND, block *edSettingsBlock) {
	procReloadTuneSettings.Call(uintptr(control), uintptr(unsafe.Pointer(block)))
}

func edCreateFontTuneDialog(parent HWND, rect *RECT, settings *edSettingsBlock, hook *edHighlightHook) HWND {
	result, _, _ := procCreateFontTuneDialog.Call(uintptr(parent), uintptr(unsafe.Pointer(rect)),
		uintptr(unsafe.Pointer(settings)), uintptr(unsafe.Pointer(hook)))
	return HWND(result)
}

func edCreateHighlightTuneDialog(parent HWND, rect *RECT, settings *edSettingsBlock, hook *edHighlightHook) HWND {
	result, _, _ := procCreateHighlightTuneDialog.Call(uintptr(parent), uintptr(unsafe.Pointer(rect)),
		uintptr(unsafe.Pointer(settings)), uintptr(unsafe.Pointer(hook)))
	return HWND(result)
}

func edApplyTuningChanges(block *edSettingsBlock) uint32 {
	result, _, _ := procApplyTuningChanges.Call(uintptr(unsafe.Pointer(block)))
	return uint32(result)
}

// ---- Printing

func edPreparePrinting(control HWND, setup *edPrintSetup) int32 {
	result, _, _ := procPreparePrinting.Call(uintptr(control), uintptr(unsafe.Pointer(setup)))
	return int32(result)
}

func edPrintPage(control HWND, params *edPrintPageParams) bool {
	result, _, _ := procPrintPage.Call(uintptr(control), uintptr(unsafe.Pointer(params)))
	return int32(result) != 0
}

func edPrintingOver(control HWND) bool {
	result, _, _ := procPrintingOver.Call(uintptr(control))
	return int32(result) != 0
}
