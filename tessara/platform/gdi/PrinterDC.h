#pragma once

#include <string>

#include "tessara/platform/gdi/DC.h"

namespace tessara {
class CPagedSink;
}

/// A printing surface: IsPrinting is true. Prints to a printer or, like a print dialog's "print to file",
/// into a PDF. Its ground is the paper: nothing is printed where nothing is drawn. Text has a transparent
/// background (CDC).
///
///     CPrinterDC dc("Plot", "plot.pdf");
///     plot.Paint(&dc, dc.GetClientRect(), nullptr);
///     dc.Close();
class TESSARA_API CPrinterDC : public CDC {
    DECLARE_DYNAMIC(CPrinterDC)

public:
    enum ColorMode { color, blackAndWhite };

    /// Starts a document on its first page, landscape A4. The title's bytes are read as all texts are
    /// (Text.h). A null or empty file name prints on the user's default printer; no file is written before
    /// Close. Throws CFileException when the printer cannot be opened, CGraphicsException as CDC says.
    CPrinterDC(const char* pszTitle, const char* pszFileName, ColorMode eColors = color);
    /// What was not closed goes no way: a file is as it was. A printer prints the pages.
    ~CPrinterDC() override;

    RECT GetClientRect() const; ///< the printable area in device units, left and top 0
    BOOL NewPage();             ///< zero when the printer refuses, and after Close
    /// Ends the document and writes the file, if it is one. Throws CFileException, as on a full disk; the
    /// file is then as it was. Further drawing does nothing.
    void Close();

private:
    std::string m_strPath;                   ///< empty for a printer
    tessara::CPagedSink* m_pPages = nullptr; ///< the sink, until Close
    RECT m_rcClient{0, 0, 0, 0};
};
