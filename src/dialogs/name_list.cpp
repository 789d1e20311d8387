#include "dialogs/name_list.h"

#include "platform/form.h"

namespace qor {

namespace {

/// The object that contains a box, as the list is handed it.
class ContainerObject final : public TableObject {
 public:
    explicit ContainerObject(const Control& box)
        : name_(box.container() ? box.container()->name() : box.form().ClassName()),
          className_(box.container() ? "Frame" : box.form().ClassName()) {}

    std::string_view ClassName() const override { return className_; }
    std::span<const Member> Members() const override {
        static constexpr Member kMembers[] = {
            {.name = "Name",
             .kind = InvokeKind::Get,
             .invoke = [](Object& self, Arguments) -> Value {
                 return static_cast<ContainerObject&>(self).name_;
             },
             .result = ParameterType::Text},
        };
        return kMembers;
    }

 private:
    std::string name_;
    std::string className_;
};

}  // namespace

void NameList::Attach(TextBox& box, std::int32_t itemClass) {
    IgnoringErrors([&] {
        if (list_) {
            list_->Call("Detach");
        } else {
            list_ = platform_.CreateComponent("QORGLNameListLib2.GLNameList");
        }
        list_->Put("LookUpClassID", itemClass);
        list_->Put("GetDataType", std::int16_t{1});
        list_->Put("NoKeyDownKeyUp", false);
        list_->Put("HotTrace", true);
        list_->Call("AttachByHWnd", platform_.windows().WindowHandle(box), MakeRef<ContainerObject>(box),
                    std::int16_t{1});
    });
}

void NameList::Detach() {
    if (list_) {
        IgnoringErrors([this] { list_->Call("Detach"); });
    }
}

}  // namespace qor
