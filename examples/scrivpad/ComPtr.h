#pragma once

#include "Failure.h"

#include <objbase.h>

#include <memory>

namespace scrivpad {

struct ReleaseInterface {
    template <class Interface>
    void operator()(Interface* p) const noexcept
    {
        p->Release();
    }
};

/// Owns one reference to a COM object.
template <class Interface>
using ComPtr = std::unique_ptr<Interface, ReleaseInterface>;

/// Calls `get(&raw)` and takes over what it put there; throws a Failure with `what` when it fails.
template <class Interface, class Get>
[[nodiscard]] ComPtr<Interface> TakeCom(const wchar_t* what, Get get)
{
    Interface* raw = nullptr;
    const HRESULT result = get(&raw);
    if (FAILED(result))
        throw SystemFailure(what, static_cast<unsigned long>(result));
    return ComPtr<Interface>(raw);
}

/// Throws a Failure with `what` unless the call succeeded.
inline void RequireCom(const wchar_t* what, HRESULT result)
{
    if (FAILED(result))
        throw SystemFailure(what, static_cast<unsigned long>(result));
}

}  // namespace scrivpad
