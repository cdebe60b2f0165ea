#pragma once

#include "appearance/AttribTableTune.h"

#include <cstdint>

/// The page of font and tabs.
class CDial1 final : public CTunePage {
public:
    static constexpr int templateId = 145;

    explicit CDial1(std::shared_ptr<xTTunePreview> preview) noexcept : CTunePage(std::move(preview)) {}

private:
    static const xTCommandRow<CDial1> commands[];

    void OnInit() override;
    void OnCommand(int id, int code) override { RunCommand<CDial1>(*this, Commands(), id, code); }
    [[nodiscard]] static std::span<const xTCommandRow<CDial1>> Commands() noexcept;

    void OnTabSizeLeft(int id);
    void OnTabMode(int id);
    void OnChooseFont(int id);
    bool AcceptTabSize() noexcept;
    void RefuseTabSize();
    void TakeTabs();

    std::int32_t m_tabSize = 4;  // the last one accepted
};
