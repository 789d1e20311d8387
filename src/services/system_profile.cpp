#include "services/system_profile.h"

#include "platform/conversions.h"
#include "services/texts.h"

namespace qor {

namespace {

constexpr std::string_view kConnection = "QORMAppConnection.AppConnection";
constexpr std::string_view kExecute = "Execute";

/// A field as "YYYY-MM-DD"; a text that is no date stays as it is.
std::string DayInField(const RecordSet& rows, std::string_view field) {
    std::string text = ToText(rows.Field(field));
    return IsDate(text) || IsNumeric(text) ? FormatIsoDate(ToDate(text)) : text;
}

Object& Held(Ref<Object>& object, Platform& platform, std::string_view name) {
    if (!object) object = platform.CreateComponent(name);
    return *object;
}

}  // namespace

Object& SystemProfile::GetGLData() { return Held(glData_, platform_, "QOREBCGLView.GLData"); }

Object& SystemProfile::GetGLView() { return Held(glView_, platform_, "QOREBCGLView.GLView"); }

Object& SystemProfile::GetSystemProfileObject() {
    if (!systemProfile_) systemProfile_ = Ref<Object>(&ObjectIn(GetGLData().Get("SystemProfile")));
    return *systemProfile_;
}

Ref<RecordSet> SystemProfile::ExecuteSql(std::string_view statement) {
    try {
        const Ref<Object> connection = platform_.CreateComponent(kConnection);
        Value statementVariable = statement;
        return As<RecordSet>(
            connection->Call(kExecute, session_.GetPropsString(), Argument::ByRef(statementVariable)));
    } catch (const Error& error) {
        throw Error(error.number(), std::string(kConnection) + ":" + std::string(kExecute),
                    error.description());
    }
}

void SystemProfile::GetStartPeriodDates(std::string& start, std::string& end) {
    try {
        const Ref<RecordSet> rows = ExecuteSql(kStartPeriodStatement);
        if (!rows || rows->Bof() || rows->Eof()) return;
        start = DayInField(*rows, "FStartDate");
        end = DayInField(*rows, "FEndDate");
    } catch (const Error& error) {
        if (error.number() == 0) return;
        throw Error(error.number(), error.source(), std::string(ResText(error.description())));
    }
}

Value SystemProfile::Ask(std::string_view category, std::string_view key, std::int16_t standIn) {
    return GetSystemProfileObject().Call("GetSystemProfile", category, key, standIn);
}

std::string SystemProfile::CurrentPeriodFirstDay() {
    const std::int32_t year = ToInt32(Ask("IC", "CurrentYear", 0));
    const std::int32_t period = ToInt32(Ask("IC", "CurrentPeriod", 0));
    return std::to_string(year) + (period < 10 ? "-0" : "-") + std::to_string(period) + "-01";
}

bool SystemProfile::UseLongNumber() {
    bool isLong = true;
    IgnoringErrors([&] {
        const Ref<Object> profile = platform_.CreateComponent("QOREBSBase.SystemProfile");
        const Value value = profile->Call("GetProfile", session_.GetPropsString(), "IC", "UseShortNumber");
        isLong = value.IsNull() || ToDouble(value) == 1;
    });
    return isLong;
}

bool SystemProfile::DisplayDeleted() { return ToBoolean(Ask("Base", "DisplayDeleted", 1)); }

}  // namespace qor
