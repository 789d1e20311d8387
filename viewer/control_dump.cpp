#include "viewer/control_dump.h"

#include <cmath>

#include "platform/form.h"
#include "platform/grid.h"
#include "viewer/json_values.h"

namespace qor::viewer {

std::string_view KindName(Control::Kind kind) {
    switch (kind) {
        case Control::Kind::Label:
            return "label";
        case Control::Kind::Text:
            return "text";
        case Control::Kind::Check:
            return "check";
        case Control::Kind::Option:
            return "option";
        case Control::Kind::List:
            return "list";
        case Control::Kind::Date:
            return "date";
        case Control::Kind::Button:
            return "button";
        case Control::Kind::Spin:
            return "spin";
        case Control::Kind::Frame:
            return "frame";
        case Control::Kind::Grid:
            return "grid";
        case Control::Kind::Progress:
            return "progress";
        case Control::Kind::Animation:
            return "animation";
        case Control::Kind::Inert:
            return "inert";
    }
    return "";
}

namespace {

/// A progress bar counts in whole numbers.
Json Position(float value) {
    if (value == std::trunc(value)) return static_cast<std::int64_t>(value);
    return value;
}

/// Adds what a control of its kind holds.
class ContentDump {
 public:
    ContentDump(Json& json, const ObjectNames& names) : json_(json), names_(names) {}

    void Add(const Control& control) {
        if (const auto* captioned = dynamic_cast<const CaptionedControl*>(&control)) {
            json_["caption"] = captioned->caption();
        }
        switch (control.kind()) {
            case Control::Kind::Text:
                json_["text"] = static_cast<const TextBox&>(control).text();
                break;
            case Control::Kind::Check:
                json_["value"] = static_cast<const CheckBox&>(control).value();
                break;
            case Control::Kind::Option:
                json_["value"] = static_cast<const OptionButton&>(control).value();
                break;
            case Control::Kind::List:
                json_["items"] = static_cast<const DropDown&>(control).items();
                json_["index"] = static_cast<const DropDown&>(control).listIndex();
                break;
            case Control::Kind::Date:
                AddDate(static_cast<const DatePicker&>(control));
                break;
            case Control::Kind::Spin:
                AddRange(static_cast<const Spin&>(control), [](std::int32_t n) { return Json(n); });
                break;
            case Control::Kind::Progress:
                AddRange(static_cast<const ProgressBar&>(control), Position);
                break;
            case Control::Kind::Grid:
                AddGrid(static_cast<const Grid&>(control));
                break;
            default:
                break;
        }
    }

 private:
    void AddGrid(const Grid& grid) {
        Json cells = Json::array(), locked = Json::array();
        for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
            Json texts = Json::array(), locks = Json::array();
            for (std::int32_t column = 1; column <= grid.MaxCols(); ++column) {
                texts.push_back(grid.GetText(column, row));
                locks.push_back(grid.IsLocked(column, row));
            }
            cells.push_back(std::move(texts));
            locked.push_back(std::move(locks));
        }
        json_["rows"] = grid.MaxRows();
        json_["columns"] = grid.MaxCols();
        json_["cells"] = std::move(cells);
        json_["locked"] = std::move(locked);
    }

    void AddDate(const DatePicker& picker) {
        json_["value"] = WriteValue(picker.value(), names_);
        json_["min"] = WriteValue(picker.minDate(), names_);
        json_["max"] = WriteValue(picker.maxDate(), names_);
    }

    template <class T, class Write>
    void AddRange(const T& control, Write&& write) {
        json_["value"] = write(control.value());
        json_["min"] = write(control.min());
        json_["max"] = write(control.max());
    }

    Json& json_;
    const ObjectNames& names_;
};

Json DumpControl(const Control& control, const ObjectNames& names) {
    const Bounds& bounds = control.bounds();
    Json json = {
        {"kind", KindName(control.kind())},
        {"visible", control.visible()},
        {"enabled", control.enabled()},
        {"left", bounds.left},
        {"top", bounds.top},
        {"width", bounds.width},
        {"height", bounds.height},
    };
    ContentDump(json, names).Add(control);
    return json;
}

}  // namespace

Json DumpForm(const Form& form, const ObjectNames& names) {
    Json controls = Json::object();
    for (const Control* control : form.controls()) {
        controls[control->name()] = DumpControl(*control, names);
    }
    return {
        {"dialog", form.ClassName()},
        {"caption", form.caption()},
        {"focus", form.focus() ? Json(form.focus()->name()) : Json()},
        {"controls", std::move(controls)},
    };
}

}  // namespace qor::viewer
