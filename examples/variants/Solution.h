#pragma once

#include <cmath>

#include <tessara/tessara.h>

constexpr UINT ID_LONGER = 32771;
constexpr UINT ID_KEEP = 32772;
constexpr UINT ID_BACK = 32773;

/// A document of an archive: a polymer in a solvent, of which the chains' length is known. Saved ones are the
/// variants of the Base "PS-cyclohexane".
class CSolution : public CBaseVariant {
    DECLARE_DYNCREATE(CSolution)

public:
    /// Segments of a chain, at least 1.
    int GetLength() const { return m_nLength; }
    /// The interaction parameter above which the solution can separate into two phases.
    double GetCriticalChi() const {
        const double dRoot = std::sqrt(static_cast<double>(m_nLength));
        return (1 + 1 / dRoot) * (1 + 1 / dRoot) / 2;
    }

    void Serialize(CArchive& ar) override {
        if (ar.IsStoring()) {
            ar << m_nLength;
            return;
        }
        int nLength = 0;
        ar >> nLength;
        if (nLength < 1 || nLength > MAX_LENGTH) { // a file may hold anything
            AfxThrowArchiveException(CArchiveException::badIndex);
        }
        m_nLength = nLength;
    }
    void DeleteContents() override { m_nLength = 1000; }
    void SetBaseName() override {
        m_strBaseName = "PS-cyclohexane";
        m_strBaseTag = "FH"; // by which theory
    }
    BOOL OnNewDocument() override {
        const BOOL bNew = CBaseVariant::OnNewDocument();
        SetBaseName();
        SetBaseVariantTitle();
        return bNew;
    }

protected:
    void OnLonger() {
        m_nLength = m_nLength > MAX_LENGTH / 2 ? MAX_LENGTH : 2 * m_nLength;
        Change();
    }
    void OnKeep() { SaveState(); }
    void OnBack() {
        if (m_bStateSaved) {
            RestoreState();
            Change();
        }
    }
    DECLARE_MESSAGE_MAP()

private:
    static constexpr int MAX_LENGTH = 1000000;

    void Change() {
        SetModifiedFlag();
        UpdateAllViews(nullptr);
    }

    int m_nLength = 1000;
};
