/* The smallest host: shows the file of its first argument in an editor control that fills the window. */
#include "scrivctl3.h"

#include <shellapi.h>

static HWND editor;

static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    edCreateParams params = {0};
    switch (message) {
    case WM_CREATE:
        params.parent = window;
        params.defaultTheme = ED_THEME_TIBERITE;
        editor = edCreateCtrl(&params);
        ShowWindow(editor, SW_SHOW); /* a control is born hidden */
        return editor != NULL ? 0 : -1;
    case WM_SIZE:
        MoveWindow(editor, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    case WM_SETFOCUS:
        SetFocus(editor);
        return 0;
    case WM_DESTROY:
        edDestroyCtrl(editor);
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, PWSTR commandLine, int showCommand)
{
    WNDCLASSW windowClass = {0};
    HWND window;
    MSG message;
    int count = 0;
    LPWSTR* arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    (void)previous;
    (void)commandLine;

    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(NULL, (LPCWSTR)IDC_ARROW);
    windowClass.lpszClassName = L"ScrivMinimal";
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, L"ScrivMinimal", L"Scriv minimal", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                             800, 600, NULL, NULL, instance, NULL);
    if (window == NULL || (count > 1 && !edLoadFile(editor, arguments[1], NULL)))
        return 1;
    ShowWindow(window, showCommand);
    while (GetMessageW(&message, NULL, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
