// clsPass: the go-between of the progress trio. It has no state; it turns each call into the event of the
// same name, so that Bar and the window can talk to each other without holding each other's type.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/object.h"

namespace qor {

/// Hears the events of a clsPass, in the order of its event table.
class ClsPassEvents {
 public:
    virtual void SetBarMaxValue(std::int32_t value) { (void)value; }
    virtual void SetBarMinValue(std::int32_t value) { (void)value; }
    virtual void SetBarValue(std::int32_t value) { (void)value; }
    virtual void SetMsg(std::string_view text) { (void)text; }
    virtual void SetBarValueWithMax() {}
    virtual void Unload() {}
    virtual void Active() {}
    virtual void HideProgBar() {}
    virtual void ShowProgBar() {}

 protected:
    ~ClsPassEvents() = default;
};

class clsPass final : public TableObject {
 public:
    std::string_view ClassName() const override { return "clsPass"; }
    std::span<const Member> Members() const override;

    void HideProgBar();
    void SetActive();
    void SetBarMaxValue(std::int32_t value);
    void SetBarMinValue(std::int32_t value);
    void SetBarValue(std::int32_t value);
    void SetBarValueWithMax();
    void SetMsg(std::string_view text);
    void ShowProgBar();
    void Unload();

    /// Borrows `sink` until it is disconnected. Sinks hear in the order of connecting.
    void Connect(ClsPassEvents& sink) { sinks_.push_back(&sink); }
    void Disconnect(ClsPassEvents& sink) { std::erase(sinks_, &sink); }

 private:
    template <class Event>
    void Raise(Event&& event);

    std::vector<ClsPassEvents*> sinks_;
};

}  // namespace qor
