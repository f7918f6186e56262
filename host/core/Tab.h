#pragma once

#include <algorithm>
#include <functional>
#include <type_traits>
#include <vector>

#include "host/core/RangeException.h"

namespace host {

// Growable array of plain values. Indices and counts are ints, as everywhere in the host API.
template <typename T>
class Tab {
    static_assert(std::is_trivially_copyable_v<T>, "Tab holds trivially copyable values only");

public:
    using CompareFnc = int (*)(const void*, const void*);

    int Count() const { return static_cast<int>(items_.size()); }
    // Number of items that fit before the storage has to grow.
    int Capacity() const { return static_cast<int>(items_.capacity()); }

    T& operator[](int i) { return items_[CheckedIndex(i)]; }
    const T& operator[](int i) const { return items_[CheckedIndex(i)]; }
    T* Addr(int i) { return &items_[CheckedIndex(i)]; }
    const T* Addr(int i) const { return &items_[CheckedIndex(i)]; }

    // Appends n items and returns the index of the first. When the storage grows it makes room
    // for `reserve` more items as well. `items` may point into this Tab; null appends
    // value-initialised items.
    int Append(int n, const T* items, int reserve = 0) {
        const int at = Count();
        InsertAt(at, n, items, reserve);
        return at;
    }

    // Inserts n items before index `at` (0..Count()) and returns `at`.
    int Insert(int at, int n, const T* items) {
        if (at < 0 || at > Count()) throw RangeException(kIndexError);
        InsertAt(at, n, items, 0);
        return at;
    }

    // Deletes up to n items from `start`, clamped to the array; returns the new count.
    int Delete(int start, int n) {
        if (start < 0 || start >= Count() || n <= 0) return Count();
        const int last = start + std::min(n, Count() - start);
        items_.erase(items_.begin() + start, items_.begin() + last);
        return Count();
    }

    void SetCount(int n) { items_.resize(static_cast<size_t>(std::max(n, 0))); }
    // Sets the capacity to n, but never below Count().
    void Resize(int n) { SetCapacity(std::max(n, Count())); }
    void ZeroCount() { items_.clear(); }
    void Shrink() { SetCapacity(Count()); }
    // Empties the array and releases its storage.
    void Init() { std::vector<T>().swap(items_); }

    // Stable sort with a qsort-style comparator.
    void Sort(CompareFnc compare) {
        std::stable_sort(items_.begin(), items_.end(),
                         [compare](const T& a, const T& b) { return compare(&a, &b) < 0; });
    }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    friend bool operator==(const Tab&, const Tab&) = default;

private:
    static constexpr const char* kIndexError =
        "Invalid index passed into a Tarnix SDK Tab::operator[]";

    size_t CheckedIndex(int i) const {
        if (i < 0 || i >= Count()) throw RangeException(kIndexError);
        return static_cast<size_t>(i);
    }

    bool PointsIntoSelf(const T* p) const {
        const std::less<const T*> before;
        return !items_.empty() && !before(p, items_.data()) &&
               before(p, items_.data() + items_.size());
    }

    void InsertAt(int at, int n, const T* items, int reserve) {
        if (n <= 0) return;
        if (items != nullptr && PointsIntoSelf(items)) {
            // Growing may move the source, so take a copy first.
            const std::vector<T> copy(items, items + n);
            InsertAt(at, n, copy.data(), reserve);
            return;
        }
        const size_t needed = items_.size() + static_cast<size_t>(n);
        if (needed > items_.capacity())
            items_.reserve(needed + static_cast<size_t>(std::max(reserve, 0)));
        const auto pos = items_.begin() + at;
        if (items == nullptr) {
            items_.insert(pos, static_cast<size_t>(n), T{});
        } else {
            items_.insert(pos, items, items + n);
        }
    }

    void SetCapacity(int n) {
        const auto wanted = static_cast<size_t>(n);
        if (wanted > items_.capacity()) {
            items_.reserve(wanted);
        } else if (wanted < items_.capacity()) {
            // shrink_to_fit is only a request; rebuilding gives the exact capacity.
            std::vector<T> exact;
            exact.reserve(wanted);
            exact.assign(items_.begin(), items_.end());
            items_.swap(exact);
        }
    }

    std::vector<T> items_;
};

}  // namespace host
