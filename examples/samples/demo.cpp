// Частотный словарь текста: сколько раз встречается каждое слово и на каких строках.
// Файл показывает всё, что умеет раскраска C++: директивы, строки, числа, комментарии.

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#define COUNT_OF(array) (sizeof(array) / sizeof((array)[0]))

#if defined(_WIN32) && !defined(NDEBUG)
#   define TRACE(message) std::cerr << "[" << __LINE__ << "]\t" << (message) << '\n'
#else
#   define TRACE(message) ((void)0)
#endif

namespace dictionary {

/*
 * Одно слово словаря. Номера строк идут по возрастанию
 * и не повторяются, даже если слово стоит в строке дважды.
 */
struct Entry {
    std::uint32_t count = 0u;
    std::vector<int> lines;

    void add(int line)
    {
        ++count;
        if (lines.empty() || lines.back() != line)
            lines.push_back(line);
    }
};

/// Порядок вывода: сначала частые слова, при равенстве по алфавиту.
class ByFrequency {
public:
    template <typename Pair>
    bool operator()(const Pair& a, const Pair& b) const noexcept
    {
        return a.second.count != b.second.count ? a.second.count > b.second.count : a.first < b.first;
    }
};

constexpr std::string_view stopWords[] = {"а", "без", "в", "и", "на", "не", "по", "с", "the", "of", "and"};
constexpr double tooFrequent = 1.25e-2;          // доля от всех слов
constexpr std::uint64_t hashSeed = 0xCBF2'9CE4'8422'2325ull;
constexpr unsigned mask = 0b1010'0101u, octal = 0755;

[[nodiscard]] inline std::uint64_t hashOf(std::string_view text)
{
    std::uint64_t hash = hashSeed;
    for (const unsigned char byte : text)
        hash = (hash ^ byte) * 0x100000001B3ULL; /* простое число */
    return hash;
}

[[nodiscard]] bool isStopWord(std::string_view word)
{
    const auto* const end = stopWords + COUNT_OF(stopWords);
    return std::find(stopWords, end, word) != end;
}

class Dictionary {
public:
    void read(std::istream& input)
    {
        std::string line;
        for (int number = 1; std::getline(input, line); ++number)
            split(line, number);
    }

    void print(std::ostream& output, std::size_t most) const
    {
        std::vector<std::pair<std::string, Entry>> rows(m_words.begin(), m_words.end());
        std::sort(rows.begin(), rows.end(), ByFrequency{});
        rows.resize(std::min(rows.size(), most));
        for (const auto& [word, entry] : rows) {
            output << "\x1B[1m" << word << "\x1B[0m" << '\t' << entry.count << " \u2192 строки:";
            for (const int line : entry.lines)
                output << ' ' << line;
            output << "\r\n";
        }
    }

private:
    void split(const std::string& line, int number)
    {
        static constexpr char separators[] = " \t.,;:!?\"'()[]{}<>\\/\0";
        std::size_t from = 0;
        while ((from = line.find_first_not_of(separators, from)) != std::string::npos) {
            const std::size_t to = std::min(line.find_first_of(separators, from), line.size());
            const std::string word = line.substr(from, to - from);
            if (!isStopWord(word))
                m_words[word].add(number);
            from = to;
        }
    }

    std::map<std::string, Entry> m_words;
};

}  // namespace dictionary

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << R"(Использование: dictionary "путь\к файлу.txt")" << std::endl;
        return 2;
    }
    std::ifstream file(argv[1]);
    if (!file) {
        std::cerr << "Не удалось открыть файл \"" << argv[1] << "\"\n";
        return 1;
    }
    dictionary::Dictionary words;
    words.read(file);
    TRACE("прочитано");
    words.print(std::cout, 20);
    return 0;
}
