#include "services/texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::ErrorOf;
using test::TestProcess;
using testing::Contains;
using testing::IsEmpty;

TEST(ResText, AnswersTheTextWithItsMarks) {
    for (const char* text : {"", "日期$", "收款金额+|", "期初余额+|+|", "正在从服务器读取数据，请稍候..."}) {
        EXPECT_EQ(ResText(text), text);
    }
}

TEST(GetSessionValue, AnswersTheLanguageWithoutASession) {
    TestProcess test;
    test.platform.session["PropsString"] = "Language=en;";
    for (const char* key : {"LANGUAGE", "language", "Language"}) {
        EXPECT_EQ(test.process.texts.GetSessionValue(key), "chs");
    }
    EXPECT_THAT(test.platform.log(), IsEmpty());
}

TEST(GetSessionValue, FindsAPlainValue) {
    const struct {
        const char* properties;
        const char* key;
        const char* value;
    } rows[] = {
        {"UserID=16;UserName=demo;", "UserName", "demo"},
        {"UserID=16;UserName=demo", "UserName", "demo"},
        {"UserID=16;UserName=demo", "username", "demo"},
        {"UserID=16;", "AcctID", ""},
        {"SubUserID=1;UserID=16;", "UserID", "1"},
        {"UserID= 16 ;", "UserID", " 16 "},
        {"UserID =16;", "UserID", ""},
        {"a={x;y};", "a", "{x"},
        {"a=;", "a", ""},
        {"", "a", ""},
        {"a;b=1;", "a;b", ""},
    };
    for (const auto& row : rows) {
        TestProcess test;
        test.platform.session["PropsString"] = row.properties;
        EXPECT_EQ(test.process.texts.GetSessionValue(row.key), row.value) << row.properties << " " << row.key;
    }
}

TEST(LoadFormResources, DoesNothingInTheBuiltInLanguage) {
    TestProcess test;
    OrderedDictionary* form = new OrderedDictionary;
    const Ref<Object> kept(form);
    Ref<Dictionary> options;
    test.process.texts.LoadFormResources(form, options, "Q9INDUSTRY");
    EXPECT_FALSE(options);
    EXPECT_THAT(test.platform.log(), IsEmpty());
}

class LoadFormResourcesInEnglish : public testing::Test {
 protected:
    TestProcess test;
    Texts texts{test.platform, test.process.session, "en"};
    Ref<Object> form = test::Readable({});
    Ref<Dictionary> options;
};

TEST_F(LoadFormResourcesInEnglish, HandsTheFormToTheLoader) {
    texts.LoadFormResources(form.get(), options, "Q9INDUSTRY");
    EXPECT_THAT(
        test.platform.log(),
        testing::ElementsAre("create QORFrmRes.FrmResLoader",
                             "call QORFrmRes.FrmResLoader.LoadFrmResStrings(&<Readable>, &\"en\", \"\", "
                             "&\"Q9INDUSTRY\", &{NeedMLColumnHeaders: True})",
                             "release QORFrmRes.FrmResLoader"));
    ASSERT_TRUE(options);
    EXPECT_EQ(options->Get("NeedMLColumnHeaders"), Value(true));
}

TEST_F(LoadFormResourcesInEnglish, LeavesOptionsThatItIsGivenAsTheyAre) {
    options = test.platform.NewDictionary();
    const Ref<Dictionary> given = options;
    texts.LoadFormResources(form.get(), options, "Q9INDUSTRY");
    EXPECT_EQ(options, given);
    EXPECT_EQ(options->Count(), 0U);
}

TEST_F(LoadFormResourcesInEnglish, TakesTheOptionsThatTheLoaderLeaves) {
    const Ref<Dictionary> others = test.platform.NewDictionary();
    test.platform.Component("QORFrmRes.FrmResLoader")
        .Answers("LoadFrmResStrings", [others](Arguments a) -> Value {
            *a[4] = others;
            return {};
        });
    texts.LoadFormResources(form.get(), options, "Q9INDUSTRY");
    EXPECT_EQ(options, others);
}

TEST_F(LoadFormResourcesInEnglish, LetsTheLoadersErrorThrough) {
    test.platform.Component("QORFrmRes.FrmResLoader")
        .Raises("LoadFrmResStrings", Error(77, "Loader", "no strings"));
    const auto error = ErrorOf([&] { texts.LoadFormResources(form.get(), options, "Q9INDUSTRY"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 77);
    EXPECT_THAT(test.platform.log(), Contains("release QORFrmRes.FrmResLoader"));
}

TEST(LoadFormResources, TakesTheBuiltInLanguageInWhateverCase) {
    TestProcess test;
    Texts texts(test.platform, test.process.session, "CHS");
    Ref<Dictionary> options;
    texts.LoadFormResources(test::Readable({}).get(), options, "Q9INDUSTRY");
    EXPECT_THAT(test.platform.log(), IsEmpty());
}

}  // namespace
}  // namespace qor
