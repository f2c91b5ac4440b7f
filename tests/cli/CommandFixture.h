#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/cli/Command.h"
#include "tests/cli/Folder.h"

/// Runs a subcommand in a folder of its own with an existing picture "out.png".
class CCommandFixture : public testing::Test {
protected:
    explicit CCommandFixture(std::string strSubcommand);

    /// "@" at the front of an argument stands for the folder.
    COMMANDRESULT Run(std::vector<std::string> arguments, unsigned nMaxFileBytes = 0) const;
    /// The command says one line that contains the message, and changes no file.
    void ExpectRefused(const std::vector<std::string>& arguments, const std::string& strMessage) const;
    /// The command draws each format whole and says nothing. `arguments` lacks the output.
    void ExpectEachFormat(const std::vector<std::string>& arguments) const;
    /// Each addition to the command line changes the picture out.svg that the command draws without it.
    void ExpectEachChanges(const std::vector<std::string>& plain,
                           const std::vector<std::vector<std::string>>& additions) const;

    const CFolder m_folder;

private:
    std::string m_strSubcommand;
};
