#pragma once

#include <gmock/gmock.h>

#include "support/Widgets.h"
#include "vouchers/VoucherFixture.h"

namespace zelkor::test {

using testing::ElementsAre;
using testing::IsEmpty;

/// Staged events with a host for the screens of vouchers.
class VoucherFormTest : public WithForms<VoucherTest> {
 protected:
  static bool editing(const QWidget& form, const char* box) {
    return control<QLineEdit>(form, box).isVisible();
  }
  /// Takes a subject in the picker that the next action opens.
  static void pickSubject(const QString& node) { pickNext("TvCode", node, "cmdOK"); }
};

}  // namespace zelkor::test
