#include "tests/support/model/NaiveEditor.h"

#include <algorithm>

namespace {

constexpr unsigned insertKey = 45;
constexpr unsigned deleteKey = 46;
constexpr unsigned pasteCode = 0x1001;

WString WithoutReturns(WString text)
{
    std::erase(text, WCHAR{_T('\r')});
    return text;
}

// Until it is applied a block operation holds ten spaces, which are written over then.
xTNaiveOperation LinesOperation(int kind)
{
    xTNaiveOperation made = xTNaiveOperation::OfKind(kind);
    made.count = 10;
    made.text = WString(10, _T(' '));
    return made;
}

}  // namespace

void xTNaiveEditor::Run(xTNaiveOperation operation)
{
    redoList.clear();  // whatever comes of it
    if (operation.Apply(store))
        PushUndo(std::move(operation));
}

void xTNaiveEditor::PushUndo(xTNaiveOperation operation)
{
    if (operation.count == 0)
        return;
    if (undoList.size() == capacity)
        undoList.pop_back();
    undoList.push_front(std::move(operation));
}

void xTNaiveEditor::AddChar(unsigned key, bool overwrite)
{
    Run(xTNaiveOperation::Keystroke(store, key, overwrite));
}

void xTNaiveEditor::AddKey(unsigned key)
{
    const bool isPaste = shiftDown && insertDown;
    const bool isCopy = controlDown && insertDown;
    const bool isCut = shiftDown && deleteDown;
    if (!isPaste && !isCopy && !isCut && key != deleteKey && key != pasteCode)
        return;
    const bool reads = clipboardHoldsText && (key == pasteCode || (key == insertKey && shiftDown && !controlDown));
    const WString text = WithoutReturns(clipboard);
    Run(xTNaiveOperation::Key(store, key, reads ? &text : nullptr));
}

void xTNaiveEditor::AddBlock(const WString& text, const xTPos& first, const xTPos& last, bool move)
{
    Run(xTNaiveOperation::Block(store, WithoutReturns(text), first, last, move));
}

void xTNaiveEditor::AddDelete(const xTPos& first, const xTPos& last)
{
    Run(xTNaiveOperation::Range(store, first, last));
}

void xTNaiveEditor::AddCase(bool upper)
{
    xTNaiveOperation made = xTNaiveOperation::OfKind(xTNaiveOperation::changeCaseKind);
    made.toUpper = upper;
    Run(made);
}

void xTNaiveEditor::AddLayout()
{
    Run(xTNaiveOperation::OfKind(xTNaiveOperation::switchLayoutKind));
}

void xTNaiveEditor::AddIndent(bool remove)
{
    Run(LinesOperation(remove ? xTNaiveOperation::unindentKind : xTNaiveOperation::indentKind));
}

void xTNaiveEditor::AddComment(int mode)
{
    Run(LinesOperation(mode == 0   ? xTNaiveOperation::commentKind
                       : mode == 1 ? xTNaiveOperation::uncommentKind
                                   : xTNaiveOperation::noneKind));
}

void xTNaiveEditor::AddReplace(const WString& find, const WString& replacement, bool all, bool wholeWord, bool matchCase)
{
    Run(xTNaiveOperation::Replace(find, replacement, all, wholeWord, matchCase));
}

bool xTNaiveEditor::Undo()
{
    if (undoList.empty())
        return false;
    xTNaiveOperation operation = std::move(undoList.front());
    undoList.pop_front();
    operation.Undo(store);
    if (redoList.size() == capacity)
        redoList.pop_back();
    redoList.push_front(std::move(operation));
    return true;
}

bool xTNaiveEditor::Redo()
{
    if (redoList.empty())
        return false;
    xTNaiveOperation operation = std::move(redoList.front());
    redoList.pop_front();
    operation.Redo(store);
    PushUndo(std::move(operation));
    return true;
}

void xTNaiveEditor::LoadText(const WString& text)
{
    store.LoadText(text);
    undoList.clear();
    redoList.clear();
    store.ClearSelection();
}
