#include "tessara/platform/base/Archive.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"

namespace {

using testing::ElementsAre;

/// Bytes in memory with room for a given number of them.
class CLimitedStream : public tessara::CByteStream {
public:
    explicit CLimitedStream(std::vector<BYTE> content = {}, std::size_t nRoom = 1 << 20)
        : bytes(std::move(content)), m_nRoom(nRoom) {}

    UINT Read(void* pBuffer, UINT nCount) override {
        const UINT nRead = std::min(nCount, static_cast<UINT>(GetRemaining()));
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(m_nPosition), nRead,
                    static_cast<BYTE*>(pBuffer));
        m_nPosition += nRead;
        return nRead;
    }
    void Write(const void* pBuffer, UINT nCount) override {
        if (bytes.size() + nCount > m_nRoom) {
            AfxThrowFileException(CFileException::diskFull);
        }
        const auto* pBytes = static_cast<const BYTE*>(pBuffer);
        bytes.insert(bytes.end(), pBytes, pBytes + nCount);
    }
    void Flush() override {}
    std::uint64_t GetRemaining() const override { return bytes.size() - m_nPosition; }

    std::vector<BYTE> bytes;

private:
    std::size_t m_nRoom;
    std::size_t m_nPosition = 0;
};

int CauseOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const CArchiveException& error) {
        return error.m_cause;
    }
    return CArchiveException::none;
}

TEST(Archive, NumbersAreLittleEndianWithoutPadding) {
    CLimitedStream stream;
    CArchive ar(&stream, CArchive::store);
    ar << BYTE{0xFE} << WORD{0x1234} << LONG{-2} << DWORD{0x89ABCDEF} << 1.5F << -2.0;
    ar.Close();
    EXPECT_THAT(stream.bytes, ElementsAre(0xFE, 0x34, 0x12, 0xFE, 0xFF, 0xFF, 0xFF, 0xEF, 0xCD, 0xAB, 0x89, 0,
                                          0, 0xC0, 0x3F, 0, 0, 0, 0, 0, 0, 0, 0xC0));

    CArchive loading(&stream, CArchive::load);
    std::tuple<BYTE, WORD, LONG, DWORD, float, double> loaded;
    std::apply([&](auto&... values) { (loading >> ... >> values); }, loaded);
    EXPECT_EQ(loaded,
              (std::tuple<BYTE, WORD, LONG, DWORD, float, double>(0xFE, 0x1234, -2, 0x89ABCDEF, 1.5F, -2.0)));
    EXPECT_EQ(loading.GetRemaining(), 0U);
}

TEST(Archive, RunsOfAnySizePassThroughTheBuffer) {
    for (const UINT nRun : {1U, 127U, 128U, 255U, 257U, 5000U}) {
        std::vector<BYTE> run(nRun);
        std::iota(run.begin(), run.end(), BYTE{1});
        CLimitedStream stream;
        {
            CArchive ar(&stream, CArchive::store, 128);
            ar << BYTE{7};
            ar.Write(run.data(), nRun);
            ar << BYTE{8};
            ar.Write(run.data(), nRun);
        }
        ASSERT_EQ(stream.bytes.size(), 2 * nRun + 2);

        CArchive ar(&stream, CArchive::load, 128);
        std::vector<BYTE> loaded(nRun);
        for (const BYTE nMark : {BYTE{7}, BYTE{8}}) {
            BYTE nByte = 0;
            ar >> nByte;
            EXPECT_EQ(nByte, nMark);
            EXPECT_EQ(ar.GetRemaining(), nMark == 7 ? 2 * nRun + 1 : nRun);
            EXPECT_EQ(ar.Read(loaded.data(), nRun), nRun);
            EXPECT_EQ(loaded, run);
        }
        EXPECT_EQ(ar.Read(loaded.data(), nRun), 0U);
    }
}

TEST(Archive, TheEndInsideANumberIsReportedInsideBytesItIsCounted) {
    CLimitedStream stream({1, 2, 3});
    CArchive ar(&stream, CArchive::load);
    int nValue = 0;
    EXPECT_EQ(CauseOf([&] { ar >> nValue; }), CArchiveException::endOfFile);

    CLimitedStream other({1, 2, 3});
    CArchive raw(&other, CArchive::load);
    BYTE bytes[8];
    EXPECT_EQ(raw.Read(bytes, 8), 3U);
}

TEST(Archive, TheWrongDirectionIsRefused) {
    CLimitedStream stream({1, 2, 3, 4});
    CArchive loading(&stream, CArchive::load);
    CArchive storing(&stream, CArchive::store);
    int nValue = 5;
    EXPECT_EQ(CauseOf([&] { loading << nValue; }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf([&] { storing >> nValue; }), CArchiveException::writeOnly);
    storing.Close();
    EXPECT_EQ(CauseOf([&] { storing << nValue; }), CArchiveException::genericException);
    EXPECT_EQ(storing.GetRemaining(), 0U);
    EXPECT_EQ(stream.bytes.size(), 4U);
    EXPECT_THROW(CArchive(nullptr, CArchive::load), CInvalidArgException);
}

TEST(Archive, AFullDiskIsReportedOnceAndNotByTheDestructor) {
    CLimitedStream stream({}, 100);
    {
        CArchive ar(&stream, CArchive::store, 128);
        const std::vector<BYTE> bytes(101);
        ar.Write(bytes.data(), 101);
        EXPECT_THROW(ar.Flush(), CFileException);
        EXPECT_NO_THROW(ar.Close());
    }
    {
        CArchive ar(&stream, CArchive::store, 128);
        const std::vector<BYTE> bytes(101);
        ar.Write(bytes.data(), 101);
    }
    EXPECT_TRUE(stream.bytes.empty());
}

} // namespace
