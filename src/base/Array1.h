// Arrays counted from 1, as the survey numbers its measurements, channels and electrodes; every access is checked.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "base/Errors.h"

namespace corvan {

template <class T>
class Array1 {
 public:
  Array1() = default;
  explicit Array1(std::size_t count) : items_(count) {}

  /// @param k 1 to size(); any other index throws RunTimeError
  T& operator()(std::size_t k) { return items_[checked(k)]; }
  const T& operator()(std::size_t k) const { return items_[checked(k)]; }

  std::size_t size() const { return items_.size(); }
  bool empty() const { return items_.empty(); }
  bool contains(std::size_t k) const { return k >= 1 && k <= items_.size(); }
  void clear() { items_.clear(); }
  void reserve(std::size_t count) { items_.reserve(count); }
  /// Keeps the contents; new items are zero.
  void resize(std::size_t count) { items_.resize(count); }
  void append(T item) { items_.push_back(std::move(item)); }

  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::size_t checked(std::size_t k) const {
    if (k < 1 || k > items_.size()) outOfRange(k);
    return k - 1;
  }
  [[noreturn]] void outOfRange(std::size_t k) const {
    throw RunTimeError("index " + std::to_string(k) + " is not 1 to " + std::to_string(items_.size()));
  }

  std::vector<T> items_;
};

}  // namespace corvan
