#include "viewer/pages/report_tables.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "viewer/command_play.h"
#include "viewer/json.h"

namespace qor::viewer {

namespace {

constexpr std::string_view kToday = "2020-09-15", kPeriodStart = "2020-09-01";
constexpr int kAppTypes[] = {1, 2, 4};

/// Another state of the filter in which a report has other columns.
struct Variant {
    std::int32_t report;
    std::string_view title;
    std::string_view puts;  // filter keys laid over the dialog's, as JSON
};

constexpr Variant kVariants[] = {
    {10501, "with a settlement account", R"({"AcctNumber": "1001"})"},
    {10503, "by category, grouped by department",
     R"({"MultiLevel": true, "MultiLevelBegin": 1, "MultiLevelEnd": 2, "GroupBy": "FDeptNumber"})"},
    {10505, "by category, grouped by department",
     R"({"MultiLevel": true, "MultiLevelBegin": 1, "MultiLevelEnd": 2, "GroupBy": "FDeptNumber"})"},
    {10531, "by category, grouped by employee",
     R"({"MultiLevel": true, "MultiLevelBegin": 1, "MultiLevelEnd": 2, "GroupBy": "FEmpNumber"})"},
    {10532, "by category, grouped by employee",
     R"({"MultiLevel": true, "MultiLevelBegin": 1, "MultiLevelEnd": 2, "GroupBy": "FEmpNumber"})"},
    {10506, "of a supplier, with the goods lines", R"({"ByItem": 1, "ShowDetail": 1})"},
    {10521, "levels 1 to 2, by customer", R"({"ELevel": "2", "chkGrouyByCust": "1"})"},
    {10523, "levels 1 to 2, by supplier", R"({"ELevel": "2", "chkGrouyBySupply": "1"})"},
    {10527, "without the goods lines", R"({"ChkShowDetail": "0"})"},
};

Json Conversation(std::int32_t number, int appType, const Json& puts) {
    const std::string name = std::to_string(number);
    Json user = Json::array();
    for (const char* form : {"frmFilter", "frmFirter"}) {
        user.push_back({{"dialog", form + name}, {"do", Json::array({{{"click", "cmdOK"}}})}});
    }
    const bool isScheme = number <= 10506 || number == 10531 || number == 10532;
    if (isScheme)
        user = Json::array({{{"dialog", "frmFilter" + name}, {"do", Json::array({{{"frame", "ok"}}})}}});
    if (number == 10507 || number == 10508) user = Json::array();

    Json steps = Json::array();
    steps.push_back({{"create", "QORArApRpt.Rpt" + name}, {"as", "r"}});
    steps.push_back({{"call", "r.ShowFilter"}, {"user", user}});
    steps.push_back({{"get", "r.Filter"}});
    for (const auto& [key, value] : puts.items()) {
        steps.push_back({{"put", "r.Filter"}, {"key", key}, {"to", value}});
    }
    steps.push_back({{"call", "r.Refresh"}});
    steps.push_back({{"get", "r.Header"}});
    // The matching balance opens only where a customer is linked to a supplier.
    const Json linked = {{"recordset", {{"fields", {"FItemID"}}, {"rows", Json::array({Json::array({1})})}}}};
    return {{"today", kToday},
            {"process", 1},
            {"bag", {{"AppType", appType}}},
            {"userProfile", {{"QOR/ARAP", {{"ZLFXB", "1"}}}}},
            {"components", {{"QORMArApRpt.Data", {{"GetData", linked}}}}},
            {"steps", steps}};
}

/// What the steps of a conversation answered, by their index.
std::vector<Json> Play(const Json& conversation) {
    std::istringstream in(conversation.dump());
    std::ostringstream out, errors;
    if (PlayConversation("-", in, out, errors) != 0) throw std::runtime_error(errors.str());
    std::vector<Json> results(conversation["steps"].size());
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);) {
        Json event = Json::parse(line);
        if (event["event"] == "result") results[event["index"].get<std::size_t>()] = event["value"];
    }
    return results;
}

std::string Cell(std::string text) {
    for (std::size_t bar = text.find('|'); bar != std::string::npos; bar = text.find('|', bar + 2)) {
        text.insert(bar, "\\");
    }
    return text;
}

std::string Quoted(const std::string& text) { return "\"" + Cell(text) + "\""; }

struct TypeAndDefault {
    std::string type, standard;
};

std::string DateMeaning(const std::string& date, const std::string& otherwise) {
    if (date == kToday) return "today";
    if (date == kPeriodStart) return "first day of the current period";
    return otherwise;
}

TypeAndDefault Describe(const Json& value) {
    if (value.is_string()) return {"text", DateMeaning(value, Quoted(value))};
    if (value.is_boolean()) return {"boolean", value.get<bool>() ? "true" : "false"};
    if (value.is_number_integer()) return {"integer, 32 bits", value.dump()};
    if (value.contains("$int16")) return {"integer, 16 bits", value["$int16"].dump()};
    if (value.contains("$date")) return {"date", DateMeaning(value["$date"], value["$date"])};
    if (value.contains("$vector")) return {"list of dictionaries", "the groups of the grid"};
    return {"value", Cell(value.dump())};
}

void WriteKeys(const Json& filter, std::ostream& out) {
    out << "| Key | Type | Default |\n|---|---|---|\n";
    for (const auto& [key, value] : filter["$dictionary"].items()) {
        const TypeAndDefault described = Describe(value);
        out << "| `" << key << "` | " << described.type << " | "
            << (key == "UserID" ? "the user's number" : described.standard) << " |\n";
    }
}

/// The column over a field; null where this application type's table has none.
const Json* FindColumn(const Json& header, const Json& field) {
    for (const Json& column : header) {
        if (column["$dictionary"]["FColName"] == field) return &column["$dictionary"];
    }
    return nullptr;
}

std::string Visibility(const Json* found) {
    if (!found) return "absent";
    const Json& column = *found;
    if (column["FForceHide"].get<bool>()) return "never";
    return column["FVisible"]["$int16"] == 1 ? "yes" : "no";
}

void WriteColumns(std::int32_t number, const Json& puts, std::ostream& out) {
    std::vector<Json> headers;
    for (const int appType : kAppTypes) {
        headers.push_back(Play(Conversation(number, appType, puts)).back()["$vector"]);
    }
    out << "| Caption | Second line | Type | Field | Shown in application type 1 | 2 | 4 |\n"
           "|---|---|---|---|---|---|---|\n";
    const Json& longest =
        *std::ranges::max_element(headers, {}, [](const Json& header) { return header.size(); });
    for (const Json& entry : longest) {
        const Json& column = entry["$dictionary"];
        out << "| " << Quoted(column["FColCaption"]) << " | " << Quoted(column["FHeadSecond"]) << " | "
            << column["FColType"].get<std::string>() << " | `" << column["FColName"].get<std::string>()
            << "` |";
        for (const Json& header : headers) {
            out << ' ' << Visibility(FindColumn(header, column["FColName"])) << " |";
        }
        out << '\n';
    }
}

}  // namespace

std::string ReportTables(std::int32_t number) {
    std::ostringstream out;
    const Json filter = Play(Conversation(number, 2, Json::object()))[2];
    out << "**Filter keys**, as the dialog leaves them in application type 2:\n\n";
    WriteKeys(filter, out);
    out << "\n**Columns**, with the dialog's defaults:\n\n";
    WriteColumns(number, Json::object(), out);
    for (const Variant& variant : kVariants) {
        if (variant.report != number) continue;
        out << "\n**Columns**, " << variant.title << ":\n\n";
        WriteColumns(number, Json::parse(variant.puts), out);
    }
    return out.str();
}

std::string WithCurrentTables(std::string_view page) {
    constexpr std::string_view kBegin = "<!-- tables of ", kClose = " -->\n";
    std::string current;
    for (std::size_t mark = page.find(kBegin); mark != std::string_view::npos; mark = page.find(kBegin)) {
        const std::size_t close = page.find(kClose, mark);
        const std::string number(page.substr(mark + kBegin.size(), close - mark - kBegin.size()));
        const std::string endMark = "<!-- end of " + number + " -->";
        const std::size_t end = page.find(endMark, mark);
        if (close == std::string_view::npos || end == std::string_view::npos) {
            throw std::runtime_error("the mark \"" + std::string(kBegin) + number + "\" has no \"" + endMark +
                                     "\"");
        }
        current += page.substr(0, close + kClose.size());
        current += "\n" + ReportTables(Json::parse(number).get<std::int32_t>()) + "\n";
        current += endMark;
        page.remove_prefix(end + endMark.size());
    }
    return current.append(page);
}

}  // namespace qor::viewer
