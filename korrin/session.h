#pragma once

// What an editor keeps for each open plot: opening, files, history, clipboard, autosave.
// Every public header of korrin/session/.

#include "korrin/session/opening.h"
