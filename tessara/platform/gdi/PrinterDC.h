#pragma once

#include "tessara/platform/gdi/DC.h"

/// A printing surface: IsPrinting is true. Prints to a printer or, like a print dialog's "print to file",
/// into a PDF. Its ground is the paper: nothing is printed where nothing is drawn. Text has a transparent
/// background (CDC).
class TESSARA_API CPrinterDC : public CDC {
    DECLARE_DYNAMIC(CPrinterDC)

public:
    enum ColorMode { color, blackAndWhite };

    /// Starts a document of that title on its first page, landscape A4. A null file name prints on the user's
    /// default printer. Throws CFileException when the printer or the file cannot be opened,
    /// CGraphicsException as CDC says.
    CPrinterDC(const char* pszTitle, const char* pszFileName, ColorMode eColors = color);
    ~CPrinterDC() override;

    RECT GetClientRect() const; ///< the printable area in device units, left and top 0
    BOOL NewPage();
    /// Ends the document. Further drawing does nothing.
    void Close();

private:
    RECT m_rcClient{0, 0, 0, 0};
};
