#pragma once

// What an editor keeps for each open plot: opening, files, history, clipboard, autosave.
// Every public header of korrin/session/.

#include "korrin/session/autosave.h"
#include "korrin/session/document_file.h"
#include "korrin/session/opening.h"
