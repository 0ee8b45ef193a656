#pragma once

// What an editor keeps for each open plot: opening, files, history, clipboard, autosave.
// Every public header of korrin/session/.

#include "korrin/session/asset_budget.h"
#include "korrin/session/autosave.h"
#include "korrin/session/clipboard.h"
#include "korrin/session/document_file.h"
#include "korrin/session/edit_history.h"
#include "korrin/session/item_edits.h"
#include "korrin/session/opening.h"
#include "korrin/session/structural_edits.h"
