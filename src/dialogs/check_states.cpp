#include "dialogs/check_states.h"

#include "services/texts.h"

namespace qor {

void FillCheckStates(DropDown& list) {
    list.Clear();
    for (const std::string_view state : {"已审核", "未审核", "全部"}) {
        list.AddItem(ResText(state));
    }
    list.SetListIndex(0);
}

}  // namespace qor
