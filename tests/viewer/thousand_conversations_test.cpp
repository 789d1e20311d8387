// A thousand conversations, every report in every application type with every kind of failure around it: none
// may crash, raise an error to the host, or leave a window open.
#include <gtest/gtest.h>

#include <sstream>

#include "library.h"
#include "viewer/command_play.h"
#include "viewer/json.h"

namespace qor::viewer {
namespace {

/// What is wrong with the surroundings, as keys of a conversation; a `$data` member stands for the report's
/// own data component.
struct Trouble {
    const char* name;
    const char* around;
};

constexpr const char* kError = R"j({"error": {"number": 5, "source": "server", "description": "no"}})j";

constexpr Trouble kTroubles[] = {
    {"nothing is wrong", R"j({})j"},
    {"the rights check refuses", R"j({"components": {"QOREBCGLView.GLData": {"AccessCheck": $error}}})j"},
    {"the data cannot be read", R"j({"components": {"$data": {"$member": $error}}})j"},
    {"the data component is missing", R"j({"components": {"$data": null}})j"},
    {"the data is no record set", R"j({"components": {"$data": {"$member": {"value": 7}}}})j"},
    {"there is no data set", R"j({"components": {"$data": {"$member": {"nothing": true}}}})j"},
    {"the filter comes back as nothing",
     R"j({"components": {"$data": {"$member": {"recordset": {"fields": [], "rows": []}, "args": {"2": {"$nothing": true}}}}}})j"},
    {"the session is not there", R"j({"session": null})j"},
    {"the session is split wrongly", R"j({"session": {"PropsString": "UserID=1;UserID=2;"}})j"},
    {"the user's number is too large", R"j({"session": {"PropsString": "UserID=70000;"}})j"},
    {"the shell has made no bag", R"j({"bag": null})j"},
    {"rights are needed", R"j({"components": {"QOREBSBase.SecurityInfo": {"NeedAutorized": {"value": true}},
        "QOREBCGLView.GLData": {"GetAuthItemClassList": {"value": "1,8"}}}})j"},
    {"the rights cannot be asked", R"j({"components": {"QOREBSBase.SecurityInfo": null}})j"},
    {"statements fail", R"j({"components": {"QORMAppConnection.AppConnection": {"Execute": $error}}})j"},
    {"the profile fails", R"j({"components": {"QOREBSBase.SystemProfile": null,
        "QOREBCGLView.GLData.SystemProfile": {"GetSystemProfile": $error}}})j"},
    {"pickers fail",
     R"j({"components": {"QOREBCGLView.GLView": null, "QORGLNameListLib2.GLNameList": null}})j"},
    {"the user's own values fail", R"j({"components": {"QOREBCBASE.UserProfile": null}})j"},
};

/// What the user does in the dialog, for both sorts of frames.
struct Doing {
    const char* name;
    const char* plain;
    const char* scheme;
};

constexpr Doing kDoings[] = {
    {"confirms", R"j([{"click": "cmdOK"}])j", R"j([{"frame": "ok"}])j"},
    {"gives up", R"j([{"click": "cmdCacel"}])j", R"j([{"frame": "cancel"}])j"},
    {"types, looks up and confirms",
     R"j([{"type": "txtItem(0)", "characters": "0'1"}, {"key": "txtItem(0)", "code": 118},
        {"frame": "defaults"}, {"activate": true}, {"click": "cmdOK"}, {"click": "cmdOK"}])j",
     R"j([{"text": "txtItem(0)", "to": "01"}, {"click": "cmdItem(0)"}, {"frame": "panel", "to": "common"},
        {"frame": "defaults"}, {"activate": true}, {"frame": "ok"}])j"},
};

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

bool IsSchemeDialog(std::int32_t number) { return number <= 10506 || number == 10531 || number == 10532; }

/// The member that a run with the dialog's defaults calls.
std::string DataMember(const ReportDescription& report) {
    if (!report.dataMember.empty()) return std::string(report.dataMember);
    return "GetRpt" + std::to_string(report.number) + (report.number == 10506 ? "DataByCust" : "Data");
}

Json Conversation(const ReportDescription& report, int appType, const Trouble& trouble, const Doing& doing) {
    std::string around = Replaced(trouble.around, "$error", kError);
    around = Replaced(around, "$data", std::string(report.dataComponent));
    Json conversation = Json::parse(Replaced(around, "$member", DataMember(report)));
    conversation["today"] = "2020-09-15";
    conversation["process"] = 4711;
    if (!conversation.contains("bag")) conversation["bag"] = {{"AppType", appType}};

    const std::string number = std::to_string(report.number);
    const std::string form = (report.number == 10530 ? "frmFirter" : "frmFilter") + number;
    const Json actions = Json::parse(IsSchemeDialog(report.number) ? doing.scheme : doing.plain);
    const Json user = report.family == Family::NoDialog ? Json::array()
                                                        : Json::array({{{"dialog", form}, {"do", actions}}});
    conversation["steps"] = Json::array({
        {{"create", "QORArApRpt.Rpt" + number}, {"as", "r"}},
        {{"call", "r.GetReportData"}},
        {{"call", "r.ShowFilter"}, {"user", user}},
        {{"call", "r.GetReportData"}},
        {{"get", "r.Result"}},
        {{"call", "r.Refresh"}},
        {{"get", "r.Filter"}},
        {{"get", "r.Header"}},
        {{"get", "r.Title"}},
        {{"release", "r"}},
    });
    return conversation;
}

/// What a finished transcript shows to be wrong; "" where nothing is.
std::string Complaint(const std::string& transcript, std::size_t steps) {
    std::size_t answered = 0, shown = 0, unloaded = 0;
    std::istringstream lines(transcript);
    for (std::string line; std::getline(lines, line);) {
        const Json event = Json::parse(line);
        const std::string kind = event["event"];
        if (kind == "error" || kind == "left-open") return line;
        if (kind == "result") ++answered;
        if (kind == "progress" && event["action"] == "show") ++shown;
        if (kind == "progress" && event["action"] == "unload") ++unloaded;
    }
    if (shown != unloaded) return "a progress window was not closed";
    return answered + 1 == steps ? "" : "a step was not answered";  // a release answers nothing
}

TEST(ThousandConversations, NoneCrashesRaisesAnErrorOrLeavesAWindowOpen) {
    std::size_t played = 0;
    for (const ReportEntry& report : Reports()) {
        for (const int appType : {1, 2, 4}) {
            for (const Trouble& trouble : kTroubles) {
                // Each doing with its share of the troubles keeps the run short; all meet within a report.
                const Doing& doing =
                    kDoings[(played / 3 + static_cast<std::size_t>(appType)) % std::size(kDoings)];
                const Json conversation = Conversation(report.description, appType, trouble, doing);
                std::istringstream in(conversation.dump());
                std::ostringstream out, errors;
                ASSERT_EQ(PlayConversation("-", in, out, errors), 0) << errors.str();
                EXPECT_EQ(Complaint(out.str(), conversation["steps"].size()), "")
                    << report.description.number << ", application type " << appType << ", " << trouble.name
                    << ", the user " << doing.name;
                ++played;
            }
        }
    }
    EXPECT_GE(played, 1000u);
}

}  // namespace
}  // namespace qor::viewer
