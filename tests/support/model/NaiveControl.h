#pragma once

#include "tests/support/model/NaiveEditor.h"

/// The reference model of what keys, characters and commands do: the told rules of the key map, on top of the model of
/// the editing engine. It stands for a control that is shown, has the focus and may be edited.
class xTNaiveControl {
public:
    xTNaiveEditor editor;
    bool overwrite = false;

    // Characters and keys. The modifiers are those that are held.
    void Char(WCHAR ch, bool shift = false);
    void Arrow(int direction, bool shift);  ///< 0 left, 1 right, 2 up, 3 down
    void WordLeft(bool shift);
    void WordRight(bool shift);
    void Home(bool shift);
    void End(bool shift);
    void DocumentStart(bool shift);
    void DocumentEnd(bool shift);
    void Tab(bool shift);
    void Comment(bool remove);
    void Case(bool upper);
    void Insert();  ///< with no modifier
    void CopyKey();
    void PasteKey();
    void CutKey();
    void Delete();

    // Commands and exports
    void Paste();
    void SelectAll();
    void SelectRestOfLine();
    void InsertText(const WString& text);
    void SetCaretPosition(const xTPos& pos);
    /// Selects from the old caret to the new one. @param keep  what was selected stays part of it
    void SelectTo(const xTPos& pos, bool keep);

private:
    [[nodiscard]] xTPos PastLast() const { return {editor.store.last.line, editor.store.last.col + 1}; }
    [[nodiscard]] xTPos HomePosition() const;
    void SelectRestFromHome();
    void DeleteSelection();
    void Press(unsigned key, bool shift, bool control, bool insert, bool del);
};
