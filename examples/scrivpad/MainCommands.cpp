// What the menu offers.
#include "MainWindow.h"

#include "Boxes.h"
#include "DroppedFiles.h"
#include "Menu.h"
#include "Names.h"

#include <utility>

namespace scrivpad {

namespace {

constexpr const wchar_t* aboutText = L"Scrivpad 3.0\n\nПример программы с редактором исходных текстов scrivctl3.dll.";

/// @return the row of a command that stands for one row of a table, null for any other command
template <std::size_t N>
[[nodiscard]] const NumberName* RowOf(const NumberName (&names)[N], unsigned firstCommand, unsigned command) noexcept
{
    return command >= firstCommand && command - firstCommand < N ? &names[command - firstCommand] : nullptr;
}

}  // namespace

void MainWindow::Run(unsigned command) noexcept
{
    OrTell(m_window, [&] { RunCommand(command); });
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
        {cmdPageSetup, &MainWindow::CommandPageSetup},
        {cmdPreview, &MainWindow::CommandPreview},
        {cmdPrint, &MainWindow::CommandPrint},
        {cmdExit, &MainWindow::CommandExit},
        {cmdSplit, &MainWindow::CommandSplit},
        {cmdNextPane, &MainWindow::NextPane},
        {cmdBreakPoint, &MainWindow::CommandBreakPoint},
        {cmdRemoveBreakPoints, &MainWindow::CommandRemoveBreakPoints},
        {cmdExecPoint, &MainWindow::CommandExecPoint},
        {cmdClearExecPoint, &MainWindow::CommandClearExecPoint},
        {cmdSettings, &MainWindow::CommandSettings},
        {cmdAbout, &MainWindow::CommandAbout},
    };
    for (const PlainRow& row : plainRows) {
        if (row.command == command)
            return (this->*row.run)();
    }
    if (const int code = EditCode(command); code != 0)
        edExecCommand(Active().Control(), code);
    if (const NumberName* const theme = RowOf(themes, cmdFirstTheme, command))
        SetTheme(theme->number);
    if (const NumberName* const encoding = RowOf(encodings, cmdFirstEncoding, command))
        Active().SetEncoding(encoding->number);
    if (const NumberName* const encoding = RowOf(encodings, cmdFirstReopen, command))
        CommandReopen(encoding->number);
    if (m_window != nullptr)
        RefreshStatus();
}

void MainWindow::CommandReopen(UINT32 encoding)
{
    const std::wstring path = Active().CurrentDocument().path;
    if (!path.empty() && Active().MayLeaveText())
        Active().Open(path, encoding);
}

void MainWindow::SetTheme(UINT32 theme)
{
    // The dialog's pages would change under the user's hands: there is a list of the themes on them.
    if (SettingsHandle() != nullptr)
        return ShowSettings(SettingsDialog::coloursPage);
    std::vector<BYTE> block = BlockOfTheme(m_appearance.Block(), theme);
    if (block.empty())
        throw Failure(L"не удалось сменить тему");
    TakeSettings(std::move(block), theme);
}

void MainWindow::TakeSettings(std::vector<BYTE> block, UINT32 theme)
{
    const auto give = [&] {
        for (const std::unique_ptr<Pane>& pane : m_panes) {
            if (pane)
                pane->TakeAppearance();
        }
    };
    try {
        m_appearance.Take(std::move(block), theme);
    } catch (const Failure&) {
        give();
        throw;
    }
    give();
}

void MainWindow::ShowSettings(SettingsDialog::Page page)
{
    if (SettingsHandle() == nullptr)
        m_settings = std::make_unique<SettingsDialog>(m_window, m_appearance.Block(), [this](std::vector<BYTE> block) {
            TakeSettings(std::move(block), 0);
        });
    m_settings->Show(page);
}

void MainWindow::CommandSplit()
{
    if (Other() == nullptr)
        Split();
    else
        Unsplit();
}

void MainWindow::Split()
{
    if (Other() != nullptr)
        return;
    m_panes[1] = MakePane();
    m_active = 1;
    OnSize();
    OnPaneChanged(Active());
    ::SetFocus(Active().Control());
}

void MainWindow::Unsplit()
{
    if (!m_panes[1]->MayLeaveText())
        return;
    m_active = 0;
    m_panes[1].reset();
    OnSize();
    OnPaneChanged(Active());
    ::SetFocus(Active().Control());
}

void MainWindow::NextPane()
{
    if (Other() == nullptr)
        return;
    Activate(*Other());  // by itself too: without the foreground there is no focus to hear of
    ::SetFocus(Active().Control());
}

void MainWindow::CommandBreakPoint()
{
    if (!Active().ToggleBreakPoint())
        ::MessageBeep(MB_OK);  // an empty line has none
}

void MainWindow::CommandExit()
{
    ::SendMessageW(m_window, WM_CLOSE, 0, 0);
}

void MainWindow::CommandAbout()
{
    ::MessageBoxW(m_window, aboutText, programName, MB_OK | MB_ICONINFORMATION);
}

void MainWindow::OpenOrTell(const std::wstring& path) noexcept
{
    OrTell(m_window, [&] {
        if (Active().MayLeaveText())
            Active().Open(path, ED_ENCODING_DEFAULT);
    });
}

// The first file takes the place of the active text; a second one comes beside it.
void MainWindow::OnDropFiles(HDROP drop)
{
    const std::vector<std::wstring> paths = TakeDroppedFiles(drop);
    ::SetForegroundWindow(m_window);
    if (!paths.empty())
        OpenOrTell(paths[0]);
    if (paths.size() > 1)
        OpenBeside(paths[1]);
}

void MainWindow::OpenBeside(const std::wstring& path) noexcept
{
    OrTell(m_window, [&] {
        if (Other() == nullptr)
            Split();
        else
            NextPane();
    });
    OpenOrTell(path);
}

bool MainWindow::MayLeaveTexts()
{
    for (const std::unique_ptr<Pane>& pane : m_panes) {
        if (pane && !pane->MayLeaveText())
            return false;
    }
    return true;
}

}  // namespace scrivpad
