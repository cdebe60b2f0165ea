#pragma once

/// The numbers of the controls on both pages, as hosts and their users' tools know them.
enum : int {
    idTabSize = 1005, idTheme = 1011, idSample = 1013, idElements = 1014, idHighlight = 1015, idBold = 1016,
    idItalic = 1017, idUnderline = 1018, idSpaces = 1028, idTabs = 1029, idFont = 1030, idGridPlace = 1031,
    idPreviewPlace = 1032, idGrid = 1033,
};
