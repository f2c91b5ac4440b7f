#include "tessara/platform/gdi/MetaFileDC.h"

#include <algorithm>
#include <cstring>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/MetafileRecorder.h"

IMPLEMENT_DYNAMIC(CMetaFileDC, CDC)

CMetaFileDC::CMetaFileDC() = default;
CMetaFileDC::~CMetaFileDC() = default;

BOOL CMetaFileDC::Create(const char* pszFileName) {
    if (pszFileName || GetSink()) {
        return FALSE;
    }
    Attach(tessara::WithMemoryException([] { return std::make_unique<tessara::CMetafileRecorder>(); }));
    return TRUE;
}

HMETAFILE CMetaFileDC::Close() {
    const std::unique_ptr<tessara::CDrawSink> pSink = Detach();
    auto* pRecorder = static_cast<tessara::CMetafileRecorder*>(pSink.get());
    return pRecorder
               ? tessara::WithMemoryException([&] { return new tessara::CPicture(pRecorder->Finish()); })
               : nullptr;
}

UINT GetMetaFileBitsEx(HMETAFILE hPicture, UINT nSize, void* pData) {
    if (!hPicture) {
        return 0;
    }
    const std::vector<BYTE>& bytes = hPicture->GetBytes();
    if (!pData) {
        return static_cast<UINT>(bytes.size());
    }
    const std::size_t nCount = std::min<std::size_t>(nSize, bytes.size());
    std::memcpy(pData, bytes.data(), nCount);
    return static_cast<UINT>(nCount);
}

BOOL DeleteMetaFile(HMETAFILE hPicture) {
    delete hPicture;
    return hPicture != nullptr;
}
