#pragma once

#include "Core/Exception.h"

namespace Tervan::Proc {

// Settings that a processing object cannot work with.
class TERVAN_API ProcException : public virtual Exception {};

}  // namespace Tervan::Proc
