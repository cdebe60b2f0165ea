#include "CommandLine.h"

#include <string_view>
#include <utility>

namespace scrivpad {

namespace {

constexpr unsigned lastTheme = 5;
constexpr unsigned lastEncoding = 5;
constexpr int mostLines = 0x7FFFFFFF;

/// @return the number, none unless `text` is decimal digits only and lies between the bounds
[[nodiscard]] std::optional<int> ParseNumber(std::wstring_view text, int least, int most) noexcept
{
    long long number = 0;
    for (const wchar_t ch : text) {
        if (ch < L'0' || ch > L'9')
            return std::nullopt;
        number = number * 10 + (ch - L'0');
        if (number > most)
            return std::nullopt;
    }
    if (text.empty() || number < least)
        return std::nullopt;
    return static_cast<int>(number);
}

[[nodiscard]] bool SetNumber(std::optional<unsigned>& field, std::wstring_view value, unsigned least, unsigned most)
{
    const std::optional<int> number = ParseNumber(value, static_cast<int>(least), static_cast<int>(most));
    if (number)
        field = static_cast<unsigned>(*number);
    return number.has_value();
}

[[nodiscard]] bool SetText(std::wstring& field, std::wstring_view value)
{
    field = value;
    return !field.empty();
}

bool SetTheme(Options& options, std::wstring_view value)
{
    return SetNumber(options.theme, value, 1, lastTheme);
}

bool SetEncoding(Options& options, std::wstring_view value)
{
    return SetNumber(options.encoding, value, 0, lastEncoding);
}

bool SetSaveEncoding(Options& options, std::wstring_view value)
{
    return SetNumber(options.saveEncoding, value, 0, lastEncoding);
}

bool SetSaveAs(Options& options, std::wstring_view value)
{
    return SetText(options.saveAs, value);
}

bool SetSettings(Options& options, std::wstring_view value)
{
    return SetText(options.settings, value);
}

bool SetTune(Options& options, std::wstring_view value)
{
    return SetNumber(options.tune, value, 1, 2);
}

bool SetScreenshot(Options& options, std::wstring_view value)
{
    return SetText(options.screenshot, value);
}

[[nodiscard]] bool SetPlace(std::optional<TextPlace>& field, std::wstring_view value)
{
    const std::size_t colon = value.find(L':');
    if (colon == std::wstring_view::npos)
        return false;
    const std::optional<int> line = ParseNumber(value.substr(0, colon), 1, mostLines);
    const std::optional<int> column = ParseNumber(value.substr(colon + 1), 1, mostLines);
    if (line && column)
        field = TextPlace{*line, *column};
    return line && column;
}

bool SetCaret(Options& options, std::wstring_view value)
{
    return SetPlace(options.caret, value);
}

bool SetSelectTo(Options& options, std::wstring_view value)
{
    return SetPlace(options.selectTo, value);
}

bool AddBreakPoint(Options& options, std::wstring_view value)
{
    const std::optional<int> line = ParseNumber(value, 1, mostLines);
    if (line)
        options.breakPoints.push_back(*line);
    return line.has_value();
}

bool SetExecPoint(Options& options, std::wstring_view value)
{
    const std::optional<int> line = ParseNumber(value, 1, mostLines);
    if (line)
        options.execPoint = line;
    return line.has_value();
}

bool SetBeside(Options& options, std::wstring_view value)
{
    return SetText(options.beside, value);
}

bool SetFind(Options& options, std::wstring_view)
{
    options.find = true;
    return true;
}

bool SetPreview(Options& options, std::wstring_view)
{
    options.preview = true;
    return true;
}

bool SetExit(Options& options, std::wstring_view)
{
    options.exit = true;
    return true;
}

bool SetHelp(Options& options, std::wstring_view)
{
    options.help = true;
    return true;
}

struct OptionRow {
    std::wstring_view name;
    bool hasValue;
    bool (*set)(Options& options, std::wstring_view value);  ///< false: the value is no good
};

constexpr OptionRow optionRows[] = {
    {L"--theme", true, SetTheme},
    {L"--encoding", true, SetEncoding},
    {L"--beside", true, SetBeside},
    {L"--goto", true, SetCaret},
    {L"--select-to", true, SetSelectTo},
    {L"--break-point", true, AddBreakPoint},
    {L"--exec-point", true, SetExecPoint},
    {L"--find", false, SetFind},
    {L"--preview", false, SetPreview},
    {L"--settings", true, SetSettings},
    {L"--tune", true, SetTune},
    {L"--save-as", true, SetSaveAs},
    {L"--save-encoding", true, SetSaveEncoding},
    {L"--screenshot", true, SetScreenshot},
    {L"--exit", false, SetExit},
    {L"--help", false, SetHelp},
};

[[nodiscard]] const OptionRow* FindOption(std::wstring_view name) noexcept
{
    for (const OptionRow& row : optionRows) {
        if (row.name == name)
            return &row;
    }
    return nullptr;
}

/// Goes through the arguments; the first one that is no good ends it with an error.
class Parser {
public:
    explicit Parser(std::span<const std::wstring> arguments) noexcept : m_rest(arguments) {}

    [[nodiscard]] ParsedCommandLine Run()
    {
        bool optionsEnded = false;
        while (m_result.error.empty() && !m_rest.empty()) {
            const std::wstring& argument = Next();
            if (!optionsEnded && argument == L"--")
                optionsEnded = true;
            else if (!optionsEnded && argument.starts_with(L"--"))
                TakeOption(argument);
            else
                TakeFile(argument);
        }
        const Options& options = m_result.options;
        if (m_result.error.empty() && options.saveEncoding && options.saveAs.empty())
            m_result.error = L"--save-encoding имеет смысл только вместе с --save-as";
        return std::move(m_result);
    }

private:
    const std::wstring& Next() noexcept
    {
        const std::wstring& argument = m_rest.front();
        m_rest = m_rest.subspan(1);
        return argument;
    }

    void TakeOption(const std::wstring& name)
    {
        const OptionRow* const row = FindOption(name);
        if (row == nullptr) {
            m_result.error = L"неизвестный ключ " + name;
        } else if (row->hasValue && m_rest.empty()) {
            m_result.error = L"ключу " + name + L" нужно значение";
        } else {
            const std::wstring value = row->hasValue ? Next() : std::wstring();
            if (!row->set(m_result.options, value))
                m_result.error = L"недопустимое значение ключа " + name + L": \"" + value + L"\"";
        }
    }

    void TakeFile(const std::wstring& path)
    {
        if (!m_result.options.file.empty())
            m_result.error = L"указано больше одного файла: " + path;
        else if (path.empty())
            m_result.error = L"пустое имя файла";
        else
            m_result.options.file = path;
    }

    std::span<const std::wstring> m_rest;
    ParsedCommandLine m_result;
};

}  // namespace

bool Options::Automated() const noexcept
{
    return theme || encoding || caret || selectTo || execPoint || tune || saveEncoding || find || preview || exit ||
           !breakPoints.empty() || !beside.empty() || !saveAs.empty() || !screenshot.empty();
}

ParsedCommandLine ParseCommandLine(std::span<const std::wstring> arguments)
{
    return Parser(arguments).Run();
}

const wchar_t* UsageText() noexcept
{
    return L"Использование: scrivpad [ключи] [файл]\n"
           L"  --theme N            тема от 1 до 5\n"
           L"  --encoding N         кодировка файла: 0 по умолчанию, 1 ANSI, 2 UTF-8, 3 OEM, 4 UTF-16 LE, 5 UTF-16 BE\n"
           L"  --beside ПУТЬ        показать рядом второй файл\n"
           L"  --goto СТРОКА:СТОЛБЕЦ       поставить курсор; оба числа считаются с 1\n"
           L"  --select-to СТРОКА:СТОЛБЕЦ  выделить текст от курсора до этого места\n"
           L"  --break-point СТРОКА поставить точку останова; ключ можно повторять\n"
           L"  --exec-point СТРОКА  поставить точку исполнения\n"
           L"  --find               открыть окно поиска\n"
           L"  --preview            открыть просмотр печати; снимок показывает его окно\n"
           L"  --settings ПУТЬ      хранить настройки в этом файле\n"
           L"  --tune N             открыть настройку: 1 шрифт и табуляция, 2 подсветка; снимок будет её\n"
           L"  --save-as ПУТЬ       сохранить текст в этот файл\n"
           L"  --save-encoding N    кодировка для --save-as\n"
           L"  --screenshot ПУТЬ    снимок окна в формате PNG\n"
           L"  --exit               завершить работу, когда всё выполнено\n"
           L"Код завершения: 0 всё выполнено, 1 шаг не удался, 2 ошибка в командной строке.\n";
}

}  // namespace scrivpad
