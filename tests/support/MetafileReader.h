#pragma once

#include <span>
#include <string>
#include <vector>

/// What a Windows metafile says, read by a reader that shares no code with the writer.
struct CMetafileReading {
    /// One line for each record, the header (and a placeable header) first, the end record last:
    ///
    ///     SetWindowExt 5120 3680
    ///     CreatePen style 0 width 32 colour 000000 -> 0
    ///     Polyline 3: 0,0 100,50 200,0
    ///     ExtTextOut 284,88 "c" [67]
    ///
    /// Colours are 00BBGGRR; polylines of many points are shown by their ends, their bounds and a checksum.
    std::vector<std::string> lines;
    /// One line for each breach of the format: wrong sizes or counts, a handle that is not the lowest free
    /// one, not alive or of no use, anything behind the end record. Empty for a sound file.
    std::vector<std::string> faults;

    std::string GetText() const; ///< all lines, each ended by a line feed
};

CMetafileReading ReadMetafile(std::span<const unsigned char> bytes);
