#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>

#include "tessara/platform/files/ReplacementFile.h"
#include "tests/cli/Folder.h"
#include "tests/files/SystemCalls.h"
#include "tests/support/PlainUser.h"

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* OLD = "old content, longer than the new one";
constexpr const char* NEW = "the new content";
constexpr int MAX_CALLS = 100;

/// Writes NEW to a path; what it says.
template <class FILE, class... FLAGS>
std::string Save(const std::string& strPath, FLAGS... flags) {
    try {
        FILE file(strPath.c_str(), flags...);
        file.Write(NEW, 3);
        file.Write(NEW + 3, static_cast<UINT>(std::strlen(NEW) - 3));
        file.Close();
        return "saved";
    } catch (const CFileException& error) {
        return error.what();
    }
}

using CSaver = std::function<std::string(const std::string&)>;
const CSaver REPLACE = [](const std::string& str) { return Save<tessara::CReplacementFile>(str); };
/// What the tests must not let pass.
const CSaver OVERWRITE = [](const std::string& str) {
    return Save<CFile>(str, CFile::modeCreate | CFile::modeWrite | 0U);
};

/// What a save says whose call number nFailing answers so, and the calls that it made.
struct CAttempt {
    CAttempt(const CSaver& save, const std::string& strPath, int nFailing = -1, int nAnswer = 0) {
        const CSystemCalls watch([&, nCall = 0](const char* pszCall) mutable {
            calls.emplace_back(pszCall);
            return nCall++ == nFailing ? nAnswer : 0;
        });
        strSaid = save(strPath);
    }
    bool Reached(int nCall) const { return nCall < static_cast<int>(calls.size()); }

    std::vector<std::string> calls;
    std::string strSaid;
};

/// What is wrong after a save over OLD in which one call failed; empty for nothing.
std::string Damage(const CFolder& folder, const CAttempt& attempt, int nFailing, int nErrno) {
    const bool bLost = attempt.calls[nFailing] == "fsync"; // what was written may be
    const std::string strContent = folder.Read("a.dat");
    const bool bNew = attempt.strSaid == "saved" || attempt.strSaid.find("is in place") != std::string::npos;
    const bool bReason = attempt.strSaid == "saved" || attempt.strSaid.ends_with(std::strerror(nErrno));
    const bool bNamed = attempt.strSaid == "saved" || attempt.strSaid.starts_with(folder.Path("a.dat: "));
    return strContent != (bNew ? NEW : OLD)                               ? "content: " + strContent
           : folder.List() != std::vector<std::string>{"a.dat"}           ? "a file is left"
           : !bReason || !bNamed || (bLost && attempt.strSaid == "saved") ? "message: " + attempt.strSaid
                                                                          : "";
}

/// The damage of all calls and errors.
std::string DamageOf(const CSaver& save) {
    std::string strDamage;
    for (const int nErrno : {ENOSPC, EIO, EDQUOT, EFBIG, EMFILE, EROFS}) {
        for (int nCall = 0; nCall < MAX_CALLS; ++nCall) {
            const CFolder folder;
            const std::string strPath = folder.Write("a.dat", OLD);
            const CAttempt attempt(save, strPath, nCall, nErrno);
            if (!attempt.Reached(nCall)) {
                break;
            }
            const std::string str = Damage(folder, attempt, nCall, nErrno);
            if (!str.empty()) {
                strDamage += attempt.calls[nCall] + " " + std::to_string(nErrno) + ": " + str + "\n";
            }
        }
    }
    return strDamage;
}

TEST(ReplacementFault, AnyCallThatFailsLeavesTheOldFileOrTellsThatTheNewIsInPlace) {
    EXPECT_EQ(DamageOf(REPLACE), "");
    EXPECT_THAT(DamageOf(OVERWRITE), HasSubstr("write 28: content")) << "the test must see damage";
}

TEST(ReplacementFault, AWriteThatStopsHalfWayIsFinishedOrLeavesTheOldFile) {
    for (const bool bFull : {false, true}) {
        const CFolder folder;
        const std::string strPath = folder.Write("a.dat", OLD);
        int nWrites = 0;
        const CSystemCalls watch([&](const char* pszCall) {
            const bool bWrite = std::strcmp(pszCall, "write") == 0;
            nWrites += bWrite;
            return !bWrite || nWrites > 2 ? 0 : nWrites == 1 ? CSystemCalls::HALF : bFull ? ENOSPC : EINTR;
        });
        EXPECT_EQ(REPLACE(strPath),
                  bFull ? strPath + ": cannot be written: No space left on device" : "saved");
        EXPECT_EQ(folder.Read("a.dat"), bFull ? OLD : NEW);
    }
}

/// The contents that are found after a process was killed in each of its calls.
std::vector<std::string> ContentsWhenKilled(const CSaver& save) {
    std::vector<std::string> contents;
    for (int nCall = 0; nCall < MAX_CALLS; ++nCall) {
        const CFolder folder;
        const std::string strPath = folder.Write("a.dat", OLD);
        const pid_t nChild = fork();
        if (nChild == 0) {
            const CSystemCalls watch([n = nCall](const char*) mutable { return n-- == 0 ? _exit(1), 0 : 0; });
            save(strPath);
            _exit(0);
        }
        int nStatus = 0;
        waitpid(nChild, &nStatus, 0);
        if (nStatus == 0) {
            break;
        }
        contents.push_back(folder.Read("a.dat"));
        EXPECT_EQ(REPLACE(strPath), "saved");
        EXPECT_EQ(folder.List(), std::vector<std::string>{"a.dat"}) << "call " << nCall;
    }
    return contents;
}

TEST(ReplacementFault, AKilledProcessLeavesAWholeFileAndTheNextSaveItsUnfinishedOne) {
    const auto contents = ContentsWhenKilled(REPLACE);
    EXPECT_THAT(contents, testing::Each(AnyOf(OLD, NEW)));
    EXPECT_THAT(contents, testing::Contains(NEW)) << "killed after the renaming too";
    EXPECT_THAT(ContentsWhenKilled(OVERWRITE), testing::Contains(Not(AnyOf(OLD, NEW))))
        << "the test must see damage";
}

TEST(ReplacementFault, IsOnTheDiskBeforeItIsInPlaceAndInPlaceForGoodWhenClosed) {
    const CFolder folder;
    const auto calls = CAttempt(REPLACE, folder.Path("a.dat")).calls;
    const auto after = [](auto from, auto end, const char* pszCall) { return std::find(from, end, pszCall); };
    const auto renamed = after(calls.begin(), calls.end(), "renameat");
    ASSERT_NE(renamed, calls.end());
    const auto lastWrite = std::find(calls.rbegin(), calls.rend(), "write").base();
    EXPECT_NE(after(lastWrite, renamed, "fsync"), renamed);
    EXPECT_NE(after(renamed, calls.end(), "fsync"), calls.end());
}

TEST(ReplacementFault, TheUmaskOfOtherThreadsIsLeftAlone) {
    const CFolder folder;
    EXPECT_THAT(CAttempt(REPLACE, folder.Path("a.dat")).calls, Not(testing::Contains("umask")));
}

TEST(ReplacementFault, AFolderThatCannotBeListedIsSynchronisedWithItsFileSystem) {
    const CFolder folder;
    chmod(folder.Path("").c_str(), 0300);
    const std::string strCalls = AsPlainUser([&] {
        const CAttempt attempt(REPLACE, folder.Path("a.dat"));
        return attempt.strSaid + (attempt.calls.back() == "syncfs" ? ", with its file system" : "");
    });
    chmod(folder.Path("").c_str(), 0700);
    EXPECT_EQ(strCalls, "saved, with its file system");
    EXPECT_EQ(folder.Read("a.dat"), NEW);
}

} // namespace
