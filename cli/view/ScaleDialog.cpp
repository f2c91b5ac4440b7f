#include "cli/view/ScaleDialog.h"

#include <cmath>

#include "cli/InputError.h"
#include "cli/view/ViewerResources.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Number.h"
#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/resources/Resources.h"

namespace tessara {

namespace {

enum Field : UINT { AUTOMATIC, FROM, TO, STEP, EXPONENT };

constexpr DWORD SHOWN = WS_VISIBLE;
constexpr DWORD STOP = WS_VISIBLE | WS_TABSTOP;
constexpr DWORD EDIT = STOP | WS_BORDER | ES_AUTOHSCROLL;
constexpr UINT X = CScaleDialog::IDC_X_AUTOMATIC;
constexpr UINT Y = CScaleDialog::IDC_Y_AUTOMATIC;

constexpr CDialogItem ITEMS[] = {
    {"Button", IDC_STATIC, "Horizontal axis", 7, 7, 126, 92, SHOWN | BS_GROUPBOX},
    {"Button", X, "&Automatic", 15, 19, 110, 10, STOP | BS_AUTOCHECKBOX},
    {"Static", IDC_STATIC, "&From:", 15, 36, 38, 9, SHOWN},
    {"Edit", X + FROM, "", 55, 34, 70, 12, EDIT},
    {"Static", IDC_STATIC, "&To:", 15, 51, 38, 9, SHOWN},
    {"Edit", X + TO, "", 55, 49, 70, 12, EDIT},
    {"Static", IDC_STATIC, "&Step:", 15, 66, 38, 9, SHOWN},
    {"Edit", X + STEP, "", 55, 64, 70, 12, EDIT},
    {"Static", IDC_STATIC, "&Exponent:", 15, 81, 38, 9, SHOWN},
    {"Edit", X + EXPONENT, "", 55, 79, 70, 12, EDIT},
    {"Button", IDC_STATIC, "Vertical axis", 140, 7, 126, 92, SHOWN | BS_GROUPBOX},
    {"Button", Y, "A&utomatic", 148, 19, 110, 10, STOP | BS_AUTOCHECKBOX},
    {"Static", IDC_STATIC, "F&rom:", 148, 36, 38, 9, SHOWN},
    {"Edit", Y + FROM, "", 188, 34, 70, 12, EDIT},
    {"Static", IDC_STATIC, "T&o:", 148, 51, 38, 9, SHOWN},
    {"Edit", Y + TO, "", 188, 49, 70, 12, EDIT},
    {"Static", IDC_STATIC, "Ste&p:", 148, 66, 38, 9, SHOWN},
    {"Edit", Y + STEP, "", 188, 64, 70, 12, EDIT},
    {"Static", IDC_STATIC, "E&xponent:", 148, 81, 38, 9, SHOWN},
    {"Edit", Y + EXPONENT, "", 188, 79, 70, 12, EDIT},
    {"Static", CScaleDialog::IDC_PROBLEM, "", 7, 104, 259, 18, SHOWN | SS_NOPREFIX},
    {"Button", IDOK, "OK", 162, 126, 50, 14, STOP | BS_DEFPUSHBUTTON},
    {"Button", IDCANCEL, "Cancel", 216, 126, 50, 14, STOP}};
constexpr CDialogTemplate DIALOGS[] = {{IDD_VIEWER_SCALES, "Custom Scale", 0, 0, 273, 147,
                                        WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, ITEMS}};

/// The shortest text that is read as the same number.
std::string ExactText(double dValue) {
    constexpr int MAX_DIGITS = 17;
    std::string strText;
    for (int nDigits = 6; nDigits <= MAX_DIGITS; ++nDigits) {
        strText = FormatText("%.*g", nDigits, dValue);
        if (ParseNumber(strText.c_str()) == dValue) {
            break;
        }
    }
    return strText;
}

std::string RoundText(double dValue) {
    return FormatText("%.6g", dValue);
}

/// The scale that the plot chooses for an axis of that length.
AXISSCALE ChosenScale(double dLower, double dUpper) {
    CHOOSESCALE scale;
    scale.dMin = dLower;
    scale.dMax = dUpper;
    ChooseScale(&scale);
    return {dLower, dUpper, scale.dStep, scale.nExponent};
}

} // namespace

void CScaleFields::Show(const std::optional<AXISSCALE>& scale, const AXISSCALE& chosen) {
    const auto fnShow = [this](UINT nField, const std::string& strText) {
        m_dialog.SetDlgItemText(static_cast<int>(m_nAutomatic + nField), strText.c_str());
    };
    const auto fnNumber = scale ? &ExactText : &RoundText;
    const AXISSCALE& shown = scale ? *scale : chosen;
    fnShow(FROM, fnNumber(shown.dFrom));
    fnShow(TO, fnNumber(shown.dTo));
    fnShow(STEP, fnNumber(shown.dStep));
    fnShow(EXPONENT, std::to_string(shown.nExponent));
    static_cast<CButton*>(m_dialog.GetDlgItem(static_cast<int>(m_nAutomatic)))->SetCheck(!scale);
    FollowCheckBox();
}

bool CScaleFields::IsAutomatic() const {
    return static_cast<const CButton*>(m_dialog.GetDlgItem(static_cast<int>(m_nAutomatic)))->GetCheck() != 0;
}

void CScaleFields::FollowCheckBox() {
    for (const UINT nField : {FROM, TO, STEP, EXPONENT}) {
        m_dialog.GetDlgItem(static_cast<int>(m_nAutomatic + nField))->EnableWindow(!IsAutomatic());
    }
}

void CScaleFields::GoTo(UINT nField) {
    m_dialog.GotoDlgCtrl(m_dialog.GetDlgItem(static_cast<int>(m_nAutomatic + nField)));
}

double CScaleFields::ReadNumber(UINT nField, const char* pszName) {
    CString strText;
    m_dialog.GetDlgItemText(static_cast<int>(m_nAutomatic + nField), strText);
    strText.TrimRight();
    const std::optional<double> value = ParseNumber(strText);
    if (!value || !std::isfinite(*value)) {
        GoTo(nField);
        throw CException(std::string(pszName) + (strText.IsEmpty()
                                                     ? " is empty"
                                                     : ": " + Quoted(strText.View()) + " is not a number"));
    }
    return *value;
}

AXISSCALE CScaleFields::ReadScale() {
    const double dFrom = ReadNumber(FROM, "From");
    const double dTo = ReadNumber(TO, "To");
    const double dStep = ReadNumber(STEP, "Step");
    const double dExponent = ReadNumber(EXPONENT, "Exponent");
    GoTo(dFrom < dTo ? STEP : FROM);
    return MakeAxisScale(dFrom, dTo, dStep, dExponent, {"From", "To", "Step", "Exponent"});
}

std::optional<AXISSCALE> CScaleFields::Read() {
    if (IsAutomatic()) {
        return std::nullopt;
    }
    try {
        return ReadScale();
    } catch (const CException& error) {
        throw CException(std::string(m_pszAxis) + ": " + error.what());
    }
}

CScaleDialog::CScaleDialog(CWnd* pOwner, const CAxisScales& scales, const CPixelMap& map,
                           std::function<void(const CAxisScales&)> fnApply)
    : CDialog(IDD_VIEWER_SCALES, pOwner), m_scales(scales), m_map(map), m_fnApply(std::move(fnApply)),
      m_x(*this, IDC_X_AUTOMATIC, "Horizontal axis"), m_y(*this, IDC_Y_AUTOMATIC, "Vertical axis") {
    if (!FindDialogTemplate(IDD_VIEWER_SCALES)) {
        AddResources({DIALOGS, {}});
    }
}

BOOL CScaleDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    AXISSCALE x = ChosenScale(m_map.dXLower, m_map.dXUpper);
    x.nExponent = 0; // plots write the values themselves at a horizontal axis
    m_x.Show(m_scales.x, x);
    m_y.Show(m_scales.y, ChosenScale(m_map.dYLower, m_map.dYUpper));
    return TRUE;
}

void CScaleDialog::OnAutomatic() {
    m_x.FollowCheckBox();
    m_y.FollowCheckBox();
    SetDlgItemText(IDC_PROBLEM, "");
}

void CScaleDialog::OnOK() {
    try {
        const std::optional<AXISSCALE> x = m_x.Read();
        m_fnApply({x, m_y.Read()});
        CDialog::OnOK();
    } catch (const CException& error) {
        SetDlgItemText(IDC_PROBLEM, error.what());
    }
}

BEGIN_MESSAGE_MAP(CScaleDialog, CDialog)
ON_BN_CLICKED(IDC_X_AUTOMATIC, OnAutomatic)
ON_BN_CLICKED(IDC_Y_AUTOMATIC, OnAutomatic)
END_MESSAGE_MAP()

} // namespace tessara
