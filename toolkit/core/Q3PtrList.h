#pragma once

#include <QtAlgorithms>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

/// A list of pointers with a current item that most calls read or move.
///
/// Indices:   counted from 0; -1 stands for "no current item".
/// Errors:    answered by nullptr or false.
/// Ownership: the caller's, until setAutoDelete(true) hands the items over to the list. An item is
///            deleted after it has been unlinked, so that its destructor sees the list without it.
/// Callers:   autoDelete() and removeFirst() are there for completeness; nobody calls them.
template <typename T> class Q3PtrList
{
public:
    Q3PtrList() = default;

    /// A list of the same pointers, last item current, that deletes none of them.
    Q3PtrList(const Q3PtrList &other) : m_items(other.m_items), m_current(other.count() - 1) { }
    Q3PtrList &operator=(const Q3PtrList &) = delete;
    Q3PtrList(Q3PtrList &&) = delete;
    Q3PtrList &operator=(Q3PtrList &&) = delete;

    ~Q3PtrList() { clear(); }

    [[nodiscard]] bool autoDelete() const { return m_autoDelete; }

    /// @param enable  true makes the list the owner of all its items
    void setAutoDelete(bool enable) { m_autoDelete = enable; }

    [[nodiscard]] int count() const { return static_cast<int>(m_items.size()); }
    [[nodiscard]] bool isEmpty() const { return m_items.empty(); }

    /// Adds @p item at the end and makes it the current one.
    void append(T *item)
    {
        m_items.push_back(item);
        m_current = count() - 1;
    }

    /// Adds @p item at the start and makes it the current one.
    void prepend(T *item)
    {
        m_items.insert(m_items.begin(), item);
        m_current = 0;
    }

    /// The index of the current item.
    [[nodiscard]] int at() const { return m_current; }

    [[nodiscard]] T *current() const { return itemAt(m_current); }

    /// The ends of the list; the current item stays what it is.
    [[nodiscard]] T *getFirst() const { return itemAt(0); }
    [[nodiscard]] T *getLast() const { return itemAt(count() - 1); }

    /// Makes the item at @p index the current one and returns it. Outside the list the answer is
    /// nullptr, and the first item becomes the current one if there was none.
    T *at(int index)
    {
        if (m_current < 0 && !isEmpty())
            m_current = 0;
        if (!isInside(index))
            return nullptr;
        m_current = index;
        return current();
    }

    /// Make an end of the list the current item and return it; nullptr if the list is empty.
    T *first() { return step(0, m_current); }
    T *last() { return step(count() - 1, m_current); }

    /// Make the neighbour the current item and return it. Beyond the end, or with no current item, the
    /// answer is nullptr and there is no current item.
    T *next() { return m_current < 0 ? nullptr : step(m_current + 1, NoItem); }
    T *prev() { return m_current < 0 ? nullptr : step(m_current - 1, NoItem); }

    /// Takes the current item out of the list. The next one becomes current, at the end the new last one.
    /// @return false if there is no current item
    bool remove()
    {
        if (m_current < 0)
            return false;
        T *const item = current();
        m_items.erase(m_items.begin() + m_current);
        m_current = std::min(m_current, count() - 1);
        if (m_autoDelete)
            delete item;
        return true;
    }

    /// Makes @p item the current one and takes it out.
    /// @return false if it is not in the list; there is no current item then
    bool removeRef(const T *item)
    {
        const auto found = std::find(m_items.begin(), m_items.end(), item);
        m_current = found == m_items.end() ? NoItem : static_cast<int>(std::distance(m_items.begin(), found));
        return remove();
    }
    bool remove(const T *item) { return removeRef(item); }

    /// Make an end of the list the current item and take it out; false if the list is empty.
    bool removeFirst() { return first() && remove(); }
    bool removeLast() { return last() && remove(); }

    /// Takes out all items; there is no current one then.
    void clear()
    {
        m_current = NoItem;
        const std::vector<T *> items = std::exchange(m_items, {});
        if (m_autoDelete)
            qDeleteAll(items);
    }

private:
    static constexpr int NoItem = -1;

    [[nodiscard]] bool isInside(int index) const { return index >= 0 && index < count(); }

    [[nodiscard]] T *itemAt(int index) const { return isInside(index) ? m_items[static_cast<size_t>(index)] : nullptr; }

    /// Moves to @p index; the current item becomes @p otherwise if there is none.
    T *step(int index, int otherwise)
    {
        m_current = isInside(index) ? index : otherwise;
        return itemAt(index);
    }

    std::vector<T *> m_items;
    int m_current = NoItem;
    bool m_autoDelete = false;
};
