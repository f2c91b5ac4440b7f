#pragma once

#include <functional>

#include <QImage>
#include <gtest/gtest.h>

#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/platform/gdi/MetaFileDC.h"
#include "tessara/platform/gdi/MetafileRecorder.h"
#include "tessara/platform/qt/drawing/PainterSink.h"
#include "tests/support/MetafileReader.h"

inline void SelectFont(CDC& dc, LONG nHeight, const char* pszFace) {
    CFont font;
    const LOGFONT log = tessara::MakeLogFont(nHeight, pszFace);
    font.CreateFontIndirect(&log);
    dc.SelectObject(&font);
}

/// The pixels behind an image surface as they are now.
inline QImage ImageOf(const CDC& dc) {
    auto* pSink = static_cast<tessara::CPainterSink*>(dc.GetSink());
    return static_cast<const QImage&>(*pSink->GetPainter().device()).copy();
}

/// How many pixels of an image surface have a colour.
inline int CountPixels(const CImageDC& dc, COLORREF color) {
    const QImage image = ImageOf(dc);
    int nCount = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            nCount += image.pixelColor(x, y) == tessara::ToQColor(color);
        }
    }
    return nCount;
}

/// How many pixels of an image surface are no longer white.
inline int CountPainted(const CImageDC& dc) {
    const RECT rc = dc.GetClientRect();
    return rc.right * rc.bottom - CountPixels(dc, 0xFFFFFF);
}

/// What a recorded picture of a drawing says; faults of the format fail the test.
inline CMetafileReading Recorded(const std::function<void(CMetaFileDC&)>& draw) {
    CMetaFileDC picture;
    picture.Create();
    draw(picture);
    HMETAFILE hPicture = picture.Close();
    CMetafileReading reading = ReadMetafile(hPicture->GetBytes());
    DeleteMetaFile(hPicture);
    EXPECT_EQ(reading.faults, std::vector<std::string>());
    return reading;
}
