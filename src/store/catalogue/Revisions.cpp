#include "store/catalogue/Revisions.h"

#include <array>

namespace zelkor {
namespace {

constexpr std::array kSteps{
    // In this order: of two indexes that begin alike SQLite takes the one that was made last.
    RevisionStep{2, "CREATE INDEX sCardNum ON fa_Cards (sCardNum)"},
    RevisionStep{2, "CREATE INDEX lOptID ON fa_DeptScale (lOptID)"},
    RevisionStep{2, "CREATE INDEX sID ON fa_DeptScale (sID)"},
};

}  // namespace

std::span<const RevisionStep> revisionSteps() {
  return kSteps;
}

int currentRevision() {
  return kSteps.back().revision;
}

}  // namespace zelkor
