#pragma once

#include "framework/base/WinTypes.h"

#include <algorithm>
#include <memory>

// A text in a block of exactly its size at a given offset from an even address, so that a read outside is found.
class xTExactText {
public:
    xTExactText(const WString& text, std::size_t offset)
        : m_block(std::make_unique<WCHAR[]>(text.size() + 1 + offset)), m_text(m_block.get() + offset)
    {
        std::copy(text.begin(), text.end(), m_text);
    }
    [[nodiscard]] const WCHAR* c_str() const { return m_text; }

private:
    std::unique_ptr<WCHAR[]> m_block;
    WCHAR* m_text;
};
