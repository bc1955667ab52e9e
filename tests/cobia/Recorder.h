// For the tests of the adapters: an object whose members note how they were called, and calls of its slots by
// number, as a host that was compiled elsewhere makes them.
#pragma once

#include "cobia/Call.h"
#include "cobia/HostAdapters.h"

#include <cstring>
#include <doctest/doctest.h>
#include <sstream>
#include <string>
#include <utility>

/// Calls slot number 4 + `number` of an interface: the first four are those of ICapeInterface.
template <class... Arguments>
COBIA::CapeResult callSlot(COBIA::ICapeInterface* object, int number, Arguments... arguments) {
    COBIA::CapeResult (*function)(void*, Arguments...) = nullptr;
    std::memcpy(&function, static_cast<const char*>(object->vTbl) + (4 + number) * sizeof function,
                sizeof function);
    return function(object->me, arguments...);
}

/// Notes the calls of its members: the member's name, then the arguments.
template <class Object, template <class> class... Adapters>
class Recorder : public COBIA::CapeOpenObject<Object, Adapters...> {
public:
    /// What was noted since the last question.
    std::string seen() const { return std::exchange(note_, {}); }

    /// The scope that a slot gives to a failure of its member.
    template <class... Arguments>
    std::string scopeOf(COBIA::ICapeInterface* object, int number, Arguments... arguments) {
        failing_ = true;
        CHECK(callSlot(object, number, arguments...) == COBIA::capeOpenError);
        failing_ = false;
        const auto error = this->takeLastError();
        REQUIRE(error);
        COBIA::StringObject scope;
        static_cast<const COBIA::ICapeError::Table*>(error->vTbl)->getScope(error->me, scope.out());
        return scope.utf8();
    }

protected:
    template <class... Arguments> void note(const char* member, const Arguments&... arguments) const {
        if (failing_) throw COBIA::StringException(member);
        note_ += note_.empty() ? member : std::string(" and then ") + member;
        ((note_ += " " + shown(arguments)), ...);
    }

    std::string errorSource() const override { return "recorder"; }

private:
    static std::string shown(const std::string& text) { return text; }
    static std::string shown(const char* text) { return text; }
    static std::string shown(const void* pointer) { return pointer ? "object" : "null"; }
    static std::string shown(bool value) { return value ? "true" : "false"; }
    static std::string shown(double value) {
        std::ostringstream text;
        text << value;
        return text.str();
    }
    static std::string shown(std::int32_t value) { return std::to_string(value); }
    static std::string shown(std::uint32_t value) { return std::to_string(value); }
    static std::string shown(std::uint8_t value) { return std::to_string(value); }
#ifdef _WIN32
    static std::string shown(COBIA::CapeTextView text) { return COBIA::toUtf8(text); }
#else
    static std::string shown(std::string_view text) { return std::string(text); }
#endif
    static std::string shown(const COBIA::ValueObject::Content& value) {
        if (const auto* text = std::get_if<std::string>(&value)) return *text;
        if (const auto* integer = std::get_if<COBIA::CapeInteger>(&value)) return shown(*integer);
        if (const auto* boolean = std::get_if<bool>(&value)) return shown(*boolean);
        if (const auto* real = std::get_if<double>(&value)) return shown(*real);
        return "nothing";
    }
    template <class List>
    requires requires(const List& list) { list.size(), list[0]; }
    static std::string shown(const List& list) {
        std::string text = "[";
        for (std::size_t i = 0; i < list.size(); ++i) text += (i ? " " : "") + shown(list[i]);
        return text + "]";
    }

    mutable std::string note_;
    bool failing_ = false;
};
