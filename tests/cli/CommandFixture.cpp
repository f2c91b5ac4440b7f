#include "tests/cli/CommandFixture.h"

#include <algorithm>
#include <sstream>

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
