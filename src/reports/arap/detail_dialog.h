// frmFilter10502 and frmFilter10504: the filter of the receivable and the payable detail.
#pragma once

#include <memory>
#include <vector>

#include "dialogs/scheme_dialog.h"
#include "reports/arap/detail_kind.h"

namespace qor {

/// Frame3: the conditions on the user-defined fields of a bill's head. What they mean is the server's.
class UserFormulas {
 public:
    static constexpr std::int32_t kHeight = layout::GroupHeight(6);

    UserFormulas(Form& form, Control& container, Bounds place);

 private:
    Frame Frame3;
    std::vector<std::unique_ptr<Control>> rows_;  // Label5, txt_UserFormula1 and chk_Include, by index
};

class DetailDialog final : public SchemeDialog {
 public:
    DetailDialog(Process& process, const DetailKind& kind);

 private:
    std::unique_ptr<UserFormulas> userFormulas_;
};

}  // namespace qor
