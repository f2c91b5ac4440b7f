#pragma once

#include <string>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/FileStamp.h"
#include "tessara/document/VariantHeader.h"
#include "tessara/platform/files/File.h"

namespace tessara {

/// What a save wizard has decided and nobody has saved yet: the front of a file that does not exist, or that
/// still holds the variant to be replaced. The wizard leaves it here, and the opening of that path for
/// writing finds it, so that what is on the disk stays whole until the document's data follow.
///
/// An object is found from its making to its end, by this process alone. Main thread.
class CPendingVariant {
public:
    /// A variant in the file of another, or in one of its own, whose title changes when somebody else has
    /// taken it.
    enum class EKind { replacing, creating };

    CPendingVariant(EKind eKind, const CArchiveFolder& folder, const std::string& strTitle,
                    const CVariantHeader& header, const std::string& strComment);
    ~CPendingVariant();
    CPendingVariant(const CPendingVariant&) = delete;
    CPendingVariant& operator=(const CPendingVariant&) = delete;

    /// The one of a path, or null.
    static CPendingVariant* Find(const char* lpszPath);

    /// Makes the archive's folder where there is none yet, or throws CFileException.
    void MakeFolder() const;
    /// Writes header and comment, with a zero behind the comment that the document's data overwrite.
    void Write(CFile& file) const;

    EKind GetKind() const { return m_eKind; }
    /// The file that held the variant to be replaced when the wizard chose it; nothing for a new one.
    const std::optional<CFileStamp>& GetReplaced() const { return m_replaced; }
    std::string GetPath() const { return m_folder.PathOf(m_strTitle); }
    std::string GetFileName() const { return m_folder.NameOf(m_strTitle); }
    void TakeNextTitle() { m_strTitle = TitleAfter(m_strTitle); }

private:
    EKind m_eKind;
    CArchiveFolder m_folder;
    std::string m_strTitle;
    CVariantHeader m_header;
    std::string m_strComment;
    std::optional<CFileStamp> m_replaced;
};

} // namespace tessara
