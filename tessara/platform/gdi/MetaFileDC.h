#pragma once

#include <memory>

#include "tessara/platform/gdi/DC.h"

namespace tessara {

class CMetafileRecorder;
class CPicture;

} // namespace tessara

/// A finished recorded picture; release it with DeleteMetaFile.
using HMETAFILE = const tessara::CPicture*;

/// A surface that records what is drawn on it as a Windows metafile in memory.
///
/// Records hold logical coordinates (cut to 16 bits); the mapping of the program that plays the picture
/// places them. Set the window origin and extent to the frame first, so that players know it. Text is
/// recorded in Windows-1252. The picture cannot be measured: GetPixel reads nothing.
///
///     CMetaFileDC picture;
///     picture.Create();
///     picture.MoveTo(0, 0);
///     picture.LineTo(100, 100);
///     HMETAFILE hPicture = picture.Close();
class TESSARA_API CMetaFileDC : public CDC {
    DECLARE_DYNAMIC(CMetaFileDC)

public:
    CMetaFileDC();
    ~CMetaFileDC() override;

    /// Starts recording in memory. Fails (zero) when it is recording already or a file name is given:
    /// pictures are written to files by their users, see tessara::ExportPlaceable.
    BOOL Create(const char* pszFileName = nullptr);
    /// Ends recording and returns the picture, which the caller releases; null when nothing was recording.
    HMETAFILE Close();
};

/// The picture's bytes. With a null pointer, only their number; otherwise copies at most nSize bytes and
/// returns how many, 0 for a null picture.
TESSARA_API UINT GetMetaFileBitsEx(HMETAFILE hPicture, UINT nSize, void* pData);

/// Releases a picture. Zero for a null one.
TESSARA_API BOOL DeleteMetaFile(HMETAFILE hPicture);
