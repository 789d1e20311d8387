#include "viewer/report_formats.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <ostream>

#include "platform/conversions.h"
#include "viewer/display_width.h"

namespace qor::viewer {

namespace {

constexpr std::string_view kGap = "  ";

/// Runs `row` on each row of the data set; answers their number.
template <class Row>
std::size_t ForEachRow(const ReportView& view, Row&& row) {
    std::size_t count = 0;
    if (view.rows->Bof() && view.rows->Eof()) return count;
    for (view.rows->MoveFirst(); !view.rows->Eof(); view.rows->Move(1)) {
        row();
        ++count;
    }
    return count;
}

bool IsNumber(const Value& value) {
    switch (value.type()) {
        case Value::Type::Int16:
        case Value::Type::Int32:
        case Value::Type::Single:
        case Value::Type::Double:
            return true;
        default:
            return false;
    }
}

std::string PlainText(const Value& value) { return value.IsNull() || value.IsObject() ? "" : ToText(value); }

std::string TableText(const ViewColumn& column, const Value& value) {
    if (column.type == "6" && value.type() == Value::Type::Double) return FormatAmount(value.number());
    return PlainText(value);
}

struct TableLayout {
    std::vector<std::size_t> widths;
    std::vector<Align> aligns;
};

/// Widens the last column of a group whose own caption is wider than its columns together.
void MakeRoomForGroups(const ReportView& view, TableLayout& layout) {
    for (std::size_t i = 0; i < view.columns.size();) {
        std::size_t end = i + 1;
        std::size_t width = layout.widths[i];
        while (!view.columns[i].group.empty() && end < view.columns.size() &&
               view.columns[end].group == view.columns[i].group) {
            width += kGap.size() + layout.widths[end++];
        }
        const std::size_t needed = DisplayWidth(view.columns[i].group);
        if (needed > width) layout.widths[end - 1] += needed - width;
        i = end;
    }
}

TableLayout LayOut(const ReportView& view, const std::vector<std::vector<std::string>>& cells) {
    TableLayout layout;
    for (std::size_t i = 0; i < view.columns.size(); ++i) {
        std::size_t width = DisplayWidth(view.columns[i].caption);
        for (const auto& row : cells) {
            width = std::max(width, DisplayWidth(row[i]));
        }
        layout.widths.push_back(width);
        layout.aligns.push_back(view.columns[i].IsNumber() ? Align::Right : Align::Left);
    }
    MakeRoomForGroups(view, layout);
    return layout;
}

void PrintLine(std::string line, std::ostream& out) {
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

void PrintHeader(const ReportView& view, const TableLayout& layout, std::ostream& out) {
    std::string first, second, rule;
    for (std::size_t i = 0; i < view.columns.size();) {
        const ViewColumn& column = view.columns[i];
        std::size_t width = layout.widths[i];
        second += Padded(column.group.empty() ? "" : column.caption, layout.widths[i], layout.aligns[i]);
        std::size_t end = i + 1;
        while (!column.group.empty() && end < view.columns.size() &&
               view.columns[end].group == column.group) {
            width += kGap.size() + layout.widths[end];
            second += kGap;
            second += Padded(view.columns[end].caption, layout.widths[end], layout.aligns[end]);
            ++end;
        }
        first += column.group.empty() ? Padded(column.caption, width, layout.aligns[i])
                                      : Padded(column.group, width, Align::Center);
        rule.append(width, '-');
        i = end;
        if (i < view.columns.size()) {
            first += kGap;
            second += kGap;
            rule += kGap;
        }
    }
    PrintLine(first, out);
    if (std::ranges::any_of(view.columns, [](const ViewColumn& c) { return !c.group.empty(); })) {
        PrintLine(second, out);
    }
    PrintLine(rule, out);
}

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c;
        if (c == '"') quoted += '"';
    }
    return quoted + '"';
}

nlohmann::ordered_json JsonCell(const Value& value) {
    switch (value.type()) {
        case Value::Type::Empty:
        case Value::Type::Null:
        case Value::Type::Object:
            return nullptr;
        case Value::Type::Boolean:
            return value.boolean();
        default:
            break;
    }
    if (IsNumber(value)) return ToDouble(value);
    return ToText(value);
}

}  // namespace

std::string FormatAmount(double amount) {
    const double cents = amount * 100;
    const double whole = std::nearbyint(cents);
    if (!(std::fabs(whole) < 9e15) || std::fabs(cents - whole) > 1e-4) return ToText(amount);
    const auto magnitude = static_cast<std::uint64_t>(std::fabs(whole));
    std::string text = std::to_string(magnitude / 100);
    for (auto place = static_cast<std::ptrdiff_t>(text.size()) - 3; place > 0; place -= 3) {
        text.insert(static_cast<std::size_t>(place), ",");
    }
    const std::string fraction = std::to_string(magnitude % 100);
    return (whole < 0 ? "-" : "") + text + "." + (fraction.size() == 1 ? "0" : "") + fraction;
}

std::size_t PrintTable(const ReportView& view, std::ostream& out) {
    std::vector<std::vector<std::string>> cells;
    ForEachRow(view, [&] {
        auto& row = cells.emplace_back();
        for (const ViewColumn& column : view.columns) {
            row.push_back(TableText(column, view.Cell(column)));
        }
    });
    const TableLayout layout = LayOut(view, cells);

    out << view.name << '\n';
    if (!view.dates.empty()) out << view.dates << '\n';
    for (const std::string& condition : view.conditions) {
        out << condition << (&condition == &view.conditions.back() ? "\n" : "  ");
    }
    out << '\n';
    PrintHeader(view, layout, out);
    for (const auto& row : cells) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += (i == 0 ? std::string_view() : kGap);
            line += Padded(row[i], layout.widths[i], layout.aligns[i]);
        }
        PrintLine(std::move(line), out);
    }
    return cells.size();
}

std::size_t PrintCsv(const ReportView& view, std::ostream& out) {
    const auto line = [&](auto&& textOf) {
        for (std::size_t i = 0; i < view.columns.size(); ++i) {
            out << (i == 0 ? "" : ",") << CsvField(textOf(view.columns[i]));
        }
        out << "\r\n";
    };
    line([](const ViewColumn& column) { return column.FullCaption(); });
    return ForEachRow(view,
                      [&] { line([&](const ViewColumn& column) { return PlainText(view.Cell(column)); }); });
}

std::size_t PrintJson(const ReportView& view, std::ostream& out) {
    nlohmann::ordered_json head = {
        {"name", view.name}, {"dates", view.dates}, {"conditions", view.conditions}};
    head["columns"] = nlohmann::ordered_json::array();
    for (const ViewColumn& column : view.columns) {
        head["columns"].push_back({{"field", column.field},
                                   {"caption", column.caption},
                                   {"group", column.group},
                                   {"type", column.type}});
    }
    std::string opening = head.dump();
    opening.pop_back();
    out << opening << ",\"rows\":[";
    std::string_view separator = "\n";
    const std::size_t count = ForEachRow(view, [&] {
        nlohmann::ordered_json row;
        for (const ViewColumn& column : view.columns) {
            row[column.field] = JsonCell(view.Cell(column));
        }
        out << separator << row.dump();
        separator = ",\n";
    });
    out << "\n]}\n";
    return count;
}

}  // namespace qor::viewer
