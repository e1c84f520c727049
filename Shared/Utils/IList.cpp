#include "Shared/Utils/IList.h"

#include <utility>

namespace Nvr {

void IList::Add(IListElement* element) {
    if (element != nullptr)
        InsertAfter(m_Tail, element);
}

void IList::AddFirst(IListElement* element) {
    if (element != nullptr)
        InsertAfter(&m_Head, element);
}

void IList::Insert(IListElement* element, int index) {
    if (index >= Count())
        Add(element);
    else if (index <= 0)
        AddFirst(element);
    else if (element != nullptr)
        InsertAfter(GetAt(index - 1), element);
}

void IList::Remove(IListElement* element) {
    IListElement* const before = element != nullptr ? FindBefore(element) : nullptr;
    if (before == nullptr)
        return;
    before->m_Next = std::exchange(element->m_Next, nullptr);
    if (m_Tail == element)
        m_Tail = before;
    --m_Count;
}

void IList::Delete(IListElement* element) {
    Remove(element);
    delete element;
}

IListElement* IList::GetAt(int index) const {
    if (index < 0)
        return nullptr;
    IListElement* element = First();
    for (; element != nullptr && index > 0; --index)
        element = element->m_Next;
    return element;
}

int IList::IndexOf(const IListElement* element) const {
    int index = 0;
    for (const IListElement* at = First(); at != nullptr; at = at->m_Next, ++index) {
        if (at == element)
            return index;
    }
    return -1;
}

void IList::DeleteAll() {
    IListElement* element = First();
    MakeEmpty();
    while (element != nullptr)
        delete std::exchange(element, element->m_Next);
}

void IList::Unlink() {
    IListElement* element = First();
    MakeEmpty();
    while (element != nullptr)
        element = std::exchange(element->m_Next, nullptr);
}

void IList::TakeFrom(IList& other) {
    if (&other == this)
        return;
    DeleteAll();
    if (other.m_Count == 0)
        return;
    m_Head.m_Next = other.m_Head.m_Next;
    m_Tail = other.m_Tail;
    m_Count = other.m_Count;
    other.MakeEmpty();
}

void IList::InsertAfter(IListElement* place, IListElement* element) {
    element->m_Next = std::exchange(place->m_Next, element);
    if (m_Tail == place)
        m_Tail = element;
    ++m_Count;
}

IListElement* IList::FindBefore(const IListElement* element) {
    IListElement* before = &m_Head;
    while (before != nullptr && before->m_Next != element)
        before = before->m_Next;
    return before;
}

void IList::MakeEmpty() {
    m_Head.m_Next = nullptr;
    m_Tail = &m_Head;
    m_Count = 0;
}

} // namespace Nvr
