#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

#include "kaldrix/types/TZORPto.hpp"

namespace Zor::inline Types {

/// The points of an item: a sequence with the interface of std::vector that keeps up to two points in itself,
/// which is all that most kinds of item have.
///
/// Moving and swapping invalidate iterators, since the points may stand in the sequence itself.
/// std::length_error at 2^32 points.
class TZORPtoA {
 public:
  using value_type = TZORPto;
  using size_type = std::size_t;
  using difference_type = std::ptrdiff_t;
  using reference = TZORPto&;
  using const_reference = const TZORPto&;
  using iterator = TZORPto*;
  using const_iterator = const TZORPto*;
  using reverse_iterator = std::reverse_iterator<iterator>;
  using const_reverse_iterator = std::reverse_iterator<const_iterator>;

  TZORPtoA() = default;
  explicit TZORPtoA(size_type aCount, const TZORPto& aPoint = {}) { resize(aCount, aPoint); }
  TZORPtoA(std::initializer_list<TZORPto> aPoints) { assign(aPoints.begin(), aPoints.end()); }
  template <std::forward_iterator TIterator>
  TZORPtoA(TIterator aFirst, TIterator aLast) {
    assign(aFirst, aLast);
  }
  TZORPtoA(const TZORPtoA& aOther) { assign(aOther.begin(), aOther.end()); }
  TZORPtoA(TZORPtoA&& aOther) noexcept { swap(aOther); }
  TZORPtoA& operator=(const TZORPtoA& aOther) {
    if (this != &aOther) assign(aOther.begin(), aOther.end());
    return *this;
  }
  TZORPtoA& operator=(TZORPtoA&& aOther) noexcept {
    TZORPtoA(std::move(aOther)).swap(*this);
    return *this;
  }
  ~TZORPtoA() { Release(); }

  bool empty() const { return fCount == 0; }
  size_type size() const { return fCount; }
  size_type capacity() const { return fCapacity; }
  TZORPto* data() { return IsInside() ? fStore.points : fStore.heap; }
  const TZORPto* data() const { return IsInside() ? fStore.points : fStore.heap; }

  iterator begin() { return data(); }
  iterator end() { return data() + fCount; }
  const_iterator begin() const { return data(); }
  const_iterator end() const { return data() + fCount; }
  const_iterator cbegin() const { return begin(); }
  const_iterator cend() const { return end(); }
  reverse_iterator rbegin() { return reverse_iterator(end()); }
  reverse_iterator rend() { return reverse_iterator(begin()); }
  const_reverse_iterator rbegin() const { return const_reverse_iterator(end()); }
  const_reverse_iterator rend() const { return const_reverse_iterator(begin()); }
  TZORPto& operator[](size_type aIndex) { return data()[aIndex]; }
  const TZORPto& operator[](size_type aIndex) const { return data()[aIndex]; }
  TZORPto& front() { return *begin(); }
  const TZORPto& front() const { return *begin(); }
  TZORPto& back() { return end()[-1]; }
  const TZORPto& back() const { return end()[-1]; }

  void reserve(size_type aCount) {
    if (aCount > fCapacity) Grow(aCount);
  }
  void clear() { fCount = 0; }
  void resize(size_type aCount, const TZORPto& aPoint = {}) {
    const TZORPto point = aPoint;
    reserve(aCount);
    if (aCount > fCount) std::fill(end(), begin() + aCount, point);
    fCount = static_cast<std::uint32_t>(aCount);
  }
  /// The range is not part of this sequence.
  template <std::forward_iterator TIterator>
  void assign(TIterator aFirst, TIterator aLast) {
    const auto count = static_cast<size_type>(std::distance(aFirst, aLast));
    reserve(count);
    std::copy(aFirst, aLast, begin());
    fCount = static_cast<std::uint32_t>(count);
  }
  void push_back(const TZORPto& aPoint) { insert(end(), aPoint); }
  TZORPto& emplace_back(Int64 x, Int64 y) { return *insert(end(), TZORPto{x, y}); }
  void pop_back() { --fCount; }
  iterator insert(const_iterator aPlace, const TZORPto& aPoint) {
    const TZORPto point = aPoint;
    iterator place = Open(aPlace, 1);
    *place = point;
    return place;
  }
  /// The range is not part of this sequence.
  template <std::forward_iterator TIterator>
  iterator insert(const_iterator aPlace, TIterator aFirst, TIterator aLast) {
    iterator place = Open(aPlace, static_cast<size_type>(std::distance(aFirst, aLast)));
    std::copy(aFirst, aLast, place);
    return place;
  }
  iterator insert(const_iterator aPlace, std::initializer_list<TZORPto> aPoints) {
    return insert(aPlace, aPoints.begin(), aPoints.end());
  }
  iterator erase(const_iterator aPlace) { return erase(aPlace, aPlace + 1); }
  iterator erase(const_iterator aFirst, const_iterator aLast) {
    iterator first = begin() + (aFirst - begin());
    fCount = static_cast<std::uint32_t>(std::copy(aLast, cend(), first) - begin());
    return first;
  }
  void swap(TZORPtoA& aOther) noexcept {
    std::swap(fStore, aOther.fStore);
    std::swap(fCount, aOther.fCount);
    std::swap(fCapacity, aOther.fCapacity);
  }
  friend void swap(TZORPtoA& a, TZORPtoA& b) noexcept { a.swap(b); }

  friend bool operator==(const TZORPtoA& a, const TZORPtoA& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
  }

 private:
  static constexpr std::uint32_t Inside = 2;
  static_assert(std::is_trivially_copyable_v<TZORPto> && std::is_trivially_destructible_v<TZORPto>);

  /// Points, or where they are: which of both tells the capacity.
  union TStore {
    TZORPto points[Inside] = {};
    TZORPto* heap;
  };

  bool IsInside() const { return fCapacity == Inside; }
  void Release() {
    if (!IsInside()) std::allocator<TZORPto>().deallocate(fStore.heap, fCapacity);
  }
  /// Takes room for at least so many points, and for twice as many as before.
  void Grow(size_type aLeast);
  /// Moves the points from a place on, so that there is room for so many before them.
  iterator Open(const_iterator aPlace, size_type aCount) {
    const difference_type index = aPlace - begin();
    reserve(fCount + aCount);
    iterator place = begin() + index;
    std::copy_backward(place, end(), end() + aCount);
    fCount += static_cast<std::uint32_t>(aCount);
    return place;
  }

  TStore fStore;
  std::uint32_t fCount = 0;
  std::uint32_t fCapacity = Inside;
};

}  // namespace Zor::inline Types
