// The summary that corvan-cli process prints.
#pragma once

#include <string>
#include <vector>

#include "cli/Report.h"
#include "session/Session.h"

namespace corvan::cli {

std::string SommarioTesto(const Session& session);
Json SommarioJson(const Session& session, const std::vector<std::string>& messages);

}  // namespace corvan::cli
