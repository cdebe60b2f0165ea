r"""The editor control for Python: everything of scrivctl3.h, which says what each of these means, takes and answers.

    import scrivctl3
    ed = scrivctl3.load()                  # or load(r"C:\folder\scrivctl3.dll")
    editor = ed.edCreateCtrl(params)       # params: an edCreateParams; functions take records without byref

All of it is called on one thread, that of the window, by a 64-bit Python. A buffer for text is made by
ctypes.create_unicode_buffer. The edHighlightFn of a control has to be kept for as long as the control lives; an
exception in it is printed and goes no further.
"""

import ctypes
from ctypes import POINTER, Structure, c_int, c_int32, c_uint32, c_void_p, c_wchar_p
from ctypes.wintypes import HDC, HWND

# Bits of edCreateParams.flags.
ED_CREATE_READONLY = 1

# Colour themes, for edCreateParams.defaultTheme.
ED_THEME_DEFAULT = 0
ED_THEME_CLASSIC = 1
ED_THEME_TIBERITE = 2
ED_THEME_OCEAN = 3
ED_THEME_DUSK = 4
ED_THEME_MIRANA = 5

# Encodings of text files, for edLoadFile and edSaveFile.
ED_ENCODING_DEFAULT = 0
ED_ENCODING_ANSI = 1
ED_ENCODING_UTF8 = 2
ED_ENCODING_OEM = 3
ED_ENCODING_UTF16LE = 4
ED_ENCODING_UTF16BE = 5

# What edGetPosition is asked for.
ED_POSITION_CARET = 1
ED_POSITION_MOUSE = 2
ED_POSITION_SELECTION_FIRST = 3
ED_POSITION_SELECTION_LAST = 4
ED_POSITION_VIEWPORT = 5
ED_POSITION_CARET_TOP = 6
ED_POSITION_CARET_BOTTOM = 7

# What edGetMode is asked for.
ED_MODE_INSERT = 1
ED_MODE_SELECTION = 2
ED_MODE_READONLY = 3

# What edExecCommand does.
ED_COMMAND_UNDO = 1
ED_COMMAND_REDO = 2
ED_COMMAND_FIND = 3
ED_COMMAND_REPLACE = 4
ED_COMMAND_CUT = 5
ED_COMMAND_COPY = 6
ED_COMMAND_PASTE = 7
ED_COMMAND_SELECT_ALL = 8
ED_COMMAND_TOGGLE_OVERWRITE = 9
ED_COMMAND_FIND_NEXT = 10
ED_COMMAND_CLEAR_SELECTION = 11
ED_COMMAND_SELECT_TO_LINE_END = 12
ED_COMMAND_COPY_APPEND = 13

# Bits of the flags of edSetCaretPositionAdv.
ED_CARET_REDRAW = 1
ED_CARET_CENTRE = 2
ED_CARET_FOCUS = 4
ED_CARET_SELECT = 8
ED_CARET_KEEP_SELECTION = 16

# Class codes that a highlight callback writes.
ED_CLASS_PLAIN = 0
ED_CLASS_IDENTIFIER = 2
ED_CLASS_KEYWORD = 3
ED_CLASS_SYMBOL = 4
ED_CLASS_STRING = 5
ED_CLASS_NUMBER = 6
ED_CLASS_COMMENT = 7
ED_CLASS_STRING_SPECIAL = 8
ED_CLASS_STRING_KEYWORD = 9
ED_CLASS_USER1 = 100
ED_CLASS_USER2 = 101
ED_CLASS_USER3 = 102
ED_CLASS_USER4 = 103
ED_CLASS_USER5 = 104

# Messages from the control to its parent window.
ED_DRAG_ENTER_PARENT = 0x0464
ED_NOTIFY_CARET = 0x80DE
ED_NOTIFY_FIND = 0x80DF
ED_NOTIFY_SCROLL = 0x80E0

# Gets ctx, the line up to its zero as a pointer to c_uint16, and 1 when it begins inside a block comment; overwrites
# every character with an ED_CLASS_ code.
edHighlightFn = ctypes.CFUNCTYPE(None, c_void_p, POINTER(ctypes.c_uint16), c_int)


class RECT(Structure):
    _fields_ = [("left", c_int32), ("top", c_int32), ("right", c_int32), ("bottom", c_int32)]


class edHighlightHook(Structure):
    _fields_ = [("fn", edHighlightFn), ("ctx", c_void_p)]


class edSettingsBlock(Structure):
    _fields_ = [("data", c_void_p), ("size", c_uint32)]


class edCreateParams(Structure):
    _fields_ = [
        ("parent", HWND),
        ("rect", POINTER(RECT)),
        ("caption", c_wchar_p),
        ("flags", c_uint32),
        ("settings", POINTER(edSettingsBlock)),
        ("highlightHook", POINTER(edHighlightHook)),
        ("defaultTheme", c_uint32),
    ]


class edPoint(Structure):
    _fields_ = [("x", c_int32), ("y", c_int32)]


class edPrintSetup(Structure):
    _fields_ = [
        ("dc", HDC),
        ("firstPage", RECT),
        ("lastPage", RECT),
        ("onlyPage", RECT),
        ("middlePage", RECT),
        ("wholeText", c_uint32 * 2),
    ]


class edPrintPageParams(Structure):
    _fields_ = [("dc", HDC), ("page", c_uint32)]


# name: (result, arguments)
FUNCTIONS = {
    # Lifecycle
    "edCreateCtrl": (HWND, [POINTER(edCreateParams)]),
    "edDestroyCtrl": (None, [HWND]),
    "edGetHWND": (HWND, [HWND]),
    # Text in and out
    "edLoadFile": (c_int, [HWND, c_wchar_p, POINTER(c_uint32)]),
    "edSaveFile": (c_int, [HWND, c_wchar_p, c_uint32]),
    "edLoadText": (c_int, [HWND, c_wchar_p, c_uint32]),
    "edSaveText": (c_uint32, [HWND, c_void_p]),
    "edGetLineCount": (c_uint32, [HWND]),
    "edGetLine": (c_int, [HWND, c_uint32, c_int, c_void_p, POINTER(c_uint32)]),
    "edInsertText": (c_int, [HWND, c_wchar_p]),
    "edCopyData": (c_int, [HWND, HWND]),
    # Positions and modes
    "edSetCaretPosition": (None, [HWND, c_int, c_int]),
    "edSetCaretPositionAdv": (None, [HWND, c_int, c_int, c_uint32]),
    "edSetScrollPosition": (None, [HWND, c_int, c_int]),
    "edGetPosition": (c_int, [HWND, c_int, POINTER(edPoint)]),
    "edGetMode": (c_int, [HWND, c_uint32]),
    # Commands
    "edExecCommand": (c_int, [HWND, c_int]),
    "edCanExecCommand": (c_int, [HWND, c_int]),
    # Break points and the execution point
    "edSetBreakPoint": (c_int, [HWND, c_uint32]),
    "edRemoveBreakPoint": (c_int, [HWND, c_uint32]),
    "edRemoveAllBreakPoints": (None, [HWND]),
    "edGetBreakPointCount": (c_int, [HWND]),
    "edGetBreakPointLine": (c_int, [HWND, c_uint32]),
    "edSetExecPoint": (c_int, [HWND, c_uint32]),
    "edClearExecPoint": (None, [HWND]),
    # Snapshots
    "edTakeSnapshot": (None, [HWND]),
    "edGetSnapshotNewLine": (c_int, [HWND, c_int]),
    "edGetSnapshotOldLine": (c_int, [HWND, c_int]),
    # Appearance
    "edReloadTuneSettings": (None, [HWND, POINTER(edSettingsBlock)]),
    "edCreateFontTuneDialog": (HWND, [HWND, POINTER(RECT), POINTER(edSettingsBlock), POINTER(edHighlightHook)]),
    "edCreateHighlightTuneDialog": (HWND, [HWND, POINTER(RECT), POINTER(edSettingsBlock), POINTER(edHighlightHook)]),
    "edApplyTuningChanges": (c_uint32, [POINTER(edSettingsBlock)]),
    # Printing
    "edPreparePrinting": (c_int, [HWND, POINTER(edPrintSetup)]),
    "edPrintPage": (c_int, [HWND, POINTER(edPrintPageParams)]),
    "edPrintingOver": (c_int, [HWND]),
}


def load(path="scrivctl3.dll"):
    """Loads the DLL, its functions declared. Raises OSError without the DLL, AttributeError when it lacks a function."""
    library = ctypes.CDLL(path)
    for name, (result, arguments) in FUNCTIONS.items():
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library
