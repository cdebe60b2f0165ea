{ The editor control for Delphi XE2 and later, 64-bit, and Free Pascal: everything of scrivctl3.h, which says what each
  of these means, takes and answers. All of it is called on one thread, that of the window. No exception may leave a
  TEdHighlightFn. }
unit Scrivctl3;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$ALIGN 8}

interface

uses
  {$IFDEF MSWINDOWS}Windows{$ELSE}Types{$ENDIF};

const
  ScrivLibrary = 'scrivctl3.dll';

  // Bits of edCreateParams.flags.
  ED_CREATE_READONLY = 1;

  // Colour themes, for edCreateParams.defaultTheme.
  ED_THEME_DEFAULT = 0;
  ED_THEME_CLASSIC = 1;
  ED_THEME_TIBERITE = 2;
  ED_THEME_OCEAN = 3;
  ED_THEME_DUSK = 4;
  ED_THEME_MIRANA = 5;

  // Encodings of text files, for edLoadFile and edSaveFile.
  ED_ENCODING_DEFAULT = 0;
  ED_ENCODING_ANSI = 1;
  ED_ENCODING_UTF8 = 2;
  ED_ENCODING_OEM = 3;
  ED_ENCODING_UTF16LE = 4;
  ED_ENCODING_UTF16BE = 5;

  // What edGetPosition is asked for.
  ED_POSITION_CARET = 1;
  ED_POSITION_MOUSE = 2;
  ED_POSITION_SELECTION_FIRST = 3;
  ED_POSITION_SELECTION_LAST = 4;
  ED_POSITION_VIEWPORT = 5;
  ED_POSITION_CARET_TOP = 6;
  ED_POSITION_CARET_BOTTOM = 7;

  // What edGetMode is asked for.
  ED_MODE_INSERT = 1;
  ED_MODE_SELECTION = 2;
  ED_MODE_READONLY = 3;

  // What edExecCommand does.
  ED_COMMAND_UNDO = 1;
  ED_COMMAND_REDO = 2;
  ED_COMMAND_FIND = 3;
  ED_COMMAND_REPLACE = 4;
  ED_COMMAND_CUT = 5;
  ED_COMMAND_COPY = 6;
  ED_COMMAND_PASTE = 7;
  ED_COMMAND_SELECT_ALL = 8;
  ED_COMMAND_TOGGLE_OVERWRITE = 9;
  ED_COMMAND_FIND_NEXT = 10;
  ED_COMMAND_CLEAR_SELECTION = 11;
  ED_COMMAND_SELECT_TO_LINE_END = 12;
  ED_COMMAND_COPY_APPEND = 13;

  // Bits of the flags of edSetCaretPositionAdv.
  ED_CARET_REDRAW = 1;
  ED_CARET_CENTRE = 2;
  ED_CARET_FOCUS = 4;
  ED_CARET_SELECT = 8;
  ED_CARET_KEEP_SELECTION = 16;

  // Class codes that a highlight callback writes.
  ED_CLASS_PLAIN = 0;
  ED_CLASS_IDENTIFIER = 2;
  ED_CLASS_KEYWORD = 3;
  ED_CLASS_SYMBOL = 4;
  ED_CLASS_STRING = 5;
  ED_CLASS_NUMBER = 6;
  ED_CLASS_COMMENT = 7;
  ED_CLASS_STRING_SPECIAL = 8;
  ED_CLASS_STRING_KEYWORD = 9;
  ED_CLASS_USER1 = 100;
  ED_CLASS_USER2 = 101;
  ED_CLASS_USER3 = 102;
  ED_CLASS_USER4 = 103;
  ED_CLASS_USER5 = 104;

  // Messages from the control to its parent window.
  ED_DRAG_ENTER_PARENT = $0464;
  ED_NOTIFY_CARET = $80DE;
  ED_NOTIFY_FIND = $80DF;
  ED_NOTIFY_SCROLL = $80E0;

type
  {$IFNDEF MSWINDOWS} // for the compilers of other systems, which check this unit without running it
  HWND = type NativeUInt;
  HDC = type NativeUInt;
  BOOL = LongBool;
  {$ENDIF}

  { Gets Ctx, the line up to its zero, and 1 when it begins inside a block comment; overwrites every character with an
    ED_CLASS_ code. }
  TEdHighlightFn = procedure(Ctx: Pointer; Text: PWideChar; InsideComment: Integer); stdcall;

  PEdHighlightHook = ^TEdHighlightHook;
  TEdHighlightHook = record
    Fn: TEdHighlightFn;
    Ctx: Pointer;
  end;

  PEdSettingsBlock = ^TEdSettingsBlock;
  TEdSettingsBlock = record
    Data: Pointer;
    Size: Cardinal;
  end;

  PEdCreateParams = ^TEdCreateParams;
  TEdCreateParams = record
    Parent: HWND;
    Rect: PRect;
    Caption: PWideChar;
    Flags: Cardinal;
    Settings: PEdSettingsBlock;
    HighlightHook: PEdHighlightHook;
    DefaultTheme: Cardinal;
  end;

  PEdPoint = ^TEdPoint;
  TEdPoint = record
    X: Integer;
    Y: Integer;
  end;

  PEdPrintSetup = ^TEdPrintSetup;
  TEdPrintSetup = record
    DC: HDC;
    FirstPage: TRect;
    LastPage: TRect;
    OnlyPage: TRect;
    MiddlePage: TRect;
    WholeText: array[0..1] of Cardinal;
  end;

  PEdPrintPageParams = ^TEdPrintPageParams;
  TEdPrintPageParams = record
    DC: HDC;
    Page: Cardinal;
  end;

{$IF SizeOf(TEdHighlightHook) <> 16}{$MESSAGE FATAL 'TEdHighlightHook'}{$IFEND}
{$IF SizeOf(TEdSettingsBlock) <> 16}{$MESSAGE FATAL 'TEdSettingsBlock'}{$IFEND}
{$IF SizeOf(TEdCreateParams) <> 56}{$MESSAGE FATAL 'TEdCreateParams'}{$IFEND}
{$IF SizeOf(TEdPoint) <> 8}{$MESSAGE FATAL 'TEdPoint'}{$IFEND}
{$IF SizeOf(TEdPrintSetup) <> 80}{$MESSAGE FATAL 'TEdPrintSetup'}{$IFEND}
{$IF SizeOf(TEdPrintPageParams) <> 16}{$MESSAGE FATAL 'TEdPrintPageParams'}{$IFEND}

// Lifecycle
function edCreateCtrl(Params: PEdCreateParams): HWND; stdcall; external ScrivLibrary;
procedure edDestroyCtrl(Control: HWND); stdcall; external ScrivLibrary;
function edGetHWND(Control: HWND): HWND; stdcall; external ScrivLibrary;

// Text in and out
function edLoadFile(Control: HWND; Path: PWideChar; Encoding: PCardinal): BOOL; stdcall; external ScrivLibrary;
function edSaveFile(Control: HWND; Path: PWideChar; Encoding: Cardinal): BOOL; stdcall; external ScrivLibrary;
function edLoadText(Control: HWND; Text: PWideChar; MaxChars: Cardinal): BOOL; stdcall; external ScrivLibrary;
function edSaveText(Control: HWND; Buffer: PWideChar): Cardinal; stdcall; external ScrivLibrary;
function edGetLineCount(Control: HWND): Cardinal; stdcall; external ScrivLibrary;
function edGetLine(Control: HWND; Line: Cardinal; FromSelection: Integer; Buffer: PWideChar;
  Length: PCardinal): BOOL; stdcall; external ScrivLibrary;
function edInsertText(Control: HWND; Text: PWideChar): BOOL; stdcall; external ScrivLibrary;
function edCopyData(Source: HWND; Destination: HWND): BOOL; stdcall; external ScrivLibrary;

// Positions and modes
procedure edSetCaretPosition(Control: HWND; Line: Integer; Col: Integer); stdcall; external ScrivLibrary;
procedure edSetCaretPositionAdv(Control: HWND; Line: Integer; Col: Integer; Flags: Cardinal);
  stdcall; external ScrivLibrary;
procedure edSetScrollPosition(Control: HWND; Line: Integer; Col: Integer); stdcall; external ScrivLibrary;
function edGetPosition(Control: HWND; Code: Integer; Place: PEdPoint): BOOL; stdcall; external ScrivLibrary;
function edGetMode(Control: HWND; Code: Cardinal): BOOL; stdcall; external ScrivLibrary;

// Commands
function edExecCommand(Control: HWND; Code: Integer): BOOL; stdcall; external ScrivLibrary;
function edCanExecCommand(Control: HWND; Code: Integer): BOOL; stdcall; external ScrivLibrary;

// Break points and the execution point
function edSetBreakPoint(Control: HWND; Line: Cardinal): BOOL; stdcall; external ScrivLibrary;
function edRemoveBreakPoint(Control: HWND; Line: Cardinal): BOOL; stdcall; external ScrivLibrary;
procedure edRemoveAllBreakPoints(Control: HWND); stdcall; external ScrivLibrary;
function edGetBreakPointCount(Control: HWND): Integer; stdcall; external ScrivLibrary;
function edGetBreakPointLine(Control: HWND; Index: Cardinal): Integer; stdcall; external ScrivLibrary;
function edSetExecPoint(Control: HWND; Line: Cardinal): BOOL; stdcall; external ScrivLibrary;
procedure edClearExecPoint(Control: HWND); stdcall; external ScrivLibrary;

// Snapshots
procedure edTakeSnapshot(Control: HWND); stdcall; external ScrivLibrary;
function edGetSnapshotNewLine(Control: HWND; OldLine: Integer): Integer; stdcall; external ScrivLibrary;
function edGetSnapshotOldLine(Control: HWND; Line: Integer): Integer; stdcall; external ScrivLibrary;

// Appearance
procedure edReloadTuneSettings(Control: HWND; Block: PEdSettingsBlock); stdcall; external ScrivLibrary;
function edCreateFontTuneDialog(Parent: HWND; Rect: PRect; Settings: PEdSettingsBlock;
  Hook: PEdHighlightHook): HWND; stdcall; external ScrivLibrary;
function edCreateHighlightTuneDialog(Parent: HWND; Rect: PRect; Settings: PEdSettingsBlock;
  Hook: PEdHighlightHook): HWND; stdcall; external ScrivLibrary;
function edApplyTuningChanges(Block: PEdSettingsBlock): Cardinal; stdcall; external ScrivLibrary;

// Printing
function edPreparePrinting(Control: HWND; Setup: PEdPrintSetup): Integer; stdcall; external ScrivLibrary;
function edPrintPage(Control: HWND; Params: PEdPrintPageParams): BOOL; stdcall; external ScrivLibrary;
function edPrintingOver(Control: HWND): BOOL; stdcall; external ScrivLibrary;

implementation

end.
