#pragma once

// From a finding to a repaired, compared and merged plot.
// Every public header of korrin/review/.

#include "korrin/review/audit.h"
#include "korrin/review/difference.h"
#include "korrin/review/fixes.h"
#include "korrin/review/item_changes.h"
#include "korrin/review/merge.h"
#include "korrin/review/rules.h"
#include "korrin/review/safe_fixes.h"
#include "korrin/review/waivers.h"
