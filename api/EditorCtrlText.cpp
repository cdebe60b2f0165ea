#include "api/EditorCtrl.h"

#include "appearance/Printing.h"
#include "editing/ClipboardText.h"
#include "include/scrivctl3.h"
#include "store/LineJoin.h"
#include "zsl/text_file_stream.h"

#include <algorithm>
#include <cwchar>

bool CEditorCtrl::LoadFile(const WCHAR* path, std::uint32_t* encoding)
{
    if (!path || !m_hWnd)
        return false;
    const zsl::text_encoding wanted = encoding ? zsl::encoding_of_code(*encoding) : zsl::text_encoding();
    zsl::text_file_stream stream(path, zsl::file_stream_mode::read, wanted);
    if (!stream.is_open()) {
        stream.close();
        ShowMessageBox(m_hWnd, L"Невозможно открыть указанный файл");
        return false;
    }
    const zsl::text_encoding found = stream.get_encoding();
    if (encoding)
        *encoding = zsl::code_of_encoding(found);
    // An empty file leaves the old text in the control: required behaviour.
    if (m_store && stream.has_text()) {
        m_fileEncoding = found;
        m_store->load_text(stream);
        stream.close();
        ShowLoadedText();
    }
    return true;
}

bool CEditorCtrl::SaveFile(const WCHAR* path, std::uint32_t encoding)
{
    if (!m_store)
        return false;
    // What the file had besides its characters goes back into it, as long as its character set stays.
    return m_store->save_file(path, zsl::encoding_of_code(encoding).as_before(m_fileEncoding));
}

bool CEditorCtrl::LoadTextInto(const WCHAR* text, std::uint32_t maxChars)
{
    if (!m_store)
        return false;
    m_fileEncoding = {};  // a text from elsewhere than a file has no marks or line ends of one
    // The lesser of `maxChars` and the text's length is tested for zero and for nothing else, so the first character
    // tells as much as the length.
    const bool hasText = text && *text && maxChars != 0;
    m_store->load_text(text, hasText ? 1 : 0);
    ShowLoadedText();
    return true;
}

void CEditorCtrl::ShowLoadedText()
{
    UpdateScrollBars(3);
    if (m_store && m_store->has_selection()) {
        m_store->selection.first = m_store->selection.last = xTPos::none;
        Invalidate();
    }
    if (m_operations) {
        m_operations->clear_undo();
        m_operations->clear_redo();
    }
    Invalidate();
    UpdateNow();
}

std::uint32_t CEditorCtrl::SaveText(WCHAR* buffer) const
{
    if (!m_store)
        return 0;
    const std::int32_t count = m_store->line_count();
    const std::int64_t joined = buffer ? JoinLines(m_store->lines, 0, count, buffer) - buffer
                                       : JoinedLength(m_store->lines, 0, count);
    // The last line feed gives its place to the terminator, but a text that is one empty line stays as one line feed.
    const std::int64_t length = joined > 1 ? joined - 1 : joined;
    if (buffer)
        buffer[length] = 0;
    return static_cast<std::uint32_t>(length + 1);
}

bool CEditorCtrl::GetLine(std::uint32_t line, bool fromSelection, WCHAR* buffer, std::uint32_t* length)
{
    if (!length)
        return false;
    CString text;
    if (m_store && fromSelection && m_store->has_selection()) {
        m_store->selected_text(text);
        to_crlf(text);
    } else if (m_store) {
        xTExtString record;
        m_store->get_line(static_cast<std::int32_t>(line), record);
        text = record.m_text;
    }
    const auto size = static_cast<std::uint32_t>(text.GetLength()) + 1;
    if (buffer && *length >= size) {
        *length = size;
        std::wmemcpy(buffer, text.c_str(), size);
        return true;
    }
    if (*length != 0 && buffer)
        *buffer = 0;
    *length = size;
    return false;
}

std::int32_t CEditorCtrl::PreparePrinting(const edPrintSetup& setup)
{
    if (!m_store || !m_attribs)
        return 0;
    const bool wholeText = setup.wholeText[0] != 0 || setup.wholeText[1] != 0;
    return m_store->prepare_printing(
        {setup.dc, setup.firstPage, setup.lastPage, setup.onlyPage, setup.middlePage, wholeText}, *m_attribs);
}
