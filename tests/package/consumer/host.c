/* Makes a control in a window that nobody sees, gives it a text and reads it back. */
#include "scrivctl3.h"

#include <stdio.h>

int main(void)
{
    edCreateParams params;
    wchar_t line[16];
    UINT32 room = 16;
    HWND control;

    ZeroMemory(&params, sizeof params);
    params.parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, NULL, NULL, NULL, NULL);
    control = edCreateCtrl(&params);
    if (control == NULL || !edLoadText(control, L"one\ntwo\nthree", 1) || !edGetLine(control, 2, 0, line, &room))
        return 1;
    printf("%u lines, the last of %u letters\n", (unsigned)edGetLineCount(control), (unsigned)room - 1);
    edDestroyCtrl(control);
    return edGetHWND(control) == NULL ? 0 : 2;
}
