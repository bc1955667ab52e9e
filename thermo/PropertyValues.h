// What the host answered for some properties, in the order in which they were asked for.
#pragma once

#include "thermo/ShortList.h"

#include <algorithm>
#include <stdexcept>

namespace orvane {

class PropertyValues {
public:
    void add(std::span<const double> values) {
        values_.append(values);
        ends_.push_back(values_.size());
    }
    void clear() noexcept {
        values_.clear();
        ends_.clear();
    }

    /// How many properties there are.
    std::size_t size() const noexcept { return ends_.size(); }
    /// The values of one property.
    std::span<const double> operator[](std::size_t i) const {
        const auto ends = ends_.view();
        if (i >= ends.size()) throw std::out_of_range("a property that was not asked for");
        const std::size_t begin = i == 0 ? 0 : ends[i - 1];
        return values_.view().subspan(begin, ends[i] - begin);
    }
    /// The values of all, one after the other.
    std::span<const double> all() const noexcept { return values_.view(); }
    std::span<double> all() noexcept { return values_.view(); }

    /// True when the other holds as many values for each property.
    bool sameShape(const PropertyValues& other) const noexcept {
        return std::ranges::equal(ends_.view(), other.ends_.view());
    }

private:
    ShortList<double, 32> values_;
    ShortList<std::size_t, 8> ends_;
};

}  // namespace orvane
