#include "tests/failure/Imports.h"

#include "tests/failure/FailingFunctions.h"
#include "tests/failure/Fault.h"

#include <algorithm>
#include <cstring>

// Each thunk puts the address of its Import into r11 and goes here. The registers that may hold arguments are kept, and
// a call that does not fail goes on to its target with the stack just as it came, so no signature needs to be known.
asm(R"(
    .text
    .globl AskWhetherItFails
AskWhetherItFails:
    pushq %rcx
    pushq %rdx
    pushq %r8
    pushq %r9
    pushq %r11
    subq $0x60, %rsp
    movups %xmm0, 0x20(%rsp)
    movups %xmm1, 0x30(%rsp)
    movups %xmm2, 0x40(%rsp)
    movups %xmm3, 0x50(%rsp)
    movq %r11, %rcx
    call MustFail
    movups 0x20(%rsp), %xmm0
    movups 0x30(%rsp), %xmm1
    movups 0x40(%rsp), %xmm2
    movups 0x50(%rsp), %xmm3
    addq $0x60, %rsp
    popq %r11
    popq %r9
    popq %r8
    popq %rdx
    popq %rcx
    testb %al, %al
    jne 1f
    jmpq *(%r11)
1:
    movq %r11, %r9
    jmp FailNow
)");

extern "C" void AskWhetherItFails();

namespace {

constexpr std::size_t thunkBytes = 32;

// mov r11, import; mov r10, AskWhetherItFails; jmp r10
void WriteThunk(unsigned char* code, const Import* import)
{
    const auto* ask = reinterpret_cast<const void*>(&AskWhetherItFails);
    constexpr unsigned char toR11[] = {0x49, 0xBB};
    constexpr unsigned char toR10[] = {0x49, 0xBA};
    constexpr unsigned char jump[] = {0x41, 0xFF, 0xE2};
    std::memcpy(code, toR11, 2);
    std::memcpy(code + 2, &import, 8);
    std::memcpy(code + 10, toR10, 2);
    std::memcpy(code + 12, &ask, 8);
    std::memcpy(code + 20, jump, 3);
}

void Write(void** slot, void* value)
{
    DWORD old = 0;
    ::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &old);
    *slot = value;
    ::VirtualProtect(slot, sizeof *slot, old, &old);
}

/// Calls `each(name, slot)` for every import by name, of one module or, where `wanted` is null, of all.
template <typename Each>
void ForEachImport(HMODULE module, const char* wanted, Each each)
{
    auto* base = reinterpret_cast<unsigned char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + place.VirtualAddress); from->Name; ++from) {
        if (wanted && ::lstrcmpiA(reinterpret_cast<const char*>(base + from->Name), wanted) != 0)
            continue;
        const auto* names = reinterpret_cast<const ULONGLONG*>(base + from->OriginalFirstThunk);
        auto** slots = reinterpret_cast<void**>(base + from->FirstThunk);
        for (; *names; ++names, ++slots)
            if (!(*names & IMAGE_ORDINAL_FLAG64))
                each(reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + *names)->Name, slots);
    }
}

}  // namespace

Imports::Imports(HMODULE module, const char* from)
{
    std::size_t count = 0;
    ForEachImport(module, from, [&](const char*, void**) { ++count; });
    m_code = static_cast<unsigned char*>(
        ::VirtualAlloc(nullptr, count * thunkBytes, MEM_RESERVE | MEM_COMMIT, PAGE_EXECUTE_READWRITE));
    unsigned char* code = m_code;
    ForEachImport(module, from, [&](const char* name, void** slot) {
        Watch(name, slot, code);
        code += thunkBytes;
    });
}

Imports::~Imports()
{
    for (const Import& import : m_all)
        Write(import.slot, import.original);
    ::VirtualFree(m_code, 0, MEM_RELEASE);
}

void Imports::Watch(const char* name, void** slot, unsigned char* code)
{
    Import& import = m_all.emplace_back(Import{*slot, name, FindFailingFunction(name), 0, slot, *slot});
    // What never fails and is not counted keeps its own address: some of it is called at every step.
    if (IsLeftAlone(name))
        return;
    WriteThunk(code, &import);
    Write(slot, code);
}

Import* Imports::Find(std::string_view name) noexcept
{
    const auto found = std::find_if(m_all.begin(), m_all.end(), [&](const Import& i) { return name == i.name; });
    return found == m_all.end() ? nullptr : &*found;
}

void Imports::Redirect(std::string_view name, void* standIn)
{
    Import* import = Find(name);
    if (!import)
        return;
    import->target = standIn ? standIn : import->original;
    if (IsLeftAlone(name))
        Write(import->slot, import->target);
}
