#include "tessara/platform/base/Archive.h"

#include <functional>
#include <numeric>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/MemFile.h"

namespace {

int CauseOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const CArchiveException& error) {
        return error.m_cause;
    }
    return CArchiveException::none;
}

TEST(Archive, NumbersAreLittleEndianWithoutPadding) {
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    ar << BYTE{0xFE} << WORD{0x1234} << LONG{-2} << DWORD{0x89ABCDEF} << 1.5F << -2.0;
    ar.Close();
    EXPECT_THAT(file.GetBuffer(),
                testing::ElementsAre(0xFE, 0x34, 0x12, 0xFE, 0xFF, 0xFF, 0xFF, 0xEF, 0xCD, 0xAB, 0x89, 0, 0,
                                     0xC0, 0x3F, 0, 0, 0, 0, 0, 0, 0, 0xC0));

    file.SeekToBegin();
    CArchive loading(&file, CArchive::load);
    std::tuple<BYTE, WORD, LONG, DWORD, float, double> loaded;
    std::apply([&](auto&... values) { (loading >> ... >> values); }, loaded);
    EXPECT_EQ(loaded,
              (std::tuple<BYTE, WORD, LONG, DWORD, float, double>(0xFE, 0x1234, -2, 0x89ABCDEF, 1.5F, -2.0)));
}

TEST(Archive, RunsOfAnySizePassThroughTheBuffer) {
    for (const UINT nRun : {1U, 127U, 128U, 255U, 257U, 5000U}) {
        std::vector<BYTE> run(nRun);
        std::iota(run.begin(), run.end(), BYTE{1});
        CMemFile file;
        {
            CArchive ar(&file, CArchive::store, 128);
            ar << BYTE{7};
            ar.Write(run.data(), nRun);
            ar << BYTE{8};
            ar.Write(run.data(), nRun);
        }
        file.SeekToBegin();
        CArchive ar(&file, CArchive::load, 128);
        std::vector<BYTE> loaded(nRun + 5);
        BYTE nMark = 0;
        ar >> nMark;
        EXPECT_EQ(nMark, 7);
        EXPECT_EQ(ar.GetRemaining(), 2 * nRun + 1);
        EXPECT_EQ(ar.Read(loaded.data(), nRun), nRun);
        ar >> nMark;
        EXPECT_EQ(nMark, 8);
        EXPECT_EQ(ar.Read(loaded.data(), nRun + 5), nRun) << "the end inside bytes is counted";
        loaded.resize(nRun);
        EXPECT_EQ(loaded, run);
    }
}

TEST(Archive, TheEndInsideANumberAndTheWrongDirectionAreRefused) {
    CMemFile file;
    file.Write("abc", 3);
    file.SeekToBegin();
    CArchive loading(&file, CArchive::load);
    CArchive storing(&file, CArchive::store);
    int nValue = 5;
    EXPECT_EQ(CauseOf([&] { loading >> nValue; }), CArchiveException::endOfFile);
    EXPECT_EQ(CauseOf([&] { loading << nValue; }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf([&] { storing >> nValue; }), CArchiveException::writeOnly);
    storing.Close();
    EXPECT_EQ(CauseOf([&] { storing << nValue; }), CArchiveException::genericException);
    EXPECT_EQ(file.GetLength(), 3U);
}

template <class NUMBER>
concept CanBeStored = requires(CArchive& ar, NUMBER value) {
    ar << value;
};
template <class NUMBER>
concept CanBeLoaded = requires(CArchive& ar, NUMBER value) {
    ar >> value;
};

template <class... NUMBERS>
std::vector<bool> Storable() {
    return {CanBeStored<NUMBERS>...};
}

template <class... NUMBERS>
std::vector<bool> Loadable() {
    return {CanBeLoaded<NUMBERS>...};
}

TEST(Archive, WhatCannotBeExtractedCannotBeInsertedAtAnotherWidth) {
    EXPECT_THAT(
        (Storable<bool, char, signed char, short, wchar_t, char16_t, long, unsigned long, long double>()),
        testing::Each(false));
    EXPECT_EQ((Storable<BYTE, WORD, int, LONG, UINT, DWORD, float, double, short>()),
              (Loadable<BYTE, WORD, int, LONG, UINT, DWORD, float, double, short>()));
    EXPECT_TRUE((CanBeStored<BOOL> && CanBeStored<WORD> && CanBeStored<double>));
}

} // namespace
