// The class of the package's C++ header, found and used from outside.
#include "scrivctl3.hpp"

#include <cstdio>

int main()
{
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    scriv::Editor editor(window);
    editor.SetText(L"one\ntwo\nthree");
    std::printf("%u lines\n", static_cast<unsigned>(editor.LineCount()));
}
