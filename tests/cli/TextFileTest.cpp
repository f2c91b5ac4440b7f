#include <sys/stat.h>

#include <gtest/gtest.h>

#include "cli/TextFile.h"
#include "tests/cli/Folder.h"
#include "tests/cli/Outcome.h"
#include "tests/support/PlainUser.h"

using tessara::ReadTextFile;

namespace {

TEST(TextFile, GivesBytesWithoutTheByteOrderMark) {
    const CFolder folder;
    EXPECT_EQ(ReadTextFile(folder.Write("a", "\xEF\xBB\xBFT\n\xFF")), "T\n\xFF");
    const std::string strLong(1000000, 'x');
    EXPECT_EQ(ReadTextFile(folder.Write("b", strLong)), strLong);
}

TEST(TextFile, SaysWhyAFileCannotBeUsed) {
    const CFolder folder;
    const std::string strSecret = folder.Write("secret", "1 2\n");
    chmod(strSecret.c_str(), 0);
    const std::pair<std::string, std::string> cases[] = {
        {folder.Path(""), ": is a folder, not a file"},
        {folder.Path("none"), ": cannot be read: No such file or directory"},
        {folder.Write("empty", ""), ": is empty"},
        {folder.Write("mark", "\xEF\xBB\xBF"), ": is empty"},
        {folder.Write("binary", std::string("1 2\n\0", 5)), ": holds binary data (a NUL byte), not text"},
        {"/dev/zero", ": holds binary data (a NUL byte), not text"},
        {strSecret, ": cannot be read: Permission denied"}};
    for (const auto& item : cases) {
        const auto read = [&] { return Refusal([&] { ReadTextFile(item.first); }); };
        EXPECT_EQ(AsPlainUser(read), item.first + item.second); // nothing is secret from root
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
