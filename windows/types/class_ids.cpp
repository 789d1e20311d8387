#include "windows/types/class_ids.h"

#include <algorithm>
#include <vector>

#include "library.h"

namespace qor::windows {

namespace {

void AppendHex(std::string& text, std::uint64_t number, int digits) {
    for (int place = digits - 1; place >= 0; --place) {
        text += "0123456789ABCDEF"[(number >> (4 * place)) & 0xF];
    }
}

}  // namespace

std::span<const PublicClass> PublicClasses() {
    static const std::vector<PublicClass> classes = [] {
        std::vector<PublicClass> all;
        for (const ReportEntry& report : Reports()) {
            const auto number = static_cast<std::uint32_t>(report.description.number);
            all.push_back({"Rpt" + std::to_string(number), number});
        }
        all.push_back({"Bar", kBarNumber});
        all.push_back({"clsPass", kPassNumber});
        return all;
    }();
    return classes;
}

const PublicClass* PublicClassOf(const Object& object) {
    const auto classes = PublicClasses();
    const auto found = std::ranges::find_if(
        classes, [&](const PublicClass& publicClass) { return publicClass.name == object.ClassName(); });
    return found == classes.end() ? nullptr : &*found;
}

std::string IdText(const ComponentId& id) {
    std::string text;
    AppendHex(text, id.data1, 8);
    for (const std::uint16_t part : {id.data2, id.data3}) {
        text += '-';
        AppendHex(text, part, 4);
    }
    text += '-';
    for (std::size_t i = 0; i < id.data4.size(); ++i) {
        if (i == 2) text += '-';
        AppendHex(text, id.data4[i], 2);
    }
    return text;
}

}  // namespace qor::windows
