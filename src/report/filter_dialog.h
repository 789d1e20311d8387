// FilterDialog: what a report needs of its dialog, whichever frame the dialog is built on.
#pragma once

#include <cstdint>

#include "platform/dictionary.h"
#include "platform/form.h"

namespace qor {

class FilterDialog : public Form {
 public:
    using Form::Form;

    std::int32_t RptID() const { return rptID_; }
    void SetRptID(std::int32_t rptID) { rptID_ = rptID; }

    /// The outcome: its `OK` is false after a cancel. Nothing where the dialog has none.
    const Ref<Dictionary>& Result() const { return result_; }
    /// The filter that the dialog begins with, where its report hands one over; may be nothing.
    void SetResult(Ref<Dictionary> result) { result_ = std::move(result); }

    /// -1 shows the dialog, -2 confirms at once what was handed over. Only scheme dialogs read it.
    void SetAutoFilter(std::int32_t autoFilter) { autoFilter_ = autoFilter; }

 protected:
    const std::int32_t& autoFilter() const { return autoFilter_; }

 private:
    std::int32_t rptID_ = 0;
    std::int32_t autoFilter_ = -1;
    Ref<Dictionary> result_;
};

}  // namespace qor
