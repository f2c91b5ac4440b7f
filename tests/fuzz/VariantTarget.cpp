// Hostile bytes as a file of an archive: listed, checked, opened, opened as a document and saved again.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tessara/document/ArchiveFolder.h"
#include "tessara/document/BaseFile.h"
#include "tessara/document/BaseVariant.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tests/document/VariantFiles.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/Record.h"

namespace {

using tessara::CArchiveFolder;
using tessara::CVariantFile;

class CDocumentOfRecords : public CBaseVariant {
public:
    CDocumentOfRecords() { Fill(); }
    CRecord m_record{3};
    int m_nReports = 0;

    void Fill() {
        m_record.curve.SetDimensions(1);
        m_record.curve.Allocate(2);
        m_nVariantNumber = 7;
    }
    bool IsAsFilled() const { return m_record.curve.m_nPoints == 2 && m_nVariantNumber == 7; }
    bool IsEmpty() const { return m_record.curve.m_nPoints == 0 && m_nVariantNumber == -1; }

    void Serialize(CArchive& ar) override { m_record.Serialize(ar); }
    void DeleteContents() override { m_record.curve.Free(); }
    void ReportSaveLoadException(const char*, const std::exception*, BOOL, UINT) override { ++m_nReports; }
};

/// A folder in memory where there is one, with one file in it.
class CPlace {
public:
    CPlace() : m_strFolder(Root() + "/tessara-fuzz-XXXXXX") {
        Demand(mkdtemp(m_strFolder.data()), "a folder can be made");
    }
    ~CPlace() { std::filesystem::remove_all(m_strFolder); }
    CPlace(const CPlace&) = delete;
    CPlace& operator=(const CPlace&) = delete;

    std::string Directory() const { return m_strFolder + "/"; }
    std::string File() const { return Directory() + "bas00001.bva"; }
    void Put(const std::uint8_t* pData, std::size_t nSize) const {
        std::ofstream(File(), std::ios::binary)
            .write(reinterpret_cast<const char*>(pData), static_cast<std::streamsize>(nSize));
    }

private:
    static std::string Root() {
        return access("/dev/shm", W_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path().string();
    }
    std::string m_strFolder;
};

void List(const CPlace& place) {
    const CArchiveFolder folder(place.Directory().c_str(), "bva");
    const auto entries = folder.List();
    const std::string strFault = folder.Check().at(0).strFault;
    Demand(entries.empty() == !(strFault.empty() || strFault == "ends before its comment does"),
           "what is listed has no fault but in its comment");
    Demand(tessara::NextTitle(entries) == (entries.empty() ? "bas00001" : "bas00002"), "the next title");
    const auto header = folder.ReadHeader("bas00001");
    const auto comment = folder.ReadComment("bas00001");
    Demand(header.has_value() != entries.empty() && comment.has_value() == header.has_value(),
           "what is listed can be read");
    Demand(!header || comment->size() <= static_cast<std::size_t>(header->nCommentLength),
           "the comment's length");
}

void Open(const CPlace& place) {
    CBaseFile file;
    if (!file.Open(place.File().c_str(), 1, FALSE)) {
        return;
    }
    file.SeekToBegin();
    Demand(file.GetPosition() >= 290 && file.GetPosition() == file.m_dwDataOffset, "where the data begin");
    const int nNumber = file.GetNumber();
    Demand(nNumber >= -0x8000 && nNumber < 0x8000, "the number");
}

void OpenDocument(const CPlace& place) {
    CDocumentOfRecords document;
    if (document.OnOpenDocument(place.File().c_str())) {
        Demand(document.m_nReports == 0, "no word of what went well");
        document.m_record.curve.SetDimensions(4);
        Demand(document.OnSaveDocument(place.File().c_str()), "what was opened can be saved");
        CDocumentOfRecords again;
        Demand(again.OnOpenDocument(place.File().c_str()) &&
                   again.m_record.Bytes() == document.m_record.Bytes(),
               "what was saved can be opened");
        return;
    }
    Demand(document.m_nReports == 1, "a file that cannot be opened is told of once");
    Demand(document.IsAsFilled() || document.IsEmpty(), "an open document stays or is emptied");
}

} // namespace

std::vector<std::string> Seeds() {
    return {CVariantFile{.strData = CRecord::Sample(2, 10)}.Bytes(),
            CVariantFile{.strComment = "what it is about", .strData = CRecord::Sample(0, 0)}.Bytes(),
            CVariantFile{.nNumber = 300, .strComment = std::string(500, 'c'), .strTag = "ab"}.Bytes()};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    static CWinApp s_app("Fuzz");
    static const CPlace s_place;
    s_place.Put(pData, nSize);
    List(s_place);
    Open(s_place);
    OpenDocument(s_place);
    return 0;
}
