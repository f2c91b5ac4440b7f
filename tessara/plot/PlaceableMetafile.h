#pragma once

#include <array>
#include <functional>

#include "tessara/platform/gdi/MetaFileDC.h"

// Plots as placeable metafiles: a 22-byte header that says where the picture lies and how large a unit is,
// followed by a Windows metafile.

namespace tessara {

constexpr std::size_t PLACEABLE_HEADER_SIZE = 22;

/// The header of a picture of the logical page with that many page units per inch.
TESSARA_API std::array<BYTE, PLACEABLE_HEADER_SIZE> MakePlaceableHeader(int nUnitsPerInch);

/// Page units per inch of a plot fitted into a client rectangle of the surface, 1 to 1440.
TESSARA_API int GetPageUnitsPerInch(CDC& dc, RECT rcClient);

/// Records what a renderer paints on the surface and the picture it is handed, and writes it to a file.
/// Returns 1 when the file was written, 0 when the picture could not be recorded or the file not be opened.
/// Throws CFileException when writing fails. Whatever fails, the file is as it was.
TESSARA_API int ExportPlaceable(CDC& dc, const RECT& rcClient, const char* pszFileName,
                                const std::function<void(CMetaFileDC& picture)>& paint);

} // namespace tessara
