// What a frame's defaults set a control to, as a column of a dialog's field table.
#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "process/process.h"

namespace qor {

enum class FieldDefault : std::uint8_t {
    Leave,  // the control keeps what it holds
    PeriodStart,
    Today,
    Blank,
    FirstEntry,
    Zero,
    One,
    True,
    False
};

/// Raises what the server, the conversion or the control raises; the control then keeps its value.
void SetToDefault(Process& process, Control& control, FieldDefault standard);

}  // namespace qor
