// Hostile bytes as switches of items and a multi-curve.
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/Record.h"

namespace {

/// Nothing when the bytes are refused.
bool Load(CRecord& record, const std::uint8_t* pData, std::size_t nSize) {
    CMemFile file;
    file.Write(pData, static_cast<UINT>(nSize));
    file.SeekToBegin();
    CArchive archive(&file, CArchive::load);
    try {
        record.Serialize(archive);
        return true;
    } catch (const CArchiveException&) {
        return false;
    }
}

} // namespace

std::vector<std::string> Seeds() {
    return {CRecord::Sample(0, 0), CRecord::Sample(1, 0), CRecord::Sample(0, 5), CRecord::Sample(1, 20),
            CRecord::Sample(5, 7)};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    CRecord record(3);
    record.curve.SetDimensions(2);
    record.curve.Allocate(3);
    if (!Load(record, pData, nSize)) {
        Demand(record.curve.m_nDimensions == 2 && record.curve.m_nPoints == 3, "a refused curve stays");
        return 0;
    }
    const std::string strAgain = record.Bytes();
    CRecord copy(3);
    Demand(Load(copy, reinterpret_cast<const std::uint8_t*>(strAgain.data()), strAgain.size()),
           "what was stored can be loaded");
    Demand(copy.Bytes() == strAgain, "it is the same");
    return 0;
}
