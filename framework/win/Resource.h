#pragma once

#include <windows.h>

/// The module in which the framework looks for dialog templates: the host's program, unless a guard says otherwise.
[[nodiscard]] HINSTANCE ResourceModule() noexcept;

/// While one lives, the resources of this thread are those of this library; then those of before again.
class xTResource {
public:
    xTResource() noexcept;
    xTResource(const xTResource&) = delete;
    xTResource& operator=(const xTResource&) = delete;
    ~xTResource();

private:
    HINSTANCE m_previous;
};
