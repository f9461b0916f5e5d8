#pragma once

#include <QLineEdit>

#include "vouchers/frmSubjectPicker.h"

namespace zelkor {

/// Picks an account subject. What was picked belongs to the run: it lives on after the screen has closed, and
/// cancelling leaves it as it was.
class frmPZCode final : public frmSubjectPicker {
 public:
  /// Shows the chart of the data file, or that of `database`.
  explicit frmPZCode(FormHost& host);
  frmPZCode(FormHost& host, const Database& database);

  /// What was picked last, here or in an earlier picker.
  const PickedSubject& picked() { return run().pickedSubject; }

 private:
  void pick(const PickedSubject& picked) override { run().pickedSubject = picked; }
};

/// Lets a person pick a subject and writes it into the field as "code,name". After cancelling that is the
/// subject that was picked last; the field stays as it is when there is none.
void pickSubjectInto(FormHost& host, QLineEdit& field);

/// Looks the field's subject up and writes it as "code,name". One that the chart does not have is reported
/// and the field emptied; false then.
bool checkSubjectField(RunContext& run, QLineEdit& field);

}  // namespace zelkor
