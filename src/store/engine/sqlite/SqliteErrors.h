#pragma once

struct sqlite3;

namespace zelkor {

/// Raises the RuntimeError that stands for the engine's result code `code` on this connection: 3022 with the
/// index for a refused key, the number that one of our own functions reported, 3183 for a full disk, ...
[[noreturn]] void raiseSqliteError(sqlite3* handle, int code);

}  // namespace zelkor
