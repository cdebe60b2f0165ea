#include "tests/failure/CrashNote.h"

#include <windows.h>

#include <csignal>
#include <cstdio>

namespace {

const char* noted = nullptr;

LONG WINAPI Crashed(EXCEPTION_POINTERS* crash)
{
    std::fprintf(stderr, "CRASH %08lx at %p: %s\n", crash->ExceptionRecord->ExceptionCode,
                 crash->ExceptionRecord->ExceptionAddress, noted ? noted : "between two points");
    std::fflush(stderr);
    return EXCEPTION_CONTINUE_SEARCH;
}

void Aborted(int)
{
    std::fprintf(stderr, "ABORTED: %s\n", noted ? noted : "between two points");
    std::fflush(stderr);
}

const bool watching = (::SetUnhandledExceptionFilter(&Crashed), std::signal(SIGABRT, &Aborted), true);

}  // namespace

CrashNote::CrashNote(const char* what) noexcept
{
    noted = watching ? what : nullptr;
}

CrashNote::~CrashNote()
{
    noted = nullptr;
}
