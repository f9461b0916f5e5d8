#include "home/Reopening.h"

#include "store/accountset/ReadingDatabase.h"
#include "store/engine/Statement.h"
#include "transfer/backup/Backup.h"

namespace zelkor {
namespace {

std::string questionAbout(const SetBackup& backup, const std::string& month, const std::string& lost,
                          const std::string& otherName, const BooksPlace& place) {
  const std::string label = backup.note.label.empty() ? "" : "（" + backup.note.label + "）";
  const std::string renamed = otherName.empty() ? "" : "\n\n" + remarkOnName(backup.note, otherName);
  return sql("恢复到", month, "结账以前，换成 ", backup.note.time.toIso(), " 的备份", label, "？", renamed,
             "\n\n备份以后做的都会丢失：\n　　", month, "的结账，以及以后做的全部业务\n　　",
             lost.empty() ? "（各表的行数与备份相同）" : lost, "\n\n现在的账套先备份到 ",
             backupsBeside(place.dataFile).string(), "，说明为“恢复前”；恢复它就是撤消。");
}

}  // namespace

std::optional<Reopening> readReopening(const BooksPlace& place) {
  Database data = openDatabaseForReading(place.dataFile);
  Database system = openDatabaseForReading(place.systemFile);
  const auto closed = closedBefore(openPeriod(data, system, place.account));
  if (!closed) return std::nullopt;
  const std::vector<SetBackup> backups = backupsOf(place.dataFile, place.account);
  const SetBackup* backup = lastOfMonth(backups, closed->year, closed->month);
  const auto first = DateTime::fromParts(closed->year, closed->month, 1);
  if (backup == nullptr || !first) return std::nullopt;
  const std::string otherName = otherNameThan(backup->note, place.systemFile);
  return Reopening{backup->folder, DateAdd("d", -1, DateAdd("m", 1, *first)),
                   questionAbout(*backup, monthText(closed->year, closed->month),
                                 textOf(rowsSince(backup->note, data)), otherName, place),
                   !otherName.empty()};
}

}  // namespace zelkor
