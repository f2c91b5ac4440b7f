#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/Object.h"

/// A growing array of values, indexed from 0.
///
/// An index outside the array (or, where an element is inserted, a negative one) throws CInvalidArgException,
/// running out of memory CMemoryException; the array is then as it was. New elements that are not given are
/// value-initialised. The elements belong to the array; pointers and references to them are valid until its
/// size changes or fails to. Arrays of pointers do not own what the pointers point to.
///
///     CArray<double> values;
///     values.Add(1.5);
///     values.SetAtGrow(3, 2.5); // 1.5, 0, 0, 2.5
///
/// REQUIRES: TYPE can be copied, and moved without an exception; it is not bool.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
public:
    CArray() = default;

    int GetSize() const { return static_cast<int>(m_elements.size()); }
    /// The last valid index, -1 when the array is empty.
    int GetUpperBound() const { return GetSize() - 1; }
    void SetSize(int nNewSize) {
        if (nNewSize < 0) {
            AfxThrowInvalidArgException();
        }
        tessara::WithMemoryException([&] { m_elements.resize(static_cast<std::size_t>(nNewSize)); });
    }
    void RemoveAll() { m_elements.clear(); }

    const TYPE& GetAt(int nIndex) const { return m_elements[Check(nIndex)]; }
    TYPE& ElementAt(int nIndex) { return m_elements[Check(nIndex)]; }
    void SetAt(int nIndex, ARG_TYPE newElement) {
        TYPE& element = m_elements[Check(nIndex)];
        tessara::WithMemoryException([&] { element = TYPE(newElement); });
    }
    const TYPE& operator[](int nIndex) const { return GetAt(nIndex); }
    TYPE& operator[](int nIndex) { return ElementAt(nIndex); }
    /// Null when the array is empty.
    TYPE* GetData() { return m_elements.data(); }
    const TYPE* GetData() const { return m_elements.data(); }

    /// Returns the index of the new element.
    int Add(ARG_TYPE newElement) {
        tessara::WithMemoryException([&] {
            CheckRoom(m_elements.size(), 1);
            m_elements.push_back(newElement);
        });
        return GetUpperBound();
    }
    /// Sets an element, growing the array up to it first when it ends before.
    void SetAtGrow(int nIndex, ARG_TYPE newElement) {
        if (nIndex < GetSize()) {
            SetAt(nIndex, newElement);
        } else {
            InsertAt(nIndex, newElement);
        }
    }
    /// Inserts nCount copies before nIndex; an index beyond the end grows the array up to it first.
    void InsertAt(int nIndex, ARG_TYPE newElement, int nCount = 1) {
        if (nIndex < 0 || nCount < 0) {
            AfxThrowInvalidArgException();
        }
        const auto nAt = static_cast<std::size_t>(nIndex), nMore = static_cast<std::size_t>(nCount);
        const std::size_t nOldSize = m_elements.size();
        const std::size_t nEnd = std::max(nOldSize, nAt);
        try {
            tessara::WithMemoryException([&] {
                CheckRoom(nEnd, nMore);
                const TYPE element = newElement; // it may be one of this array's own
                m_elements.resize(nEnd);
                m_elements.insert(m_elements.end(), nMore, element);
            });
        } catch (...) {
            m_elements.erase(m_elements.begin() + static_cast<std::ptrdiff_t>(nOldSize), m_elements.end());
            throw;
        }
        // What was added behind the others changes places with those it comes before: nothing can fail any
        // more.
        std::rotate(m_elements.begin() + nIndex, m_elements.end() - nCount, m_elements.end());
    }
    void RemoveAt(int nIndex, int nCount = 1) {
        if (nIndex < 0 || nCount < 0 || nIndex > GetSize() - nCount) {
            AfxThrowInvalidArgException();
        }
        const auto itFirst = m_elements.begin() + nIndex;
        m_elements.erase(itFirst, itFirst + nCount);
    }

    /// Appends copies of another array's elements and returns the index of the first of them.
    int Append(const CArray& src) {
        const int nOldSize = GetSize();
        tessara::WithMemoryException([&] {
            CheckRoom(m_elements.size(), src.m_elements.size());
            std::vector<TYPE> elements;
            elements.reserve(m_elements.size() + src.m_elements.size());
            elements.insert(elements.end(), m_elements.begin(), m_elements.end());
            elements.insert(elements.end(), src.m_elements.begin(), src.m_elements.end());
            m_elements = std::move(elements);
        });
        return nOldSize;
    }
    /// Replaces the elements by copies of another array's.
    void Copy(const CArray& src) {
        tessara::WithMemoryException([&] { m_elements = std::vector<TYPE>(src.m_elements); });
    }

private:
    std::size_t Check(int nIndex) const {
        if (nIndex < 0 || nIndex >= GetSize()) {
            AfxThrowInvalidArgException();
        }
        return static_cast<std::size_t>(nIndex);
    }

    /// Throws unless nSize elements and nMore of them can be counted.
    static void CheckRoom(std::size_t nSize, std::size_t nMore) {
        if (nMore > static_cast<std::size_t>(std::numeric_limits<int>::max()) - nSize) {
            AfxThrowMemoryException();
        }
    }

    std::vector<TYPE> m_elements;
};
