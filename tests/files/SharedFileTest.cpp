#include "tessara/platform/files/SharedFile.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/settings/SettingsStore.h"
#include "tests/files/SettingsFolder.h"
#include "tests/support/PlainUser.h"

using tessara::CSettingsText;
using tessara::CSharedFile;
using tessara::ReadSettings;
using tessara::SETTING;
using tessara::UpdateSettings;
using testing::ElementsAre;

namespace {

class SharedFile : public CSettingsFolder {
protected:
    void Append(const std::string& strName, const std::string& strText) const {
        CSharedFile(m_folder.Path(strName)).Update([&](std::string& strBytes) { strBytes += strText; });
    }

    /// What an append by a plain user throws.
    std::string Refusal(const std::string& strName) const {
        return AsPlainUser([&] {
            try {
                Append(strName, "x");
            } catch (const CFileException& error) {
                return std::to_string(error.m_cause);
            }
            return std::string("done");
        });
    }
};

const std::string DENIED = std::to_string(CFileException::accessDenied);

TEST_F(SharedFile, KeepsLinksAndLeavesNothingBesideIt) {
    std::filesystem::create_directory(m_folder.Path("dotfiles"));
    m_folder.Write("dotfiles/real", "1");
    std::filesystem::create_symlink("dotfiles/real", m_folder.Path("link"));
    Append("link", "2");
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.Path("link")));
    EXPECT_EQ(m_folder.Read("dotfiles/real"), "12");
    EXPECT_THAT(m_folder.List(), ElementsAre("dotfiles", "link"));
    Append("new", "");
    EXPECT_THAT(m_folder.List(), ElementsAre("dotfiles", "link")) << "no bytes, no file";
    Append("new", "3");
    EXPECT_EQ(m_folder.Read("new"), "3");
}

TEST_F(SharedFile, WhatCannotBeWrittenStaysAsItWas) {
    const std::string strReadOnly = m_folder.Write("read-only", "1");
    chmod(strReadOnly.c_str(), 0444);
    EXPECT_EQ(Refusal("read-only"), DENIED);
    EXPECT_EQ(m_folder.Read("read-only"), "1");
    std::filesystem::create_directory(m_folder.Path("closed"));
    m_folder.Write("closed/a", "1");
    chmod(m_folder.Path("closed").c_str(), 0555);
    EXPECT_EQ(Refusal("closed/a"), DENIED);
    EXPECT_EQ(CSharedFile(m_folder.Path("closed/a")).Read(), "1");
    chmod(m_folder.Path("closed").c_str(), 0755);
    mkfifo(m_folder.Path("pipe").c_str(), 0666);
    EXPECT_EQ(Refusal("pipe"), DENIED) << "and nothing waits for its other end";
    EXPECT_THAT(m_folder.List(), ElementsAre("closed", "pipe", "read-only"));
}

TEST_F(SharedFile, ALockFileThatWasLeftOrIsAnothersIsNoObstacle) {
    m_folder.Write(".a.lock", "");
    Append("a", "1");
    EXPECT_THAT(m_folder.List(), ElementsAre("a"));
    chmod(m_folder.Write(".a.lock", "").c_str(), 0444);
    EXPECT_EQ(Refusal("a"), "done");
    chmod(m_folder.Write(".a.lock", "").c_str(), 0);
    EXPECT_EQ(Refusal("a"), DENIED);
    EXPECT_EQ(m_folder.Read("a"), "1x");
}

/// Writes keys of one's own and says so after each.
void WriteKeys(int nWriter, unsigned nKeys, int nSay = -1) {
    for (unsigned i = 0; i < nKeys; ++i) {
        UpdateSettings("Stress", [&](CSettingsText& text, std::string_view) {
            text.Write("", "Writer " + std::to_string(nWriter) + " key " + std::to_string(i), i);
        });
        if (nSay >= 0 && write(nSay, ".", 1) != 1) {
            return;
        }
    }
}

/// How many of a writer's first keys are there.
unsigned KeysOf(int nWriter, unsigned nKeys) {
    unsigned nFound = 0;
    ReadSettings("Stress", [&](const CSettingsText& text, std::string_view) {
        for (unsigned i = 0; i < nKeys; ++i) {
            const auto strName = "Writer " + std::to_string(nWriter) + " key " + std::to_string(i);
            nFound += text.Read("", strName) == SETTING(i);
        }
    });
    return nFound;
}

TEST_F(SharedFile, ProcessesAndThreadsThatWriteAtOnceLoseNothing) {
    constexpr int PROCESSES = 8;
    const unsigned nKeys = RoundsFrom("TESSARA_SETTINGS_KEYS", 12);
    std::vector<pid_t> children;
    for (int nWriter = 0; nWriter < PROCESSES; ++nWriter) {
        children.push_back(fork());
        if (children.back() == 0) {
            WriteKeys(nWriter, nKeys);
            _exit(0);
        }
    }
    std::vector<std::thread> threads;
    for (int nWriter = PROCESSES; nWriter < PROCESSES + 2; ++nWriter) {
        threads.emplace_back([=] { WriteKeys(nWriter, 6); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const pid_t nChild : children) {
        int nStatus = -1;
        waitpid(nChild, &nStatus, 0);
        EXPECT_EQ(nStatus, 0);
    }
    std::size_t nNames = 0;
    ReadSettings("Stress",
                 [&](const CSettingsText& text, std::string_view) { nNames = text.ValueNames("").size(); });
    EXPECT_EQ(nNames, PROCESSES * nKeys + 12);
    EXPECT_EQ(KeysOf(0, nKeys), nKeys);
    EXPECT_EQ(KeysOf(PROCESSES - 1, nKeys), nKeys);
}

TEST_F(SharedFile, IsWholeWheneverItsWriterIsKilled) {
    const unsigned nRounds = RoundsFrom("TESSARA_SETTINGS_KILLS", 15);
    for (unsigned nRound = 0; nRound < nRounds; ++nRound) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t nChild = fork();
        if (nChild == 0) {
            WriteKeys(static_cast<int>(nRound), 100000, ends[1]);
            _exit(0);
        }
        close(ends[1]);
        char ch;
        unsigned nSaid = 0;
        while (nSaid < 1 + nRound % 3 && read(ends[0], &ch, 1) == 1) {
            ++nSaid;
        }
        usleep(nRound * 397 % 4001); // a moment of the next writes
        kill(nChild, SIGKILL);
        waitpid(nChild, nullptr, 0);
        while (read(ends[0], &ch, 1) == 1) {
            ++nSaid;
        }
        close(ends[0]);
        ASSERT_EQ(KeysOf(static_cast<int>(nRound), nSaid), nSaid) << "what was said to be written is there";
        const std::string strBytes = m_folder.Read("config/Stress/tessara.settings");
        ASSERT_TRUE(strBytes.starts_with("[]\n") && strBytes.ends_with("\n"));
        ReadSettings("Stress", [&](const CSettingsText& text, std::string_view) {
            const auto nLines = std::count(strBytes.begin(), strBytes.end(), '\n');
            ASSERT_EQ(static_cast<std::ptrdiff_t>(text.ValueNames("").size()) + 1, nLines);
        });
    }
}

} // namespace
