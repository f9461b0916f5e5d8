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

  /// What was picked here, from the run; empty when the screen was left without a pick. A field that somebody
  /// only looked at must not take the subject of an earlier pick.
  PickedSubject picked() { return taken_ ? run().pickedSubject : PickedSubject(); }

 private:
  void pick(const PickedSubject& picked) override;

  bool taken_ = false;
};

/// Lets a person pick a subject and writes it into the field as "code,name". The field stays as it is when
/// none is picked.
void pickSubjectInto(FormHost& host, QLineEdit& field);

/// Looks the field's subject up and writes it as "code,name". One that the chart does not have is reported
/// and the field emptied; false then.
bool checkSubjectField(RunContext& run, QLineEdit& field);

}  // namespace zelkor
