#pragma once

#include <string>
#include <utility>

namespace zelkor {

/// A member of staff as the person lookup hands it over.
class ClsPerson {
 public:
  const std::string& Name() const { return name_; }
  void setName(std::string name) { name_ = std::move(name); }
  const std::string& code() const { return code_; }
  void setCode(std::string code) { code_ = std::move(code); }

 private:
  std::string name_;
  std::string code_;
};

}  // namespace zelkor
