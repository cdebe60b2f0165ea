#pragma once

#include "tests/support/model/Commands.h"

#include <functional>

class xTNaiveStore;

/// Makes up the commands of a history one by one: where things stand in the text is taken from the model, all else
/// from a source of choices, which may be a random generator or the bytes of a fuzzer.
class xTCommandMaker {
public:
    /// Answers a number from 0 up to, not including, `n`, which is above 0.
    using xTChoose = std::function<unsigned(unsigned n)>;

    explicit xTCommandMaker(xTChoose choose);

    /// The commands that every history begins with: settings, the marks of the host and a text.
    [[nodiscard]] xTHistory Start(const xTNaiveStore& store);
    [[nodiscard]] xTCommand Next(const xTNaiveStore& store);

private:
    using xTFill = void (xTCommandMaker::*)(const xTNaiveStore&, xTCommand&);
    struct xTMix;
    static const xTMix mixes[];

    [[nodiscard]] bool Once(unsigned in) { return m_choose(in) == 0; }
    [[nodiscard]] int Between(int least, int most);
    [[nodiscard]] WString Token();
    [[nodiscard]] WString Text(int tokens);
    [[nodiscard]] WString LongRun();
    [[nodiscard]] WString WholeText();
    [[nodiscard]] unsigned Key();
    [[nodiscard]] xTPos Place(const xTNaiveStore& store);
    [[nodiscard]] int Line(const xTNaiveStore& store);
    [[nodiscard]] WString Stretch(const xTNaiveStore& store);

    void Nothing(const xTNaiveStore& store, xTCommand& command);
    void Typed(const xTNaiveStore& store, xTCommand& command);
    void Pressed(const xTNaiveStore& store, xTCommand& command);
    void Pasted(const xTNaiveStore& store, xTCommand& command);
    void Dropped(const xTNaiveStore& store, xTCommand& command);
    void Range(const xTNaiveStore& store, xTCommand& command);
    void TwoPlaces(const xTNaiveStore& store, xTCommand& command);
    void OnePlace(const xTNaiveStore& store, xTCommand& command);
    void OddPlace(const xTNaiveStore& store, xTCommand& command);
    void Flag(const xTNaiveStore& store, xTCommand& command);
    void Mode(const xTNaiveStore& store, xTCommand& command);
    void Direction(const xTNaiveStore& store, xTCommand& command);
    void OneLine(const xTNaiveStore& store, xTCommand& command);
    void Replaced(const xTNaiveStore& store, xTCommand& command);
    void TabSize(const xTNaiveStore& store, xTCommand& command);
    void NewText(const xTNaiveStore& store, xTCommand& command);

    xTChoose m_choose;
    bool m_longLines = false;  // this history is about the limits of a line
};
