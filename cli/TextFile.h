#pragma once

#include <string>
#include <string_view>

namespace tessara {

/// All bytes of a text file, without a UTF-8 byte order mark. Pipes can be read too.
/// Throws CInputError for a folder, a file that cannot be read, is empty, binary (holds a NUL byte) or larger
/// than 512 MiB.
std::string ReadTextFile(const std::string& strPath);

/// A file's name without its folders and its ending.
std::string FileStem(const std::string& strPath);

/// Walks through the lines of a text that hold something: blank lines and lines that start with '#' are
/// passed over. Lines end with LF, CR LF or CR. The text must outlive the walk.
class CLineReader {
public:
    explicit CLineReader(std::string_view strText) : m_strRest(strText) {}

    /// Goes on to the next line; false when there is none.
    bool Next();
    std::string_view GetLine() const { return m_strLine; }
    /// The number of the current line, from 1; passed-over lines count.
    int GetNumber() const { return m_nNumber; }

private:
    void TakeLine();

    std::string_view m_strRest;
    std::string_view m_strLine;
    int m_nNumber = 0;
};

} // namespace tessara
