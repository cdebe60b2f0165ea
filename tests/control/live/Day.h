#pragma once

#include "tests/control/live/LiveControl.h"

#include <random>

/// A person at work on a text of some length: typing, blocks, clipboard, keys, mouse, wheel, windows and marks in a
/// mixed order, the same in each run. All edits of a stretch can be undone.
class Day {
public:
    static constexpr int editsInAStretch = 90;  ///< some take three steps, and 300 are kept

    explicit Day(LiveControl& live, unsigned seed = 2005);

    /// One edit or move. @return true for an edit
    bool Event();
    /// Edits and moves until the stretch is full. @return the number of events
    int Stretch();
    /// @return the number of steps
    int UndoAll();

private:
    [[nodiscard]] int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }
    [[nodiscard]] int Between(int least, int most) { return least + Below(most - least + 1); }
    [[nodiscard]] bool Once(int in) { return Below(in) == 0; }
    [[nodiscard]] int Lines() const { return static_cast<int>(edGetLineCount(m_control)); }
    [[nodiscard]] int Length(int line) const;

    void GoSomewhere();
    void SelectLines();
    void SelectCharacters();
    void Type(const wchar_t* text);
    void Edit();
    void LookAround();
    void Command();
    void Click();
    void Resize();
    void Mark();

    LiveControl& m_live;
    HWND m_control;
    std::mt19937 m_random;
};
