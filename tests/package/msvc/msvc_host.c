/* A program as the Microsoft compiler and linker see it: no runtime, and of the control header and .lib alone. */
#include "scrivctl3.h"

int start(void)
{
    static edCreateParams params; /* filled with zeros by the linker: there is no memset to do it */
    UINT32 room = 0;
    if (sizeof params != 56 || edCreateCtrl(NULL) != NULL || edCreateCtrl(&params) != NULL)
        return 1;
    return edGetLineCount(NULL) == 0 && edGetLine(NULL, 0, 0, NULL, &room) == 0 ? 23 : 2;
}
