// Any bytes as what another program has put on the clipboard or drags over: no byte outside the block is read, and the
// text goes in, back and forth as it does in the model.

#include "framework/base/ForeignBlocks.h"
#include "tests/fuzz/Require.h"
#include "tests/support/model/Comparison.h"
#include "tests/support/native/PlatformNative.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>

namespace {

enum class xTSource { clipboardWide, clipboardBytes, dropWide, dropFiles };

/// The bytes in a block of just their size, so that the address sanitizer sees a look past them.
struct xTBlock {
    xTBlock(const std::uint8_t* from, std::size_t size) : data(new std::uint8_t[size]), size(size)
    {
        std::memcpy(data.get(), from, size);
    }
    std::unique_ptr<std::uint8_t[]> data;
    std::size_t size;
};

WString PlainWideText(const xTBlock& block)
{
    WString text;
    for (std::size_t i = 0; i + 1 < block.size; i += 2) {
        const auto unit = static_cast<WCHAR>(block.data[i] | block.data[i + 1] << 8);
        if (unit == 0)
            break;
        text += unit;
    }
    return text;
}

std::string PlainByteText(const xTBlock& block)
{
    std::string text;
    for (std::size_t i = 0; i < block.size && block.data[i] != 0; ++i)
        text += static_cast<char>(block.data[i]);
    return text;
}

/// Reads a list as the system does: it goes on to the empty name, wherever that is.
WString PathsOf(const xTBlock& block)
{
    xTFileListHead head;
    std::memcpy(&head, block.data.get(), sizeof head);
    const std::size_t width = head.wide ? sizeof(WCHAR) : 1;
    const std::uint8_t* at = block.data.get() + head.names;
    const auto next = [&] {
        unsigned unit = *at;
        if (head.wide)
            unit |= at[1] << 8;
        at += width;
        return static_cast<WCHAR>(unit);
    };
    WString text;
    for (WString name;; name.clear()) {
        while (const WCHAR unit = next())
            name += unit;
        if (name.empty())
            return text;
        text += text.empty() ? name : _T("\r\n") + name;
    }
}

/// The text of a block, held against the plain reading of it; none where the block holds none.
std::optional<WString> TextOf(xTSource source, const xTBlock& block)
{
    const WStrView wide = WideTextOfBlock(block.data.get(), block.size);
    const std::string_view bytes = ByteTextOfBlock(block.data.get(), block.size);
    Require(wide == PlainWideText(block) && bytes == PlainByteText(block));
    WString text;
    switch (source) {
    case xTSource::clipboardWide:
    case xTSource::dropWide: return WString(wide);
    case xTSource::clipboardBytes: return PlatformToWide(xTCodePage::ansi, bytes, text) ? std::optional(text) : std::nullopt;
    default: return IsWholeFileList(block.data.get(), block.size) ? std::optional(PathsOf(block)) : std::nullopt;
    }
}

xTCommand CommandOf(xTSource source, const WString& text)
{
    xTCommand command;
    command.text = text;
    if (source == xTSource::dropWide || source == xTSource::dropFiles) {
        command.verb = CommandRow("add_block");
        command.from = command.to = xTPos(0, 0);
    } else {
        command.verb = CommandRow("add_key");
        command.number = 0x1001;  // paste
    }
    return command;
}

void Same(const std::string& difference)
{
    if (!difference.empty())
        std::fprintf(stderr, "%s\n", difference.c_str());
    Require(difference.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2 || size > 2048)
        return 0;
    const auto source = static_cast<xTSource>(data[0] % 4);
    const std::optional<WString> text = TextOf(source, xTBlock(data + 2, size - 2));
    if (!text)
        return 0;
    ResetNativePlatform();
    xTSideBySide sides;
    xTCommand load{CommandRow("load_text")};
    load.text = _T("first /* line\nsecond */ line\n\nlast");
    Same(sides.Do(load));
    xTCommand caret{CommandRow("set_caret")};
    caret.from = xTPos(data[1] % 5, data[1] / 5 % 20);
    Same(sides.Do(caret));
    Same(sides.Do(CommandOf(source, *text)));
    for (std::int32_t i = 0; i < sides.engine.store.line_count(); ++i)
        Require(sides.engine.store.lines[i].m_text.view().find(_T('\r')) == WStrView::npos);
    Same(sides.GoBackAndForth());
    return 0;
}
