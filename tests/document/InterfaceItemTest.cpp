#include "tessara/document/InterfaceItem.h"

#include <gmock/gmock.h>

#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/files/MemFile.h"

namespace {

using ::testing::ElementsAre;

constexpr tessara::CStringResource NAMES[] = {{901, "Temperature"}, {902, "Pressure"}, {903, "Volume"}};

CInterfaceItemArray Items(std::initializer_list<BOOL> switches) {
    CInterfaceItemArray items;
    UINT nID = 901;
    for (const BOOL bSelected : switches) {
        CInterfaceItem item(AFP_INTERFACE_ENTRY{nID++, -1, 0, bSelected});
        items.Add(item);
    }
    return items;
}

std::vector<BOOL> SwitchesOf(const CInterfaceItemArray& items) {
    std::vector<BOOL> switches;
    for (int i = 0; i < items.GetSize(); ++i) {
        switches.push_back(items[i].m_bSelected);
    }
    return switches;
}

std::string Stored(CInterfaceItemArray items) {
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    items.SerializeSwitches(archive);
    archive.Close();
    std::string strBytes(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(strBytes.data(), static_cast<UINT>(strBytes.size()));
    return strBytes;
}

void Load(CInterfaceItemArray& items, const std::string& strBytes) {
    CMemFile file;
    file.Write(strBytes.data(), static_cast<UINT>(strBytes.size()));
    file.SeekToBegin();
    CArchive archive(&file, CArchive::load);
    items.SerializeSwitches(archive);
}

TEST(InterfaceItem, IsNamedByItsStringAndFoundByItsNumber) {
    tessara::AddStringResources(NAMES);
    CInterfaceItemArray items = Items({1, 0});
    EXPECT_EQ(items[1].m_strName, "Pressure");
    items.SelectItem(902, 7);
    items.SelectItem(999, 1);
    EXPECT_EQ(items.IsItemSelected(902), 7);
    EXPECT_EQ(items.IsItemSelected(999), 0);
    EXPECT_THAT(SwitchesOf(items), ElementsAre(1, 7));
}

TEST(InterfaceItem, SwitchesAreStoredAndLoadedByPosition) {
    using namespace std::string_literals;
    EXPECT_EQ(Stored(Items({})), "\0\0\0\0"s);
    const std::string strThree = Stored(Items({1, 0, 1}));
    EXPECT_EQ(strThree, "\3\0\0\0\1\0\0\0\0\0\0\0\1\0\0\0"s);
    CInterfaceItemArray two = Items({0, 1});
    Load(two, strThree);
    EXPECT_THAT(SwitchesOf(two), ElementsAre(1, 0));
    CInterfaceItemArray four = Items({0, 1, 0, 5});
    Load(four, strThree);
    EXPECT_THAT(SwitchesOf(four), ElementsAre(1, 0, 1, 5));
}

TEST(InterfaceItem, ACutRecordChangesNoSwitch) {
    const std::string strThree = Stored(Items({1, 1, 1}));
    std::string strHuge = strThree;
    strHuge[3] = '\x7F'; // two thousand millions of switches
    for (std::size_t nLength = 0; nLength <= strThree.size(); ++nLength) {
        CInterfaceItemArray items = Items({0, 0, 0});
        const bool bWhole = nLength == strThree.size();
        EXPECT_THROW(Load(items, bWhole ? strHuge : strThree.substr(0, nLength)), CArchiveException)
            << nLength;
        EXPECT_THAT(SwitchesOf(items), ElementsAre(0, 0, 0)) << nLength;
    }
}

} // namespace
