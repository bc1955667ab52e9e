// How the arguments and results of our member functions look on the binary interface.
// A member takes numbers, views and borrowed interfaces, and gives numbers, texts, vectors and references;
// In<T> reads one argument, Out<T> writes a result.
#pragma once

#include "cobia/Data.h"
#include "cobia/Error.h"

#include <concepts>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace COBIA {

/// Whether something is valid, and why not.
struct Verdict {
    bool valid;
    std::string message;
};

/// Texts in the caller's storage, read without a copy.
class TextsView {
public:
    explicit TextsView(ICapeArrayString* texts) noexcept : texts_(readArray(texts)) {}
    std::size_t size() const noexcept { return texts_.size(); }
    CapeTextView operator[](std::size_t i) const noexcept {
        return texts_[i] ? read(texts_[i]) : CapeTextView();
    }

private:
    std::span<ICapeString* const> texts_;
};

/// An array of the caller's to be filled, for members with more than one result or none to copy.
template <class I> class ArrayOut {
public:
    explicit ArrayOut(I* out) noexcept : out_(out) {}
    std::span<typename I::Element> resize(std::size_t size) const { return COBIA::resize(out_, size); }
    void assign(std::span<const typename I::Element> values) const {
        std::copy(values.begin(), values.end(), resize(values.size()).begin());
    }

private:
    I* out_;
};
using RealsOut = ArrayOut<ICapeArrayReal>;
using EnumerationsOut = ArrayOut<ICapeArrayEnumeration>;

/// An array of texts of the caller's to be filled.
class TextsOut {
public:
    explicit TextsOut(ICapeArrayString* out) noexcept : out_(out) {}
    void assign(std::span<const std::string> texts) const { write(out_, texts); }

private:
    ICapeArrayString* out_;
};

/// How an argument is read: `Native` is what the member takes, `Carried` what the slot carries.
template <class Native, class Carried> struct In;

template <class T> struct In<T, T> {  // numbers, enumerations, borrowed interfaces
    static T read(T value) noexcept { return value; }
};
template <> struct In<bool, CapeBoolean> {
    static bool read(CapeBoolean value) noexcept { return value != 0; }
};
template <class T> struct In<T&, T*> {  // a result that the member writes
    static T& read(T* out) noexcept { return *out; }
};
template <> struct In<std::string, ICapeString*> {
    static std::string read(ICapeString* text) { return toUtf8(COBIA::read(text)); }
};
template <> struct In<CapeTextView, ICapeString*> {
    static CapeTextView read(ICapeString* text) noexcept { return COBIA::read(text); }
};
template <class I> struct In<std::span<const typename I::Element>, I*> {
    static std::span<const typename I::Element> read(I* array) noexcept { return readArray(array); }
};
template <> struct In<std::span<const double>, ICapeArrayReal*> {
    static std::span<const double> read(ICapeArrayReal* array) noexcept { return readArray(array); }
};
template <> struct In<std::span<const CapeInteger>, ICapeArrayInteger*> {
    static std::span<const CapeInteger> read(ICapeArrayInteger* array) noexcept { return readArray(array); }
};
template <> struct In<std::span<const CapeEnumeration>, ICapeArrayEnumeration*> {
    static std::span<const CapeEnumeration> read(ICapeArrayEnumeration* array) noexcept {
        return readArray(array);
    }
};
template <> struct In<TextsView, ICapeArrayString*> {
    static TextsView read(ICapeArrayString* texts) noexcept { return TextsView(texts); }
};
template <class I> struct In<ArrayOut<I>, I*> {
    static ArrayOut<I> read(I* out) noexcept { return ArrayOut<I>(out); }
};
template <> struct In<TextsOut, ICapeArrayString*> {
    static TextsOut read(ICapeArrayString* out) noexcept { return TextsOut(out); }
};

/// How a result is written: to one output, or to the outputs that it takes.
template <class Native> struct Out;

template <class T>
requires std::is_arithmetic_v<T> || std::is_enum_v<T>
struct Out<T> {
    static void write(T value, T* out) noexcept { *out = value; }
};
template <> struct Out<bool> {
    static void write(bool value, CapeBoolean* out) noexcept { *out = value ? 1 : 0; }
};
template <> struct Out<std::string> {
    static void write(const std::string& text, ICapeString* out) { COBIA::write(out, toCape(text)); }
};
template <> struct Out<std::vector<std::string>> {
    static void write(const std::vector<std::string>& texts, ICapeArrayString* out) {
        COBIA::write(out, texts);
    }
};
template <class Element>
requires std::is_arithmetic_v<Element>
struct Out<std::vector<Element>> {
    template <class I> static void write(const std::vector<Element>& values, I* out) {
        ArrayOut<I>(out).assign(values);
    }
};
template <class Element> struct Out<std::span<const Element>> {
    template <class I> static void write(std::span<const Element> values, I* out) {
        ArrayOut<I>(out).assign(values);
    }
};
template <> struct Out<ValueObject::Content> {
    static void write(const ValueObject::Content& value, ICapeValue* out) { COBIA::write(out, value); }
};
template <class T> struct Out<Ref<T>> {
    template <class I>
    requires std::derived_from<T, I>
    static void write(Ref<T> reference, I** out) noexcept { *out = reference.detach(); }
};
template <> struct Out<Verdict> {
    static void write(const Verdict& verdict, ICapeString* message, CapeBoolean* valid) {
        COBIA::write(message, toCape(verdict.message));
        *valid = verdict.valid ? 1 : 0;
    }
};

/// True for an argument that must not be null: every pointer but borrowed interfaces and windows, which may be.
template <class Carried> bool isMissing(Carried argument) noexcept {
    if constexpr (!std::is_pointer_v<Carried> || std::is_same_v<Carried, CapeWindowId>)
        return false;
    else if constexpr (Interface<std::remove_pointer_t<Carried>>)
        return false;
    else
        return argument == nullptr;
}

}  // namespace COBIA
