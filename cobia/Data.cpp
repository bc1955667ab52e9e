#include "cobia/Data.h"

#include "cobia/Error.h"

#include <algorithm>

namespace COBIA {
namespace {

template <class Object> Object& self(void* me) noexcept { return *static_cast<Object*>(me); }

/// What runs inside a slot of a data object: only memory can fail there.
template <class Body> CapeResult guarded(Body&& body) noexcept {
    try {
        return body();
    }
    catch (const std::bad_alloc&) {
        return outOfMemory;
    }
    catch (...) {
        return unknownFailure;
    }
}

void getText(void* me, const CapeCharacter** data, CapeSize* size) noexcept {
    const CapeTextView text = self<StringObject>(me).view();
    *data = text.data();
    *size = static_cast<CapeSize>(text.size());
}

CapeResult setText(void* me, const CapeCharacter* data, CapeSize size) noexcept {
    return guarded([&] {
        self<StringObject>(me).set(CapeTextView(data, data ? size : 0));
        return CapeResult{noError};
    });
}

CapeResult denyText(void*, const CapeCharacter*, CapeSize) noexcept { return denied; }

template <class I> void getArray(void* me, typename I::Element** data, CapeSize* size) noexcept {
    const auto values = self<ArrayObject<I>>(me).view();
    *data = const_cast<typename I::Element*>(values.data());
    *size = static_cast<CapeSize>(values.size());
}

template <class I> CapeResult setArraySize(void* me, CapeSize size, typename I::Element** data) noexcept {
    if (!data) return nullPointer;
    return guarded([&] {
        *data = self<ArrayObject<I>>(me).resize(size).data();
        return CapeResult{noError};
    });
}

template <class Element> CapeResult denySize(void*, CapeSize, Element**) noexcept { return denied; }

}  // namespace

const ICapeString::Table StringObject::inTable = {.get = getText, .set = denyText};
const ICapeString::Table StringObject::outTable = {.get = getText, .set = setText};

template <class I>
const typename I::Table ArrayObject<I>::inTable = {.get = getArray<I>, .setsize = denySize<Element>};
template <class I>
const typename I::Table ArrayObject<I>::outTable = {.get = getArray<I>, .setsize = setArraySize<I>};

template class ArrayObject<ICapeArrayReal>;
template class ArrayObject<ICapeArrayInteger>;
template class ArrayObject<ICapeArrayBoolean>;
template class ArrayObject<ICapeArrayByte>;
template class ArrayObject<ICapeArrayEnumeration>;

const ICapeArrayReal::Table RealView::table = {
    .get =
        [](void* me, CapeReal** data, CapeSize* size) {
            const auto values = self<RealView>(me).values_;
            *data = const_cast<CapeReal*>(values.data());
            *size = static_cast<CapeSize>(values.size());
        },
    .setsize = denySize<CapeReal>,
};

const ICapeArrayString::Table StringsView::table = {
    .get =
        [](void* me, ICapeString*** data, CapeSize* size) {
            const auto texts = self<StringsView>(me).texts_;
            *data = const_cast<ICapeString**>(texts.data());
            *size = static_cast<CapeSize>(texts.size());
        },
    .setsize = denySize<ICapeString*>,
};

const ICapeArrayValue::Table ValueArray::table = {
    .get =
        [](void* me, ICapeValue*** data, CapeSize* size) {
            *data = self<ValueArray>(me).elements_.data();
            *size = static_cast<CapeSize>(self<ValueArray>(me).elements_.size());
        },
    .setsize =
        [](void* me, CapeSize size, ICapeValue*** data) {
            if (!data) return CapeResult{nullPointer};
            return guarded([&] {
                auto& array = self<ValueArray>(me);
                while (array.values_.size() > size) array.values_.pop_back();
                while (array.values_.size() < size) array.values_.emplace_back();
                array.elements_.resize(size);
                for (CapeSize i = 0; i < size; ++i) array.elements_[i] = array.values_[i].out();
                *data = array.elements_.data();
                return CapeResult{noError};
            });
        },
};

const ICapeArrayString::Table StringArray::inTable = {
    .get =
        [](void* me, ICapeString*** data, CapeSize* size) {
            *data = self<StringArray>(me).inElements_.data();
            *size = static_cast<CapeSize>(self<StringArray>(me).size_);
        },
    .setsize = denySize<ICapeString*>,
};

const ICapeArrayString::Table StringArray::outTable = {
    .get =
        [](void* me, ICapeString*** data, CapeSize* size) {
            *data = self<StringArray>(me).outElements_.data();
            *size = static_cast<CapeSize>(self<StringArray>(me).size_);
        },
    .setsize =
        [](void* me, CapeSize size, ICapeString*** data) {
            if (!data) return CapeResult{nullPointer};
            return guarded([&] {
                self<StringArray>(me).resize(size);
                *data = self<StringArray>(me).outElements_.data();
                return CapeResult{noError};
            });
        },
};

void StringArray::resize(std::size_t size) {
    while (texts_.size() < size) {
        StringObject& text = texts_.emplace_back();
        inElements_.push_back(text.in());
        outElements_.push_back(text.out());
    }
    for (std::size_t i = size_; i < size; ++i) texts_[i].set({});
    size_ = size;
}

void StringArray::assign(const std::vector<std::string>& texts) {
    resize(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) texts_[i] = StringObject(texts[i]);
}

std::vector<std::string> StringArray::utf8() const {
    std::vector<std::string> result;
    result.reserve(size_);
    for (std::size_t i = 0; i < size_; ++i) result.push_back(texts_[i].utf8());
    return result;
}

/// The value's slots; a getter of another type answers "unexpected data type".
struct ValueObject::Slots {
    static constexpr CapeResult wrongType = 111;

    static CapeValueType type(void* me) {
        switch (self<ValueObject>(me).content_.index()) {
        case 1: return CapeValueType::string;
        case 2: return CapeValueType::integer;
        case 3: return CapeValueType::boolean;
        case 4: return CapeValueType::real;
        default: return CapeValueType::empty;
        }
    }
    static CapeResult text(void* me, const CapeCharacter** data, CapeSize* size) {
        if (!data || !size) return nullPointer;
        const auto* text = std::get_if<CapeText>(&self<ValueObject>(me).content_);
        if (!text) return wrongType;
        *data = text->c_str();
        *size = static_cast<CapeSize>(text->size());
        return noError;
    }
    template <class Kept, class Given> static CapeResult get(void* me, Given* out) {
        if (!out) return nullPointer;
        const auto* value = std::get_if<Kept>(&self<ValueObject>(me).content_);
        if (!value) return wrongType;
        *out = static_cast<Given>(*value);
        return noError;
    }
    static CapeResult setText(void* me, const CapeCharacter* data, CapeSize size) {
        return guarded([&] {
            self<ValueObject>(me).content_ = data ? CapeText(data, size) : CapeText();
            return CapeResult{noError};
        });
    }
    template <class Kept, class Given> static CapeResult set(void* me, Given value) {
        self<ValueObject>(me).content_ = static_cast<Kept>(value);
        return noError;
    }
    static CapeResult clear(void* me) {
        self<ValueObject>(me).content_ = std::monostate();
        return noError;
    }
};

const ICapeValue::Table ValueObject::table = {
    .getValueType = Slots::type,
    .getStringValue = Slots::text,
    .getIntegerValue = Slots::get<CapeInteger, CapeInteger>,
    .getBooleanValue = Slots::get<bool, CapeBoolean>,
    .getRealValue = Slots::get<double, CapeReal>,
    .setStringValue = Slots::setText,
    .setIntegerValue = Slots::set<CapeInteger, CapeInteger>,
    .setBooleanValue = Slots::set<bool, CapeBoolean>,
    .setRealValue = Slots::set<double, CapeReal>,
    .clear = Slots::clear,
};

ValueObject::Content ValueObject::content() const {
    switch (content_.index()) {
    case 1: return toUtf8(std::get<1>(content_));
    case 2: return std::get<2>(content_);
    case 3: return std::get<3>(content_);
    case 4: return std::get<4>(content_);
    default: return std::monostate();
    }
}

CapeTextView read(ICapeString* text) noexcept {
    const CapeCharacter* data = nullptr;
    CapeSize size = 0;
    static_cast<const ICapeString::Table*>(text->vTbl)->get(text->me, &data, &size);
    return {data, data ? size : 0};
}

std::vector<std::string> readTexts(ICapeArrayString* texts) {
    std::vector<std::string> result;
    for (ICapeString* text : readArray(texts)) result.push_back(text ? toUtf8(read(text)) : std::string());
    return result;
}

ValueObject::Content readValue(ICapeValue* value) {
    const auto& table = *static_cast<const ICapeValue::Table*>(value->vTbl);
    const auto get = [value](auto getter, auto given) {
        if (const CapeResult code = getter(value->me, &given)) throw cape_open_error(code);
        return given;
    };
    switch (table.getValueType(value->me)) {
    case CapeValueType::string: {
        const CapeCharacter* data = nullptr;
        CapeSize size = 0;
        if (const CapeResult code = table.getStringValue(value->me, &data, &size))
            throw cape_open_error(code);
        return toUtf8(CapeTextView(data, data ? size : 0));
    }
    case CapeValueType::integer: return get(table.getIntegerValue, CapeInteger());
    case CapeValueType::boolean: return get(table.getBooleanValue, CapeBoolean()) != 0;
    case CapeValueType::real: return get(table.getRealValue, CapeReal());
    case CapeValueType::empty: return std::monostate();
    }
    throw cape_open_error(111);  // a type that this interface does not know
}

void failWrite(CapeResult code) { throw cape_open_error(code); }

void write(ICapeString* out, CapeTextView text) {
    const auto* table = static_cast<const ICapeString::Table*>(out->vTbl);
    static constexpr CapeCharacter empty[] = {0};  // a null pointer is not a text that every host expects
    const CapeCharacter* data = text.data() ? text.data() : empty;
    if (const CapeResult code = table->set(out->me, data, static_cast<CapeSize>(text.size())))
        failWrite(code);
}

void write(ICapeArrayString* out, std::span<const std::string> texts) {
    const auto elements = resize(out, texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) write(elements[i], toCape(texts[i]));
}

void write(ICapeValue* out, const ValueObject::Content& value) {
    const auto& table = *static_cast<const ICapeValue::Table*>(out->vTbl);
    CapeResult code = noError;
    if (const auto* text = std::get_if<std::string>(&value)) {
        const CapeText converted = toCape(*text);
        code = table.setStringValue(out->me, converted.c_str(), static_cast<CapeSize>(converted.size()));
    } else if (const auto* integer = std::get_if<CapeInteger>(&value)) {
        code = table.setIntegerValue(out->me, *integer);
    } else if (const auto* boolean = std::get_if<bool>(&value)) {
        code = table.setBooleanValue(out->me, *boolean ? 1 : 0);
    } else if (const auto* real = std::get_if<double>(&value)) {
        code = table.setRealValue(out->me, *real);
    } else {
        code = table.clear(out->me);
    }
    if (code != noError) failWrite(code);
}

}  // namespace COBIA
