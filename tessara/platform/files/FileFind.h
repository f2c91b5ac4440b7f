#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tessara/platform/base/Object.h"
#include "tessara/platform/base/String.h"

/// Finds the entries of a folder whose names match a pattern.
///
/// The folder is read once, by FindFile, and its entries are given in the order of their names' bytes, "."
/// and ".." among them. In the name part '*' is any number of characters, '?' one character (of UTF-8, or a
/// byte that is none); "*.*" matches all names. Case counts, as it does in the folder. What GetLength and the
/// Is... functions say is looked up when an entry is gone to: links are followed, but for IsSymbolicLink and
/// IsRegularFile, which tell what is safe to open in a folder that others write to. One thread at a time.
///
///     CFileFind finder;
///     BOOL bMore = finder.FindFile("/var/data/Archive/*.bas");
///     while (bMore) {
///         bMore = finder.FindNextFile();
///         if (finder.IsRegularFile()) {
///             Add(finder.GetFileName());
///         }
///     }
class TESSARA_API CFileFind : public CObject {
    DECLARE_DYNAMIC(CFileFind)

public:
    CFileFind();
    ~CFileFind() override;

    /// Begins a search; null means all entries of the working folder. Returns whether there is anything to
    /// find: not where the folder cannot be read.
    BOOL FindFile(const char* pszPattern = nullptr, DWORD dwUnused = 0);
    /// Goes to the next entry, at first the first one. Returns whether there is another one after it.
    BOOL FindNextFile();
    /// Ends the search. Without an entry all names are empty, the length 0 and all answers false.
    void Close();

    CString GetFileName() const;  ///< with its extension
    CString GetFileTitle() const; ///< without it
    CString GetFilePath() const;  ///< absolute
    CString GetRoot() const;      ///< the folder, absolute, with a slash at its end
    std::uint64_t GetLength() const;

    BOOL IsDots() const; ///< "." or ".."
    BOOL IsDirectory() const;
    BOOL IsHidden() const; ///< a dot in front
    BOOL IsReadOnly() const;
    BOOL IsSymbolicLink() const;
    BOOL IsRegularFile() const; ///< itself, not what a link leads to

private:
    void LookUp();

    struct STATE {
        std::uint64_t nLength = 0;
        bool bDirectory = false;
        bool bReadOnly = false;
        bool bLink = false;
        bool bRegular = false;
    };

    std::string m_strRoot;
    std::vector<std::string> m_names;
    std::size_t m_nNext = 0; ///< the current entry is the one before; 0 for none
    STATE m_state;
};
