#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "store/engine/Engine.h"

namespace zelkor {

/// Error 3024 where there is nothing, 3051 for what is no file or may not be read.
void requireReadable(const std::filesystem::path& path);

/// Opens the engine that the path names: an SQLite file, or a text file that names a schema on a server.
/// Errors: 3024 missing, 3051 read-only or not a file, 3343 no database, books that a newer program has
/// renewed, or a real Jet file, for which the text says how to import it; 57 when the server cannot be
/// reached. Older books are opened as they are.
std::unique_ptr<Engine> openDataFile(const std::string& path);

/// The same for who only reads: the file may be read-only.
std::unique_ptr<Engine> openDataFileForReading(const std::string& path);

/// The same for who replaces all that is there, whatever its revision: as long as the engine lives nobody
/// else can open it. Error 3045 when somebody has it open.
std::unique_ptr<Engine> openDataFileAlone(const std::string& path);

/// See Engine::lockForJob; for a file that cannot be opened, too.
JobLockAttempt lockForJob(const std::string& path, const JobNote& note);

/// Whether the file names a schema on a server.
bool namesServer(const std::string& path);

/// The words of the engine of that name, "sqlite" or "postgresql".
const dialect::EngineWords& engineWords(std::string_view name);

}  // namespace zelkor
