#include "tests/cli/CommandFixture.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <sys/stat.h>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

CCommandFixture::CCommandFixture(std::string strSubcommand) : m_strSubcommand(std::move(strSubcommand)) {
    m_folder.Write("out.png", "old");
}

COMMANDRESULT CCommandFixture::Run(const std::string& strArguments, unsigned nMaxFileBytes) const {
    std::vector<std::string> arguments = {m_strSubcommand};
    std::istringstream text(strArguments + " ");
    for (std::string strArgument; !strArguments.empty() && std::getline(text, strArgument, ' ');) {
        const bool bInFolder = strArgument.starts_with('@');
        arguments.push_back(bInFolder ? m_folder.Path(strArgument.substr(1)) : strArgument);
    }
    return RunCommand(arguments, nMaxFileBytes);
}

std::string CCommandFixture::Draw(const std::string& strArguments) const {
    const COMMANDRESULT result = Run(strArguments + " -o @out.svg");
    EXPECT_EQ(result.nExitCode, 0) << strArguments;
    EXPECT_EQ(result.strOutput + result.strErrors, "") << strArguments;
    return m_folder.Read("out.svg");
}

void CCommandFixture::ExpectRefused(const std::string& strArguments, const std::string& strMessage) const {
    const std::vector<std::string> before = m_folder.List();
    const COMMANDRESULT result = Run(strArguments);
    EXPECT_EQ(result.nExitCode, 2) << strMessage;
    EXPECT_EQ(result.strOutput, "");
    EXPECT_THAT(result.strErrors, testing::AllOf(StartsWith("tessara: "), HasSubstr(strMessage)));
    EXPECT_EQ(result.strErrors.find('\n'), result.strErrors.size() - 1) << result.strErrors;
    EXPECT_EQ(m_folder.List(), before);
    EXPECT_EQ(m_folder.Read("out.png"), "old");
}

void CCommandFixture::ExpectRefusedOutputs(const std::string& strArguments,
                                           const std::vector<std::string>& endings) const {
    const struct {
        std::string strName;
        void (*pfnMake)(const std::string& strPath);
        std::string strReason;
    } cases[] = {{"none/a", nullptr, "cannot be written: its folder does not exist"},
                 {"none/b", nullptr, "cannot be written: its folder does not exist"},
                 {"none/c", nullptr, "cannot be written: its folder does not exist"},
                 {"none/d", nullptr, "cannot be written: its folder does not exist"},
                 {std::string(300, 'a'), nullptr, "cannot be written: File name too long"},
                 {"folder", [](const std::string& str) { std::filesystem::create_directory(str); },
                  "is a folder, not a file"},
                 {"pipe", [](const std::string& str) { mkfifo(str.c_str(), 0600); }, "is not a plain file"},
                 {"dangling", [](const std::string& str) { std::filesystem::create_symlink("none/a", str); },
                  "cannot be written: its folder does not exist"},
                 {"loop", [](const std::string& str) { std::filesystem::create_symlink(str, str); },
                  "cannot be written: Too many levels of symbolic links"},
                 {"out.png/a", nullptr, "cannot be written: Not a directory"},
                 {"locked",
                  [](const std::string& str) {
                      std::filesystem::copy_file(std::filesystem::path(str).parent_path() / "out.png", str);
                      chmod(str.c_str(), 0444);
                  },
                  "cannot be written: Permission denied"},
                 {"fixed/a",
                  [](const std::string& str) {
                      const auto pathFolder = std::filesystem::path(str).parent_path();
                      std::filesystem::create_directory(pathFolder);
                      chmod(pathFolder.c_str(), 0555);
                  },
                  "cannot be written: Permission denied"},
                 {"full", nullptr, "cannot be written: File too large"}};
    std::size_t nCase = 0;
    for (const auto& item : cases) {
        const std::string strName = item.strName + endings[nCase++ % endings.size()];
        if (item.pfnMake) {
            item.pfnMake(m_folder.Path(strName));
        }
        const std::vector<std::string> before = m_folder.List();
        const COMMANDRESULT result = Run(strArguments + " @" + strName, item.strName == "full" ? 100 : 0);
        EXPECT_EQ(result.nExitCode, 2) << strName;
        EXPECT_EQ(result.strOutput, "");
        EXPECT_EQ(result.strErrors.substr(result.strErrors.find(' ') + 1),
                  m_folder.Path(strName) + ": " + item.strReason + "\n");
        EXPECT_EQ(m_folder.List(), before) << strName;
    }
    EXPECT_EQ(m_folder.Read("out.png"), "old");
}

void CCommandFixture::ExpectEachFormat(const std::string& strArguments) const {
    const struct {
        std::string strFile, strStart, strInside;
    } formats[] = {{"out.png", "\x89PNG\r\n", "IEND"},
                   {"out.SVG", "<?xml", "</svg>"},
                   {"out.pdf", "%PDF-", "%%EOF"},
                   {"out.wmf", "\xD7\xCD\xC6\x9A", "Times New Roman"}};
    std::vector<std::string> expected = m_folder.List();
    for (const auto& format : formats) {
        const COMMANDRESULT result = Run(strArguments + " -o @" + format.strFile);
        EXPECT_EQ(result.nExitCode, 0) << format.strFile;
        EXPECT_EQ(result.strOutput + result.strErrors, "");
        EXPECT_THAT(m_folder.Read(format.strFile),
                    testing::AllOf(StartsWith(format.strStart), HasSubstr(format.strInside)));
        expected.push_back(format.strFile);
    }
    expected.erase(std::find(expected.begin(), expected.end(), "out.png"));
    EXPECT_THAT(m_folder.List(), testing::UnorderedElementsAreArray(expected));
}

void CCommandFixture::ExpectEachChanges(const std::string& strPlain,
                                        std::initializer_list<const char*> additions) const {
    const std::string strPicture = Draw(strPlain);
    for (const char* pszAddition : additions) {
        EXPECT_TRUE(Draw((strPlain + " ").append(pszAddition)) != strPicture)
            << pszAddition << " draws the same";
    }
}
