#include "store/accountset/ReadingDatabase.h"

#include <utility>

#include "store/accountset/BooksRevision.h"
#include "store/accountset/DataFile.h"
#include "store/engine/Connection.h"

namespace zelkor {

Database openDatabaseForReading(const std::string& path, std::string* advice) {
  std::unique_ptr<Engine> engine = openDataFileForReading(path);
  std::string renew = renewalAdvice(*engine, path);
  if (advice != nullptr) *advice = renew;
  return Database(std::make_shared<Connection>(std::move(engine), std::move(renew)));
}

}  // namespace zelkor
