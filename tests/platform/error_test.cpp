#include "platform/error.h"

#include <gtest/gtest.h>

#include "support/raises.h"

namespace qor {
namespace {

using test::ErrorOf;

TEST(Error, OfAutomationHasNumberSourceAndDescription) {
    const struct {
        Automation error;
        std::int32_t number;
        const char* description;
    } rows[] = {
        {Automation::InvalidCall, 5, "无效的过程调用或参数"},
        {Automation::Overflow, 6, "溢出"},
        {Automation::SubscriptOutOfRange, 9, "下标越界"},
        {Automation::TypeMismatch, 13, "类型不匹配"},
        {Automation::ObjectNotSet, 91, "对象变量或 With 块变量未设置"},
        {Automation::InvalidUseOfNull, 94, "无效使用 Null"},
        {Automation::InvalidPropertyValue, 380, "无效属性值"},
        {Automation::AlreadyShown, 400, "窗体已经显示，不能再以模式窗体显示"},
        {Automation::ObjectRequired, 424, "要求对象"},
        {Automation::CannotCreate, 429, "ActiveX 部件不能创建对象"},
        {Automation::NoSuchMember, 438, "对象不支持该属性或方法"},
        {Automation::ArgumentNotOptional, 449, "参数不可选"},
        {Automation::WrongArguments, 450, "错误的参数号或无效的属性赋值"},
        {Automation::KeyAlreadyThere, 457, "此键已经与该集合中的某元素相关联"},
        {Automation::NoCurrentRecord, 3021,
         "BOF 或 EOF 中有一个是“真”，或者当前的记录已被删除，所需的操作要求一个当前的记录。"},
        {Automation::NoSuchField, 3265, "在对应所需名称或序数的集合中，未找到项目。"},
    };
    for (const auto& row : rows) {
        const auto error = ErrorOf([&] { Raise(row.error); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), row.number);
        EXPECT_EQ(error->source(), "QORArApRpt");
        EXPECT_EQ(error->description(), row.description);
        EXPECT_STREQ(error->what(), row.description);
    }
}

TEST(IgnoringErrors, AnswersWhetherTheStepRanToItsEnd) {
    int steps = 0;
    EXPECT_TRUE(IgnoringErrors([&] { ++steps; }));
    EXPECT_FALSE(IgnoringErrors([&] {
        ++steps;
        Raise(Automation::Overflow);
    }));
    EXPECT_EQ(steps, 2);
}

TEST(IgnoringErrors, SwallowsErrorsAndNothingElse) {
    EXPECT_THROW(IgnoringErrors([] { throw std::bad_alloc(); }), std::bad_alloc);
}

}  // namespace
}  // namespace qor
