#pragma once
// Growable array with the framework's member names. Storage grows by at least
// the grow-by count (-1 chooses a step from the current size) and at least
// geometrically. Every index
// outside the array throws CInvalidArgException, except where growing is the
// point (SetAtGrow, InsertAt past the end).
#include "CVExport.h"
#include <algorithm>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "CException.h"
#include "WinTypes.h"

template <class TYPE, class ARG_TYPE = const TYPE&>
class CVSCENE_API CArray {
public:
    CArray() = default;
    CArray(const CArray& other) = default;
    CArray& operator=(const CArray& other) = default;
    virtual ~CArray() = default;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_data.size()); }
    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_data.size()); }
    INT_PTR GetUpperBound() const { return static_cast<INT_PTR>(m_data.size()) - 1; }
    BOOL IsEmpty() const { return m_data.empty(); }
    INT_PTR GetGrowBy() const { return m_nGrowBy; }
    INT_PTR GetCapacity() const { return static_cast<INT_PTR>(m_data.capacity()); }

    // New elements are value-initialised (zero); removed ones are dropped.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) {
        if (nNewSize < 0) AfxThrowInvalidArgException("CArray::SetSize(): negative size");
        if (nGrowBy >= 0) m_nGrowBy = nGrowBy;
        Reserve(nNewSize);
        Guard([&] { m_data.resize(static_cast<size_t>(nNewSize)); });
    }
    void FreeExtra() { m_data.shrink_to_fit(); }
    void RemoveAll() { std::vector<TYPE>().swap(m_data); }

    const TYPE& GetAt(INT_PTR i) const { return m_data[Check(i, "GetAt")]; }
    TYPE& ElementAt(INT_PTR i) { return m_data[Check(i, "ElementAt")]; }
    void SetAt(INT_PTR i, ARG_TYPE value) { m_data[Check(i, "SetAt")] = value; }
    const TYPE& operator[](INT_PTR i) const { return m_data[Check(i, "operator[]")]; }
    TYPE& operator[](INT_PTR i) { return m_data[Check(i, "operator[]")]; }
    const TYPE* GetData() const { return m_data.data(); }
    TYPE* GetData() { return m_data.data(); }

    void SetAtGrow(INT_PTR i, ARG_TYPE value) {
        if (i < 0) AfxThrowInvalidArgException("CArray::SetAtGrow(): negative index");
        TYPE copy = value;  // value may live inside this array
        if (i >= GetSize()) SetSize(i + 1);
        m_data[static_cast<size_t>(i)] = std::move(copy);
    }

    INT_PTR Add(ARG_TYPE value) {
        TYPE copy = value;
        Reserve(GetSize() + 1);
        Guard([&] { m_data.push_back(std::move(copy)); });
        return GetSize() - 1;
    }

    INT_PTR Append(const CArray& other) {
        INT_PTR first = GetSize();
        Reserve(first + other.GetSize());
        Guard([&] { m_data.insert(m_data.end(), other.m_data.begin(), other.m_data.end()); });
        return first;
    }

    void Copy(const CArray& other) {
        if (&other != this) m_data = other.m_data;
    }

    // Inside the array the tail moves up; at or past the end the array grows.
    void InsertAt(INT_PTR i, ARG_TYPE value, INT_PTR count = 1) {
        if (i < 0 || count < 0) AfxThrowInvalidArgException("CArray::InsertAt(): negative index or count");
        if (count == 0) return;
        TYPE copy = value;
        if (i >= GetSize()) {
            SetSize(i + count);
        } else {
            Reserve(GetSize() + count);
            Guard([&] { m_data.insert(m_data.begin() + i, static_cast<size_t>(count), TYPE()); });
        }
        for (INT_PTR k = 0; k < count; ++k) m_data[static_cast<size_t>(i + k)] = copy;
    }

    void RemoveAt(INT_PTR i, INT_PTR count = 1) {
        if (i < 0 || count < 0 || i + count > GetSize())
            AfxThrowInvalidArgException("CArray::RemoveAt(): index " + std::to_string(i) + " out of range");
        m_data.erase(m_data.begin() + i, m_data.begin() + i + count);
    }

    // Iteration support for range-for loops in library code.
    typename std::vector<TYPE>::iterator begin() { return m_data.begin(); }
    typename std::vector<TYPE>::iterator end() { return m_data.end(); }
    typename std::vector<TYPE>::const_iterator begin() const { return m_data.begin(); }
    typename std::vector<TYPE>::const_iterator end() const { return m_data.end(); }

private:
    size_t Check(INT_PTR i, const char* what) const {
        if (i < 0 || i >= GetSize())
            AfxThrowInvalidArgException(std::string("CArray::") + what + "(): index " + std::to_string(i) +
                                        " out of range");
        return static_cast<size_t>(i);
    }

    void Reserve(INT_PTR needed) {
        if (static_cast<size_t>(needed) <= m_data.capacity()) return;
        INT_PTR step = m_nGrowBy;
        if (step <= 0) step = std::clamp<INT_PTR>(GetSize() / 8, 4, 1024);
        // At least geometric growth: a fixed step alone makes n appends cost O(n^2).
        INT_PTR target = std::max({needed, GetSize() + step, static_cast<INT_PTR>(m_data.capacity() + m_data.capacity() / 2)});
        Guard([&] { m_data.reserve(static_cast<size_t>(target)); });
    }

    template <class F>
    static void Guard(F&& f) {
        try {
            f();
        } catch (const std::bad_alloc&) {
            AfxThrowMemoryException("CArray: out of memory");
        } catch (const std::length_error&) {
            AfxThrowMemoryException("CArray: size too large");
        }
    }

    std::vector<TYPE> m_data;
    INT_PTR m_nGrowBy = -1;
};
