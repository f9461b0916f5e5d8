#pragma once

#include <string>

#include "vouchers/frmSubjectPicker.h"

namespace zelkor {

/// Picks an account subject for the card editor, from the database that it is given.
class frmPZCode1 final : public frmSubjectPicker {
 public:
  explicit frmPZCode1(FormHost& host) : frmSubjectPicker(host, "frmPZCode1") {}

  const Database& ZKDatabase() const { return subjectData(); }
  /// To be set before the picker is shown.
  void setZKDatabase(const Database& database) { setSubjectData(database); }

  /// Code and name of the subject; empty when none was picked.
  const std::string& AccountCode() const { return picked_.code; }
  const std::string& AccountContent() const { return picked_.name; }

 private:
  void pick(const PickedSubject& picked) override { picked_ = picked; }

  PickedSubject picked_;
};

}  // namespace zelkor
