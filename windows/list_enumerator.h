// ListEnumerator: any of automation's enumerators over a list that was taken down when it was made.
#pragma once

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

#include "windows/bridge.h"
#include "windows/com_object.h"

namespace qor::windows {

/// `HandOut` makes of a kept item what goes to the caller, with a reference of its own.
template <class Interface, class Item, class Kept, auto HandOut>
class ListEnumerator final : public ComObject<Interface> {
 public:
    explicit ListEnumerator(std::vector<Kept> items, std::size_t next = 0)
        : items_(std::move(items)), next_(next) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        *object = id == IID_IUnknown || id == __uuidof(Interface) ? this : nullptr;
        if (!*object) return E_NOINTERFACE;
        this->AddRef();
        return S_OK;
    }

    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
        // Of automation's own enumerator alone anybody may take several without being told how many.
        constexpr bool kTellsAlways = !std::is_same_v<Interface, IEnumVARIANT>;
        if (fetched) *fetched = 0;
        if (!items || (kTellsAlways && !fetched && count != 1)) return E_POINTER;
        return AtBorder(nullptr, [&]() -> HRESULT {
            ULONG done = 0;
            for (; done < count && next_ < items_.size(); ++done) {
                items[done] = HandOut(items_[next_++]);
            }
            if (fetched) *fetched = done;
            return done == count ? S_OK : S_FALSE;
        });
    }
    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = items_.size() - next_;
        next_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) override {
        if (!copy) return E_POINTER;
        *copy = nullptr;
        return AtBorder(nullptr, [&]() -> HRESULT {
            *copy = new ListEnumerator(items_, next_);
            return S_OK;
        });
    }

 private:
    std::vector<Kept> items_;
    std::size_t next_;
};

}  // namespace qor::windows
