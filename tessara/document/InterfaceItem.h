#pragma once

#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/Array.h"
#include "tessara/platform/base/String.h"

// What a document offers to show of its input and its results: declared per class in two tables, switched by
// the user, item by item.

/// One row of a table. A row with nID END_OF_INTERFACE_ENTRIES ends it.
///
///     const AFP_INTERFACE_ENTRY CMyDocument::_input_information_Entries[] = {
///         {IDS_TEMPERATURE, -1, 0, TRUE}, {END_OF_INTERFACE_ENTRIES, -1, 0, FALSE}};
///     const AFP_INPUT_INFORMATION CMyDocument::inputInformation = {_input_information_Entries, 0};
struct AFP_INTERFACE_ENTRY {
    UINT nID;         ///< the item, and the string resource of its name
    int nInformation; ///< the number of the page with its details, or -1
    UINT nParam;      ///< for the document's test whether the item is to be there
    BOOL bSelected;   ///< whether it starts switched on
};
constexpr UINT END_OF_INTERFACE_ENTRIES = 0xFFFFFFFF;

struct AFP_INPUT_INFORMATION {
    const AFP_INTERFACE_ENTRY* lpEntries;
    DWORD dwReserved; ///< 0
};

struct AFP_OUTPUT_INFORMATION {
    const AFP_INTERFACE_ENTRY* lpEntries;
    DWORD dwReserved; ///< 0
};

/// A row that a document offers, and whether it is switched on.
class TESSARA_API CInterfaceItem : public CObject {
public:
    CInterfaceItem() = default;
    /// The name is the string resource of the row's number, empty where there is none.
    explicit CInterfaceItem(const AFP_INTERFACE_ENTRY& entry);
    CInterfaceItem(const CInterfaceItem& src);
    CInterfaceItem& operator=(const CInterfaceItem& src);
    CInterfaceItem(CInterfaceItem&& src) noexcept;
    CInterfaceItem& operator=(CInterfaceItem&& src) noexcept;

    CString m_strName;
    UINT m_nID = 0;
    int m_nInformation = -1;
    BOOL m_bSelected = FALSE;
};

/// The items of a document, found by their number.
class TESSARA_API CInterfaceItemArray : public CArray<CInterfaceItem, CInterfaceItem&> {
public:
    CInterfaceItemArray() = default;
    CInterfaceItemArray(const CInterfaceItemArray& src);
    CInterfaceItemArray& operator=(const CInterfaceItemArray& src);

    /// Switches the first item of that number; does nothing without one.
    void SelectItem(UINT nID, int bSelect);
    /// Zero without such an item.
    int IsItemSelected(UINT nID) const;
    /// Stores the switches, or loads them, by position: a count and one number each, 4 bytes every one. Those
    /// beyond the items are read and forgotten; items beyond those keep theirs. Throws CArchiveException when
    /// the archive ends before them, and no switch has changed then.
    void SerializeSwitches(CArchive& ar);
};
