// ComPtr: an interface pointer that owns one reference.
#pragma once

#include <unknwn.h>

#include <concepts>
#include <utility>

namespace qor::windows {

template <class T>
class ComPtr {
 public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}
    /// Takes a reference of its own.
    ComPtr(T* other) noexcept : pointer_(other) {
        if (pointer_) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(other.Detach()) {}
    template <std::derived_from<T> U>
    ComPtr(const ComPtr<U>& other) noexcept : ComPtr(other.Get()) {}
    ~ComPtr() { Reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    T* Get() const noexcept { return pointer_; }
    T* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Where somebody puts a pointer with its reference; what stood there before is let go.
    T** operator&() noexcept {
        Reset();
        return &pointer_;
    }
    /// Takes over a reference that the caller had.
    void Attach(T* other) noexcept {
        Reset();
        pointer_ = other;
    }
    /// Hands the reference over to the caller.
    T* Detach() noexcept { return std::exchange(pointer_, nullptr); }
    void Reset() noexcept {
        if (T* pointer = Detach()) pointer->Release();
    }

 private:
    T* pointer_ = nullptr;
};

}  // namespace qor::windows
