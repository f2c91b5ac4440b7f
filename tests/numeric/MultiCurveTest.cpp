#include "tessara/numeric/MultiCurve.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <unistd.h>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/MemFile.h"

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

/// Loads from a pipe; 0, or the cause of the exception, negative.
std::int64_t LoadFromPipe(CMultiCurve& curve, const CBytes& bytes) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    EXPECT_EQ(write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    CFile file(("/proc/self/fd/" + std::to_string(ends[0])).c_str(), CFile::modeRead);
    close(ends[0]);
    close(ends[1]);
    CArchive ar(&file, CArchive::load);
    try {
        curve.Serialize(ar);
    } catch (const CArchiveException& error) {
        return -error.m_cause;
    }
    return 0;
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

/// One column, two points.
class MultiCurve : public testing::Test {
protected:
    MultiCurve() : curve(1) {
        curve.Allocate(2);
        curve.m_pX[0] = 1, curve.m_pX[1] = 2;
        curve.m_ppY[0][0] = -0.5, curve.m_ppY[0][1] = 1.0 / 3;
    }
    CMultiCurve curve;
};

TEST_F(MultiCurve, EveryByteOfTheRecordIsAsTheFormatSays) {
    EXPECT_THAT(Stored(curve), ElementsAre(1, 0, 0, 0, 2, 0, 0, 0,       //
                                           0, 0, 0, 0, 0, 0, 0xF0, 0x3F, //
                                           0, 0, 0, 0, 0, 0, 0, 0x40,    //
                                           0, 0, 0, 0, 0, 0, 0xE0, 0xBF, //
                                           0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0xD5, 0x3F));
}

TEST_F(MultiCurve, HostileCountsAndACutAnywhereAreRefusedBeforeAnythingChanges) {
    constexpr int nMax = std::numeric_limits<int>::max();
    constexpr int INDEX = CArchiveException::badIndex;
    constexpr int END = CArchiveException::endOfFile;
    const int cases[][4] = {
        // Columns, points, bytes after them, cause.
        {-1, 0, 0, INDEX},   {0, -1, 0, INDEX},     {-nMax, -nMax, 0, INDEX}, {-2, 3, 99, INDEX},
        {nMax, 0, 0, INDEX}, {nMax, nMax, 99, END}, {1, nMax, 99, END},       {nMax, 1, 99, END},
        {2, 3, 71, END},     {0, 1, 7, END},        {0x1FFFFFFF, 8, 99, END},
    };
    const CBytes bytes = Stored(curve);
    for (const auto& item : cases) {
        CBytes hostile(8 + static_cast<std::size_t>(item[2]));
        std::memcpy(&hostile[0], item, 8);
        EXPECT_EQ(Load(curve, hostile), -item[3]) << item[0] << " columns, " << item[1] << " points";
        EXPECT_EQ(LoadFromPipe(curve, hostile), -item[3]) << item[0] << " columns, " << item[1] << " points";
        EXPECT_EQ(Stored(curve), bytes);
    }
    for (CBytes cut = bytes; !cut.empty();) {
        cut.pop_back();
        EXPECT_EQ(Load(curve, cut), -END) << cut.size();
        EXPECT_EQ(LoadFromPipe(curve, cut), -END) << cut.size();
        EXPECT_EQ(Stored(curve), bytes);
    }
    std::mt19937 random(5);
    for (int nRound = 0; nRound < 5000; ++nRound) {
        CBytes damaged = bytes;
        damaged[random() % 8] = static_cast<BYTE>(random() % 2 ? random() % 6 : random());
        damaged[random() % damaged.size()] = static_cast<BYTE>(random());
        if (const std::int64_t nLeft = Load(curve, damaged); nLeft >= 0) {
            damaged.erase(damaged.end() - nLeft, damaged.end());
            EXPECT_EQ(Stored(curve), damaged) << "loads as the bytes say or not at all";
        }
    }
}

TEST_F(MultiCurve, LoadsAnyShapeFromWhatHasNoLength) {
    class CUnending : public CMemFile {
    public:
        bool HasLength() const override { return false; }
    };
    for (const auto& [nDimensions, nPoints] : {std::pair(3, 50000), {3000, 2}, {0, 4}, {2, 0}, {1, 2}}) {
        CMultiCurve shape(nDimensions);
        shape.Allocate(nPoints);
        double dValue = 0;
        std::generate_n(shape.m_pX, nPoints, [&] { return ++dValue; });
        for (int j = 0; j < nDimensions; ++j) {
            std::generate_n(shape.m_ppY[j], nPoints, [&] { return ++dValue; });
        }
        CBytes bytes = Stored(shape);
        bytes.push_back(99);
        CUnending file;
        file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
        file.SeekToBegin();
        CArchive ar(&file, CArchive::load);
        CMultiCurve loaded(1);
        loaded.Allocate(2);
        const double* const pX = loaded.m_pX;
        loaded.Serialize(ar);
        BYTE nNext = 0;
        ar >> nNext;
        EXPECT_EQ(nNext, 99);
        EXPECT_TRUE(Stored(loaded) == Stored(shape)) << nDimensions << " columns, " << nPoints << " points";
        EXPECT_EQ(loaded.m_pX == pX, nDimensions == 1) << "arrays of the same counts are kept";
    }
}

TEST_F(MultiCurve, ChangingTheColumnsDropsThePointsAndTheSameCountDoesNot) {
    curve.SetDimensions(1);
    EXPECT_EQ(curve.Max(0), 1.0 / 3);
    curve.SetDimensions(5);
    EXPECT_EQ(curve.m_nPoints, 0);
    EXPECT_THAT(std::vector<double*>(curve.m_ppY, curve.m_ppY + 5), testing::Each(nullptr));
    curve.SetDimensions(0);
    EXPECT_EQ(curve.m_ppY, nullptr);
}

TEST_F(MultiCurve, AssignmentCopiesFromAndIntoEveryShape) {
    const std::pair<int, int> shapes[] = {{0, 0}, {1, 0}, {1, 2}, {1, 9}, {1, 1}, {5, 3}, {0, 4}};
    for (const auto& [nDimensions, nPoints] : shapes) {
        CMultiCurve shape(nDimensions);
        shape.Allocate(nPoints);
        CMultiCurve copy(1);
        copy = shape;
        EXPECT_EQ(copy.m_nDimensions, nDimensions);
        EXPECT_EQ(copy.m_nPoints, nDimensions ? nPoints : 0);
        shape = curve;
        shape = *&shape;
        EXPECT_EQ(Stored(shape), Stored(curve));
        shape.m_ppY[0][0] = 0;
        EXPECT_EQ(curve.m_ppY[0][0], -0.5) << "the copy is independent";
    }
}

} // namespace
