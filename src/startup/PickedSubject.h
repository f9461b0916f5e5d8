#pragma once

#include <string>

namespace zelkor {

/// A subject as the subject picker gives it back; empty where none has been picked.
struct PickedSubject {
  std::string code;
  std::string name;
  std::string content;  // both, as the picker shows them
};

}  // namespace zelkor
