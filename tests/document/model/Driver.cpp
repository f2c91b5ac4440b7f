/// Does with an archive what it is told, a line at a time, and answers with a line or more and a last one
/// ".". Words are separated by blanks, texts are in hexadecimal digits, "-" is an empty one. What there is
/// stands in the table at the end.

#include <fcntl.h>
#include <unistd.h>

#include <functional>
#include <iostream>
#include <map>
#include <sstream>

#include "tessara/document/BaseFile.h"
#include "tessara/document/BaseVariant.h"
#include "tessara/document/DialogControls.h"
#include "tessara/document/PendingVariant.h"
#include "tessara/numeric/MultiCurve.h"
#include "tests/document/Hands.h"

namespace {

using tessara::CArchiveFolder;
using tessara::CPendingVariant;
using tessara::CVariantHeader;
using tessara::NextTitle;

/// A document of bytes.
class CBytesDocument : public CBaseVariant {
public:
    std::string m_strBytes;

    void Serialize(CArchive& ar) override {
        if (ar.IsStoring()) {
            ar.Write(m_strBytes.data(), static_cast<UINT>(m_strBytes.size()));
        } else {
            m_strBytes.resize(ar.GetRemaining());
            ar.Read(m_strBytes.data(), static_cast<UINT>(m_strBytes.size()));
        }
    }
    void DeleteContents() override { m_strBytes.clear(); }
    void ReportSaveLoadException(const char*, const std::exception*, BOOL, UINT) override {}
};

/// The words of a command, one after the other.
class CWords {
public:
    explicit CWords(const std::string& strLine) : m_line(strLine) {}

    std::string Word() {
        std::string strWord;
        m_line >> strWord;
        return strWord;
    }
    int Number() { return std::stoi(Word()); }
    std::string Text() {
        const std::string strDigits = Word();
        std::string strText;
        for (std::size_t n = 0; n + 1 < strDigits.size(); n += 2) {
            strText += static_cast<char>(std::stoi(strDigits.substr(n, 2), nullptr, 16));
        }
        return strText;
    }

private:
    std::istringstream m_line;
};

std::string Hex(const std::string& strText) {
    static constexpr char DIGITS[] = "0123456789abcdef";
    std::string strDigits;
    for (const char c : strText) {
        strDigits += {DIGITS[(c >> 4) & 15], DIGITS[c & 15]};
    }
    return strDigits.empty() ? "-" : strDigits;
}

std::string DataOf(CFile& file) {
    std::string strData;
    char block[4096];
    while (const UINT nRead = file.Read(block, sizeof block)) {
        strData.append(block, nRead);
    }
    return strData;
}

CArchiveFolder Folder(CWords& words) {
    const std::string strFolder = words.Text();
    return {strFolder.c_str(), words.Text().c_str()};
}

void ListFolder(const CArchiveFolder& folder) {
    for (const ARCHIVEENTRY& entry : folder.List()) {
        const auto comment = folder.ReadComment(entry.szFileTitle);
        std::cout << Hex(entry.szFileTitle) << ' ' << Hex(entry.szBaseName) << ' ' << Hex(entry.szBaseTag)
                  << ' ' << entry.nVariantNumber << ' ' << Hex(entry.szVariantName) << ' '
                  << (comment ? Hex(*comment) : "none") << '\n';
    }
}

void List(CWords& words) {
    ListFolder(Folder(words));
}

void Check(CWords& words) {
    for (const tessara::CArchiveFinding& finding : Folder(words).Check()) {
        std::cout << Hex(finding.strName) << ' ' << Hex(finding.strFault) << '\n';
    }
}

/// Where the data begin, the number and the data; nothing for a file that is refused.
void OpenFile(const std::string& strPath) {
    CBaseFile file;
    if (file.Open(strPath.c_str(), 1, FALSE)) {
        const int nNumber = file.GetNumber();
        std::cout << file.m_dwDataOffset << ' ' << nNumber << ' ' << Hex(DataOf(file)) << '\n';
    }
}

void Open(CWords& words) {
    OpenFile(words.Text());
}

/// The same through a document that has contents of its own: whether it was opened, its number, its contents.
void OpenDocument(CWords& words) {
    CBytesDocument document;
    document.m_strBytes = "mine";
    document.m_nVariantNumber = 77;
    const BOOL bOpened = document.OnOpenDocument(words.Text().c_str());
    std::cout << bOpened << ' ' << document.m_nVariantNumber << ' ' << Hex(document.m_strBytes) << '\n';
}

/// PATH DATA: saves a document into its own file.
void Save(CWords& words) {
    const std::string strPath = words.Text();
    CBytesDocument document;
    document.m_strBytes = words.Text();
    std::cout << document.OnSaveDocument(strPath.c_str()) << '\n';
}

/// FOLDER EXTENSION TITLE BASE TAG NUMBER NAME COMMENT DATA: what follows a save wizard.
void SaveChosen(CPendingVariant::EKind eKind, CWords& words) {
    const CArchiveFolder folder = Folder(words);
    const std::string strGiven = words.Text();
    const std::string strTitle = strGiven.empty() ? NextTitle(folder.List()) : strGiven;
    CVariantHeader header;
    header.strBaseName = words.Text();
    header.strBaseTag = words.Text();
    header.nVariantNumber = words.Number();
    header.strVariantName = words.Text();
    const std::string strComment = words.Text();
    header.nCommentLength = static_cast<int>(strComment.size());
    const CPendingVariant pending(eKind, folder, strTitle, header, strComment);
    CBytesDocument document;
    document.m_strBytes = words.Text();
    const BOOL bSaved = document.OnSaveDocument(pending.GetPath().c_str());
    std::cout << bSaved << ' ' << Hex(pending.GetFileName()) << '\n';
}

void Create(CWords& words) {
    SaveChosen(CPendingVariant::EKind::creating, words);
}

void Replace(CWords& words) {
    SaveChosen(CPendingVariant::EKind::replacing, words);
}

/// FOLDER EXTENSION LINE: deletes a Base in the wizard, that of a line of its list.
void DeleteBase(CWords& words) {
    const std::string strFolder = words.Text();
    const std::string strExtension = words.Text();
    CWnd owner;
    owner.CreateEx(0, nullptr, "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 400, 300), nullptr, 0);
    {
        tessara::CHands hands;
        hands.Select(tessara::IDD_DELETE_BASE, tessara::IDC_BASES, words.Number())
            .Press(tessara::IDD_DELETE_BASE, tessara::IDC_DELETE)
            .Answer("Delete Base", "Are you sure you want to delete the selected Base?", QMessageBox::Yes);
        CBaseFile file(strFolder.c_str(), strExtension.c_str(), "", "");
        file.DeleteBase(&owner, -1);
    }
    owner.DestroyWindow();
}

/// FOLDER EXTENSION TITLE CHANGES: the listing and the opening of a file, with each byte of its header
/// changed by each of the bits in a byte of CHANGES.
void ChangeBytes(CWords& words) {
    const CArchiveFolder folder = Folder(words);
    const std::string strPath = folder.PathOf(words.Text());
    const std::string strChanges = words.Text();
    const int nFile = open(strPath.c_str(), O_RDWR | O_CLOEXEC);
    for (off_t nByte = 0; nByte < static_cast<off_t>(CVariantHeader::SIZE); ++nByte) {
        unsigned char was = 0;
        if (pread(nFile, &was, 1, nByte) != 1) {
            break;
        }
        for (const char cChange : strChanges) {
            const auto is = static_cast<unsigned char>(was ^ static_cast<unsigned char>(cChange));
            pwrite(nFile, &is, 1, nByte);
            std::cout << "change " << nByte << ' ' << int{is} << '\n';
            ListFolder(folder);
            std::cout << "opened\n";
            OpenFile(strPath);
        }
        pwrite(nFile, &was, 1, nByte);
    }
    close(nFile);
}

template <class RECORD>
std::string Stored(RECORD record) {
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    record(archive);
    archive.Close();
    file.SeekToBegin();
    return DataOf(file);
}

/// Loads a record from bytes and answers with what it stores then, or with nothing when it is refused.
template <class RECORD>
void LoadAndStore(const std::string& strBytes, RECORD record) {
    CMemFile file;
    file.Write(strBytes.data(), static_cast<UINT>(strBytes.size()));
    file.SeekToBegin();
    try {
        CArchive archive(&file, CArchive::load);
        record(archive);
        std::cout << Hex(Stored(record)) << '\n';
    } catch (const CArchiveException&) { // which is the answer
    }
}

/// COUNT BYTES: switches, for so many items that are off.
void LoadSwitches(CWords& words) {
    CInterfaceItemArray items;
    for (int nItem = words.Number(); nItem > 0; --nItem) {
        CInterfaceItem item(AFP_INTERFACE_ENTRY{1, -1, 0, FALSE});
        items.Add(item);
    }
    LoadAndStore(words.Text(), [&](CArchive& ar) { items.SerializeSwitches(ar); });
}

/// BYTES: a multi-curve.
void LoadCurve(CWords& words) {
    CMultiCurve curve;
    LoadAndStore(words.Text(), [&](CArchive& ar) { curve.Serialize(ar); });
}

const std::map<std::string, std::function<void(CWords&)>> COMMANDS = {
    {"list", List},

    {"check", Check},       {"open", Open},         {"document", OpenDocument},
    {"save", Save},         {"create", Create},     {"replace", Replace},
    {"delete", DeleteBase}, {"bytes", ChangeBytes}, {"switches", LoadSwitches},
    {"curve", LoadCurve}};

} // namespace

int main() {
    for (std::string strLine; std::getline(std::cin, strLine);) {
        CWords words(strLine);
        COMMANDS.at(words.Word())(words);
        std::cout << "." << std::endl;
    }
}
