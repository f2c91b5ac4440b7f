#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/cli/Command.h"
#include "tests/cli/Folder.h"

/// Runs a subcommand in a folder of its own with an existing picture "out.png". Arguments are given in one
/// text, one blank between two; "@" at the front of an argument stands for the folder.
class CCommandFixture : public testing::Test {
protected:
    explicit CCommandFixture(std::string strSubcommand);

    COMMANDRESULT Run(const std::string& strArguments, unsigned nMaxFileBytes = 0) const;
    /// The picture out.svg that the command draws without a word.
    std::string Draw(const std::string& strArguments) const;
    /// The command says one line that contains the message, and changes no file.
    void ExpectRefused(const std::string& strArguments, const std::string& strMessage) const;
    /// The command, given the path of a file last, says in one line which file it cannot write and why, for
    /// each reason that there is, and changes nothing. The names of the files take the endings in turn.
    void ExpectRefusedOutputs(const std::string& strArguments, const std::vector<std::string>& endings) const;
    /// The command draws each format whole and says nothing.
    void ExpectEachFormat(const std::string& strArguments) const;
    /// Each addition to the arguments changes the picture.
    void ExpectEachChanges(const std::string& strPlain, std::initializer_list<const char*> additions) const;

    const CFolder m_folder;

private:
    std::string m_strSubcommand;
};
