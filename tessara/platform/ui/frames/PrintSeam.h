#pragma once

#include <functional>
#include <memory>

#include "tessara/platform/gdi/DrawSink.h"
#include "tessara/platform/ui/frames/PrintInfo.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

namespace tessara {

/// A printer, a file that stands for one, or a preview. Main thread.
class CPrintTarget {
public:
    virtual ~CPrintTarget() = default;
    /// Shows the print dialog; false when the user cancels.
    virtual bool Ask(CPrintInfo& info, HWND hOwner) = 0;
    /// Starts a document on its first page. Throws CFileException when the printer cannot be opened.
    virtual std::unique_ptr<CDrawSink> Start(const CString& strTitle) = 0;
    virtual bool NewPage() = 0;
    /// Ends the document; its surface has gone. Throws CFileException when it was printed into a file that
    /// cannot be written, which is then as it was.
    virtual void Finish() = 0;
};

/// A target on the user's default printer, or on the PDF of that name when it is not empty.
std::unique_ptr<CPrintTarget> MakePrintTarget(const CString& strFileName);

/// Shows the preview until it is closed. The function prints all pages on a target, as often as it is asked.
void ShowPreview(HWND hOwner, const std::function<void(std::unique_ptr<CPrintTarget>)>& fnPrint);

} // namespace tessara
