#include "base/Value.h"

#include "base/Conversion.h"

namespace zelkor {

std::string Value::text() const {
  return CStr(*this);
}

std::string Value::textOrEmpty() const {
  return isNull() ? std::string() : CStr(*this);
}

double Value::number() const {
  return CDbl(*this);
}

double Value::numberOrZero() const {
  return isNull() ? 0 : CDbl(*this);
}

DateTime Value::date() const {
  return CDate(*this);
}

}  // namespace zelkor
