// The data objects, seen through the interfaces by which a host sees them.
#include "cobia/Data.h"

#include "cobia/Error.h"

#include <algorithm>
#include <array>
#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace COBIA;

namespace {

template <class I> const typename I::Table& tableOf(I* object) {
    return *static_cast<const typename I::Table*>(object->vTbl);
}

std::string textOf(ICapeString* text) { return toUtf8(read(text)); }

CapeResult setText(ICapeString* text, const CapeText& value) {
    return tableOf(text).set(text->me, value.data(), static_cast<CapeSize>(value.size()));
}

template <class Body> CapeResult codeOf(Body&& body) {
    try {
        body();
    }
    catch (const cape_open_error& error) {
        return error.code();
    }
    return noError;
}

/// A callee's output that refuses to be written.
struct StubbornText : ICapeString {
    StubbornText() : ICapeString{{this, &table}} {}
    static constexpr ICapeString::Table table = {
        .get =
            [](void*, const CapeCharacter** data, CapeSize* size) {
                *data = nullptr;
                *size = 7;  // a size without data is no text
            },
        .set = [](void*, const CapeCharacter*, CapeSize) { return CapeResult{outOfMemory}; },
    };
};

}  // namespace

TEST_CASE("A text is read by the callee and filled by the callee") {
    StringObject text("Größe");
    CHECK(textOf(text.in()) == "Größe");
    CHECK(textOf(text.out()) == "Größe");

    CHECK(setText(text.out(), toCape("other")) == noError);
    CHECK(text.utf8() == "other");
    CHECK(textOf(text.in()) == "other");

    const std::string withNull("a\0b", 3);
    CHECK(setText(text.out(), toCape(withNull)) == noError);
    CHECK(text.utf8() == withNull);
    CHECK(tableOf(text.out()).set(text.out()->me, nullptr, 0) == noError);
    CHECK(text.utf8().empty());
}

TEST_CASE("A text is null terminated, an empty one too") {
    for (const std::string& content : {std::string(), std::string("x"), std::string(1000, 'y')}) {
        StringObject text(content);
        const CapeCharacter* data = nullptr;
        CapeSize size = 99;
        tableOf(text.in()).get(text.in()->me, &data, &size);
        CHECK(size == content.size());
        REQUIRE(data != nullptr);
        CHECK(data[size] == 0);
    }
}

TEST_CASE("A copied or moved text is an object of its own") {
    StringObject original("original");
    StringObject copy = original;
    setText(copy.out(), toCape("copy"));
    CHECK(textOf(original.in()) == "original");
    CHECK(textOf(copy.in()) == "copy");

    const StringObject moved = std::move(copy);
    CHECK(textOf(moved.in()) == "copy");
    original = moved;
    CHECK(textOf(original.in()) == "copy");
    CHECK(textOf(moved.in()) == "copy");
}

TEST_CASE("An input that is written to answers 106 and stays as it was") {
    const StringObject text("kept");
    CHECK(setText(text.in(), toCape("x")) == denied);
    CHECK(text.utf8() == "kept");

    const RealArray reals({1.5, 2.5});
    CapeReal* storage = nullptr;
    CHECK(tableOf(reals.in()).setsize(reals.in()->me, 1, &storage) == denied);
    CHECK(std::ranges::equal(reals.view(), std::array{1.5, 2.5}));

    const double lying[] = {3.5, 4.5};
    const RealView view(lying);
    CHECK(tableOf(view.in()).setsize(view.in()->me, 1, &storage) == denied);
    CHECK(readArray(view.in()).data() == lying);
    CHECK(readArray(view.in()).size() == 2);

    const StringArray texts({"one", "two"});
    ICapeString** elements = nullptr;
    CHECK(tableOf(texts.in()).setsize(texts.in()->me, 1, &elements) == denied);
    for (ICapeString* element : readArray(texts.in())) CHECK(setText(element, toCape("x")) == denied);
    CHECK(texts.utf8() == std::vector<std::string>{"one", "two"});
}

TEST_CASE_TEMPLATE("An array of numbers is resized and filled by the callee", Array, RealArray, IntegerArray,
                   BooleanArray, ByteArray, EnumerationArray) {
    using Element = typename Array::Element;
    Array array;
    CHECK(readArray(array.in()).empty());

    const std::vector<Element> values = {Element{3}, Element{1}, Element{2}};
    std::ranges::copy(values, resize(array.out(), 3).begin());
    CHECK(std::ranges::equal(array.view(), values));
    CHECK(std::ranges::equal(readArray(array.in()), values));

    resize(array.out(), 2);
    CHECK(std::ranges::equal(array.view(), std::vector<Element>{Element{3}, Element{1}}));
    resize(array.out(), 0);
    CHECK(array.view().empty());
    CHECK(tableOf(array.out()).setsize(array.out()->me, 4, nullptr) == nullPointer);
    CHECK(array.view().empty());
}

TEST_CASE("An array of texts grows with empty texts and shrinks from its end") {
    StringArray texts;
    CHECK(readArray(texts.in()).empty());

    write(texts.out(), std::vector<std::string>{"one", "zwö", "three"});
    CHECK(texts.utf8() == std::vector<std::string>{"one", "zwö", "three"});
    CHECK(readTexts(texts.in()) == texts.utf8());

    // A host keeps the storage that it was given for as long as it does not resize.
    const auto elements = resize(texts.out(), 2);
    CHECK(readTexts(texts.out()) == std::vector<std::string>{"one", "zwö"});
    setText(elements[1], toCape("two"));
    CHECK(texts.utf8() == std::vector<std::string>{"one", "two"});

    resize(texts.out(), 4);
    CHECK(texts.utf8() == std::vector<std::string>{"one", "two", "", ""});

    texts.assign({"only"});
    CHECK(readTexts(texts.in()) == std::vector<std::string>{"only"});
    CHECK(texts.size() == 1);
    CHECK(tableOf(texts.out()).setsize(texts.out()->me, 4, nullptr) == nullPointer);
}

TEST_CASE("Texts keep their place while an array grows") {
    StringArray texts({"first"});
    ICapeString* const first = readArray(texts.out())[0];
    texts.resize(10'000);
    CHECK(readArray(texts.out())[0] == first);
    CHECK(textOf(first) == "first");
}

TEST_CASE("A value has one of four types, or none, and refuses to be read as another") {
    using Type = CapeValueType;
    constexpr CapeResult wrongType = 111;
    ValueObject value;
    ICapeValue* const object = value.out();
    const auto& table = tableOf(object);

    const auto check = [&](Type type, const ValueObject::Content& content) {
        CHECK(table.getValueType(object->me) == type);
        CHECK(value.content() == content);

        const CapeCharacter* text = nullptr;
        CapeSize size = 0;
        CapeInteger integer = 0;
        CapeBoolean boolean = 0;
        CapeReal real = 0;
        CHECK(table.getStringValue(object->me, &text, &size) == (type == Type::string ? noError : wrongType));
        CHECK(table.getIntegerValue(object->me, &integer) == (type == Type::integer ? noError : wrongType));
        CHECK(table.getBooleanValue(object->me, &boolean) == (type == Type::boolean ? noError : wrongType));
        CHECK(table.getRealValue(object->me, &real) == (type == Type::real ? noError : wrongType));
        if (type == Type::string) CHECK(toUtf8({text, size}) == std::get<std::string>(content));
        if (type == Type::integer) CHECK(integer == std::get<CapeInteger>(content));
        if (type == Type::boolean) CHECK((boolean != 0) == std::get<bool>(content));
        if (type == Type::real) CHECK(real == std::get<double>(content));
    };
    check(Type::empty, std::monostate());

    const CapeText text = toCape("Größe");
    CHECK(table.setStringValue(object->me, text.data(), static_cast<CapeSize>(text.size())) == noError);
    check(Type::string, "Größe");
    CHECK(table.setStringValue(object->me, nullptr, 0) == noError);
    check(Type::string, "");
    CHECK(table.setIntegerValue(object->me, -7) == noError);
    check(Type::integer, CapeInteger{-7});
    CHECK(table.setBooleanValue(object->me, 2) == noError);  // anything but 0 is true
    check(Type::boolean, true);
    CHECK(table.setBooleanValue(object->me, 0) == noError);
    check(Type::boolean, false);
    CHECK(table.setRealValue(object->me, 0.1) == noError);
    check(Type::real, 0.1);
    CHECK(table.clear(object->me) == noError);
    check(Type::empty, std::monostate());

    CHECK(table.getStringValue(object->me, nullptr, nullptr) == nullPointer);
    CHECK(table.getIntegerValue(object->me, nullptr) == nullPointer);
    CHECK(table.getBooleanValue(object->me, nullptr) == nullPointer);
    CHECK(table.getRealValue(object->me, nullptr) == nullPointer);
}

TEST_CASE("An array of values grows with empty values and shrinks from its end") {
    const auto contentsOf = [](const ValueArray& array) {
        std::vector<ValueObject::Content> contents;
        for (std::size_t i = 0; i < array.size(); ++i) contents.push_back(array[i].content());
        return contents;
    };
    using Contents = std::vector<ValueObject::Content>;
    ValueArray array;
    CHECK(readArray(array.out()).empty());

    const auto elements = resize(array.out(), 3);
    write(elements[0], 1.5);
    write(elements[1], std::string("text"));
    CHECK(contentsOf(array) == Contents{1.5, std::string("text"), std::monostate()});
    resize(array.out(), 1);
    CHECK(contentsOf(array) == Contents{1.5});
    resize(array.out(), 2);
    CHECK(contentsOf(array) == Contents{1.5, std::monostate()});
    CHECK(readValue(readArray(array.out())[0]) == ValueObject::Content(1.5));
    CHECK(tableOf(array.out()).setsize(array.out()->me, 4, nullptr) == nullPointer);
    CHECK(array.size() == 2);
}

TEST_CASE("Texts that lie elsewhere are passed as an array without a copy") {
    const StringObject first("one"), second("zwö");
    ICapeString* const both[] = {second.in(), first.in()};
    const StringsView view(both);
    CHECK(readTexts(view.in()) == std::vector<std::string>{"zwö", "one"});
    CHECK(readArray(view.in()).data() == both);
    ICapeString** elements = nullptr;
    CHECK(tableOf(view.in()).setsize(view.in()->me, 1, &elements) == denied);
}

TEST_CASE("A value is written and read whole") {
    ValueObject value;
    const ValueObject::Content contents[] = {std::string("Größe"), CapeInteger{3}, true, false, 2.5,
                                             std::monostate()};
    for (const auto& content : contents) {
        write(value.out(), content);
        CHECK(value.content() == content);
        CHECK(readValue(value.out()) == content);
    }
}

TEST_CASE("An output that refuses to be written throws its code") {
    StubbornText stubborn;
    CHECK(codeOf([&] { write(&stubborn, toCape("x")); }) == outOfMemory);
    CHECK(read(&stubborn).empty());

    const StringObject text;
    CHECK(codeOf([&] { write(text.in(), toCape("x")); }) == denied);
    const RealArray reals;
    CHECK(codeOf([&] { resize(reals.in(), 3); }) == denied);
    const StringArray texts;
    CHECK(codeOf([&] { write(texts.in(), std::vector<std::string>{"x"}); }) == denied);
}
