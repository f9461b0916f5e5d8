#include <gtest/gtest.h>

#include "startup/Arguments.h"
#include "startup/Strings.h"
#include "support/Golden.h"
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

TEST_F(ArgumentsTest, GlobalsAreConvertedWithoutGuard) {
  for (const auto& one : casesIn("startup/bad-arguments.txt")) {
    const std::string &number = one[0], &named = one[1], &arguments = one[2];
    try {
      ReadCommandArgs(context, arguments);
      ADD_FAILURE() << "no error: " << arguments;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(std::to_string(error.number()), number) << arguments;
      EXPECT_NE(std::string(error.what()).find(named), std::string::npos) << error.what();
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

using Fields = std::vector<std::string>;

TEST(SplitString, CountsFieldsExactly) {
  for (const Fields& one : casesIn("startup/split.txt")) {
    Fields array{"left over"};
    SplitString(one[0], array, one[1], true);
    Fields wanted{""};  // the fields stand from index 1 on
    wanted.insert(wanted.end(), one.begin() + 2, one.end());
    EXPECT_EQ(array, wanted) << one[0];
  }
}

TEST(SplitString, KeepsAnUpperBoundOfAtLeastEightUnlessExact) {
  Fields array;
  SplitString("a,b", array, ",", false);
  EXPECT_EQ(array, (Fields{"", "a", "b", "", "", "", "", "", ""}));
  SplitString("1,2,3,4,5,6,7,8,9", array, ",", false);
  EXPECT_EQ(array.size() - 1, 9U);
  EXPECT_EQ(errorOf([&] { element(array, 10); }), 9);
}

}  // namespace
}  // namespace zelkor::test
