#include "home/AccountSetList.h"
#include "home/AccountSetState.h"
#include "home/CheckMemory.h"
#include "startup/OnlyJob.h"
#include "store/engine/JobLock.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class AccountSetListTest : public AccountSetTest {
 protected:
  KnownAccountSet set(const std::string& lastUsed = "2020-1-31 8:00:00") const {
    return {context.gstrZtFile, context.gstrZkSysFile, "001", "东厂", "甲\t公司", "陈会计", day(lastUsed)};
  }
  KnownAccountSet another(const std::string& lastUsed) const {
    return {"/books/ZkData.Mdb", "/books/ZkSystem.Mdb", "002", "西厂", "", "", day(lastUsed)};
  }
  std::string damaged() const { return readFile(file.string() + ".damaged"); }

  std::filesystem::path file = directory / "config/zelkor/account-sets.tsv";
};

TEST_F(AccountSetListTest, TheSetUsedLastComesFirst) {
  AccountSetList list(file);
  EXPECT_TRUE(list.sets().empty());
  list.remember(set());
  AccountSetList(file).remember(another("2020-2-1"));  // another workbench
  list.remember(set("2020-3-1"));
  EXPECT_EQ(list.sets(), (std::vector{set("2020-3-1"), another("2020-2-1")}));
  EXPECT_EQ(AccountSetList(file).sets(), list.sets());
  list.forget(set());
  EXPECT_EQ(AccountSetList(file).sets(), std::vector{another("2020-2-1")});
}

TEST_F(AccountSetListTest, ADamagedFileLosesNothingThatCanBeRead) {
  AccountSetList(file).remember(set());
  const std::string broken = readFile(file) + "half a li\n/a\tb\n\xff\xfe\trelative\t\t\t\t\tnever\n";
  writeFile(file, broken);
  AccountSetList list(file);
  EXPECT_EQ(list.unreadable(), 3U);
  EXPECT_EQ(list.sets(), std::vector{set()});
  list.remember(another("2020-2-1"));
  EXPECT_EQ(damaged(), broken);
  EXPECT_EQ(AccountSetList(file).unreadable(), 0U);
  EXPECT_EQ(AccountSetList(file).sets().size(), 2U);
}

TEST_F(AccountSetListTest, AListThatCannotBeWrittenStillHoldsTheSet) {
  writeFile(directory / "config", "in the way of the folder");
  AccountSetList list(file);
  EXPECT_EQ(errorOf([&] { list.remember(set()); }), 57);
  EXPECT_EQ(list.sets(), std::vector{set()});
}

TEST_F(AccountSetListTest, TheLastCheckOfAMonthIsRemembered) {
  const auto kept = directory / "config/zelkor/checks.tsv";
  const KeptCheck first{day("2020-1-31 9:00:00"), 1, 2, 3, "在用 3 张"};
  const KeptCheck second{day("2020-1-31 10:00:00"), 0, 0, 0, "在用 4 张"};
  CheckMemory(kept).keep("/books/a", "001", day("2020-1-31"), first);
  CheckMemory(kept).keep("/books/b", "001", day("2020-1-31"), second);
  EXPECT_EQ(CheckMemory(kept).lastOf("/books/a", "001", day("2020-1-5")), first);
  EXPECT_FALSE(CheckMemory(kept).lastOf("/books/a", "001", day("2020-2-5")));
  writeFile(kept, readFile(kept) + "half a li");
  CheckMemory(kept).keep("/books/a", "001", day("2020-1-31"), second);
  EXPECT_EQ(CheckMemory(kept).lastOf("/books/a", "001", day("2020-1-5")), second);
  EXPECT_EQ(CheckMemory(kept).lastOf("/books/b", "001", day("2020-1-5")), second);

  CheckMemory nowhere(kept / "below a file");
  nowhere.keep("/books/a", "001", day("2020-1-31"), first);
  nowhere.keep("/books/a", "001", day("2020-1-31"), second);
  EXPECT_EQ(nowhere.lastOf("/books/a", "001", day("2020-1-5")), second) << "the step is done all the same";
}

TEST_F(AccountSetListTest, EachConditionOfASetIsSeen) {
  EXPECT_EQ(lookAt(set()).condition, AccountSetCondition::Ready);
  EXPECT_EQ(lookAt(set()).set.name, "示例账套");
  EXPECT_EQ(lookAt(set()).server.empty(), !onServer());

  {
    const auto attempt = db().lockForJob({.kind = 'm', .since = day("2020-1-31"), .user = "李会计"});
    const AccountSetState busy = lookAt(set());
    EXPECT_EQ(busy.condition, AccountSetCondition::Busy);
    EXPECT_NE(busy.detail.find("李会计"), std::string::npos) << busy.detail;
    DbEngine another;
    EXPECT_TRUE(another.OpenDatabase(context.gstrZtFile).jobHolder()) << "looking takes nothing";
  }
  execute("update AccInformation set cValue='' where cSysID='FA' and cName='dStartDate'");
  engine.flush();
  EXPECT_EQ(lookAt(set()).condition, AccountSetCondition::NotInitialised);

  const AccountSetState missing = lookAt(another("2020-2-1"));
  EXPECT_EQ(missing.condition, AccountSetCondition::Missing);
  EXPECT_FALSE(missing.canBeOpened());
  KnownAccountSet text = set();
  text.dataFile = (directory / "notes.txt").string();
  writeFile(text.dataFile, "no account set");
  EXPECT_EQ(lookAt(text).condition, AccountSetCondition::Unusable);
}

TEST_F(AccountSetListTest, AFolderTellsItsAccountSets) {
  const auto found = accountSetsAt(directory.path().string());
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().dataFile, context.gstrZtFile);
  EXPECT_EQ(found.front().account, "001");
  EXPECT_EQ(errorOf([&] { accountSetsAt(missingFile()); }), 3024);
  try {
    accountSetsAt("/books/a,b");
    ADD_FAILURE() << "a comma was carried";
  } catch (const RuntimeError& error) {
    EXPECT_NE(std::string(error.what()).find("逗号"), std::string::npos) << error.what();
  }
}

TEST_F(AccountSetListTest, TheDayThatIsOfferedAndWhatSpeaksAgainstAnother) {
  const OpenPeriod may{2020, 5};
  EXPECT_EQ(offeredDate(may, day("2026-11-22")), day("2020-5-31"));
  EXPECT_EQ(offeredDate(OpenPeriod{2020, 13}, day("2020-12-31 9:00:00")), day("2020-12-31"));
  EXPECT_EQ(warningOf(day("2020-5-31"), may, day("2020-5-20")), "");
  EXPECT_EQ(warningOf(day("2020-4-30"), may, day("2020-4-30")), "2020年4月已经结账；未结账的是2020年5月。");
  EXPECT_EQ(warningOf(day("2020-6-30"), may, day("2020-6-1")), "2020年6月还没有轮到；未结账的是2020年5月。");
  EXPECT_EQ(warningOf(day("2020-5-31"), may, day("2020-6-3")),
            "电脑的日期是2020年6月3日，不在2020年5月：资产减少的日期取自电脑。");
}

}  // namespace
}  // namespace zelkor::test
