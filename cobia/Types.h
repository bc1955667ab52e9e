// The scalar types, result codes and enumerations of the CAPE-OPEN 1.2 binary interface.
// Not here: the interfaces themselves (Interfaces.h) and texts (Text.h).
#pragma once

#include <array>
#include <cstdint>
#include <limits>

namespace COBIA {

using CapeResult = std::uint32_t;
using CapeReal = double;
using CapeInteger = std::int32_t;
using CapeBoolean = std::uint32_t;
using CapeByte = std::uint8_t;
using CapeSize = std::uint32_t;
using CapeEnumeration = std::int32_t;

#ifdef _WIN32
using CapeCharacter = wchar_t;  // a UTF-16 code unit
#else
using CapeCharacter = char;  // a UTF-8 byte
#endif

/// HWND on Windows; elsewhere opaque and possibly null.
using CapeWindowId = void*;

/// The integer that means "not specified"; for reals it is NaN.
inline constexpr CapeInteger undefinedInteger = std::numeric_limits<CapeInteger>::min();

/// An identifier, its bytes in the order in which the text form prints them.
struct CapeUUID {
    std::array<std::uint8_t, 16> data;

    friend constexpr bool operator==(const CapeUUID& a, const CapeUUID& b) noexcept {
        return a.data == b.data;
    }
};
static_assert(sizeof(CapeUUID) == 16);

/// "12ebf184-f47a-4407-b52a-7fcc0a70451c"_uuid. A text of another form does not compile.
consteval CapeUUID operator""_uuid(const char* text, std::size_t length) {
    CapeUUID result{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char c = text[i];
        if (c == '-') continue;
        const int value = c >= '0' && c <= '9'   ? c - '0'
                          : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                                 : throw "not a digit";
        auto& byte = result.data.at(digits / 2);
        byte = static_cast<std::uint8_t>(byte * 16 + value);
        ++digits;
    }
    if (digits != 32) throw "an identifier has 32 digits";
    return result;
}

/// Result codes that this project gives or asks for. Any code but noError leaves the outputs unset.
enum : CapeResult {
    noError = 0,
    capeOpenError = 1,  // details: the interface's getLastError
    unknownFailure = 100,
    outOfMemory = 102,
    nullPointer = 103,
    invalidArgument = 104,
    noSuchInterface = 105,
    denied = 106,
    noSuchItem = 107,
    notImplemented = 108,
    noService = 109,
    invalidOperation = 115,
};

enum class CapeValueType : CapeEnumeration { string = 0, integer = 1, boolean = 2, real = 3, empty = 4 };

enum class CapeParamType : CapeEnumeration {
    real = 0,
    integer = 1,
    string = 2,
    boolean = 3,
    arrayReal = 4,
    arrayInteger = 5,
    arrayString = 6,
    arrayBoolean = 7,
};

enum class CapeParamMode : CapeEnumeration { input = 1, output = 2, inputOutput = 3 };

enum class CapeValidationStatus : CapeEnumeration { notValidated = 0, invalid = 1, valid = 2 };

enum class CapePhaseStatus : CapeEnumeration { unknown = 0, atEquilibrium = 1, estimates = 2 };

enum class CapeEditResult : CapeEnumeration { modified = 0, notModified = 1 };

enum class CapePortType : CapeEnumeration { material = 0, energy = 1, information = 2, any = 3 };

enum class CapePortDirection : CapeEnumeration { inlet = 0, outlet = 1, inletOutlet = 2 };

enum class CapePersistedDataType : CapeEnumeration {
    real = 0,
    integer = 1,
    boolean = 2,
    string = 3,
    enumeration = 4,
    value = 5,
    arrayReal = 6,
    arrayInteger = 7,
    arrayBoolean = 8,
    arrayString = 9,
    arrayEnumeration = 10,
    arrayValue = 11,
    arrayByte = 12,
};

}  // namespace COBIA
