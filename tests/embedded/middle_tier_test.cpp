#include "embedded/middle_tier.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "embedded/lookup_components.h"
#include "embedded/sample_fixture.h"
#include "platform/conversions.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::AskReport;
using test::Filter;

const Value kProcess = std::int32_t{4711};

TEST(MiddleTier, EveryComponentComesByNameWithoutRegardToCase) {
    MiddleTier tier(test::SampleFile());
    for (const char* name :
         {"QORPropsMgr.ShareProps", "QORMtsCacheService.CacheFacade", "QOREBSBase.SystemProfile",
          "QOREBSBase.SecurityInfo", "QORMAppConnection.AppConnection", "QOREBCGLView.GLData",
          "QOREBCGLView.GLView", "QOREBCBASE.UserProfile", "ZEP_APFC.FrameData",
          "QORGLNameListLib2.GLNameList", "QORMArApRpt.Data", "QORMArApRpt.Data10525",
          "QORMArApRpt.Data10526", "QORMArApRpt.Data10530"}) {
        const Ref<Object> component = tier.Create(name);
        ASSERT_TRUE(component) << name;
        EXPECT_EQ(component->ClassName(), name);
    }
    EXPECT_TRUE(tier.Create("qormararpt.data") == nullptr);
    EXPECT_TRUE(tier.Create("qormaraprpt.DATA"));
    EXPECT_FALSE(tier.Create("QORArApRpt.Rpt10522"));
    EXPECT_FALSE(tier.Create(""));
}

TEST(MiddleTier, AnUnknownUserIsNotLoggedIn) {
    const auto error = test::ErrorOf([] { MiddleTier tier(test::SampleFile(), 999); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), "账套中没有用户 999");
}

TEST(MiddleTier, AComponentMayOutliveIt) {
    Ref<Object> profile;
    {
        MiddleTier tier(test::SampleFile());
        profile = tier.Create("QOREBSBase.SystemProfile");
    }
    EXPECT_EQ(profile->Call("GetProfile", "", "IC", "StartYear"), Value(std::int32_t{2022}));
}

TEST(SessionServices, AnswerTheLogin) {
    MiddleTier tier(test::SampleFile(), 16);
    const Ref<Object> props = tier.Create("QORPropsMgr.ShareProps");
    EXPECT_EQ(props->Call("GetProperty", kProcess, "PropsString"),
              Value("UserID=16;UserName={王芳};AcctName={示例商贸有限公司};"));
    EXPECT_EQ(props->Call("GetProperty", kProcess, "UserID"), Value(std::int32_t{16}));
    EXPECT_EQ(props->Call("GetProperty", kProcess, "UserName"), Value("王芳"));
    EXPECT_EQ(props->Call("GetProperty", kProcess, "AcctName"), Value("示例商贸有限公司"));
    EXPECT_TRUE(props->Call("GetProperty", kProcess, "UUID").IsEmpty());

    const Ref<Object> cache = tier.Create("QORMtsCacheService.CacheFacade");
    EXPECT_EQ(cache->Call("GetItem", kProcess, "IsOuterLogin"), Value(std::int32_t{0}));
    EXPECT_TRUE(cache->Call("GetItem", kProcess, "UserID").IsEmpty());
}

TEST(SystemProfileComponent, AnswersNumbersTextsAndNull) {
    MiddleTier tier(test::SampleFile());
    const Ref<Object> profile = tier.Create("QOREBSBase.SystemProfile");
    EXPECT_EQ(profile->Call("GetProfile", "", "IC", "UseShortNumber"), Value(std::int32_t{1}));
    EXPECT_EQ(profile->Call("GetProfile", "", "Base", "CompanyName"), Value("示例商贸有限公司"));
    EXPECT_EQ(profile->Call("GetProfile", "", "Base", "Nowhere"), Value::Null());
    EXPECT_EQ(profile->Call("GetProfile", "", "' OR 1=1 --", "CompanyName"), Value::Null());
}

TEST(GLData, AnswersTheProfileWithADefault) {
    MiddleTier tier(test::SampleFile());
    const Value profile = tier.Create("QOREBCGLView.GLData")->Get("SystemProfile");
    EXPECT_EQ(ObjectIn(profile).Call("GetSystemProfile", "IC", "CurrentYear", std::int16_t{0}),
              Value(std::int32_t{2025}));
    EXPECT_EQ(ObjectIn(profile).Call("GetSystemProfile", "IC", "Nowhere", std::int16_t{7}),
              Value(std::int16_t{7}));
}

TEST(GLData, ChecksAccessAndNamesTheLimitedClasses) {
    MiddleTier tier(test::SampleFile(), 16);
    const Ref<Object> data = tier.Create("QOREBCGLView.GLData");
    EXPECT_EQ(data->Call("AccessCheck", std::int16_t{1006}, std::int16_t{2}, std::int16_t{4}), Value(true));
    EXPECT_EQ(data->Call("GetAuthItemClassList"), Value("1,8"));
    EXPECT_TRUE(data->Call("Refresh").IsEmpty());
}

TEST(SecurityInfo, OnlyAUserWithoutAllRightsIsSubjectToThem) {
    for (const auto& [user, subject] : {std::pair{1, false}, {16, true}, {58, false}}) {
        MiddleTier tier(test::SampleFile(), user);
        EXPECT_EQ(tier.Create("QOREBSBase.SecurityInfo")->Call("NeedAutorized", ""), Value(subject)) << user;
    }
}

TEST(AppConnection, ExecutesAStatement) {
    MiddleTier tier(test::SampleFile());
    const Ref<Object> connection = tier.Create("QORMAppConnection.AppConnection");
    Value statement = "select FUserID from t_User order by FUserID";
    const auto rows = As<RecordSet>(connection->Call("Execute", "", Argument::ByRef(statement)));
    EXPECT_EQ(rows->Field("FUserID"), Value(std::int32_t{1}));
    EXPECT_EQ(test::RaisedBy([&] { connection->Call("Execute", "", "DROP TABLE t_User"); }),
              static_cast<Automation>(kAccountSetError));
}

TEST(FrameData, TakesTheUsageRecords) {
    MiddleTier tier(test::SampleFile());
    const Ref<Object> frame = tier.Create("ZEP_APFC.FrameData");
    frame->Put("PropString", "UserID=1;");
    frame->Call("WriteMGLog", "C001C032", "RPT1050601");
    EXPECT_EQ(frame->Get("PropString"), Value("UserID=1;"));
    ASSERT_EQ(tier.usage().size(), 1u);
    EXPECT_EQ(tier.usage()[0].module, "C001C032");
    EXPECT_EQ(tier.usage()[0].code, "RPT1050601");
}

TEST(NameList, TakesItsSettingsAndShowsNothing) {
    MiddleTier tier(test::SampleFile());
    const Ref<Object> list = tier.Create("QORGLNameListLib2.GLNameList");
    list->Put("LookUpClassID", std::int32_t{1121});
    list->Put("GetDataType", std::int32_t{1});
    list->Put("NoKeyDownKeyUp", false);
    list->Put("HotTrace", true);
    list->Call("AttachByHWnd", std::int32_t{0}, list, std::int16_t{1});
    list->Call("Detach");
    EXPECT_EQ(list->Get("LookUpClassID"), Value(std::int32_t{1121}));
    EXPECT_EQ(list->Get("HotTrace"), Value(true));
}

/// What a lookup's choice answers to `member`; nothing where it was cancelled.
Value Choice(const Value& lookup, std::string_view member) {
    const Value chosen = ObjectIn(lookup).Get("ReturnObject");
    return chosen.IsNothing() ? Value::Nothing() : ObjectIn(chosen).Get(member);
}

Value LookUp(MiddleTier& tier, std::int32_t itemClass, std::string_view search,
             std::string_view condition = "") {
    Value classVariable = itemClass, text = search, where = condition,
          settings = Filter({{"Search", search}});
    return tier.Create("QOREBCGLView.GLView")
        ->Call("ItemLookUp", Argument::ByRef(classVariable), Argument::ByRef(text), Argument::ByRef(where),
               Argument::ByRef(settings));
}

TEST(Lookup, TakesTheItemOfTheCodeThenTheFirstThatBeginsSo) {
    MiddleTier tier(test::SampleFile());
    EXPECT_EQ(Choice(LookUp(tier, 1121, "01.004"), "Name"), Value("咨询服务收入"));
    EXPECT_EQ(Choice(LookUp(tier, 1121, "01.004."), "Number"), Value("01.004.01"));
    EXPECT_EQ(Choice(LookUp(tier, 1122, "03.00"), "Name"), Value("广告宣传费"));
    EXPECT_EQ(Choice(LookUp(tier, 1121, " 租赁 "), "Number"), Value("02"));
    EXPECT_EQ(Choice(LookUp(tier, 1121, "01.004"), "Detail"), Value(false));
    EXPECT_EQ(Choice(LookUp(tier, 1121, "01.004.01"), "Detail"), Value(true));
}

TEST(Lookup, WhatIsNotFoundOrNotTypedIsACancelledPick) {
    MiddleTier tier(test::SampleFile());
    for (const char* search : {"", "  ", "99", "%", "' OR 1=1 --", "_1"}) {
        EXPECT_TRUE(Choice(LookUp(tier, 1121, search), "Number").IsNothing()) << search;
    }
    EXPECT_TRUE(Choice(LookUp(tier, 4711, "01"), "Number").IsNothing());
}

TEST(Lookup, DisabledItemsAreLeftOutOnCondition) {
    MiddleTier tier(test::SampleFile());
    EXPECT_EQ(Choice(LookUp(tier, 1121, "05.001"), "Name"), Value("代理手续费"));
    EXPECT_EQ(Choice(LookUp(tier, 1121, "05.001", " 1=1 "), "Name"), Value("代理手续费"));
    EXPECT_TRUE(Choice(LookUp(tier, 1121, "05.001", " t1.FDeleted=0 "), "Name").IsNothing());
    EXPECT_EQ(Choice(LookUp(tier, 1121, "01.001", " t1.FDeleted=0 "), "Name"), Value("安装服务收入"));
    const auto error = test::ErrorOf([&] { LookUp(tier, 1121, "01", "1=1 OR 1=1"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), "无法识别的基础资料条件");
}

TEST(Lookup, EachPickerHasItsClass) {
    MiddleTier tier(test::SampleFile());
    const Ref<Object> view = tier.Create("QOREBCGLView.GLView");
    EXPECT_EQ(Choice(view->Call("UnitLookup", std::int32_t{0}, "01"), "Name"), Value("台"));
    EXPECT_EQ(Choice(view->Call("CurrencyLookup", "rmb"), "Name"), Value("人民币"));
    EXPECT_EQ(Choice(view->Call("SettTypeLookup", "02"), "Name"), Value("转账支票"));
    EXPECT_EQ(Choice(view->Call("AccountLookup", "01.001"), "Name"), Value("库存现金"));
    EXPECT_EQ(Choice(view->Call("SubMesLookup", std::int32_t{36}, "02.001"), "Name"),
              Value("工商银行基本户"));
    EXPECT_EQ(Choice(LookUp(tier, 14, "02.001"), "Name"), Value("工商银行基本户"));
}

TEST(Lookup, AnApplicationBringsItsOwnPicker) {
    MiddleTier tier(test::SampleFile());
    LookupRequest asked;
    tier.SetPicker([&](AccountSet&, const LookupRequest& request) -> std::optional<std::int64_t> {
        asked = request;
        return std::nullopt;
    });
    EXPECT_TRUE(Choice(LookUp(tier, 8, "01", " t1.FDeleted=0 "), "Number").IsNothing());
    EXPECT_EQ(asked.itemClass, 8);
    EXPECT_EQ(asked.search, "01");
    EXPECT_FALSE(asked.withDisabled);
    tier.SetPicker([](AccountSet& set, const LookupRequest&) {
        return FindBySearchText(set, {.itemClass = 1121, .search = "06"});
    });
    EXPECT_EQ(Choice(LookUp(tier, 1121, ""), "Name"), Value("仓储收入"));
}

Value Remembered(MiddleTier& tier, std::string_view key) {
    const Ref<Object> profile = tier.Create("QOREBCBASE.UserProfile");
    profile->Call("Load", "QOR", "ARAP");
    return ObjectIn(profile->Get("Dictionary")).Call("GetValue", key, "0");
}

void Remember(MiddleTier& tier, std::string_view key, const Value& value) {
    const Ref<Object> profile = tier.Create("QOREBCBASE.UserProfile");
    profile->Call("Load", "QOR", "ARAP");
    ObjectIn(profile->Get("Dictionary")).Put("Value", key, value);
    profile->Call("Save", "QOR", "ARAP");
}

TEST(UserProfileComponent, RemembersForTheUserOnly) {
    const test::TempFolder folder;
    const auto file = folder / "profile.json";
    const auto tierOf = [&](std::int32_t user) {
        return MiddleTier(test::SampleFile(), user, std::make_unique<FileProfiles>(file));
    };
    MiddleTier first = tierOf(16);
    EXPECT_EQ(Remembered(first, "ZLFXB"), Value("0"));
    Remember(first, "ZLFXB", "1");
    Remember(first, "other", true);
    MiddleTier again = tierOf(16), another = tierOf(23);
    EXPECT_EQ(Remembered(again, "ZLFXB"), Value("1"));
    EXPECT_EQ(Remembered(again, "other"), Value(true));
    EXPECT_EQ(Remembered(another, "ZLFXB"), Value("0"));
}

TEST(UserProfileComponent, ADamagedFileIsToldAndNotWrittenOver) {
    const test::TempFolder folder;
    const auto file = folder / "profile.json";
    for (const char* content : {"{\"16\": ", "[]", "{\"16\": 3}", ""}) {
        test::PutContent(file, content);
        MiddleTier tier(test::SampleFile(), 16, std::make_unique<FileProfiles>(file));
        const auto error = test::ErrorOf([&] { Remember(tier, "ZLFXB", "1"); });
        ASSERT_TRUE(error) << content;
        EXPECT_EQ(error->description(), "用户配置文件已损坏：" + file.string());
        EXPECT_EQ(test::ContentOf(file), content);
    }
}

TEST(UserProfileComponent, MemoryIsTheStoreWhereNoneIsGiven) {
    MiddleTier tier(test::SampleFile());
    Remember(tier, "ZLFXB", "1");
    EXPECT_EQ(Remembered(tier, "ZLFXB"), Value("1"));
}

TEST(ReportData, AnswersItsReportsByReferenceAndLeavesTheFilter) {
    MiddleTier tier(test::SampleFile());
    const Value filter = Filter({{"DtpBDate", "2025-06-01"}, {"DtpEDate", "2025-06-30"}});
    EXPECT_GT(AskReport(tier, "QORMArApRpt.Data", "GetRpt10522Data", filter)->RowCount(), 5);
    EXPECT_GT(AskReport(tier, "QORMArApRpt.Data", "GetRpt10524Data", filter)->RowCount(), 5);
    EXPECT_EQ(As<Dictionary>(filter)->Count(), 2u);
    EXPECT_EQ(
        test::RaisedBy([&] { AskReport(tier, "QORMArApRpt.Data", "GetRpt10522Data", Value::Nothing()); }),
        Automation::ObjectNotSet);
    EXPECT_EQ(test::RaisedBy([&] { AskReport(tier, "QORMArApRpt.Data", "GetRpt10522Data", "no filter"); }),
              Automation::TypeMismatch);
}

TEST(ReportData, KnowsTheDeepestLevelOfAClass) {
    MiddleTier tier(test::SampleFile());
    const Ref<Object> data = tier.Create("QORMArApRpt.Data");
    EXPECT_EQ(data->Call("GetItemMaxLevel", "", std::int16_t{1121}), Value(std::int32_t{3}));
    EXPECT_EQ(data->Call("GetItemMaxLevel", "", std::int32_t{1122}), Value(std::int32_t{3}));
    EXPECT_EQ(data->Call("GetItemMaxLevel", "", std::int16_t{4711}), Value(std::int32_t{0}));
}

TEST(ReportData, RunsTheGateOfTheMatchingBalance) {
    MiddleTier tier(test::SampleFile());
    Value statement = "select * from t_Organization where FMatchSupplyID<>0";
    const Ref<Object> data = tier.Create("QORMArApRpt.Data");
    EXPECT_FALSE(As<RecordSet>(data->Call("GetData", "", Argument::ByRef(statement)))->Eof());
}

}  // namespace
}  // namespace qor
