#pragma once

#include "appearance/AttribTableTune.h"
#include "appearance/ColorSelect.h"

#include <cstdint>

/// The page of colours and styles; it shows the preview itself.
class CDial2 final : public CTunePage {
public:
    static constexpr int templateId = 146;

    explicit CDial2(std::shared_ptr<xTTunePreview> preview) noexcept : CTunePage(std::move(preview)) {}

private:
    static const xTCommandRow<CDial2> commands[];

    void OnInit() override;
    void OnClose() override;
    void OnCommand(int id, int code) override { RunCommand<CDial2>(*this, Commands(), id, code); }
    [[nodiscard]] static std::span<const xTCommandRow<CDial2>> Commands() noexcept;

    void OnHighlight(int id);
    void OnTheme(int id);
    void OnElement(int id);
    void OnStyle(int id);
    void OnColor(int id);

    void FillLists();
    void MakeGrid();
    void TakePreview();
    void ShowElement(const xTAttribTable& table);
    void EnableAll(bool on) noexcept;
    [[nodiscard]] std::uint32_t SelectedFlag() const;
    [[nodiscard]] CColorSelectCtrl* Grid() const noexcept;

    HWND m_formerParent = nullptr;  // of the preview, before the page took it
};
