#pragma once

// Manual pages, as man(1) shows them.

#include <string>
#include <string_view>

#include "commands/command_page.h"

namespace korrin::host {

/// The name under which man finds the page, such as "korrin-check".
std::string manualName(const CommandPage& page);

/// The page in the language of man pages. `version` stands at its foot.
std::string manualPage(const CommandPage& page, std::string_view version);

}  // namespace korrin::host
