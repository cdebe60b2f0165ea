#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// The log beside the test program: what comes into it from the making of this on.
class HostLog {
public:
    HostLog() : m_from(All().size()) {}

    [[nodiscard]] std::string News() const { return All().substr(m_from); }

private:
    [[nodiscard]] static std::string All()
    {
        wchar_t program[MAX_PATH] = L"";
        ::GetModuleFileNameW(nullptr, program, MAX_PATH);
        const auto path = std::filesystem::path(program).replace_filename("scrivctl.log");
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::size_t m_from;
};
