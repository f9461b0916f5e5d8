#include "store/engine/Statement.h"

namespace zelkor {

std::string joined(std::initializer_list<StatementPiece> pieces) {
  std::size_t length = 0;
  for (const StatementPiece& piece : pieces) length += piece.text().size();
  std::string statement(length, '\0');
  char* place = statement.data();
  for (const StatementPiece& piece : pieces) place += piece.text().copy(place, piece.text().size());
  return statement;
}

}  // namespace zelkor
