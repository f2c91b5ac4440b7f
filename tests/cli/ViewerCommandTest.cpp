#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"

using testing::HasSubstr;

namespace {

/// Runs `tessara view` without a display, with a good file "d.txt".
class ViewerCommand : public CCommandFixture {
protected:
    ViewerCommand() : CCommandFixture("view") { m_folder.Write("d.txt", "x y\n1 2\n2 3\n"); }
};

TEST_F(ViewerCommand, SaysThatThereIsNoDisplay) {
    ExpectRefused("@d.txt", "there is no display");
}

TEST_F(ViewerCommand, RefusesWhatItCannotReadOrWriteInOneLineAndLeavesThePictureAlone) {
    m_folder.Write("bad.txt", "1 2\n2 x\n");
    ExpectRefused("", "FILE is required");
    ExpectRefused("@none.txt --screenshot @out.png", "none.txt: cannot be read");
    ExpectRefused("@bad.txt --screenshot @out.png", "bad.txt:2:2: \"x\" is not a number");
    ExpectRefused("@d.txt --screenshot @out.pdf", "--screenshot: the name must end with .png");
    ExpectRefused("@d.txt --screenshot @out.png --size 5x5", "--size: the sides");
    ExpectRefused("@d.txt --screenshot @out.png --columns 1,9", "there is no column 9");
    ExpectRefused("@d.txt --screenshot @out.png --delimiter dot", "delimiter");
}

TEST_F(ViewerCommand, SaysWhyAPictureCannotBeWritten) {
    ExpectRefusedOutputs("@d.txt --screenshot", {".png"});
}

/// Width and height of a PNG, as its header tells.
std::string SizeOf(const std::string& strPng) {
    std::string strSize;
    for (const std::size_t nByte : {18, 19, 22, 23}) {
        strSize += std::to_string(static_cast<unsigned char>(strPng.at(nByte))) + " ";
    }
    return strSize;
}

TEST_F(ViewerCommand, WritesAPictureOfItsWindowOfTheGivenSizeOrItsOwn) {
    const COMMANDRESULT result = Run("@d.txt --screenshot @out.png --size 700x300");
    EXPECT_EQ(result.nExitCode, 0);
    EXPECT_EQ(result.strOutput + result.strErrors, "");
    const std::string strPicture = m_folder.Read("out.png");
    EXPECT_EQ(strPicture.substr(0, 4), "\x89PNG");
    EXPECT_EQ(SizeOf(strPicture), "2 188 1 44 ");
    m_folder.Write("d.txt", "x y\n1 2\n2 30\n");
    EXPECT_EQ(Run("@d.txt --screenshot @out.png --size 700x300").nExitCode, 0);
    EXPECT_TRUE(m_folder.Read("out.png") != strPicture);
    EXPECT_EQ(Run("@d.txt --screenshot @out.png").nExitCode, 0);
    EXPECT_EQ(SizeOf(m_folder.Read("out.png")), "3 232 2 188 ") << "1000x700";
}

} // namespace
