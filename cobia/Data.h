// The data objects that cross the binary interface as arguments: texts, arrays, values.
// Each is passed either with out(), for the callee to fill, or with in(), which answers "denied" when written to.
// Not reference counted: whoever makes one owns it, and it outlives the call.
// Threads: one at a time.
#pragma once

#include "cobia/Interfaces.h"
#include "cobia/Text.h"

#include <concepts>
#include <deque>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace COBIA {

/// A text of ours. Names that go to the host again and again are made once and kept.
class StringObject {
public:
    StringObject() = default;
    explicit StringObject(std::string_view utf8) : text_(toCape(utf8)) {}
    StringObject(const StringObject& other) : text_(other.text_) {}
    StringObject(StringObject&& other) noexcept : text_(std::move(other.text_)) {}
    StringObject& operator=(const StringObject& other) {
        text_ = other.text_;
        return *this;
    }
    StringObject& operator=(StringObject&& other) noexcept {
        text_ = std::move(other.text_);
        return *this;
    }

    ICapeString* in() const noexcept { return const_cast<ICapeString*>(&in_); }
    ICapeString* out() noexcept { return &out_; }

    std::string utf8() const { return toUtf8(text_); }
    CapeTextView view() const noexcept { return text_; }
    void set(CapeTextView text) { text_.assign(text); }

private:
    static const ICapeString::Table inTable, outTable;

    CapeText text_;
    ICapeString in_{{this, &inTable}};
    ICapeString out_{{this, &outTable}};
};

/// An array of ours with numbers as its elements. The storage is kept from call to call.
template <class I> class ArrayObject {
public:
    using Element = typename I::Element;

    ArrayObject() = default;
    explicit ArrayObject(std::vector<Element> values) : values_(std::move(values)) {}
    ArrayObject(const ArrayObject&) = delete;
    ArrayObject& operator=(const ArrayObject&) = delete;

    I* in() const noexcept { return const_cast<I*>(&in_); }
    I* out() noexcept { return &out_; }

    std::span<const Element> view() const noexcept { return values_; }
    std::span<Element> resize(std::size_t size) {
        values_.resize(size);
        return values_;
    }
    void assign(std::span<const Element> values) { values_.assign(values.begin(), values.end()); }

private:
    static const typename I::Table inTable, outTable;

    std::vector<Element> values_;
    I in_{{{this, &inTable}}};
    I out_{{{this, &outTable}}};
};

extern template class ArrayObject<ICapeArrayReal>;
extern template class ArrayObject<ICapeArrayInteger>;
extern template class ArrayObject<ICapeArrayBoolean>;
extern template class ArrayObject<ICapeArrayByte>;
extern template class ArrayObject<ICapeArrayEnumeration>;

using RealArray = ArrayObject<ICapeArrayReal>;
using IntegerArray = ArrayObject<ICapeArrayInteger>;
using BooleanArray = ArrayObject<ICapeArrayBoolean>;
using ByteArray = ArrayObject<ICapeArrayByte>;
using EnumerationArray = ArrayObject<ICapeArrayEnumeration>;

/// Reals that lie elsewhere, passed as an argument without a copy. What it looks at must outlive the call.
class RealView {
public:
    explicit RealView(std::span<const double> values) noexcept : values_(values) {}
    RealView(const RealView&) = delete;
    RealView& operator=(const RealView&) = delete;

    ICapeArrayReal* in() const noexcept { return const_cast<ICapeArrayReal*>(&in_); }

private:
    static const ICapeArrayReal::Table table;

    std::span<const double> values_;
    ICapeArrayReal in_{{{this, &table}}};
};

/// An array of texts of ours.
class StringArray {
public:
    StringArray() = default;
    explicit StringArray(const std::vector<std::string>& texts) { assign(texts); }
    StringArray(const StringArray&) = delete;
    StringArray& operator=(const StringArray&) = delete;

    ICapeArrayString* in() const noexcept { return const_cast<ICapeArrayString*>(&in_); }
    ICapeArrayString* out() noexcept { return &out_; }

    std::size_t size() const noexcept { return size_; }
    const StringObject& operator[](std::size_t i) const { return texts_[i]; }
    StringObject& operator[](std::size_t i) { return texts_[i]; }
    /// New elements are empty; those that stay keep their text.
    void resize(std::size_t size);
    void assign(const std::vector<std::string>& texts);
    std::vector<std::string> utf8() const;

private:
    static const ICapeArrayString::Table inTable, outTable;

    std::deque<StringObject> texts_;  // never shrinks, and its elements never move
    std::vector<ICapeString*> inElements_, outElements_;
    std::size_t size_ = 0;
    ICapeArrayString in_{{{this, &inTable}}};
    ICapeArrayString out_{{{this, &outTable}}};
};

/// Texts that lie elsewhere, passed as an array without a copy. What it looks at must outlive the call.
class StringsView {
public:
    explicit StringsView(std::span<ICapeString* const> texts) noexcept : texts_(texts) {}
    StringsView(const StringsView&) = delete;
    StringsView& operator=(const StringsView&) = delete;

    ICapeArrayString* in() const noexcept { return const_cast<ICapeArrayString*>(&in_); }

private:
    static const ICapeArrayString::Table table;

    std::span<ICapeString* const> texts_;
    ICapeArrayString in_{{{this, &table}}};
};

/// A value of one of four types, or none.
class ValueObject {
public:
    using Content = std::variant<std::monostate, std::string, CapeInteger, bool, double>;

    ValueObject() = default;
    ValueObject(const ValueObject&) = delete;
    ValueObject& operator=(const ValueObject&) = delete;

    ICapeValue* out() noexcept { return &out_; }
    Content content() const;

private:
    struct Slots;
    using Stored = std::variant<std::monostate, CapeText, CapeInteger, bool, double>;

    static const ICapeValue::Table table;

    Stored content_;
    ICapeValue out_{{this, &table}};
};

/// An array of values of ours, for the callee to fill. Elements that a resize adds are empty.
class ValueArray {
public:
    ValueArray() = default;
    ValueArray(const ValueArray&) = delete;
    ValueArray& operator=(const ValueArray&) = delete;

    ICapeArrayValue* out() noexcept { return &out_; }

    std::size_t size() const noexcept { return elements_.size(); }
    const ValueObject& operator[](std::size_t i) const { return values_[i]; }

private:
    static const ICapeArrayValue::Table table;

    std::deque<ValueObject> values_;  // its elements never move
    std::vector<ICapeValue*> elements_;
    ICapeArrayValue out_{{{this, &table}}};
};

/// What a text argument holds. An empty text may come as a null pointer.
CapeTextView read(ICapeString* text) noexcept;

/// What an array argument holds, in the caller's own storage.
template <class I> std::span<const typename I::Element> readArray(I* array) noexcept {
    typename I::Element* data = nullptr;
    CapeSize size = 0;
    static_cast<const typename I::Table*>(array->vTbl)->get(array->me, &data, &size);
    return {data, data ? size : 0};
}

std::vector<std::string> readTexts(ICapeArrayString* texts);

/// What a value argument holds. Throws cape_open_error with the code that the other side's object answers.
ValueObject::Content readValue(ICapeValue* value);

// Filling an output of the caller's. Each throws cape_open_error with the code that the caller's object answers.

void write(ICapeString* out, CapeTextView text);
void write(ICapeArrayString* out, std::span<const std::string> texts);
void write(ICapeValue* out, const ValueObject::Content& value);
[[noreturn]] void failWrite(CapeResult code);

/// Resizes an output array and gives the storage to fill.
template <class I> std::span<typename I::Element> resize(I* out, std::size_t size) {
    typename I::Element* data = nullptr;
    const CapeResult code = static_cast<const typename I::Table*>(out->vTbl)->setsize(
        out->me, static_cast<CapeSize>(size), &data);
    if (code != noError) failWrite(code);
    return {data, size};
}

}  // namespace COBIA
