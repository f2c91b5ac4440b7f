#pragma once

#include "tessara/phasediagram/PointReadOut.h"

namespace tessara {

/// The window that asks the program for a cross section of the binodal section through the marked point: the
/// user chooses the coordinate that is held.
class CCrossSectionDialog : public CPointReadOut {
public:
    static constexpr UINT TEMPLATE = 16450;

    explicit CCrossSectionDialog(CWnd* pParent) : CPointReadOut(pParent, TEMPLATE) {}

protected:
    void OnOK() override;
};

/// The extended Get Value window: lines that the program defines for each element.
class CElementReadOut : public CReadOutDialog {
public:
    static constexpr UINT TEMPLATE = 16451;
    static constexpr std::size_t SYMBOLS = 16;

    explicit CElementReadOut(CWnd* pParent) : CReadOutDialog(TEMPLATE, pParent, SYMBOLS) {}
};

} // namespace tessara
