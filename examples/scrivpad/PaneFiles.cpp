// How a pane comes by its text and gives it away.
#include "Pane.h"

#include "Boxes.h"
#include "Failure.h"
#include "FileDialogs.h"

#include <utility>

namespace scrivpad {

void Pane::Open(const std::wstring& path, UINT32 encoding)
{
    Document document;
    document.path = WholePath(path);
    document.encoding = encoding;
    document.readOnly = IsReadOnlyFile(document.path);
    // Into a control of its own: the classifier belongs to the file, a failed load costs nothing, and an empty file,
    // which leaves a control's text alone, finds none.
    Editor editor = MakeEditor(document);
    editor.LoadFile(document.path, document.encoding);
    document.loadedEncoding = document.encoding;
    Replace(std::move(editor), std::move(document));
}

void Pane::SaveAs(const std::wstring& path, UINT32 encoding)
{
    const std::wstring whole = WholePath(path);
    m_editor.SaveFile(whole, encoding);
    const bool otherControl = m_document.readOnly || HighlighterOf(whole) != HighlighterOf(m_document.path);
    m_document.path = whole;
    m_document.encoding = encoding;
    m_document.modified = false;
    m_document.readOnly = false;
    if (otherControl)
        RenewEditor();
    m_host.OnPaneChanged(*this);
}

void Pane::SetEncoding(UINT32 encoding)
{
    m_document.encoding = encoding;
    m_host.OnPaneChanged(*this);
}

void Pane::TakeAppearance() noexcept
{
    const edSettingsBlock block = m_appearance.Block();
    edReloadTuneSettings(m_editor.Handle(), &block);
}

bool Pane::AskAndOpen()
{
    if (!MayLeaveText())
        return false;
    const FileChoice start{m_document.path, ED_ENCODING_DEFAULT};
    const std::optional<FileChoice> choice = AskForFile(m_window, FileDialogKind::open, start);
    if (choice)
        Open(choice->path, choice->encoding);
    return choice.has_value();
}

bool Pane::Save()
{
    if (m_document.path.empty())
        return AskAndSave();
    SaveAs(m_document.path, m_document.encoding);
    return true;
}

bool Pane::AskAndSave()
{
    const FileChoice start{m_document.path, m_document.encoding};
    const std::optional<FileChoice> choice = AskForFile(m_window, FileDialogKind::save, start);
    if (choice)
        SaveAs(choice->path, choice->encoding);
    return choice.has_value();
}

bool Pane::MayLeaveText()
{
    if (!m_document.modified)
        return true;
    const std::wstring question = L"Сохранить изменения в файле «" + m_document.Name() + L"»?";
    const int answer = Ask(m_window, question.c_str(), MB_YESNOCANCEL);
    if (answer != IDYES)
        return answer == IDNO;
    bool saved = false;
    OrTell(m_window, [&] { saved = Save(); });
    return saved;
}

Editor Pane::MakeEditor(const Document& document) const
{
    return Editor(m_window, HighlighterOf(document.path), m_appearance, document.readOnly);
}

void Pane::RenewEditor()
{
    // A control has its classifier and access from its making. The list of what can be undone stays behind.
    Editor editor = MakeEditor(m_document);
    editor.CopyText(m_editor, m_document.loadedEncoding);
    const EditorView view = m_editor.View();
    Replace(std::move(editor), m_document);
    m_editor.SetView(view);
    m_host.OnPaneChanged(*this);
}

void Pane::Replace(Editor editor, Document document)
{
    const HWND focus = ::GetFocus();
    const bool focused = focus != nullptr && (focus == m_window || focus == m_editor.Handle());
    m_document = std::move(document);
    m_editor = std::move(editor);
    OnSize();
    ::ShowWindow(m_editor.Handle(), SW_SHOW);
    if (focused)
        ::SetFocus(m_editor.Handle());
    m_host.OnPaneChanged(*this);
}

}  // namespace scrivpad
