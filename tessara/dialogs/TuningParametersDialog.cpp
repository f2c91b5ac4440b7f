#include "tessara/dialogs/TuningParametersDialog.h"

#include <string>

#include "tessara/platform/ui/threads/MessageMap.h"

IMPLEMENT_DYNAMIC(CTuningParametersDialog, CDialog)

namespace {

constexpr int IDC_RESET = 3;
constexpr int IDC_RESET_ALL = 4;
constexpr int IDC_PARAMETERS = 1024;
constexpr int IDC_SLIDER = 1025;
constexpr int IDC_VALUE_LABEL = 1026;
constexpr int IDC_VALUE = 1027;
constexpr int IDC_MINIMUM = 1028;
constexpr int IDC_MAXIMUM = 1029;

constexpr int MIN_VALUE = 0;
constexpr int MAX_VALUE = 100;
constexpr int TICK = 10;

} // namespace

CTuningParameterInfo::CTuningParameterInfo(int nID, const char* lpszName, int bActive, int nValue,
                                           int nDefaultValue)
    : m_nID(nID), m_strName(lpszName), m_bActive(bActive), m_nValue(nValue), m_nDefaultValue(nDefaultValue) {}

CTuningParameterInfo::~CTuningParameterInfo() = default;

CTuningParametersDialog::CTuningParametersDialog(CWnd* pParent) : CDialog(TEMPLATE, pParent) {}

void CTuningParametersDialog::AddTuningParameter(int nID, const char* lpszName, int bActive, int nValue,
                                                 int nDefaultValue) {
    m_parameters.Add(CTuningParameterInfo(nID, lpszName, bActive, nValue, nDefaultValue));
}

const CTuningParameterInfo* CTuningParametersDialog::Find(int nID) const {
    for (int i = 0; i < m_parameters.GetSize(); ++i) {
        if (m_parameters[i].m_nID == nID) {
            return &m_parameters[i];
        }
    }
    return nullptr;
}

int CTuningParametersDialog::GetTuningParameterValue(int nID) {
    const CTuningParameterInfo* const pParameter = Find(nID);
    return pParameter ? pParameter->m_nValue : -1;
}

int CTuningParametersDialog::IsTuningParameterActive(int nID) {
    const CTuningParameterInfo* const pParameter = Find(nID);
    return pParameter ? pParameter->m_bActive : 0;
}

CTuningParameterInfo* CTuningParametersDialog::Selected() {
    const int nLine = m_listParameters.GetCurSel();
    return nLine >= 0 && nLine < m_parameters.GetSize() ? &m_parameters[nLine] : nullptr;
}

void CTuningParametersDialog::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PARAMETERS, m_listParameters);
    DDX_Control(pDX, IDC_SLIDER, m_slider);
}

BOOL CTuningParametersDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    for (int i = 0; i < m_parameters.GetSize(); ++i) {
        m_listParameters.SetCheck(m_listParameters.AddString(m_parameters[i].m_strName),
                                  m_parameters[i].m_bActive);
    }
    m_slider.SetRange(MIN_VALUE, MAX_VALUE);
    m_slider.SetTicFreq(TICK);
    OnSelchangeListParameters();
    return TRUE;
}

void CTuningParametersDialog::OnOK() {
    CDialog::OnOK();
}

void CTuningParametersDialog::OnSelchangeListParameters() {
    const CTuningParameterInfo* const pParameter = Selected();
    EnableSlider(pParameter && pParameter->m_bActive);
    SetSliderParameters(pParameter != nullptr, pParameter ? pParameter->m_nValue : 0);
}

void CTuningParametersDialog::OnChkChangeListParameters() {
    if (CTuningParameterInfo* const pParameter = Selected()) {
        pParameter->m_bActive = m_listParameters.GetCheck(m_listParameters.GetCurSel());
    }
    OnSelchangeListParameters();
}

void CTuningParametersDialog::EnableSlider(int bEnable) {
    for (const int nID : {IDC_VALUE_LABEL, IDC_VALUE, IDC_MINIMUM, IDC_SLIDER, IDC_MAXIMUM}) {
        if (CWnd* const pControl = GetDlgItem(nID)) {
            pControl->EnableWindow(bEnable);
        }
    }
}

void CTuningParametersDialog::SetSliderParameters(int bShow, int nValue) {
    const struct {
        int nID;
        int nNumber;
    } numbers[] = {{IDC_VALUE, nValue}, {IDC_MINIMUM, MIN_VALUE}, {IDC_MAXIMUM, MAX_VALUE}};
    for (const auto& [nID, nNumber] : numbers) {
        if (CWnd* const pControl = GetDlgItem(nID)) {
            pControl->ShowWindow(bShow ? SW_SHOW : SW_HIDE);
        }
        SetDlgItemText(nID, bShow ? std::to_string(nNumber).c_str() : "");
    }
    if (bShow) {
        m_slider.SetPos(nValue);
    }
}

void CTuningParametersDialog::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
    if (CTuningParameterInfo* const pParameter = Selected()) {
        pParameter->m_nValue = m_slider.GetPos();
        SetDlgItemText(IDC_VALUE, std::to_string(pParameter->m_nValue).c_str());
    }
    CDialog::OnHScroll(nSBCode, nPos, pScrollBar);
}

void CTuningParametersDialog::OnReset() {
    if (CTuningParameterInfo* const pParameter = Selected()) {
        pParameter->m_nValue = pParameter->m_nDefaultValue;
    }
    OnSelchangeListParameters();
}

void CTuningParametersDialog::OnResetAll() {
    for (int i = 0; i < m_parameters.GetSize(); ++i) {
        m_parameters[i].m_nValue = m_parameters[i].m_nDefaultValue;
    }
    OnSelchangeListParameters();
}

BEGIN_MESSAGE_MAP(CTuningParametersDialog, CDialog)
ON_WM_HSCROLL()
ON_LBN_SELCHANGE(IDC_PARAMETERS, OnSelchangeListParameters)
ON_CLBN_CHKCHANGE(IDC_PARAMETERS, OnChkChangeListParameters)
ON_BN_CLICKED(IDC_RESET, OnReset)
ON_BN_CLICKED(IDC_RESET_ALL, OnResetAll)
END_MESSAGE_MAP()
