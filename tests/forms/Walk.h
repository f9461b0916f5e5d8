#pragma once

#include "support/Widgets.h"

namespace zelkor::test {

/// What a screen reader tells of the controls that Tab reaches, in their order.
Lines namesOf(const QWidget& form);

}  // namespace zelkor::test
