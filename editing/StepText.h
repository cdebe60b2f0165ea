#pragma once

#include "framework/base/CString.h"
#include "store/Positions.h"

#include <cstdint>
#include <memory>
#include <utility>

class xTHeldText;
class xTMemStorage;

/// A text that a step has brought into a store or taken out of it. It is kept as a string or, where putting them back
/// gives what inserting the string would, as the lines that it was: then none of its characters is copied. Lines once
/// held never change, so copies share them.
class xTStepText {
public:
    xTStepText() = default;
    xTStepText(CString text) noexcept : m_string(std::move(text)) {}  // NOLINT(google-explicit-constructor): it is one

    [[nodiscard]] CString Spelt() const;
    /// The text as a string, which it is from now on.
    [[nodiscard]] CString& String();
    /// @return 0 for an empty text
    [[nodiscard]] WCHAR FirstCharacter() { return String().IsEmpty() ? WCHAR{0} : m_string[0]; }
    [[nodiscard]] bool IsEmpty() const noexcept { return !m_lines && m_string.IsEmpty(); }
    [[nodiscard]] bool IsHeld() const noexcept { return m_lines != nullptr; }
    /// How many characters a step handles by its count: those of a whole text are counted only when they are asked for.
    [[nodiscard]] std::int32_t Counted(std::int32_t count) const;

    /// Reads a range that stays where it is, both ends inclusive; `to` is clipped to the end of the text in place.
    /// @param count out: the length; 0 after a failure
    /// @return false when there was no memory for it
    bool Read(xTMemStorage& store, const xTPos& from, xTPos& to, std::int32_t& count);
    /// Shares the lines of another text where both spell the same.
    void ShareWith(const xTStepText& other);

    /// Inserts `count` characters of it, as `insert_text` of the store does.
    void Insert(xTMemStorage& store, const xTPos& pos, std::int32_t& count, bool rejoin = false);
    /// Deletes `count` characters, as `delete_text` of the store does. Where they are this text it is held as the lines
    /// that went, from then on.
    /// @param count out: how many inserting it puts there again, if none had come in the last time
    /// @return false when it failed before anything was changed
    bool Delete(xTMemStorage& store, const xTPos& pos, std::int32_t& count, bool* split = nullptr);
    /// Does what the Delete key does, as `delete_at_caret` of the store; what went is this text.
    void DeleteAtCaret(xTMemStorage& store, xTPos& pos, std::int32_t& count, bool& split);

private:
    std::shared_ptr<xTHeldText> m_lines;
    CString m_string;  // behind held lines: the zero that ends the text of a Delete key, or nothing
};
