#pragma once

#include <windows.h>

#include <ostream>
#include <string>
#include <vector>

/// A metafile that stands in for a printer, and what was drawn into it, in the order of drawing.
class Metafile {
public:
    struct Text {
        std::wstring text;
        int x;  ///< logical units, as y
        int y;
        friend bool operator==(const Text&, const Text&) = default;
        friend void PrintTo(const Text& text, std::ostream* out)
        {
            *out << '"' << std::string(text.text.begin(), text.text.end()) << "\" at " << text.x << ',' << text.y;
        }
    };
    struct Drawn {
        std::vector<Text> texts;
        std::vector<LOGFONTW> fonts;      ///< as they were made
        std::vector<COLORREF> textColors;  ///< as they were set, as backColors
        std::vector<COLORREF> backColors;
        int lines = 0;  ///< straight lines, as an underline is one

        [[nodiscard]] std::vector<std::wstring> Words() const;
    };

    Metafile();
    Metafile(const Metafile&) = delete;
    Metafile& operator=(const Metafile&) = delete;
    ~Metafile();

    [[nodiscard]] HDC Context() const { return m_dc; }
    /// Ends the drawing; the context is gone after it.
    [[nodiscard]] Drawn End();

private:
    static int CALLBACK Record(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM to);
    HDC m_dc;
};
