#include "framework/base/Exceptions.h"

#include <algorithm>

bool CException::GetErrorMessage(WCHAR* text, std::int32_t room) const noexcept
{
    if (!text || room < 1)
        return false;
    const auto count = std::min(m_message.size(), static_cast<std::size_t>(room) - 1);
    std::copy_n(m_message.data(), count, text);
    text[count] = 0;
    return count != 0;
}

void ThrowMemoryException()
{
    static CMemoryException exception;  // making one when memory is short must not ask for memory
    throw &exception;
}

void ThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

void ThrowResourceException()
{
    throw new CResourceException;
}
