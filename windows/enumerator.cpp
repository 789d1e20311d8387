#include "windows/enumerator.h"

#include <algorithm>
#include <vector>

#include "platform/dictionary.h"
#include "platform/vector.h"

namespace qor::windows {

namespace {

class Enumerator final : public IEnumVARIANT {
 public:
    explicit Enumerator(std::vector<Value> items, std::size_t next = 0)
        : items_(std::move(items)), next_(next) {
        ServerLife::Hold();
    }
    ~Enumerator() { ServerLife::Drop(); }

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        *object = id == IID_IUnknown || id == IID_IEnumVARIANT ? this : nullptr;
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) override {
        return AtBorder(nullptr, [&]() -> HRESULT {
            ULONG done = 0;
            for (; done < count && next_ < items_.size(); ++done) {
                items[done] = ToVariant(items_[next_++]).Detach();
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
    STDMETHODIMP Clone(IEnumVARIANT** copy) override {
        if (!copy) return E_POINTER;
        return AtBorder(nullptr, [&]() -> HRESULT {
            *copy = new Enumerator(items_, next_);
            return S_OK;
        });
    }

 private:
    std::vector<Value> items_;
    std::size_t next_;
    volatile LONG references_ = 1;
};

}  // namespace

ComPtr<IUnknown> MakeEnumerator(Object& object) {
    std::vector<Value> items;
    if (auto* list = dynamic_cast<Vector*>(&object)) {
        for (std::int32_t i = 1; i <= list->Count(); ++i) {
            items.push_back(list->Item(i));
        }
    } else if (auto* dictionary = dynamic_cast<Dictionary*>(&object)) {
        for (std::size_t i = 0; i < dictionary->Count(); ++i) {
            items.push_back(dictionary->KeyAt(i));
        }
    } else {
        return {};
    }
    ComPtr<IUnknown> enumerator;
    enumerator.Attach(new Enumerator(std::move(items)));
    return enumerator;
}

}  // namespace qor::windows
