#include "store/accountset/ReadingDatabase.h"

#include "store/accountset/DataFile.h"
#include "store/engine/Connection.h"

namespace zelkor {

Database openDatabaseForReading(const std::string& path) {
  return Database(std::make_shared<Connection>(openDataFileForReading(path)));
}

}  // namespace zelkor
