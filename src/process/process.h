// Process: everything that exists once per process, in one place. A report and a dialog get a Process; the
// component has one, and a test makes its own.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "services/data_rights.h"
#include "services/item_lookup.h"
#include "services/process_bag.h"
#include "services/session.h"
#include "services/system_profile.h"
#include "services/texts.h"
#include "services/user_profile.h"

namespace qor {

/// Something of an upper floor that lives as long as the process, such as the one date-range guard.
class Resident {
 public:
    virtual ~Resident() = default;
};

class Process {
 public:
    explicit Process(Platform& surroundings) : platform(surroundings) {}
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    Platform& platform;
    ProcessBag bag{platform};
    Session session{platform};
    Texts texts{platform, session};
    SystemProfile systemProfile{platform, session};
    DataRights dataRights{platform, bag, session};
    ItemPicker itemPicker{platform, systemProfile};
    UserProfile userProfile{platform};

    Ref<Vector> currentColumnList;             // the list that AddHeader fills; nothing between fillings
    std::unique_ptr<Resident> dateRangeGuard;  // made at the first attachment
    bool ageingLongNumber = false;             // of the ageing analysis made last; nobody reads it
};

}  // namespace qor
