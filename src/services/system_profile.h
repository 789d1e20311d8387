// The system profile: the few facts of the account set that reports ask the server for, and the server
// objects through which they are asked. The three held objects are made at first need and never released.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/record_set.h"
#include "services/session.h"

namespace qor {

/// The batch that asks the server for the start period's dates, as it is sent.
inline constexpr std::string_view kStartPeriodStatement =
    "Declare @Year int,@Period int \r\n"
    "SELECT @Year=CONVERT(INT,FValue) FROM t_SystemProfile WHERE FCategory='IC' AND FKey='StartYear'\n"
    "SELECT @Period = CONVERT(INT,FValue) FROM t_SystemProfile WHERE FCategory='IC' AND FKey='StartPeriod'\n"
    "SELECT CONVERT(DATETIME,FStartDate)as FStartDate,CONVERT(DATETIME,FEndDate)as FEndDate FROM "
    "t_PeriodDate \n"
    "WHERE FYear=@Year AND FPeriod=@Period \n";

class SystemProfile {
 public:
    SystemProfile(Platform& platform, Session& session) : platform_(platform), session_(session) {}

    Object& GetGLData();
    Object& GetGLView();
    Object& GetSystemProfileObject();

    /// Runs one statement on the server. An error is raised again under the connection's name.
    Ref<RecordSet> ExecuteSql(std::string_view statement);
    /// The first and last day of the account set's start period as "YYYY-MM-DD"; both stay as they came
    /// where the server has no such period.
    void GetStartPeriodDates(std::string& start, std::string& end);
    /// Year, month numbered like the current period, and "01", as "YYYY-MM-DD".
    std::string CurrentPeriodFirstDay();
    /// True where the profile's "UseShortNumber" is 1 or Null, and on any failure before it is read.
    bool UseLongNumber();
    bool DisplayDeleted();

 private:
    Value Ask(std::string_view category, std::string_view key, std::int16_t standIn);

    Platform& platform_;
    Session& session_;
    Ref<Object> glData_;
    Ref<Object> glView_;
    Ref<Object> systemProfile_;
};

}  // namespace qor
