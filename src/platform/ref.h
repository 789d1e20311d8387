// Shared ownership of late-bound objects. Counts are plain integers: the library lives on one
// user-interface thread. A Ref owns; a raw pointer or reference to an object only borrows.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

namespace qor {

class RefCounted {
 public:
    RefCounted() = default;
    RefCounted(const RefCounted&) = delete;
    RefCounted& operator=(const RefCounted&) = delete;

    void AddRef() const noexcept { ++references_; }
    void Release() const noexcept {
        if (--references_ == 0) const_cast<RefCounted*>(this)->LastReferenceGone();
    }

 protected:
    virtual ~RefCounted() = default;

    /// Called once, when nobody holds the object any longer; must end the object's life.
    virtual void LastReferenceGone() noexcept { delete this; }

 private:
    mutable std::uint32_t references_ = 0;
};

template <class T>
class Ref {
 public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    explicit Ref(T* object) noexcept : object_(object) { Hold(); }
    Ref(const Ref& other) noexcept : object_(other.object_) { Hold(); }
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

    template <class U>
    requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other)
    noexcept : object_(other.get()) { Hold(); }

    template <class U>
    requires std::is_convertible_v<U*, T*> Ref(Ref<U>&& other)
    noexcept : object_(other.Detach()) {}

    ~Ref() { Drop(); }

    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    T* get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Hands the reference over to the caller, who must Release it.
    T* Detach() noexcept { return std::exchange(object_, nullptr); }

    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }

 private:
    void Hold() const noexcept {
        if (object_) object_->AddRef();
    }
    void Drop() noexcept {
        if (T* object = std::exchange(object_, nullptr)) object->Release();
    }

    T* object_ = nullptr;
};

template <class T, class... A>
Ref<T> MakeRef(A&&... arguments) {
    return Ref<T>(new T(std::forward<A>(arguments)...));
}

}  // namespace qor
