// The editor control for C#: everything of scrivctl3.h, which says what each of these means, takes and answers.
//
// All of it is called on one thread, that of the window. The process is a 64-bit one. The delegate that
// edHighlightHook.fn is made of (Marshal.GetFunctionPointerForDelegate) has to be kept in a field for as long as the
// control lives, and no exception may leave it.
using System;
using System.Runtime.InteropServices;

public static class Scrivctl3
{
    private const string Library = "scrivctl3.dll";

    // Bits of edCreateParams.flags.
    public const uint ED_CREATE_READONLY = 1;

    // Colour themes, for edCreateParams.defaultTheme.
    public const uint ED_THEME_DEFAULT = 0;
    public const uint ED_THEME_CLASSIC = 1;
    public const uint ED_THEME_TIBERITE = 2;
    public const uint ED_THEME_OCEAN = 3;
    public const uint ED_THEME_DUSK = 4;
    public const uint ED_THEME_MIRANA = 5;

    // Encodings of text files, for edLoadFile and edSaveFile.
    public const uint ED_ENCODING_DEFAULT = 0;
    public const uint ED_ENCODING_ANSI = 1;
    public const uint ED_ENCODING_UTF8 = 2;
    public const uint ED_ENCODING_OEM = 3;
    public const uint ED_ENCODING_UTF16LE = 4;
    public const uint ED_ENCODING_UTF16BE = 5;

    // What edGetPosition is asked for.
    public const int ED_POSITION_CARET = 1;
    public const int ED_POSITION_MOUSE = 2;
    public const int ED_POSITION_SELECTION_FIRST = 3;
    public const int ED_POSITION_SELECTION_LAST = 4;
    public const int ED_POSITION_VIEWPORT = 5;
    public const int ED_POSITION_CARET_TOP = 6;
    public const int ED_POSITION_CARET_BOTTOM = 7;

    // What edGetMode is asked for.
    public const uint ED_MODE_INSERT = 1;
    public const uint ED_MODE_SELECTION = 2;
    public const uint ED_MODE_READONLY = 3;

    // What edExecCommand does.
    public const int ED_COMMAND_UNDO = 1;
    public const int ED_COMMAND_REDO = 2;
    public const int ED_COMMAND_FIND = 3;
    public const int ED_COMMAND_REPLACE = 4;
    public const int ED_COMMAND_CUT = 5;
    public const int ED_COMMAND_COPY = 6;
    public const int ED_COMMAND_PASTE = 7;
    public const int ED_COMMAND_SELECT_ALL = 8;
    public const int ED_COMMAND_TOGGLE_OVERWRITE = 9;
    public const int ED_COMMAND_FIND_NEXT = 10;
    public const int ED_COMMAND_CLEAR_SELECTION = 11;
    public const int ED_COMMAND_SELECT_TO_LINE_END = 12;
    public const int ED_COMMAND_COPY_APPEND = 13;

    // Bits of the flags of edSetCaretPositionAdv.
    public const uint ED_CARET_REDRAW = 1;
    public const uint ED_CARET_CENTRE = 2;
    public const uint ED_CARET_FOCUS = 4;
    public const uint ED_CARET_SELECT = 8;
    public const uint ED_CARET_KEEP_SELECTION = 16;

    // Class codes that a highlight callback writes.
    public const uint ED_CLASS_PLAIN = 0;
    public const uint ED_CLASS_IDENTIFIER = 2;
    public const uint ED_CLASS_KEYWORD = 3;
    public const uint ED_CLASS_SYMBOL = 4;
    public const uint ED_CLASS_STRING = 5;
    public const uint ED_CLASS_NUMBER = 6;
    public const uint ED_CLASS_COMMENT = 7;
    public const uint ED_CLASS_STRING_SPECIAL = 8;
    public const uint ED_CLASS_STRING_KEYWORD = 9;
    public const uint ED_CLASS_USER1 = 100;
    public const uint ED_CLASS_USER2 = 101;
    public const uint ED_CLASS_USER3 = 102;
    public const uint ED_CLASS_USER4 = 103;
    public const uint ED_CLASS_USER5 = 104;

    // Messages from the control to its parent window.
    public const uint ED_DRAG_ENTER_PARENT = 0x0464;
    public const uint ED_NOTIFY_CARET = 0x80DE;
    public const uint ED_NOTIFY_FIND = 0x80DF;
    public const uint ED_NOTIFY_SCROLL = 0x80E0;

    [StructLayout(LayoutKind.Sequential)]
    public struct RECT
    {
        public int left;
        public int top;
        public int right;
        public int bottom;
    }

    /// <summary>Gets ctx, the line up to its zero, and 1 when it begins inside a block comment; overwrites every
    /// character with an ED_CLASS_ code.</summary>
    public unsafe delegate void edHighlightFn(IntPtr ctx, char* text, int insideComment);

    [StructLayout(LayoutKind.Sequential)]
    public struct edHighlightHook
    {
        public IntPtr fn;
        public IntPtr ctx;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct edSettingsBlock
    {
        public IntPtr data;
        public uint size;
    }

    /// <summary>Pointers are IntPtr.Zero for none.</summary>
    [StructLayout(LayoutKind.Sequential, CharSet = CharSet.Unicode)]
    public struct edCreateParams
    {
        public IntPtr parent;
        public IntPtr rect;
        public string caption;
        public uint flags;
        public IntPtr settings;
        public IntPtr highlightHook;
        public uint defaultTheme;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct edPoint
    {
        public int x;
        public int y;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct edPrintSetup
    {
        public IntPtr dc;
        public RECT firstPage;
        public RECT lastPage;
        public RECT onlyPage;
        public RECT middlePage;
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
        public uint[] wholeText;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct edPrintPageParams
    {
        public IntPtr dc;
        public uint page;
    }

    // ---- Lifecycle

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern IntPtr edCreateCtrl(ref edCreateParams @params);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edDestroyCtrl(IntPtr control);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern IntPtr edGetHWND(IntPtr control);

    // ---- Text in and out

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edLoadFile(IntPtr control, string path, ref uint encoding);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edSaveFile(IntPtr control, string path, uint encoding);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edLoadText(IntPtr control, string text, uint maxChars);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern uint edSaveText(IntPtr control, [Out] char[] buffer);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern uint edGetLineCount(IntPtr control);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edGetLine(IntPtr control, uint line, int fromSelection, [Out] char[] buffer,
                                        ref uint length);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edInsertText(IntPtr control, string text);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edCopyData(IntPtr source, IntPtr destination);

    // ---- Positions and modes

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edSetCaretPosition(IntPtr control, int line, int col);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edSetCaretPositionAdv(IntPtr control, int line, int col, uint flags);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edSetScrollPosition(IntPtr control, int line, int col);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edGetPosition(IntPtr control, int code, out edPoint @out);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edGetMode(IntPtr control, uint code);

    // ---- Commands

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edExecCommand(IntPtr control, int code);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edCanExecCommand(IntPtr control, int code);

    // ---- Break points and the execution point

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edSetBreakPoint(IntPtr control, uint line);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edRemoveBreakPoint(IntPtr control, uint line);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edRemoveAllBreakPoints(IntPtr control);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int edGetBreakPointCount(IntPtr control);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int edGetBreakPointLine(IntPtr control, uint index);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edSetExecPoint(IntPtr control, uint line);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edClearExecPoint(IntPtr control);

    // ---- Snapshots

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edTakeSnapshot(IntPtr control);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int edGetSnapshotNewLine(IntPtr control, int oldLine);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int edGetSnapshotOldLine(IntPtr control, int line);

    // ---- Appearance

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern void edReloadTuneSettings(IntPtr control, ref edSettingsBlock block);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern IntPtr edCreateFontTuneDialog(IntPtr parent, IntPtr rect, ref edSettingsBlock settings,
                                                       ref edHighlightHook hook);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern IntPtr edCreateHighlightTuneDialog(IntPtr parent, IntPtr rect, ref edSettingsBlock settings,
                                                            ref edHighlightHook hook);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern uint edApplyTuningChanges(ref edSettingsBlock block);

    // ---- Printing

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int edPreparePrinting(IntPtr control, ref edPrintSetup setup);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edPrintPage(IntPtr control, ref edPrintPageParams @params);

    [DllImport(Library, CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern bool edPrintingOver(IntPtr control);
}
