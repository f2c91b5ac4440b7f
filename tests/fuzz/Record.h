#pragma once

#include "tessara/document/InterfaceItem.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/platform/files/MemFile.h"

/// What the library gives a form of its own in a document's data: switches of items, then a multi-curve.
struct CRecord {
    CInterfaceItemArray items;
    CMultiCurve curve;

    explicit CRecord(int nItems) {
        for (int i = 0; i < nItems; ++i) {
            CInterfaceItem item(AFP_INTERFACE_ENTRY{1, -1, 0, TRUE});
            items.Add(item);
        }
    }

    void Serialize(CArchive& ar) {
        items.SerializeSwitches(ar);
        curve.Serialize(ar);
    }

    std::string Bytes() {
        CMemFile file;
        CArchive archive(&file, CArchive::store);
        Serialize(archive);
        archive.Close();
        std::string strBytes(static_cast<std::size_t>(file.GetLength()), '\0');
        file.SeekToBegin();
        file.Read(strBytes.data(), static_cast<UINT>(strBytes.size()));
        return strBytes;
    }

    static std::string Sample(int nDimensions, int nPoints) {
        CRecord record(3);
        record.curve.SetDimensions(nDimensions);
        record.curve.Allocate(nPoints);
        for (int i = 0; i < nPoints; ++i) {
            record.curve.m_pX[i] = i;
            for (int j = 0; j < nDimensions; ++j) {
                record.curve.m_ppY[j][i] = 0.5 * (i + j);
            }
        }
        return record.Bytes();
    }
};
