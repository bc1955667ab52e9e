// Names of thermodynamic properties as they go to the host: prepared once, and with each the basis on which
// its values are read. Which properties have a basis is known of most and learned of the others.
// One table for the process, without a lock: with the interpreter lock held.
#pragma once

#include "cobia/Data.h"

#include <span>
#include <string>
#include <string_view>

namespace orvane {

/// On what amount a value refers; `unknown` until the host has given a value.
enum class Basis { unknown, none, mole };

class PropertyName {
public:
    PropertyName(std::string_view text, Basis& basis) : identifier_(text), text_(text), basis_(&basis) {}
    PropertyName(const PropertyName&) = delete;
    PropertyName& operator=(const PropertyName&) = delete;

    /// The name with that text: the same object for the life of the process. Names that differ in letter case
    /// alone are two objects that share what is known of their basis.
    static const PropertyName& of(std::string_view text);

    COBIA::ICapeString* identifier() const noexcept { return identifier_.in(); }
    const std::string& text() const noexcept { return text_; }

    Basis basis() const noexcept { return *basis_; }
    void learn(Basis basis) const noexcept { *basis_ = basis; }

private:
    COBIA::StringObject identifier_;
    std::string text_;
    Basis* basis_;
};

using PropertyNames = std::span<const PropertyName* const>;

}  // namespace orvane
