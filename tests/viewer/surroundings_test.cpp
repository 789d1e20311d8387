#include "viewer/surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "viewer/playing.h"

namespace qor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Surroundings, TheSessionHasAUserByDefault) {
    EXPECT_EQ(ResultOf(PlayedSteps(R"([{"invoke": "GetPropsString"}])"), 0), "UserID=1;");
}

TEST(Surroundings, TheSessionAtTheTopIsLaidOverItsDefault) {
    const Lines lines = Played(R"({"session": {"UserName": "demo"}, "steps": [
        {"invoke": "GetPropsString"}, {"invoke": "GetSharedProperty", "args": ["UserName"]},
        {"session": {"UserName": null}}, {"invoke": "GetSharedProperty", "args": ["UserName"]}]})");
    EXPECT_EQ(ResultOf(lines, 0), "UserID=1;");
    EXPECT_EQ(ResultOf(lines, 1), "demo");
    EXPECT_EQ(ResultOf(lines, 3).dump(), R"({"$empty":true})");
}

TEST(Surroundings, AnOuterLoginIsAnsweredByTheOtherService) {
    const Lines lines = Played(R"({"process": 12, "session": {"IsOuterLogin": 1}, "steps": [
        {"invoke": "GetPropsString"}, {"session": {"IsOuterLogin": 2}}, {"invoke": "GetPropsString"}]})");
    EXPECT_EQ(ResultOf(lines, 0), "UserID=1;");
    EXPECT_THAT(EventsOf(lines, "create", "component", "QORPropsMgr.ShareProps"), IsEmpty());
    EXPECT_EQ(EventsOf(lines, "call")[0]["args"].dump(), R"([12,"IsOuterLogin"])");
    EXPECT_EQ(ResultOf(lines, 2), "");
}

TEST(Surroundings, WithoutASessionNeitherServiceExists) {
    const Lines lines = Played(R"({"session": null, "steps": [{"invoke": "GetPropsString"},
        {"session": {"PropsString": "UserID=2;"}}, {"invoke": "GetPropsString"}]})");
    EXPECT_EQ(ResultOf(lines, 0), "");
    const Lines creates = EventsOf(lines, "create");
    ASSERT_GE(creates.size(), 2u);
    EXPECT_EQ(creates[0].dump(),
              R"({"event":"create","component":"QORMtsCacheService.CacheFacade","failed":true})");
    EXPECT_EQ(creates[1].dump(), R"({"event":"create","component":"QORPropsMgr.ShareProps","failed":true})");
    EXPECT_EQ(ResultOf(lines, 2), "UserID=2;");
}

TEST(Surroundings, TheBagIsTheShells) {
    const Lines lines = Played(R"({"bag": {"AppType": 4, "GLAndICUnite": false}, "steps": [
        {"invoke": "GetAppType"}, {"invoke": "IsGLAndICUnite"}, {"invoke": "SetProcessBagItem", "args": ["K", "v"]},
        {"invoke": "GetProcessBagItem", "args": ["K"]}, {"bag": {"AppType": null}}, {"invoke": "GetAppType"},
        {"bag": null}, {"invoke": "GetProcessBagItem", "args": ["K", "none"]},
        {"invoke": "SetProcessBagItem", "args": ["K", 1]}, {"bag": {"AppType": 1}}, {"invoke": "GetAppType"}]})");
    EXPECT_EQ(ResultOf(lines, 0), 4);
    EXPECT_EQ(ResultOf(lines, 1), false);
    EXPECT_EQ(ResultOf(lines, 3), "v");
    EXPECT_EQ(ResultOf(lines, 5), 2);
    EXPECT_EQ(ResultOf(lines, 7), "none");
    EXPECT_EQ(ErrorOfStep(lines, 8), 91);
    EXPECT_EQ(ResultOf(lines, 10), 1);
}

TEST(Surroundings, TheUserProfileRemembersWhatIsSaved) {
    const Lines lines = Played(R"({"userProfile": {"QOR/ARAP": {"A": "1"}}, "steps": [
        {"invoke": "GetUserProfileValue", "args": ["QOR", "ARAP", "A", "0"]},
        {"invoke": "GetUserProfileValue", "args": ["QOR", "ARAP", "B", "0"]},
        {"invoke": "SaveUserProfileValue", "args": ["QOR", "ARAP", "B", "2"]},
        {"invoke": "GetUserProfileValue", "args": ["QOR", "ARAP", "B", "0"]},
        {"invoke": "GetUserProfileValue", "args": ["QOR", "OTHER", "B", false]}]})");
    EXPECT_EQ(ResultOf(lines, 0), "1");
    EXPECT_EQ(ResultOf(lines, 1), "0");
    EXPECT_EQ(ResultOf(lines, 2), true);
    EXPECT_EQ(ResultOf(lines, 3), "2");
    EXPECT_EQ(ResultOf(lines, 4), false);
    EXPECT_THAT(Values(EventsOf(lines, "call"), "member"),
                ElementsAre("Load", "Load", "Load", "Save", "Load", "Load"));
    EXPECT_EQ(EventsOf(lines, "read", "member", "Dictionary").size(), 5u);
}

TEST(Surroundings, AFreshConversationKnowsNothingOfTheLastOne) {
    const char* const kFile = R"({"steps": [{"invoke": "NeedAuthrize"}]})";
    const auto asked = [&] { return EventsOf(Played(kFile), "call", "member", "NeedAutorized").size(); };
    EXPECT_EQ(asked(), 1u);
    EXPECT_EQ(asked(), 1u);
}

}  // namespace
}  // namespace qor::test
