#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <system_error>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tessara/platform/files/Descriptor.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tests/survival/SaveTries.h"

// Saves into an archive on a file system that mounted.sh has made for them. TESSARA_SURVIVAL_ARCHIVE is where
// it is mounted; TESSARA_SURVIVAL_DEVICE is an ext4's device and TESSARA_SURVIVAL_OPTIONS its mount options.

namespace {

constexpr CTrial TRIALS[] = {{EWay::asNew, 100},       {EWay::asNewByLink, 100}, {EWay::inPlace, 100},
                             {EWay::over, 100},        {EWay::asNew, 4096},      {EWay::inPlace, 4096},
                             {EWay::over, 4096},       {EWay::asNew, 3 << 20},   {EWay::asNewByLink, 3 << 20},
                             {EWay::inPlace, 3 << 20}, {EWay::over, 3 << 20}};

/// How an ext4 loses its power: what the disk has got by then of what it was given.
enum class EPowerCut : std::uint32_t { withAll = 0, withTheJournal = 1, withoutTheJournal = 2 };
constexpr EPowerCut POWER_CUTS[] = {EPowerCut::withAll, EPowerCut::withTheJournal,
                                    EPowerCut::withoutTheJournal};

/// What a program does when the disk has gone.
enum class EProgram { diesToo, goesOn };

/// Which of the save's fsync calls do nothing.
enum class EOmitted { none, all, files, folders };

std::string Variable(const char* pszName) {
    const char* const pszValue = std::getenv(pszName);
    if (!pszValue) {
        throw std::runtime_error(std::string(pszName) + " is not set: run mounted.sh");
    }
    return pszValue;
}

void Check(int nResult, const char* pszWhat) {
    if (nResult != 0) {
        throw std::system_error(errno, std::generic_category(), pszWhat);
    }
}

/// Fills a file system with a file in a folder of its own.
class CFiller {
public:
    explicit CFiller(const std::string& strRoot) : m_strFolder(strRoot + "/filler") {
        std::filesystem::create_directory(m_strFolder);
        std::ofstream file(m_strFolder + "/file", std::ios::binary);
        const std::string strPage(PAGE, 'x');
        while (file << strPage << std::flush) {
        }
    }
    ~CFiller() { std::filesystem::remove_all(m_strFolder); }
    CFiller(const CFiller&) = delete;
    CFiller& operator=(const CFiller&) = delete;

    void Free(std::uintmax_t nBytes) const {
        const auto nSize = std::filesystem::file_size(m_strFolder + "/file");
        std::filesystem::resize_file(m_strFolder + "/file", nSize > nBytes ? nSize - nBytes : 0);
    }

    static constexpr std::size_t PAGE = 4096;

private:
    std::string m_strFolder;
};

class Mounted : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        s_pApp = new CWinApp("Survival");
        ShowBox();
    }
    static void TearDownTestSuite() { delete s_pApp; }
    void TearDown() override { std::cout << m_tries.GetTried() << " saves tried\n"; }

    const CTrialArchive& Archive() const { return m_tries.GetArchive(); }
    void Mount() const {
        Check(mount(Variable("TESSARA_SURVIVAL_DEVICE").c_str(), Archive().GetFolder().c_str(), "ext4", 0,
                    Variable("TESSARA_SURVIVAL_OPTIONS").c_str()),
              "mount");
    }
    void Unmount() const { Check(umount(Archive().GetFolder().c_str()), "umount"); }
    void CutPower(EPowerCut ePowerCut) const {
        constexpr unsigned long SHUTDOWN = _IOR('X', 125, std::uint32_t);
        const tessara::CDescriptor folder(
            open(Archive().GetFolder().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        auto nFlags = static_cast<std::uint32_t>(ePowerCut);
        Check(ioctl(folder.Get(), SHUTDOWN, &nFlags), "shutdown of the file system");
    }

    /// A save during which the power goes before a call, or after the last one. Returns whether there was
    /// that call.
    bool SaveWithoutPower(const CTrial& trial, EPowerCut ePowerCut, EProgram eProgram, EOmitted eOmitted,
                          int nCall, std::string& strFaults) {
        Mount();
        Archive().Fill(trial);
        bool bCut = false;
        std::string strCall = "the last";
        const CWatchedEnd end = m_tries.Save(SaveDocument, trial, [&](const FILECALL& call) {
            if (call.nNumber != nCall) {
                return Omitted(call, eOmitted);
            }
            bCut = true;
            strCall = call.strName;
            CutPower(ePowerCut);
            return CVerdict{eProgram == EProgram::diesToo ? CVerdict::EKind::kills
                                                          : CVerdict::EKind::happens};
        });
        if (!bCut) {
            CutPower(ePowerCut);
        }
        Unmount();
        Mount();
        const std::string strFault = m_tries.FaultWhenKilled(trial, end);
        Unmount();
        if (!strFault.empty()) {
            strFaults += trial.GetText() + ", way of the cut " + std::to_string(static_cast<int>(ePowerCut)) +
                         ", call " + std::to_string(nCall) + " " + strCall + ": " + strFault + "\n";
        }
        return bCut;
    }

    static CVerdict Omitted(const FILECALL& call, EOmitted eOmitted) {
        const bool bFolder = std::filesystem::is_directory(call.strPath);
        const bool bOmitted = call.strName == "fsync" &&
                              (eOmitted == EOmitted::all || (eOmitted == EOmitted::folders && bFolder) ||
                               (eOmitted == EOmitted::files && !bFolder));
        return {bOmitted ? CVerdict::EKind::isPretended : CVerdict::EKind::happens};
    }

    CSaveTries m_tries;
    static inline CWinApp* s_pApp = nullptr;
};

TEST_F(Mounted, AFullDiskIsToldAndLeavesTheOldVariant) {
    for (const CTrial& trial : TRIALS) {
        const std::size_t nPages =
            m_tries.GetArchive().NewSize(trial) / CFiller::PAGE + 4; // and what folders need
        const std::size_t nStep = std::max<std::size_t>(nPages / 40, 1);
        for (std::size_t nFree = 0; nFree < nPages + nStep; nFree += nStep) {
            Archive().Fill(trial);
            const CFiller filler(Archive().GetFolder());
            filler.Free(nFree * CFiller::PAGE);
            const CWatchedEnd end =
                m_tries.Save(SaveDocument, trial, [](const FILECALL&) { return CVerdict{}; });
            EXPECT_EQ(m_tries.FaultWhenFailed(trial, end, ENOSPC, nFree >= nPages), "")
                << trial.GetText() << ", free pages " << nFree;
        }
    }
}

TEST_F(Mounted, WhatIsSavedIsThereAfterAPowerCutBeforeAndAfterEachCall) {
    std::string strFaults;
    for (const CTrial& trial : TRIALS) {
        for (const EPowerCut ePowerCut : POWER_CUTS) {
            for (const EProgram eProgram : {EProgram::diesToo, EProgram::goesOn}) {
                int nCall = 0;
                while (SaveWithoutPower(trial, ePowerCut, eProgram, EOmitted::none, nCall, strFaults)) {
                    ++nCall;
                }
            }
        }
    }
    EXPECT_EQ(strFaults, "");
}

TEST_F(Mounted, APowerCutIsSeenInSavesThatDoNotWaitForTheDisk) {
    for (const EOmitted eOmitted : {EOmitted::all, EOmitted::files, EOmitted::folders}) {
        std::string strFaults;
        for (const CTrial& trial : TRIALS) {
            SaveWithoutPower(trial, EPowerCut::withoutTheJournal, EProgram::diesToo, eOmitted, -1, strFaults);
        }
        EXPECT_NE(strFaults, "") << "the test must see damage";
        std::cout << strFaults;
    }
}

} // namespace
