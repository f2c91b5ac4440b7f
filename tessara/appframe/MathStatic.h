#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A control that shows its text as indexed text (see IndexedText.h), in black or grey as the desktop shows
/// texts, and in the size of its parent's font times a factor.
///
/// Once a program has made an object, dialog templates may name the class "CPMathStaticControl".
///
///     CMathStatic m_formula;                            // a member of a dialog
///     DDX_Control(pDX, 1006, m_formula);
///     m_formula.SetWindowText("c~G = A + B/T~i");
class TESSARA_API CMathStatic : public CWnd {
    DECLARE_DYNCREATE(CMathStatic)

public:
    /// Throws CResourceException when the class cannot be made known.
    CMathStatic();

    enum EAlignment : int { left = 0, centred = 1, right = 2 };
    int m_nAlignment = left;
    double m_dFontScale = 1.0;

    void SetFontScale(double dScale);

    BOOL OnPaintReflectEx() { return FALSE; }

protected:
    /// Makes the window class known, once in a process. Zero when that fails.
    int RegisterWindowClass();

    void OnPaint();
    void OnEnable(BOOL bEnable);
    DECLARE_MESSAGE_MAP()

private:
    int GetTextSize() const;
};
