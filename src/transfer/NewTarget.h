#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "base/FileAccess.h"
#include "transfer/TransferTarget.h"

namespace zelkor {

/// Begins a new target under the path: an SQLite file, or, where `conninfo` is not empty, a schema on the
/// server that it describes, with the text file that names it. An empty `schema` stands for
/// `schemaFor(file)`, `access` is the file's. Errors: 3204 when the file or the schema is there already, 3051
/// when the file cannot be written, 57 when the server cannot be reached, 13 for a password in `conninfo` or
/// a name that is none.
std::unique_ptr<TransferTarget> openTarget(const std::filesystem::path& file,
                                           const std::string& conninfo = {}, const std::string& schema = {},
                                           const FileAccess& access = {});

/// The schema that stands for a file when none is named, from the names of its folder and its own:
/// "zk001_data" for 001/ZkData.Mdb.
std::string schemaFor(const std::filesystem::path& file);

}  // namespace zelkor
