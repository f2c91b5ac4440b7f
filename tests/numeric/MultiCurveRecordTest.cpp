#include <limits>
#include <random>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/numeric/MultiCurve.h"
#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/MemFile.h"
#include "tests/numeric/Samples.h"

namespace {

using testing::ElementsAre;

using CBytes = std::vector<BYTE>;

CBytes Stored(CMultiCurve& curve) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    curve.Serialize(ar);
    ar.Close();
    return {file.GetBuffer().begin(), file.GetBuffer().end()};
}

/// Loads from bytes and returns how many were left, or the cause of the exception, negative.
std::int64_t Load(CMultiCurve& curve, const CBytes& bytes) {
    CMemFile file;
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load);
    try {
        curve.Serialize(ar);
    } catch (const CArchiveException& error) {
        return -error.m_cause;
    }
    return static_cast<std::int64_t>(ar.GetRemaining());
}

CBytes Counts(int nDimensions, int nPoints, std::size_t nBytesAfter = 0) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    ar << nDimensions << nPoints;
    ar.Close();
    CBytes bytes(file.GetBuffer().begin(), file.GetBuffer().end());
    bytes.resize(bytes.size() + nBytesAfter);
    return bytes;
}

/// Two columns, three points.
class MultiCurveRecord : public testing::Test {
protected:
    MultiCurveRecord() : curve(2) {
        curve.Allocate(3);
        for (int i = 0; i < 3; ++i) {
            curve.m_pX[i] = i;
            curve.m_ppY[0][i] = 10 + i;
            curve.m_ppY[1][i] = -i;
        }
    }
    CMultiCurve curve;
};

TEST_F(MultiCurveRecord, EveryByteIsAsTheFormatSays) {
    CMultiCurve small(1);
    small.Allocate(2);
    small.m_pX[0] = 1, small.m_pX[1] = 2;
    small.m_ppY[0][0] = -0.5, small.m_ppY[0][1] = 1.0 / 3;
    EXPECT_THAT(Stored(small), ElementsAre(1, 0, 0, 0, 2, 0, 0, 0,       //
                                           0, 0, 0, 0, 0, 0, 0xF0, 0x3F, //
                                           0, 0, 0, 0, 0, 0, 0, 0x40,    //
                                           0, 0, 0, 0, 0, 0, 0xE0, 0xBF, //
                                           0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0xD5, 0x3F));
    CMultiCurve empty;
    EXPECT_EQ(Stored(empty), CBytes(8));
    EXPECT_EQ(Stored(curve).size(), 80U);
}

TEST_F(MultiCurveRecord, LoadsIntoEveryShape) {
    const CBytes bytes = Stored(curve);
    const struct {
        int nDimensions;
        int nPoints;
    } shapes[] = {{0, 0}, {2, 3}, {2, 0}, {2, 7}, {5, 10}, {1, 3}, {0, 3}};
    for (const auto& shape : shapes) {
        CMultiCurve loaded(shape.nDimensions);
        loaded.Allocate(shape.nPoints);
        const double* pPrevious = loaded.m_pX;
        EXPECT_EQ(Load(loaded, bytes), 0);
        EXPECT_EQ(Stored(loaded), bytes);
        if (shape.nDimensions == 2 && shape.nPoints == 3) {
            EXPECT_EQ(loaded.m_pX, pPrevious) << "arrays of the right size are kept";
        }
    }
}

TEST_F(MultiCurveRecord, WithoutPointsOrWithoutColumns) {
    EXPECT_EQ(Load(curve, Counts(4, 0, 5)), 5);
    EXPECT_EQ(curve.m_nDimensions, 4);
    EXPECT_EQ(curve.m_nPoints, 0);
    CBytes bytes = Counts(0, 4, 33);
    bytes[15] = 0x40;
    EXPECT_EQ(Load(curve, bytes), 1) << "the archive stands behind the 40 bytes of the record";
    EXPECT_EQ(curve.m_ppY, nullptr);
    EXPECT_THAT(samples::Values(curve.m_pX, curve.m_nPoints), ElementsAre(2, 0, 0, 0));
}

TEST_F(MultiCurveRecord, HostileCountsAreRefusedBeforeAnythingChanges) {
    constexpr int nMax = std::numeric_limits<int>::max();
    constexpr int nMin = std::numeric_limits<int>::min();
    const struct {
        int nDimensions;
        int nPoints;
        std::size_t nBytesAfter;
        int nCause;
    } cases[] = {
        {-1, 0, 0, CArchiveException::badIndex},           {0, -1, 0, CArchiveException::badIndex},
        {nMin, nMin, 0, CArchiveException::badIndex},      {-2, 3, 99, CArchiveException::badIndex},
        {nMax, 0, 0, CArchiveException::badIndex},         {nMax, nMax, 99, CArchiveException::endOfFile},
        {1, nMax, 99, CArchiveException::endOfFile},       {nMax, 1, 99, CArchiveException::endOfFile},
        {2, 3, 71, CArchiveException::endOfFile},          {0, 1, 7, CArchiveException::endOfFile},
        {0x1FFFFFFF, 8, 99, CArchiveException::endOfFile},
    };
    const CBytes before = Stored(curve);
    for (const auto& item : cases) {
        EXPECT_EQ(Load(curve, Counts(item.nDimensions, item.nPoints, item.nBytesAfter)), -item.nCause)
            << item.nDimensions << " columns, " << item.nPoints << " points";
        EXPECT_EQ(Stored(curve), before);
    }
}

TEST_F(MultiCurveRecord, CutShortAnywhereItIsRefused) {
    const CBytes bytes = Stored(curve);
    for (std::size_t nLength = 0; nLength < bytes.size(); ++nLength) {
        CMultiCurve loaded;
        EXPECT_EQ(Load(loaded, CBytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(nLength))),
                  -CArchiveException::endOfFile)
            << nLength;
        EXPECT_EQ(loaded.m_nPoints, 0);
    }
}

TEST_F(MultiCurveRecord, DamagedBytesLoadAsTheySayOrNotAtAll) {
    std::mt19937 random(5);
    const CBytes bytes = Stored(curve);
    for (int nRound = 0; nRound < 5000; ++nRound) {
        CBytes damaged = bytes;
        damaged[random() % 8] = static_cast<BYTE>(random() % 2 ? random() % 6 : random());
        damaged[random() % damaged.size()] = static_cast<BYTE>(random());
        const std::int64_t nLeft = Load(curve, damaged);
        if (nLeft >= 0) {
            damaged.resize(damaged.size() - static_cast<std::size_t>(nLeft));
            EXPECT_EQ(Stored(curve), damaged);
        }
    }
}

} // namespace
