// AgeGroups: the chain of day ranges that the user draws up in the ageing dialog's grid. While he types it
// keeps labels and first days in step with the limits; at OK it checks the whole chain and turns it into the
// list that the report makes its columns of.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/grid.h"
#include "platform/platform.h"

namespace qor {

class AgeGroups {
 public:
    static constexpr std::int32_t kLabel = 1;     // column of the group's label, such as "31至60天"
    static constexpr std::int32_t kLimit = 2;     // its last day, or "......" for the open group
    static constexpr std::int32_t kFirstDay = 3;  // its first day; hidden, written by code only
    static constexpr std::int32_t kColumns = 3;
    static constexpr std::int32_t kStoredRows = 5;

    /// Fills the grid with the groups that a new dialog shows. The grid is borrowed; `showGridMessage` tells
    /// the user what he may not do.
    AgeGroups(Grid& grid, std::function<void(std::string_view)> showGridMessage);

    /// The user has changed a cell. A text that is refused stays in its cell, if nothing else is said.
    void Edited(std::int32_t column, std::int32_t row);
    void LockLabels();
    /// Limits can be typed down to the first free row, so that no hole arises in the chain.
    void RefreshGridLocks();

    void AddRow();
    /// Deletes the current row. The rows left are not labelled anew.
    void DeleteRow();

    /// Puts the groups into `result` under `Vect` and answers true; or tells what is wrong, puts `OK` False,
    /// and answers false.
    bool CheckGroups(Platform& platform, Dictionary& result);

    /// The rows with a label, as a scheme keeps them: "1至30天,30,0|31天以上,......,31".
    std::string GridToText() const;
    /// "" leaves the grid alone. Raises 9 for a row of fewer than three items, which ends the filling there.
    void TextToGrid(std::string_view text);

 private:
    struct Chain;

    bool LimitEdited(std::int32_t row);
    bool DaysTyped(std::int32_t row, double days);
    bool OpenEndTyped(std::int32_t row);
    void WriteGroup(std::int32_t row, double firstDay, double lastDay);
    void WriteOpenGroup(std::int32_t row, double firstDay);
    bool TakeRow(Platform& platform, std::int32_t row, Chain& chain);

    double DaysOf(std::int32_t row) const;
    bool Refuse(std::string_view message);

    Grid& grid_;
    std::function<void(std::string_view)> showGridMessage_;
};

}  // namespace qor
