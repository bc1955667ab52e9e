#include "cobia/Error.h"

#include "cobia/Data.h"

#include <atomic>

namespace COBIA {
namespace {

std::string (*runtimeDescriptions)(CapeResult) = nullptr;

const char* englishDescription(CapeResult code) noexcept {
    switch (code) {
    case 0: return "No error";
    case 1: return "CAPE-OPEN error";
    case 100: return "Unknown error";
    case 101: return "Critical error";
    case 102: return "Out of memory";
    case 103: return "Null pointer";
    case 104: return "Invalid argument";
    case 105: return "No such interface";
    case 106: return "Denied";
    case 107: return "No such item";
    case 108: return "Not implemented";
    case 109: return "No service";
    case 110: return "Unexpected number of values";
    case 111: return "Unexpected data type";
    case 112: return "Persistence error";
    case 113: return "Saved with a newer version";
    case 114: return "Denied because of elevation";
    case 115: return "Invalid operation";
    case 116: return "Invalid type library";
    case 117: return "Invalid concurrent access";
    case 500: return "Registry: not found";
    case 501: return "Registry: access denied";
    case 502: return "Registry: corrupt";
    case 503: return "Registry: invalid value type";
    case 504: return "Registry: invalid name";
    case 505: return "Registry: invalid value";
    case 506: return "Registry: cannot create";
    case 507: return "Registry: insufficient data";
    case 601: return "Marshal error";
    case 602: return "Connection closed";
    case 603: return "Timed out";
    default: return nullptr;
    }
}

using Getter = Slot<ICapeString*> ICapeError::Table::*;

/// False when the error object cannot give the text.
bool fetch(ICapeError* error, Getter getter, std::string& text) {
    StringObject result;
    const auto* table = static_cast<const ICapeError::Table*>(error->vTbl);
    if ((table->*getter)(error->me, result.out()) != noError) return false;
    text = result.utf8();
    return true;
}

std::string textOf(ICapeError* error) {
    std::string text;
    if (fetch(error, &ICapeError::Table::getErrorText, text)) return text;
    return "Failed to obtain error text; " + errorDescription(capeOpenError);
}

std::string chainOf(Ref<ICapeError> error) {
    // A host's error may name itself as its cause.
    constexpr int longest = 100;
    std::string text;
    for (int link = 1;; ++link) {
        std::string scope = "<unknown scope>";
        std::string source = "<unknown source>";
        fetch(error.get(), &ICapeError::Table::getScope, scope);
        fetch(error.get(), &ICapeError::Table::getSource, source);
        text += "in " + scope + " of " + source + ": " + textOf(error.get());

        Ref<ICapeError> cause;
        const auto* table = static_cast<const ICapeError::Table*>(error->vTbl);
        if (table->getCause(error->me, cause.receive()) != noError) {
            cause.detach();  // an output of a failed call is not to be used
            return text;
        }
        if (!cause || link == longest) return text;
        text += ", caused by: ";
        error = std::move(cause);
    }
}

/// The error object that a host takes, and may hold and release from any thread.
class CapeErrorImpl : public ICapeError {
public:
    CapeErrorImpl(std::string text, std::string scope, std::string source, Ref<ICapeError> cause)
        : ICapeError{{this, &table}},
          text_(toCape(text)),
          scope_(toCape(scope)),
          source_(toCape(source)),
          cause_(std::move(cause)) {}

private:
    static CapeErrorImpl& self(void* me) noexcept { return *static_cast<CapeErrorImpl*>(me); }

    static void addReference(void* me) noexcept { ++self(me).references_; }
    static void release(void* me) noexcept {
        if (--self(me).references_ == 0) delete &self(me);
    }
    template <CapeText CapeErrorImpl::*member>
    static CapeResult getText(void* me, ICapeString* out) noexcept {
        if (!out) return nullPointer;
        const CapeText& text = self(me).*member;
        return static_cast<const ICapeString::Table*>(out->vTbl)->set(out->me, text.data(),
                                                                      static_cast<CapeSize>(text.size()));
    }
    static CapeResult getCause(void* me, ICapeError** out) noexcept {
        if (!out) return nullPointer;
        *out = Ref<ICapeError>(self(me).cause_).detach();
        return noError;
    }

    static const Table table;

    std::atomic<std::uint32_t> references_ = 1;
    CapeText text_, scope_, source_;
    Ref<ICapeError> cause_;
};

const ICapeError::Table CapeErrorImpl::table = {
    .addReference = addReference,
    .release = release,
    .getErrorText = getText<&CapeErrorImpl::text_>,
    .getCause = getCause,
    .getSource = getText<&CapeErrorImpl::source_>,
    .getScope = getText<&CapeErrorImpl::scope_>,
};

}  // namespace

cape_open_error::cape_open_error(CapeResult code, ICapeInterface* failed) noexcept : code_(code) {
    if (code != capeOpenError || !failed) return;
    const auto* table = static_cast<const ICapeInterface::Table*>(failed->vTbl);
    if (table->getLastError(failed->me, error_.receive()) != noError) error_.detach();
}

std::string cape_open_error::directText() const {
    if (given_) return direct_;
    if (code_ == capeOpenError && error_) return textOf(error_.get());
    return errorDescription(code_);
}

const char* cape_open_error::what() const noexcept {
    if (full_.empty()) full_ = code_ == capeOpenError && error_ ? chainOf(error_) : directText();
    return full_.c_str();
}

Ref<ICapeError> makeError(std::string text, std::string scope, std::string source, Ref<ICapeError> cause) {
    return Ref<ICapeError>::adopt(
        new CapeErrorImpl(std::move(text), std::move(scope), std::move(source), std::move(cause)));
}

std::string errorDescription(CapeResult code) {
    if (runtimeDescriptions) {
        std::string text = runtimeDescriptions(code);
        if (!text.empty()) return text;
    }
    if (const char* text = englishDescription(code)) return text;
    return "Result code " + std::to_string(code);
}

void setErrorDescriptions(std::string (*source)(CapeResult)) noexcept { runtimeDescriptions = source; }

}  // namespace COBIA
