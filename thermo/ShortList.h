// A list that is nearly always short, and then lies within its owner: the names, values and fractions of one
// call for a property come and go without the heap.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <type_traits>
#include <vector>

namespace orvane {

/// Grows beyond `room` elements, into a vector.
template <class T, std::size_t room>
requires std::is_trivially_copyable_v<T>
class ShortList {
public:
    void push_back(T value) {
        if (size_ == room) many_.assign(few_.begin(), few_.end());
        if (size_ < room)
            few_[size_] = value;
        else
            many_.push_back(value);
        ++size_;
    }
    void append(std::span<const T> values) {
        for (const T& value : values) push_back(value);
    }
    void clear() noexcept { size_ = 0; }

    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    std::span<const T> view() const noexcept { return {data(), size_}; }
    std::span<T> view() noexcept { return {const_cast<T*>(data()), size_}; }

private:
    const T* data() const noexcept { return size_ <= room ? few_.data() : many_.data(); }

    std::array<T, room> few_;  // those up to `room`; many_ holds all of them beyond
    std::vector<T> many_;
    std::size_t size_ = 0;
};

}  // namespace orvane
