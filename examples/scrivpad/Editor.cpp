#include "Editor.h"

#include "Failure.h"
#include "TokenClass.h"

#include <utility>

namespace scrivpad {

static_assert(static_cast<int>(TokenClass::plain) == ED_CLASS_PLAIN);
static_assert(static_cast<int>(TokenClass::identifier) == ED_CLASS_IDENTIFIER);
static_assert(static_cast<int>(TokenClass::keyword) == ED_CLASS_KEYWORD);
static_assert(static_cast<int>(TokenClass::symbol) == ED_CLASS_SYMBOL);
static_assert(static_cast<int>(TokenClass::string) == ED_CLASS_STRING);
static_assert(static_cast<int>(TokenClass::number) == ED_CLASS_NUMBER);
static_assert(static_cast<int>(TokenClass::comment) == ED_CLASS_COMMENT);
static_assert(static_cast<int>(TokenClass::special) == ED_CLASS_STRING_SPECIAL);
static_assert(static_cast<int>(TokenClass::directive) == ED_CLASS_USER1);
static_assert(static_cast<int>(TokenClass::builtin) == ED_CLASS_USER2);

namespace {

/// Throws unless the file can be opened for reading: the control's own message would not say why.
void RequireReadable(const std::wstring& path)
{
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw SystemFailure(L"не удалось открыть " + path, ::GetLastError());
    ::CloseHandle(file);
}

/// A file of the system's folder for such files, removed at the end of the scope.
class TemporaryFile {
public:
    TemporaryFile() noexcept
    {
        wchar_t folder[MAX_PATH + 1];
        if (::GetTempPathW(ARRAYSIZE(folder), folder) == 0 || ::GetTempFileNameW(folder, L"scr", 0, m_path) == 0)
            m_path[0] = L'\0';
    }
    ~TemporaryFile() { ::DeleteFileW(m_path); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// @return the path, empty when there is no such file to be had
    [[nodiscard]] const wchar_t* Path() const noexcept { return m_path; }

private:
    wchar_t m_path[MAX_PATH];
};

}  // namespace

Editor::Editor(HWND parent, Highlighter highlighter, Appearance& appearance, bool readOnly)
{
    const edHighlightHook hook = {highlighter, nullptr};
    edCreateParams params = {};
    params.parent = parent;
    params.flags = readOnly ? ED_CREATE_READONLY : 0;
    params.highlightHook = &hook;
    const edSettingsBlock settings = appearance.Block();
    params.settings = &settings;
    params.defaultTheme = appearance.FallbackTheme();
    m_control = edCreateCtrl(&params);
    if (m_control == nullptr)
        throw Failure(L"не удалось создать окно редактора");
}

Editor::Editor(Editor&& other) noexcept
    : m_control(std::exchange(other.m_control, nullptr)), m_execLine(std::exchange(other.m_execLine, -1))
{
}

Editor& Editor::operator=(Editor&& other) noexcept
{
    if (this != &other) {
        Destroy();
        m_control = std::exchange(other.m_control, nullptr);
        m_execLine = std::exchange(other.m_execLine, -1);
    }
    return *this;
}

void Editor::Destroy() noexcept
{
    // Forgotten first: what the control sends while it goes must not come back to it.
    if (const HWND control = std::exchange(m_control, nullptr))
        edDestroyCtrl(control);
}

edPoint Editor::Position(int code) const noexcept
{
    edPoint point = {};
    edGetPosition(m_control, code, &point);
    return point;
}

std::wstring Editor::Text() const
{
    std::wstring text(edSaveText(m_control, nullptr), L'\0');
    edSaveText(m_control, text.data());
    text.pop_back();  // the terminator
    // A load takes a last line break as the end of the last line; a text of one empty line is a lone break already.
    if (LineCount() > 1)
        text.push_back(L'\n');
    return text;
}

void Editor::SetText(const std::wstring& text) noexcept
{
    edLoadText(m_control, text.c_str(), static_cast<UINT32>(text.size()));
}

void Editor::LoadFile(const std::wstring& path, UINT32& encoding)
{
    RequireReadable(path);
    if (edLoadFile(m_control, path.c_str(), &encoding) == 0)
        throw Failure(L"это не текстовый файл: " + path, true);
}

void Editor::SaveFile(const std::wstring& path, UINT32 encoding) const
{
    if (edSaveFile(m_control, path.c_str(), encoding) == 0)
        throw Failure(L"не удалось сохранить " + path +
                      L": файл недоступен для записи, или в выбранной кодировке нет какого-то символа текста");
}

void Editor::CopyText(const Editor& from, UINT32 encoding)
{
    // Line ends and byte order mark travel only through a file. A file cannot hold a last empty line, and its encoding
    // may lack a character that was typed: the bare text takes over then.
    const TemporaryFile file;
    const bool copied = edSaveFile(from.m_control, file.Path(), encoding) != 0 &&
                        edLoadFile(m_control, file.Path(), &encoding) != 0;
    if (!copied || LineCount() != from.LineCount())
        SetText(from.Text());
}

bool Editor::HasBreakPoint(UINT32 line) const noexcept
{
    const int count = edGetBreakPointCount(m_control);
    for (int i = 0; i < count; ++i) {
        if (edGetBreakPointLine(m_control, static_cast<UINT32>(i)) == static_cast<int>(line))
            return true;
    }
    return false;
}

bool Editor::ToggleBreakPoint(UINT32 line) noexcept
{
    return HasBreakPoint(line) ? edRemoveBreakPoint(m_control, line) != 0 : edSetBreakPoint(m_control, line) != 0;
}

void Editor::SetExecPoint(UINT32 line) noexcept
{
    if (line >= LineCount())
        return;
    edSetExecPoint(m_control, line);
    edTakeSnapshot(m_control);  // the control tells where a line of a snapshot is now, but not where this point is
    m_execLine = static_cast<int>(line);
}

void Editor::ClearExecPoint() noexcept
{
    edClearExecPoint(m_control);
    m_execLine = -1;
}

std::optional<UINT32> Editor::ExecPoint() const noexcept
{
    const int line = m_execLine < 0 ? -1 : edGetSnapshotNewLine(m_control, m_execLine);
    return line < 0 ? std::nullopt : std::optional<UINT32>(static_cast<UINT32>(line));
}

EditorView Editor::View() const
{
    EditorView view;
    view.caret = Position(ED_POSITION_CARET);
    view.viewport = Position(ED_POSITION_VIEWPORT);
    if (Mode(ED_MODE_SELECTION))
        view.selection = {Position(ED_POSITION_SELECTION_FIRST), Position(ED_POSITION_SELECTION_LAST)};
    const int count = edGetBreakPointCount(m_control);
    for (int i = 0; i < count; ++i)
        view.breakPoints.push_back(static_cast<UINT32>(edGetBreakPointLine(m_control, static_cast<UINT32>(i))));
    view.execPoint = ExecPoint();
    return view;
}

void Editor::SetView(const EditorView& view) noexcept
{
    for (const UINT32 line : view.breakPoints)
        edSetBreakPoint(m_control, line);
    if (view.execPoint)
        SetExecPoint(*view.execPoint);
    if (view.selection) {
        // Selecting moves the caret from one end to the other, so it starts at the end where the caret was not.
        edPoint start = view.selection->first;
        edPoint end = {view.selection->last.x + 1, view.selection->last.y};
        if (view.caret.y == start.y && view.caret.x == start.x)
            std::swap(start, end);
        edSetCaretPositionAdv(m_control, start.y, start.x, 0);
        edSetCaretPositionAdv(m_control, end.y, end.x, ED_CARET_SELECT);
    } else {
        edSetCaretPositionAdv(m_control, view.caret.y, view.caret.x, 0);
    }
    edSetScrollPosition(m_control, view.viewport.y, view.viewport.x);
}

}  // namespace scrivpad
