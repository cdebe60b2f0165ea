// What the menu offers about paper.
#include "MainWindow.h"

#include "Menu.h"

namespace scrivpad {

void MainWindow::CommandPageSetup()
{
    AskForPageSetup(m_window, m_pageSetup);
}

void MainWindow::CommandPreview()
{
    const std::wstring title = Active().CurrentDocument().Name();
    m_preview = std::make_unique<PrintPreview>(m_window, Active().Control(), m_pageSetup, title, cmdPrint);
    m_preview->Open(title);
}

void MainWindow::CommandPrint()
{
    PrintWithDialog(m_window, Active().Control(), Active().CurrentDocument().Name(), m_pageSetup);
}

HWND MainWindow::PreviewHandle() const noexcept
{
    return m_preview ? m_preview->Handle() : nullptr;
}

}  // namespace scrivpad
