#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tessara/document/ArchiveEntry.h"
#include "tessara/document/VariantHeader.h"
#include "tessara/platform/base/Api.h"

namespace tessara {

class CDescriptor;

/// A file of an archive's extension, and what is wrong with it in a few words; empty for nothing.
struct CArchiveFinding {
    std::string strName;
    std::string strFault;
};

/// The folder of an archive of Bases, and what lies in it. Files come and go while it is used: each operation
/// looks anew.
///
/// Only plain files count that end in a dot and the extension (upper and lower case differ) and have a title
/// of 1 to 8 characters. Symbolic links, pipes, devices and folders of such a name are left out, and opened
/// by nobody. A folder that is missing or cannot be read is an empty archive.
class TESSARA_API CArchiveFolder {
public:
    /// The directory ends in a slash; the extension has no dot.
    CArchiveFolder(const char* lpszArchiveDirectory, const char* lpszExtension);

    /// Whether no file matches, whatever it holds.
    bool IsEmpty() const;
    /// The variants, by Base name (byte by byte) and number; of equals the file's title decides. What is no
    /// file of the format is left out.
    std::vector<ARCHIVEENTRY> List() const;

    /// Everything of the extension, sorted by name: what keeps a file out of the list, a comment that is not
    /// whole, a number that two variants of a Base have.
    std::vector<CArchiveFinding> Check() const;

    /// The folder of that path as it is now: another may have come there, or none be left.
    CArchiveFolder Anew() const;

    std::string PathOf(const std::string& strTitle) const;
    std::string NameOf(const std::string& strTitle) const;
    /// Removes a variant's file, or throws CFileException. One that has gone by itself is no failure.
    void Remove(const ARCHIVEENTRY& entry) const;
    /// Whether an entry's file is there and still that variant's.
    bool Has(const ARCHIVEENTRY& entry) const;
    /// The header of a file of the list; nothing for others.
    std::optional<CVariantHeader> ReadHeader(const std::string& strTitle) const;
    /// The comment of a variant, empty without one; nothing when the file cannot be read.
    std::optional<std::string> ReadComment(const std::string& strTitle) const;

private:
    std::vector<std::string> Names() const;
    std::vector<std::string> Titles() const;
    bool IsTitle(std::string_view strName) const;
    std::string FaultOf(const std::string& strName) const;
    CDescriptor OpenFile(const std::string& strTitle) const;

    std::string m_strDirectory;
    std::string m_strSuffix;                      ///< with its dot
    std::shared_ptr<const CDescriptor> m_pFolder; ///< none where there is no folder
};

/// Whether both have the same file, Base, number and name.
TESSARA_API bool IsSameVariant(const ARCHIVEENTRY& first, const ARCHIVEENTRY& second);

/// The title of the next new file of an archive with these files: bas00001 and on, one after the highest
/// number.
TESSARA_API std::string NextTitle(const std::vector<ARCHIVEENTRY>& entries);
/// The one after a title; after bas99999, for titles have no more than 8 characters, bas00001.
TESSARA_API std::string TitleAfter(const std::string& strTitle);

} // namespace tessara
