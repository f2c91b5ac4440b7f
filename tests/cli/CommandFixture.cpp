#include "tests/cli/CommandFixture.h"

#include <algorithm>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

CCommandFixture::CCommandFixture(std::string strSubcommand) : m_strSubcommand(std::move(strSubcommand)) {
    m_folder.Write("out.png", "old");
}

COMMANDRESULT CCommandFixture::Run(std::vector<std::string> arguments, unsigned nMaxFileBytes) const {
    for (std::string& strArgument : arguments) {
        if (strArgument.starts_with('@')) {
            strArgument.replace(0, 1, m_folder.Path(""));
        }
    }
    arguments.insert(arguments.begin(), m_strSubcommand);
    return RunCommand(arguments, nMaxFileBytes);
}

void CCommandFixture::ExpectRefused(const std::vector<std::string>& arguments,
                                    const std::string& strMessage) const {
    const std::vector<std::string> before = m_folder.List();
    const COMMANDRESULT result = Run(arguments);
    EXPECT_EQ(result.nExitCode, 2) << strMessage;
    EXPECT_EQ(result.strOutput, "");
    EXPECT_THAT(result.strErrors, StartsWith("tessara: "));
    EXPECT_THAT(result.strErrors, HasSubstr(strMessage));
    EXPECT_EQ(std::count(result.strErrors.begin(), result.strErrors.end(), '\n'), 1) << result.strErrors;
    EXPECT_EQ(m_folder.List(), before);
    EXPECT_EQ(m_folder.Read("out.png"), "old");
}

void CCommandFixture::ExpectEachFormat(const std::vector<std::string>& arguments) const {
    const struct {
        const char* pszFile;
        std::string strStart;
        const char* pszInside;
    } formats[] = {{"out.png", "\x89PNG\r\n", "IEND"},
                   {"out.SVG", "<?xml", "</svg>"},
                   {"out.pdf", "%PDF-", "%%EOF"},
                   {"out.wmf", "\xD7\xCD\xC6\x9A", "Times New Roman"}};
    std::vector<std::string> expected = m_folder.List();
    for (const auto& format : formats) {
        std::vector<std::string> all = arguments;
        all.insert(all.end(), {"-o", std::string("@") + format.pszFile});
        const COMMANDRESULT result = Run(all);
        EXPECT_EQ(result.nExitCode, 0) << format.pszFile;
        EXPECT_EQ(result.strOutput + result.strErrors, "");
        EXPECT_THAT(m_folder.Read(format.pszFile), StartsWith(format.strStart));
        EXPECT_THAT(m_folder.Read(format.pszFile), HasSubstr(format.pszInside));
        if (std::find(expected.begin(), expected.end(), format.pszFile) == expected.end()) {
            expected.emplace_back(format.pszFile);
        }
    }
    EXPECT_THAT(m_folder.List(), testing::UnorderedElementsAreArray(expected));
}

void CCommandFixture::ExpectEachChanges(const std::vector<std::string>& plain,
                                        const std::vector<std::vector<std::string>>& additions) const {
    ASSERT_EQ(Run(plain).nExitCode, 0);
    const std::string strPlain = m_folder.Read("out.svg");
    for (const std::vector<std::string>& addition : additions) {
        std::vector<std::string> arguments = plain;
        arguments.insert(arguments.end(), addition.begin(), addition.end());
        const COMMANDRESULT result = Run(arguments);
        EXPECT_EQ(result.nExitCode, 0) << addition.front();
        EXPECT_EQ(result.strErrors, "") << addition.front();
        EXPECT_TRUE(m_folder.Read("out.svg") != strPlain) << addition.front() << " draws the same";
    }
}
