#pragma once

#include <cstdint>
#include <string>

#include "base/Value.h"

namespace zelkor {

/// The arguments of a run as the screens are given them. Two of the reading accessors are odd on purpose.
class ClsOpArgs {
 public:
  const std::string& ZkDataPath() const { return zkDataPath_; }
  void setZkDataPath(std::string path) { zkDataPath_ = std::move(path); }
  DateTime OpDate() const { return opDate_; }
  void setOpDate(DateTime date) { opDate_ = date; }
  const std::string& User() const { return user_; }
  void setUser(std::string user) { user_ = std::move(user); }
  /// Always the empty text, whatever was written.
  std::string ZkSystemPath() const { return {}; }
  void setZkSystemPath(std::string path) { zkSystemPath_ = std::move(path); }
  std::int32_t RunType() const { return runType_; }
  void setRunType(std::int32_t runType) { runType_ = runType; }
  /// Always the empty text; reading stores the account id into User.
  std::string AccountId() {
    user_ = accountId_;
    return {};
  }
  void setAccountId(std::string id) { accountId_ = std::move(id); }

 private:
  std::string zkDataPath_;
  DateTime opDate_;
  std::string user_;
  std::string zkSystemPath_;
  std::int32_t runType_ = 0;
  std::string accountId_;
};

}  // namespace zelkor
