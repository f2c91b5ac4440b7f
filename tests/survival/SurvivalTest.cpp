#include <cerrno>
#include <csignal>
#include <iostream>
#include <sys/resource.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "tessara/platform/ui/frames/WinApp.h"
#include "tests/support/PlainUser.h"
#include "tests/survival/SaveTries.h"

// Whole processes that save a document into an archive, and are killed, or fail, in each of their system
// calls. TESSARA_SURVIVAL_ALL=1 tries all errors in all calls, at every size.

namespace {

std::vector<CTrial> Trials() {
    std::vector<CTrial> trials;
    const std::vector<std::size_t> sizes =
        TryAll() ? std::vector<std::size_t>{100, 4096, 3 << 20} : std::vector<std::size_t>{4096};
    for (const std::size_t nSize : sizes) {
        for (const EWay eWay : {EWay::asNew, EWay::asNewByLink, EWay::inPlace, EWay::over}) {
            trials.push_back({eWay, nSize});
        }
    }
    return trials;
}

constexpr CTrial UNSAFE = {EWay::over, 4096};

class Survival : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        s_pApp = new CWinApp("Survival");
        s_pApp->SetRegistryKey("Tests");
        ShowBox();
    }
    static void TearDownTestSuite() { delete s_pApp; }
    void TearDown() override { std::cout << m_tries.GetTried() << " saves tried\n"; }

    CSaveTries m_tries;
    static inline CWinApp* s_pApp = nullptr;
};

TEST_F(Survival, AProcessKilledInAnyCallLeavesWholeVariants) {
    for (const CTrial& trial : Trials()) {
        EXPECT_EQ(m_tries.FaultsWhenKilled(SaveDocument, trial), "");
    }
    EXPECT_NE(m_tries.FaultsWhenKilled(SaveUnsafely, UNSAFE), "") << "the test must see damage";
}

TEST_F(Survival, AnErrorInAnyCallIsToldAndLeavesTheOldVariantOrIsOvercome) {
    for (const CTrial& trial : Trials()) {
        EXPECT_EQ(m_tries.FaultsWhenFailed(SaveDocument, trial, {ENOSPC, EIO, EDQUOT}), "");
        EXPECT_EQ(m_tries.FaultsWhenFailed(SaveDocument, trial, {EINTR}), "");
    }
    EXPECT_NE(m_tries.FaultsWhenFailed(SaveUnsafely, UNSAFE, {ENOSPC}), "") << "the test must see damage";
}

TEST_F(Survival, AnArchiveThatHasBecomeReadOnlyIsToldAndLeavesTheOldVariant) {
    const CSaver plain = [](const CTrial& trial, const std::string& strArchive, int nReport) {
        BecomePlainUser();
        SaveDocument(trial, strArchive, nReport);
    };
    const char* const pszArchive = m_tries.GetArchive().GetFolder().c_str();
    for (const EWay eWay : {EWay::asNew, EWay::inPlace, EWay::over}) {
        const CTrial trial = {eWay, 4096};
        m_tries.GetArchive().Fill(trial);
        chmod(pszArchive, 0555);
        const CWatchedEnd end = m_tries.Save(plain, trial, [](const FILECALL&) { return CVerdict{}; });
        chmod(pszArchive, 0755);
        EXPECT_FALSE(IsSaved(end));
        EXPECT_EQ(m_tries.FaultWhenFailed(trial, end, EACCES, false), "");
    }
}

/// A limit of the size of files is like a full disk, and is told like one, also to a program that has not
/// asked to be spared the signal.
TEST_F(Survival, ALimitOfTheSizeOfFilesIsToldAndLeavesTheOldVariant) {
    const auto save = [&](const CSaver& saver, const CTrial& trial, bool bIgnored, std::size_t nLimit) {
        m_tries.GetArchive().Fill(trial);
        const CSaver limited = [&](const CTrial& t, const std::string& strArchive, int nReport) {
            std::signal(SIGXFSZ, bIgnored ? SIG_IGN : SIG_DFL);
            const rlimit limit = {nLimit, nLimit};
            setrlimit(RLIMIT_FSIZE, &limit);
            saver(t, strArchive, nReport);
        };
        const CWatchedEnd end = m_tries.Save(limited, trial, [](const FILECALL&) { return CVerdict{}; });
        return m_tries.FaultWhenFailed(trial, end, EFBIG, nLimit >= m_tries.GetArchive().NewSize(trial));
    };
    for (const EWay eWay : {EWay::asNew, EWay::inPlace, EWay::over}) {
        const CTrial trial = {eWay, 4096};
        for (const bool bIgnored : {true, false}) {
            for (std::size_t nLimit = 0; nLimit <= m_tries.GetArchive().NewSize(trial);
                 nLimit += TryAll() ? 1 : 499) {
                EXPECT_EQ(save(SaveDocument, trial, bIgnored, nLimit), "")
                    << trial.GetText() << ", limit " << nLimit << ", signal "
                    << (bIgnored ? "ignored" : "as it is");
            }
        }
    }
    EXPECT_NE(save(SaveUnsafely, UNSAFE, true, 1000), "") << "the test must see damage";
}

} // namespace
