#include "tessara/document/PendingVariant.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace tessara {

namespace {

std::vector<CPendingVariant*>& All() {
    static std::vector<CPendingVariant*> all;
    return all;
}

} // namespace

CPendingVariant::CPendingVariant(EKind eKind, const CArchiveFolder& folder, const std::string& strTitle,
                                 const CVariantHeader& header, const std::string& strComment)
    : m_eKind(eKind), m_folder(folder), m_strTitle(strTitle), m_header(header), m_strComment(strComment) {
    m_header.nCommentLength = static_cast<int>(m_strComment.size());
    if (m_eKind == EKind::replacing) {
        m_replaced = CFileStamp::At(GetPath().c_str());
    }
    All().push_back(this);
}

CPendingVariant::~CPendingVariant() {
    std::erase(All(), this);
}

CPendingVariant* CPendingVariant::Find(const char* lpszPath) {
    const auto found = std::find_if(All().rbegin(), All().rend(), [&](const CPendingVariant* pPending) {
        return pPending->GetPath() == lpszPath;
    });
    return found == All().rend() ? nullptr : *found;
}

void CPendingVariant::MakeFolder() const {
    const std::filesystem::path folder = std::filesystem::path(GetPath()).parent_path();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw CFileException::FromErrno(error.value(), folder.c_str());
    }
}

void CPendingVariant::Write(CFile& file) const {
    const CVariantHeader::CBytes bytes = m_header.Format();
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    if (!m_strComment.empty()) {
        file.Write(m_strComment.c_str(), static_cast<UINT>(m_strComment.size() + 1));
    }
}

} // namespace tessara
