// The shapes in which a failure travels: exceptions inside, error objects on the binary interface.
// Not here: the wrapper around implemented operations (Object.h), calls on the host (Call.h).
#pragma once

#include "cobia/Ref.h"

#include <exception>
#include <sstream>
#include <string>

namespace COBIA {

/// A failure with a message of our own, composed with the stream operators:
/// `throw StringException() << "port '" << name << "' is not connected";`
class StringException : public std::exception {
public:
    StringException() = default;
    explicit StringException(const std::string& text) : text_(text) {}

    template <class T> StringException&& operator<<(const T& value) && {
        std::ostringstream stream;
        stream << value;
        text_ += stream.str();
        return std::move(*this);
    }

    const char* what() const noexcept override { return text_.c_str(); }

private:
    std::string text_;
};

/// A failure with a result code and, for code 1, the error object of the interface that failed.
/// Used on the thread that threw it only.
class cape_open_error : public std::exception {
public:
    /// A bare code: no error object is looked for.
    explicit cape_open_error(CapeResult code) noexcept : code_(code) {}
    /// What an interface answered. With code 1 its last error is fetched and kept.
    cape_open_error(CapeResult code, ICapeInterface* failed) noexcept;
    /// Code 1 with a message of our own.
    explicit cape_open_error(std::string message) noexcept
        : code_(capeOpenError), direct_(std::move(message)), given_(true) {}
    /// Code 1 with the exception's text.
    explicit cape_open_error(const std::exception& error) : cape_open_error(std::string(error.what())) {}

    CapeResult code() const noexcept { return code_; }
    /// Null when there is none.
    ICapeError* errorObject() const noexcept { return error_.get(); }
    /// The message without its chain: ours, the error object's, or the description of the code.
    std::string directText() const;
    /// The chain of causes in one line, or the direct text where there is no error object.
    const char* what() const noexcept override;

private:
    CapeResult code_;
    Ref<ICapeError> error_;
    std::string direct_;
    bool given_ = false;  // direct_ is a message of ours, empty ones included
    mutable std::string full_;
};

/// A new error object with one reference, for a host to take.
Ref<ICapeError> makeError(std::string text, std::string scope, std::string source, Ref<ICapeError> cause);

/// What a result code means, in English; from the COBIA runtime where one is loaded.
std::string errorDescription(CapeResult code);

/// The runtime's own descriptions, once it is loaded; an empty answer falls back to our table. Null restores the table.
/// Set before other threads look.
void setErrorDescriptions(std::string (*source)(CapeResult)) noexcept;

}  // namespace COBIA
