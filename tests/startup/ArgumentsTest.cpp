#include <gtest/gtest.h>

#include "startup/Arguments.h"
#include "support/ScriptedDialogs.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

class ArgumentsTest : public testing::Test {
 protected:
  DbEngine engine;
  ScriptedDialogs dialogs;
  FixedClock clock{*DateTime::fromParts(2020, 6, 1, 8, 30, 0)};
  RunContext context{engine, dialogs, clock};
};

TEST_F(ArgumentsTest, SixFieldsFillBothCopies) {
  const std::string arguments = " /a b/ZkData.Mdb , 陈会计 ,2020-5-15,  4 , /s/ZkSystem.Mdb , 001 ,seventh";
  ReadCommandArgs(context, arguments);
  ParseArgs(context, arguments);
  EXPECT_EQ(context.gstrZtFile, "/a b/ZkData.Mdb");
  EXPECT_EQ(context.gstrUser, "陈会计");
  EXPECT_EQ(context.gdOpDate, day("2020-5-15"));
  EXPECT_EQ(context.giRunType, 4);
  EXPECT_EQ(context.gstrZkSysFile, "/s/ZkSystem.Mdb");
  EXPECT_EQ(context.gstrAccountId, "001");
  EXPECT_EQ(context.gOpArgs.ZkDataPath(), "/a b/ZkData.Mdb");
  EXPECT_EQ(context.gOpArgs.User(), "陈会计");
  EXPECT_EQ(context.gOpArgs.OpDate(), day("2020-5-15"));
  EXPECT_EQ(context.gOpArgs.RunType(), 4);
}

TEST_F(ArgumentsTest, TwoReadingAccessorsAreOdd) {
  ParseArgs(context, "d,陈会计,2020-5-15,4,s,001");
  EXPECT_EQ(context.gOpArgs.ZkSystemPath(), "");
  EXPECT_EQ(context.gOpArgs.User(), "陈会计");
  EXPECT_EQ(context.gOpArgs.AccountId(), "");
  EXPECT_EQ(context.gOpArgs.User(), "001");
}

TEST_F(ArgumentsTest, AComposedStringIsReadAsItsFields) {
  RunArguments fields{.dataFile = "/a b/ZkData.Mdb",
                      .user = "陈会计",
                      .date = day("2020-5-15"),
                      .runType = 8,
                      .systemFile = "/s/ZkSystem.Mdb",
                      .account = "001"};
  EXPECT_EQ(composeArguments(fields), "/a b/ZkData.Mdb,陈会计,2020-05-15,8,/s/ZkSystem.Mdb,001");
  for (std::string* field : {&fields.dataFile, &fields.user, &fields.systemFile, &fields.account}) {
    for (const char* text : {"a,b", " a", "a "}) {
      const std::string before = std::exchange(*field, text);
      EXPECT_EQ(errorOf([&fields] { composeArguments(fields); }), 5) << text;
      *field = before;
    }
  }
}

struct FailingCase {
  const char* arguments;
  int error;
  const char* named;  // what the report must name
};

TEST_F(ArgumentsTest, GlobalsAreConvertedWithoutGuard) {
  const FailingCase cases[] = {
      {"", 13, "第4个参数"},
      {"d,u", 13, "第4个参数"},
      {"d,u,2020-1-1", 13, "第4个参数"},
      {"d,u,2020-1-1,,s,1", 13, "第4个参数"},
      {"d,u,2020-1-1,four,s,1", 13, "“four”"},
      {"d,u,2020-1-1,32768,s,1", 6, "“32768”"},
      {"d,u,2020-1-1,-32769,s,1", 6, "“-32769”"},
      {"d,u,,4,s,1", 13, "第3个参数"},
      {"d,u,2020-2-30,4,s,1", 13, "“2020-2-30”"},
      {"d,u,soon,4,s,1", 13, "“soon”"},
      {"d,u,soon,four,s,1", 13, "第4个参数"},  // the run type is converted first
  };
  for (const FailingCase& c : cases) {
    try {
      ReadCommandArgs(context, c.arguments);
      ADD_FAILURE() << "no error: " << c.arguments;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), c.error) << c.arguments;
      EXPECT_NE(std::string(error.what()).find(c.named), std::string::npos) << error.what();
    }
  }
}

TEST_F(ArgumentsTest, RunTypeRoundsToEven) {
  for (const auto& [text, expected] : {std::pair("2.5", 2), {"3.5", 4}, {"-1", -1}, {"99", 99}}) {
    ReadCommandArgs(context, "d,u,2020-1-1," + std::string(text) + ",s,1");
    EXPECT_EQ(context.giRunType, expected) << text;
  }
}

TEST_F(ArgumentsTest, ParseArgsForgivesDateAndRunType) {
  ParseArgs(context, "d,u,soon,four,s,1");
  EXPECT_EQ(context.gOpArgs.OpDate(), clock.now());
  EXPECT_EQ(context.gOpArgs.RunType(), 3);
  EXPECT_EQ(context.gOpArgs.User(), "u");
}

TEST_F(ArgumentsTest, ParseArgsOfNothingKeepsTheDefaults) {
  context.programFolder = "C:\\Suite";
  ParseArgs(context, "   ");
  EXPECT_EQ(context.gOpArgs.ZkDataPath(), "C:\\Suite\\ZkData.Mdb");
  EXPECT_EQ(context.gOpArgs.OpDate(), clock.now());
  EXPECT_EQ(context.gOpArgs.RunType(), 3);
}

TEST_F(ArgumentsTest, ParseArgsEndsSilentlyOrFailsWhenFieldsAreMissing) {
  EXPECT_THROW(ParseArgs(context, "d,u,2020-1-1"), EndProgram);
  EXPECT_EQ(errorOf([&] { ParseArgs(context, "d,u,2020-1-1,4"); }), 9);
  EXPECT_EQ(errorOf([&] { ParseArgs(context, "d,u,2020-1-1,4,s"); }), 9);
}

}  // namespace
}  // namespace zelkor::test
