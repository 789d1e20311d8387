// The events of Bar and clsPass as connection points: whoever advises a dispatch sink hears them with the
// ids of the event table, counted from 1.
#pragma once

#include <olectl.h>

#include <memory>

#include "windows/bridge.h"

namespace qor::windows {

class EventSource {
 public:
    virtual ~EventSource() = default;
    /// The connection point of an event interface; CONNECT_E_NOCONNECTION for any other.
    virtual HRESULT Find(REFIID id, IConnectionPoint** point) = 0;

    virtual HRESULT EnumPoints(IEnumConnectionPoints** points) = 0;
    virtual GUID EventsId() const = 0;

    /// The events of an object that raises any; null for all others. Lives as long as `owner`.
    static std::unique_ptr<EventSource> Of(Object& object, IDispatch& owner);
};

}  // namespace qor::windows
