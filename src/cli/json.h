#pragma once

#include "core/text/json.h"

namespace parlex::cli {

using text::jsonString;

} // namespace parlex::cli
