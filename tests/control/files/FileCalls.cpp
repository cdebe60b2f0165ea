#include "tests/control/files/FileCalls.h"

#include <string_view>
#include <type_traits>

// The places where the DLL keeps the addresses of the functions that it imports are made to lead here.

namespace {

struct {
    FileCalls::Then then = FileCalls::Then::nothing;
    int at = 0;
    DWORD error = 0;
    int count = 0;
} plan;

/// Counts a call. @return true when this is where something happens
bool Reached() noexcept
{
    ++plan.count;
    if (plan.then == FileCalls::Then::nothing)
        return false;
    return plan.count == plan.at || (plan.then == FileCalls::Then::allFail && plan.count > plan.at);
}

void EndOrFail() noexcept
{
    if (plan.then == FileCalls::Then::processEnds)
        ::TerminateProcess(::GetCurrentProcess(), FileCalls::endedStatus);
    ::SetLastError(plan.error);
}

template <auto function, auto failure>
struct Hook;

template <typename Result, typename... Arguments, Result(WINAPI* function)(Arguments...), auto failure>
struct Hook<function, failure> {
    static Result WINAPI Call(Arguments... arguments)
    {
        if (!Reached())
            return function(arguments...);
        EndOrFail();
        if constexpr (std::is_pointer_v<Result>)
            return INVALID_HANDLE_VALUE;
        else
            return static_cast<Result>(failure);
    }
};

BOOL WINAPI WriteHalf(HANDLE file, const void* from, DWORD size, DWORD* put, OVERLAPPED* place)
{
    if (!Reached())
        return ::WriteFile(file, from, size, put, place);
    ::WriteFile(file, from, size / 2, put, place);
    EndOrFail();
    return FALSE;
}

// A handle that stays open is no failure that a program could meet: closing is counted, and may be where it ends.
BOOL WINAPI Close(HANDLE handle)
{
    const bool reached = Reached();
    if (reached && plan.then == FileCalls::Then::processEnds)
        EndOrFail();
    return ::CloseHandle(handle);
}

struct Row {
    std::string_view name;
    void* hook;
    ULONG_PTR* place = nullptr;
    ULONG_PTR before = 0;
};

template <auto function, auto failure = 0>
void* const hookOf = reinterpret_cast<void*>(&Hook<function, failure>::Call);

Row rows[] = {
    {"CloseHandle", reinterpret_cast<void*>(&Close)},
    {"CreateFileW", hookOf<&::CreateFileW>},
    {"DeleteFileW", hookOf<&::DeleteFileW>},
    {"FlushFileBuffers", hookOf<&::FlushFileBuffers>},
    {"GetFileAttributesW", hookOf<&::GetFileAttributesW, INVALID_FILE_ATTRIBUTES>},
    {"GetFileInformationByHandle", hookOf<&::GetFileInformationByHandle>},
    {"GetFileSizeEx", hookOf<&::GetFileSizeEx>},
    {"GetFileType", hookOf<&::GetFileType>},
    {"MoveFileExW", hookOf<&::MoveFileExW>},
    {"ReadFile", hookOf<&::ReadFile>},
    {"ReplaceFileW", hookOf<&::ReplaceFileW>},
    {"SetEndOfFile", hookOf<&::SetEndOfFile>},
    {"SetFileAttributesW", hookOf<&::SetFileAttributesW>},
    {"SetFilePointerEx", hookOf<&::SetFilePointerEx>},
    {"WriteFile", reinterpret_cast<void*>(&WriteHalf)},
};

template <typename Type>
const Type* InImage(const BYTE* image, ULONG_PTR place)
{
    return reinterpret_cast<const Type*>(image + place);
}

/// Calls `found` with the name and the place of each function that a module imports by name.
template <typename Found>
void ForEachImport(HMODULE module, Found found)
{
    const auto* image = reinterpret_cast<const BYTE*>(module);
    const auto* head = InImage<IMAGE_NT_HEADERS>(image, InImage<IMAGE_DOS_HEADER>(image, 0)->e_lfanew);
    const IMAGE_DATA_DIRECTORY& table = head->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* dll = InImage<IMAGE_IMPORT_DESCRIPTOR>(image, table.VirtualAddress); dll->Name; ++dll) {
        const auto* names = InImage<IMAGE_THUNK_DATA>(image, dll->OriginalFirstThunk);
        const auto* places = InImage<IMAGE_THUNK_DATA>(image, dll->FirstThunk);
        for (; names->u1.AddressOfData; ++names, ++places) {
            if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                found(InImage<IMAGE_IMPORT_BY_NAME>(image, names->u1.AddressOfData)->Name,
                      const_cast<ULONG_PTR*>(&places->u1.Function));
        }
    }
}

void Put(ULONG_PTR* place, ULONG_PTR value)
{
    DWORD before = 0;
    ::VirtualProtect(place, sizeof value, PAGE_READWRITE, &before);
    *place = value;
    ::VirtualProtect(place, sizeof value, before, &before);
}

}  // namespace

FileCalls::FileCalls(Then then, int at, DWORD error)
{
    plan = {then, at, error, 0};
    ForEachImport(::GetModuleHandleW(L"scrivctl3.dll"), [](const char* name, ULONG_PTR* place) {
        for (Row& row : rows) {
            if (row.name != name)
                continue;
            row.place = place;
            row.before = *place;
            Put(place, reinterpret_cast<ULONG_PTR>(row.hook));
        }
    });
}

FileCalls::~FileCalls()
{
    for (Row& row : rows) {
        if (row.place)
            Put(row.place, row.before);
        row.place = nullptr;
    }
}

int FileCalls::Count() noexcept
{
    return plan.count;
}
