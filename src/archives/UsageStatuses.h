#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"
#include "base/TreeRow.h"
#include "store/accountset/DbEngine.h"

namespace zelkor {

/// A usage status as the screen holds it.
struct UsageStatus {
  std::string id;
  std::string name;
  std::string englishName;
  std::string parentID;
  bool depreciates = false;
  int level = 0;
};

/// The archive of usage statuses, on a database and a recordset of its own.
class UsageStatuses {
 public:
  UsageStatuses(DbEngine& engine, const std::string& path);

  /// The statuses of two levels below the root "N0", keys "N" and the sID, the sID as tag.
  std::vector<TreeRow> tree();
  /// Names and rules under one header row, names indented by level, the sID in a hidden third column: all for
  /// the empty id, otherwise the status with all whose sID begins with its own.
  TextGrid list(std::string_view id);
  /// Nothing when there is no such status.
  std::optional<UsageStatus> read(std::string_view id);

  /// Rewrites names and rule of the status with that sID.
  void change(const UsageStatus& status);
  /// Adds a status below `parentID`, numbered after the last one there; gives its sID.
  std::string add(const UsageStatus& status, const std::string& parentID);
  /// Cards in the status are not looked for.
  void remove(std::string_view id);
  /// Closes database and recordset.
  void close();

 private:
  std::string nextID(const std::string& parentID);

  Database data_;
  Recordset statuses_;
};

}  // namespace zelkor
