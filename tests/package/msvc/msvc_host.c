/* A program as the Microsoft compiler and linker see it: no runtime, and of the control header and .lib alone. */
#include "scrivctl3.h"

int start(void)
{
    edCreateParams params = {0};
    UINT32 room = 0;
    if (sizeof params != 56 || edCreateCtrl(NULL) != NULL)
        return 1;
    return edGetLineCount(NULL) == 0 && edGetLine(NULL, 0, 0, NULL, &room) == 0 ? 23 : 2;
}
