#pragma once

#include <windows.h>

#include <deque>
#include <string_view>

struct FailingFunction;

/// One function that a module has from another one. A call of it goes through a few bytes of code of ours, which ask
/// whether it must fail and else leave the call exactly as it came.
struct Import {
    void* target;                // where the call goes; first, since the code of ours reads it there
    const char* name;            ///< as the module's import table has it
    const FailingFunction* how;  ///< the way it fails; null: it never does
    int calls;                   ///< by this thread since the last Fault was armed
    void** slot;
    void* original;
};

/// The import table of a module that is loaded, every call in it watched as long as this lives. Nothing of the module is
/// built for it: it works for the library just as its users get it.
class Imports {
public:
    /// @param from  only what it has from this module; null: from all
    explicit Imports(HMODULE module, const char* from = nullptr);
    Imports(const Imports&) = delete;
    Imports& operator=(const Imports&) = delete;
    ~Imports();

    [[nodiscard]] std::deque<Import>& All() noexcept { return m_all; }
    /// @return null when the module has no such import
    [[nodiscard]] Import* Find(std::string_view name) noexcept;
    /// From now on the calls go to `stand-in`, which has the same signature; null: to the system again.
    void Redirect(std::string_view name, void* standIn);

private:
    void Watch(const char* name, void** slot, unsigned char* code);

    std::deque<Import> m_all;  // the code holds the address of each
    unsigned char* m_code = nullptr;
};
