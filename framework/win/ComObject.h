#pragma once

#include <unknwn.h>

#include <atomic>
#include <memory>

struct xTComRelease {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};

/// One reference to a COM object.
template <typename Interface>
using xTComPtr = std::unique_ptr<Interface, xTComRelease>;

/// A further reference to `object`, which may be null.
template <typename Interface>
[[nodiscard]] xTComPtr<Interface> Shared(Interface* object) noexcept
{
    if (object)
        object->AddRef();
    return xTComPtr<Interface>(object);
}

/// A COM object with one interface besides IUnknown. It is born with one reference and ends with the last one, wherever
/// that is given back: another program may hold on to it longer than its maker lives.
template <typename Interface>
class xTComObject : public Interface {
public:
    xTComObject() = default;
    xTComObject(const xTComObject&) = delete;
    xTComObject& operator=(const xTComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override
    {
        if (!out)
            return E_POINTER;
        const bool known = ::IsEqualIID(id, __uuidof(IUnknown)) || ::IsEqualIID(id, __uuidof(Interface));
        *out = known ? static_cast<Interface*>(this) : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~xTComObject() = default;

private:
    std::atomic<ULONG> m_references{1};
};
