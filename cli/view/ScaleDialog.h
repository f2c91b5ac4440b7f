#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/view/ShownPlot.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

namespace tessara {

/// The fields of one axis in the dialog. Their numbers follow that of the check box: From, To, Step and
/// Exponent.
class CScaleFields {
public:
    CScaleFields(CDialog& dialog, UINT nAutomatic, const char* pszAxis)
        : m_dialog(dialog), m_nAutomatic(nAutomatic), m_pszAxis(pszAxis) {}

    /// Shows the scale that is set or, greyed, the one that the plot has chosen.
    void Show(const std::optional<AXISSCALE>& scale, const AXISSCALE& chosen);
    /// Greys or enables the fields as the check box says.
    void FollowCheckBox();
    /// The scale that the user has entered, nothing for an automatic one. Throws CException, which says what
    /// is wrong with which axis, and leaves the keyboard in a field at fault.
    std::optional<AXISSCALE> Read();

private:
    bool IsAutomatic() const;
    double ReadNumber(UINT nField, const char* pszName);
    AXISSCALE ReadScale();
    void GoTo(UINT nField);

    CDialog& m_dialog;
    UINT m_nAutomatic;
    const char* m_pszAxis;
};

/// Asks for the scales of both axes. OK gives them to a function; what that throws, and what is wrong with
/// the entries, is shown in the dialog, which stays open.
class CScaleDialog : public CDialog {
public:
    enum Control : UINT { IDC_X_AUTOMATIC = 1001, IDC_Y_AUTOMATIC = 1011, IDC_PROBLEM = 1021 };

    /// The map tells where automatic axes end now.
    CScaleDialog(CWnd* pOwner, const CAxisScales& scales, const CPixelMap& map,
                 std::function<void(const CAxisScales&)> fnApply);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnAutomatic();
    DECLARE_MESSAGE_MAP()

private:
    CAxisScales m_scales;
    CPixelMap m_map;
    std::function<void(const CAxisScales&)> m_fnApply;
    CScaleFields m_x;
    CScaleFields m_y;
};

} // namespace tessara
