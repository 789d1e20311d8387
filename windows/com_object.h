// ComObject: what every object of this component that hosts count references to has in common.
#pragma once

#include <windows.h>

namespace qor::windows {

/// The number of COM objects that are alive and of locks on the server; the library may go when it is 0.
class ServerLife {
 public:
    static void Hold() { InterlockedIncrement(&holds_); }
    static void Drop() { InterlockedDecrement(&holds_); }
    static bool IsHeld() { return holds_ != 0; }

 private:
    static inline volatile LONG holds_ = 0;
};

/// Counts its references, from 1; with the last one it goes, and only then lets go of the server.
template <class... Interfaces>
class ComObject : public Interfaces... {
 public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

 protected:
    ComObject() { ServerLife::Hold(); }
    virtual ~ComObject() { ServerLife::Drop(); }

 private:
    volatile LONG references_ = 1;
};

}  // namespace qor::windows
