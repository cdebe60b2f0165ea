/* A program as the Microsoft compiler and linker see it: no runtime, and of the control the .lib alone. Its header is
   not read here, since no system headers that go with that compiler stand beside it. */
__declspec(dllimport) unsigned edGetLineCount(void* control);

int start(void)
{
    return edGetLineCount(0) == 0 ? 23 : 1;
}
