#include "platform/user.h"

namespace qor {

namespace {

/// The code of the key that types an ASCII character on the usual keyboard; 0 for other characters.
std::int32_t KeyCodeOf(std::string_view character) {
    if (character.size() != 1) return 0;
    const char c = character[0];
    if (c >= 'a' && c <= 'z') return c - 'a' + 'A';
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ' || c == '\b' || c == '\t' || c == '\r')
        return c;
    switch (c) {
        case '\n':
            return '\r';
        case '\'':
        case '"':
            return 222;
        case '-':
        case '_':
            return 189;
        case '.':
            return 190;
        case ',':
            return 188;
        default:
            return 0;
    }
}

/// The character that a key types without a modifier; "" for a key that types none.
std::string_view CharacterOf(std::int32_t keyCode) {
    static constexpr std::string_view kLettersAndDigits = "0123456789abcdefghijklmnopqrstuvwxyz";
    if (keyCode >= '0' && keyCode <= '9')
        return kLettersAndDigits.substr(static_cast<std::size_t>(keyCode - '0'), 1);
    if (keyCode >= 'A' && keyCode <= 'Z') {
        return kLettersAndDigits.substr(static_cast<std::size_t>(keyCode - 'A') + 10, 1);
    }
    switch (keyCode) {
        case 8:
            return "\b";
        case 13:
            return "\r";
        case ' ':
            return " ";
        case 188:
            return ",";
        case 189:
            return "-";
        case 190:
            return ".";
        case 222:
            return "'";
        default:
            return "";
    }
}

std::size_t CharacterLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

}  // namespace

bool User::Focus(Control& control) { return control.CanHaveFocus() && form_.MoveFocus(control); }

bool User::Text(TextBox& box, std::string_view text) {
    if (!Focus(box)) return false;
    box.SetText(text);
    return true;
}

bool User::Type(Control& control, std::string_view characters) {
    if (!Focus(control)) return false;
    while (!characters.empty() && form_.IsVisible()) {
        std::string_view character = characters.substr(0, CharacterLength(characters));
        characters.remove_prefix(character.size());
        if (character == "\n") character = "\r";
        form_.Key(KeyCodeOf(character), character);
    }
    return true;
}

bool User::Key(Control& control, std::int32_t keyCode) {
    if (!Focus(control)) return false;
    form_.Key(keyCode, CharacterOf(keyCode));
    return true;
}

bool User::Check(CheckBox& box, std::int16_t value) {
    if (!Focus(box)) return false;
    box.SetValue(value);
    return true;
}

bool User::Option(OptionButton& button) {
    if (!Focus(button)) return false;
    button.SetValue(true);
    return true;
}

bool User::Select(DropDown& list, std::int32_t index) {
    if (!Focus(list)) return false;
    list.SetListIndex(index);
    return true;
}

bool User::Date(DatePicker& picker, qor::Date date) {
    if (!Focus(picker)) return false;
    picker.SetValue(date);
    return true;
}

bool User::Spin(qor::Spin& spin, std::int32_t value) {
    if (!Focus(spin)) return false;
    spin.SetValue(value);
    return true;
}

bool User::Cell(Grid& grid, std::int32_t row, std::int32_t column, std::string_view text) {
    if (!Focus(grid) || !grid.CanEdit(column, row)) return false;
    grid.Edit(column, row, text);
    return true;
}

bool User::Row(Grid& grid, std::int32_t row) {
    if (!Focus(grid) || row < 1 || row > grid.MaxRows()) return false;
    grid.SetActiveRow(row);
    return true;
}

bool User::Click(Button& button) {
    if (!Focus(button)) return false;
    button.Click();
    return true;
}

}  // namespace qor
