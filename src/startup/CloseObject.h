#pragma once

#include "base/RuntimeError.h"

namespace zelkor {

/// Closes a database or recordset if it is set and releases it; a failure to close is ignored.
template <typename Closable>
void CloseObject(Closable& object) {
  try {
    if (object.isOpen()) object.Close();
  } catch (const RuntimeError&) {
    // what cannot be closed is dropped below all the same
  }
  object = Closable();
}

}  // namespace zelkor
