#pragma once

#include <atomic>
#include <memory>

#include "tessara/platform/ui/dialogs/DataExchange.h"
#include "tessara/platform/ui/windows/Wnd.h"

namespace tessara {
class CMailbox;
struct CDialogTemplate;
} // namespace tessara

constexpr UINT DC_HASDEFID = 0x534B; ///< the high word of GetDefID when there is a default button

/// A dialog that is made from a template (see Resources.h).
///
/// Controls grow with the desktop's font, and the dialog grows where a text would not fit. Tab follows the
/// template; Enter presses the default button, or sends IDOK without one; Escape and the close box send
/// IDCANCEL, unless that button is disabled. A dialog belongs to the thread that makes it, whichever that is.
///
///     CDialog dialog(200, pOwner);
///     if (dialog.DoModal() == IDOK) ...
class TESSARA_API CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)

public:
    CDialog() = default;
    explicit CDialog(UINT nIDTemplate, CWnd* pParent = nullptr)
        : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParent) {}

    using CWnd::Create;
    /// Makes the dialog without waiting for it; it is shown when its template has WS_VISIBLE. Returns zero,
    /// and there is no window, when no template has that number or a handler has destroyed it.
    BOOL Create(UINT nIDTemplate, CWnd* pParent = nullptr);
    /// Shows the dialog, keeps its owner from input and runs the thread's loop until EndDialog, whose result
    /// it returns; -1 when the thread quits, IDCANCEL when the window is destroyed. The owner is that of the
    /// constructor, or the thread's active or main window. Throws CResourceException when there is no
    /// template, and what OnInitDialog throws.
    virtual int DoModal();
    /// Ends DoModal, from any thread; the last result before it returns counts. Hides a dialog that is not
    /// modal.
    void EndDialog(int nResult);

    /// Nonzero when the keyboard shall go to the first control; zero when the dialog has chosen.
    virtual BOOL OnInitDialog();

    /// Moves values from the members to the controls (zero) or back, through DoDataExchange.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    /// The number of the default button, with DC_HASDEFID above it; zero without one.
    DWORD GetDefID() const;
    void SetDefID(UINT nID);
    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(CWnd* pControl);

protected:
    virtual void OnOK();     ///< UpdateData and EndDialog(IDOK)
    virtual void OnCancel(); ///< EndDialog(IDCANCEL)
    virtual void DoDataExchange(CDataExchange*) {}

    /// Create for an owner that another thread may be ending meanwhile: zero also when it has gone. A null
    /// owner is none.
    BOOL CreateOwnedBy(UINT nIDTemplate, HWND hOwner);

    void OnClose();
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    UINT m_nIDTemplate = 0;
    CWnd* m_pParentWnd = nullptr;

private:
    BOOL CreateOver(UINT nIDTemplate, HWND hOwner);
    BOOL Build(const tessara::CDialogTemplate& resource, HWND hOwner);
    void Initialise();
    HWND FindOwner() const;

    std::shared_ptr<tessara::CMailbox> m_pLoop; ///< of the thread that runs DoModal; null when not modal
    std::atomic<bool> m_bEnded = false;
    std::atomic<int> m_nResult = 0;
};
