#pragma once

#include <QPointer>
#include <utility>

namespace tessara {

/// A dialog of Qt's for the time of a function. Its owner may be destroyed while it runs, and takes it along:
/// then it is null, and its exec has returned QDialog::Rejected.
template <class DIALOG>
class COwnedDialog {
public:
    template <class... ARGUMENTS>
    explicit COwnedDialog(ARGUMENTS&&... arguments)
        : m_pDialog(new DIALOG(std::forward<ARGUMENTS>(arguments)...)) {}
    ~COwnedDialog() { delete m_pDialog; }
    COwnedDialog(const COwnedDialog&) = delete;
    COwnedDialog& operator=(const COwnedDialog&) = delete;

    DIALOG* operator->() const { return m_pDialog; }
    explicit operator bool() const { return !m_pDialog.isNull(); }

private:
    QPointer<DIALOG> m_pDialog;
};

} // namespace tessara
