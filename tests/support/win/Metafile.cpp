#include "tests/support/win/Metafile.h"

Metafile::Metafile() : m_dc(::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr)) {}

Metafile::~Metafile()
{
    if (m_dc)
        ::DeleteEnhMetaFile(::CloseEnhMetaFile(m_dc));
}

Metafile::Drawn Metafile::End()
{
    const HENHMETAFILE file = ::CloseEnhMetaFile(m_dc);
    m_dc = nullptr;
    Drawn drawn;
    ::EnumEnhMetaFile(nullptr, file, &Metafile::Record, &drawn, nullptr);
    ::DeleteEnhMetaFile(file);
    return drawn;
}

int CALLBACK Metafile::Record(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM to)
{
    auto& drawn = *reinterpret_cast<Drawn*>(to);
    switch (record->iType) {
    case EMR_EXTTEXTOUTW: {
        const EMRTEXT& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
        const auto* chars = reinterpret_cast<const wchar_t*>(reinterpret_cast<const char*>(record) + text.offString);
        drawn.texts.push_back({std::wstring(chars, text.nChars), static_cast<int>(text.ptlReference.x),
                               static_cast<int>(text.ptlReference.y)});
        break;
    }
    case EMR_EXTCREATEFONTINDIRECTW:
        drawn.fonts.push_back(reinterpret_cast<const EMREXTCREATEFONTINDIRECTW*>(record)->elfw.elfLogFont);
        break;
    case EMR_SETTEXTCOLOR:
        drawn.textColors.push_back(reinterpret_cast<const EMRSETTEXTCOLOR*>(record)->crColor);
        break;
    case EMR_SETBKCOLOR:
        drawn.backColors.push_back(reinterpret_cast<const EMRSETBKCOLOR*>(record)->crColor);
        break;
    case EMR_LINETO:
        ++drawn.lines;
        break;
    default:
        break;
    }
    return 1;
}

std::vector<std::wstring> Metafile::Drawn::Words() const
{
    std::vector<std::wstring> words;
    for (const Text& text : texts)
        words.push_back(text.text);
    return words;
}
