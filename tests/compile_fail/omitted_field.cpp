// No field has a default: each is given.

#include "korrin/model/stage_values.h"

#ifdef KORRIN_WRONG
const korrin::StageSize size = {.width = 1};
#else
const korrin::StageSize size = {.width = 1, .height = 2};
#endif
