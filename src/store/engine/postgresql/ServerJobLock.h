#pragma once

#include <memory>
#include <string>

#include "store/engine/JobLock.h"
#include "store/engine/postgresql/PostgreSqlLink.h"

namespace zelkor {

/// Takes the job lock of an account set on a server: an advisory lock of the session, whose key is the
/// schema's. Who has it is said by the session's name, which the server shows to every other one.
JobLockAttempt lockSchemaForJob(const std::shared_ptr<PostgreSqlLink>& link, const std::string& schema,
                                const JobNote& note);
/// What the present holder of that lock has told.
std::optional<JobNote> holderOfSchemaLock(PostgreSqlLink& link, const std::string& schema);

}  // namespace zelkor
