#pragma once

#include "tessara/platform/base/Array.h"
#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/controls/SliderCtrl.h"
#include "tessara/platform/ui/dialogs/Dialog.h"

/// A number that tunes a calculation, and that the user can switch off.
class TESSARA_API CTuningParameterInfo {
public:
    CTuningParameterInfo() = default;
    CTuningParameterInfo(int nID, const char* lpszName, int bActive, int nValue, int nDefaultValue);
    CTuningParameterInfo(const CTuningParameterInfo&) = default;
    CTuningParameterInfo(CTuningParameterInfo&&) noexcept = default;
    CTuningParameterInfo& operator=(const CTuningParameterInfo&) = default;
    CTuningParameterInfo& operator=(CTuningParameterInfo&&) noexcept = default;
    virtual ~CTuningParameterInfo();

    int m_nID = 0; ///< the application's
    CString m_strName;
    int m_bActive = 0;
    int m_nValue = 0;        ///< 0 to 100 once the slider has set it
    int m_nDefaultValue = 0; ///< what Reset makes of the value
};

/// Shows parameters with check boxes that switch them on and off, and a slider for the value of the selected
/// one. What the user has changed counts after Cancel too.
///
///     CTuningParametersDialog dialog(this);
///     dialog.AddTuningParameter(7, "Damping", 1, 30, 50);
///     dialog.DoModal();
///     const int nDamping = dialog.IsTuningParameterActive(7) ? dialog.GetTuningParameterValue(7) : 0;
class TESSARA_API CTuningParametersDialog : public CDialog {
    DECLARE_DYNAMIC(CTuningParametersDialog)

public:
    static constexpr UINT TEMPLATE = 16452;

    explicit CTuningParametersDialog(CWnd* pParent = nullptr);

    CCheckListBox m_listParameters;
    CSliderCtrl m_slider;
    CArray<CTuningParameterInfo> m_parameters; ///< in the order in which they were added

    /// Before DoModal.
    void AddTuningParameter(int nID, const char* lpszName, int bActive, int nValue, int nDefaultValue);
    /// Of the first parameter with that number; -1 without one.
    int GetTuningParameterValue(int nID);
    /// Of the first parameter with that number; 0 without one.
    int IsTuningParameterActive(int nID);
    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    void OnSelchangeListParameters();
    void OnChkChangeListParameters();
    void OnReset();
    void OnResetAll();
    /// Enables the slider and what belongs to it, or greys it.
    void EnableSlider(int bEnable);
    /// Shows a value at the slider, or nothing.
    void SetSliderParameters(int bShow, int nValue);
    DECLARE_MESSAGE_MAP()

private:
    const CTuningParameterInfo* Find(int nID) const;
    CTuningParameterInfo* Selected();
};
