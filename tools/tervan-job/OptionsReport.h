#pragma once

#include "Catalogue.h"
#include "JobJson.h"

#include <string>

namespace Tervan::Job {

// Every setting a helper has or constrains, with its default and what it admits, and
// the helper's rules. Settings come in the order of the helper's defaults, then the
// constrained settings that the defaults lack.
std::string OptionsText(const Catalogue& catalogue, Catalogue::Kind kind, const std::string& name);
// The same for programs that build forms from it.
Json OptionsJson(const Catalogue& catalogue, Catalogue::Kind kind, const std::string& name);

}  // namespace Tervan::Job
