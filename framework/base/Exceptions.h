#pragma once

#include "framework/base/WinTypes.h"

/// Each throws the exception of its name; where there is no memory for one, std::bad_alloc.
[[noreturn]] void ThrowMemoryException();
[[noreturn]] void ThrowInvalidArgException();
[[noreturn]] void ThrowResourceException();

/// The framework's exceptions. They are thrown by pointer and the one who swallows them calls `Delete`.
class CException {
public:
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;
    virtual ~CException() = default;

    /// Ends the exception's life; what was made by `new` goes, the one static exception stays.
    virtual void Delete() noexcept { delete this; }

    /// Writes the exception's text with its terminator, cut to `room` characters.
    /// @return false when there is no text or no room for any
    bool GetErrorMessage(WCHAR* text, std::int32_t room) const noexcept;

protected:
    explicit CException(WStrView message) noexcept : m_message(message) {}

private:
    WStrView m_message;  // always a literal: an exception must not need memory for its text
};

/// Memory or a system resource that stands for memory could not be had.
class CMemoryException final : public CException {
public:
    void Delete() noexcept override {}  // only the one of ThrowMemoryException exists, and it stays

private:
    friend void ThrowMemoryException();
    CMemoryException() noexcept : CException(_T("Out of memory.")) {}
};

/// An index or an argument outside what the callee allows.
class CInvalidArgException final : public CException {
public:
    CInvalidArgException() noexcept : CException(_T("Encountered an improper argument.")) {}
};

/// A system resource (device context, bitmap, dialog) could not be had.
class CResourceException final : public CException {
public:
    CResourceException() noexcept : CException(_T("A required resource was unavailable.")) {}
};
