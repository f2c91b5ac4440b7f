#include "tessara/document/InterfaceItem.h"

#include <algorithm>
#include <utility>
#include <vector>

CInterfaceItem::CInterfaceItem(const AFP_INTERFACE_ENTRY& entry)
    : m_nID(entry.nID), m_nInformation(entry.nInformation), m_bSelected(entry.bSelected) {
    m_strName.LoadString(entry.nID);
}

CInterfaceItem::CInterfaceItem(const CInterfaceItem& src) : CObject() {
    *this = src;
}

CInterfaceItem::CInterfaceItem(CInterfaceItem&& src) noexcept : CObject() {
    *this = std::move(src);
}

CInterfaceItem& CInterfaceItem::operator=(const CInterfaceItem& src) {
    m_strName = src.m_strName;
    m_nID = src.m_nID;
    m_nInformation = src.m_nInformation;
    m_bSelected = src.m_bSelected;
    return *this;
}

CInterfaceItem& CInterfaceItem::operator=(CInterfaceItem&& src) noexcept {
    m_strName = std::move(src.m_strName);
    m_nID = src.m_nID;
    m_nInformation = src.m_nInformation;
    m_bSelected = src.m_bSelected;
    return *this;
}

CInterfaceItemArray::CInterfaceItemArray(const CInterfaceItemArray& src) : CArray() {
    *this = src;
}

CInterfaceItemArray& CInterfaceItemArray::operator=(const CInterfaceItemArray& src) {
    if (this != &src) {
        RemoveAll();
        for (int i = 0; i < src.GetSize(); ++i) {
            CInterfaceItem item = src[i];
            Add(item);
        }
    }
    return *this;
}

namespace {

/// Of a constant array the index is constant, of another it is not.
template <class ARRAY>
auto* FindItem(ARRAY& items, UINT nID) {
    auto* const pEnd = items.GetData() + items.GetSize();
    auto* const pFound =
        std::find_if(items.GetData(), pEnd, [nID](const CInterfaceItem& item) { return item.m_nID == nID; });
    return pFound == pEnd ? nullptr : pFound;
}

} // namespace

void CInterfaceItemArray::SelectItem(UINT nID, int bSelect) {
    if (CInterfaceItem* const pItem = FindItem(*this, nID)) {
        pItem->m_bSelected = bSelect;
    }
}

int CInterfaceItemArray::IsItemSelected(UINT nID) const {
    const CInterfaceItem* const pItem = FindItem(*this, nID);
    return pItem ? pItem->m_bSelected : FALSE;
}

void CInterfaceItemArray::SerializeSwitches(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << static_cast<DWORD>(GetSize());
        for (int i = 0; i < GetSize(); ++i) {
            ar << static_cast<LONG>(GetAt(i).m_bSelected);
        }
        return;
    }
    DWORD nCount;
    ar >> nCount;
    std::vector<LONG> switches(static_cast<std::size_t>(GetSize()));
    for (int i = 0; i < GetSize(); ++i) {
        switches[static_cast<std::size_t>(i)] = GetAt(i).m_bSelected;
    }
    for (DWORD i = 0; i < nCount; ++i) {
        LONG nSwitch;
        ar >> nSwitch; // throws at the end of the archive, so that no count makes this long
        if (i < switches.size()) {
            switches[i] = nSwitch;
        }
    }
    for (int i = 0; i < GetSize(); ++i) {
        ElementAt(i).m_bSelected = switches[static_cast<std::size_t>(i)];
    }
}
