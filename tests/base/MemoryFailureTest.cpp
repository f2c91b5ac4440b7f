// Every allocation of strings, arrays, archives and texts fails once: the library's own exception comes out
// and what was worked on is as it was.

#include <cstdlib>
#include <functional>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/DWordArray.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Number.h"
#include "tessara/platform/base/ObArray.h"
#include "tessara/platform/base/StringArray.h"
#include "tessara/platform/base/Text.h"
#include "tessara/platform/files/MemFile.h"

namespace {

int g_nAllocationsLeft = -1; ///< the allocation after these fails; negative: none does

} // namespace

// Inlined, the two would look to the compiler as if they did not belong together.
[[gnu::noinline]] void* operator new(std::size_t nBytes) {
    void* const pBlock =
        g_nAllocationsLeft >= 0 && g_nAllocationsLeft-- == 0 ? nullptr : std::malloc(nBytes ? nBytes : 1);
    if (!pBlock) {
        throw std::bad_alloc();
    }
    return pBlock;
}
[[gnu::noinline]] void operator delete(void* pBlock) noexcept {
    std::free(pBlock);
}
[[gnu::noinline]] void operator delete(void* pBlock, std::size_t) noexcept {
    std::free(pBlock);
}

namespace {

constexpr const char* LONG_TEXT = "cloud-point curves, shadow curves and spinodals of a polymer solution";
constexpr int FAR_TOO_MANY = std::numeric_limits<int>::max();

/// What every operation gets afresh.
struct CThings {
    CThings() {
        for (const char* pszText : {LONG_TEXT, "", LONG_TEXT + 1}) {
            texts.Add(pszText);
        }
        numbers.InsertAt(0, 7, 3);
        objects.SetSize(3);
        file.Write(LONG_TEXT, 60);
    }
    /// All there is to see of them.
    std::vector<std::string> Seen() const {
        std::vector<std::string> seen{std::string(text.View())};
        for (int i = 0; i < texts.GetSize(); ++i) {
            seen.emplace_back(texts[i].View());
        }
        for (int i = 0; i < numbers.GetSize(); ++i) {
            seen.push_back(std::to_string(numbers[i]));
        }
        seen.push_back(std::to_string(objects.GetSize()));
        seen.emplace_back(file.GetBuffer().begin(), file.GetBuffer().end());
        return seen;
    }

    CString text = LONG_TEXT;
    CStringArray texts;
    CDWordArray numbers;
    CObArray objects;
    CMemFile file;
};

using COperation = std::function<void(CThings&)>;

/// Runs an operation with its first, second, ... allocation failing until it succeeds: how often it failed.
int FailEachAllocation(const COperation& operation) {
    for (int nFailing = 0;; ++nFailing) {
        CThings things;
        const std::vector<std::string> before = things.Seen();
        bool bFailed = false;
        g_nAllocationsLeft = nFailing;
        try {
            operation(things);
        } catch (const CMemoryException&) {
            bFailed = true;
        } catch (const CArchiveException&) { // what some operations are for
        } catch (const CFileException&) {
        }
        g_nAllocationsLeft = -1;
        if (!bFailed) {
            return nFailing;
        }
        EXPECT_EQ(things.Seen(), before) << "after " << nFailing << " allocations";
    }
}

TEST(MemoryFailure, IsAMemoryExceptionAndLeavesEverythingAsItWas) {
    const CString strLong(LONG_TEXT);
    CThings others;
    const std::u32string strCharacters(60, U'\x3C7');
    const std::vector<BYTE> block(9000);
    const COperation operations[] = {
        [&](CThings&) { CString made(LONG_TEXT); },
        [&](CThings&) { CString made('x', 60); },
        [&](CThings&) { CString copy(strLong); },
        [&](CThings&) { (void)strLong.Mid(1); },
        [&](CThings&) { (void)strLong.Left(60); },
        [&](CThings&) { (void)strLong.Right(60); },
        [&](CThings&) { (void)(strLong + strLong); },
        [&](CThings&) { (void)strLong.CompareNoCase(LONG_TEXT); },
        [&](CThings& it) { it.text += strLong; },
        [&](CThings& it) { it.text += LONG_TEXT; },
        [&](CThings& it) { it.text = strLong + LONG_TEXT + 'x'; },
        [&](CThings& it) { it.texts[1] = strLong; },
        [&](CThings& it) { it.text.Format("%s, %s", LONG_TEXT, LONG_TEXT); },
        [&](CThings& it) { it.texts.Add(strLong); },
        [&](CThings& it) { it.texts.SetAt(1, strLong); },
        [&](CThings& it) { it.texts.SetAtGrow(9, strLong); },
        [&](CThings& it) { it.texts.InsertAt(1, strLong, 3); },
        [&](CThings& it) { it.texts.InsertAt(10, strLong, 3); },
        [&](CThings& it) { it.texts.SetSize(60); },
        [&](CThings& it) { it.texts.Append(others.texts); },
        [&](CThings& it) { it.texts.Copy(others.texts); },
        [&](CThings& it) { it.numbers.InsertAt(10, 5, 60); },
        [&](CThings& it) { it.objects.SetAtGrow(60, nullptr); },
        [&](CThings& it) { it.file.Write(block.data(), 9000); },
        [&](CThings& it) { CArchive archive(&it.file, CArchive::store); },
        [&](CThings&) { (void)tessara::FormatText("%70.3f", 1.0); },
        [&](CThings&) { (void)tessara::FormatValue("%70.3f", 1.0); },
        [&](CThings&) { (void)tessara::DecodeText(LONG_TEXT); },
        [&](CThings&) { (void)tessara::EncodeUtf8(strCharacters); },
        [&](CThings&) { (void)tessara::EncodeWindows1252(strCharacters); },
        [&](CThings&) { AfxThrowArchiveException(CArchiveException::badSchema); },
        [&](CThings&) { AfxThrowFileException(CFileException::diskFull, -1, LONG_TEXT); },
    };
    for (const COperation& operation : operations) {
        EXPECT_GT(FailEachAllocation(operation), 0) << &operation - operations;
    }
}

TEST(MemoryFailure, ASizeThatCannotBeIsAMemoryExceptionToo) {
    CThings things;
    const std::vector<std::string> before = things.Seen();
    EXPECT_THROW(things.numbers.InsertAt(10, 1, FAR_TOO_MANY), CMemoryException);
    EXPECT_THROW(things.numbers.InsertAt(FAR_TOO_MANY, 1), CMemoryException);
    EXPECT_THROW(things.numbers.InsertAt(1, 1, FAR_TOO_MANY), CMemoryException);
    EXPECT_THROW(things.texts.InsertAt(0, LONG_TEXT, FAR_TOO_MANY), CMemoryException);
    EXPECT_EQ(things.Seen(), before);
}

} // namespace
