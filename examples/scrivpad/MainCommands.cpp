// What the menu offers, and the steps that the command line asks for.
#include "MainWindow.h"

#include "Failure.h"
#include "FileDialogs.h"
#include "Menu.h"
#include "Names.h"

#include <exception>
#include <utility>

namespace scrivpad {

namespace {

constexpr const wchar_t* programName = L"Scrivpad";
constexpr const wchar_t* aboutText = L"Scrivpad 3.0\n\nПример программы с редактором исходных текстов scrivctl3.dll.";

/// @return the row of a command that stands for one row of a table, null for any other command
template <std::size_t N>
[[nodiscard]] const NumberName* RowOf(const NumberName (&names)[N], unsigned firstCommand, unsigned command) noexcept
{
    return command >= firstCommand && command - firstCommand < N ? &names[command - firstCommand] : nullptr;
}

}  // namespace

template <class Body>
bool MainWindow::OrTell(Body body) const noexcept
{
    try {
        body();
        return true;
    } catch (const Failure& failure) {
        if (!failure.told)
            Tell(failure.message.c_str());
    } catch (const std::exception&) {
        Tell(L"не хватает памяти");
    }
    return false;
}

void MainWindow::Tell(const wchar_t* message) const noexcept
{
    ::MessageBoxW(m_window, message, programName, MB_OK | MB_ICONWARNING);
}

void MainWindow::OnCommand(unsigned command) noexcept
{
    OrTell([&] { RunCommand(command); });
}

void MainWindow::RunCommand(unsigned command)
{
    struct PlainRow {
        unsigned command;
        void (MainWindow::*run)();
    };
    constexpr PlainRow plainRows[] = {
        {cmdOpen, &MainWindow::CommandOpen},
        {cmdSave, &MainWindow::CommandSave},
        {cmdSaveAs, &MainWindow::CommandSaveAs},
        {cmdExit, &MainWindow::CommandExit},
        {cmdAbout, &MainWindow::CommandAbout},
    };
    for (const PlainRow& row : plainRows) {
        if (row.command == command)
            (this->*row.run)();
    }
    if (const NumberName* const theme = RowOf(themes, cmdFirstTheme, command))
        RenewEditor(theme->number);
    if (const NumberName* const encoding = RowOf(encodings, cmdFirstEncoding, command))
        CommandEncoding(encoding->number);
    if (const NumberName* const encoding = RowOf(encodings, cmdFirstReopen, command))
        CommandReopen(encoding->number);
}

void MainWindow::CommandOpen()
{
    if (!MayLeaveText())
        return;
    const FileChoice start{m_document.path, ED_ENCODING_DEFAULT};
    if (const std::optional<FileChoice> choice = AskForFile(m_window, FileDialogKind::open, start))
        Open(choice->path, choice->encoding);
}

void MainWindow::CommandReopen(UINT32 encoding)
{
    if (!m_document.path.empty() && MayLeaveText())
        Open(m_document.path, encoding);
}

void MainWindow::CommandEncoding(UINT32 encoding)
{
    m_document.encoding = encoding;
    RefreshStatus();
}

void MainWindow::CommandExit()
{
    ::SendMessageW(m_window, WM_CLOSE, 0, 0);
}

void MainWindow::CommandAbout()
{
    ::MessageBoxW(m_window, aboutText, programName, MB_OK | MB_ICONINFORMATION);
}

bool MainWindow::Save()
{
    if (m_document.path.empty())
        return SaveUnderChosenName();
    SaveAs(m_document.path, m_document.encoding);
    return true;
}

bool MainWindow::SaveUnderChosenName()
{
    const FileChoice start{m_document.path, m_document.encoding};
    const std::optional<FileChoice> choice = AskForFile(m_window, FileDialogKind::save, start);
    if (choice)
        SaveAs(choice->path, choice->encoding);
    return choice.has_value();
}

bool MainWindow::MayLeaveText()
{
    if (!m_document.modified)
        return true;
    const std::wstring question = L"Сохранить изменения в файле «" + m_document.Name() + L"»?";
    const int answer = ::MessageBoxW(m_window, question.c_str(), programName, MB_YESNOCANCEL | MB_ICONQUESTION);
    if (answer != IDYES)
        return answer == IDNO;
    bool saved = false;
    OrTell([&] { saved = Save(); });
    return saved;
}

void MainWindow::OpenOrTell(const std::wstring& path) noexcept
{
    OrTell([&] { Open(path, ED_ENCODING_DEFAULT); });
}

void MainWindow::Open(const std::wstring& path, UINT32 encoding)
{
    Document document;
    document.path = WholePath(path);
    document.encoding = encoding;
    document.readOnly = IsReadOnlyFile(document.path);
    // Into a control of its own: the classifier belongs to the file, a failed load costs nothing, and an empty file,
    // which leaves a control's text alone, finds none.
    Editor editor = MakeEditor(document, m_theme);
    editor.LoadFile(document.path, document.encoding);
    document.loadedEncoding = document.encoding;
    Replace(std::move(editor), std::move(document));
}

void MainWindow::SaveAs(const std::wstring& path, UINT32 encoding)
{
    const std::wstring whole = WholePath(path);
    m_editor.SaveFile(whole, encoding);
    const bool otherControl = m_document.readOnly || HighlighterOf(whole) != HighlighterOf(m_document.path);
    m_document.path = whole;
    m_document.encoding = encoding;
    m_document.modified = false;
    m_document.readOnly = false;
    if (otherControl)
        RenewEditor(m_theme);
    RefreshTitle();
    RefreshStatus();
}

void MainWindow::GoTo(TextPlace place)
{
    edSetCaretPosition(m_editor.Handle(), place.line - 1, place.column - 1);
    RefreshStatus();  // a move that the host asks for is not told to it
    const edPoint caret = m_editor.Position(ED_POSITION_CARET);
    if (caret.y != place.line - 1 || caret.x != place.column - 1)
        throw Failure(L"в тексте нет места " + std::to_wstring(place.line) + L":" + std::to_wstring(place.column));
}

Editor MainWindow::MakeEditor(const Document& document, UINT32 theme) const
{
    return Editor(m_window, HighlighterOf(document.path), theme, document.readOnly);
}

void MainWindow::RenewEditor(UINT32 theme)
{
    // A control has its theme, classifier and access from its making. The list of what can be undone stays behind.
    Editor editor = MakeEditor(m_document, theme);
    editor.CopyText(m_editor, m_document.loadedEncoding);
    const EditorView view = m_editor.View();
    m_theme = theme;
    Replace(std::move(editor), m_document);
    m_editor.SetView(view);
    RefreshStatus();
}

void MainWindow::Replace(Editor editor, Document document)
{
    m_document = std::move(document);
    m_editor = std::move(editor);
    ::SendMessageW(m_window, WM_SIZE, 0, 0);
    ::ShowWindow(m_editor.Handle(), SW_SHOW);
    if (::GetActiveWindow() == m_window)
        ::SetFocus(m_editor.Handle());
    RefreshTitle();
    RefreshStatus();
}

}  // namespace scrivpad
