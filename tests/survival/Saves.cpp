#include "tests/survival/Saves.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/BaseVariant.h"
#include "tessara/document/PendingVariant.h"
#include "tessara/platform/files/Descriptor.h"
#include "tessara/platform/files/File.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tests/document/VariantFiles.h"

using tessara::CArchiveFolder;
using tessara::CPendingVariant;
using tessara::CVariantFile;

namespace {

constexpr const char* EXTENSION = "bva";
constexpr const char* OWN_TITLE = "bas00001";
constexpr const char* NEW_TITLE = "bas00003"; // the other Base has the one between

/// Bytes that are wrong anywhere else: no two places near each other have the same.
std::string DataOf(char chKind, std::size_t nSize) {
    std::string strData(nSize, chKind);
    for (std::size_t i = 0; i < nSize; ++i) {
        strData[i] = static_cast<char>(chKind + static_cast<char>(i % 25 + i / 4096 % 7));
    }
    return strData;
}

bool IsNewFile(EWay eWay) {
    return eWay == EWay::asNew || eWay == EWay::asNewByLink;
}

CVariantFile OldFile(std::size_t nSize) {
    return {.strComment = "of old", .strTag = "ab", .strData = DataOf('A', nSize)};
}

CVariantFile NewFile(const CTrial& trial) {
    CVariantFile file = OldFile(trial.nSize);
    file.strData = DataOf('a', trial.nSize);
    if (trial.eWay != EWay::inPlace) {
        file.nNumber = IsNewFile(trial.eWay) ? 1 : 0;
        file.strName = "newer";
        file.strComment = "a comment of some length";
    }
    return file;
}

CVariantFile OtherFile() {
    return {.strBase = "PE", .strName = "other"};
}

const char* TitleOf(const CTrial& trial) {
    return IsNewFile(trial.eWay) ? NEW_TITLE : OWN_TITLE;
}

/// Writes its data in pieces, as documents do.
class CTrialDocument : public CBaseVariant {
public:
    std::string m_strData;

    void Serialize(CArchive& ar) override {
        const std::size_t nPiece = m_strData.size() > 65536 ? 65536 : 1000;
        for (std::size_t i = 0; i < m_strData.size(); i += nPiece) {
            ar.Write(m_strData.data() + i, static_cast<UINT>(std::min(nPiece, m_strData.size() - i)));
        }
    }
};

void Report(int nReport, const std::string& strText) {
    tessara::Uninterrupted([&] { return write(nReport, strText.data(), strText.size()); });
}

/// Reports what message boxes say and closes them.
class CBoxReader {
public:
    explicit CBoxReader(int nReport) : m_nReport(nReport) { Wait(); }

private:
    void Wait() {
        QTimer::singleShot(0, &m_context, [this] {
            if (auto* const pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                Report(m_nReport, "told " + pBox->text().toStdString() + "\n");
                pBox->button(QMessageBox::Ok)->click();
            }
            Wait();
        });
    }

    QObject m_context;
    int m_nReport;
};

std::string ReadBytes(const std::string& strPath) {
    std::ifstream file(strPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::string& strPath, const std::string& strBytes) {
    std::ofstream(strPath, std::ios::binary) << strBytes;
}

} // namespace

std::string CTrial::GetText() const {
    constexpr const char* NAMES[] = {"new", "new by link", "in place", "over"};
    return std::string(NAMES[static_cast<int>(eWay)]) + ", " + std::to_string(nSize) + " bytes";
}

void SaveDocument(const CTrial& trial, const std::string& strArchive, int nReport) {
    const CBoxReader boxes(nReport);
    const CArchiveFolder folder(strArchive.c_str(), EXTENSION);
    const CVariantFile file = NewFile(trial);
    std::unique_ptr<CPendingVariant> pWizard;
    if (trial.eWay != EWay::inPlace) {
        const auto eKind =
            IsNewFile(trial.eWay) ? CPendingVariant::EKind::creating : CPendingVariant::EKind::replacing;
        pWizard = std::make_unique<CPendingVariant>(eKind, folder, TitleOf(trial),
                                                    tessara::CVariantHeader{.strBaseName = file.strBase,
                                                                            .strBaseTag = file.strTag,
                                                                            .strVariantName = file.strName,
                                                                            .nVariantNumber = file.nNumber},
                                                    file.strComment);
    }
    CTrialDocument document;
    document.m_strData = file.strData;
    document.m_nVariantNumber = 0;
    document.SetModifiedFlag();
    const BOOL bSaved = document.DoSave(folder.PathOf(TitleOf(trial)).c_str());
    Report(nReport, bSaved ? "saved\n" : "failed\n");
    Report(nReport, document.IsModified() ? "modified\n" : "unmodified\n");
}

void SaveUnsafely(const CTrial& trial, const std::string& strArchive, int nReport) {
    const std::string strPath = CArchiveFolder(strArchive.c_str(), EXTENSION).PathOf(TitleOf(trial));
    const std::string strBytes = NewFile(trial).Bytes();
    try {
        CFile file(strPath.c_str(), CFile::modeCreate | CFile::modeWrite | 0U);
        file.Write(strBytes.data(), static_cast<UINT>(strBytes.size()));
        file.Close();
        Report(nReport, "saved\nunmodified\n");
    } catch (const CFileException& error) {
        Report(nReport, "told " + strPath + ": " + error.what() + "\nfailed\nmodified\n");
    }
}

void ShowBox() {
    const CBoxReader boxes(open("/dev/null", O_WRONLY | O_CLOEXEC));
    AfxMessageBox("The first one.");
}

CTrialArchive::CTrialArchive() : m_strRoot(std::filesystem::temp_directory_path() / "tessara-test-XXXXXX") {
    if (!mkdtemp(m_strRoot.data())) {
        throw std::runtime_error("no temporary folder");
    }
    const char* const pszArchive = std::getenv("TESSARA_SURVIVAL_ARCHIVE");
    m_strArchive = pszArchive ? pszArchive : m_strRoot + "/Archive";
    setenv("XDG_CONFIG_HOME", (m_strRoot + "/settings").c_str(), 1);
}

CTrialArchive::~CTrialArchive() {
    std::error_code ignored;
    std::filesystem::remove_all(m_strRoot, ignored);
}

std::string CTrialArchive::TargetOf(const CTrial& trial) const {
    return m_strArchive + "/" + TitleOf(trial) + "." + EXTENSION;
}

void CTrialArchive::Fill(const CTrial& trial) const {
    std::filesystem::create_directories(m_strArchive);
    for (const auto& entry : std::filesystem::directory_iterator(m_strArchive)) {
        if (entry.is_regular_file()) {
            std::filesystem::remove(entry.path());
        }
    }
    WriteBytes(m_strArchive + "/" + OWN_TITLE + "." + EXTENSION, OldFile(trial.nSize).Bytes());
    WriteBytes(m_strArchive + "/bas00002." + EXTENSION, OtherFile().Bytes());
    const tessara::CDescriptor folder(open(m_strArchive.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    syncfs(folder.Get());
}

bool CTrialArchive::IsNew(const CTrial& trial) const {
    return ReadBytes(TargetOf(trial)) == NewFile(trial).Bytes();
}

std::size_t CTrialArchive::NewSize(const CTrial& trial) const {
    return NewFile(trial).Bytes().size();
}

std::string CTrialArchive::Fault(const CTrial& trial) const {
    std::vector<std::string> titles = {OWN_TITLE, "bas00002"};
    if (IsNewFile(trial.eWay) && access(TargetOf(trial).c_str(), F_OK) == 0) {
        titles.push_back(NEW_TITLE);
    }
    std::vector<std::string> listed;
    for (const ARCHIVEENTRY& entry : CArchiveFolder(m_strArchive.c_str(), EXTENSION).List()) {
        listed.emplace_back(entry.szFileTitle);
    }
    std::sort(listed.begin(), listed.end());
    if (listed != titles) {
        return "a listing of " + std::to_string(listed.size()) + " variants";
    }
    if (ReadBytes(m_strArchive + "/bas00002." + EXTENSION) != OtherFile().Bytes()) {
        return "another variant is damaged";
    }
    const bool bOwn = !IsNewFile(trial.eWay) && IsNew(trial);
    if (!bOwn &&
        ReadBytes(m_strArchive + "/" + OWN_TITLE + "." + EXTENSION) != OldFile(trial.nSize).Bytes()) {
        return "the old variant is neither the old one nor the new one";
    }
    return titles.size() == 3 && !IsNew(trial) ? "the new variant is not whole" : "";
}

std::vector<std::string> CTrialArchive::Strays() const {
    std::vector<std::string> strays;
    for (const auto& entry : std::filesystem::directory_iterator(m_strArchive)) {
        if (entry.is_regular_file() && entry.path().extension() != std::string(".") + EXTENSION) {
            strays.push_back(entry.path().filename());
        }
    }
    return strays;
}

bool CTrialArchive::CanSave(const CTrial& trial) const {
    const pid_t nProcess = fork();
    if (nProcess == 0) {
        SaveDocument(trial, m_strArchive + "/", open("/dev/null", O_WRONLY | O_CLOEXEC));
        _exit(0);
    }
    int nStatus = 0;
    waitpid(nProcess, &nStatus, 0);
    return nStatus == 0 && IsNew(trial);
}

CWatchedEnd CTrialArchive::Run(const CSaver& save, const CTrial& trial,
                               const std::function<CVerdict(const FILECALL&)>& decide) const {
    std::vector<std::string> folders = {m_strArchive};
    if (trial.eWay == EWay::inPlace) {
        folders.push_back(m_strRoot + "/settings");
    }
    return RunWatched(
        folders, [&](int nReport) { save(trial, m_strArchive + "/", nReport); },
        [&](const FILECALL& call) {
            const CVerdict verdict = decide(call);
            const bool bLink = trial.eWay == EWay::asNewByLink && call.strName == "renameat2";
            return bLink && verdict.eKind == CVerdict::EKind::happens
                       ? CVerdict{CVerdict::EKind::fails, EINVAL}
                       : verdict;
        });
}
