#pragma once

#include <QPixmap>

#include "home/MonthState.h"

namespace zelkor {

/// The mark of a step's state: a tick, a number, a sign, or an empty ring.
QPixmap stepMark(StepState state, int number);

}  // namespace zelkor
