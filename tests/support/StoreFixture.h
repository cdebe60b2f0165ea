#pragma once

#include "store/MemStor.h"
#include "tests/support/RecordingWindow.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

/// A store with a recording window and tab settings of its own.
class xTStoreFixture : public testing::Test {
protected:
    void Load(WStrView text)
    {
        const WString copy(text);
        ASSERT_TRUE(store.load_text(copy.c_str(), static_cast<std::int32_t>(copy.size())));
        window.calls.clear();
    }

    [[nodiscard]] std::string Line(std::int32_t index) const { return Shown(store.lines[index].m_text); }

    /// All lines, joined by line feeds.
    [[nodiscard]] std::string Text() const
    {
        WString text;
        for (std::int32_t i = 0; i < store.line_count(); ++i)
            text.append(i > 0 ? 1 : 0, _T('\n')).append(store.lines[i].m_text.view());
        return Shown(text);
    }

    /// A line's comment marks: '#' for a character in a comment, '.' for any other.
    [[nodiscard]] std::string Marks(std::int32_t index) const
    {
        std::string marks;
        for (std::int32_t col = 0; col < store.line_length(index); ++col)
            marks += store.lines[index].IsCommentAt(col) ? '#' : '.';
        return marks;
    }

    xTRecordingWindow window;
    xTTabSettings tabs;
    xTMemStorage store{&window, &tabs};
};
