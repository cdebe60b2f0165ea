/* A host in C99: opens the file of its first argument, colours numbers and strings, saves with Ctrl+S. */
#include "scrivctl3.h"

static HWND editor;
static BOOL changed;

/* The editor asks for one line at a time; every character of it has to be overwritten by a class code. */
static void Colour(void* ctx, wchar_t* text, int insideComment)
{
    BOOL inString = FALSE;
    for (; *text; ++text) {
        const BOOL quote = *text == L'"', digit = *text >= L'0' && *text <= L'9';
        *text = inString || quote ? ED_CLASS_STRING : digit ? ED_CLASS_NUMBER : ED_CLASS_PLAIN;
        inString ^= quote;
    }
    (void)ctx, (void)insideComment;
}
static const edHighlightHook hook = {Colour, NULL};

static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        editor = edCreateCtrl(&(edCreateParams){window, .highlightHook = &hook, .defaultTheme = ED_THEME_CLASSIC});
        ShowWindow(editor, SW_SHOW); /* it is born hidden */
        break;
    case WM_SIZE: MoveWindow(editor, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE); break;
    case WM_SETFOCUS: SetFocus(editor); break;
    case ED_NOTIFY_CARET: changed |= wParam != 0; break;
    case WM_CLOSE:
        if (changed && MessageBoxW(window, L"Закрыть, не сохранив текст?", L"Редактор", MB_YESNO) != IDYES)
            return 0;
        break;
    case WM_DESTROY:
        edDestroyCtrl(editor);
        PostQuitMessage(0);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, PWSTR commandLine, int show)
{
    const PWSTR path = __argc > 1 ? __wargv[1] : NULL;
    UINT32 encoding = ED_ENCODING_DEFAULT;
    RegisterClassW(&(WNDCLASSW){.lpfnWndProc = Procedure, .hInstance = instance, .lpszClassName = L"HostInC"});
    const HWND window = CreateWindowExW(0, L"HostInC", path, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, 0, 640, 400,
                                        NULL, NULL, instance, NULL);
    if (!edLoadFile(editor, path, &encoding)) /* which has told the user why */
        return 1;
    ShowWindow(window, show);
    for (MSG message; GetMessageW(&message, NULL, 0, 0) > 0; DispatchMessageW(&message)) {
        TranslateMessage(&message);
        if (message.message == WM_KEYDOWN && message.wParam == 'S' && GetKeyState(VK_CONTROL) < 0) {
            if ((changed = !edSaveFile(editor, path, encoding)))
                MessageBoxW(window, L"Файл не удалось сохранить.", L"Редактор", MB_ICONERROR);
        }
    }
    (void)previous, (void)commandLine;
    return 0;
}
