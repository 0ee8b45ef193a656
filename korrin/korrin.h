#pragma once

// The whole library. A host that minds its compile times includes what it uses instead.

#include "korrin/commands/change_set.h"
#include "korrin/commands/command_result.h"
#include "korrin/commands/document_command.h"
#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/environment.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"
#include "korrin/foundation/uuid.h"
#include "korrin/geometry/item_alignment.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/model/document_coding.h"
#include "korrin/model/project.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/preflight/preflight_issue.h"
#include "korrin/templates/korrin_template.h"
#include "korrin/validation/document_validation.h"
#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/raster_asset_safety.h"
