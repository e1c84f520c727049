#pragma once

#include <cstdint>

namespace Nvr {

/// A base for what an IList chains: it holds the link to the next element. Lies in at most one list at a
/// time, and is not copied.
class IListElement {
public:
    IListElement() = default;
    IListElement(const IListElement&) = delete;
    IListElement& operator=(const IListElement&) = delete;
    virtual ~IListElement() = default;

    /// The element after this one; null at the end and in no list.
    IListElement* Next() const { return m_Next; }

private:
    friend class IList;
    IListElement* m_Next = nullptr;
};

/// The place before the first element, which a list holds in itself.
class IListHeadElement : public IListElement {};

/// A singly linked list through the elements themselves, which it owns and destroys by their virtual
/// destructor. Appending, prepending and taking the first out cost the same at any length; everything else
/// walks. Nothing allocates, so nothing fails.
class IList {
public:
    IList() : m_Tail(&m_Head) {}
    IList(const IList&) = delete;
    IList& operator=(const IList&) = delete;
    virtual ~IList() { DeleteAll(); }

    /// Appends; null does nothing. The list owns the element from here on.
    void Add(IListElement* element);
    void AddFirst(IListElement* element);
    /// Before the element at `index`; first for an index below 1, last for one at or past the count.
    void Insert(IListElement* element, int index);
    /// Unlinks; the element is the caller's again. Nothing when it is not there.
    void Remove(IListElement* element);
    /// Unlinks, and destroys the element whether it was there or not; null does nothing.
    void Delete(IListElement* element);
    /// Null for an index that is not there.
    IListElement* GetAt(int index) const;
    /// -1 when it is not there.
    int IndexOf(const IListElement* element) const;
    bool Contains(const IListElement* element) const { return IndexOf(element) >= 0; }
    int Count() const { return static_cast<int>(m_Count); }
    IListElement* First() const { return m_Head.Next(); }
    /// The last element, or null.
    IListElement* Last() const { return m_Count != 0 ? m_Tail : nullptr; }

    /// Destroys all elements in their order.
    void DeleteAll();
    /// Clears the link of every element and empties the list; the elements are the caller's.
    void Unlink();
    /// Destroys the present elements and takes those of `other`, which is left empty. Nothing when `other` is
    /// this list.
    void TakeFrom(IList& other);

private:
    void InsertAfter(IListElement* place, IListElement* element);
    /// What links to `element`, or null when nothing does.
    IListElement* FindBefore(const IListElement* element);
    void MakeEmpty();

    IListHeadElement m_Head;
    IListElement* m_Tail;
    std::uint32_t m_Count = 0;
};

/// Walks a list, which it borrows, from the front. The element given last must stay in the list until the
/// next step.
class IListIterator {
public:
    explicit IListIterator(const IList& list) : m_List(&list) {}

    /// The next element, or null at the end.
    IListElement* Next() {
        IListElement* const next = m_Last != nullptr ? m_Last->Next() : m_AtEnd ? nullptr : m_List->First();
        m_AtEnd = next == nullptr;
        m_Last = next;
        return next;
    }
    void Reset() {
        m_Last = nullptr;
        m_AtEnd = false;
    }

private:
    const IList* m_List;
    IListElement* m_Last = nullptr;
    bool m_AtEnd = false;
};

/// An IList of `T`, which derives from IListElement.
template <class T>
class TIList : public IList {
public:
    void Add(T* element) { IList::Add(element); }
    void AddFirst(T* element) { IList::AddFirst(element); }
    void Insert(T* element, int index) { IList::Insert(element, index); }
    void Remove(T* element) { IList::Remove(element); }
    void Delete(T* element) { IList::Delete(element); }
    T* GetAt(int index) const { return static_cast<T*>(IList::GetAt(index)); }
    int IndexOf(const T* element) const { return IList::IndexOf(element); }
    bool Contains(const T* element) const { return IList::Contains(element); }
    T* First() const { return static_cast<T*>(IList::First()); }
    T* Last() const { return static_cast<T*>(IList::Last()); }
    void TakeFrom(TIList& other) { IList::TakeFrom(other); }
};

template <class T>
class TIListIterator : public IListIterator {
public:
    explicit TIListIterator(const TIList<T>& list) : IListIterator(list) {}

    T* Next() { return static_cast<T*>(IListIterator::Next()); }
};

} // namespace Nvr
