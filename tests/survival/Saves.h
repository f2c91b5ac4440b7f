#pragma once

#include <string>
#include <vector>

#include "tests/survival/FileCalls.h"

/// How a document gets into an archive.
enum class EWay {
    asNew,       ///< as a new variant
    asNewByLink, ///< the same on a file system that cannot rename without replacing
    inPlace,     ///< into its own file
    over         ///< over a variant of its Base
};

/// A save that is tried: its way, and how many bytes of data the document has.
struct CTrial {
    EWay eWay;
    std::size_t nSize;

    std::string GetText() const;
};

/// How the trial's document is saved: as the library does, or as it must not be done, by writing into the
/// file.
using CSaver = std::function<void(const CTrial&, const std::string& strArchive, int nReport)>;

/// Saves through the document's DoSave, with what a save wizard would have decided. Reports "saved" or
/// "failed" once that returns, "modified" where the document is then, and the text of each message box.
void SaveDocument(const CTrial& trial, const std::string& strArchive, int nReport);
void SaveUnsafely(const CTrial& trial, const std::string& strArchive, int nReport);

/// Shows a message box and closes it. What the first one of a process takes its time for, those of its copies
/// have then.
void ShowBox();

/// An archive with a variant of the document's Base and one of another, before and after a trial.
///
/// It lies in the folder that TESSARA_SURVIVAL_ARCHIVE names, a file system to be tried, or in a temporary
/// one.
class CTrialArchive {
public:
    CTrialArchive();
    ~CTrialArchive();
    CTrialArchive(const CTrialArchive&) = delete;
    CTrialArchive& operator=(const CTrialArchive&) = delete;

    const std::string& GetFolder() const { return m_strArchive; }
    /// The file that a trial writes.
    std::string TargetOf(const CTrial& trial) const;

    /// Makes the archive as it is before a trial, on the disk.
    void Fill(const CTrial& trial) const;
    /// What is wrong with the variants, be the trial's the old one or the new one; empty for nothing.
    std::string Fault(const CTrial& trial) const;
    /// Whether the trial's variant is the new one.
    bool IsNew(const CTrial& trial) const;
    /// The bytes of the trial's new file.
    std::size_t NewSize(const CTrial& trial) const;
    /// Files that are no variants.
    std::vector<std::string> Strays() const;

    /// Runs a save in a process of its own, in which each call on the archive is decided upon, and in saves
    /// in place those on the user's settings, which follow every save.
    CWatchedEnd Run(const CSaver& save, const CTrial& trial,
                    const std::function<CVerdict(const FILECALL&)>& decide) const;
    /// Whether a process of its own that nobody disturbs saves the new variant.
    bool CanSave(const CTrial& trial) const;

private:
    std::string m_strRoot;
    std::string m_strArchive;
};
