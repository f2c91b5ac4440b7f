#pragma once

#include <string>
#include <vector>

/// A new empty folder, removed with everything in it at the end of the test.
class CFolder {
public:
    CFolder();
    ~CFolder();
    CFolder(const CFolder&) = delete;
    CFolder& operator=(const CFolder&) = delete;

    std::string Path(const std::string& strName) const { return m_strPath + "/" + strName; }
    /// Writes a file and returns its path.
    std::string Write(const std::string& strName, const std::string& strBytes) const;
    std::string Read(const std::string& strName) const;
    /// The sorted names of all entries.
    std::vector<std::string> List() const;

private:
    std::string m_strPath;
};
