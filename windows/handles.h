// What COM hands out, as owners: interface pointers, texts and variants release themselves.
#pragma once

#include <ole2.h>

#include <bit>
#include <string>
#include <string_view>
#include <utility>

#include "windows/com_ptr.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

/// The system's form of an identity.
inline GUID ToGuid(const ComponentId& id) { return std::bit_cast<GUID>(id); }

/// UTF-8 to the system's UTF-16 and back; what is no valid text becomes the replacement character.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

/// An owned BSTR.
class Bstr {
 public:
    explicit Bstr(std::string_view text);
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR Detach() { return std::exchange(text_, nullptr); }

 private:
    BSTR text_;
};

/// An owned VARIANT.
class Variant {
 public:
    Variant() { VariantInit(&value_); }
    explicit Variant(VARIANT&& taken) : value_(taken) { VariantInit(&taken); }
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    VARIANT* get() { return &value_; }
    const VARIANT& operator*() const { return value_; }
    VARIANT Detach() {
        VARIANT taken = value_;
        VariantInit(&value_);
        return taken;
    }

 private:
    VARIANT value_;
};

}  // namespace qor::windows
