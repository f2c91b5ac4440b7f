#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "cli/InputError.h"
#include "cli/TextFile.h"
#include "tests/cli/Folder.h"

using tessara::ReadTextFile;

namespace {

/// What ReadTextFile says about a file, without the file's path.
std::string Refusal(const std::string& strPath) {
    try {
        ReadTextFile(strPath);
        return "accepted";
    } catch (const tessara::CInputError& error) {
        return std::string(error.what()).substr(strPath.size());
    }
}

TEST(TextFile, GivesBytesWithoutTheByteOrderMark) {
    const CFolder folder;
    EXPECT_EQ(ReadTextFile(folder.Write("a", "\xEF\xBB\xBFT\n\xFF")), "T\n\xFF");
    const std::string strLong(1000000, 'x');
    EXPECT_EQ(ReadTextFile(folder.Write("b", strLong)), strLong);
}

TEST(TextFile, SaysWhyAFileCannotBeUsed) {
    const CFolder folder;
    EXPECT_EQ(Refusal(folder.Path("")), ": is a folder, not a file");
    EXPECT_EQ(Refusal(folder.Path("none")), ": cannot be read: No such file or directory");
    EXPECT_EQ(Refusal(folder.Write("empty", "")), ": is empty");
    EXPECT_EQ(Refusal(folder.Write("mark", "\xEF\xBB\xBF")), ": is empty");
    EXPECT_EQ(Refusal(folder.Write("binary", std::string("1 2\n\0", 5))),
              ": holds binary data (a NUL byte), not text");
    EXPECT_EQ(Refusal("/dev/zero"), ": holds binary data (a NUL byte), not text");
    const std::string strSecret = folder.Write("secret", "1 2\n");
    chmod(strSecret.c_str(), 0);
    if (geteuid() != 0) { // nothing is secret from root
        EXPECT_EQ(Refusal(strSecret), ": cannot be read: Permission denied");
    }
}

TEST(LineReader, CountsAllLinesAndGivesThoseThatHoldSomething) {
    tessara::CLineReader reader("# a\r\n\r\nb\r\rc\n \t\n\t#d\ne");
    std::string strSeen;
    while (reader.Next()) {
        strSeen += std::to_string(reader.GetNumber()) + std::string(reader.GetLine()) + " ";
    }
    EXPECT_EQ(strSeen, "3b 5c 8e ");
}

} // namespace
