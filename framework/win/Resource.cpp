#include "framework/win/Resource.h"

#include "framework/win/CWnd.h"

#include <utility>

namespace {

thread_local HINSTANCE resourceModule = nullptr;  // null: the host's program

}  // namespace

HINSTANCE ResourceModule() noexcept
{
    return resourceModule ? resourceModule : ::GetModuleHandleW(nullptr);
}

xTResource::xTResource() noexcept : m_previous(std::exchange(resourceModule, ThisModule())) {}

xTResource::~xTResource()
{
    resourceModule = m_previous;
}
