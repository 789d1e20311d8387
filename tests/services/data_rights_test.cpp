#include "services/data_rights.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::RaisedBy;
using test::TestProcess;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kSecurity = "QOREBSBase.SecurityInfo";
constexpr const char* kData = "QOREBCGLView.GLData";
const Error kDown(-1, "Server", "down");

std::ptrdiff_t TimesLogged(TestProcess& test, std::string_view line) {
    return std::ranges::count(test.platform.log(), line);
}

TEST(NeedAuthrize, AsksTheServerFirst) {
    TestProcess test;
    test.platform.Component(kSecurity).Answers("NeedAutorized", true);
    EXPECT_TRUE(test.process.dataRights.NeedAuthrize());
    EXPECT_EQ(test.platform.Bag().Get("NeedAuthrize"), Value(true));
    EXPECT_THAT(test.platform.log(),
                ElementsAre("create QOREBSBase.SecurityInfo", "create QORMtsCacheService.CacheFacade",
                            "call QORMtsCacheService.CacheFacade.GetItem(&4711, \"IsOuterLogin\")",
                            "create QORPropsMgr.ShareProps",
                            "call QORPropsMgr.ShareProps.GetProperty(&4711, &\"PropsString\")",
                            "call QORPropsMgr.ShareProps.GetProperty(&4711, &\"PropsString\")",
                            "release QORPropsMgr.ShareProps", "release QORMtsCacheService.CacheFacade",
                            "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                            "release QOREBSBase.SecurityInfo"));
}

TEST(NeedAuthrize, ReplacesWhatTheBagHoldsAndReadsTheBagFromThenOn) {
    TestProcess test;
    test.platform.Bag().Put("NeedAuthrize", true);
    EXPECT_FALSE(test.process.dataRights.NeedAuthrize());
    test.platform.Bag().Put("NeedAuthrize", std::int16_t{1});
    test.platform.log().clear();
    EXPECT_TRUE(test.process.dataRights.NeedAuthrize());
    EXPECT_THAT(test.platform.log(), IsEmpty());
}

TEST(NeedAuthrize, AsksAgainWhereTheBagHasLostTheAnswer) {
    TestProcess test;
    test.process.dataRights.NeedAuthrize();
    test.platform.Bag().Remove("NeedAuthrize");
    test.platform.Component(kSecurity).Answers("NeedAutorized", true);
    EXPECT_TRUE(test.process.dataRights.NeedAuthrize());
    EXPECT_EQ(test.platform.Bag().Get("NeedAuthrize"), Value(true));
}

TEST(NeedAuthrize, IsFalseOnFailureAndAsksAgainNextTime) {
    TestProcess test;
    test.platform.Component(kSecurity).Raises("NeedAutorized", kDown);
    test.platform.Bag().Put("NeedAuthrize", true);
    EXPECT_FALSE(test.process.dataRights.NeedAuthrize());
    test.platform.Remove(kSecurity);
    EXPECT_FALSE(test.process.dataRights.NeedAuthrize());
    test.platform.Component(kSecurity).Answers("NeedAutorized", "perhaps");
    EXPECT_FALSE(test.process.dataRights.NeedAuthrize());

    TestProcess withoutBag;
    withoutBag.platform.bag = nullptr;
    withoutBag.platform.Component(kSecurity).Answers("NeedAutorized", true);
    EXPECT_FALSE(withoutBag.process.dataRights.NeedAuthrize());
    EXPECT_FALSE(withoutBag.process.dataRights.NeedAuthrize());
    EXPECT_EQ(TimesLogged(withoutBag, "create QOREBSBase.SecurityInfo"), 2);
}

TEST(GetAuthrizeItemClassList, AsksTheServerOnceAndKeepsTheAnswerInTheBag) {
    TestProcess test;
    test.platform.Component(kData).Answers("GetAuthItemClassList", "1,8");
    EXPECT_EQ(test.process.dataRights.GetAuthrizeItemClassList(), "1,8");
    EXPECT_THAT(test.platform.log(),
                ElementsAre("create QOREBCGLView.GLData", "call QOREBCGLView.GLData.GetAuthItemClassList()",
                            "release QOREBCGLView.GLData"));
    EXPECT_EQ(test.platform.Bag().Get("AuthrizeItemClassList"), Value("1,8"));
    EXPECT_EQ(test.process.dataRights.GetAuthrizeItemClassList(), "1,8");
    EXPECT_EQ(test.platform.log().size(), 3U);
}

TEST(GetAuthrizeItemClassList, TakesTheBagsListAsText) {
    TestProcess test;
    test.platform.Bag().Put("AuthrizeItemClassList", 18);
    EXPECT_EQ(test.process.dataRights.GetAuthrizeItemClassList(), "18");
    EXPECT_THAT(test.platform.log(), IsEmpty());
}

TEST(GetAuthrizeItemClassList, AsksAgainForAnEmptyList) {
    TestProcess test;
    test.platform.Bag().Put("AuthrizeItemClassList", "");
    test.platform.Component(kData).Answers("GetAuthItemClassList", "8");
    EXPECT_EQ(test.process.dataRights.GetAuthrizeItemClassList(), "8");
}

TEST(GetAuthrizeItemClassList, LetsErrorsThrough) {
    TestProcess test;
    test.platform.Component(kData).Raises("GetAuthItemClassList", kDown);
    EXPECT_EQ(RaisedBy([&] { test.process.dataRights.GetAuthrizeItemClassList(); }),
              static_cast<Automation>(-1));
    test.platform.Component(kData).Answers("GetAuthItemClassList", "8");
    test.platform.bag = nullptr;
    EXPECT_EQ(RaisedBy([&] { test.process.dataRights.GetAuthrizeItemClassList(); }),
              Automation::ObjectNotSet);
}

class AddRightClause : public testing::Test {
 protected:
    AddRightClause() {
        test.platform.Component(kSecurity).Answers("NeedAutorized", true);
        test.platform.Bag().Put("AuthrizeItemClassList", "1,8");
    }
    void AddItem(std::string_view table, std::string_view alias, std::string_view itemClass) {
        items->Add(test.process.dataRights.NewRightItem(table, alias, itemClass));
    }
    bool Add() { return test.process.dataRights.AddRightClause(items.get(), clause); }

    TestProcess test;
    Ref<Vector> items = test.platform.NewVector();
    std::string clause;
};

constexpr const char* kCustomers = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";
constexpr const char* kSuppliers = " (CharIndex('16',ts.FRightUserID)>0 OR ISNULL(ts.FItemID,0)=0) ";

TEST_F(AddRightClause, WritesTheConditionOfAnItem) {
    AddItem("t_Organization", "t1", "1");
    EXPECT_TRUE(Add());
    EXPECT_EQ(clause, kCustomers);
}

TEST_F(AddRightClause, JoinsTheConditionsInTheOrderOfTheItems) {
    AddItem("t_Supplier", "ts", "8");
    AddItem("t_Organization", "t1", "1");
    EXPECT_TRUE(Add());
    EXPECT_EQ(clause, std::string(kSuppliers) + " And " + kCustomers);
}

TEST_F(AddRightClause, JoinsToAClauseThatIsNotBlank) {
    AddItem("t_Organization", "t1", "1");
    clause = "   ";
    Add();
    EXPECT_EQ(clause, std::string("   ") + kCustomers);
    clause = "a=1";
    Add();
    EXPECT_EQ(clause, std::string("a=1 And ") + kCustomers);
}

TEST_F(AddRightClause, KnowsItsTablesInWhateverCase) {
    for (const char* table : {"t_item", "t_supplier", "t_stock", "t_Organization", "t_ls_branchshop",
                              "t_ls_cashier", "t_organization", "T_ITEM", "t_Supplier"}) {
        items = test.platform.NewVector();
        clause.clear();
        AddItem(table, "t1", "1");
        EXPECT_TRUE(Add());
        EXPECT_EQ(clause, kCustomers) << table;
    }
    for (const char* table : {"t_Account", "", "t_item ", "Organization"}) {
        items = test.platform.NewVector();
        clause.clear();
        AddItem(table, "t1", "1");
        EXPECT_TRUE(Add());
        EXPECT_EQ(clause, "") << table;
    }
}

TEST_F(AddRightClause, FindsAClassAsASubstringOfTheList) {
    const struct {
        const char* list;
        const char* itemClass;
        bool listed;
    } rows[] = {
        {"1,8", "8", true}, {"11", "1", true}, {"8", "1", false}, {"1,8", "1,8", true}, {"1,8", "", true},
    };
    AddItem("t_Organization", "t1", "1");
    for (const auto& row : rows) {
        test.platform.Bag().Put("AuthrizeItemClassList", row.list);
        As<Dictionary>(items->Item(1))->Put("ItemClassType", row.itemClass);
        clause.clear();
        EXPECT_TRUE(Add());
        EXPECT_EQ(clause, row.listed ? kCustomers : "") << row.list << " " << row.itemClass;
    }
}

TEST_F(AddRightClause, AddsNothingWhereNoClassIsListed) {
    test.platform.Bag().Put("AuthrizeItemClassList", "");
    AddItem("t_Organization", "t1", "1");
    AddItem("t_Organization", "t2", "");
    EXPECT_TRUE(Add());
    EXPECT_EQ(clause, "");
}

TEST_F(AddRightClause, ReadsTheListOnlyForTablesThatAreSubjectToRights) {
    test.platform.Bag().Remove("AuthrizeItemClassList");
    AddItem("t_Account", "t1", "1");
    Add();
    EXPECT_THAT(test.platform.log(), Not(Contains("create QOREBCGLView.GLData")));
}

TEST_F(AddRightClause, LeavesTheClauseAndTheSessionAloneWithoutRights) {
    test.platform.Component(kSecurity).Answers("NeedAutorized", false);
    test.process.session.ParsePropsString("UserID=3");
    AddItem("t_Organization", "t1", "1");
    clause = "a=1";
    EXPECT_FALSE(Add());
    EXPECT_EQ(clause, "a=1");
    EXPECT_EQ(test.process.session.GetUserID(), 3);
}

TEST_F(AddRightClause, ParsesTheSessionAlsoForAnEmptyList) {
    EXPECT_TRUE(Add());
    EXPECT_EQ(test.process.session.GetUserID(), 16);
    EXPECT_EQ(clause, "");
}

TEST_F(AddRightClause, LetsTheSessionsErrorsThrough) {
    AddItem("t_Organization", "t1", "1");
    const struct {
        const char* properties;
        Automation raised;
    } rows[] = {
        {"UserName=demo;", Automation::InvalidCall},
        {"UserID=1;userid=2;", Automation::KeyAlreadyThere},
        {"UserID=70000;", Automation::Overflow},
    };
    for (const auto& row : rows) {
        test.platform.session["PropsString"] = row.properties;
        EXPECT_EQ(RaisedBy([&] { Add(); }), row.raised) << row.properties;
    }
}

TEST_F(AddRightClause, RaisesForAnItemThatIsNone) {
    items->Add(Value::Nothing());
    EXPECT_EQ(RaisedBy([&] { Add(); }), Automation::ObjectNotSet);
}

TEST(NewRightItem, HoldsThreeTexts) {
    TestProcess test;
    const Value item = test.process.dataRights.NewRightItem("t_Supplier", "ts", "8");
    EXPECT_EQ(test::Shown(item), R"({DataTable: "t_Supplier", DataTableAs: "ts", ItemClassType: "8"})");
}

TEST(NewUserFieldSpec, HoldsWhatItIsGivenInOrder) {
    TestProcess test;
    const Value fields = test.process.dataRights.NewUserFieldSpec(true, "FBillNo", "", "");
    EXPECT_EQ(test::Shown(fields),
              R"({hasVect: True, prefixValue: "FBillNo", classType: "", DisplayFields: ""})");
}

}  // namespace
}  // namespace qor
