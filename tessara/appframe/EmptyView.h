#pragma once

#include "tessara/platform/ui/frames/View.h"

class CBaseVariant;

/// The view while no Base Variant is open. When it becomes active for the first time it welcomes the user
/// with the choice of a new Base Variant, the last one or another one of the archive, unless the user has
/// switched that off (the setting "ShowWelcomeDialog" of "Preferences").
class TESSARA_API CEmptyView : public CView {
    DECLARE_DYNCREATE(CEmptyView)

public:
    int m_bWelcomeDone = 0;

protected:
    CEmptyView() = default;

    void OnDraw(CDC* pDC) override;
    void OnActivateView(BOOL bActivate, CView* pActivateView, CView* pDeactiveView) override;

private:
    static void Welcome(CBaseVariant& variant);
};
