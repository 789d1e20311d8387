#include "windows/event_source.h"

#include <initializer_list>
#include <map>
#include <vector>

#include "progress/bar.h"
#include "progress/cls_pass.h"
#include "windows/list_enumerator.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

namespace {

using Sink = std::pair<DWORD, ComPtr<IDispatch>>;  // with its cookie

CONNECTDATA HandOutSink(const Sink& sink) {
    ComPtr<IUnknown> counted = sink.second;
    return {counted.Detach(), sink.first};
}

using ConnectionList = ListEnumerator<IEnumConnections, CONNECTDATA, Sink, HandOutSink>;

IConnectionPoint* HandOutPoint(const ComPtr<IConnectionPoint>& point) {
    return ComPtr<IConnectionPoint>(point).Detach();
}

using PointList =
    ListEnumerator<IEnumConnectionPoints, IConnectionPoint*, ComPtr<IConnectionPoint>, HandOutPoint>;

/// One event interface of one object: the sinks that were advised, by cookie.
class ConnectionPoint : public IConnectionPoint {
 public:
    ConnectionPoint(IDispatch& owner, const GUID& events) : owner_(owner), events_(events) {}

    // Part of its object: counted with it.
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        if (id != IID_IUnknown && id != IID_IConnectionPoint) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IConnectionPoint*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* id) override {
        if (!id) return E_POINTER;
        *id = events_;
        return S_OK;
    }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override {
        return owner_.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
    }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override {
        if (cookie) *cookie = 0;
        if (!sink || !cookie) return E_POINTER;
        ComPtr<IDispatch> dispatch;
        if (FAILED(sink->QueryInterface(events_, reinterpret_cast<void**>(&dispatch))) &&
            FAILED(sink->QueryInterface(IID_PPV_ARGS(&dispatch)))) {
            return CONNECT_E_CANNOTCONNECT;
        }
        return AtBorder(nullptr, [&] {
            *cookie = ++lastCookie_;
            sinks_.emplace(*cookie, std::move(dispatch));
            return S_OK;
        });
    }
    STDMETHODIMP Unadvise(DWORD cookie) override {
        // Taken out before it is let go: a sink may unadvise itself once more as it goes.
        return sinks_.extract(cookie).empty() ? CONNECT_E_NOCONNECTION : S_OK;
    }
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override {
        if (!connections) return E_POINTER;
        return AtBorder(nullptr, [&]() -> HRESULT {
            *connections = new ConnectionList({sinks_.begin(), sinks_.end()});
            return S_OK;
        });
    }

 protected:
    ~ConnectionPoint() = default;

    const GUID& id() const { return events_; }

    /// A sink that fails keeps neither the others nor the object from going on; one that another takes away
    /// meanwhile hears no more.
    void RaiseEvent(DISPID event, std::initializer_list<Value> arguments) {
        if (sinks_.empty()) return;
        const ComPtr<IDispatch> kept(&owner_);
        for (const auto& [cookie, sink] : std::map(sinks_)) {
            if (!sinks_.contains(cookie)) continue;
            std::vector<Variant> owned;
            std::vector<VARIANT> reversed;
            for (auto value = std::rbegin(arguments); value != std::rend(arguments); ++value) {
                reversed.push_back(*owned.emplace_back(ToVariant(*value)));
            }
            DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
            sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                         nullptr);
        }
    }

 private:
    IDispatch& owner_;
    GUID events_;
    DWORD lastCookie_ = 0;
    std::map<DWORD, ComPtr<IDispatch>> sinks_;
};

/// An object's only connection point is its source of events.
class OnePointSource : public EventSource, protected ConnectionPoint {
 public:
    HRESULT Find(REFIID id, IConnectionPoint** point) override {
        if (id != EventsId() && id != IID_IDispatch) return CONNECT_E_NOCONNECTION;
        AddRef();
        *point = this;
        return S_OK;
    }
    HRESULT EnumPoints(IEnumConnectionPoints** points) override {
        *points = new PointList({ComPtr<IConnectionPoint>(static_cast<IConnectionPoint*>(this))});
        return S_OK;
    }
    GUID EventsId() const override { return id(); }

 protected:
    using ConnectionPoint::ConnectionPoint;
};

class BarSource final : public OnePointSource, private BarEvents {
 public:
    BarSource(Bar& bar, IDispatch& owner) : OnePointSource(owner, ToGuid(kBarEventsId)), bar_(bar) {
        bar_.Connect(*this);
    }
    ~BarSource() override { bar_.Disconnect(*this); }

 private:
    void Active() override { RaiseEvent(1, {}); }
    Bar& bar_;
};

class PassSource final : public OnePointSource, private ClsPassEvents {
 public:
    PassSource(clsPass& pass, IDispatch& owner) : OnePointSource(owner, ToGuid(kPassEventsId)), pass_(pass) {
        pass_.Connect(*this);
    }
    ~PassSource() override { pass_.Disconnect(*this); }

 private:
    void SetBarMaxValue(std::int32_t value) override { RaiseEvent(1, {value}); }
    void SetBarMinValue(std::int32_t value) override { RaiseEvent(2, {value}); }
    void SetBarValue(std::int32_t value) override { RaiseEvent(3, {value}); }
    void SetMsg(std::string_view text) override { RaiseEvent(4, {text}); }
    void SetBarValueWithMax() override { RaiseEvent(5, {}); }
    void Unload() override { RaiseEvent(6, {}); }
    void Active() override { RaiseEvent(7, {}); }
    void HideProgBar() override { RaiseEvent(8, {}); }
    void ShowProgBar() override { RaiseEvent(9, {}); }
    clsPass& pass_;
};

}  // namespace

std::unique_ptr<EventSource> EventSource::Of(Object& object, IDispatch& owner) {
    if (auto* bar = dynamic_cast<Bar*>(&object)) return std::make_unique<BarSource>(*bar, owner);
    if (auto* pass = dynamic_cast<clsPass*>(&object)) return std::make_unique<PassSource>(*pass, owner);
    return nullptr;
}

}  // namespace qor::windows
