#include "tests/support/model/CommandMaker.h"

#include "tests/support/model/NaiveStore.h"

#include <algorithm>
#include <numeric>

namespace {

// What has to do with comments, strings, tabs and letters stands in more than one row, so that it meets itself.
const WString tokens[] = {
    _T("/*"), _T("*/"), _T("//"), _T("\""), _T("\\"), _T("\t"), _T(" "), _T("  "), _T("\n"), _T("\n"), _T("a"), _T("foo"),
    _T("Foo"), _T("/"), _T("*"), _T("x_1"), _T("Привет"), _T("Ж"), _T("/*/"), _T("\"/*\""), _T("№"), _T("{}"),
    _T("\r"), WString(1, WCHAR{0xD83D}), WString(1, WCHAR{0xDE00}), _T("\n    "), _T("\n\t"), _T("b"), _T("b"), _T("'"),
};

constexpr unsigned keys[] = {
    8, 8, 8, 8, 13, 13, 13, 13, 9, 9, 10, 16, 0, '/', '/', '*', '*', '"', '\\', ' ', ' ', 'a', 'b', 'f', 'Z',
    0x0416, 0x0436, 0xD83D, 0xDE00, 0x2116, 0x3B, 0x7F, 27, 0x10041,
};

}  // namespace

// How often a command comes up, against the sum of all.
struct xTCommandMaker::xTMix {
    const char* name;
    unsigned weight;
    xTFill fill;
};

const xTCommandMaker::xTMix xTCommandMaker::mixes[] = {
    {"add_char", 220, &xTCommandMaker::Typed},
    {"add_key", 50, &xTCommandMaker::Pressed},
    {"add_key", 40, &xTCommandMaker::Pasted},
    {"add_block", 50, &xTCommandMaker::Dropped},
    {"add_delete", 30, &xTCommandMaker::Range},
    {"add_case", 20, &xTCommandMaker::Flag},
    {"add_layout", 10, &xTCommandMaker::Nothing},
    {"add_indent", 40, &xTCommandMaker::Flag},
    {"add_comment", 40, &xTCommandMaker::Mode},
    {"add_replace", 40, &xTCommandMaker::Replaced},
    {"undo", 60, &xTCommandMaker::Nothing},
    {"redo", 40, &xTCommandMaker::Nothing},
    {"set_caret", 80, &xTCommandMaker::OnePlace},
    {"set_caret_raw", 3, &xTCommandMaker::OddPlace},
    {"move_caret", 30, &xTCommandMaker::Direction},
    {"extend_selection", 90, &xTCommandMaker::Direction},
    {"select_range", 70, &xTCommandMaker::TwoPlaces},
    {"clear_selection", 20, &xTCommandMaker::Nothing},
    {"drop_selection", 5, &xTCommandMaker::Nothing},
    {"drop_anchor", 5, &xTCommandMaker::Nothing},
    {"set_break_point", 15, &xTCommandMaker::OneLine},
    {"remove_break_point", 8, &xTCommandMaker::OneLine},
    {"remove_all_break_points", 3, &xTCommandMaker::Nothing},
    {"break_point_line", 3, &xTCommandMaker::OneLine},
    {"set_exec_point", 12, &xTCommandMaker::OneLine},
    {"clear_exec_point", 4, &xTCommandMaker::Nothing},
    {"take_snapshot", 5, &xTCommandMaker::Nothing},
    {"keep_tabs", 8, &xTCommandMaker::Flag},
    {"tab_size", 8, &xTCommandMaker::TabSize},
    {"go_round", 4, &xTCommandMaker::Flag},
    {"load_text", 3, &xTCommandMaker::NewText},
    {"paint", 40, &xTCommandMaker::Nothing},
};

xTCommandMaker::xTCommandMaker(xTChoose choose) : m_choose(std::move(choose))
{
    m_longLines = Once(5);
}

xTHistory xTCommandMaker::Start(const xTNaiveStore& store)
{
    xTHistory start;
    for (const char* name : {"keep_tabs", "tab_size", "load_text"}) {
        const auto* const mix = std::find_if(std::begin(mixes), std::end(mixes), [&](auto& row) { return row.name == std::string_view(name); });
        start.push_back({.verb = CommandRow(name)});
        (this->*mix->fill)(store, start.back());
    }
    return start;
}

xTCommand xTCommandMaker::Next(const xTNaiveStore& store)
{
    static const unsigned sum = std::accumulate(std::begin(mixes), std::end(mixes), 0u,
                                                [](unsigned total, const xTMix& mix) { return total + mix.weight; });
    unsigned at = m_choose(sum);
    const xTMix* mix = mixes;
    for (; at >= mix->weight; ++mix)
        at -= mix->weight;
    xTCommand command{.verb = CommandRow(mix->name)};
    (this->*mix->fill)(store, command);
    return command;
}

int xTCommandMaker::Between(int least, int most)
{
    return least + static_cast<int>(m_choose(static_cast<unsigned>(most - least) + 1));
}

WString xTCommandMaker::Token()
{
    if (m_longLines && Once(8))
        return LongRun();
    return tokens[m_choose(std::size(tokens))];
}

// Near the limits, or half of what passes them.
WString xTCommandMaker::LongRun()
{
    constexpr int lengths[] = {225, 231, 256, 300, 455, 461, 462, 463, 505, 511, 512, 513, 930, 1030};
    const int length = lengths[m_choose(std::size(lengths))];
    WString run(static_cast<std::size_t>(length), Once(3) ? _T(' ') : _T('x'));
    run[m_choose(static_cast<unsigned>(length))] = tokens[m_choose(std::size(tokens))][0] == _T('\t') ? _T('\t') : _T('/');
    return run;
}

WString xTCommandMaker::Text(int count)
{
    WString text;
    for (int i = 0; i < count; ++i)
        text += Token();
    return text;
}

WString xTCommandMaker::WholeText()
{
    if (Once(12))
        return {};
    WString text;
    for (int line = Between(1, Once(10) ? 40 : 8); line > 0; --line)
        text += Text(Between(0, 5)) + (line > 1 || Once(2) ? _T("\n") : _T(""));
    return text;
}

unsigned xTCommandMaker::Key()
{
    return keys[m_choose(std::size(keys))];
}

int xTCommandMaker::Line(const xTNaiveStore& store)
{
    return Between(Once(30) ? -1 : 0, std::max(store.Count() - (Once(30) ? 0 : 1), 0));
}

xTPos xTCommandMaker::Place(const xTNaiveStore& store)
{
    const int line = std::min(Line(store), std::max(store.Count() - 1, 0));
    const int length = store.Length(line);
    const unsigned kind = m_choose(6);
    if (kind == 0)
        return {line, 0};
    if (kind == 1)
        return {line, length};
    return {std::max(line, 0), Between(0, length)};
}

// A piece of the text as it stands, so that a search finds something.
WString xTCommandMaker::Stretch(const xTNaiveStore& store)
{
    const xTPos at = Place(store);
    const WString tail = store.Tail(at).substr(0, m_choose(4) + 1);
    return tail.empty() || Once(4) ? tokens[m_choose(std::size(tokens))] : tail;
}

void xTCommandMaker::Nothing(const xTNaiveStore&, xTCommand&) {}

void xTCommandMaker::Typed(const xTNaiveStore&, xTCommand& command)
{
    command.number = static_cast<int>(Key());
    command.flags = Once(4) ? 1 : 0;
}

void xTCommandMaker::Pressed(const xTNaiveStore&, xTCommand& command)
{
    command.number = Once(8) ? static_cast<int>(Once(2) ? 45 : 65) : 46;
    command.flags = Once(8) ? m_choose(32) : 0;
    command.text = Text(Between(0, 3));
}

void xTCommandMaker::Pasted(const xTNaiveStore&, xTCommand& command)
{
    command.number = Once(8) ? 45 : 0x1001;
    command.flags = command.number == 45 ? keyShift | keyInsert : Once(10) ? unsigned{clipboardEmpty} : 0;
    command.text = Text(Between(0, 8));
}

void xTCommandMaker::Dropped(const xTNaiveStore& store, xTCommand& command)
{
    command.flags = Once(2) ? 1 : 0;
    command.text = Text(Between(0, 5));
    Range(store, command);
    if (Once(3))
        command.from = command.to = xTPos::none;
    else if (store.HasSelection() && Once(2))
        command.from = store.first, command.to = store.last;
}

// In order, the last place inclusive.
void xTCommandMaker::Range(const xTNaiveStore& store, xTCommand& command)
{
    TwoPlaces(store, command);
    if (command.to < command.from)
        std::swap(command.from, command.to);
    if (Once(8) && command.to.line > command.from.line)
        command.to = xTPos(command.to.line, -1);
}

void xTCommandMaker::TwoPlaces(const xTNaiveStore& store, xTCommand& command)
{
    command.from = Place(store);
    command.to = Place(store);
    if (Once(3))
        command.to = xTPos(command.from.line, Between(0, store.Length(command.from.line)));
}

void xTCommandMaker::OnePlace(const xTNaiveStore& store, xTCommand& command)
{
    command.from = Once(12) ? xTPos(Line(store), Between(-1, 20)) : Place(store);
}

void xTCommandMaker::OddPlace(const xTNaiveStore& store, xTCommand& command)
{
    command.from = xTPos(Between(-1, store.Count() + 1), Between(-1, 12));
}

void xTCommandMaker::Flag(const xTNaiveStore&, xTCommand& command)
{
    command.flags = m_choose(2);
}

void xTCommandMaker::Mode(const xTNaiveStore&, xTCommand& command)
{
    command.number = Once(20) ? 2 : Between(0, 1);
}

void xTCommandMaker::Direction(const xTNaiveStore&, xTCommand& command)
{
    command.number = Between(0, 3);
}

void xTCommandMaker::OneLine(const xTNaiveStore& store, xTCommand& command)
{
    command.number = Line(store);
}

void xTCommandMaker::Replaced(const xTNaiveStore& store, xTCommand& command)
{
    command.flags = m_choose(8);
    WString find = Stretch(store);
    std::erase(find, WCHAR{_T('\n')});
    command.text = find;
    if (!Once(4))
        command.other = tokens[m_choose(std::size(tokens))];
    std::erase(command.other, WCHAR{_T('\n')});
}

void xTCommandMaker::TabSize(const xTNaiveStore&, xTCommand& command)
{
    command.number = Once(3) ? Between(0, 8) : 4;
}

void xTCommandMaker::NewText(const xTNaiveStore&, xTCommand& command)
{
    command.text = WholeText();
}
